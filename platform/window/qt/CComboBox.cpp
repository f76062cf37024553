// The class "COMBOBOX" over QComboBox.
#include "platform/window/CComboBox.h"

#include <QAbstractItemView>
#include <QLineEdit>

#include "platform/window/qt/ComboWidget.h"

IMPLEMENT_DYNAMIC(CComboBox, CWnd)
BEGIN_MESSAGE_MAP(CComboBox, CWnd)
END_MESSAGE_MAP()

namespace {

ComboWidget* WidgetOfCombo(const CComboBox* combo) {
    return dynamic_cast<ComboWidget*>(WidgetOf(combo));
}

bool Has(const ComboWidget* combo, int index) {
    return combo && index >= 0 && index < combo->count();
}

// The entry behind after, around the end, whose text passes the test.
template <class Test>
int Find(const ComboWidget* combo, int after, Test test) {
    const int count = combo ? combo->count() : 0;
    for (int step = 1; step <= count; ++step) {
        const int index = (std::max(after, -1) + step) % count;
        if (test(combo->itemText(index))) return index;
    }
    return CB_ERR;
}

}  // namespace

BOOL CComboBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(u"COMBOBOX", u"", style, rect, parent, id);
}

int CComboBox::AddString(LPCWSTR text) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!combo) return CB_ERR;
    const QString added = QString::fromUtf16(text);
    int index = combo->count();
    if (GetStyle() & CBS_SORT)
        while (index > 0 && combo->itemText(index - 1).compare(added, Qt::CaseInsensitive) > 0)
            --index;
    return combo->Insert(index, added);
}

int CComboBox::InsertString(int index, LPCWSTR text) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!combo || index > combo->count()) return CB_ERR;
    return combo->Insert(index < 0 ? combo->count() : index, QString::fromUtf16(text));
}

int CComboBox::DeleteString(int index) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!Has(combo, index)) return CB_ERR;
    combo->Remove(index);
    return combo->count();
}

void CComboBox::ResetContent() {
    if (ComboWidget* combo = WidgetOfCombo(this)) combo->Reset();
}

int CComboBox::GetCount() const {
    const ComboWidget* combo = WidgetOfCombo(this);
    return combo ? combo->count() : CB_ERR;
}

int CComboBox::GetCurSel() const {
    const ComboWidget* combo = WidgetOfCombo(this);
    return combo ? combo->Selected() : CB_ERR;
}

int CComboBox::SetCurSel(int index) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!combo) return CB_ERR;
    combo->Select(Has(combo, index) ? index : CB_ERR);
    return combo->Selected();
}

int CComboBox::GetLBText(int index, CString& text) const {
    const ComboWidget* combo = WidgetOfCombo(this);
    if (!Has(combo, index)) return CB_ERR;
    text = ToCString(combo->itemText(index));
    return text.GetLength();
}

int CComboBox::GetLBTextLen(int index) const {
    CString text;
    return GetLBText(index, text);
}

int CComboBox::FindString(int after, LPCWSTR prefix) const {
    const QString wanted = QString::fromUtf16(prefix);
    return Find(WidgetOfCombo(this), after, [&wanted](const QString& text) {
        return text.startsWith(wanted, Qt::CaseInsensitive);
    });
}

int CComboBox::FindStringExact(int after, LPCWSTR exact) const {
    const QString wanted = QString::fromUtf16(exact);
    return Find(WidgetOfCombo(this), after, [&wanted](const QString& text) {
        return text.compare(wanted, Qt::CaseInsensitive) == 0;
    });
}

int CComboBox::SelectString(int after, LPCWSTR prefix) {
    const int index = FindString(after, prefix);
    return index == CB_ERR ? CB_ERR : SetCurSel(index);
}

LPARAM CComboBox::GetItemData(int index) const {
    const ComboWidget* combo = WidgetOfCombo(this);
    return Has(combo, index) ? combo->Data(index) : CB_ERR;
}

int CComboBox::SetItemData(int index, LPARAM data) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!Has(combo, index)) return CB_ERR;
    combo->setItemData(index, QVariant::fromValue<qlonglong>(data));
    return 0;
}

void* CComboBox::GetItemDataPtr(int index) const {
    return reinterpret_cast<void*>(GetItemData(index));
}

int CComboBox::SetItemDataPtr(int index, void* data) {
    return SetItemData(index, reinterpret_cast<LPARAM>(data));
}

void CComboBox::ShowDropDown(BOOL show) {
    SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(show));
    ThrowKept();
}

BOOL CComboBox::GetDroppedState() const {
    const ComboWidget* combo = WidgetOfCombo(this);
    return combo && combo->IsDropped();
}

BOOL CComboBox::LimitText(int characters) {
    SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(characters));
    return TRUE;
}

BOOL CComboBox::SetEditSel(int start, int end) {
    const ComboWidget* combo = WidgetOfCombo(this);
    QLineEdit* edit = combo ? combo->lineEdit() : nullptr;
    if (!edit) return FALSE;
    const int length = static_cast<int>(edit->text().size());
    if (start < 0)
        edit->deselect();
    else
        edit->setSelection(start, (end < 0 ? length : end) - start);
    return TRUE;
}

DWORD CComboBox::GetEditSel() const {
    const ComboWidget* combo = WidgetOfCombo(this);
    const QLineEdit* edit = combo ? combo->lineEdit() : nullptr;
    if (!edit) return 0;
    const int start = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
    return MAKELONG(static_cast<UINT>(start),
                    static_cast<UINT>(start + edit->selectedText().size()));
}

int CComboBox::SetItemHeight(int index, UINT height) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!combo) return CB_ERR;
    combo->SetItemHeight(index, static_cast<int>(height));
    return 0;
}

int CComboBox::SetDroppedWidth(UINT width) {
    ComboWidget* combo = WidgetOfCombo(this);
    if (!combo) return CB_ERR;
    combo->view()->setMinimumWidth(static_cast<int>(width));
    return static_cast<int>(width);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}
