#include "app/OuterFrame.h"

#include <QWindow>
#include <algorithm>

namespace tovrel {

namespace {

constexpr qint64 answersTake = 400; // milliseconds at the most

} // namespace

void OuterFrame::learnMargins() {
    const QWindow* const window = window_.windowHandle();
    if (window != nullptr && !window->frameMargins().isNull()) {
        margins_ = window->frameMargins();
    }
}

QSize OuterFrame::size() const { return window_.size().grownBy(margins_); }

QRect OuterFrame::rect() const { return window_.geometry().marginsAdded(margins_); }

bool OuterFrame::isNormal() const {
    return !window_.isMinimized() && !window_.isMaximized() && !window_.isFullScreen();
}

void OuterFrame::note(QSize inner) {
    std::erase_if(requests_, [](const Request& old) { return old.forgotten.hasExpired(); });
    requests_.push_back({inner, QDeadlineTimer(answersTake)});
    wanted_ = inner;
}

void OuterFrame::request(QSize outer) {
    const QSize inner = outer.shrunkBy(margins_).expandedTo({1, 1});
    note(inner);
    requesting_ = true;
    window_.resize(inner);
    requesting_ = false;
}

void OuterFrame::request(const QRect& outer) {
    const QRect inner = outer.marginsRemoved(margins_);
    note(inner.size());
    requesting_ = true;
    window_.setGeometry(inner);
    requesting_ = false;
}

void OuterFrame::requestAgain() { request(wanted_.grownBy(margins_)); }

bool OuterFrame::isLateAnswer() const {
    return std::any_of(requests_.begin(), requests_.end(), [this](const Request& request) {
        return request.size == window_.size() && !request.forgotten.hasExpired();
    });
}

} // namespace tovrel
