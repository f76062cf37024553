// The controls: what they hold, what they tell their parent, how they are named and laid out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QProcess>
#include <QWindow>

#include "platform/window/CBitmapButton.h"
#include "platform/window/CComboBox.h"
#include "platform/window/CListBox.h"
#include "platform/window/CStatic.h"
#include "tests/platform/window/Bench.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A dialog whose parent side writes down every notification code of one control.
class Told : public CDialog {
  public:
    std::vector<UINT> codes;

  protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (LOWORD(wParam) == 50) codes.push_back(HIWORD(wParam));
        return CDialog::OnCommand(wParam, lParam);
    }
};

class Controls : public testing::Test {
  protected:
    void SetUp() override {
        dialog.CDialog::Create(BENCH_TEMPLATE);
        dialog.ShowWindow(SW_SHOW);
        Activate(dialog);
    }
    void TearDown() override {
        dialog.DestroyWindow();
        Settle();
    }
    Told dialog;
    const CRect place{10, 90, 110, 120};
};

TEST_F(Controls, AFieldsLimitBindsTheUserAndNotTheProgram) {
    CEdit edit;
    edit.Create(0x50800080, place, &dialog, 50);
    edit.SetLimitText(5);
    Type(edit, "1234567");
    EXPECT_EQ(edit.GetWindowText(), u"12345");
    edit.SetWindowText(u"longer than five");
    EXPECT_EQ(edit.GetWindowText(), u"longer than five");
    Type(edit, "x");
    EXPECT_EQ(edit.GetWindowText(), u"longer than five");
    edit.SetWindowText(u"ab");
    edit.SetSel(1, 1);
    QApplication::clipboard()->setText(QStringLiteral("123456789"));
    edit.SetFocus();
    Press(edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.GetWindowText(), u"a123b");
}

TEST_F(Controls, AFieldSelects) {
    CEdit edit;
    edit.Create(0x50800080, place, &dialog, 50);
    edit.SetWindowText(u"abcdef");
    int start = 0, end = 0;
    edit.SetSel(0, -1);
    edit.GetSel(start, end);
    EXPECT_EQ(std::pair(start, end), std::pair(0, 6));
    edit.SetSel(2, 4);
    edit.ReplaceSel(u"-");
    EXPECT_EQ(edit.GetWindowText(), u"ab-ef");
    EXPECT_THAT(dialog.codes, ElementsAre(EN_CHANGE, EN_CHANGE));
}

struct Style {
    const char* name;
    DWORD style;
    bool field;
};

class Combos : public Controls, public testing::WithParamInterface<Style> {};

TEST_P(Combos, HoldNoSelectionUntilSomebodySelects) {
    CComboBox combo;
    ASSERT_TRUE(combo.Create(GetParam().style, place, &dialog, 50));
    EXPECT_EQ(combo.AddString(u"beta"), 0);
    EXPECT_EQ(combo.InsertString(0, u"alpha"), 0);
    EXPECT_EQ(combo.AddString(u"gamma"), 2);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(combo.SetCurSel(1), 1);
    EXPECT_EQ(combo.GetWindowText(), u"beta");
    EXPECT_EQ(combo.SetCurSel(3), CB_ERR);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(combo.SelectString(-1, u"GA"), 2);
    EXPECT_EQ(combo.DeleteString(2), 2);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(combo.FindStringExact(-1, u"alp"), CB_ERR);
    combo.SetItemData(0, 0x123456789);
    EXPECT_EQ(combo.GetItemData(0), 0x123456789);
    EXPECT_EQ(combo.GetItemData(2), CB_ERR);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_THAT(dialog.codes, IsEmpty()) << "the program's own changes send nothing";
    EXPECT_EQ(combo.SetEditSel(0, -1), GetParam().field);
}

INSTANTIATE_TEST_SUITE_P(, Combos,
                         testing::Values(Style{"DropDownList", 0x50200003, false},
                                         Style{"OwnerDrawnDropDown", 0x50200252, true},
                                         Style{"Simple", 0x50200251, true}),
                         [](const auto& info) { return info.param.name; });

