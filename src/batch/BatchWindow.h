#pragma once

#include "run/MapWindow.h"

namespace tovrel {

/// The window of a run without one: a size that gives Picture2 the wanted number of pixels.
class BatchWindow : public MapWindow {
public:
    /// @param pictureWidth, pictureHeight size of Picture2 in twips
    BatchWindow(float pictureWidth, float pictureHeight)
        : pictureWidth_(pictureWidth), pictureHeight_(pictureHeight) {}

    State windowState() const override { return State::Normal; }
    // A window is 110 twips wider than the map in it.
    float Width() const override { return pictureWidth_ + 110.0F; }
    float Height() const override { return pictureHeight_; }
    float ScaleHeight() const override { return pictureHeight_; }
    WindowArea area() const override {
        return {Width(), Height(), pictureWidth_, pictureHeight_, false};
    }
    void settleSize() override {}
    void setWidth(float /*width*/) override {}
    void setHeight(float /*height*/) override {}
    void setCaption(const std::string& /*caption*/) override {}
    void setVisible(bool /*visible*/) override {}
    void CenterForm() override {}
    void followState(State /*state*/) override {}
    void showMap(const MapPlace& /*place*/) override {}
    void setWaitPointer(bool /*wait*/) override {}
    void setTimer1(bool /*enabled*/) override {}
    bool statsVisible() const override { return false; }
    void hideStats() override {}
    void closeStats() override {}
    void mnuView_Stats() override {}
    void askStationInfo() override {}
    std::optional<std::string> openFile(const std::string& /*title*/, const std::string& /*folder*/,
                                        const std::string& /*filter*/) override {
        return std::nullopt;
    }
    std::optional<Colour> chooseColour(Colour /*start*/) override { return std::nullopt; }
    bool openWithSystem(const std::string& /*path*/) override { return false; }
    void close() override {}

private:
    float pictureWidth_;
    float pictureHeight_;
};

} // namespace tovrel
