// What a group code tells about its value, and the numbers in values.
#include "platform/drawing/dxf/Group.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>

namespace dxf {

namespace {

struct KindRange {
    int first, last;
    ValueKind kind;
};

constexpr KindRange kKindRanges[] = {
    {0, 9, ValueKind::String},       {10, 59, ValueKind::Double},
    {60, 79, ValueKind::Int16},      {90, 99, ValueKind::Int32},
    {100, 109, ValueKind::String},   {110, 149, ValueKind::Double},
    {160, 169, ValueKind::Int64},    {170, 179, ValueKind::Int16},
    {210, 239, ValueKind::Double},   {270, 289, ValueKind::Int16},
    {290, 299, ValueKind::Bool},     {300, 309, ValueKind::String},
    {310, 319, ValueKind::Binary},   {320, 369, ValueKind::String},
    {370, 389, ValueKind::Int16},    {390, 399, ValueKind::String},
    {400, 409, ValueKind::Int16},    {410, 419, ValueKind::String},
    {420, 429, ValueKind::Int32},    {430, 439, ValueKind::String},
    {440, 459, ValueKind::Int32},    {460, 469, ValueKind::Double},
    {470, 489, ValueKind::String},   {999, 1003, ValueKind::String},
    {1004, 1004, ValueKind::Binary}, {1005, 1009, ValueKind::String},
    {1010, 1059, ValueKind::Double}, {1060, 1070, ValueKind::Int16},
    {1071, 1071, ValueKind::Int32},
};

constexpr int kCodeCount = 1072;

constexpr auto kKinds = [] {
    std::array<ValueKind, kCodeCount> kinds{};  // String
    for (const KindRange& range : kKindRanges)
        for (int code = range.first; code <= range.last; ++code) kinds[size_t(code)] = range.kind;
    return kinds;
}();

constexpr auto kHexDigits = [] {
    std::array<uint8_t, 256> digits{};
    digits.fill(0xFF);
    for (uint8_t i = 0; i < 10; ++i) digits[size_t('0' + i)] = i;
    for (uint8_t i = 0; i < 6; ++i)
        digits[size_t('A' + i)] = digits[size_t('a' + i)] = uint8_t(10 + i);
    return digits;
}();

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

template <class Number>
Number FromBytes(std::string_view bytes) {
    Number number{};
    std::memcpy(&number, bytes.data(), std::min(sizeof number, bytes.size()));
    return number;
}

int64_t BinaryInt(ValueKind kind, std::string_view bytes) {
    switch (kind) {
        case ValueKind::Int16:
            return FromBytes<int16_t>(bytes);
        case ValueKind::Int32:
            return FromBytes<int32_t>(bytes);
        case ValueKind::Int64:
            return FromBytes<int64_t>(bytes);
        case ValueKind::Bool:
            return FromBytes<uint8_t>(bytes);
        default:
            return 0;
    }
}

int64_t Truncated(double number) {
    return number > -9.2e18 && number < 9.2e18 ? int64_t(number) : 0;
}

template <class Number>
Number FromText(std::string_view text, Number fallback) {
    text = Trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : fallback;
}

bool HoldsText(const Group& group, ValueKind kind) {
    return group.format == Format::Ascii || kind == ValueKind::String;
}

}  // namespace

static_assert(std::endian::native == std::endian::little,
              "binary drawings are little-endian, and so are the conversions here");

ValueKind KindOfCode(int code) {
    return code >= 0 && code < kCodeCount ? kKinds[size_t(code)] : ValueKind::String;
}

int ParseCode(std::string_view line) {
    size_t at = 0;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
    const bool negative = at < line.size() && line[at] == '-';
    if (negative) ++at;
    const size_t firstDigit = at;
    int code = 0;
    while (at < line.size() && at - firstDigit < 6 && line[at] >= '0' && line[at] <= '9')
        code = code * 10 + (line[at++] - '0');
    if (at == firstDigit) return kNoCode;
    while (at < line.size() && IsBlank(line[at])) ++at;
    if (at != line.size()) return kNoCode;
    return negative ? -code : code;
}

uint64_t ParseHandle(std::string_view value) {
    if (!value.empty() && (IsBlank(value.front()) || IsBlank(value.back()))) value = Trimmed(value);
    if (value.size() > 16) return 0;
    uint64_t handle = 0;
    for (const char c : value) {
        const uint8_t digit = kHexDigits[uint8_t(c)];
        if (digit > 15) return 0;
        handle = handle << 4 | digit;
    }
    return handle;
}

int64_t Group::AsInt() const {
    const ValueKind kind = KindOfCode(code);
    if (kind == ValueKind::Double) return Truncated(AsDouble());
    return HoldsText(*this, kind) ? FromText<int64_t>(value, 0) : BinaryInt(kind, value);
}

double Group::AsDouble() const {
    const ValueKind kind = KindOfCode(code);
    if (HoldsText(*this, kind)) return FromText<double>(value, 0.0);
    return kind == ValueKind::Double ? FromBytes<double>(value) : double(BinaryInt(kind, value));
}

uint64_t Group::AsHandle() const { return ParseHandle(value); }

}  // namespace dxf
