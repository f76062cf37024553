// Keys of the toolkit and of Windows.
#include <iterator>

#include "platform/window/Styles.h"
#include "platform/window/qt/Focus.h"

namespace {

struct KeyPair {
    UINT code;
    int key;
};

// The first of a code is the one that it is translated back to.
constexpr KeyPair KEYS[] = {
    {VK_BACK, Qt::Key_Backspace},  {VK_TAB, Qt::Key_Tab},       {VK_TAB, Qt::Key_Backtab},
    {VK_RETURN, Qt::Key_Return},   {VK_RETURN, Qt::Key_Enter},  {VK_SHIFT, Qt::Key_Shift},
    {VK_CONTROL, Qt::Key_Control}, {VK_MENU, Qt::Key_Alt},      {VK_ESCAPE, Qt::Key_Escape},
    {VK_SPACE, Qt::Key_Space},     {VK_PRIOR, Qt::Key_PageUp},  {VK_NEXT, Qt::Key_PageDown},
    {VK_END, Qt::Key_End},         {VK_HOME, Qt::Key_Home},     {VK_LEFT, Qt::Key_Left},
    {VK_UP, Qt::Key_Up},           {VK_RIGHT, Qt::Key_Right},   {VK_DOWN, Qt::Key_Down},
    {VK_INSERT, Qt::Key_Insert},   {VK_DELETE, Qt::Key_Delete},
};

bool IsLetterOrDigit(int key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

}  // namespace

// Codes of the toolkit for punctuation are characters, and 38 is "&" there and Up on Windows: only
// what stands in the table, letters, digits and function keys may pass.
UINT VirtualKey(const QKeyEvent& key) {
    const int code = key.key();
    for (const KeyPair& pair : KEYS)
        if (pair.key == code) return pair.code;
    if (IsLetterOrDigit(code)) return static_cast<UINT>(code);
    if (code >= Qt::Key_F1 && code <= Qt::Key_F12)
        return VK_F1 + static_cast<UINT>(code - Qt::Key_F1);
    return VK_PACKET;
}

int ToolkitKey(UINT virtualKey) {
    for (const KeyPair& pair : KEYS)
        if (pair.code == virtualKey) return pair.key;
    if (IsLetterOrDigit(static_cast<int>(virtualKey))) return static_cast<int>(virtualKey);
    if (virtualKey >= VK_F1 && virtualKey <= VK_F12)
        return Qt::Key_F1 + static_cast<int>(virtualKey - VK_F1);
    return Qt::Key_unknown;
}

QString CharactersOf(const QKeyEvent& key) {
    const bool control = key.modifiers() & Qt::ControlModifier;
    const bool alt = key.modifiers() & Qt::AltModifier;
    if (alt && !control) return {};  // a mnemonic
    switch (key.key()) {
        case Qt::Key_Backspace:
            return QString(QChar(8));
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return QString(QChar(9));
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return QString(QChar(13));
        case Qt::Key_Escape:
            return QString(QChar(27));
        default:
            break;
    }
    // Ctrl with a letter is a control character, also for the field that copies and pastes by it.
    if (control && !alt && key.key() >= 'A' && key.key() <= 'Z')
        return QString(QChar(key.key() - 'A' + 1));
    const QString text = key.text();
    return text.isEmpty() || text.at(0) < QChar(32) || text.at(0) == QChar(127) ? QString() : text;
}
