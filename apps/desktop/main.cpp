// kelvara-desktop: opens drawings, shows their pages, and runs the module's commands on them.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QTimer>
#include <cstdio>

#include "apps/desktop/Guard.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/RecoveryKeeper.h"
#include "apps/desktop/SettingsDialog.h"
#include "apps/desktop/Texts.h"

namespace {

// What a handler of an event raises ends that event and nothing else.
class Application : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        bool taken = false;
        desktop::Guarded(desktop::Say("Unexpected failure"),
                         [&] { taken = QApplication::notify(receiver, event); });
        return taken;
    }
};

struct Arguments {
    std::vector<std::string> drawings, lines;
    std::string settings, log, database, module;
};

void Register(CLI::App& app, Arguments& arguments) {
    app.set_version_flag("--version", std::string("kelvara-desktop ") + KELVARA_VERSION);
    app.add_option("DRAWING", arguments.drawings, "Drawings to open, ASCII or binary DXF");
    app.add_option("--settings", arguments.settings, "Another settings file than the user's");
    app.add_option("--log", arguments.log, "Another log file than the user's");
    app.add_option("--database", arguments.database,
                   "The dictionary, sqlite:FILE or postgresql://USER@HOST/NAME (default: that of "
                   "the settings)")
        ->type_name("URL");
    app.add_option("--run", arguments.lines,
                   "A command or LISP, as the command line takes it, once the drawings are open; "
                   "may be given more than once");
    app.add_option("--module", arguments.module, "Another module than the program's own");
}

desktop::DesktopOptions OptionsOf(const Arguments& arguments) {
    return {QString::fromStdString(arguments.settings), QString::fromStdString(arguments.log),
            QString::fromStdString(arguments.database), QString::fromStdString(arguments.module)};
}

int Work(Application& application, const Arguments& arguments) {
    desktop::Desktop desktop(OptionsOf(arguments));
    desktop::InstallTexts(desktop.Settings().LanguageIndex());
    const QString problem = desktop.LoadModule();
    desktop::MainWindow window(desktop);
    desktop::RecoveryKeeper recovery(
        desktop, {desktop::RecoveryKeeper::FolderFor(QString::fromStdString(arguments.settings))});
    desktop::AddSettingsEntry(window);
    window.show();
    QTimer::singleShot(0, &window, [&] {
        if (!problem.isEmpty()) desktop::TellFailure("Kelvara Circuit", problem);
        recovery.Offer(window);
        for (const std::string& drawing : arguments.drawings)
            window.GetFiles().Open(QString::fromStdString(drawing));
        for (const std::string& line : arguments.lines)
            window.Execute(QString::fromStdString(line));
    });
    return application.exec();
}

// Help needs no screen. What is wrong with the rest is told when Qt has taken its own options away.
bool ShowsHelp(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) {
        app.exit(asked);
        return true;
    } catch (const CLI::ParseError&) {
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Opens, shows and translates drawings of electrical projects.", "kelvara-desktop");
    Arguments arguments;
    Register(app, arguments);
    if (ShowsHelp(app, argc, argv)) return 0;
    Application application(argc, argv);
    application.setApplicationName("kelvara-desktop");
    application.setDesktopFileName("kelvara");
    try {
        app.parse(argc, argv);
        return Work(application, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelvara-desktop: %s\n", error.what());
        return 1;
    }
}
