#pragma once

#include "Harness.h"

namespace Bench {

// Owner-drawn pop-up menus in the three looks against the system's own, and
// toolbar image lists built for a DPI.
void RunMenuBenchmarks(Suite& suite);

}  // namespace Bench
