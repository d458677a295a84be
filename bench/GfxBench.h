#pragma once

#include "Harness.h"

namespace Bench {

// The three channel swaps against each other and memcpy, SVG rendering and
// image lists from a bundle.
void RunGfxBenchmarks(Suite& suite);

}  // namespace Bench
