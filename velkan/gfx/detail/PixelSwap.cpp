#include "velkan/gfx/detail/PixelSwap.h"

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

void SwapRedBlueLanes(void* bits, int width, int height, int stride) {
    for (int y = 0; y < height; ++y) {
        uint32_t* row = Row(bits, y, stride);
        int x = 0;
        for (; x + 8 <= width; x += 8) {
            uint32_t* p = row + x;
            for (int i = 0; i < 8; ++i) p[i] = Swap(p[i]);
        }
        ScalarRow(row, x, width);
    }
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
