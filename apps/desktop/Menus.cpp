// The entries of the menu.
#include "apps/desktop/Menus.h"

#include <array>

#include "apps/desktop/MainWindow.h"
#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

using Window = MainWindow;
constexpr const char* kFile = "&File";
constexpr const char* kEdit = "&Edit";
constexpr const char* kView = "&View";
constexpr const char* kTranslate = "&Translate";
constexpr const char* kHelp = "&Help";

constexpr double kZoomStep = 1.5;

constexpr std::array kEntries = {
    MenuEntry{kFile, "OPEN", "&Open…", "Ctrl+O", Needs::Nothing,
              [](Window& w) { w.GetFiles().Open(); }},
    MenuEntry{kFile, "RECENT", "&Recent files", "", Needs::Nothing, nullptr},
    MenuEntry{kFile, "", "-", "", Needs::Nothing, nullptr},
    MenuEntry{kFile, "SAVE", "&Save", "Ctrl+S", Needs::Drawing,
              [](Window& w) { w.GetFiles().Save(*w.GetDesktop().Active()); }},
    MenuEntry{kFile, "SAVEAS", "Save &as…", "Ctrl+Shift+S", Needs::Drawing,
              [](Window& w) { w.GetFiles().SaveAs(*w.GetDesktop().Active()); }},
    MenuEntry{kFile, "CLOSE", "&Close", "Ctrl+W", Needs::Drawing,
              [](Window& w) { w.GetFiles().Close(*w.GetDesktop().Active()); }},
    MenuEntry{kFile, "", "-", "", Needs::Nothing, nullptr},
    MenuEntry{kFile, "QUIT", "&Quit", "Ctrl+Q", Needs::Nothing, [](Window& w) { w.close(); }},
    MenuEntry{kEdit, "UNDO", "&Undo", "Ctrl+Z", Needs::Undo,
              [](Window& w) { w.GetDesktop().Undo(); }},
    MenuEntry{kEdit, "REDO", "&Redo", "Ctrl+Y", Needs::Redo,
              [](Window& w) { w.GetDesktop().Redo(); }},
    MenuEntry{kEdit, "", "-", "", Needs::Nothing, nullptr},
    MenuEntry{kEdit, "PROJECTLANGUAGE", "Project &language…", "", Needs::Drawing,
              [](Window& w) { w.GetLanguageBox().showPopup(); }},
    MenuEntry{kView, "ZOOMFIT", "&Fit in window", "Ctrl+0", Needs::Drawing,
              [](Window& w) { w.ActiveView()->Fit(); }},
    MenuEntry{kView, "ZOOMIN", "Zoom &in", "Ctrl++", Needs::Drawing,
              [](Window& w) { w.ActiveView()->Zoom(kZoomStep); }},
    MenuEntry{kView, "ZOOMOUT", "Zoom &out", "Ctrl+-", Needs::Drawing,
              [](Window& w) { w.ActiveView()->Zoom(1 / kZoomStep); }},
    MenuEntry{kView, "", "-", "", Needs::Nothing, nullptr},
    MenuEntry{kView, "COMMANDLINE", "&Command line", "Ctrl+9", Needs::Nothing,
              [](Window& w) { w.FocusCommandLine(); }},
    MenuEntry{kTranslate, "KVTRANSLATEPROJ", "&Translate project…", "F9", Needs::Command, nullptr},
    MenuEntry{kTranslate, "KVTRANSLATEASSIST", "&Switch language…", "F10", Needs::Command, nullptr},
    MenuEntry{kTranslate, "BATCH", "Translate in &batch…", "Ctrl+B", Needs::Drawing,
              [](Window& w) { w.TranslateInBatch(); }},
    MenuEntry{kTranslate, "", "-", "", Needs::Nothing, nullptr},
    MenuEntry{kTranslate, "KVTRANSLATEEDITDIC", "Edit &dictionary…", "", Needs::Command, nullptr},
    MenuEntry{kTranslate, "KVCFGTRADELANG", "Edit &languages…", "", Needs::Command, nullptr},
    MenuEntry{kHelp, "LOG", "Show &log", "", Needs::Nothing, [](Window& w) { w.ShowLog(); }},
    MenuEntry{kHelp, "ABOUT", "&About", "", Needs::Nothing, [](Window& w) { w.ShowAbout(); }},
};

}  // namespace

std::span<const MenuEntry> MenuTable() { return kEntries; }

QString TitleOf(const QString& command) {
    if (command.isEmpty()) return {};
    for (const MenuEntry& entry : kEntries) {
        if (command.compare(QLatin1String(entry.command), Qt::CaseInsensitive) == 0)
            return Plain(Say(entry.text));
    }
    return command;
}

}  // namespace desktop
