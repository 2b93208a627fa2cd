#pragma once

#include <QDialog>
#include <QFont>
#include <QString>
#include <string_view>

class QCheckBox;
class QFrame;
class QKeyEvent;
class QLabel;
class QPushButton;
class QRadioButton;
class QWidget;

/// How the windows of the program put up their controls: by place in twips, with a name, in the
/// program's font.
namespace tovrel {

/// Left, top, width and height in twips, relative to the parent.
struct TwipRect {
    /// Offsets to the right and down, then the extent; place() wants that to be positive.
    float left = 0.0F;
    float top = 0.0F;
    float width = 0.0F;
    float height = 0.0F;
};

/// Arial, or the sans serif font that stands in for it.
QFont windowFont(int pixelSize = 11, bool bold = false);

/// Puts a control at its place, to the nearest pixel.
/// @return false, with the control left where it is, when width or height is not positive
bool place(QWidget& control, const TwipRect& at);

/// Makes a dialog of a fixed client size in twips that has a close box and nothing else in its
/// frame, in the program's font.
void setUpDialog(QDialog& dialog, const QString& name, const QString& title, float width,
                 float height);

/// Names a control and puts it at its place.
void setUpControl(QWidget& control, const QString& name, const TwipRect& at);

/// `caption` without a mnemonic: each "&" stands for itself.
QString plainCaption(std::string_view caption);

/// Name of a member of a control array, for example "chkBand(0)".
QString memberName(std::string_view array, int member);

/// Controls with a caption; "&" marks a mnemonic in that of a button alone.
QLabel* addLabel(QWidget& parent, const QString& name, const QString& caption, const TwipRect& at);
QCheckBox* addCheckBox(QWidget& parent, const QString& name, const QString& caption,
                       const TwipRect& at);
QRadioButton* addOptionButton(QWidget& parent, const QString& name, const QString& caption,
                              const TwipRect& at);
QPushButton* addButton(QWidget& parent, const QString& name, const QString& caption,
                       const TwipRect& at);

/// A horizontal line from `left` to `right` at `top`, in twips.
QFrame* addLine(QWidget& parent, const QString& name, float left, float right, float top);

/// A dialog in which Return presses the button that has the focus and does nothing elsewhere: it is
/// not taken for an Apply that the user did not choose. It opens with the focus on its first field.
class frmDialog : public QDialog {
public:
    using QDialog::QDialog;

    /// Shows the dialog, or brings the one that is open to the front as it is.
    void bringUp();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

} // namespace tovrel
