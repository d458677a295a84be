#pragma once

#include "Harness.h"

namespace Bench {

// MD5 against CryptoAPI, and path operations against shlwapi.
void RunCoreBenchmarks(Suite& suite);

}  // namespace Bench
