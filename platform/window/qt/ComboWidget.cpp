// Combo boxes: their selection, their field, their list.
#include "platform/window/qt/ComboWidget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QProxyStyle>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <utility>

#include "platform/window/CComboBox.h"
#include "platform/window/qt/DeviceContext.h"

namespace {

// A list drops below its field, as on Windows, whatever the desktop's style does.
class DropBelowStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
    static QStyle* Shared() {
        static QPointer<DropBelowStyle> style;
        if (!style) {
            style = new DropBelowStyle;  // the application takes it over
            style->setParent(qApp);
        }
        return style;
    }
};

}  // namespace

// Entries of an owner-drawn list, by WM_DRAWITEM to the parent.
class ComboWidget::ItemDelegate : public QStyledItemDelegate {
  public:
    ItemDelegate(ComboWidget* combo) : QStyledItemDelegate(combo), combo(*combo) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int height = std::max(size.height(), option.fontMetrics.height() + 4);
        return {size.width(), combo.itemHeight ? combo.itemHeight : height};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        WindowHandle& handle = combo.handle;
        if (!handle.HasStyle(CBS_OWNERDRAWFIXED))
            return QStyledItemDelegate::paint(painter, option, index);
        painter->save();
        DeviceContext context(*painter, ToCFont(combo.font()));
        context.backMode = TRANSPARENT;
        DRAWITEMSTRUCT item;
        item.CtlType = ODT_COMBOBOX;
        item.CtlID = handle.id;
        item.itemID = static_cast<UINT>(index.row());
        item.itemState = option.state & QStyle::State_Selected ? ODS_SELECTED : 0;
        item.hwndItem = &handle;
        item.hDC = &context;
        item.rcItem = ToCRect(option.rect);
        item.itemData = combo.Data(index.row());
        Guarded([&] {
            if (handle.alive && handle.parent)
                handle.parent->Deliver(WM_DRAWITEM, handle.id, reinterpret_cast<LPARAM>(&item));
        });
        painter->restore();
    }

  private:
    ComboWidget& combo;
};

ComboWidget::ComboWidget(WindowHandle& handle, QWidget* parent)
    : QComboBox(parent), handle(handle) {
    setStyle(DropBelowStyle::Shared());
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setItemDelegate(new ItemDelegate(this));
    if ((handle.style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST) MakeField();
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
    handle.WatchKeysOf(view());
    connect(this, &QComboBox::activated, &handle, [this] {
        typed = false;
        TellSelection();
    });
    connect(view()->selectionModel(), &QItemSelectionModel::currentChanged, &handle,
            [this](const QModelIndex& now) {
                if (!keyInList || !dropped) return;
                const QSignalBlocker quiet(this);
                setCurrentIndex(now.row());
                typed = false;
                TellSelection();
            });
}

void ComboWidget::MakeField() {
    field = new LimitedField(this);
    setLineEdit(field);
    setCompleter(nullptr);
    connect(lineEdit(), &QLineEdit::textEdited, &handle, [this] {
        typed = true;
        told = CB_ERR;
        handle.NotifyCommand(CBN_EDITCHANGE);
    });
}

void ComboWidget::TellSelection() {
    if (told == currentIndex()) return;
    told = currentIndex();
    handle.NotifyCommand(CBN_SELCHANGE);
}

void ComboWidget::KeepNothingSelected(const QString& text) {
    setCurrentIndex(-1);
    if (lineEdit()) lineEdit()->setText(text);
}

int ComboWidget::Insert(int index, const QString& text) {
    const QSignalBlocker quiet(this);
    const bool nothing = currentIndex() < 0;
    const QString before = currentText();
    insertItem(index, text);
    if (nothing) KeepNothingSelected(before);
    told = currentIndex();
    return index;
}

void ComboWidget::Remove(int index) {
    const QSignalBlocker quiet(this);
    const bool selected = index == currentIndex();
    const QString before = lineEdit() ? currentText() : QString();
    removeItem(index);
    if (selected) KeepNothingSelected(before);
    told = currentIndex();
}

void ComboWidget::Reset() {
    const QSignalBlocker quiet(this);
    clear();
    if (lineEdit()) lineEdit()->clear();
    told = CB_ERR;
    typed = false;
}

void ComboWidget::Select(int index) {
    const QSignalBlocker quiet(this);
    typed = false;
    setCurrentIndex(index);
    if (lineEdit()) lineEdit()->setText(index < 0 ? QString() : itemText(index));
    told = index;
    update();
}

LPARAM ComboWidget::Data(int index) const {
    return static_cast<LPARAM>(itemData(index).toLongLong());
}

void ComboWidget::SetText(const QString& text) {
    if (lineEdit()) lineEdit()->setText(text);
}

void ComboWidget::SetItemHeight(int index, int height) {
    if (index >= 0) {
        itemHeight = height;
        return;
    }
    closedHeight = height + 6;
    handle.Move(QRect(geometry().topLeft(), QSize(width(), closedHeight)));
}

// The height of a rectangle is that of field and list together, as templates give it. A list that
// is always open has none here: it is a field without a button.
QRect ComboWidget::Fitted(const QRect& wanted) const {
    const int natural = closedHeight ? closedHeight : fontMetrics().height() + 8;
    return {wanted.topLeft(), QSize(wanted.width(), std::min(wanted.height(), natural))};
}

void ComboWidget::showPopup() {
    if (IsSimple() || dropped) return;
    handle.NotifyCommand(CBN_DROPDOWN);
    if (!handle.alive) return;
    dropped = true;
    keyInList = false;
    QComboBox::showPopup();
}

void ComboWidget::hidePopup() {
    QComboBox::hidePopup();
    if (!std::exchange(dropped, false)) return;
    handle.NotifyCommand(CBN_CLOSEUP);
}

void ComboWidget::resizeEvent(QResizeEvent* event) {
    QComboBox::resizeEvent(event);
    if (IsSimple()) lineEdit()->setGeometry(rect());
}

// In the open list a key selects, the mouse only shows where it stands.
bool ComboWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) keyInList = true;
    if (event->type() == QEvent::MouseMove) keyInList = false;
    return QComboBox::eventFilter(watched, event);
}

bool ComboWidget::Answer(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case CB_LIMITTEXT:
            if (field) field->limit = static_cast<int>(wParam);
            return true;
        case CB_SHOWDROPDOWN:
            if (wParam)
                showPopup();
            else
                hidePopup();
            return true;
        case WM_GETDLGCODE: {
            const auto* key = reinterpret_cast<const MSG*>(lParam);
            const bool ends = key && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
            result = DLGC_WANTARROWS | DLGC_WANTCHARS | (dropped && ends ? DLGC_WANTALLKEYS : 0);
            return true;
        }
        case WM_KILLFOCUS:
            if (dropped) hidePopup();
            return false;
        default:
            return false;
    }
}

namespace {

QWidget* Make(WindowHandle& handle, QWidget* parent) {
    auto* combo = new ComboWidget(handle, parent);
    handle.textOf = [combo] { return combo->currentText(); };
    handle.setTextOf = [combo](const QString& text) { combo->SetText(text); };
    handle.fitted = [combo](const QRect& wanted) { return combo->Fitted(wanted); };
    handle.answers = [combo](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return combo->Answer(message, wParam, lParam, result);
    };
    return combo;
}

const WindowClassEntry entry({u"COMBOBOX", &Make, &MakeObject<CComboBox>, CBN_SETFOCUS,
                              CBN_KILLFOCUS});

}  // namespace
