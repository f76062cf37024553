// CDialog: a window made from a template, mostly modal.
#pragma once

#include <exception>

#include "platform/window/CWnd.h"
#include "platform/window/DialogTemplate.h"

class CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)

  public:
    CDialog() = default;
    // The template is looked up at DoModal or Create, which throw std::invalid_argument when no
    // DialogResource has that number.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // Shows the dialog until EndDialog and gives its result; the same object can be shown again.
    // An exception of a handler ends the dialog and is thrown from here, the window gone.
    virtual int DoModal();
    void EndDialog(int result);

    // A window that stays, without a loop of its own. The caller shows it.
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    using CWnd::Create;

    UINT GetDefID() const;
    void SetDefID(UINT id);
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* control);

    virtual BOOL OnInitDialog();  // FALSE when the focus has been set
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    virtual void OnOK();      // UpdateData, then EndDialog(IDOK)
    virtual void OnCancel();  // EndDialog(IDCANCEL)
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    DECLARE_MESSAGE_MAP()

    // The window of the template, its controls, and WM_INITDIALOG.
    void CreateFrom(const DialogTemplate& table, CWnd* parent);
    // Runs what the window shows until EndDialog, then destroys it; throws what a handler threw.
    // failure is what its making threw already.
    int RunModal(std::exception_ptr failure);
    bool HandleDialogKey(const MSG& message);
    const DialogTemplate& Template() const;  // throws std::invalid_argument for an unknown number

    UINT templateId = 0;
    CWnd* parentWindow = nullptr;

  private:
    bool PressEnter();
    void CreateControls(const DialogTemplate& table);
    CWnd* FirstTabStop();
    void PassFocus();
    void ShowModal();

    UINT defaultId = 0;
    int result = 0;
    bool ended = false;
    bool firstTakesFocus = false;
    class ModalLoop* loop = nullptr;  // while it runs
};