TEST_F(Controls, AComboTellsOfItsSelectionAndKeepsTheFocusWhileOpen) {
    CComboBox combo;
    combo.Create(0x50200003, place, &dialog, 50);
    for (LPCWSTR text : {u"alpha", u"beta", u"gamma"}) combo.AddString(text);
    combo.SetCurSel(0);
    combo.SetFocus();
    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    EXPECT_EQ(CWnd::GetFocus(), &combo);
    PressFocused(Qt::Key_Down);
    EXPECT_EQ(combo.GetCurSel(), 1);
    PressFocused(Qt::Key_Return);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_TRUE(dialog.IsWindowVisible()) << "Enter in the open list is no key of the dialog";
    EXPECT_THAT(dialog.codes, ElementsAre(CBN_SETFOCUS, CBN_DROPDOWN, CBN_SELCHANGE, CBN_CLOSEUP));
    dialog.codes.clear();
    combo.ShowDropDown();
    PressFocused(Qt::Key_Tab);
    EXPECT_THAT(dialog.codes, ElementsAre(CBN_DROPDOWN, CBN_CLOSEUP, CBN_KILLFOCUS));
    EXPECT_NE(CWnd::GetFocus(), &combo);
}

TEST_F(Controls, TypingInAComboTakesTheSelectionAwayUpToItsLimit) {
    CComboBox combo;
    combo.Create(0x50200252, place, &dialog, 50);
    combo.AddString(u"alpha");
    combo.SetCurSel(0);
    combo.SendMessage(CB_LIMITTEXT, 4);
    combo.SetEditSel(0, -1);
    Type(combo, "abcdef");
    EXPECT_EQ(combo.GetWindowText(), u"abcd");
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(dialog.codes.front(), CBN_EDITCHANGE);
}

TEST_F(Controls, AnOwnerDrawnComboDrawsEachEntry) {
    class Drawn : public CComboBox {
      public:
        std::vector<UINT> items;
        void DrawItem(LPDRAWITEMSTRUCT item) override {
            items.push_back(item->itemID);
            CDC::FromHandle(item->hDC)->FillSolidRect(item->rcItem, RGB(255, 0, 0));
        }
    };
    Drawn combo;
    combo.Create(0x50200252, place, &dialog, 50);
    combo.AddString(u"alpha");
    combo.AddString(u"beta");
    combo.ShowDropDown();
    Settle();
    EXPECT_THAT(combo.items, testing::IsSupersetOf({0U, 1U}));
    combo.ShowDropDown(FALSE);
}

TEST_F(Controls, AListBoxTellsOfTheUsersSelectionAndLetsItBeUndone) {
    CListBox box;
    box.Create(WS_CHILD | WS_VISIBLE | LBS_NOTIFY | WS_TABSTOP, CRect(10, 10, 110, 100), &dialog,
               50);
    for (LPCWSTR text : {u"one", u"two", u"three"}) box.AddString(text);
    EXPECT_EQ(box.GetCurSel(), LB_ERR);
    box.SetCurSel(0);
    EXPECT_THAT(dialog.codes, IsEmpty());
    QWidget* inside = box.GetSafeHwnd()->client;
    QTest::mouseClick(inside, Qt::LeftButton, Qt::NoModifier, QPoint(8, 20));
    EXPECT_EQ(box.GetCurSel(), 1);
    Press(box, Qt::Key_Down);
    EXPECT_EQ(box.GetCurSel(), 2);
    EXPECT_THAT(dialog.codes, ElementsAre(LBN_SETFOCUS, LBN_SELCHANGE, LBN_SELCHANGE));
    CString text;
    EXPECT_EQ(box.GetText(2, text), 5);
    EXPECT_EQ(box.DeleteString(2), 2);
    EXPECT_EQ(box.GetCurSel(), LB_ERR);
}

