#pragma once

#include "run/MapWindow.h"

#include <functional>
#include <string>
#include <vector>

namespace tovrel {

/// Windows that keep what they are told, answer their dialogs as a test says, and show nothing.
class FakeWindow : public MapScreen, public MainWindow, public StatsWindow, public UserDialogs {
public:
    static constexpr float frame = 900.0F; ///< title bar and menu, twips

    Windows faces() { return {*this, *this, *this, *this}; }

    bool isUnseen() const override { return minimized; }
    float Width() const override { return width; }
    float Height() const override { return height; }
    void setWidth(float newWidth) override { width = newWidth; }
    void setHeight(float newHeight) override { height = newHeight; }
    float ScaleHeight() const override { return height - frame; }
    WindowArea area() const override { return {width, height, width, height - frame, free, ratio}; }
    int mostPixels(MapShape) const override { return most; }
    void settleSize() override { onSettle(); }
    void setCaption(const std::string& newCaption) override { caption = newCaption; }
    void setVisible(bool visible) override { calls.emplace_back(visible ? "show" : "hide"); }
    void CenterForm() override { calls.emplace_back("center"); }
    void showMap(const MapPlace& place) override { lastPlace = place; }
    void setWaitPointer(bool wait) override { waitPointer = wait; }
    void setTimer1(bool enabled) override {
        timer1 = enabled;
        calls.emplace_back(enabled ? "timer on" : "timer off");
    }
    bool statsVisible() const override { return statsShown; }
    void hideStats() override { calls.emplace_back("hide stats"); }
    void closeStats() override {
        calls.emplace_back("close stats");
        onCloseStats();
    }
    void mnuView_Stats() override { calls.emplace_back("view stats"); }
    void askStationInfo() override {
        calls.emplace_back("ask station");
        onAskStation();
    }
    std::optional<std::string> openFile(const std::string& title, const std::string& folder,
                                        const std::string& filter) override {
        fileDialogs.push_back(title + "|" + folder + "|" + filter);
        return chosenFile;
    }
    std::optional<PictureWish> choosePicture(const PictureWish& start, MapShape) override {
        pictureDialogs.push_back(start);
        return onChoosePicture(start);
    }
    std::optional<Colour> chooseColour(Colour /*start*/) override { return chosenColour; }
    bool openWithSystem(const std::string& /*path*/) override { return true; }
    void close() override { calls.emplace_back("close"); }

    /// The calls so far, joined with commas; they are forgotten.
    std::string takeCalls() {
        std::string all;
        for (const std::string& call : calls)
            all += (all.empty() ? "" : ",") + call;
        calls.clear();
        return all;
    }

    bool minimized = false;
    bool free = true;
    float ratio = 1.0F;
    int most = 667;
    float width = 5000.0F;
    float height = 5000.0F;
    std::string caption;
    MapPlace lastPlace;
    bool waitPointer = true;
    bool timer1 = false;
    bool statsShown = false;
    std::vector<std::string> calls;
    std::vector<std::string> fileDialogs;
    std::vector<PictureWish> pictureDialogs;
    std::optional<std::string> chosenFile;
    std::optional<Colour> chosenColour;
    std::function<std::optional<PictureWish>(const PictureWish&)> onChoosePicture =
        [](const PictureWish&) { return std::nullopt; };
    std::function<void()> onAskStation = [] {};
    std::function<void()> onSettle = [] {};
    std::function<void()> onCloseStats = [] {};
};

} // namespace tovrel
