// The desktop tests drive real windows, by default on the platform that shows nothing.
#include <gtest/gtest.h>

#include <QApplication>

// What a command of the module that failed leaves behind, as it must.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:NovaJanela\nleak:NovoAssistente\n";
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
