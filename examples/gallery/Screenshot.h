#pragma once

#include <windows.h>

// Saves what a shown window displays (frame and children included) as PNG.
bool SaveWindowPng(HWND hwnd, const wchar_t* path);
