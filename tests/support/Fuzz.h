#pragma once

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace Testing {

// The seed and the number of rounds of a randomised test: fixed by default
// so that CI is deterministic, chosen through VELKAN_FUZZ_SEED and
// VELKAN_FUZZ_ROUNDS for a longer or different run. The seed is printed so
// that a failure can be replayed.
struct FuzzRun {
    unsigned seed;
    int rounds;
};

inline FuzzRun FuzzSettings(const char* name, int defaultRounds) {
    wchar_t text[16] = {};
    FuzzRun run = {20261124u, defaultRounds};
    if (::GetEnvironmentVariableW(L"VELKAN_FUZZ_SEED", text, 16)) run.seed = static_cast<unsigned>(_wtoi(text));
    if (::GetEnvironmentVariableW(L"VELKAN_FUZZ_ROUNDS", text, 16)) run.rounds = _wtoi(text);
    std::printf("%s: seed %u, %d rounds\n", name, run.seed, run.rounds);
    return run;
}

}  // namespace Testing
