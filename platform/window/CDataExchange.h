// CDataExchange: ties controls to members, and moves values between them.
#pragma once

#include "platform/window/CWnd.h"

class CDataExchange {
  public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate)
        : m_pDlgWnd(dialog), m_bSaveAndValidate(saveAndValidate) {}

    CWnd* m_pDlgWnd;
    BOOL m_bSaveAndValidate;  // from the controls to the members
};

// Throws std::invalid_argument when the dialog has no control of that id.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, CString& value);
void DDX_Check(CDataExchange* exchange, int id, int& value);
void DDX_CBIndex(CDataExchange* exchange, int id, int& index);
