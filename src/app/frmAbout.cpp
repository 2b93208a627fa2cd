#include "app/frmAbout.h"

#include "platform/SystemInfo.h"

#include <QApplication>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>

namespace tovrel {

namespace {

constexpr int iconSize = 32;

} // namespace

frmAbout::frmAbout(UserPrompt& prompt, const QString& version, const QString& folder,
                   QWidget* parent)
    : frmDialog(parent), prompt_(prompt) {
    setUpDialog(*this, QStringLiteral("frmAbout"), QStringLiteral("About Tovrel"), 3480, 3135);
    // The back is told, light in a dark theme as well, so what is written on it is black.
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(0xE0, 0xE0, 0xE0));
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);

    auto* title = addLabel(*this, QStringLiteral("lblTitle"), QStringLiteral("Tovrel"),
                           {360, 240, 3015, 495});
    title->setFont(windowFont(19, true));
    title->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto* picIcon = addLabel(*this, QStringLiteral("picIcon"), QString(), {240, 240, 540, 540});
    picIcon->setPixmap(QApplication::windowIcon().pixmap(iconSize, iconSize));
    addLabel(*this, QStringLiteral("lblVersion"), QStringLiteral("Version: ") + version,
             {1320, 720, 1275, 225});
    auto* description = addLabel(
        *this, QStringLiteral("lblDescription"),
        QStringLiteral("Maps the contacts of an ADIF log. By the Tovrel authors; free software, "
                       "MIT License.\n\nSettings, maps, saved pictures:"),
        {360, 1200, 2955, 1050});
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignLeft | Qt::AlignBottom);

    auto* line = addLine(*this, QStringLiteral("Line1"), 120, 3360, 2520);
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    QPalette grey = line->palette();
    grey.setColor(QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    line->setPalette(grey);

    auto* ok =
        addButton(*this, QStringLiteral("cmdOK"), QStringLiteral("OK"), {2040, 2640, 1260, 345});
    ok->setDefault(true);
    auto* info = addButton(*this, QStringLiteral("cmdSysInfo"), QStringLiteral("&System Info..."),
                           {240, 2640, 1245, 345});
    info->setAutoDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::close);
    connect(info, &QPushButton::clicked, this, [this] {
        if (!StartSysInfo()) {
            prompt_.tell("System Information Is Unavailable At This Time");
            activateWindow(); // a message gives the focus back to the main window
        }
    });
    setTabOrder(ok, info);

    // A box, so that a long path can be moved to and fro in it, and copied whole.
    auto* folderBox = new QLineEdit(folder, this);
    setUpControl(*folderBox, QStringLiteral("txtFolder"), {360, 2250, 3000, 240});
    folderBox->setAccessibleName(QStringLiteral("Folder of settings, maps and saved pictures"));
    folderBox->setToolTip(folder);
    folderBox->setReadOnly(true);
    folderBox->setFrame(false);
    folderBox->setTextMargins(-2, 0, 0, 0);
    folderBox->setCursorPosition(0);
    folderBox->setStyleSheet(QStringLiteral("background: transparent; color: black"));
}

} // namespace tovrel
