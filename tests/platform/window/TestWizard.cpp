// Wizards: their buttons, the way through their pages, how they end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>

#include "platform/window/CPropertySheet.h"
#include "tests/platform/window/Bench.h"

using testing::ElementsAre;

namespace {

const DialogControl CONTROLS[] = {{ControlKind::AutoCheckBox, 30, u"Choose", 10, 10, 60, 10}};
const DialogTemplate FIRST{910, u"", 200, 90, WS_CHILD, CONTROLS};
const DialogTemplate SECOND{911, u"", 200, 90, WS_CHILD, CONTROLS};
const DialogTemplate THIRD{912, u"", 200, 90, WS_CHILD, CONTROLS};
const DialogResource RESOURCES[] = {DialogResource(FIRST), DialogResource(SECOND),
                                    DialogResource(THIRD)};

class Page : public CPropertyPage {
  public:
    Page(UINT id, DWORD buttons, std::vector<std::string>& log)
        : CPropertyPage(id), buttons(buttons), log(log) {
        m_psp.dwFlags |= PSP_USEHEADERTITLE;
        m_psp.pszHeaderTitle = CString(("Page " + std::to_string(id)).c_str());
    }
    BOOL OnInitDialog() override { return Note("init"), CPropertyPage::OnInitDialog(); }
    BOOL OnSetActive() override {
        Note("active");
        GetParent()->PostMessage(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(buttons));
        GetParent()->SetDlgItemText(ID_WIZNEXT, u"Next");
        return shows;
    }
    BOOL OnKillActive() override { return Note("left"), CPropertyPage::OnKillActive(); }
    LRESULT OnWizardNext() override { return next; }
    BOOL OnWizardFinish() override { return Note("finish"), finishes; }
    void OnReset() override { Note("reset"); }

    DWORD buttons;
    LRESULT next = 0;
    bool shows = true, finishes = true;

  private:
    void Note(const char* what) { log.push_back(what + std::to_string(TemplateId() - 909)); }
    std::vector<std::string>& log;
};

class Wizard : public testing::Test {
  protected:
    void SetUp() override {
        sheet.m_psh.dwFlags |= 16777232;  // wizard mode with a finish button
        for (Page* page : {&first, &second, &third}) sheet.AddPage(page);
        sheet.SetTitle(u"Simple", PSH_PROPTITLE);
    }
    int Run(std::function<void()> work) {
        WhenIdle([this, work] {
            Activate(sheet);
            Settle();
            work();
        });
        return sheet.DoModal();
    }
    void Click(int id) {
        QTest::mouseClick(WidgetOfControl(sheet, id), Qt::LeftButton);
        Settle();
    }
    // Which of back, next and finish can be pressed.
    std::vector<bool> Enabled() {
        std::vector<bool> enabled;
        for (int id : {ID_WIZBACK, ID_WIZNEXT, ID_WIZFINISH})
            enabled.push_back(sheet.GetDlgItem(id)->IsWindowEnabled());
        return enabled;
    }
    std::vector<std::string> log;
    Page first{910, PSWIZB_NEXT | PSWIZB_DISABLEDFINISH, log};
    Page second{911, PSWIZB_BACK | PSWIZB_NEXT | PSWIZB_DISABLEDFINISH, log};
    Page third{912, PSWIZB_BACK | PSWIZB_FINISH, log};
    CPropertySheet sheet{u"wizard"};
};

TEST_F(Wizard, GoesThroughItsPagesAndBack) {
    const auto result = Run([&] {
        EXPECT_THAT(Enabled(), ElementsAre(false, true, false));
        Click(ID_WIZNEXT);
        EXPECT_THAT(Enabled(), ElementsAre(true, true, false));
        Click(ID_WIZNEXT);
        EXPECT_THAT(Enabled(), ElementsAre(true, false, true));
        Click(ID_WIZBACK);
        EXPECT_EQ(sheet.GetActivePage(), &second);
        EXPECT_TRUE(second.IsWindowVisible());
        EXPECT_FALSE(third.IsWindowVisible());
        Click(ID_WIZNEXT);
        Click(ID_WIZFINISH);
    });
    EXPECT_EQ(result, 12325);
    EXPECT_THAT(log, ElementsAre("init1", "active1", "left1", "init2", "active2", "left2", "init3",
                                 "active3", "left3", "active2", "left2", "active3", "finish3"));
    EXPECT_EQ(first.GetSafeHwnd(), nullptr);
}

TEST_F(Wizard, CancelsByButtonKeyAndCloseBox) {
    const std::function<void()> ways[] = {[&] { Click(IDCANCEL); },
                                          [&] { PressFocused(Qt::Key_Escape); },
                                          [&] { WidgetOf(&sheet)->close(); }};
    for (const auto& way : ways) {
        log.clear();
        EXPECT_EQ(Run(way), IDCANCEL);
        EXPECT_EQ(log.back(), "reset1");
    }
}

TEST_F(Wizard, EnterPressesNextAndOnTheLastPageFinish) {
    EXPECT_EQ(Run([&] {
                  for (int step = 0; step < 3; ++step) {
                      PressFocused(Qt::Key_Return);
                      Settle();
                  }
              }),
              ID_WIZFINISH);
}

TEST_F(Wizard, APageMayStayJumpOrBeSkipped) {
    second.shows = false;
    third.finishes = false;
    EXPECT_EQ(Run([&] {
                  first.next = -1;
                  Click(ID_WIZNEXT);
                  EXPECT_EQ(sheet.GetActiveIndex(), 0);
                  first.next = 0;
                  Click(ID_WIZNEXT);
                  EXPECT_EQ(sheet.GetActiveIndex(), 2);
                  Click(ID_WIZBACK);
                  EXPECT_EQ(sheet.GetActiveIndex(), 0);
                  first.next = 912;
                  Click(ID_WIZNEXT);
                  EXPECT_EQ(sheet.GetActiveIndex(), 2);
                  Click(ID_WIZFINISH);
                  third.finishes = true;
                  Click(ID_WIZFINISH);
              }),
              ID_WIZFINISH);
}

TEST_F(Wizard, ShowsTitleHeaderAndTheTextsOfItsPages) {
    Run([&] {
        EXPECT_EQ(sheet.GetWindowText(), u"Simple");
        EXPECT_EQ(sheet.GetDlgItem(12326)->GetWindowText(), u"Page 910");
        EXPECT_EQ(sheet.GetDlgItem(ID_WIZNEXT)->GetWindowText(), u"Next");
        EXPECT_EQ(CWnd::GetFocus()->GetParent(), &first);
        PressFocused(Qt::Key_Tab);
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), ID_WIZNEXT);
        sheet.EndDialog(IDCANCEL);
    });
}

TEST(WizardMode, IsNeeded) {
    CPropertySheet sheet(u"tabs");
    EXPECT_THROW(sheet.DoModal(), std::logic_error);
}

}  // namespace
