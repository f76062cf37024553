// Drawing and measuring.
#include "platform/window/CDC.h"

#include <QApplication>
#include <QFontMetrics>
#include <utility>

#include "platform/window/qt/DeviceContext.h"
#include "platform/window/qt/WindowHandle.h"

namespace {

int deviceDpi = 96;

void Delete(DeviceContext* context) { delete context; }

CFont FontOf(const CWnd* window) {
    const QWidget* widget = WidgetOf(window);
    return ToCFont(widget ? widget->font() : QApplication::font());
}

QWidget& PaintedWidget(const CWnd* window) {
    QWidget* widget = WidgetOf(window);
    return *(window->GetSafeHwnd()->client ? window->GetSafeHwnd()->client.data() : widget);
}

int AlignmentOf(UINT format) {
    int flags = format & DT_CENTER  ? Qt::AlignHCenter
                : format & DT_RIGHT ? Qt::AlignRight
                                    : Qt::AlignLeft;
    flags |= format & DT_SINGLELINE && format & DT_VCENTER  ? Qt::AlignVCenter
             : format & DT_SINGLELINE && format & DT_BOTTOM ? Qt::AlignBottom
                                                            : Qt::AlignTop;
    if (format & DT_SINGLELINE) flags |= Qt::TextSingleLine;
    if (format & DT_WORDBREAK) flags |= Qt::TextWordWrap;
    if (!(format & DT_NOPREFIX)) flags |= Qt::TextHideMnemonic;
    return flags;
}

}  // namespace

DeviceContext::DeviceContext(QPainter& painter, const CFont& baseFont)
    : painter(&painter), base(baseFont), font(&base), object(this) {
    painter.setFont(ToQFont(base));
}

DeviceContext::DeviceContext(const CFont& baseFont)
    : nowhere(std::make_unique<QPixmap>(1, 1)),
      own(std::make_unique<QPainter>(nowhere.get())),
      painter(own.get()),
      base(baseFont),
      font(&base),
      object(this) {
    painter->setFont(ToQFont(base));
}

DeviceContext::DeviceContext(QWidget& widget, const CFont& baseFont)
    : own(std::make_unique<QPainter>(&widget)),
      painter(own.get()),
      base(baseFont),
      font(&base),
      object(this) {
    painter->setFont(ToQFont(base));
}

CPaintDC::CPaintDC(CWnd* window)
    : own(new DeviceContext(PaintedWidget(window), FontOf(window)), &Delete) {
    m_hDC = own.get();
}
CPaintDC::~CPaintDC() = default;

CClientDC::CClientDC(CWnd* window) : own(new DeviceContext(FontOf(window)), &Delete) {
    m_hDC = own.get();
}
CClientDC::~CClientDC() = default;

CDC* CDC::FromHandle(HDC context) { return context ? &context->object : nullptr; }

CFont* CDC::SelectObject(CFont* font) {
    CFont* const before = m_hDC->font;
    if (!font || !font->IsMade()) return before;
    m_hDC->font = font;
    m_hDC->painter->setFont(ToQFont(*font));
    return before;
}

void CDC::SelectObject(const CPen* pen) {
    if (pen) m_hDC->pen = *pen;
}

CFont* CDC::GetCurrentFont() const { return m_hDC->font; }
COLORREF CDC::SetTextColor(COLORREF color) { return std::exchange(m_hDC->textColor, color); }
COLORREF CDC::GetTextColor() const { return m_hDC->textColor; }
COLORREF CDC::SetBkColor(COLORREF color) { return std::exchange(m_hDC->backColor, color); }
COLORREF CDC::GetBkColor() const { return m_hDC->backColor; }
int CDC::SetBkMode(int mode) { return std::exchange(m_hDC->backMode, mode); }

void CDC::FillSolidRect(const RECT& rect, COLORREF color) {
    m_hDC->backColor = color;
    m_hDC->painter->fillRect(ToQRect(rect), ToQColor(color));
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color) {
    FillSolidRect(CRect(CPoint(x, y), CSize(cx, cy)), color);
}

void CDC::FillRect(LPCRECT rect, const CBrush* brush) {
    if (brush && brush->Color() != CLR_NONE)
        m_hDC->painter->fillRect(ToQRect(*rect), ToQColor(brush->Color()));
}

void CDC::FrameRect(LPCRECT rect, const CBrush* brush) {
    if (!brush || brush->Color() == CLR_NONE) return;
    const QColor color = ToQColor(brush->Color());
    const QRect whole = ToQRect(*rect);
    m_hDC->painter->fillRect(whole.x(), whole.y(), whole.width(), 1, color);
    m_hDC->painter->fillRect(whole.x(), whole.bottom(), whole.width(), 1, color);
    m_hDC->painter->fillRect(whole.x(), whole.y(), 1, whole.height(), color);
    m_hDC->painter->fillRect(whole.right(), whole.y(), 1, whole.height(), color);
}

void CDC::DrawFocusRect(LPCRECT rect) {
    m_hDC->painter->save();
    m_hDC->painter->setPen(QPen(ToQColor(m_hDC->textColor), 1, Qt::DotLine));
    m_hDC->painter->setBrush(Qt::NoBrush);
    m_hDC->painter->drawRect(ToQRect(*rect).adjusted(0, 0, -1, -1));
    m_hDC->painter->restore();
}

void CDC::MoveTo(int x, int y) { m_hDC->position = CPoint(x, y); }

void CDC::LineTo(int x, int y) {
    const CPen pen = m_hDC->pen.value_or(CPen(PS_SOLID, 1, m_hDC->textColor));
    m_hDC->painter->setPen(QPen(ToQColor(pen.Color()), pen.Width()));
    m_hDC->painter->drawLine(m_hDC->position.x, m_hDC->position.y, x, y);
    m_hDC->position = CPoint(x, y);
}

void CDC::TextOut(int x, int y, const CString& text) {
    CRect rect(CPoint(x, y), GetTextExtent(text));
    DrawText(text, rect, DT_LEFT | DT_SINGLELINE | DT_NOPREFIX);
}

int CDC::DrawText(const CString& text, LPRECT rect, UINT format) {
    QPainter& painter = *m_hDC->painter;
    QString shown = ToQString(text);
    const QFontMetrics metrics(painter.font());
    const QRect room = ToQRect(*rect);
    if (format & DT_END_ELLIPSIS && format & DT_SINGLELINE)
        shown = metrics.elidedText(shown, Qt::ElideRight, room.width());
    const int flags = AlignmentOf(format);
    if (format & DT_CALCRECT) {
        const QRect needed = metrics.boundingRect(room, flags, shown);
        rect->right = rect->left + needed.width();
        rect->bottom = rect->top + needed.height();
        return needed.height();
    }
    if (m_hDC->backMode == OPAQUE)
        painter.fillRect(metrics.boundingRect(room, flags, shown).intersected(room),
                         ToQColor(m_hDC->backColor));
    painter.setPen(ToQColor(m_hDC->textColor));
    QRect drawn;
    painter.drawText(room, flags, shown, &drawn);
    return drawn.height();
}

CSize CDC::GetTextExtent(const CString& text) const {
    const QFontMetrics metrics(m_hDC->painter->font());
    return {metrics.horizontalAdvance(ToQString(text)), metrics.height()};
}

int CDC::GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

int GetDeviceCaps(HDC, int index) {
    return index == LOGPIXELSX || index == LOGPIXELSY ? deviceDpi : 0;
}

void SetDeviceDpi(int dpi) { deviceDpi = dpi; }
