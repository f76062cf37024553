// Values of the layer as values of the toolkit and back.
#include <QApplication>
#include <QFontDatabase>
#include <QPalette>

#include "platform/window/qt/WindowHandle.h"

QString ToQString(const CString& text) {
    return QString::fromUtf16(text.GetString(), text.GetLength());
}

CString ToCString(const QString& text) { return CString(text.toStdU16String()); }

QRect ToQRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

CRect ToCRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

QColor ToQColor(COLORREF color) {
    return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
}

namespace {

// The dialog face of Windows has the widths of Arial; Liberation Sans has them too, so that labels
// fit where templates gave them room.
QString Family(const char16_t* face) {
    const QString name = QString::fromUtf16(face);
    if (!name.startsWith(u"MS Shell Dlg", Qt::CaseInsensitive)) return name;
    static const bool installed = QFontDatabase::hasFamily(QStringLiteral("Liberation Sans"));
    return installed ? QStringLiteral("Liberation Sans") : QApplication::font().family();
}

struct SystemColor {
    int index;
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

constexpr SystemColor SYSTEM_COLORS[] = {
    {COLOR_WINDOW, QPalette::Base},
    {COLOR_MENUTEXT, QPalette::Text},
    {COLOR_WINDOWTEXT, QPalette::Text},
    {COLOR_HIGHLIGHT, QPalette::Highlight},
    {COLOR_HIGHLIGHTTEXT, QPalette::HighlightedText},
    {COLOR_BTNFACE, QPalette::Button},
    {COLOR_BTNSHADOW, QPalette::Mid},
    {COLOR_GRAYTEXT, QPalette::Text, QPalette::Disabled},
    {COLOR_BTNTEXT, QPalette::ButtonText},
    {COLOR_3DLIGHT, QPalette::Midlight},
    {COLOR_INFOTEXT, QPalette::ToolTipText},
    {COLOR_INFOBK, QPalette::ToolTipBase},
    {COLOR_HOTLIGHT, QPalette::Link},
};

}  // namespace

QFont ToQFont(const CFont& font) {
    LOGFONT description;
    font.GetLogFont(&description);
    QFont result(Family(description.lfFaceName));
    if (description.lfHeight) result.setPixelSize(std::abs(description.lfHeight));
    result.setWeight(static_cast<QFont::Weight>(description.lfWeight ? description.lfWeight : 400));
    result.setItalic(description.lfItalic);
    result.setUnderline(description.lfUnderline);
    result.setStrikeOut(description.lfStrikeOut);
    return result;
}

CFont ToCFont(const QFont& font) {
    LOGFONT description;
    const int pixels = font.pixelSize() > 0 ? font.pixelSize() : QFontInfo(font).pixelSize();
    description.lfHeight = -pixels;
    description.lfWeight = font.weight();
    description.lfItalic = font.italic();
    description.lfUnderline = font.underline();
    description.lfStrikeOut = font.strikeOut();
    const auto family = font.family().left(31).toStdU16String();
    std::copy(family.begin(), family.end(), description.lfFaceName);
    CFont result;
    result.CreateFontIndirect(&description);
    return result;
}

COLORREF GetSysColor(int index) {
    for (const SystemColor& entry : SYSTEM_COLORS) {
        if (entry.index != index) continue;
        const QColor color = QGuiApplication::palette().color(entry.group, entry.role);
        return RGB(color.red(), color.green(), color.blue());
    }
    return RGB(0, 0, 0);
}
