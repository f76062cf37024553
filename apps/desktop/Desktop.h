// The program behind its window: the host with its services on the screen, the module, and the
// operations that change documents.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "apps/ui/ColorPicker.h"
#include "apps/ui/MainWindow.h"
#include "apps/ui/MessageBoxes.h"
#include "apps/ui/PageChooser.h"
#include "host/Host.h"

namespace desktop {

class LispWatch;

struct DesktopOptions {
    QString settingsFile;  // empty: the user's
    QString logFile;       // empty: the user's
    QString databaseUrl;   // empty: that of the settings
    QString module;        // empty: the one that belongs to the program
};

// Is told what happens to documents. Every reaction does nothing until it is overridden.
class DocumentListener {
  public:
    virtual void Opened(host::Document&) {}
    virtual void Changed(host::Document&) {}  // or may have: a command, undo or redo ran
    virtual void Saved(host::Document&) {}
    virtual void Closing(host::Document&) {}    // still open; what is not saved will be lost
    virtual void Activated(host::Document*) {}  // null: none is left

  protected:
    ~DocumentListener() = default;
};

// One at a time, beside a QApplication. Raises host::Error when the settings cannot be used.
class Desktop {
  public:
    explicit Desktop(const DesktopOptions& options);
    ~Desktop();

    host::Host& Host() { return *host; }
    host::Settings& Settings() { return host->GetSettings(); }
    host::Document* Active() { return host->Documents().Active(); }
    const QString& LogFile() const { return logFile; }

    // The main window as owner of the module's dialogs; not owned.
    void SetWindow(QWidget* window) { mainWindow.Set(window); }
    QWidget* Window() { return mainWindow.GetMainWidget(); }
    void SetPrinter(host::TextSink sink) { print = std::move(sink); }
    void Print(std::u16string_view text);
    void Log(const QString& line) { host->GetLog().Write(line); }
    LispWatch& Watch() { return *watch; }

    void Add(DocumentListener& listener) { listeners.push_back(&listener); }  // not owned
    void Remove(DocumentListener& listener) { std::erase(listeners, &listener); }

    // Loads and starts the module. Why it could not be, for the user; empty when it runs.
    QString LoadModule();

    host::Document& Open(OdDbDatabasePtr drawing, const std::string& nativePath);
    void Activate(host::Document& document);
    // Raises OdError with the reason; eFileChanged when only force would overwrite the file.
    void Save(host::Document& document, const std::string& nativePath, bool force);
    void Close(host::Document& document);  // nothing is saved

    // Whether a command or a LISP program is at work: documents must not be opened or closed then.
    bool IsBusy() const { return busy > 0; }

    // A command of the host by its name. Failures have been reported when it returns false.
    bool Run(const QString& command);
    void Evaluate(const QString& lisp);  // prints its value, or what it failed with
    void Undo();
    void Redo();
    // Can be undone. Raises OdError.
    void SetLanguage(host::Document& document, int32_t key);

  private:
    host::HostOptions HostOptionsOf(const DesktopOptions& options);
    std::optional<ui::PageNames> ChoosePages(host::Document& document,
                                             const std::vector<host::Page>& pages);
    void TellChanged();
    template <class Reaction>
    void Tell(const Reaction& reaction);

    QString logFile, module;
    ui::MainWindow mainWindow;
    ui::MessageBoxes messageBoxes;
    ui::ColorPicker colorPicker;
    host::TextSink print;
    std::map<const host::Document*, ui::PageNames> lastChoice;
    std::vector<DocumentListener*> listeners;
    int busy = 0;
    std::unique_ptr<LispWatch> watch;
    std::unique_ptr<host::Host> host;  // last: its end uses all of the others
};

}  // namespace desktop
