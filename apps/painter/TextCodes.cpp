// The %% codes of texts.
#include "apps/painter/TextCodes.h"

#include <algorithm>
#include <optional>

namespace painter {

namespace {

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Lines that are open, by rule.
class Rules {
  public:
    explicit Rules(CodedText& text) : text(text) {}
    void Toggle(Rule rule) {
        std::optional<size_t>& begin = open[static_cast<size_t>(rule)];
        if (begin) {
            End(rule);
        } else {
            begin = text.characters.size();
        }
    }
    void EndAll() {
        for (const Rule rule : {Rule::Under, Rule::Over, Rule::Through}) End(rule);
    }

  private:
    void End(Rule rule) {
        std::optional<size_t>& begin = open[static_cast<size_t>(rule)];
        if (begin && *begin < text.characters.size()) {
            text.rules.push_back({rule, *begin, text.characters.size()});
        }
        begin.reset();
    }

    CodedText& text;
    std::optional<size_t> open[3];
};

std::optional<Rule> RuleOf(char16_t code) {
    switch (code) {
        case u'u':
        case u'U':
            return Rule::Under;
        case u'o':
        case u'O':
            return Rule::Over;
        case u'k':
        case u'K':
            return Rule::Through;
        default:
            return std::nullopt;
    }
}

}  // namespace

size_t SignOf(std::u16string_view text, char16_t& sign) {
    if (text.size() < 3) return 0;
    switch (text[2]) {
        case u'd':
        case u'D':
            sign = u'\u00B0';
            return 3;
        case u'p':
        case u'P':
            sign = u'\u00B1';
            return 3;
        case u'c':
        case u'C':
            sign = u'\u00D8';
            return 3;
        case u'%':
            sign = u'%';
            return 3;
        default:
            break;
    }
    if (text.size() < 5 || !IsDigit(text[2]) || !IsDigit(text[3]) || !IsDigit(text[4])) return 0;
    const int number = (text[2] - u'0') * 100 + (text[3] - u'0') * 10 + (text[4] - u'0');
    sign = static_cast<char16_t>(number);
    return 5;
}

CodedText DecodeText(std::u16string coded) {
    CodedText decoded;
    const auto isControl = [](char16_t c) { return c < u' '; };
    if (coded.find(u"%%") == std::u16string::npos) {
        std::replace_if(coded.begin(), coded.end(), isControl, u' ');
        decoded.characters = std::move(coded);
        return decoded;
    }
    Rules rules(decoded);
    for (std::u16string_view text = coded; !text.empty();) {
        size_t length = 1;
        char16_t sign = text[0];
        if (text.starts_with(u"%%")) {
            const auto rule = text.size() > 2 ? RuleOf(text[2]) : std::nullopt;
            if (rule) {
                rules.Toggle(*rule);
                text.remove_prefix(3);
                continue;
            }
            if (const size_t code = SignOf(text, sign)) length = code;
        }
        decoded.characters += isControl(sign) ? u' ' : sign;
        text.remove_prefix(length);
    }
    rules.EndAll();
    return decoded;
}

}  // namespace painter
