#pragma once

#include "velkan/core/Export.h"

namespace Velkan {
namespace Detail {

// Exchange the first and third byte of every 32-bit pixel (R, G, B, A to
// B, G, R, A), rows of width pixels stride bytes apart. Three ways to the
// same result: a byte shuffle of four pixels at a time (needs SSSE3),
// 32-bit shifts and masks on eight pixels at a time, and pixel by pixel.
VELKAN_API void SwapRedBlueShuffle(void* bits, int width, int height, int stride);
VELKAN_API void SwapRedBlueLanes(void* bits, int width, int height, int stride);
VELKAN_API void SwapRedBlueScalar(void* bits, int width, int height, int stride);

}  // namespace Detail
}  // namespace Velkan
