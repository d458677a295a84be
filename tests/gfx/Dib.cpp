#include "Dib.h"

namespace Testing {

Dib::Dib(int w, int h, int bitsPerPixel, uint32_t fill) : width(w), height(h), bpp(bitsPerPixel) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = w;
    info.bmiHeader.biHeight = -h;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
    info.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    bits = static_cast<uint8_t*>(pixels);
    stride = ((w * bitsPerPixel + 31) / 32) * 4;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) Set(x, y, fill);
}

Dib::~Dib() {
    ::DeleteObject(bitmap);
}

uint32_t Dib::At(int x, int y) const {
    const uint8_t* p = bits + y * stride + x * (bpp / 8);
    uint32_t a = bpp == 32 ? p[3] : 0;
    return (a << 24) | (uint32_t(p[2]) << 16) | (uint32_t(p[1]) << 8) | p[0];
}

void Dib::Set(int x, int y, uint32_t argb) {
    uint8_t* p = bits + y * stride + x * (bpp / 8);
    p[0] = argb & 0xFF;
    p[1] = (argb >> 8) & 0xFF;
    p[2] = (argb >> 16) & 0xFF;
    if (bpp == 32) p[3] = argb >> 24;
}

Canvas::Canvas(int width, int height, uint32_t fill) : dib(width, height, 32, fill) {
    dc = ::CreateCompatibleDC(nullptr);
    old = ::SelectObject(dc, dib.bitmap);
}

Canvas::~Canvas() {
    ::SelectObject(dc, old);
    ::DeleteDC(dc);
}

}  // namespace Testing
