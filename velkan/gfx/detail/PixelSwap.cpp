#include "velkan/gfx/detail/PixelSwap.h"

#include <cpuid.h>
#include <tmmintrin.h>

#include <cstdint>

namespace Velkan {
namespace Detail {

namespace {

inline uint32_t Swap(uint32_t p) {
    return (p & 0xFF00FF00u) | ((p & 0xFFu) << 16) | ((p >> 16) & 0xFFu);
}

void ScalarRow(uint32_t* row, int from, int width) {
    for (int x = from; x < width; ++x) row[x] = Swap(row[x]);
}

uint32_t* Row(void* bits, int y, int stride) {
    return reinterpret_cast<uint32_t*>(static_cast<unsigned char*>(bits) + static_cast<ptrdiff_t>(y) * stride);
}

}  // namespace

__attribute__((target("ssse3"))) void SwapRedBlueShuffle(void* bits, int width, int height, int stride) {
    const __m128i mask = _mm_setr_epi8(2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15);
    for (int y = 0; y < height; ++y) {
        uint32_t* row = Row(bits, y, stride);
        int x = 0;
        for (; x + 4 <= width; x += 4) {
            __m128i* p = reinterpret_cast<__m128i*>(row + x);
            _mm_storeu_si128(p, _mm_shuffle_epi8(_mm_loadu_si128(p), mask));
        }
        ScalarRow(row, x, width);
    }
}

namespace {

bool HasSse2() {
    static const bool sse2 = [] {
        unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
        return __get_cpuid(1, &eax, &ebx, &ecx, &edx) && ((edx >> 26) & 1);
    }();
    return sse2;
}

// Two 128-bit registers of 32-bit lanes: eight pixels per step.
__attribute__((target("sse2"))) void LanesSse2(void* bits, int width, int height, int stride) {
    const __m128i keep = _mm_set1_epi32(static_cast<int>(0xFF00FF00u));
    const __m128i low = _mm_set1_epi32(0xFF);
    for (int y = 0; y < height; ++y) {
        uint32_t* row = Row(bits, y, stride);
        int x = 0;
        for (; x + 8 <= width; x += 8) {
            __m128i* p = reinterpret_cast<__m128i*>(row + x);
            for (int half = 0; half < 2; ++half) {
                const __m128i v = _mm_loadu_si128(p + half);
                const __m128i swapped = _mm_or_si128(
                    _mm_and_si128(v, keep),
                    _mm_or_si128(_mm_slli_epi32(_mm_and_si128(v, low), 16), _mm_and_si128(_mm_srli_epi32(v, 16), low)));
                _mm_storeu_si128(p + half, swapped);
            }
        }
        ScalarRow(row, x, width);
    }
}

}  // namespace

void SwapRedBlueLanes(void* bits, int width, int height, int stride) {
    if (HasSse2()) {
        LanesSse2(bits, width, height, stride);
        return;
    }
    // Processors without SSE2: the same shifts and masks, one lane at a time.
    for (int y = 0; y < height; ++y) ScalarRow(Row(bits, y, stride), 0, width);
}

void SwapRedBlueScalar(void* bits, int width, int height, int stride) {
    for (int y = 0; y < height; ++y) {
        unsigned char* p = reinterpret_cast<unsigned char*>(Row(bits, y, stride));
        for (int x = 0; x < width; ++x, p += 4) {
            const unsigned char r = p[0];
            p[0] = p[2];
            p[2] = r;
        }
    }
}

}  // namespace Detail
}  // namespace Velkan
