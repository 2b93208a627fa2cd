#include "run/MapFrame.h"

#include <utility>

namespace tovrel {

MapFrame::MapFrame(FramedWindow& window, Shape shape) : window_(window), shape_(std::move(shape)) {
    settles_.setSingleShot(true);
    settles_.setInterval(250); // milliseconds, in which most have let the edge go
    settles_.callOnTimeout(this, [this] { settle(); });
}

QSize MapFrame::size() const {
    return window_.isFree() ? window_.outer().size() : wanted_.value_or(free_.size());
}

void MapFrame::ask(QSize outer) {
    if (!window_.isFree()) {
        wanted_ = outer;
        return;
    }
    window_.request({window_.outer().topLeft(), outer});
    free_ = window_.outer();
}

void MapFrame::watch(bool on) {
    watching_ = on;
    free_ = on ? window_.outer() : free_;
}

void MapFrame::changed() {
    if (!settles_.isActive() && window_.outer().size() != free_.size())
        asked_ = 0;
    settles_.start();
}

void MapFrame::settle(bool edgeIsFree) {
    // While an edge is held, window managers put the size back that the pointer tells; others have
    // sizes of their own and answer each wish with a new one.
    constexpr int mostAsked = 6;
    if (!window_.isFree() || !watching_)
        return;
    settles_.stop();
    if (const std::optional<QSize> wanted = std::exchange(wanted_, std::nullopt))
        ask(*wanted);
    const QRect now = window_.outer();
    const QRect shaped = shape_(free_, now);
    if (shaped == now || asked_ >= mostAsked + (edgeIsFree ? 1 : 0)) {
        free_ = now;
        return;
    }
    ++asked_;
    settles_.start();
    window_.request(shaped);
}

} // namespace tovrel
