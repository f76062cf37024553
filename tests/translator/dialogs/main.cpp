// The tests of this folder drive real widgets on the platform that shows nothing.
#include <gtest/gtest.h>

#include <QApplication>

// What a command that failed leaves behind, as it must.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:NovaJanela\nleak:NovoAssistente\n";
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
