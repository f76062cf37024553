// CPropertyPage: one step of a wizard.
#pragma once

#include "platform/window/CDialog.h"

class CPropertySheet;

struct PROPSHEETPAGE {
    DWORD dwFlags = 0;  // PSP_...
    CString pszHeaderTitle;
    CString pszHeaderSubTitle;
};

// The window is made at the first activation and lives as long as the sheet's.
class CPropertyPage : public CDialog {
    DECLARE_DYNAMIC(CPropertyPage)

  public:
    CPropertyPage() = default;
    explicit CPropertyPage(UINT templateId, UINT captionId = 0);

    // TRUE lets the page be shown, FALSE skips it.
    virtual BOOL OnSetActive();
    // UpdateData; FALSE stays on the page.
    virtual BOOL OnKillActive();
    // 0 for the neighbouring page, -1 to stay, else the template number of the page to go to.
    virtual LRESULT OnWizardNext();
    virtual LRESULT OnWizardBack();
    virtual BOOL OnWizardFinish();  // FALSE stays
    virtual BOOL OnQueryCancel();   // FALSE stays
    virtual void OnReset();         // the wizard was cancelled

    CPropertySheet* GetParentSheet() const;
    UINT TemplateId() const { return templateId; }

    PROPSHEETPAGE m_psp;

  protected:
    void OnOK() override {}  // keys of the dialog are the sheet's business
    void OnCancel() override {}
    DECLARE_MESSAGE_MAP()

    friend class CPropertySheet;
};
