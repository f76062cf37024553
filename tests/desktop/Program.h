// The desktop program as a user has it: its window, its module, a dictionary and drawings in a
// folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "apps/desktop/MainWindow.h"
#include "tests/translator/dialogs/Usuario.h"

// With the example's dictionary.
class Program {
  public:
    // module: a file name below the folder of libraries; null for the program's own. The first
    // interface language of a process stays the module's: catalogues are read once.
    explicit Program(const char* module = nullptr, int language = 0);
    ~Program();

    QString File(const QString& name) const { return folder.filePath(name); }
    QString Example(const char* name);  // a copy of its own; the path
    QString LargeDrawing() const;       // one that takes a while; the path
    static QByteArray Read(const QString& path);

    host::Document& Active() { return *desktop.Active(); }
    std::string Bytes() { return Active().Drawing().toBytes(); }  // what a save would write
    desktop::DocumentPane& Pane() { return *window.PaneOf(desktop.Active()); }
    QString Printed() { return window.GetCommandLine().Printed(); }

    void Activate();
    void Press(int key, Qt::KeyboardModifiers modifiers = {});  // in the window
    void Enter(const QString& line);                            // in the command line
    void ClickPage(const char* name);                           // in the list beside the view

    // Output of a program; its status must be 0. kelvara gets the program's dictionary.
    std::string Kelvara(QStringList arguments);
    std::string Python(const QString& tool, QStringList arguments);

    QTemporaryDir folder;
    desktop::Desktop desktop;
    QString problem;  // with the module
    desktop::MainWindow window;
};

// Steps of a user before a window of the toolkit.
Usuario::AtoQt ClickBox(int button);  // QMessageBox::StandardButton
Usuario::AtoQt ClickNamed(const char* objectName);
Usuario::AtoQt ChooseFile(const QString& path);
QString TextOfBox(QWidget& box);
