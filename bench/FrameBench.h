#pragma once

#include "Harness.h"

namespace Bench {

// A main frame's start-up and resizing against the same controls made and
// moved by hand.
void RunFrameBenchmarks(Suite& suite);

}  // namespace Bench
