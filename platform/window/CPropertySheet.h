// CPropertySheet: a wizard, pages shown one after the other above common buttons.
#pragma once

#include <vector>

#include "platform/window/CPropertyPage.h"

struct PROPSHEETHEADER {
    DWORD dwFlags = 0;  // PSH_...
    UINT nPages = 0;
    UINT nStartPage = 0;
};

// Shown as a wizard only: DoModal throws std::logic_error without SetWizardMode or one of the
// wizard flags in m_psh, and without a page.
class CPropertySheet : public CDialog {
    DECLARE_DYNAMIC(CPropertySheet)

  public:
    explicit CPropertySheet(LPCWSTR caption, CWnd* parent = nullptr, UINT selectPage = 0);

    void AddPage(CPropertyPage* page);  // not owned
    void SetWizardMode() { m_psh.dwFlags |= PSH_WIZARD; }
    BOOL IsWizard() const { return (m_psh.dwFlags & (PSH_WIZARD | PSH_WIZARD97)) != 0; }
    // Which of back, next and finish can be pressed (PSWIZB_...), at once. PSM_SETWIZBUTTONS with
    // the flags as last parameter does the same and can be posted. Without PSH_WIZARDHASFINISH next
    // and finish share one place, and finish is there when its flag or PSWIZB_DISABLEDFINISH is
    // given.
    void SetWizardButtons(DWORD flags);
    void SetTitle(LPCWSTR text, UINT style = 0);  // PSH_PROPTITLE is taken and adds nothing

    int GetPageCount() const { return static_cast<int>(pages.size()); }
    CPropertyPage* GetPage(int index) const { return pages.at(index); }
    CPropertyPage* GetActivePage() const;
    int GetActiveIndex() const { return active; }
    int GetPageIndex(const CPropertyPage* page) const;  // -1 for none
    BOOL SetActivePage(int index);
    BOOL PressButton(int button);  // PSBTN_...

    // ID_WIZFINISH or IDCANCEL.
    int DoModal() override;
    BOOL OnInitDialog() override;

    PROPSHEETHEADER m_psh;

  protected:
    void OnOK() override;
    void OnCancel() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    DECLARE_MESSAGE_MAP()

  private:
    CSize LargestPage() const;
    void CreateFrame();
    void MakeHeaderBold();
    void ShowHeader(const CPropertyPage& page);
    void ShowWizardButtons(DWORD flags);
    void Finish();
    bool Leave(LRESULT answer, int step);
    bool Activate(int index, int step);

    CString title;
    std::vector<CPropertyPage*> pages;
    int active = -1;
    int headerHeight = 0;
};
