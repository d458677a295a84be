#include "Screenshot.h"

#include <gdiplus.h>

#include <vector>

namespace {

bool PngEncoder(CLSID& clsid) {
    UINT count = 0, bytes = 0;
    if (Gdiplus::GetImageEncodersSize(&count, &bytes) != Gdiplus::Ok || bytes == 0) return false;
    std::vector<BYTE> buffer(bytes);
    auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    if (Gdiplus::GetImageEncoders(count, bytes, encoders) != Gdiplus::Ok) return false;
    for (UINT i = 0; i < count; ++i) {
        if (lstrcmpW(encoders[i].MimeType, L"image/png") == 0) {
            clsid = encoders[i].Clsid;
            return true;
        }
    }
    return false;
}

// Copies width x height pixels at (x, y) of the DC into a PNG file.
bool SavePng(HDC source, int x, int y, int width, int height, const wchar_t* path) {
    HDC memory = ::CreateCompatibleDC(source);
    HBITMAP bitmap = ::CreateCompatibleBitmap(source, width, height);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, source, x, y, SRCCOPY);
    ::SelectObject(memory, old);
    ::DeleteDC(memory);

    bool saved = false;
    CLSID png;
    if (PngEncoder(png)) {
        Gdiplus::Bitmap image(bitmap, nullptr);
        saved = image.Save(path, &png, nullptr) == Gdiplus::Ok;
    }
    ::DeleteObject(bitmap);
    return saved;
}

}  // namespace

bool SaveWindowPng(HWND hwnd, const wchar_t* path) {
    RECT rect;
    ::GetWindowRect(hwnd, &rect);
    HDC window = ::GetWindowDC(hwnd);
    const bool saved = SavePng(window, 0, 0, rect.right - rect.left, rect.bottom - rect.top, path);
    ::ReleaseDC(hwnd, window);
    return saved;
}

bool SaveScreenPng(const RECT& rect, const wchar_t* path) {
    HDC screen = ::GetDC(nullptr);
    const bool saved = SavePng(screen, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, path);
    ::ReleaseDC(nullptr, screen);
    return saved;
}
