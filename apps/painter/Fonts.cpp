// Choosing and measuring fonts.
#include "apps/painter/Fonts.h"

#include <QFontMetricsF>
#include <algorithm>

#include "platform/text/Conversion.h"

namespace painter {

namespace {

constexpr const char* kSans = "Liberation Sans";
constexpr const char* kNarrow = "Liberation Sans Narrow";
constexpr const char* kSerif = "Liberation Serif";
constexpr const char* kMono = "Liberation Mono";

struct Known {
    std::u16string_view part;  // of the folded name
    const char* family;
    bool bold = false, italic = false;
};

// The first part that a name contains decides.
constexpr Known kKnown[] = {
    {u"arialn", kNarrow},
    {u"narrow", kNarrow},
    {u"arialbi.ttf", kSans, true, true},
    {u"arialbd.ttf", kSans, true},
    {u"ariali.ttf", kSans, false, true},
    {u"timesbi.ttf", kSerif, true, true},
    {u"timesbd.ttf", kSerif, true},
    {u"timesi.ttf", kSerif, false, true},
    {u"times", kSerif},
    {u"georgia", kSerif},
    {u"garamond", kSerif},
    {u"cambria", kSerif},
    {u"cour", kMono},
    {u"consola", kMono},
    {u"mono", kMono},
};

Known FamilyOf(std::u16string_view name) {
    const std::u16string folded = text::FoldCase(name);
    for (const Known& known : kKnown) {
        if (folded.find(known.part) != std::u16string::npos) return known;
    }
    return {u"", kSans};
}

QFont MakeFont(const char* family, bool bold, bool italic) {
    QFont font{QString::fromLatin1(family)};
    font.setPixelSize(static_cast<int>(Font::kPixels));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);  // as in drawings, and so that widths add up
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

// Characters that stand one behind the other, each with one glyph: no combining ones, no scripts
// that join letters, no surrogates.
bool StandsAlone(char16_t c) {
    return c < 0x300 || (c >= 0x370 && c < 0x590 && !(c >= 0x483 && c <= 0x489)) ||
           (c >= 0x1E00 && c < 0x200B) || (c >= 0x2010 && c < 0x2028) ||
           (c >= 0x2030 && c < 0x2060) || (c >= 0x2070 && c < 0x20D0) ||
           (c >= 0x2100 && c < 0xA000) || (c >= 0xAC00 && c < 0xD7A4);
}

}  // namespace

Font::Font(const QFont& font) : drawn(font), raw(QRawFont::fromFont(font)) {
    // Heights come in whole pixels, so that they are asked for at a large size.
    constexpr double kLarge = 2048;
    QRawFont large = raw;
    large.setPixelSize(kLarge);
    capHeight = large.capHeight() / kLarge;
    descent = large.descent() / kLarge;
    if (!(capHeight > 0.1)) capHeight = 0.7;  // a machine without any font
    metrics.resize(0x600);
}

const Font::Metric& Font::LookUp(char16_t character) const {
    if (character >= metrics.size()) metrics.resize(size_t{character} + 1);
    Metric& metric = metrics[character];
    const QString text(1, QChar(character));
    quint32 glyph = 0;
    int count = 1;
    const bool found = StandsAlone(character) && raw.isValid() &&
                       raw.glyphIndexesForChars(text.constData(), 1, &glyph, &count) && count == 1;
    metric.glyph = found ? glyph : 0;
    const double pixels = metric.glyph ? raw.advancesForGlyphIndexes({glyph}).value(0).x()
                                       : QFontMetricsF(drawn).horizontalAdvance(text);
    metric.advance = static_cast<float>(std::max(pixels, 0.0) / kPixels);
    return metric;
}

bool Font::IsPlain(std::u16string_view text) const {
    return std::all_of(text.begin(), text.end(), [this](char16_t c) { return Glyph(c) != 0; });
}

double Font::Width(std::u16string_view text, double tracking) const {
    double width = 0;
    for (const char16_t c : text) {
        const Metric& metric = Of(c);
        if (metric.glyph == 0) return ShapedWidth(text);
        width += double{metric.advance} * tracking;
    }
    return width;
}

double Font::ShapedWidth(std::u16string_view text) const {
    const QString shaped = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
    return QFontMetricsF(drawn).horizontalAdvance(shaped) / kPixels;
}

Fonts::Fonts() { OfFile(u""); }

uint16_t Fonts::OfFile(std::u16string_view name, bool bold, bool italic) {
    const Known known = FamilyOf(name);
    return NumberOf({known.family, bold || known.bold, italic || known.italic});
}

std::vector<uint16_t> Fonts::NumbersOf(const std::vector<Choice>& of) {
    std::vector<uint16_t> numbers;
    numbers.reserve(of.size());
    for (const Choice& choice : of) numbers.push_back(NumberOf(choice));
    return numbers;
}

uint16_t Fonts::NumberOf(const Choice& choice) {
    const auto found = std::find(choices.begin(), choices.end(), choice);
    const auto number = static_cast<uint16_t>(found - choices.begin());
    if (found == choices.end()) {
        choices.push_back(choice);
        fonts.emplace_back(MakeFont(choice.family, choice.bold, choice.italic));
    }
    return number;
}

}  // namespace painter
