#pragma once

#include "Harness.h"

namespace Bench {

// Downloads through CHttpClient against a plain WinINet loop, both from a
// server thread on loopback, and URI parsing.
void RunHttpBenchmarks(Suite& suite);

}  // namespace Bench
