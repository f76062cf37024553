// The class "EDIT" over QLineEdit.
#include "platform/window/CEdit.h"

#include "platform/window/qt/LimitedField.h"
#include "platform/window/qt/WindowHandle.h"

IMPLEMENT_DYNAMIC(CEdit, CWnd)
BEGIN_MESSAGE_MAP(CEdit, CWnd)
END_MESSAGE_MAP()

namespace {

bool Answer(LimitedField& edit, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case EM_SETSEL: {
            const int start = static_cast<int>(wParam), end = static_cast<int>(lParam);
            const int length = static_cast<int>(edit.text().size());
            if (start < 0)
                edit.deselect();
            else
                edit.setSelection(start, (end < 0 ? length : end) - start);
            return true;
        }
        case EM_LIMITTEXT:
            edit.limit = static_cast<int>(wParam);
            return true;
        case WM_GETDLGCODE:
            result = DLGC_WANTARROWS | DLGC_WANTCHARS;
            return true;
        default:
            return false;
    }
}

QWidget* Make(WindowHandle& handle, QWidget* parent) {
    auto* edit = new LimitedField(parent);
    edit->setFrame(handle.HasStyle(WS_BORDER));
    edit->setReadOnly(handle.HasStyle(ES_READONLY));
    if (handle.HasStyle(ES_PASSWORD)) edit->setEchoMode(QLineEdit::Password);
    if (handle.HasStyle(ES_RIGHT)) edit->setAlignment(Qt::AlignRight);
    handle.textOf = [edit] { return edit->text(); };
    handle.setTextOf = [edit](const QString& text) { edit->setText(text); };
    handle.answers = [edit](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return Answer(*edit, message, wParam, lParam, result);
    };
    QObject::connect(edit, &QLineEdit::textChanged, &handle,
                     [&handle] { handle.NotifyCommand(EN_CHANGE); });
    return edit;
}

const WindowClassEntry entry({u"EDIT", &Make, &MakeObject<CEdit>, EN_SETFOCUS, EN_KILLFOCUS});

}  // namespace

BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(u"EDIT", u"", style, rect, parent, id);
}

void CEdit::SetSel(int start, int end, BOOL) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
}

void CEdit::GetSel(int& start, int& end) const {
    start = end = 0;
    const auto* edit = WidgetAs<QLineEdit>(this);
    if (!edit) return;
    const bool selected = edit->hasSelectedText();
    start = selected ? edit->selectionStart() : edit->cursorPosition();
    end = selected ? edit->selectionEnd() : start;
}

void CEdit::ReplaceSel(LPCWSTR text, BOOL) {
    if (auto* edit = WidgetAs<QLineEdit>(this)) edit->insert(QString::fromUtf16(text));
}

void CEdit::LimitText(int characters) {
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(characters));
}

UINT CEdit::GetLimitText() const {
    const auto* edit = dynamic_cast<LimitedField*>(WidgetOf(this));
    return edit ? static_cast<UINT>(edit->limit) : 0;
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
    auto* edit = WidgetAs<QLineEdit>(this);
    if (edit) edit->setReadOnly(readOnly);
    return edit != nullptr;
}
