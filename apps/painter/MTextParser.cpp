// Reading the format codes of multi-line texts.
#include "apps/painter/MTextParser.h"

#include <algorithm>
#include <cstdlib>

#include "apps/painter/Colours.h"
#include "apps/painter/TextCodes.h"

namespace painter {

namespace {

constexpr double kLargest = 1e6;

double NumberOf(std::u16string_view text) {
    std::string narrow;
    for (const char16_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
    const double value = std::strtod(narrow.c_str(), nullptr);
    return std::abs(value) < kLargest ? value : 0;
}

class Parser {
  public:
    Parser(std::u16string_view text, const TextFormat& format, Fonts& fonts)
        : text(text), format(format), fonts(fonts) {
        paragraphs.emplace_back();
    }

    std::vector<TextParagraph> Parse() {
        while (!text.empty()) Step();
        EndWord();
        return std::move(paragraphs);
    }

  private:
    void Step() {
        const char16_t c = text[0];
        if (c == u'\\' && text.size() > 1) {
            const char16_t code = text[1];
            text.remove_prefix(2);
            Code(code);
            return;
        }
        char16_t sign;
        if (text.starts_with(u"%%")) {
            if (const size_t length = SignOf(text, sign)) {
                word += sign;
                text.remove_prefix(length);
                return;
            }
        }
        text.remove_prefix(1);
        Character(c);
    }

    void Character(char16_t c) {
        switch (c) {
            case u'{':
                EndWord();
                if (formats.size() < kDeepest) formats.push_back(format);
                return;
            case u'}':
                EndWord();
                if (formats.empty()) return;
                format = formats.back();
                formats.pop_back();
                return;
            case u' ':
                return Blank(TextPiece::Kind::Space);
            case u'\t':
                return Blank(TextPiece::Kind::Tab);
            case u'\n':
                return NewParagraph(false);
            default:
                if (c >= u' ') word += c;
        }
    }

    void Code(char16_t code) {
        switch (code) {
            case u'\\':
            case u'{':
            case u'}':
                word += code;
                return;
            case u'~':
                word += u'\u00A0';
                return;
            case u'P':
            case u'X':
                return NewParagraph(false);
            case u'N':
                return NewParagraph(true);
            case u'L':
            case u'l':
                return Set(format.under, code == u'L');
            case u'O':
            case u'o':
                return Set(format.over, code == u'O');
            case u'K':
            case u'k':
                return Set(format.through, code == u'K');
            default:
                return ValueCode(code);
        }
    }

    // Codes whose value ends at a semicolon. A code that nobody knows stands for itself.
    void ValueCode(char16_t code) {
        constexpr std::u16string_view kCodes = u"AHWQTCcfFSp";
        if (kCodes.find(code) == std::u16string_view::npos) {
            word += u'\\';
            word += code;
            return;
        }
        EndWord();
        if (code == u'S') return Stack();
        const std::u16string_view value = Value();
        switch (code) {
            case u'A':
                format.vertical = std::clamp(static_cast<int>(NumberOf(value)), 0, 2);
                return;
            case u'H':
                return Height(value);
            case u'W':
                return Positive(format.width, NumberOf(value));
            case u'T':
                return Positive(format.tracking, NumberOf(value));
            case u'Q':
                format.oblique = NumberOf(value);
                return;
            case u'C':
            case u'c':
                return SetColour(code, value);
            case u'f':
            case u'F':
                return FontOf(value);
            default:
                return Paragraph(value);
        }
    }

    std::u16string_view Value() {
        const size_t end = std::min(text.find(u';'), text.size());
        const std::u16string_view value = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        return value;
    }

    void Set(bool& flag, bool value) {
        EndWord();
        flag = value;
    }

    static void Positive(double& target, double value) {
        if (value > 0) target = value;
    }

    void Height(std::u16string_view value) {
        const double number = NumberOf(value);
        const bool factor = value.ends_with(u'x') || value.ends_with(u'X');
        const double height = factor ? format.height * number : number;
        if (height < kLargest) Positive(format.height, height);
    }

    // \c gives blue, green, red in one number.
    void SetColour(char16_t code, std::u16string_view value) {
        const int number = static_cast<int>(std::min(std::abs(NumberOf(value)), kLargest));
        if (code == u'C') {
            format.colour = ColourOfIndex(number);
        } else {
            const auto bgr = static_cast<uint32_t>(
                std::strtoul(std::string(value.begin(), value.end()).c_str(), nullptr, 10));
            format.colour = 0xFF000000u | (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
        }
        format.ownColour = true;
    }

    // Family|b1|i0|c0|p34, or the name of a file.
    void FontOf(std::u16string_view value) {
        const std::u16string_view family = value.substr(0, value.find(u'|'));
        const bool bold = value.find(u"|b1") != std::u16string_view::npos;
        const bool italic = value.find(u"|i1") != std::u16string_view::npos;
        format.font = fonts.OfFile(family, bold, italic);
    }

    // xqc,i2,l4: alignment and indents, in em units of the text's height.
    void Paragraph(std::u16string_view value) {
        while (!value.empty()) {
            const size_t end = std::min(value.find(u','), value.size());
            std::u16string_view part = value.substr(0, end);
            value.remove_prefix(std::min(end + 1, value.size()));
            if (part.starts_with(u'x')) part.remove_prefix(1);
            if (part.size() < 2) continue;
            Property(part[0], part.substr(1));
        }
    }

    void Property(char16_t name, std::u16string_view value) {
        TextParagraph& paragraph = paragraphs.back();
        const double length = NumberOf(value);
        if (name == u'q') {
            using Alignment = TextParagraph::Alignment;
            paragraph.alignment = value[0] == u'c'   ? Alignment::Centre
                                  : value[0] == u'r' ? Alignment::Right
                                                     : Alignment::Left;
        }
        if (name == u'i') paragraph.firstIndent = length;
        if (name == u'l') paragraph.indent = length;
        if (name == u'r') paragraph.rightIndent = length;
    }

    // Up to the semicolon; a divider behind a backslash is a character. A caret and a capital
    // came as a control character.
    void Stack() {
        TextPiece piece;
        piece.kind = TextPiece::Kind::Stack;
        std::u16string* part = &piece.characters;
        while (!text.empty() && text[0] != u';') {
            char16_t c = text[0];
            text.remove_prefix(1);
            const bool escaped = c == u'\\' && !text.empty();
            if (escaped) {
                c = text[0];
                text.remove_prefix(1);
            }
            const bool control = c < u' ' && !escaped;
            const bool divider = !escaped && (control || c == u'^' || c == u'/' || c == u'#');
            if (divider && piece.divider == 0) {
                piece.divider = control ? u'^' : c;
                part = &piece.lower;
                if (control) *part += static_cast<char16_t>(c + 0x40);
                continue;
            }
            if (c >= u' ') *part += c;
        }
        if (!text.empty()) text.remove_prefix(1);
        Add(std::move(piece));
    }

    void Blank(TextPiece::Kind kind) {
        EndWord();
        TextPiece piece;
        piece.kind = kind;
        piece.characters = u" ";
        Add(std::move(piece));
    }

    // The properties of a paragraph hold until they are changed.
    void NewParagraph(bool column) {
        EndWord();
        TextParagraph next = paragraphs.back();
        next.pieces.clear();
        next.newColumn = column;
        paragraphs.push_back(std::move(next));
    }

    void EndWord() {
        if (word.empty()) return;
        TextPiece piece;
        piece.characters = std::move(word);
        word.clear();
        Add(std::move(piece));
    }

    void Add(TextPiece piece) {
        piece.format = format;
        paragraphs.back().pieces.push_back(std::move(piece));
    }

    static constexpr size_t kDeepest = 100;

    std::u16string_view text;
    TextFormat format;
    Fonts& fonts;
    std::vector<TextFormat> formats;  // of the open braces
    std::vector<TextParagraph> paragraphs;
    std::u16string word;
};

}  // namespace

std::vector<TextParagraph> ParseMText(std::u16string_view text, const TextFormat& format,
                                      Fonts& fonts) {
    return Parser(text, format, fonts).Parse();
}

}  // namespace painter
