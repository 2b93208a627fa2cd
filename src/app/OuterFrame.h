#pragma once

#include <QDeadlineTimer>
#include <QMargins>
#include <QRect>
#include <QSize>
#include <QWidget>
#include <vector>

namespace tovrel {

/// A window by its outer rectangle, frame included, in pixels.
///
/// A window system answers late: it tells of the frame some time after the window was shown, and of
/// each size that was asked for after others may have been asked for. So the last wish is kept, and
/// a size that comes back can be told from one that the user or the window system chose.
class OuterFrame {
public:
    /// @param window has to outlive this object
    explicit OuterFrame(QWidget& window) : window_(window) {}

    /// Takes over the widths of the frame, if the window system has told them by now.
    void learnMargins();
    const QMargins& margins() const { return margins_; }

    QSize size() const;
    QRect rect() const;

    /// Whether the window is neither minimized nor maximized.
    bool isNormal() const;

    /// Asks for a size, or a place and a size.
    void request(QSize outer);
    void request(const QRect& outer);

    /// Asks once more for the size that was asked for last.
    void requestAgain();

    /// Whether a request runs: what the window is told now is its own wish.
    bool requesting() const { return requesting_; }

    /// Whether the window has the size that was asked for last.
    bool hasWantedSize() const { return window_.size() == wanted_; }

    /// Whether the size is one of those asked for in the last moments: then the answers are still
    /// under way.
    bool isLateAnswer() const;

private:
    struct Request {
        QSize size;
        QDeadlineTimer forgotten;
    };

    void note(QSize inner);

    QWidget& window_;
    QMargins margins_;
    QSize wanted_; ///< client size
    std::vector<Request> requests_;
    bool requesting_ = false;
};

} // namespace tovrel
