// A key on its way: first to PreTranslateMessage, then as WM_KEYDOWN and WM_CHAR to its window.
#pragma once

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <functional>

#include "platform/window/qt/WindowHandle.h"

void HandleKeyPress(WindowHandle& window, QKeyEvent& key, const std::function<bool()>& byDefault);

// What an input method or a dead key has composed arrives as characters.
void HandleComposed(WindowHandle& window, QInputMethodEvent& composed);

// Gives the widget what a key message sent by the program stands for.
void SynthesizeKey(WindowHandle& window, UINT virtualKey);
void SynthesizeCharacter(WindowHandle& window, char16_t character);