TEST_F(Controls, ButtonsAreClickedByMouseKeyAndMessage) {
    CButton check;
    check.Create(u"Check", WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX | WS_TABSTOP, place, &dialog,
                 50);
    QTest::mouseClick(WidgetOf(&check), Qt::LeftButton, Qt::NoModifier, QPoint(8, 15));
    EXPECT_EQ(check.GetCheck(), BST_CHECKED);
    check.SetFocus();
    Press(check, Qt::Key_Space);
    EXPECT_EQ(check.GetCheck(), BST_UNCHECKED);
    check.SetCheck(BST_CHECKED);
    EXPECT_EQ(dialog.IsDlgButtonChecked(50), 1U);
    check.SendMessage(BM_CLICK);
    EXPECT_EQ(dialog.IsDlgButtonChecked(50), 0U);
    check.EnableWindow(FALSE);
    QTest::mouseClick(WidgetOf(&check), Qt::LeftButton, Qt::NoModifier, QPoint(8, 15));
    EXPECT_THAT(dialog.codes, ElementsAre(BN_CLICKED, BN_CLICKED, BN_CLICKED));
}

TEST_F(Controls, APictureStandsInTheMiddleOfItsButton) {
    static const char* const ROWS[] = {"rr", "rr"};
    CBitmapButton button;
    button.Create(u"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, place, &dialog, 50);
    button.LoadBitmaps(ROWS);
    const QImage image = WidgetOf(&button)->grab().toImage();
    EXPECT_EQ(image.pixelColor(50, 15), QColor(255, 0, 0));
    EXPECT_NE(image.pixelColor(45, 15), QColor(255, 0, 0));
}

TEST_F(Controls, AreNamedByTheLabelBeforeThem) {
    QWidget* combo = WidgetOfControl(dialog, 14);
    EXPECT_EQ(combo->accessibleName(), QStringLiteral("Colour:"));
    dialog.SetDlgItemText(20, u"&Farbe && Ton:");
    EXPECT_EQ(combo->accessibleName(), QStringLiteral("Farbe & Ton:"));
    EXPECT_EQ(qobject_cast<QLabel*>(WidgetOfControl(dialog, 20))->buddy(), combo);
    dialog.SetWindowText(u"Another title");
    EXPECT_EQ(WidgetOfControl(dialog, 10)->accessibleName(), QStringLiteral("Another title"));
}

TEST_F(Controls, AHandlerPaintsInsteadOfTheControl) {
    class Painted : public CEdit {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_PAINT) return CEdit::WindowProc(message, wParam, lParam);
            CPaintDC dc(this);
            CRect all;
            GetClientRect(all);
            dc.FillSolidRect(all, RGB(1, 2, 3));
            return 0;
        }
    };
    Painted edit;
    edit.Create(0x50800080, place, &dialog, 50);
    EXPECT_EQ(WidgetOf(&edit)->grab().toImage().pixelColor(3, 3), QColor(1, 2, 3));
}

TEST_F(Controls, FontsAreMeasuredAsTheyAreDrawn) {
    CEdit& edit = dynamic_cast<CEdit&>(*dialog.GetDlgItem(10));
    LOGFONT description;
    ASSERT_GT(edit.GetFont()->GetLogFont(&description), 0);
    EXPECT_EQ(description.lfHeight, -11);
    description.lfWeight = FW_BOLD;
    CFont bold;
    bold.CreateFontIndirect(&description);
    CClientDC dc(&edit);
    const CSize plain = dc.GetTextExtent(u"Tradução");
    CFont* const before = dc.SelectObject(&bold);
    EXPECT_GT(dc.GetTextExtent(u"Tradução").cx, plain.cx);
    dc.SelectObject(before);
    EXPECT_EQ(dc.GetTextExtent(u"Tradução"), plain);
    CRect needed(0, 0, 30, 0);
    dc.DrawText(u"words that wrap", needed, DT_WORDBREAK | DT_CALCRECT);
    EXPECT_GE(needed.Height(), 2 * plain.cy);
}

// The letters that only another font has are wide in the first text, high in the second.
TEST_F(Controls, LettersOfAnotherFontLeaveTheBaseLineWhereItIs) {
    const CRect line(10, 90, 110, 103);
    for (const DWORD style : {DWORD{SS_LEFT}, DWORD{BS_GROUPBOX}}) {
        CStatic label;
        CButton group;
        CWnd& control = style ? static_cast<CWnd&>(group) : label;
        if (style) group.Create(u"", WS_CHILD | WS_VISIBLE | style, line, &dialog, 50);
        if (!style) label.Create(u"", WS_CHILD | WS_VISIBLE | style, line, &dialog, 50);
        control.SetFont(dialog.GetFont());
        auto picture = [&](const char16_t* text) {
            control.SetWindowText(text);
            return WidgetOf(&control)->grab(QRect(0, 0, style ? 18 : 7, 13)).toImage();
        };
        const QImage plain = picture(u"H.");
        EXPECT_NE(picture(u"L."), plain);
        EXPECT_EQ(picture(u"H.翻訳"), plain) << style;
        EXPECT_EQ(picture(u"H.ตั้ง"), plain) << style;
        control.DestroyWindow();
    }
}

