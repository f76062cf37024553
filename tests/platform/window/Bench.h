// What the tests of windows have in common: a dialog that writes down what happens to it.
#pragma once

#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "platform/window/AfxWin.h"
#include "platform/window/CDataExchange.h"
#include "platform/window/CDialog.h"
#include "platform/window/CEdit.h"
#include "platform/window/qt/WindowHandle.h"

// Template 900: edit 10 "first", edit 11 "second", button 12 "Go", check box 13, combo 14 with
// label, disabled edit 15, button 16 hidden.
inline constexpr UINT BENCH_TEMPLATE = 900;

class BenchDialog : public CDialog {
    DECLARE_DYNAMIC(BenchDialog)

  public:
    explicit BenchDialog(CWnd* parent = nullptr) : CDialog(BENCH_TEMPLATE, parent) {}

    // Runs while the dialog is shown, then expects it to end.
    int Run(std::function<void()> work);

    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;

    std::vector<std::string> log;
    std::function<void()> onGo, onInit;
    CEdit first;
    bool logSizes = false;

    afx_msg void OnGo();
    afx_msg void OnFirstLost() { log.push_back("EN_KILLFOCUS first"); }
    afx_msg void OnFirstChanged() { log.push_back("EN_CHANGE first"); }
    afx_msg void OnSize(UINT type, int cx, int cy);
    afx_msg void OnSizing(UINT side, LPRECT rect);
    afx_msg void OnDestroy();
    LRESULT OnPosted(WPARAM wParam, LPARAM lParam);
    std::function<void(UINT side, LPRECT rect)> onSizing;

  protected:
    void OnOK() override;
    void OnCancel() override;
    DECLARE_MESSAGE_MAP()
};

// A function that the running loop calls when it has nothing else to do.
void WhenIdle(std::function<void()> work);
void Settle();                // handles what is waiting
void Activate(CWnd& window);  // until the window has the keyboard

QWidget* WidgetOfControl(CWnd& dialog, int id);
void Press(CWnd& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void PressFocused(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(CWnd& window, const char* text);
