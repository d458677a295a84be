#pragma once

#include <windows.h>

#include <cstdint>

namespace Testing {

// A top-down DIB section of 32 or 24 bits per pixel, filled with one
// colour given as B, G, R, A bytes in one 0xAARRGGBB value.
struct Dib {
    Dib(int width, int height, int bitsPerPixel = 32, uint32_t fill = 0);
    ~Dib();
    Dib(const Dib&) = delete;
    Dib& operator=(const Dib&) = delete;

    // Pixel as 0xAARRGGBB (alpha 0 for 24-bit).
    uint32_t At(int x, int y) const;
    void Set(int x, int y, uint32_t argb);

    HBITMAP bitmap = nullptr;
    uint8_t* bits = nullptr;
    int width, height, bpp, stride;
};

// A memory DC with a 32-bit DIB of its own selected, cleared to a colour.
struct Canvas {
    Canvas(int width, int height, uint32_t fill = 0xFF000000);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    uint32_t At(int x, int y) const { return dib.At(x, y); }
    Dib dib;
    HDC dc;
    HGDIOBJ old;
};

}  // namespace Testing
