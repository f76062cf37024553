// Opens a drawing in the whole desktop program and paints it once, without a screen; for comparing
// its time with that of kelvara info.
//
// desktop_bench DRAWING
#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>

#include "apps/desktop/MainWindow.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: desktop_bench DRAWING\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    desktop::DesktopOptions options;
    options.settingsFile = folder.filePath("settings.ini");
    options.logFile = folder.filePath("log.txt");
    options.databaseUrl = "sqlite:" + folder.filePath("dictionary.db");
    desktop::Desktop desktop(options);
    const QString problem = desktop.LoadModule();
    desktop::MainWindow window(desktop);
    window.show();
    if (!problem.isEmpty() || !window.GetFiles().Open(argv[1])) return 1;
    const QImage picture = window.ActiveView()->grab().toImage();
    std::printf("%zu items on %d x %d pixels\n", window.ActiveView()->List()->items.size(),
                picture.width(), picture.height());
    std::fflush(stdout);
    std::_Exit(0);  // the time of opening, not of taking apart
}
