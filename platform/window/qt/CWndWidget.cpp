// What a CWnd asks of its widget.
#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <algorithm>
#include <stdexcept>

#include "platform/window/AfxWin.h"
#include "platform/window/qt/Dispatch.h"
#include "platform/window/qt/WindowHandle.h"

namespace {

// Many members ask a window that is not there any more for nothing.
bool Has(const CWnd* window) { return IsWindow(window->GetSafeHwnd()) && WidgetOf(window); }

CWnd* ObjectOf(HWND window) { return window ? CWnd::FromHandle(window) : nullptr; }

const std::vector<HWND>& SiblingsOf(HWND window) {
    static const std::vector<HWND> none;
    return window->parent && window->HasStyle(WS_CHILD) ? window->parent->children : none;
}

void PutFirst(HWND window) {
    if (!window->parent) return;
    auto& siblings = window->parent->children;
    const auto here = std::find(siblings.begin(), siblings.end(), window);
    std::rotate(siblings.begin(), here, here + 1);
}

bool TakesTab(HWND window) {
    return window->HasStyle(WS_TABSTOP) && window->widget && window->widget->isEnabled() &&
           window->widget->isVisible();
}

// Depth first, so that the controls of a page stand where the page stands.
void CollectTabStops(HWND window, HWND always, std::vector<HWND>& stops) {
    for (HWND child : window->children) {
        if (!child->HasStyle(WS_CHILD)) continue;
        if (child == always || TakesTab(child)) stops.push_back(child);
        if (child->widget && child->widget->isVisible()) CollectTabStops(child, always, stops);
    }
}

}  // namespace

const CWnd CWnd::wndTop;

CWnd::~CWnd() {
    if (!m_hWnd || !IsWindow(m_hWnd) || m_hWnd->object != this) return;
    Guarded([this] { CWnd::DestroyWindow(); });
    if (m_hWnd && m_hWnd->object == this) UnsubclassWindow();  // in the middle of its end
}

BOOL CWnd::Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id) {
    if (m_hWnd) throw std::logic_error("CWnd::Create: the object has a window; destroy it first");
    return WindowHandle::Create(className, this, text, style, rect,
                                parent ? parent->GetSafeHwnd() : nullptr, id) != nullptr;
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (!IsWindow(window) || window->object || m_hWnd) return FALSE;
    m_hWnd = window;
    window->object = this;
    PreSubclassWindow();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    CWnd* control = parent->GetDlgItem(static_cast<int>(id));
    return control && SubclassWindow(control->GetSafeHwnd());
}

HWND CWnd::UnsubclassWindow() {
    const HWND window = m_hWnd;
    if (IsWindow(window) && window->object == this) window->object = nullptr;
    m_hWnd = nullptr;
    return window;
}

BOOL CWnd::DestroyWindow() {
    if (!IsWindow(m_hWnd)) return FALSE;
    m_hWnd->Destroy();
    return TRUE;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostMessage(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return IsWindow(m_hWnd) ? m_hWnd->DefaultHandling(message, wParam, lParam) : 0;
}

LRESULT CWnd::Default() {
    const MessageInHand* inHand = MessageInHand::Innermost();
    if (!inHand || inHand->window != m_hWnd) return 0;
    return DefWindowProc(inHand->message, inHand->wParam, inHand->lParam);
}

void CWnd::SetWindowText(LPCWSTR text) {
    SendMessage(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : u""));
}

CString CWnd::GetWindowText() const { return Has(this) ? ToCString(m_hWnd->Text()) : CString(); }
void CWnd::GetWindowText(CString& text) const { text = GetWindowText(); }
int CWnd::GetWindowTextLength() const { return GetWindowText().GetLength(); }

void CWnd::SetFont(CFont* font, BOOL) {
    if (Has(this) && font && font->IsMade()) m_hWnd->widget->setFont(ToQFont(*font));
}

CFont* CWnd::GetFont() const {
    static CFont none = ToCFont(QApplication::font());
    if (!Has(this)) return &none;
    m_hWnd->font = ToCFont(m_hWnd->widget->font());
    return &m_hWnd->font;
}

