#include "app/MapFrame.h"

#include "map/WindowShape.h"

#include <utility>

namespace tovrel {

static WindowRect edgesOf(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

MapFrame::MapFrame(FramedWindow& window, std::function<Projection()> projection)
    : window_(window), projection_(std::move(projection)) {
    constexpr int pause = 250; // milliseconds, in which most have let the edge go
    settles_.setSingleShot(true);
    settles_.setInterval(pause);
    settles_.callOnTimeout(this, [this] { settle(); });
}

QSize MapFrame::size() const {
    return window_.isFree() ? window_.outer().size() : wanted_.value_or(free_.size());
}

void MapFrame::ask(QSize outer) {
    wanted_ = outer;
    if (window_.isFree()) {
        wanted_.reset();
        window_.request({window_.outer().topLeft(), outer});
        free_ = window_.outer();
    }
}

void MapFrame::start() {
    free_ = window_.outer();
    started_ = true;
}

void MapFrame::stop() {
    settles_.stop();
    started_ = false;
}

void MapFrame::changed() {
    if (started_)
        settles_.start();
}

void MapFrame::settle(bool edgeIsFree) {
    // While an edge is held, window managers put the size back that the pointer tells; others have
    // sizes of their own and answer each wish with a new one.
    constexpr int mostAsked = 3;
    constexpr int mostAskedInARow = 6;
    if (!window_.isFree() || !started_)
        return;
    settles_.stop();
    if (const std::optional<QSize> wanted = std::exchange(wanted_, std::nullopt))
        ask(*wanted);
    const QRect now = window_.outer();
    const WindowRect to =
        shapedWindow(edgesOf(free_), edgesOf(now), projection_(), window_.chrome());
    const QRect shape(to.left, to.top, to.right - to.left, to.bottom - to.top);
    if (now.size() != std::exchange(proposed_, now.size()))
        asked_ = 0;
    if (shape == now || asked_ >= mostAsked + (edgeIsFree ? 1 : 0) ||
        askedInARow_ == mostAskedInARow) {
        free_ = now;
        askedInARow_ = shape == now ? 0 : askedInARow_;
        return;
    }
    ++asked_;
    ++askedInARow_;
    window_.request(shape);
    settles_.start();
}

} // namespace tovrel
