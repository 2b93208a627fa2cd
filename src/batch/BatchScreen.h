#pragma once

#include "platform/Twips.h"
#include "run/MapWindow.h"

namespace tovrel {

/// The screen of a run without a window: a size that gives Picture2 the wanted number of pixels.
class BatchScreen : public MapScreen {
public:
    /// @param pictureWidth, pictureHeight size of Picture2 in twips
    /// @param ratio its pixels to 15 twips
    BatchScreen(float pictureWidth, float pictureHeight, float ratio)
        : pictureWidth_(pictureWidth), pictureHeight_(pictureHeight), ratio_(ratio) {}

    bool isUnseen() const override { return false; }
    WindowArea area() const override {
        return {pictureWidth_, pictureHeight_, pictureWidth_, pictureHeight_, false, ratio_};
    }
    int mostPixels(MapShape /*shape*/) const override {
        return pixelsFromTwips(static_cast<double>(pictureWidth_ * ratio_));
    }
    void showMap(const MapPlace& /*place*/) override {}
    void setWaitPointer(bool /*wait*/) override {}

private:
    float pictureWidth_;
    float pictureHeight_;
    float ratio_;
};

} // namespace tovrel
