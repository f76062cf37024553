// Modal dialogs: how they end, what passes through them, what is left of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <stdexcept>

#include "tests/platform/window/Bench.h"

using testing::ElementsAre;

namespace {

// A field hears of the loss of the focus also when its dialog ends.
const std::string LOST = "EN_KILLFOCUS first";

struct WayOut {
    const char* name;
    int result;
    std::function<void(BenchDialog&)> take;
    std::vector<std::string> heard;
};

class WaysOut : public testing::TestWithParam<WayOut> {};

TEST_P(WaysOut, EndTheDialogWithTheirResult) {
    BenchDialog dialog;
    EXPECT_EQ(dialog.Run([&] { GetParam().take(dialog); }), GetParam().result);
    dialog.log.erase(dialog.log.begin(), dialog.log.begin() + 2);  // init, load
    auto expected = GetParam().heard;
    expected.push_back("destroy");
    EXPECT_EQ(dialog.log, expected);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    , WaysOut,
    testing::Values(
        WayOut{"Enter",
               1,
               [](BenchDialog& d) { Press(d.first, Qt::Key_Return); },
               {"OK", "save", LOST}},
        WayOut{
            "Escape", 2, [](BenchDialog& d) { Press(d.first, Qt::Key_Escape); }, {"Cancel", LOST}},
        WayOut{"CloseBox", 2, [](BenchDialog& d) { WidgetOf(&d)->close(); }, {"Cancel", LOST}},
        WayOut{"Handler",
               42,
               [](BenchDialog& d) {
                   d.onGo = [&d] { d.EndDialog(42); };
                   QTest::mouseClick(WidgetOfControl(d, 12), Qt::LeftButton);
               },
               {LOST, "go"}},
        WayOut{"EnterOnAButton",
               7,
               [](BenchDialog& d) {
                   d.onGo = [&d] { d.EndDialog(7); };
                   d.GetDlgItem(12)->SetFocus();
                   PressFocused(Qt::Key_Return);
               },
               {LOST, "go"}}),
    [](const auto& info) { return info.param.name; });

TEST(Dialogs, RunAgainOnTheSameObject) {
    BenchDialog dialog;
    for (int run = 1; run <= 3; ++run) {
        const int result = dialog.Run([&] {
            EXPECT_EQ(dialog.first.GetWindowText(), u"");
            dialog.first.SetWindowText(u"typed");
            dialog.EndDialog(run);
        });
        EXPECT_EQ(result, run);
        EXPECT_EQ(dialog.first.GetSafeHwnd(), nullptr);
    }
}

TEST(Dialogs, EndBeforeTheyAreShown) {
    BenchDialog dialog;
    dialog.onInit = [&] { dialog.EndDialog(9); };
    EXPECT_EQ(dialog.DoModal(), 9);
}

TEST(Dialogs, TheFirstSizeComesAfterTheControlsAreBound) {
    BenchDialog dialog;
    dialog.logSizes = true;
    dialog.Run([&] { dialog.EndDialog(0); });
    EXPECT_THAT(dialog.log, ElementsAre("init", "load", "size 270x130", LOST, "destroy"));
}

struct Thrower {
    const char* name;
    std::function<void(BenchDialog&)> provoke;
};

class Throwers : public testing::TestWithParam<Thrower> {};

TEST_P(Throwers, ComeOutOfDoModal) {
    BenchDialog dialog;
    EXPECT_THROW(
        {
            dialog.onGo = [] { throw std::runtime_error("broken"); };
            dialog.Run([&] { GetParam().provoke(dialog); });
        },
        std::runtime_error);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    dialog.onGo = nullptr;
    EXPECT_EQ(dialog.Run([&] { dialog.EndDialog(5); }), 5) << "the object serves again";
}

INSTANTIATE_TEST_SUITE_P(
    , Throwers,
    testing::Values(
        Thrower{"Click",
                [](BenchDialog& d) { QTest::mouseClick(WidgetOfControl(d, 12), Qt::LeftButton); }},
        Thrower{"Mnemonic", [](BenchDialog&) { PressFocused(Qt::Key_G, Qt::AltModifier); }},
        Thrower{"Posted",
                [](BenchDialog& d) { d.PostMessage(WM_COMMAND, MAKEWPARAM(12, BN_CLICKED)); }},
        Thrower{"Sizing",
                [](BenchDialog& d) {
                    d.onSizing = [&d](UINT, LPRECT) {
                        d.onSizing = nullptr;
                        throw std::runtime_error("size");
                    };
                    WidgetOf(&d)->windowHandle()->resize(400, 300);
                }},
        Thrower{"NestedDialog",
                [](BenchDialog& d) {
                    d.onGo = [&d] {
                        BenchDialog inner(&d);
                        inner.onGo = [] { throw std::runtime_error("inner"); };
                        inner.Run(
                            [&] { QTest::mouseClick(WidgetOfControl(inner, 12), Qt::LeftButton); });
                        ADD_FAILURE() << "the inner dialog ended in peace";
                    };
                    QTest::mouseClick(WidgetOfControl(d, 12), Qt::LeftButton);
                }}),
    [](const auto& info) { return info.param.name; });

TEST(Dialogs, AnExceptionAtTheStartLeavesNoWindow) {
    BenchDialog dialog;
    dialog.onInit = [] { throw std::runtime_error("start"); };
    const auto before = QApplication::topLevelWidgets().size();
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), before);
}

