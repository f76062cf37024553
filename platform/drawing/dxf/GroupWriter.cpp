// Builds groups as bytes of either format.
#include <charconv>
#include <cstring>
#include <utility>

#include "platform/drawing/dxf/Group.h"

namespace dxf {

namespace {

template <class Number>
void AppendBytes(std::string& bytes, Number number) {
    char raw[sizeof number];
    std::memcpy(raw, &number, sizeof number);
    bytes.append(raw, sizeof raw);
}

void AppendPadded(std::string& bytes, std::string_view text, size_t width) {
    if (text.size() < width) bytes.append(width - text.size(), ' ');
    bytes += text;
}

// Whole numbers stand right-aligned in a width that goes with their size.
size_t WidthOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Int16:
        case ValueKind::Bool:
            return 6;
        case ValueKind::Int32:
        case ValueKind::Int64:
            return 9;
        default:
            return 0;
    }
}

// The shortest text that reads back as the same number, with a point in it.
std::string DoubleText(double value) {
    char text[40];
    const auto result = std::to_chars(text, text + sizeof text, value);
    std::string shortest(text, result.ptr);
    if (shortest.find_first_of(".en") == std::string::npos) shortest += ".0";
    return shortest;
}

std::string HexText(std::string_view binary) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    for (const unsigned char byte : binary) {
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 15];
    }
    return hex;
}

}  // namespace

void RefuseLineEnds(int code, std::string_view value, Format format) {
    const bool bad = format == Format::Ascii ? value.find_first_of("\r\n") != value.npos
                                             : value.find('\0') != value.npos;
    if (bad)
        throw Error("the value of a group " + std::to_string(code) +
                    " holds a raw line end or zero byte; encode it first");
}

GroupWriter::GroupWriter(Format format, bool wideCodes, std::string_view lineEnd)
    : format(format), wideCodes(wideCodes), lineEnd(lineEnd) {}

void GroupWriter::Code(int code) {
    if (format == Format::Ascii) {
        AppendPadded(bytes, std::to_string(code), 3);
        bytes += lineEnd;
    } else if (wideCodes) {
        AppendBytes(bytes, int16_t(code));
    } else if (code >= 0 && code < 255) {
        bytes += char(code);
    } else {
        bytes += '\xFF';
        AppendBytes(bytes, int16_t(code));
    }
}

GroupWriter& GroupWriter::String(int code, std::string_view encoded) {
    RefuseLineEnds(code, encoded, format);
    Code(code);
    bytes += encoded;
    if (format == Format::Ascii)
        bytes += lineEnd;
    else
        bytes += '\0';
    return *this;
}

GroupWriter& GroupWriter::Int(int code, int64_t value) {
    const ValueKind kind = KindOfCode(code);
    if (kind == ValueKind::Double) return Double(code, double(value));
    if (format == Format::Ascii || kind == ValueKind::String) {
        std::string text;
        AppendPadded(text, std::to_string(value), format == Format::Ascii ? WidthOf(kind) : 0);
        return String(code, text);
    }
    Code(code);
    switch (kind) {
        case ValueKind::Int16:
            AppendBytes(bytes, int16_t(value));
            break;
        case ValueKind::Int32:
            AppendBytes(bytes, int32_t(value));
            break;
        case ValueKind::Int64:
            AppendBytes(bytes, value);
            break;
        case ValueKind::Bool:
            AppendBytes(bytes, uint8_t(value));
            break;
        default:
            throw Error("group " + std::to_string(code) + " takes no whole number");
    }
    return *this;
}

GroupWriter& GroupWriter::Double(int code, double value) {
    const ValueKind kind = KindOfCode(code);
    if (format == Format::Ascii || kind == ValueKind::String)
        return String(code, DoubleText(value));
    if (kind != ValueKind::Double)
        throw Error("group " + std::to_string(code) + " takes no real number");
    Code(code);
    AppendBytes(bytes, value);
    return *this;
}

GroupWriter& GroupWriter::Handle(int code, uint64_t handle) {
    char text[17] = {};
    const auto result = std::to_chars(text, text + sizeof text, handle, 16);
    for (char* c = text; c != result.ptr; ++c)
        if (*c >= 'a') *c = char(*c - 'a' + 'A');
    return String(code, {text, size_t(result.ptr - text)});
}

GroupWriter& GroupWriter::Raw(std::string_view groups) {
    bytes += groups;
    return *this;
}

GroupWriter& GroupWriter::Chunk(int code, std::string_view binary) {
    if (format == Format::Ascii) return String(code, HexText(binary));
    if (binary.size() > 255)
        throw Error("a binary group " + std::to_string(code) + " holds 255 bytes at most");
    Code(code);
    bytes += char(binary.size());
    bytes += binary;
    return *this;
}

std::string GroupWriter::Take() { return std::exchange(bytes, {}); }

}  // namespace dxf
