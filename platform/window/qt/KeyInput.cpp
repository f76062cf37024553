// Key presses as messages, in the order in which a message loop of Windows has them.
#include "platform/window/qt/KeyInput.h"

#include <QCoreApplication>
#include <utility>

#include "platform/window/AfxWin.h"
#include "platform/window/qt/Dispatch.h"
#include "platform/window/qt/Focus.h"

namespace {

struct KeyInHand {
    WindowHandle& window;
    UINT code;
    QString characters;
    const std::function<bool()>& byDefault;
    bool translated = false;
};

KeyInHand* inHand = nullptr;

bool PreTranslate(MSG message) {
    const MessageInHand none(nullptr, WM_NULL, 0, 0);
    for (HWND window = message.hwnd; window && window->alive; window = window->parent) {
        if (window->object && window->object->PreTranslateMessage(&message)) return true;
        if (!window->HasStyle(WS_CHILD)) break;
    }
    return false;
}

// The key's event goes to the widget by WM_CHAR if it stands for a character, else by WM_KEYDOWN.
LRESULT DispatchKey(KeyInHand& key) {
    static const std::function<bool()> nothing = [] { return true; };
    return key.window.DeliverEvent(WM_KEYDOWN, key.code, 1,
                                   key.characters.isEmpty() ? key.byDefault : nothing);
}

bool Navigates(char16_t character) { return character == VK_TAB; }

void DeliverCharacters(WindowHandle& window, const QString& characters,
                       const std::function<bool()>& byDefault) {
    const std::function<bool()> pass = [] { return true; };
    for (qsizetype at = 0; at < characters.size() && window.alive; ++at) {
        const char16_t unit = characters.at(at).unicode();
        if (PreTranslate({&window, WM_CHAR, unit, 1}) || !window.alive) continue;
        const bool last = at + 1 == characters.size();
        window.DeliverEvent(WM_CHAR, unit, 1, last && !Navigates(unit) ? byDefault : pass);
    }
}

}  // namespace

void HandleKeyPress(WindowHandle& window, QKeyEvent& key, const std::function<bool()>& byDefault) {
    NoteModifiers(key.modifiers());
    KeyInHand mine{window, VirtualKey(key), CharactersOf(key), byDefault};
    KeyInHand* const outer = std::exchange(inHand, &mine);
    Guarded([&] {
        if (!PreTranslate({&window, WM_KEYDOWN, mine.code, 1}) && window.alive) {
            mine.translated = true;
            DispatchKey(mine);
        }
        if (mine.translated) DeliverCharacters(window, mine.characters, byDefault);
    });
    inHand = outer;
}

void HandleComposed(WindowHandle& window, QInputMethodEvent& composed) {
    const QString text = composed.commitString();
    Guarded([&] {
        for (qsizetype at = 0; at < text.size() && window.alive;) {
            const int units = text.at(at).isHighSurrogate() ? 2 : 1;
            const QString one = text.mid(at, units);
            at += units;
            DeliverCharacters(window, one, [&window, one] {
                QInputMethodEvent event;
                event.setCommitString(one);
                return window.widget && static_cast<QObject*>(window.widget)->event(&event);
            });
        }
        if (!window.alive || !window.widget) return;
        QInputMethodEvent rest(composed.preeditString(), composed.attributes());
        static_cast<QObject*>(window.widget)->event(&rest);
    });
}

void SynthesizeKey(WindowHandle& window, UINT virtualKey) {
    // These mean something to a dialog, and a key message that was sent is no dialog key.
    if (!window.widget || virtualKey == VK_TAB || virtualKey == VK_RETURN ||
        virtualKey == VK_ESCAPE)
        return;
    QKeyEvent press(QEvent::KeyPress, ToolkitKey(virtualKey), NotedModifiers());
    static_cast<QObject*>(window.widget)->event(&press);
}

void SynthesizeCharacter(WindowHandle& window, char16_t character) {
    if (!window.widget || (character < 32 && character != VK_BACK)) return;
    const int key = character == VK_BACK ? Qt::Key_Backspace : Qt::Key_unknown;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(character)));
    static_cast<QObject*>(window.widget)->event(&press);
}

BOOL TranslateMessage(const MSG* message) {
    if (!inHand || message->message != WM_KEYDOWN || message->hwnd != &inHand->window) return FALSE;
    inHand->translated = true;
    return !inHand->characters.isEmpty();
}

LRESULT DispatchMessage(const MSG* message) {
    const bool key = inHand && message->message == WM_KEYDOWN && message->hwnd == &inHand->window;
    return key ? DispatchKey(*inHand)
               : SendMessage(message->hwnd, message->message, message->wParam, message->lParam);
}
