#pragma once

struct NSVGimage;

namespace Velkan {
namespace Detail {

// Dashed strokes that run far outside the image cost the rasteriser one
// dash at a time over their whole length, and past a few million units its
// single-precision walk stops advancing. Every stretch of such a stroke that
// lies outside a circle well around the image (twice its half-diagonal,
// stroke width included) is replaced by a short route around that circle:
// the same turning around the image, so a fill keeps its winding, and a
// length equal modulo the dash pattern, so every dash that can be seen keeps
// its place. Paths with curves out there, closed paths that start out there
// and open paths that are also filled are left as they are.
void ShortenFarDashedStrokes(NSVGimage& image);

}  // namespace Detail
}  // namespace Velkan
