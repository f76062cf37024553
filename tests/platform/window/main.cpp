// The tests of windows need an application; without a screen the offscreen platform serves.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argumentCount, char** arguments) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
