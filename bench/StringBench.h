#pragma once

#include "Harness.h"

namespace Bench {

// CString against std::wstring doing the same work.
void RunStringBenchmarks(Suite& suite);

}  // namespace Bench
