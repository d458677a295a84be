#pragma once

#include <windows.h>

#include <vector>

// Saves what the window shows (frame included) as a PNG file.
bool SaveWindowPng(HWND hwnd, const wchar_t* path);
// Saves several windows as one picture of the screen rectangle that holds
// them all, each copied from its own window DC in the given order (later
// ones on top). Wine keeps a surface per top-level window, so a window that
// another covers on the screen still shows in full.
bool SaveWindowsPng(const std::vector<HWND>& windows, const wchar_t* path);
