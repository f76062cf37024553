// Reads groups one after the other from the bytes of either format.
#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/drawing/dxf/Group.h"

#if defined(__x86_64__)
#include <emmintrin.h>
#endif

namespace dxf {

namespace {

// Codes as nearly all programs write them: one to three digits padded with blanks to three, or four
// digits. -1 for all other lines, which ParseCode reads.
int ParseUsualCode(const char* line, uint64_t length) {
    if (length == 3) {
        const unsigned hundreds = unsigned(line[0]) - '0', tens = unsigned(line[1]) - '0';
        const unsigned ones = unsigned(line[2]) - '0';
        if (ones <= 9 && tens <= 9 && hundreds <= 9) return int(hundreds * 100 + tens * 10 + ones);
        if (ones <= 9 && tens <= 9 && line[0] == ' ') return int(tens * 10 + ones);
        if (ones <= 9 && line[1] == ' ' && line[0] == ' ') return int(ones);
    }
    if (length == 0 || length > 4) return -1;
    int code = 0;
    bool digits = false;
    for (uint64_t i = 0; i < length; ++i) {
        const unsigned digit = unsigned(line[i]) - '0';
        if (digit <= 9) {
            code = code * 10 + int(digit);
            digits = true;
        } else if (digits || line[i] != ' ') {
            return -1;
        }
    }
    return digits ? code : -1;
}

#if defined(__x86_64__)
uint32_t MatchMask(const char* data, char byte) {
    const auto* from = reinterpret_cast<const __m128i*>(data);
    const __m128i wanted = _mm_set1_epi8(byte);
    const int low = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(from), wanted));
    const int high = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(from + 1), wanted));
    return uint32_t(low) | uint32_t(high) << 16;
}
#endif

constexpr uint64_t kUnknown = ~uint64_t(0);

uint64_t FixedSize(ValueKind kind) {
    switch (kind) {
        case ValueKind::Double:
        case ValueKind::Int64:
            return 8;
        case ValueKind::Int32:
            return 4;
        case ValueKind::Int16:
            return 2;
        default:
            return 1;
    }
}

}  // namespace

GroupReader::GroupReader(Format format, bool wideCodes, std::string_view record, uint64_t from,
                         char lineEnd)
    : record(record), position(from), format(format), wideCodes(wideCodes), lineEnd(lineEnd) {}

bool GroupReader::Next(Group& group) {
    return format == Format::Ascii ? NextAscii(group) : NextBinary(group);
}

uint64_t GroupReader::LineEnd(uint64_t from) const {
    const void* found = std::memchr(record.data() + from, lineEnd, record.size() - from);
    return found ? uint64_t(static_cast<const char*>(found) - record.data()) : record.size();
}

// The next two line ends where they are near enough to be seen in one look, as they mostly are.
inline void GroupReader::FindNearEnds(uint64_t begin, uint64_t& first, uint64_t& second) const {
#if defined(__x86_64__)
    if (record.size() - begin < 32) return;
    uint32_t ends = MatchMask(record.data() + begin, lineEnd);
    if (ends == 0) return;
    first = begin + uint64_t(std::countr_zero(ends));
    ends &= ends - 1;
    if (ends != 0) second = begin + uint64_t(std::countr_zero(ends));
#endif
}

bool GroupReader::NextAscii(Group& group) {
    const char* const data = record.data();
    while (position < record.size()) {
        const uint64_t begin = position;
        uint64_t codeEnd = kUnknown, valueEnd = kUnknown;
        FindNearEnds(begin, codeEnd, valueEnd);
        if (codeEnd == kUnknown) codeEnd = LineEnd(begin);
        const uint64_t codeStop = codeEnd - (codeEnd > begin && data[codeEnd - 1] == '\r');
        int code = ParseUsualCode(data + begin, codeStop - begin);
        if (code < 0) code = ParseCode(record.substr(begin, codeStop - begin));
        if (code == kNoCode) {
            position = std::min<uint64_t>(codeEnd + 1, record.size());
            continue;
        }
        const uint64_t valueBegin = codeEnd + 1;
        if (valueBegin >= record.size()) break;
        if (valueEnd == kUnknown) valueEnd = LineEnd(valueBegin);
        const uint64_t valueStop = valueEnd - (valueEnd > valueBegin && data[valueEnd - 1] == '\r');
        position = std::min<uint64_t>(valueEnd + 1, record.size());
        group = {code, format, {data + valueBegin, valueStop - valueBegin}, begin, position};
        return true;
    }
    broken = position < record.size();
    return false;
}

bool GroupReader::NextBinary(Group& group) {
    const uint64_t begin = position;
    if (begin >= record.size()) return false;
    broken = true;  // until the group proves whole
    const auto byte = [this](uint64_t at) { return uint8_t(record[at]); };
    uint64_t at = begin + 1;
    int code = byte(begin);
    if (wideCodes || code == 255) {
        if (!wideCodes) ++at;
        if (at >= record.size()) return false;
        code = int16_t(byte(at - 1) | byte(at) << 8);
        ++at;
    }
    const ValueKind kind = KindOfCode(code);
    uint64_t size = FixedSize(kind), behind = 0;
    if (kind == ValueKind::String) {
        const void* zero = std::memchr(record.data() + at, 0, record.size() - at);
        if (!zero) return false;
        size = uint64_t(static_cast<const char*>(zero) - record.data()) - at;
        behind = 1;
    } else if (kind == ValueKind::Binary) {
        if (at >= record.size()) return false;
        size = byte(at++);
    }
    if (record.size() - at < size + behind) return false;
    position = at + size + behind;
    group = {code, format, record.substr(at, size), begin, position};
    broken = false;
    return true;
}

}  // namespace dxf
