#pragma once

#include <windows.h>

// Saves what the window shows (frame included) as a PNG file.
bool SaveWindowPng(HWND hwnd, const wchar_t* path);
// Saves a rectangle of the screen, such as a window with its open menu.
bool SaveScreenPng(const RECT& rect, const wchar_t* path);
