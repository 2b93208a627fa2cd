#include "app/QtPrompt.h"

#include "platform/ByteText.h"

#include <QMessageBox>

namespace tovrel {

namespace {

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::None:
        break;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

/// Message texts end their lines with CR LF; a box wants LF.
QString boxText(const std::string& text) {
    return displayText(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

void QtPrompt::tell(const std::string& text, MessageIcon icon) {
    QMessageBox box(boxIcon(icon), QStringLiteral("Tovrel"), boxText(text), QMessageBox::Ok,
                    parent_);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtPrompt::ask(const Question& question) {
    const bool yesNo = question.buttons == Question::Buttons::YesNo;
    const QMessageBox::StandardButton first = yesNo ? QMessageBox::Yes : QMessageBox::Ok;
    const QMessageBox::StandardButton second = yesNo ? QMessageBox::No : QMessageBox::Cancel;
    QMessageBox box(boxIcon(question.icon), boxText(question.title), boxText(question.text),
                    first | second, parent_);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(question.defaultYes ? first : second);
    return box.exec() == first;
}

} // namespace tovrel
