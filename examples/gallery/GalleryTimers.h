#pragma once

#include <windows.h>

// The frame's timers: a single screenshot, and the tour's two steps.
const UINT_PTR kScreenshotTimer = 1;
const UINT_PTR kTourStepTimer = 2;
const UINT_PTR kTourShotTimer = 3;
