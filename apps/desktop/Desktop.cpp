// Documents, commands and programs, and who is told of them.
#include "apps/desktop/Desktop.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "apps/desktop/FailureText.h"
#include "apps/desktop/LispWatch.h"
#include "apps/desktop/Texts.h"
#include "host/FailureLine.h"
#include "host/lisp/Interpreter.h"

namespace desktop {

namespace {

// Beside the program where it is installed, in lib/ beside bin/ where it is built.
QString DefaultModule() {
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + "/TQTradutor.so";
    return QFileInfo::exists(beside) ? beside : folder + "/../lib/TQTradutor.so";
}

class Busy {
  public:
    explicit Busy(int& count) : count(count) { ++count; }
    ~Busy() { --count; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    int& count;
};

}  // namespace

Desktop::Desktop(const DesktopOptions& options)
    : logFile(options.logFile.isEmpty() ? host::Log::DefaultFileName() : options.logFile),
      module(options.module.isEmpty() ? DefaultModule() : options.module),
      watch(std::make_unique<LispWatch>()),
      host(std::make_unique<host::Host>(HostOptionsOf(options))) {
    watch->onInterrupt = [this] {
        if (Active()) Active()->Lisp().Interpreter().Interrupt();
    };
}

Desktop::~Desktop() { host.reset(); }

host::HostOptions Desktop::HostOptionsOf(const DesktopOptions& options) {
    host::HostOptions result;
    result.settingsFile = options.settingsFile;
    result.logFile = logFile;
    result.databaseUrl = options.databaseUrl;
    result.onMissingDatabase = host::OnMissing::Create;
    result.mainWindow = &mainWindow;
    result.messageBoxes = &messageBoxes;
    result.colorPicker = &colorPicker;
    result.commandLine = [this](std::u16string_view text) { Print(text); };
    result.explain = [this](const std::exception_ptr& failure) {
        return FailureText(failure, Active());
    };
    result.choosePages = [this](host::Document& document, const std::vector<host::Page>& pages) {
        return ChoosePages(document, pages);
    };
    return result;
}

void Desktop::Print(std::u16string_view text) {
    if (print) print(text);
}

std::optional<ui::PageNames> Desktop::ChoosePages(host::Document& document,
                                                  const std::vector<host::Page>& pages) {
    const std::vector<host::Page> whole = host::WholePages(pages);
    const auto last = lastChoice.find(&document);
    auto chosen = ui::ChoosePages(Window(), whole,
                                  last == lastChoice.end() ? ui::NamesOf(whole) : last->second);
    if (chosen) lastChoice[&document] = *chosen;
    return chosen;
}

QString Desktop::LoadModule() {
    try {
        host->Modules().Load(QFileInfo(module).absoluteFilePath().toStdString());
        return {};
    } catch (const std::exception& error) {
        const QString reason = QString::fromUtf8(error.what());
        Log(reason);
        return Say("The translation commands are not available.") + "\n\n" + reason;
    }
}

host::Document& Desktop::Open(OdDbDatabasePtr drawing, const std::string& nativePath) {
    host::Document& document = host->Documents().Open(std::move(drawing), nativePath);
    document.Lisp().Interpreter().SetWatch([this] { watch->Look(); });
    Tell([&](DocumentListener& listener) { listener.Opened(document); });
    Tell([&](DocumentListener& listener) { listener.Activated(&document); });
    return document;
}

void Desktop::Activate(host::Document& document) {
    host->Documents().Activate(document);
    Tell([&](DocumentListener& listener) { listener.Activated(&document); });
}

void Desktop::Save(host::Document& document, const std::string& nativePath, bool force) {
    document.Save(nativePath, force);
    Tell([&](DocumentListener& listener) { listener.Saved(document); });
}

void Desktop::Close(host::Document& document) {
    Tell([&](DocumentListener& listener) { listener.Closing(document); });
    lastChoice.erase(&document);
    host->Documents().Close(document);
    Tell([this](DocumentListener& listener) { listener.Activated(Active()); });
}

bool Desktop::Run(const QString& command) {
    const OdString name(command.toStdU16String());
    const auto found = host->Commands().Find(name);
    if (found && found->IsUndoable() && !Active()) {
        Print(Say("Open a drawing first.").toStdU16String() + u"\n");
        return false;
    }
    const Busy working(busy);
    const LispWatch::Running running(*watch);
    const bool done = host->Runner().Run(name).done;
    TellChanged();
    return done;
}

void Desktop::Evaluate(const QString& source) {
    if (!Active()) return Print(Say("Open a drawing first.").toStdU16String() + u"\n");
    const Busy working(busy);
    const LispWatch::Running running(*watch);
    lisp::Interpreter& lisp = Active()->Lisp().Interpreter();
    std::u16string line;
    try {
        line = lisp.Print(lisp.Evaluate(source.toStdU16String()));
    } catch (...) {
        line = u"; " + host::FailureLine(std::current_exception());
    }
    if (!line.empty()) Print(line + u"\n");
    TellChanged();
}

// The titles of pages may be among the texts that came back.
void Desktop::Undo() {
    Active()->Undo();
    Active()->Pages().RefreshDescriptions(&Active()->Drawing());
    TellChanged();
}

void Desktop::Redo() {
    Active()->Redo();
    Active()->Pages().RefreshDescriptions(&Active()->Drawing());
    TellChanged();
}

void Desktop::SetLanguage(host::Document& document, int32_t key) {
    OdDbDatabase& drawing = document.Drawing();
    drawing.startUndoRecord(u"PROJECTLANGUAGE");
    std::exception_ptr failure;
    try {
        host->SetProjectLanguage(document, key);
    } catch (...) {
        failure = std::current_exception();
    }
    drawing.endUndoRecord();
    TellChanged();
    if (failure) std::rethrow_exception(failure);
}

void Desktop::TellChanged() {
    if (!Active()) return;
    Tell([this](DocumentListener& listener) { listener.Changed(*Active()); });
}

template <class Reaction>
void Desktop::Tell(const Reaction& reaction) {
    for (DocumentListener* listener : std::vector(listeners)) reaction(*listener);
}

}  // namespace desktop
