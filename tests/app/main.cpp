#include <QApplication>
#include <QLocale>
#include <QStyleFactory>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    // Sizes and texts have to be the same on every machine.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QLocale::setDefault(QLocale::c());
    return RUN_ALL_TESTS();
}