DWORD CWnd::GetStyle() const {
    if (!Has(this)) return 0;
    constexpr DWORD LIVE = WS_VISIBLE | WS_DISABLED;
    const QWidget& widget = *m_hWnd->widget;
    return (m_hWnd->style & ~LIVE) | (widget.isHidden() ? 0 : WS_VISIBLE) |
           (widget.isEnabled() ? 0 : WS_DISABLED);
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT) {
    if (!Has(this)) return FALSE;
    const DWORD before = m_hWnd->style;
    m_hWnd->style = (before & ~remove) | add;
    return m_hWnd->style != before;
}

int CWnd::GetDlgCtrlID() const { return Has(this) ? static_cast<int>(m_hWnd->id) : 0; }

CWnd* CWnd::GetParent() const { return Has(this) ? ObjectOf(m_hWnd->parent) : nullptr; }

CWnd* CWnd::GetTopLevelParent() const {
    if (!Has(this)) return nullptr;
    HWND window = m_hWnd;
    while (window->HasStyle(WS_CHILD) && window->parent) window = window->parent;
    return FromHandle(window);
}

CWnd* CWnd::GetDlgItem(int id) const {
    if (!Has(this)) return nullptr;
    for (HWND child : m_hWnd->children)
        if (child->HasStyle(WS_CHILD) && child->id == static_cast<UINT>(id))
            return FromHandle(child);
    return nullptr;
}

CWnd* CWnd::GetWindow(UINT command) const {
    if (!Has(this)) return nullptr;
    if (command == GW_OWNER) return m_hWnd->HasStyle(WS_CHILD) ? nullptr : ObjectOf(m_hWnd->parent);
    const auto& windows = command == GW_CHILD ? m_hWnd->children : SiblingsOf(m_hWnd);
    const auto size = static_cast<ptrdiff_t>(windows.size());
    const auto here = std::find(windows.begin(), windows.end(), m_hWnd) - windows.begin();
    const ptrdiff_t wanted = command == GW_HWNDNEXT   ? here + 1
                             : command == GW_HWNDPREV ? here - 1
                             : command == GW_HWNDLAST ? size - 1
                                                      : 0;
    return wanted >= 0 && wanted < size ? FromHandle(windows[wanted]) : nullptr;
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* from, BOOL previous) const {
    if (!Has(this)) return nullptr;
    const HWND start = from ? from->GetSafeHwnd() : nullptr;
    std::vector<HWND> stops;
    CollectTabStops(m_hWnd, start, stops);
    if (stops.empty()) return nullptr;
    const auto found = std::find(stops.begin(), stops.end(), start);
    const size_t count = stops.size();
    const size_t at = found - stops.begin();
    if (found == stops.end()) return FromHandle(previous ? stops.back() : stops.front());
    return FromHandle(stops[(at + (previous ? count - 1 : 1)) % count]);
}

BOOL CWnd::IsChild(const CWnd* window) const {
    const QWidget* inner = WidgetOf(window);
    if (!inner || !Has(this) || inner == m_hWnd->widget) return FALSE;
    return m_hWnd->widget->isAncestorOf(inner);
}

CWnd* CWnd::GetFocus() { return ObjectOf(HandleAround(QApplication::focusWidget())); }

CWnd* CWnd::SetFocus() {
    CWnd* before = GetFocus();
    const HWND old = before ? before->GetSafeHwnd() : nullptr;
    // An open list is a window of the toolkit, which would keep the focus until it closes.
    auto* combo = old && old != m_hWnd ? qobject_cast<QComboBox*>(WidgetOf(old)) : nullptr;
    if (combo) combo->hidePopup();
    if (Has(this)) m_hWnd->widget->setFocus(Qt::OtherFocusReason);
    ThrowKept();
    return IsWindow(old) ? FromHandle(old) : nullptr;
}

BOOL CWnd::EnableWindow(BOOL enable) {
    if (!Has(this)) return FALSE;
    const bool was = m_hWnd->widget->isEnabled();
    m_hWnd->widget->setEnabled(enable);
    ThrowKept();
    return !was;
}

BOOL CWnd::IsWindowEnabled() const { return Has(this) && m_hWnd->widget->isEnabled(); }

BOOL CWnd::ShowWindow(int command) {
    if (!Has(this)) return FALSE;
    const bool was = !m_hWnd->widget->isHidden();
    m_hWnd->widget->setVisible(command != SW_HIDE);
    ThrowKept();
    return was;
}

