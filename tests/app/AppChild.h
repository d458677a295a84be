#pragma once

#include <windows.h>

namespace Testing {

// Exit-code bits of the --app-child process.
const int kChildSawFirstRun = 1;
const int kChildSawAlreadyRunning = 2;

// Runs this test program as a child application; returns its exit code,
// or -1 when it could not be run.
int RunAppChild();

}  // namespace Testing
