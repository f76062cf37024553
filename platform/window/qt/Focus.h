// Focus, posted messages and keys: what the handles need of the running application.
#pragma once

#include <QEvent>
#include <QKeyEvent>

#include "platform/window/WindowTypes.h"

// WM_KILLFOCUS and WM_SETFOCUS whenever the focus goes from one window to another. A list that
// drops down or a menu takes no focus.
void WatchFocus();

// The modifiers at the last key or mouse message, for GetKeyState.
void NoteModifiers(Qt::KeyboardModifiers modifiers);
Qt::KeyboardModifiers NotedModifiers();

class PostedMessage : public QEvent {
  public:
    PostedMessage(UINT message, WPARAM wParam, LPARAM lParam);
    static PostedMessage* From(QEvent* event);  // null for another kind of event

    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// The code of Windows for a key, for a key without one that is told by its character VK_PACKET.
UINT VirtualKey(const QKeyEvent& key);
// The key of the toolkit for a code of Windows, for key messages that a window sends.
int ToolkitKey(UINT virtualKey);
// The characters that WM_CHAR brings for a key.
QString CharactersOf(const QKeyEvent& key);

inline constexpr UINT VK_PACKET = 0xE7;
