#pragma once

#include <QMargins>
#include <QRect>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace tovrel {

/// The progress window of all long passes. It lies over the bottom of the main window and never
/// takes the focus from it.
class frmGCMapCalculations : public QWidget {
    Q_OBJECT

public:
    explicit frmGCMapCalculations(QWidget* parent = nullptr);

    /// Opens the window with an empty bar, or takes over the one that stands.
    /// @param caption title of the window
    /// @param status line over the bar
    /// @param maximum value of a full bar
    /// @param mainWindowFrame outer rectangle of the main window, on the screen
    void begin(const QString& caption, const QString& status, double maximum,
               const QRect& mainWindowFrame);
    void showStatus(const QString& status);

    /// Moves the bar, to the nearest whole number.
    void showProgress(double value);

protected:
    void moveEvent(QMoveEvent* event) override;

private:
    QMargins frame() const;
    void layOut();
    void fitFrame();

    QLabel* Label1_ = nullptr;
    QProgressBar* ProgressBar1_;
    QRect mainWindowFrame_;
    QMargins laidOutFrame_;
};

} // namespace tovrel
