// Messages: their order, their ways, and keys in particular.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>

#include "tests/platform/window/Bench.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const UINT REGISTERED = RegisterWindowMessageW(u"KV_TEST_REGISTERED");

// A field that writes down its keys, and ends itself when it loses the focus.
class OwnEdit : public CEdit {
    DECLARE_DYNAMIC(OwnEdit)

  public:
    explicit OwnEdit(std::vector<std::string>& log) : log(log) {}
    ~OwnEdit() override { log.push_back("deleted"); }
    bool endsWithFocus = false, claimsKeys = false, swallows = false;

  protected:
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message != WM_KEYDOWN) return FALSE;
        log.push_back("pre " + std::to_string(message->wParam));
        if (!claimsKeys) return FALSE;
        TranslateMessage(message);
        DispatchMessage(message);
        return TRUE;
    }
    afx_msg void OnKeyDown(UINT key, UINT repeat, UINT flags) {
        log.push_back((GetKeyState(VK_SHIFT) < 0 ? "shift down " : "down ") + std::to_string(key));
        CEdit::OnKeyDown(key, repeat, flags);
    }
    afx_msg void OnChar(UINT character, UINT repeat, UINT flags) {
        log.push_back("char " + std::to_string(character));
        if (!swallows) CEdit::OnChar(character, repeat, flags);
    }
    afx_msg void OnKillFocus(CWnd* next) {
        CEdit::OnKillFocus(next);
        log.push_back("lost");
        if (endsWithFocus) DestroyWindow();
    }
    afx_msg void OnNcDestroy() {
        CEdit::OnNcDestroy();
        delete this;
    }
    LRESULT OnRegistered(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam * 2); }
    DECLARE_MESSAGE_MAP()

    std::vector<std::string>& log;
};

IMPLEMENT_DYNAMIC(OwnEdit, CEdit)
BEGIN_MESSAGE_MAP(OwnEdit, CEdit)
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_KILLFOCUS()
ON_WM_NCDESTROY()
ON_REGISTERED_MESSAGE(REGISTERED, &OwnEdit::OnRegistered)
END_MESSAGE_MAP()

class Messages : public testing::Test {
  protected:
    void SetUp() override {
        dialog.Create(BENCH_TEMPLATE);
        dialog.ShowWindow(SW_SHOW);
        WidgetOf(&dialog)->activateWindow();
        Activate(dialog);
        edit = new OwnEdit(log);
        ASSERT_TRUE(edit->Create(0x50800080, CRect(10, 100, 110, 120), &dialog, 1021));
        edit->SetFocus();
        Settle();
        log.clear();
    }
    void TearDown() override {
        dialog.DestroyWindow();
        Settle();
    }
    std::vector<std::string> log;
    BenchDialog dialog;
    OwnEdit* edit = nullptr;
};

TEST_F(Messages, AKeyGoesFromPreTranslateToKeyDownToChar) {
    Type(*edit, "a");
    EXPECT_THAT(log, ElementsAre("pre 65", "down 65", "char 97"));
    EXPECT_EQ(edit->GetWindowText(), u"a");
}

TEST_F(Messages, WhatAHandlerSwallowsDoesNotArrive) {
    edit->swallows = true;
    Type(*edit, "abc");
    EXPECT_EQ(edit->GetWindowText(), u"");
}

struct DialogKey {
    Qt::Key key;
    std::vector<std::string> claimed;
};

// A field that translates and dispatches for itself keeps the key from the dialog.
TEST_F(Messages, ClaimedKeysReachTheFieldAndNotTheDialog) {
    edit->claimsKeys = true;
    const DialogKey keys[] = {
        {Qt::Key_Tab, {"pre 9", "down 9", "char 9"}},
        {Qt::Key_Return, {"pre 13", "down 13", "char 13"}},
        {Qt::Key_Escape, {"pre 27", "down 27", "char 27"}},
        {Qt::Key_Delete, {"pre 46", "down 46"}},
    };
    dialog.log.clear();
    for (const DialogKey& key : keys) {
        log.clear();
        Press(*edit, key.key);
        EXPECT_EQ(log, key.claimed);
        EXPECT_EQ(CWnd::GetFocus(), edit);
    }
    EXPECT_THAT(dialog.log, IsEmpty());
}

