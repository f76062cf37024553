// The class "BUTTON": push buttons, check boxes, radio buttons, group boxes, owner-drawn buttons.
#include "platform/window/CButton.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "platform/window/CBitmapButton.h"
#include "platform/window/qt/DeviceContext.h"
#include "platform/window/qt/WindowHandle.h"

IMPLEMENT_DYNAMIC(CButton, CWnd)
BEGIN_MESSAGE_MAP(CButton, CWnd)
END_MESSAGE_MAP()

IMPLEMENT_DYNAMIC(CBitmapButton, CButton)

namespace {

// The face is the style's; what stands on it comes from DrawItem.
class OwnerDrawnButton : public QPushButton {
  public:
    OwnerDrawnButton(WindowHandle& handle, QWidget* parent) : QPushButton(parent), handle(handle) {}

  protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        painter.drawControl(QStyle::CE_PushButton, option);
        DeviceContext context(painter, ToCFont(font()));
        context.textColor = GetSysColor(isEnabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
        context.backMode = TRANSPARENT;
        DRAWITEMSTRUCT item;
        item.CtlType = ODT_BUTTON;
        item.CtlID = handle.id;
        item.itemState = (isDown() ? ODS_SELECTED : 0) | (isEnabled() ? 0 : ODS_DISABLED) |
                         (hasFocus() ? ODS_FOCUS : 0);
        item.hwndItem = &handle;
        item.hDC = &context;
        item.rcItem = ToCRect(rect());
        Guarded([&] {
            if (handle.alive && handle.parent)
                handle.parent->Deliver(WM_DRAWITEM, handle.id, reinterpret_cast<LPARAM>(&item));
        });
    }

  private:
    WindowHandle& handle;
};

// The title stands on the frame. Templates count on that: a style that puts it above the frame
// would draw the frame through the controls.
class TitledFrame : public QGroupBox {
  public:
    using QGroupBox::QGroupBox;

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int kIndent = 8, kGap = 3;
        QPainter painter(this);
        const QFontMetrics metrics = fontMetrics();
        const QRect room(kIndent + kGap, 0, metrics.horizontalAdvance(title()), metrics.height());
        QPalette::ColorGroup state = isEnabled() ? QPalette::Active : QPalette::Disabled;
        painter.setPen(palette().color(state, QPalette::WindowText));
        painter.drawText(QPoint(room.left(), metrics.ascent()), title());
        painter.setClipRegion(QRegion(rect()) - room.adjusted(-kGap, 0, kGap, 0));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(
            QRect(0, metrics.height() / 2, width() - 1, height() - metrics.height() / 2 - 1));
    }
};

QWidget* MakeGroup(WindowHandle& handle, QWidget* parent) {
    auto* group = new TitledFrame(parent);
    // Its controls are its siblings and may have been made before it: it must not cover them.
    group->setAttribute(Qt::WA_TransparentForMouseEvents);
    group->setFocusPolicy(Qt::NoFocus);
    group->lower();
    handle.textOf = [group] { return group->title(); };
    handle.setTextOf = [group](const QString& text) { group->setTitle(text); };
    return group;
}

QAbstractButton* MakeButtonOf(WindowHandle& handle, DWORD type, QWidget* parent) {
    if (type == BS_CHECKBOX || type == BS_AUTOCHECKBOX) return new QCheckBox(parent);
    if (type == BS_AUTORADIOBUTTON) return new QRadioButton(parent);
    auto* button =
        type == BS_OWNERDRAW ? new OwnerDrawnButton(handle, parent) : new QPushButton(parent);
    button->setAutoDefault(false);
    button->setDefault(type == BS_DEFPUSHBUTTON);
    return button;
}

bool Answer(QAbstractButton& button, UINT message, WPARAM wParam, LRESULT& result) {
    switch (message) {
        case BM_GETCHECK:
            result = button.isChecked() ? BST_CHECKED : BST_UNCHECKED;
            return true;
        case BM_SETCHECK:
            button.setChecked(wParam == static_cast<WPARAM>(BST_CHECKED));
            return true;
        case BM_CLICK:
            button.click();
            return true;
        case WM_GETDLGCODE:
            result = !qobject_cast<QPushButton*>(&button) ? 0 : DLGC_BUTTON;
            return true;
        default:
            return false;
    }
}

QWidget* Make(WindowHandle& handle, QWidget* parent) {
    const DWORD type = handle.style & BS_TYPEMASK;
    if (type == BS_GROUPBOX) return MakeGroup(handle, parent);
    auto* button = MakeButtonOf(handle, type, parent);
    handle.textOf = [button] { return button->text(); };
    handle.setTextOf = [button](const QString& text) { button->setText(text); };
    handle.answers = [button](UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
        return Answer(*button, message, wParam, result);
    };
    QObject::connect(button, &QAbstractButton::clicked, &handle,
                     [&handle] { handle.NotifyCommand(BN_CLICKED); });
    return button;
}

const WindowClassEntry entry({u"BUTTON", &Make, &MakeObject<CButton>});

COLORREF PictureColor(char letter, COLORREF text) {
    switch (letter) {
        case '#':
            return text;
        case 'r':
            return RGB(255, 0, 0);
        case 'g':
            return RGB(0, 255, 0);
        case 'b':
            return RGB(0, 0, 255);
        case 'y':
            return RGB(255, 255, 0);
        case 'm':
            return RGB(255, 0, 255);
        case 'c':
            return RGB(0, 255, 255);
        default:
            return CLR_NONE;
    }
}

}  // namespace

BOOL CButton::Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(u"BUTTON", text, style, rect, parent, id);
}

int CButton::GetCheck() const {
    const auto* button = WidgetAs<QAbstractButton>(this);
    return button && button->isChecked() ? BST_CHECKED : BST_UNCHECKED;
}

void CButton::SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

void CBitmapButton::LoadBitmaps(ButtonPicture rows) {
    picture = rows;
    Invalidate();
}

void CBitmapButton::DrawItem(LPDRAWITEMSTRUCT item) {
    CDC* dc = CDC::FromHandle(item->hDC);
    const CRect room(item->rcItem);
    const int height = static_cast<int>(picture.size());
    const int width = height ? static_cast<int>(std::char_traits<char>::length(picture[0])) : 0;
    const int down = item->itemState & ODS_SELECTED ? 1 : 0;
    const int left = (room.Width() - width) / 2 + down, top = (room.Height() - height) / 2 + down;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const COLORREF color = PictureColor(picture[y][x], dc->GetTextColor());
            if (color != CLR_NONE) dc->FillSolidRect(left + x, top + y, 1, 1, color);
        }
}
