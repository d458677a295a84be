// Velkan benchmarks: each case reports Velkan's median time against a
// baseline doing the same work in the same run.
//
//   velkan_bench.exe [GROUP...]   all groups, or only the named ones
//                                 (string, core, http, gfx, wnd, menu, frame)
#include <cstdio>
#include <cstring>

#include "Harness.h"
#include "CoreBench.h"
#include "FrameBench.h"
#include "GfxBench.h"
#include "HttpBench.h"
#include "MenuBench.h"
#include "StringBench.h"
#include "WndBench.h"

int main(int argc, char** argv)
{
    struct Group {
        const char* name;
        void (*run)(Bench::Suite&);
    };
    const Group groups[] = {
        {"string", &Bench::RunStringBenchmarks}, {"core", &Bench::RunCoreBenchmarks},
        {"http", &Bench::RunHttpBenchmarks},     {"gfx", &Bench::RunGfxBenchmarks},
        {"wnd", &Bench::RunWndBenchmarks},       {"menu", &Bench::RunMenuBenchmarks},
        {"frame", &Bench::RunFrameBenchmarks},
    };
    Bench::Suite suite;
    for (const Group& group : groups) {
        bool wanted = argc < 2;
        for (int i = 1; i < argc; ++i) wanted = wanted || std::strcmp(argv[i], group.name) == 0;
        if (wanted) group.run(suite);
    }
    suite.Report();
    return 0;
}