// 38 and 40 are Up and Down as keys and "&" and "(" as characters.
TEST_F(Messages, ArrowsAndTheCharactersOfTheirCodesAreToldApart) {
    Press(*edit, Qt::Key_Up);
    EXPECT_THAT(log, ElementsAre("pre 38", "down 38"));
    log.clear();
    Type(*edit, "&");
    EXPECT_THAT(log, ElementsAre("pre 231", "down 231", "char 38"));
    EXPECT_EQ(edit->GetWindowText(), u"&");
}

TEST_F(Messages, ShiftIsKnownWhileAKeyIsHandled) {
    Press(*edit, Qt::Key_Up, Qt::ShiftModifier);
    Press(*edit, Qt::Key_Up);
    EXPECT_THAT(log, testing::IsSupersetOf({"shift down 38", "down 38"}));
}

TEST_F(Messages, AComposedCharacterArrivesAsCharacters) {
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("ã\U0001F600"));
    QCoreApplication::sendEvent(WidgetOf(edit), &composed);
    EXPECT_THAT(log, ElementsAre("char 227", "char 55357", "char 56832"));
    EXPECT_EQ(edit->GetWindowText(), u"ã\U0001F600");
}

TEST_F(Messages, ASentKeyIsNoDialogKey) {
    dialog.log.clear();
    for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_TAB}) {
        dialog.SendMessage(WM_KEYDOWN, key);
        edit->SendMessage(WM_KEYDOWN, key);
    }
    EXPECT_THAT(dialog.log, IsEmpty());
    EXPECT_EQ(CWnd::GetFocus(), edit);
    EXPECT_TRUE(dialog.IsWindowVisible());
}

TEST_F(Messages, AFieldMayEndItselfWhenItLosesTheFocus) {
    edit->endsWithFocus = true;
    const HWND window = edit->GetSafeHwnd();
    dialog.first.SetFocus();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(log, ElementsAre("lost", "deleted"));
    EXPECT_EQ(dialog.GetDlgItem(1021), nullptr);
}

TEST_F(Messages, ADialogDestroyedWithAFieldOpenEndsTheFieldFirst) {
    edit->endsWithFocus = true;
    dialog.DestroyWindow();
    EXPECT_THAT(log, ElementsAre("lost", "deleted"));
}

TEST_F(Messages, ChildrenGoWithTheirParent) {
    dialog.first.SetFocus();
    log.clear();
    dialog.DestroyWindow();
    EXPECT_THAT(log, ElementsAre("deleted"));
    EXPECT_EQ(dialog.first.GetSafeHwnd(), nullptr);
}

TEST_F(Messages, PostedOnesKeepTheirOrderAndEndWithTheWindow) {
    dialog.log.clear();
    for (int number = 1; number <= 3; ++number) dialog.PostMessage(WM_APP, number);
    EXPECT_EQ(dialog.SendMessage(WM_APP, 9), 10);
    Settle();
    EXPECT_THAT(dialog.log, ElementsAre("posted 9", "posted 1", "posted 2", "posted 3"));
    const HWND window = edit->GetSafeHwnd();
    edit->PostMessage(WM_APP, 1);
    edit->DestroyWindow();
    EXPECT_FALSE(PostMessage(window, WM_APP, 1));
    EXPECT_EQ(SendMessage(window, WM_APP, 1), 0);
}

TEST_F(Messages, RegisteredNumbersAreOneForEachName) {
    EXPECT_EQ(RegisterWindowMessageW(u"KV_TEST_REGISTERED"), REGISTERED);
    EXPECT_NE(RegisterWindowMessageW(u"KV_TEST_OTHER"), REGISTERED);
    EXPECT_GE(REGISTERED, 0xC000U);
    EXPECT_EQ(RegisterWindowMessageW(u""), 0U);
    EXPECT_EQ(edit->SendMessage(REGISTERED, 21), 42);
}

