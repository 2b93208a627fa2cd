#include "app/WindowSizing.h"

#include "map/WindowShape.h"

#include <utility>

namespace tovrel {

namespace {

WindowRect windowRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

QRect qtRect(const WindowRect& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

} // namespace

WindowSizing::WindowSizing(OuterFrame& frame, std::function<Projection()> projection,
                           std::function<void()> Form_Resize)
    : frame_(frame), projection_(std::move(projection)), Form_Resize_(std::move(Form_Resize)) {
    settles_.setSingleShot(true);
    connect(&settles_, &QTimer::timeout, this, &WindowSizing::settle);
}

void WindowSizing::start() {
    lastFrame_ = frame_.rect();
    started_ = true;
}

void WindowSizing::stop() {
    started_ = false;
    settles_.stop();
}

void WindowSizing::sizeChanged() {
    constexpr int settling = 15; // milliseconds: one new map for a frame, however fast the mouse
    if (frame_.requesting() || !started_) {
        lastFrame_ = frame_.rect();
    } else if (!settles_.isActive()) {
        settles_.start(settling);
    }
}

void WindowSizing::placeChanged() {
    if (frame_.hasWantedSize()) {
        lastFrame_ = frame_.rect();
    }
}

void WindowSizing::stateChanged() {
    if (started_) {
        stateChanged_ = true;
        settles_.start(0);
    }
}

void WindowSizing::settle() {
    frame_.learnMargins();
    const bool normal = frame_.isNormal();
    if (std::exchange(stateChanged_, false)) {
        if (normal && !frame_.hasWantedSize()) {
            frame_.requestAgain();
        }
        Form_Resize_();
        return;
    }
    if (normal && frame_.hasWantedSize()) {
        lastFrame_ = frame_.rect();
    }
    if (!normal || frame_.hasWantedSize()) {
        return;
    }
    if (frame_.isLateAnswer()) {
        constexpr int waiting = 50; // milliseconds
        settles_.start(waiting);
        return;
    }
    insisted_ = !applyRule();
    lastFrame_ = frame_.rect();
    Form_Resize_();
}

bool WindowSizing::applyRule() {
    // Window managers give a corrected size again: once when the user lets the edge go, but on and
    // on when they have reasons of their own, and then they have the last word.
    constexpr int mostCorrections = 4;
    constexpr qint64 dragPause = 400; // milliseconds
    const QRect proposed = frame_.rect();
    const bool again = corrected_ == proposed.size();
    const bool lately = correction_.isValid() && !correction_.hasExpired(dragPause);
    corrections_ = again && lately ? corrections_ + 1 : 1;
    if (corrections_ > mostCorrections) {
        return false;
    }
    // What moved shows against the window as it was when the drag began, before any correction: a
    // window manager keeps to that in the direction that is not dragged.
    const bool oneSideKept =
        (proposed.width() == dragStart_.width()) != (proposed.height() == dragStart_.height());
    const bool bothSidesOff =
        proposed.width() != lastFrame_.width() && proposed.height() != lastFrame_.height();
    if (!again && !lately && !(oneSideKept && bothSidesOff)) {
        dragStart_ = lastFrame_;
    }
    const WindowRect after = windowRect(proposed);
    const WindowRect wanted =
        SizingProc(after, draggedEdge(windowRect(dragStart_), after), projection_());
    frame_.request(qtRect(wanted));
    corrected_ = proposed.size();
    correction_.start();
    return true;
}

} // namespace tovrel