TEST(Dialogs, AHandlerMayCatchWhatAnInnerDialogThrew) {
    BenchDialog outer;
    outer.onGo = [&] {
        BenchDialog inner(&outer);
        inner.onGo = [] { throw std::runtime_error("inner"); };
        EXPECT_THROW(inner.Run([&] { inner.SendDlgItemMessage(12, BM_CLICK); }),
                     std::runtime_error);
        outer.EndDialog(3);
    };
    EXPECT_EQ(outer.Run([&] { outer.SendDlgItemMessage(12, BM_CLICK); }), 3);
}

TEST(Dialogs, WithoutATemplateTellItsNumber) {
    CDialog dialog(12345);
    try {
        dialog.DoModal();
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("12345"));
    }
}

// A list of notifications that the order of Windows gives: the old window loses the focus first.
TEST(Dialogs, TheFocusLeavesBeforeItArrives) {
    class Listener : public CEdit {
      public:
        Listener(std::vector<std::string>& log) : log(log) {}
        std::vector<std::string>& log;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_SETFOCUS) log.push_back("WM_SETFOCUS second");
            return CEdit::WindowProc(message, wParam, lParam);
        }
    };
    BenchDialog dialog;
    Listener second(dialog.log);
    dialog.Run([&] {
        second.SubclassDlgItem(11, &dialog);
        dialog.log.clear();
        Press(dialog.first, Qt::Key_Tab);
        EXPECT_EQ(CWnd::GetFocus(), &second);
        EXPECT_THAT(dialog.log, ElementsAre(LOST, "WM_SETFOCUS second"));
        dialog.EndDialog(0);
    });
}

TEST(Dialogs, TabGoesRoundTheStopsThatCanBeUsed) {
    BenchDialog dialog;
    std::vector<int> forwards, backwards;
    dialog.Run([&] {
        EXPECT_EQ(CWnd::GetFocus(), &dialog.first);
        for (int step = 0; step < 5; ++step) {
            PressFocused(Qt::Key_Tab);
            forwards.push_back(CWnd::GetFocus()->GetDlgCtrlID());
        }
        for (int step = 0; step < 5; ++step) {
            PressFocused(Qt::Key_Backtab, Qt::ShiftModifier);
            backwards.push_back(CWnd::GetFocus()->GetDlgCtrlID());
        }
        dialog.EndDialog(0);
    });
    EXPECT_THAT(forwards, ElementsAre(11, 12, 13, 14, 10));
    EXPECT_THAT(backwards, ElementsAre(14, 13, 12, 11, 10));
}

TEST(Dialogs, ADialogHandsTheFocusOn) {
    BenchDialog dialog;
    dialog.Run([&] {
        dialog.GetDlgItem(11)->SetFocus();
        dialog.SetFocus();
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), 11);
        dialog.EndDialog(0);
    });
}

}  // namespace
