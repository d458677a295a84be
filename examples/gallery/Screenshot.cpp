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

bool SaveBitmapPng(HBITMAP bitmap, const wchar_t* path) {
    CLSID png;
    if (!PngEncoder(png)) return false;
    Gdiplus::Bitmap image(bitmap, nullptr);
    return image.Save(path, &png, nullptr) == Gdiplus::Ok;
}

}  // namespace

bool SaveWindowPng(HWND hwnd, const wchar_t* path) {
    return SaveWindowsPng({hwnd}, path);
}

bool SaveWindowsPng(const std::vector<HWND>& windows, const wchar_t* path) {
    RECT all = {0, 0, 0, 0};
    for (HWND hwnd : windows) {
        RECT rect;
        ::GetWindowRect(hwnd, &rect);
        ::UnionRect(&all, &all, &rect);
    }
    HDC screen = ::GetDC(nullptr);
    HDC memory = ::CreateCompatibleDC(screen);
    HBITMAP bitmap = ::CreateCompatibleBitmap(screen, all.right - all.left, all.bottom - all.top);
    ::ReleaseDC(nullptr, screen);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    for (HWND hwnd : windows) {
        RECT rect;
        ::GetWindowRect(hwnd, &rect);
        HDC window = ::GetWindowDC(hwnd);
        ::BitBlt(memory, rect.left - all.left, rect.top - all.top, rect.right - rect.left, rect.bottom - rect.top,
                 window, 0, 0, SRCCOPY);
        ::ReleaseDC(hwnd, window);
    }
    ::SelectObject(memory, old);
    ::DeleteDC(memory);
    const bool saved = SaveBitmapPng(bitmap, path);
    ::DeleteObject(bitmap);
    return saved;
}
