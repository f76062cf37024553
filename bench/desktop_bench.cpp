// Opens a drawing in the desktop program, as it runs, and paints all of it once, without a screen.
// The clock goes from the choice of the file to the picture.
//
// desktop_bench DRAWING
#include <QApplication>
#include <QElapsedTimer>
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
    QElapsedTimer clock;
    clock.start();
    if (!problem.isEmpty() || !window.GetFiles().Open(argv[1])) return 1;
    const QImage picture = window.ActiveView()->grab().toImage();
    std::printf("open %lld ms: %zu items on %d x %d pixels\n", clock.elapsed(),
                window.ActiveView()->List()->ItemCount(), picture.width(), picture.height());
    return 0;
}
