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

}  // namespace

bool SaveWindowPng(HWND hwnd, const wchar_t* path) {
    RECT rect;
    ::GetWindowRect(hwnd, &rect);
    const int width = rect.right - rect.left, height = rect.bottom - rect.top;
    HDC window = ::GetWindowDC(hwnd);
    HDC memory = ::CreateCompatibleDC(window);
    HBITMAP bitmap = ::CreateCompatibleBitmap(window, width, height);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, window, 0, 0, SRCCOPY);
    ::SelectObject(memory, old);
    ::DeleteDC(memory);
    ::ReleaseDC(hwnd, window);

    bool saved = false;
    CLSID png;
    if (PngEncoder(png)) {
        Gdiplus::Bitmap image(bitmap, nullptr);
        saved = image.Save(path, &png, nullptr) == Gdiplus::Ok;
    }
    ::DeleteObject(bitmap);
    return saved;
}
