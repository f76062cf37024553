// A wizard: its frame, the way through its pages, its buttons.
#include "platform/window/CPropertySheet.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)
BEGIN_MESSAGE_MAP(CPropertyPage, CDialog)
END_MESSAGE_MAP()

IMPLEMENT_DYNAMIC(CPropertySheet, CDialog)
BEGIN_MESSAGE_MAP(CPropertySheet, CDialog)
END_MESSAGE_MAP()

namespace {

// Dialog units of the frame around a page.
constexpr int MARGIN = 7, HEADER = 26, BUTTON_WIDTH = 50, BUTTON_HEIGHT = 14, GAP = 4;
constexpr UINT ID_HEADER = 12326, ID_SUBHEADER = 12327, ID_LINE = 12328;

enum Step { BACKWARDS = -1, FORWARDS = 1 };

bool HasHeader(const CPropertyPage& page) { return page.m_psp.dwFlags & PSP_USEHEADERTITLE; }

}  // namespace

CPropertyPage::CPropertyPage(UINT templateId, UINT) : CDialog(templateId) {}

BOOL CPropertyPage::OnSetActive() { return TRUE; }
BOOL CPropertyPage::OnKillActive() { return UpdateData(TRUE); }
LRESULT CPropertyPage::OnWizardNext() { return 0; }
LRESULT CPropertyPage::OnWizardBack() { return 0; }
BOOL CPropertyPage::OnWizardFinish() { return TRUE; }
BOOL CPropertyPage::OnQueryCancel() { return TRUE; }
void CPropertyPage::OnReset() {}

CPropertySheet* CPropertyPage::GetParentSheet() const {
    return dynamic_cast<CPropertySheet*>(GetParent());
}

CPropertySheet::CPropertySheet(LPCWSTR caption, CWnd* parent, UINT selectPage) : title(caption) {
    parentWindow = parent;
    m_psh.nStartPage = selectPage;
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    pages.push_back(page);
    m_psh.nPages = static_cast<UINT>(pages.size());
}

CPropertyPage* CPropertySheet::GetActivePage() const {
    return active < 0 ? nullptr : pages[static_cast<size_t>(active)];
}

int CPropertySheet::GetPageIndex(const CPropertyPage* page) const {
    const auto found = std::find(pages.begin(), pages.end(), page);
    return found == pages.end() ? -1 : static_cast<int>(found - pages.begin());
}

void CPropertySheet::SetTitle(LPCWSTR text, UINT) {
    title = text;
    if (m_hWnd) SetWindowText(text);
}

CSize CPropertySheet::LargestPage() const {
    CSize largest;
    for (const CPropertyPage* page : pages) {
        const DialogTemplate& table = page->Template();
        largest =
            CSize(std::max<int>(largest.cx, table.width), std::max<int>(largest.cy, table.height));
    }
    return largest;
}

void CPropertySheet::CreateFrame() {
    const CSize page = LargestPage();
    const int header =
        std::any_of(pages.begin(), pages.end(), [](auto* p) { return HasHeader(*p); }) ? HEADER : 0;
    const int top = header + page.cy + 2 * MARGIN, row = top + MARGIN;
    const int width = page.cx + 2 * MARGIN, right = width - MARGIN;
    const bool both = m_psh.dwFlags & PSH_WIZARDHASFINISH;
    const int cancel = right - BUTTON_WIDTH;
    const int finish = cancel - GAP - BUTTON_WIDTH;
    const int next = both ? finish - BUTTON_WIDTH - GAP : finish;
    const int back = next - BUTTON_WIDTH;
    const auto button = [row](UINT id, LPCWSTR text, int x) {
        return DialogControl{
            ControlKind::PushButton, id, text, x, row, BUTTON_WIDTH, BUTTON_HEIGHT};
    };
    const std::array controls = {
        DialogControl{ControlKind::LeftText, ID_HEADER, u"", MARGIN, 5, width - 2 * MARGIN, 9},
        DialogControl{ControlKind::LeftText, ID_SUBHEADER, u"", 2 * MARGIN, 14, width - 3 * MARGIN,
                      9},
        DialogControl{ControlKind::LeftText, ID_LINE, u"", 0, top, width, 1, SS_ETCHEDHORZ},
        button(ID_WIZBACK, u"< Voltar", back),
        button(ID_WIZNEXT, u"Avançar >", next),
        button(ID_WIZFINISH, u"Concluir", finish),
        button(IDCANCEL, u"Cancelar", cancel),
    };
    headerHeight = DialogUnitsY(header + MARGIN);
    const DialogTemplate frame{0,
                               title.GetString(),
                               width,
                               row + BUTTON_HEIGHT + MARGIN,
                               WS_POPUP | WS_CAPTION | WS_SYSMENU,
                               controls};
    CreateFrom(frame, parentWindow);
}

void CPropertySheet::MakeHeaderBold() {
    CWnd* header = GetDlgItem(ID_HEADER);
    LOGFONT description;
    header->GetFont()->GetLogFont(&description);
    description.lfWeight = FW_BOLD;
    CFont bold;
    bold.CreateFontIndirect(&description);
    header->SetFont(&bold);
}

int CPropertySheet::DoModal() {
    if (!IsWizard() || pages.empty())
        throw std::logic_error("property sheet: it needs wizard mode and a page before DoModal");
    active = -1;
    std::exception_ptr failure;
    try {
        CreateFrame();
    } catch (...) {
        failure = std::current_exception();
    }
    const int answer = RunModal(failure);
    active = -1;
    return answer;
}

