// The class "LISTBOX" over QListWidget.
#include "platform/window/CListBox.h"

#include <QKeyEvent>
#include <QListWidget>

#include "platform/window/qt/Frame.h"
#include "platform/window/qt/WindowHandle.h"

IMPLEMENT_DYNAMIC(CListBox, CWnd)

namespace {

// Windows tells of a selection when the mouse button is up or the key has been handled; a handler
// may then select something else.
class ListBoxWidget : public QListWidget {
  public:
    ListBoxWidget(WindowHandle& handle, QWidget* parent) : QListWidget(parent), handle(handle) {}

    int Selected() const {
        const auto rows = selectionModel()->selectedRows();
        return rows.isEmpty() ? LB_ERR : rows.first().row();
    }
    void Select(int row) {
        if (row < 0)
            clearSelection();
        else
            setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
        told = Selected();
    }
    void Forget() { told = Selected(); }

  protected:
    bool event(QEvent* event) override {
        return PaintsFrame(*this, *event) || QListWidget::event(event);
    }
    bool viewportEvent(QEvent* event) override {
        const auto byDefault = [this, event] { return QListWidget::viewportEvent(event); };
        if (event->type() == QEvent::Paint || event->type() == QEvent::Resize) return byDefault();
        const bool taken = handle.DispatchEvent(viewport(), event, byDefault);
        if (event->type() == QEvent::MouseButtonRelease) TellSelection();
        if (event->type() == QEvent::MouseButtonDblClick) handle.NotifyCommand(LBN_DBLCLK);
        return taken;
    }
    void keyPressEvent(QKeyEvent* event) override {
        QListWidget::keyPressEvent(event);
        TellSelection();
    }

  private:
    void TellSelection() {
        const int now = Selected();
        if (now == told) return;
        told = now;
        handle.NotifyCommand(now == LB_ERR ? LBN_SELCANCEL : LBN_SELCHANGE);
    }
    WindowHandle& handle;
    int told = LB_ERR;
};

ListBoxWidget* BoxOf(const CListBox* box) { return dynamic_cast<ListBoxWidget*>(WidgetOf(box)); }

QListWidgetItem* ItemOf(const CListBox* box, int index) {
    const ListBoxWidget* widget = BoxOf(box);
    return widget ? widget->item(index) : nullptr;
}

QWidget* Make(WindowHandle& handle, QWidget* parent) {
    auto* list = new ListBoxWidget(handle, parent);
    handle.client = list->viewport();
    list->setUniformItemSizes(true);
    list->setSortingEnabled(handle.HasStyle(LBS_SORT));
    handle.answers = [](UINT message, WPARAM, LPARAM, LRESULT& result) {
        if (message != WM_GETDLGCODE) return false;
        result = DLGC_WANTARROWS | DLGC_WANTCHARS;
        return true;
    };
    return list;
}

const WindowClassEntry entry({u"LISTBOX", &Make, &MakeObject<CListBox>, LBN_SETFOCUS,
                              LBN_KILLFOCUS});

}  // namespace

BOOL CListBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(u"LISTBOX", u"", style, rect, parent, id);
}

int CListBox::AddString(LPCWSTR text) { return InsertString(-1, text); }

int CListBox::InsertString(int index, LPCWSTR text) {
    ListBoxWidget* box = BoxOf(this);
    if (!box || index > box->count()) return LB_ERR;
    auto item = std::make_unique<QListWidgetItem>(QString::fromUtf16(text));
    QListWidgetItem* const added = item.release();  // the box takes it over
    box->insertItem(index < 0 ? box->count() : index, added);
    box->Forget();
    return box->row(added);
}

int CListBox::DeleteString(UINT index) {
    ListBoxWidget* box = BoxOf(this);
    if (!box || index >= static_cast<UINT>(box->count())) return LB_ERR;
    const bool wasSelected = box->Selected() == static_cast<int>(index);
    delete box->takeItem(static_cast<int>(index));
    if (wasSelected) box->Select(-1);
    box->Forget();
    return box->count();
}

void CListBox::ResetContent() {
    if (ListBoxWidget* box = BoxOf(this)) {
        box->clear();
        box->Forget();
    }
}

int CListBox::GetCount() const { return BoxOf(this) ? BoxOf(this)->count() : LB_ERR; }
int CListBox::GetCurSel() const { return BoxOf(this) ? BoxOf(this)->Selected() : LB_ERR; }

int CListBox::SetCurSel(int index) {
    ListBoxWidget* box = BoxOf(this);
    if (!box || index >= box->count()) return LB_ERR;
    box->Select(index);
    return box->Selected();
}

int CListBox::GetText(int index, CString& text) const {
    const QListWidgetItem* item = ItemOf(this, index);
    if (!item) return LB_ERR;
    text = ToCString(item->text());
    return text.GetLength();
}

LPARAM CListBox::GetItemData(int index) const {
    const QListWidgetItem* item = ItemOf(this, index);
    return item ? static_cast<LPARAM>(item->data(Qt::UserRole).toLongLong()) : LB_ERR;
}

int CListBox::SetItemData(int index, LPARAM data) {
    QListWidgetItem* item = ItemOf(this, index);
    if (!item) return LB_ERR;
    item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(data));
    return 0;
}
