#include "platform/OffscreenFonts.h"
#include "platform/frmControls.h"
#include "platform/frmStyle.h"

#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    }
    tovrel::findFontsOffscreen();
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    // Sizes and texts have to be the program's, and the same on every machine.
    QApplication::setStyle(new tovrel::frmStyle);
    QApplication::setFont(tovrel::windowFont());
    QLocale::setDefault(QLocale::c());
    return RUN_ALL_TESTS();
}
