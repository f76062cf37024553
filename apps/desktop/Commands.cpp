// The main window's commands: menu, tool bar, and what the command line understands.
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "apps/desktop/Guard.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/Texts.h"
#include "host/lisp/Interpreter.h"

namespace desktop {

namespace {

constexpr const char* kOnToolBar[] = {
    "OPEN",  "SAVE", "",       "UNDO", "REDO", "", "KVTRANSLATEPROJ", "KVTRANSLATEASSIST",
    "BATCH", "",     "ZOOMFIT"};

bool IsLisp(const QString& line) { return QStringLiteral("(!'\"").contains(line.front()); }

std::u16string LispCommand(const QString& name) { return u"C:" + name.toUpper().toStdU16String(); }

}  // namespace

QMenu& MainWindow::MenuOf(const char* name) {
    const QString title = Say(name);
    for (QAction* action : menuBar()->actions()) {
        if (action->text() == title) return *action->menu();
    }
    return *menuBar()->addMenu(title);
}

void MainWindow::MakeMenu() {
    for (const MenuEntry& row : MenuTable()) AddFromTable(row);
    QMenu* recent = ActionOf("RECENT")->menu();
    connect(&MenuOf("&File"), &QMenu::aboutToShow, this,
            [this, recent] { files.FillRecent(*recent); });
    files.FillRecent(*recent);
}

void MainWindow::AddFromTable(const MenuEntry& row) {
    QMenu& menu = MenuOf(row.menu);
    const QString command = row.command;
    if (row.text == std::string_view("-")) {
        menu.addSeparator();
    } else if (command == "RECENT") {
        entries.push_back({menu.addMenu(Say(row.text))->menuAction(), command, row.needs});
    } else {
        const auto run = row.run;
        QAction* action = AddEntry(row.menu, row.command, row.text, [this, run, command] {
            if (run)
                run(*this);
            else
                RunCommand(command);
        });
        action->setShortcut(QKeySequence(row.shortcut));
        entries.back().needs = row.needs;
    }
}

QAction* MainWindow::AddEntry(const char* menu, const char* command, const char* text,
                              std::function<void()> run) {
    QAction* action = MenuOf(menu).addAction(Say(text));
    action->setObjectName(command);
    entries.push_back({action, command, Needs::Nothing});
    connect(action, &QAction::triggered, this,
            [run = std::move(run), title = Plain(Say(text))] { Guarded(title, run); });
    return action;
}

void MainWindow::MakeToolBar() {
    QToolBar* bar = addToolBar(Say("Tools"));
    bar->setObjectName("tools");
    bar->setMovable(false);
    for (const char* command : kOnToolBar) {
        if (QAction* action = ActionOf(command))
            bar->addAction(action);
        else
            bar->addSeparator();
    }
}

QAction* MainWindow::ActionOf(const QString& command) const {
    for (const Entry& entry : entries) {
        if (entry.command.compare(command, Qt::CaseInsensitive) == 0) return entry.action;
    }
    return nullptr;
}

bool MainWindow::IsPossible(const Entry& entry) const {
    host::Document* document = desktop.Active();
    switch (entry.needs) {
        case Needs::Drawing:
            return document;
        case Needs::Undo:
            return document && document->Drawing().hasUndo();
        case Needs::Redo:
            return document && document->Drawing().hasRedo();
        case Needs::Command: {
            const auto command =
                desktop.Host().Commands().Find(OdString(entry.command.toStdU16String()));
            return command && (document || !command->IsUndoable());
        }
        default:
            return true;
    }
}

void MainWindow::UpdateActions() {
    for (const Entry& entry : entries) entry.action->setEnabled(IsPossible(entry));
    host::Document* document = desktop.Active();
    const auto name = [&](const char* action, const char* text, const OdString& command) {
        const QString title = TitleOf(QString::fromStdU16String(command.text()));
        ActionOf(action)->setText(title.isEmpty() ? Say(text) : Say(text) + ": " + title);
        ActionOf(action)->setIconText(Plain(Say(text)));
    };
    name("UNDO", "&Undo", document ? document->Drawing().undoName() : OdString());
    name("REDO", "&Redo", document ? document->Drawing().redoName() : OdString());
}

void MainWindow::RunCommand(const QString& command) {
    desktop.Print(command.toStdU16String() + u"\n");
    const bool done = desktop.Run(command);
    if (!done) desktop.Print((Say("%1: not done").arg(command) + "\n").toStdU16String());
}

void MainWindow::Execute(const QString& line) {
    if (IsLisp(line)) return desktop.Evaluate(line.startsWith('!') ? line.mid(1) : line);
    if (QAction* action = ActionOf(line)) {
        if (action->isEnabled() && !action->menu()) return action->trigger();
        return desktop.Print((Say("%1: not possible now").arg(line) + "\n").toStdU16String());
    }
    if (desktop.Host().Commands().Find(OdString(line.toStdU16String())))
        return RunCommand(line.toUpper());
    host::Document* document = desktop.Active();
    if (document && !document->Lisp().Interpreter().Get(LispCommand(line)).IsNil())
        return desktop.Evaluate("(" + QString::fromStdU16String(LispCommand(line)) + ")");
    desktop.Print((Say("%1: unknown command").arg(line) + "\n").toStdU16String());
}

QStringList MainWindow::CommandWords() const {
    QStringList words;
    for (const Entry& entry : entries) words << entry.command;
    for (const auto& command : desktop.Host().Commands().Commands())
        words << QString::fromStdU16String(command->GetName().text());
    if (host::Document* document = desktop.Active()) {
        for (const std::u16string& name : document->Lisp().Interpreter().Names())
            words << QString::fromStdU16String(name).toLower();
    }
    words.sort(Qt::CaseInsensitive);
    words.removeDuplicates();
    return words;
}

}  // namespace desktop