BOOL CPropertySheet::OnInitDialog() { return TRUE; }

// The pages come after whatever a derived sheet does at its start.
LRESULT CPropertySheet::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG: {
            MakeHeaderBold();
            const LRESULT answer = CDialog::DefWindowProc(message, wParam, lParam);
            ShowWizardButtons(PSWIZB_BACK | PSWIZB_NEXT);
            Activate(static_cast<int>(std::min<UINT>(m_psh.nStartPage, GetPageCount() - 1)),
                     FORWARDS);
            return answer;
        }
        case PSM_SETWIZBUTTONS:
            ShowWizardButtons(static_cast<DWORD>(lParam));
            return 0;
        case PSM_SETCURSEL:
            return SetActivePage(static_cast<int>(wParam));
        case PSM_PRESSBUTTON:
            return PressButton(static_cast<int>(wParam));
        default:
            return CDialog::DefWindowProc(message, wParam, lParam);
    }
}

void CPropertySheet::SetWizardButtons(DWORD flags) {
    PostMessage(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(flags));
}

void CPropertySheet::ShowWizardButtons(DWORD flags) {
    const bool both = m_psh.dwFlags & PSH_WIZARDHASFINISH;
    const bool finish = both || flags & (PSWIZB_FINISH | PSWIZB_DISABLEDFINISH);
    GetDlgItem(ID_WIZBACK)->EnableWindow((flags & PSWIZB_BACK) != 0);
    GetDlgItem(ID_WIZNEXT)->EnableWindow((flags & PSWIZB_NEXT) != 0);
    GetDlgItem(ID_WIZFINISH)->EnableWindow((flags & PSWIZB_FINISH) != 0);
    GetDlgItem(ID_WIZNEXT)->ShowWindow(both || !finish ? SW_SHOW : SW_HIDE);
    GetDlgItem(ID_WIZFINISH)->ShowWindow(finish ? SW_SHOW : SW_HIDE);
    SetDefID(flags & PSWIZB_NEXT ? ID_WIZNEXT : ID_WIZFINISH);
}

void CPropertySheet::ShowHeader(const CPropertyPage& page) {
    const bool has = HasHeader(page);
    SetDlgItemText(ID_HEADER, has ? page.m_psp.pszHeaderTitle.GetString() : u"");
    const bool sub = page.m_psp.dwFlags & PSP_USEHEADERSUBTITLE;
    SetDlgItemText(ID_SUBHEADER, sub ? page.m_psp.pszHeaderSubTitle.GetString() : u"");
}

// Goes to that page, or on in the direction of step past pages that do not want to be shown.
bool CPropertySheet::Activate(int index, int step) {
    CPropertyPage* const before = GetActivePage();
    for (; index >= 0 && index < GetPageCount(); index += step) {
        CPropertyPage* const page = pages[static_cast<size_t>(index)];
        const int former = std::exchange(active, index);
        if (!page->GetSafeHwnd()) {
            page->CreateFrom(page->Template(), this);
            page->SetWindowPos(&wndTop, DialogUnitsX(MARGIN), headerHeight, 0, 0, SWP_NOSIZE);
        }
        if (!page->OnSetActive()) {
            active = former;
            continue;
        }
        ShowHeader(*page);
        page->ShowWindow(SW_SHOW);
        if (before && before != page) before->ShowWindow(SW_HIDE);
        if (CWnd* first = page->GetNextDlgTabItem(nullptr)) first->SetFocus();
        return true;
    }
    return false;
}

BOOL CPropertySheet::SetActivePage(int index) {
    if (index < 0 || index >= GetPageCount()) return FALSE;
    CPropertyPage* page = GetActivePage();
    if (page && !page->OnKillActive()) return FALSE;
    return Activate(index, FORWARDS);
}

// answer is what the page said to a step, 0 for the neighbour.
bool CPropertySheet::Leave(LRESULT answer, int step) {
    if (answer == -1 || !GetActivePage()->OnKillActive()) return false;
    if (answer == 0) return Activate(active + step, step);
    for (CPropertyPage* page : pages)
        if (page->templateId == static_cast<UINT>(answer))
            return Activate(GetPageIndex(page), step);
    return false;
}

void CPropertySheet::Finish() {
    if (GetActivePage()->OnWizardFinish()) EndDialog(ID_WIZFINISH);
}

BOOL CPropertySheet::PressButton(int button) {
    if (!GetActivePage()) return FALSE;
    switch (button) {
        case PSBTN_BACK:
            return Leave(GetActivePage()->OnWizardBack(), BACKWARDS);
        case PSBTN_NEXT:
            return Leave(GetActivePage()->OnWizardNext(), FORWARDS);
        case PSBTN_FINISH:
            Finish();
            return TRUE;
        case PSBTN_CANCEL:
            OnCancel();
            return TRUE;
        default:
            return FALSE;
    }
}

BOOL CPropertySheet::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CDialog::OnCommand(wParam, lParam)) return TRUE;
    switch (LOWORD(wParam)) {
        case ID_WIZBACK:
            return PressButton(PSBTN_BACK);
        case ID_WIZNEXT:
            return PressButton(PSBTN_NEXT);
        case ID_WIZFINISH:
            return PressButton(PSBTN_FINISH);
        default:
            return FALSE;
    }
}

void CPropertySheet::OnOK() {}

void CPropertySheet::OnCancel() {
    if (GetActivePage() && !GetActivePage()->OnQueryCancel()) return;
    for (CPropertyPage* page : pages)
        if (page->GetSafeHwnd()) page->OnReset();
    EndDialog(IDCANCEL);
}