TEST_F(Controls, ThePositionsAreThoseOfTheTemplateInPixels) {
    CRect rect;
    dialog.GetDlgItem(12)->GetWindowRect(rect);
    dialog.ScreenToClient(rect);
    EXPECT_EQ(rect, CRect(11, 80, 86, 102));  // 7, 49, 50, 14 dialog units
    dialog.GetClientRect(rect);
    EXPECT_EQ(rect.Size(), CSize(270, 130));
    dialog.GetDlgItem(14)->GetClientRect(rect);
    EXPECT_LT(rect.Height(), 30) << "a closed combo box, not the room of its list";
}

// Only the user's sizes are told by WM_SIZING, and what the handler allows is what stays.
TEST(Sizing, TheHandlersRectangleHolds) {
    BenchDialog dialog;
    std::vector<UINT> sides;
    dialog.onSizing = [&](UINT side, LPRECT rect) {
        sides.push_back(side);
        if (CRect(*rect).Width() < 250) rect->right = rect->left + 250;
    };
    dialog.Run([&] {
        CRect rect;
        dialog.GetWindowRect(rect);
        dialog.MoveWindow(rect.left, rect.top, 300, 200);
        EXPECT_THAT(sides, IsEmpty());
        dialog.logSizes = true;
        QWindow* window = WidgetOf(&dialog)->windowHandle();
        window->resize(150, window->height());
        Settle();
        dialog.GetWindowRect(rect);
        EXPECT_EQ(rect.Size(), CSize(250, 200));
        EXPECT_EQ(sides.front(), WMSZ_RIGHT);
        dialog.GetClientRect(rect);
        EXPECT_EQ(dialog.log.back(),
                  "size " + std::to_string(rect.Width()) + "x" + std::to_string(rect.Height()));
        dialog.EndDialog(0);
    });
}

// The window stays where it is while its size changes without activation.
TEST(Sizing, SetWindowPosKeepsWhatItIsToldTo) {
    BenchDialog dialog;
    dialog.Run([&] {
        CRect before, after;
        dialog.GetWindowRect(before);
        dialog.SetWindowPos(nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        dialog.GetWindowRect(after);
        EXPECT_EQ(after.TopLeft(), before.TopLeft());
        EXPECT_EQ(after.Size(), CSize(400, 300));
        dialog.EndDialog(0);
    });
    EXPECT_EQ(CClientDC(nullptr).GetDeviceCaps(LOGPIXELSX), 96);
}

// Run by the test below with a scale: the texts fit, and the picture has the scale's pixels.
TEST(Scale, TheTextsFitTheirRooms) {
    BenchDialog dialog;
    dialog.Run([&] {
        const double scale =
            qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
        EXPECT_EQ(WidgetOf(&dialog)->grab().width(), qRound(270 * scale));
        for (int id : {12, 13, 20, 16}) {
            QWidget* control = WidgetOfControl(dialog, id);
            const QString text = ToQString(dialog.GetDlgItem(id)->GetWindowText()).remove(u'&');
            EXPECT_LE(control->fontMetrics().horizontalAdvance(text) + 4, control->width()) << id;
            EXPECT_LE(control->fontMetrics().height(), control->height()) << id;
        }
        dialog.EndDialog(0);
    });
}

TEST(Scale, HoldsAt100And150And200Percent) {
    for (const char* scale : {"1", "1.5", "2"}) {
        QProcess run;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(scale));
        run.setProcessEnvironment(environment);
        run.setProcessChannelMode(QProcess::ForwardedChannels);
        run.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=Scale.TheTexts*")});
        ASSERT_TRUE(run.waitForFinished());
        EXPECT_EQ(run.exitCode(), 0) << "at scale " << scale;
    }
}

}  // namespace
