// Velkan benchmarks: each case reports Velkan's median time against a
// baseline doing the same work in the same run.
#include <cstdio>

#include "Harness.h"
#include "CoreBench.h"
#include "GfxBench.h"
#include "HttpBench.h"
#include "StringBench.h"
#include "WndBench.h"

int main()
{
    Bench::Suite suite;
    Bench::RunStringBenchmarks(suite);
    Bench::RunCoreBenchmarks(suite);
    Bench::RunHttpBenchmarks(suite);
    Bench::RunGfxBenchmarks(suite);
    Bench::RunWndBenchmarks(suite);
    suite.Report();
    return 0;
}
