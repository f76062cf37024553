// The fonts that stand for those of drawings, and how wide their letters are.
//
// Drawings name fonts that other systems have: SHX files and TrueType fonts. Liberation's families
// have the widths of Arial, Arial Narrow, Times New Roman and Courier New; Liberation Sans comes
// near the usual SHX fonts.
#pragma once

#include <QFont>
#include <QRawFont>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace painter {

// Lengths are in units of the em.
class Font {
  public:
    static constexpr double kPixels = 32;  // of an em in `Drawn` and `Raw`

    explicit Font(const QFont& font);

    const QFont& Drawn() const { return drawn; }
    const QRawFont& Raw() const { return raw; }
    double CapHeight() const { return capHeight; }
    double Descent() const { return descent; }

    // The glyph of a character that needs no shaping; 0 for all others.
    uint32_t Glyph(char16_t character) const { return Of(character).glyph; }
    double Advance(char16_t character) const { return Of(character).advance; }
    bool IsPlain(std::u16string_view text) const;  // every character has a glyph
    double Width(std::u16string_view text, double tracking = 1) const;

  private:
    struct Metric {
        uint32_t glyph = 0;
        float advance = -1;  // below 0: not looked up yet
    };
    const Metric& Of(char16_t character) const {
        if (character < metrics.size() && metrics[character].advance >= 0) {
            return metrics[character];
        }
        return LookUp(character);
    }
    const Metric& LookUp(char16_t character) const;
    double ShapedWidth(std::u16string_view text) const;

    QFont drawn;
    QRawFont raw;
    double capHeight, descent;
    mutable std::vector<Metric> metrics;  // by character
};

class Fonts {
  public:
    Fonts();

    // By the file or family that a drawing names. Numbers are never used twice; 0 is plain.
    uint16_t OfFile(std::u16string_view name, bool bold = false, bool italic = false);
    const Font& At(uint16_t number) const { return fonts[number]; }

    struct Choice {
        const char* family;
        bool bold, italic;
        friend bool operator==(const Choice&, const Choice&) = default;
    };
    const std::vector<Choice>& Choices() const { return choices; }   // by number
    std::vector<uint16_t> NumbersOf(const std::vector<Choice>& of);  // of those here

  private:
    uint16_t NumberOf(const Choice& choice);

    std::vector<Choice> choices;
    std::deque<Font> fonts;
};

}  // namespace painter
