// How values are written: without recursion, since a list can be a million deep.
#include "host/lisp/Printer.h"

#include <charconv>
#include <vector>

namespace lisp {
namespace {

void AppendEscaped(std::u16string& out, const std::u16string& text) {
    static constexpr std::u16string_view plain = u"\\\"\n\r\t\x1B";
    static constexpr std::u16string_view names = u"\\\"nrte";
    out += u'"';
    for (char16_t c : text) {
        const std::size_t known = plain.find(c);
        if (known != plain.npos) {
            out += {u'\\', names[known]};
        } else if (c < 0x20) {
            out += {u'\\', u'0', static_cast<char16_t>(u'0' + c / 8),
                    static_cast<char16_t>(u'0' + c % 8)};
        } else {
            out += c;
        }
    }
    out += u'"';
}

void AppendAtom(std::u16string& out, const Value& value, Quoting quoting) {
    switch (value.kind()) {
        case Kind::Nil:
            out += u"nil";
            return;
        case Kind::Integer:
            out += Widen(std::to_string(value.AsInteger()));
            return;
        case Kind::Real:
            out += RealText(value.AsReal());
            return;
        case Kind::Symbol:
            out += value.SymbolName();
            return;
        case Kind::Function:
            out += u"#<USUBR>";
            return;
        case Kind::Native:
        case Kind::Special:
            out += u"#<SUBR>";
            return;
        case Kind::List:
            return;
        case Kind::String:
            break;
    }
    if (quoting == Quoting::Readable)
        AppendEscaped(out, value.AsString());
    else
        out += value.AsString();
}

// Writes what stands behind an element of the lists that are open, up to the next element, which
// it gives; null at the end of all.
const Value* NextElement(std::u16string& out, std::vector<const Value*>& rests, Quoting quoting) {
    while (!rests.empty()) {
        const Value& rest = *rests.back();
        if (rest.Is(Kind::List)) {
            out += u' ';
            rests.back() = &rest.Tail();
            return &rest.Head();
        }
        if (!rest.IsNil()) {
            out += u" . ";
            AppendAtom(out, rest, quoting);
        }
        out += u')';
        rests.pop_back();
    }
    return nullptr;
}

}  // namespace

std::u16string Widen(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

std::u16string RealText(double number) {
    char digits[32];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 6).ptr;
    std::u16string text = Widen({digits, end});
    if (text.find_first_not_of(u"-0123456789") == text.npos) text += u".0";
    return text;
}

bool AppendPrinted(std::u16string& out, const Value& value, Quoting quoting, std::size_t limit) {
    std::vector<const Value*> rests;
    for (const Value* next = &value; next;) {
        if (out.size() > limit) return false;
        if (next->Is(Kind::List)) {
            out += u'(';
            rests.push_back(&next->Tail());
            next = &next->Head();
        } else {
            AppendAtom(out, *next, quoting);
            next = NextElement(out, rests, quoting);
        }
    }
    return out.size() <= limit;
}

std::u16string Excerpt(const Value& value) {
    constexpr std::size_t length = 80;
    std::u16string text;
    if (!AppendPrinted(text, value, Quoting::Readable, length))
        text = text.substr(0, length) + u"...";
    return text;
}

}  // namespace lisp
