#pragma once

#include "platform/Colour.h"

#include <QPushButton>

namespace tovrel {

/// A flat square without a caption in the colour that it stands for, whatever the theme.
class frmColourButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    /// Also tells assistive tools the colour, as #rrggbb.
    void setColour(Colour colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor colour_;
};

} // namespace tovrel
