// Fonts need an application, which needs no screen.
#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