// A control that handles its own notification keeps it from the parent.
class Reflecting : public CEdit {
  public:
    int changes = 0;
    afx_msg void OnOwnChange() { ++changes; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Reflecting, CEdit)
ON_CONTROL_REFLECT(EN_CHANGE, &Reflecting::OnOwnChange)
END_MESSAGE_MAP()

TEST_F(Messages, NotificationsAreOfferedToTheirSenderFirst) {
    dialog.log.clear();
    dialog.first.SetWindowText(u"x");
    EXPECT_THAT(dialog.log, ElementsAre("EN_CHANGE first"));
    dialog.log.clear();
    Reflecting own;
    dialog.first.UnsubclassWindow();
    ASSERT_TRUE(own.SubclassDlgItem(10, &dialog));
    own.SetWindowText(u"y");
    EXPECT_EQ(own.changes, 1);
    EXPECT_THAT(dialog.log, IsEmpty());
    own.UnsubclassWindow();
}

TEST_F(Messages, SiblingsAreWalkedInTheOrderOfTheirMaking) {
    std::vector<int> ids;
    for (CWnd* child = dialog.GetWindow(GW_CHILD); child; child = child->GetNextWindow())
        ids.push_back(child->GetDlgCtrlID());
    EXPECT_THAT(ids, ElementsAre(10, 11, 12, 13, 20, 14, 15, 16, 1021));
    CWnd* last = dialog.first.GetWindow(GW_HWNDLAST);
    EXPECT_EQ(last, edit);
    EXPECT_EQ(last->GetNextWindow(GW_HWNDPREV)->GetDlgCtrlID(), 16);
    EXPECT_FALSE(dialog.GetDlgItem(16)->IsWindowVisible());
    EXPECT_TRUE(dialog.GetDlgItem(15)->GetStyle() & WS_DISABLED);
    EXPECT_FALSE(dialog.GetDlgItem(20)->GetStyle() & WS_TABSTOP);
}

TEST_F(Messages, AWindowRefusedAtItsCreationLeavesNothing) {
    class Refusing : public CEdit {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == WM_CREATE ? -1 : CEdit::WindowProc(message, wParam, lParam);
        }
    };
    Refusing refusing;
    EXPECT_FALSE(refusing.Create(0x50800080, CRect(0, 0, 10, 10), &dialog, 77));
    EXPECT_EQ(refusing.GetSafeHwnd(), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(77), nullptr);
}

TEST_F(Messages, TheMouseArrivesInClientCoordinates) {
    class Clicked : public CEdit {
      public:
        std::vector<CPoint> points;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_LBUTTONDOWN) points.push_back(afx::PointIn(lParam));
            return CEdit::WindowProc(message, wParam, lParam);
        }
    };
    Clicked second;
    second.SubclassDlgItem(11, &dialog);
    QTest::mouseClick(WidgetOf(&second), Qt::LeftButton, Qt::NoModifier, QPoint(7, 5));
    EXPECT_THAT(second.points, ElementsAre(CPoint(7, 5)));
    EXPECT_EQ(CWnd::GetFocus(), &second);
    second.UnsubclassWindow();
}

TEST_F(Messages, AWidgetOfOthersCanBeAParent) {
    QWidget main;
    CWnd* window = CWnd::FromHandle(reinterpret_cast<HWND>(main.winId()));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(CWnd::FromHandle(reinterpret_cast<HWND>(main.winId())), window);
    EXPECT_EQ(WidgetOf(window), &main);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    BenchDialog child(window);
    EXPECT_EQ(child.Run([&] {
        EXPECT_EQ(WidgetOf(&child)->parentWidget(), &main);
        child.EndDialog(4);
    }),
              4);
}

}  // namespace
