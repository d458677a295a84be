#pragma once

// Parents and screen captures for the control tests.

#include <windows.h>
#include <commctrl.h>

#include <cstdint>
#include <vector>

#include "velkan/app/Wnd.h"

namespace Testing {

// A top-level Velkan window, so that its default WM_NOTIFY processing
// reflects notifications to the sending control's object. It records the
// notifications and commands that nothing else handled. Shown at the top
// left of the screen when its pixels are to be read.
class Parent : public Velkan::CWnd {
public:
    explicit Parent(bool shown = false, int cx = 400, int cy = 300) {
        CreateEx(0, L"VlkWnd", L"controls", WS_POPUP | WS_CLIPCHILDREN | (shown ? WS_VISIBLE : 0), 0, 0, cx, cy,
                 nullptr, nullptr);
    }

    std::vector<NMHDR> notifications;
    std::vector<WPARAM> commands;

protected:
    BOOL OnNotify(UINT, LPARAM nmhdr, LRESULT& result) override {
        notifications.push_back(*reinterpret_cast<const NMHDR*>(nmhdr));
        result = 0;
        return TRUE;
    }
    BOOL OnCommand(UINT wParam, LPARAM) override {
        commands.push_back(wParam);
        return TRUE;
    }
    using Velkan::CWnd::OnNotify;
};

// What a shown window shows, as 0xRRGGBB, row by row from the top.
struct Capture {
    explicit Capture(HWND hwnd) {
        ::UpdateWindow(hwnd);
        RECT client;
        ::GetClientRect(hwnd, &client);
        width = client.right;
        height = client.bottom;
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        HDC source = ::GetDC(hwnd);
        HDC memory = ::CreateCompatibleDC(source);
        HGDIOBJ old = ::SelectObject(memory, bitmap);
        ::BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
        ::GdiFlush();
        const auto* first = static_cast<const uint32_t*>(bits);
        pixels.assign(first, first + width * height);
        for (uint32_t& pixel : pixels) pixel &= 0xFFFFFFu;
        ::SelectObject(memory, old);
        ::DeleteDC(memory);
        ::ReleaseDC(hwnd, source);
        ::DeleteObject(bitmap);
    }
    uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
    int Count(uint32_t rgb) const {
        int n = 0;
        for (uint32_t pixel : pixels) n += pixel == rgb;
        return n;
    }

    int width = 0, height = 0;
    std::vector<uint32_t> pixels;
};

// A COLORREF (0x00BBGGRR) as a captured pixel (0xRRGGBB).
inline uint32_t Rgb(COLORREF colour) {
    return (GetRValue(colour) << 16) | (GetGValue(colour) << 8) | GetBValue(colour);
}

}  // namespace Testing