BOOL CWnd::IsWindowVisible() const { return Has(this) && m_hWnd->widget->isVisible(); }

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL) {
    if (!Has(this)) return;
    m_hWnd->Move(QRect(x, y, width, height));
    ThrowKept();
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int cx, int cy, UINT flags) {
    if (!Has(this)) return FALSE;
    const QWidget& widget = *m_hWnd->widget;
    QRect rect = widget.isWindow() ? widget.frameGeometry() : widget.geometry();
    const QRect before = rect;
    if (after == &wndTop && !(flags & SWP_NOZORDER)) PutFirst(m_hWnd);
    if (!(flags & SWP_NOMOVE)) rect.moveTopLeft({x, y});
    if (!(flags & SWP_NOSIZE)) rect.setSize({cx, cy});
    if (rect != before) m_hWnd->Move(rect);
    if (Has(this) && (flags & SWP_SHOWWINDOW)) m_hWnd->widget->show();
    if (Has(this) && (flags & SWP_HIDEWINDOW)) m_hWnd->widget->hide();
    ThrowKept();
    return TRUE;
}

void CWnd::GetWindowRect(LPRECT rect) const {
    *rect = RECT();
    if (!Has(this)) return;
    const QWidget& widget = *m_hWnd->widget;
    *rect = ToCRect(widget.isWindow() ? widget.frameGeometry()
                                      : QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size()));
}

void CWnd::GetClientRect(LPRECT rect) const {
    *rect = RECT();
    if (Has(this)) *rect = CRect(0, 0, m_hWnd->client->width(), m_hWnd->client->height());
}

void CWnd::ScreenToClient(POINT* point) const {
    if (!Has(this)) return;
    const QPoint local = m_hWnd->client->mapFromGlobal(QPoint(point->x, point->y));
    *point = CPoint(local.x(), local.y());
}

void CWnd::ClientToScreen(POINT* point) const {
    if (!Has(this)) return;
    const QPoint global = m_hWnd->client->mapToGlobal(QPoint(point->x, point->y));
    *point = CPoint(global.x(), global.y());
}

void CWnd::ScreenToClient(LPRECT rect) const {
    CPoint corner(rect->left, rect->top);
    ScreenToClient(&corner);
    *rect = CRect(corner, CRect(*rect).Size());
}

void CWnd::ClientToScreen(LPRECT rect) const {
    CPoint corner(rect->left, rect->top);
    ClientToScreen(&corner);
    *rect = CRect(corner, CRect(*rect).Size());
}

void CWnd::CenterWindow() {
    if (!Has(this)) return;
    const QWidget* around = WidgetOf(m_hWnd->parent);
    const QRect area = around && around->isVisible()
                           ? around->window()->frameGeometry()
                           : m_hWnd->widget->screen()->availableGeometry();
    QRect rect = m_hWnd->widget->frameGeometry();
    rect.moveCenter(area.center());
    rect.moveTopLeft({std::max(rect.left(), 0), std::max(rect.top(), 0)});
    m_hWnd->Move(rect);
}

void CWnd::Invalidate(BOOL) {
    if (Has(this)) m_hWnd->client->update();
}

void CWnd::InvalidateRect(LPCRECT rect, BOOL erase) {
    if (!rect)
        Invalidate(erase);
    else if (Has(this))
        m_hWnd->client->update(ToQRect(*rect));
}

void CWnd::UpdateWindow() {
    if (Has(this) && m_hWnd->widget->isVisible()) m_hWnd->client->repaint();
    ThrowKept();
}

void CWnd::SetRedraw(BOOL redraw) {
    if (Has(this)) m_hWnd->widget->setUpdatesEnabled(redraw);
}

void CWnd::SetDlgItemText(int id, LPCWSTR text) {
    if (CWnd* control = GetDlgItem(id)) control->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    const CWnd* control = GetDlgItem(id);
    text = control ? control->GetWindowText() : CString();
    return text.GetLength();
}

void CWnd::CheckDlgButton(int id, UINT check) { SendDlgItemMessage(id, BM_SETCHECK, check); }

UINT CWnd::IsDlgButtonChecked(int id) const {
    CWnd* control = GetDlgItem(id);
    return control ? static_cast<UINT>(control->SendMessage(BM_GETCHECK)) : 0;
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* control = GetDlgItem(id);
    return control ? control->SendMessage(message, wParam, lParam) : 0;
}

CWinThread* AfxGetThread() {
    static CWinThread thread;
    return &thread;
}
