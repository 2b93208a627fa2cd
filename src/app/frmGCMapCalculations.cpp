#include "app/frmGCMapCalculations.h"

#include "platform/Numbers.h"
#include "platform/Twips.h"
#include "platform/frmControls.h"

#include <QLabel>
#include <QProgressBar>
#include <algorithm>

namespace tovrel {

namespace {

constexpr float innerWidth = 3600.0F;
constexpr float innerHeight = 840.0F;
constexpr TwipRect labelPlace = {60, 90, 3480, 285};
constexpr TwipRect barPlace = {60, 435, 3480, 285};

QMargins frameOf(const QWidget& window) {
    const QRect outer = window.frameGeometry();
    const QRect inner = window.geometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

} // namespace

frmGCMapCalculations::frmGCMapCalculations(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint | Qt::WindowDoesNotAcceptFocus),
      ProgressBar1_(new QProgressBar(this)) {
    Label1_ = addLabel(*this, QStringLiteral("Label1"), QString(), labelPlace);
    setObjectName(QStringLiteral("frmGCMapCalculations"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFont(windowFont());
    setFixedSize(pixelsFromTwips(innerWidth), pixelsFromTwips(innerHeight));
    Label1_->setFont(windowFont(12));
    setUpControl(*ProgressBar1_, QStringLiteral("ProgressBar1"), barPlace);
    ProgressBar1_->setAccessibleName(QStringLiteral("Progress"));
}

void frmGCMapCalculations::begin(const QString& caption, const QString& status, double maximum,
                                 const QRect& mainWindowFrame) {
    mainWindowFrame_ = mainWindowFrame;
    setWindowTitle(caption);
    Label1_->setText(status);
    // A range of nothing would make the bar run to and fro.
    ProgressBar1_->setRange(0, std::max(1, roundToInt(maximum)));
    ProgressBar1_->setValue(0);
    layOut();
    show();
    fitFrame();
}

void frmGCMapCalculations::showStatus(const QString& status) { Label1_->setText(status); }

void frmGCMapCalculations::showProgress(double value) {
    ProgressBar1_->setValue(std::clamp(roundToInt(value), 0, ProgressBar1_->maximum()));
}

QMargins frmGCMapCalculations::frame() const {
    const QMargins own = frameOf(*this);
    // Before the window was ever on the screen, the main window's frame is the best guess.
    return own.isNull() && parentWidget() ? frameOf(*parentWidget()->window()) : own;
}

void frmGCMapCalculations::layOut() {
    laidOutFrame_ = frame();
    const QRect inner = mainWindowFrame_.marginsRemoved(laidOutFrame_);
    const int height = pixelsFromTwips(innerHeight);
    setFixedSize(std::max(1, inner.width()), height);
    move(mainWindowFrame_.left(),
         mainWindowFrame_.bottom() + 1 - height - laidOutFrame_.top() - laidOutFrame_.bottom());

    const float width = twipsFromPixels(mainWindowFrame_.width());
    const float barWidth = 0.95F * width;
    const float left = (width - barWidth) / 2.5F;
    place(*Label1_, {left, labelPlace.top, barWidth, labelPlace.height});
    place(*ProgressBar1_, {left, barPlace.top, barWidth, barPlace.height});
}

void frmGCMapCalculations::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    fitFrame();
}

void frmGCMapCalculations::fitFrame() {
    // The window system may have put a frame round the window that differs from the guess.
    if (isVisible() && frame() != laidOutFrame_)
        layOut();
}

} // namespace tovrel
