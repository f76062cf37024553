// The main window: documents in tabs, the menu, the command line, the status line.
#pragma once

#include <QMainWindow>
#include <vector>

#include "apps/desktop/CommandLine.h"
#include "apps/desktop/Desktop.h"
#include "apps/desktop/DocumentPane.h"
#include "apps/desktop/Files.h"
#include "apps/desktop/LanguageBox.h"
#include "apps/desktop/Menus.h"

class QDockWidget;
class QLabel;
class QTabWidget;

namespace desktop {

// The desktop must outlive it.
class MainWindow : public QMainWindow, public DocumentListener {
  public:
    explicit MainWindow(Desktop& desktop);
    ~MainWindow() override;

    Desktop& GetDesktop() { return desktop; }
    Files& GetFiles() { return files; }
    LanguageBox& GetLanguageBox() { return *language; }
    CommandLine& GetCommandLine() { return *commandLine; }
    DocumentPane* PaneOf(const host::Document* document) const;  // null for none
    ui::DrawingView* ActiveView() const;

    // A command of the menu, of the host or of a LISP program, or LISP itself.
    void Execute(const QString& line);
    // By the name that the command line has for it; null for none. For parts of the program that
    // change or replace an entry.
    QAction* ActionOf(const QString& command) const;
    // An entry of a part of its own, at the end of a menu of the table.
    QAction* AddEntry(const char* menu, const char* command, const char* text,
                      std::function<void()> run);

    void FocusCommandLine();
    void TranslateInBatch();
    void ShowLog();
    void ShowAbout();

    void Opened(host::Document& document) override;
    void Changed(host::Document& document) override;
    void Saved(host::Document& document) override;
    void Closing(host::Document& document) override;
    void Activated(host::Document* document) override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    struct Entry {
        QAction* action;
        QString command;
        Needs needs;
    };

    void TellFindings(host::Document& document);
    void MakeTabs();
    void MakeCommandLine();
    void MakeMenu();
    void MakeToolBar();
    QMenu& MenuOf(const char* name);
    void AddFromTable(const MenuEntry& row);
    void RunCommand(const QString& command);
    bool IsPossible(const Entry& entry) const;
    void UpdateActions();
    void UpdateTitles();
    QStringList CommandWords() const;

    Desktop& desktop;
    Files files;
    QTabWidget* tabs;
    CommandLine* commandLine;
    QDockWidget* commandDock;
    LanguageBox* language;
    QLabel* note;
    std::vector<Entry> entries;
    std::shared_ptr<const painter::DisplayList> nextList;  // of the document that is being opened
};

}  // namespace desktop
