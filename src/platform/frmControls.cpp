#include "platform/frmControls.h"

#include "platform/ByteText.h"
#include "platform/Twips.h"

#include <QCheckBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace tovrel {

namespace {

constexpr float lineHeight = 30.0F;

} // namespace

QFont windowFont(int pixelSize, bool bold) {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    return font;
}

bool place(QWidget& control, const TwipRect& at) {
    if (!(at.width > 0.0F && at.height > 0.0F))
        return false;
    control.setGeometry(pixelsFromTwips(at.left), pixelsFromTwips(at.top),
                        pixelsFromTwips(at.width), pixelsFromTwips(at.height));
    return true;
}

void setUpDialog(QDialog& dialog, const QString& name, const QString& title, float width,
                 float height) {
    dialog.setObjectName(name);
    dialog.setWindowTitle(title);
    dialog.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    dialog.setFont(windowFont());
    dialog.setFixedSize(pixelsFromTwips(width), pixelsFromTwips(height));
}

void setUpControl(QWidget& control, const QString& name, const TwipRect& at) {
    control.setObjectName(name);
    place(control, at);
}

QString plainCaption(std::string_view caption) {
    return displayText(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString memberName(std::string_view array, int member) {
    return QStringLiteral("%1(%2)").arg(displayText(array)).arg(member);
}

QLabel* addLabel(QWidget& parent, const QString& name, const QString& caption, const TwipRect& at) {
    auto* label = new QLabel(&parent);
    setUpControl(*label, name, at);
    // File names and calls stand in labels too: none of them is markup.
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setText(caption);
    return label;
}

QCheckBox* addCheckBox(QWidget& parent, const QString& name, const QString& caption,
                       const TwipRect& at) {
    auto* box = new QCheckBox(caption, &parent);
    setUpControl(*box, name, at);
    return box;
}

QRadioButton* addOptionButton(QWidget& parent, const QString& name, const QString& caption,
                              const TwipRect& at) {
    auto* button = new QRadioButton(caption, &parent);
    setUpControl(*button, name, at);
    // Tab comes to the button of a frame that is on; Qt sees to that only from the first focus on.
    button->setFocusPolicy(Qt::ClickFocus);
    QObject::connect(button, &QRadioButton::toggled, button, [button](bool on) {
        button->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
    });
    return button;
}

QPushButton* addButton(QWidget& parent, const QString& name, const QString& caption,
                       const TwipRect& at) {
    auto* button = new QPushButton(caption, &parent);
    setUpControl(*button, name, at);
    button->setAutoDefault(false);
    return button;
}

QFrame* addLine(QWidget& parent, const QString& name, float left, float right, float top) {
    auto* line = new QFrame(&parent);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    setUpControl(*line, name, {left, top, right - left, lineHeight});
    return line;
}

void frmDialog::bringUp() {
    show();
    raise();
    activateWindow();
}

void frmDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    QWidget* first = nextInFocusChain();
    while (first != this && !(first->focusPolicy() & Qt::TabFocus && first->isVisibleTo(this)))
        first = first->nextInFocusChain();
    first->setFocus();
}

void frmDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QDialog::keyPressEvent(event);
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
}

} // namespace tovrel
