#pragma once

#include "Harness.h"

namespace Bench {

// Message routing through CWnd against a plain window procedure, and
// handle look-ups against a pointer kept in the window's user data.
void RunWndBenchmarks(Suite& suite);

}  // namespace Bench
