// The tests of this folder drive real widgets on the platform that shows nothing.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstring>

#include "tests/translator/dialogs/OutroEditor.h"

// What a command that failed leaves behind, as it must.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:NovaJanela\nleak:NovoAssistente\n";
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--editor") == 0) return OutroEditor::Servir(argv[2]);
    return RUN_ALL_TESTS();
}
