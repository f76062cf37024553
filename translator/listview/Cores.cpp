// Colours of cells: numbers to colours, and contrast.
#include "translator/listview/Cores.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/CmColor.h"
#include "platform/win32/Numbers.h"

namespace ListView {
namespace {

constexpr uint8_t kSemMetodo = 200;
constexpr int kUltimoIndice = 256;
constexpr double kContrasteMinimo = 3.0;  // WCAG's bound for large text and interface parts

// Relative luminance, 0 for black to 1 for white.
double Luminancia(COLORREF color) {
    const auto linear = [](int channel) {
        const double part = channel / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
           0.0722 * linear(GetBValue(color));
}

double Contraste(COLORREF a, COLORREF b) {
    const auto [darker, lighter] = std::minmax({Luminancia(a), Luminancia(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

COLORREF ToCor(const TQString& text) {
    const int number = std::max(_wtoi(text.c_str()), 0);
    OdCmColor color(kSemMetodo);
    if (number <= kUltimoIndice)
        color.setColorIndex(static_cast<uint16_t>(number));
    else
        color.setColor(static_cast<uint32_t>(number));
    return RGB(color.red(), color.green(), color.blue());
}

COLORREF Complemento(COLORREF color) { return ~color & RGB(255, 255, 255); }

COLORREF CorCinza() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT), window = GetSysColor(COLOR_WINDOW);
    return RGB((GetRValue(text) + GetRValue(window)) / 2, (GetGValue(text) + GetGValue(window)) / 2,
               (GetBValue(text) + GetBValue(window)) / 2);
}

COLORREF CorLegivel(COLORREF text, COLORREF background) {
    if (Contraste(text, background) >= kContrasteMinimo) return text;
    const COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255);
    return Contraste(black, background) >= Contraste(white, background) ? black : white;
}

}  // namespace ListView
