// From source text to values: without recursion, since a source can be nested a million deep.
#include "host/lisp/Reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/lisp/LetterCase.h"
#include "host/lisp/Printer.h"

namespace lisp {
namespace {

bool IsBlank(char16_t c) { return c <= u' ' || c == 0xFEFF; }

bool EndsToken(char16_t c) {
    return IsBlank(c) || std::u16string_view(u"()'\";").find(c) != std::u16string_view::npos;
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

}  // namespace

std::optional<Value> ParseNumber(std::u16string_view token) {
    std::string digits;
    for (char16_t c : token) {
        if (c > 0x7F) return {};
        digits += static_cast<char>(c);
    }
    if (digits.starts_with('+')) digits.erase(0, 1);
    if (digits.find_first_not_of("+-.0123456789eE") != digits.npos ||
        std::none_of(digits.begin(), digits.end(), IsDigit))
        return {};
    const char* end = digits.data() + digits.size();
    std::int32_t integer = 0;
    const auto asInteger = std::from_chars(digits.data(), end, integer);
    if (asInteger.ptr == end && asInteger.ec == std::errc()) return Value::Integer(integer);
    double real = 0;
    const auto asReal = std::from_chars(digits.data(), end, real);
    if (asReal.ptr != end) return {};
    if (asReal.ec == std::errc()) return Value::Real(real);
    if (asReal.ec == std::errc::result_out_of_range)
        throw Error(u"number out of range: " + std::u16string(token.substr(0, 80)));
    return {};
}

Reader::Reader(Interpreter& interpreter, std::u16string_view source)
    : interpreter_(interpreter),
      source_(source),
      open_(CountingAllocator<Open>(interpreter.heap())) {}

std::optional<Value> Reader::Next() {
    while (SkipBlank()) {
        interpreter_.CheckInterrupt();
        const char16_t c = source_[at_];
        std::optional<Value> whole;
        if (c == u'(') {
            Begin(false);
        } else if (c == u'\'') {
            Begin(true);
        } else if (c == u')') {
            whole = Add(Close());
        } else if (c == u'"') {
            whole = Add(ReadString());
        } else if (const std::u16string_view token = ReadToken(); token == u".") {
            Dot();
        } else {
            whole = Add(ReadAtom(token));
        }
        if (whole) return whole;
    }
    if (!open_.empty())
        Fail(open_.back().quote ? u"nothing behind the quote" : u"missing )", open_.back().line);
    return {};
}

bool Reader::SkipBlank() {
    while (at_ < source_.size()) {
        if (source_.substr(at_).starts_with(u";|")) {
            const std::size_t end = source_.find(u"|;", at_ + 2);
            if (end == source_.npos) Fail(u"comment ;| without |;", line_);
            line_ += std::count(source_.begin() + at_, source_.begin() + end, u'\n');
            at_ = end + 2;
        } else if (source_[at_] == u';') {
            at_ = std::min(source_.find(u'\n', at_), source_.size());
        } else if (IsBlank(source_[at_])) {
            line_ += source_[at_++] == u'\n';
        } else {
            return true;
        }
    }
    return false;
}

void Reader::Begin(bool quote) {
    ++at_;
    open_.push_back({NoValues(interpreter_.heap()), line_, quote});
}

void Reader::Dot() {
    if (open_.empty() || open_.back().quote || open_.back().items.empty() ||
        open_.back().behindDot >= 0)
        Fail(u"misplaced dot", line_);
    open_.back().behindDot = 0;
}

Value Reader::Close() {
    if (open_.empty()) Fail(u") without (", line_);
    Open& list = open_.back();
    if (list.quote) Fail(u"nothing behind the quote", list.line);
    if (list.behindDot >= 0 && list.behindDot != 1) Fail(u"misplaced dot", line_);
    ++at_;
    Value tail;
    if (list.behindDot == 1) {
        tail = list.items.back();
        list.items.pop_back();
    }
    Value value = interpreter_.List(list.items, tail);
    open_.pop_back();
    return value;
}

std::optional<Value> Reader::Add(Value value) {
    while (!open_.empty() && open_.back().quote) {
        const Value parts[] = {interpreter_.Intern(u"QUOTE"), value};
        value = interpreter_.List(parts);
        open_.pop_back();
    }
    if (open_.empty()) return value;
    Open& list = open_.back();
    list.items.push_back(value);
    if (list.behindDot >= 0) ++list.behindDot;
    return {};
}

std::u16string_view Reader::ReadToken() {
    const std::size_t start = at_;
    while (at_ < source_.size() && !EndsToken(source_[at_])) ++at_;
    return source_.substr(start, at_ - start);
}

Value Reader::ReadAtom(std::u16string_view token) {
    if (const auto number = ParseNumber(token)) return *number;
    const std::u16string name = UpperCase(token);
    return name == u"NIL" ? Value() : interpreter_.Intern(name);
}

Value Reader::ReadString() {
    const std::size_t line = line_;
    std::u16string text;
    for (++at_; at_ < source_.size();) {
        const char16_t c = source_[at_++];
        if (c == u'"') return interpreter_.String(text);
        line_ += c == u'\n';
        text += c == u'\\' ? ReadEscape() : c;
    }
    Fail(u"string without its closing quote", line);
}

char16_t Reader::ReadEscape() {
    const std::u16string_view rest = source_.substr(at_);
    if (rest.empty()) return u'\\';
    unsigned code = 0;
    if (rest.size() >= 7 && (rest.starts_with(u"U+") || rest.starts_with(u"u+"))) {
        char digits[4];
        std::copy_n(rest.begin() + 2, 4, digits);
        at_ += 6;
        if (std::from_chars(digits, digits + 4, code, 16).ptr != digits + 4)
            Fail(u"\\U+ without four hexadecimal digits", line_);
        return static_cast<char16_t>(code);
    }
    std::size_t count = 0;
    for (; count < 3 && count < rest.size() && rest[count] >= u'0' && rest[count] < u'8'; ++count)
        code = code * 8 + (rest[count] - u'0');
    at_ += std::max<std::size_t>(count, 1);
    if (count) return static_cast<char16_t>(code);
    const std::size_t known = std::u16string_view(u"nrte").find(rest[0]);
    return known == std::u16string_view::npos ? rest[0] : u"\n\r\t\x1B"[known];
}

void Reader::Fail(std::u16string_view what, std::size_t line) const {
    throw Error(u"malformed input in line " + Widen(std::to_string(line)) + u": " +
                std::u16string(what));
}

}  // namespace lisp
