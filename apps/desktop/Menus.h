// The menu as a table: what can be done, under which command name, and when.
#pragma once

#include <QString>
#include <span>

namespace desktop {

class MainWindow;

enum class Needs : unsigned char { Nothing, Drawing, Undo, Redo, Command };

struct MenuEntry {
    const char* menu;     // English, as all texts here
    const char* command;  // what the command line calls it; of the host where run is null
    const char* text;     // "-": a line between two groups
    const char* shortcut;
    Needs needs;
    void (*run)(MainWindow&);
};

std::span<const MenuEntry> MenuTable();

// What the menu calls a command, without mnemonic and dots; the name itself where it has none.
QString TitleOf(const QString& command);

}  // namespace desktop
