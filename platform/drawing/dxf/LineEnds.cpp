// Finds line ends many bytes at a time: SSE2 as the baseline of x86-64, AVX2 where the processor
// has it, one byte at a time on other processors.
#include "platform/drawing/dxf/LineEnds.h"

#include <algorithm>
#include <bit>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace dxf {

namespace {

#if defined(__x86_64__)

#define KV_INLINE inline __attribute__((always_inline))

KV_INLINE uint64_t MaskSse2(const char* data, char terminator) {
    const __m128i wanted = _mm_set1_epi8(terminator);
    uint64_t mask = 0;
    for (int part = 0; part < 4; ++part) {
        const auto* from = reinterpret_cast<const __m128i*>(data + 16 * part);
        const int bits = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(from), wanted));
        mask |= uint64_t(uint32_t(bits)) << (16 * part);
    }
    return mask;
}

__attribute__((target("avx2"))) inline uint64_t MaskAvx2(const char* data, char terminator) {
    const __m256i wanted = _mm256_set1_epi8(terminator);
    const auto* from = reinterpret_cast<const __m256i*>(data);
    const int low = _mm256_movemask_epi8(_mm256_cmpeq_epi8(_mm256_loadu_si256(from), wanted));
    const int high = _mm256_movemask_epi8(_mm256_cmpeq_epi8(_mm256_loadu_si256(from + 1), wanted));
    return uint64_t(uint32_t(low)) | uint64_t(uint32_t(high)) << 32;
}

// Eight places at a time without asking, since 64 bytes mostly hold about so many lines; what is
// written beyond the count is overwritten next.
KV_INLINE size_t* WritePlaces(uint64_t mask, size_t base, size_t* out) {
    const int count = std::popcount(mask);
    for (int done = 0; done < count; done += 8)
        for (int i = 0; i < 8; ++i, mask &= mask - 1)
            out[done + i] = base + size_t(std::countr_zero(mask));
    return out + count;
}

KV_INLINE uint64_t Within(uint64_t mask, size_t at, size_t size) {
    return size - at >= 64 ? mask : mask & ((uint64_t(1) << (size - at)) - 1);
}

size_t FindSse2(const char* data, size_t size, char terminator, size_t base, size_t* out) {
    size_t* next = out;
    for (size_t at = 0; at < size; at += 64)
        next = WritePlaces(Within(MaskSse2(data + at, terminator), at, size), base + at, next);
    return size_t(next - out);
}

__attribute__((target("avx2,bmi,popcnt"))) size_t FindAvx2(const char* data, size_t size,
                                                           char terminator, size_t base,
                                                           size_t* out) {
    size_t* next = out;
    for (size_t at = 0; at < size; at += 64)
        next = WritePlaces(Within(MaskAvx2(data + at, terminator), at, size), base + at, next);
    return size_t(next - out);
}

bool HasAvx2() {
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
           __builtin_cpu_supports("popcnt");
}

const auto kFind = HasAvx2() ? FindAvx2 : FindSse2;

#else

size_t kFind(const char* data, size_t size, char terminator, size_t base, size_t* out) {
    size_t* next = out;
    for (size_t at = 0; at < size; ++at)
        if (data[at] == terminator) *next++ = base + at;
    return size_t(next - out);
}

#endif

}  // namespace

size_t FindLineEnds(const char* data, size_t size, char terminator, size_t base, size_t* out) {
    return kFind(data, size, terminator, base, out);
}

uint64_t CountByte(const char* data, uint64_t size, char byte) {
    return uint64_t(std::count(data, data + size, byte));
}

}  // namespace dxf
