#include "platform/OffscreenFonts.h"

#include <QByteArray>
#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Text is drawn through Qt's fonts, which need a platform, but no test needs a screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    }
    tovrel::findFontsOffscreen();
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
