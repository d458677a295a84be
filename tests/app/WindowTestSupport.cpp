#include "WindowTestSupport.h"

namespace Testing {

namespace {

const wchar_t kPlainClass[] = L"VelkanTestPlain";
const wchar_t kPaintCount[] = L"VelkanTestPaints";

LRESULT CALLBACK PlainProc(HWND hwnd, UINT msg, WPARAM w, LPARAM l) {
    if (msg == WM_PAINT) {
        PAINTSTRUCT ps;
        ::BeginPaint(hwnd, &ps);
        ::EndPaint(hwnd, &ps);
        auto n = reinterpret_cast<INT_PTR>(::GetPropW(hwnd, kPaintCount));
        ::SetPropW(hwnd, kPaintCount, reinterpret_cast<HANDLE>(n + 1));
        return 0;
    }
    if (msg == WM_NCDESTROY) ::RemovePropW(hwnd, kPaintCount);
    return ::DefWindowProcW(hwnd, msg, w, l);
}

}  // namespace

HWND CreatePlainWindow(HWND parent, DWORD style) {
    static ATOM atom = [] {
        WNDCLASSEXW wc = {};
        wc.cbSize = sizeof(wc);
        wc.lpfnWndProc = &PlainProc;
        wc.hInstance = ::GetModuleHandleW(nullptr);
        wc.lpszClassName = kPlainClass;
        return ::RegisterClassExW(&wc);
    }();
    (void)atom;
    return ::CreateWindowExW(0, kPlainClass, L"plain", style, 10, 10, 120, 80, parent, nullptr,
                             ::GetModuleHandleW(nullptr), nullptr);
}

int PlainWindowPaints(HWND hwnd) {
    return static_cast<int>(reinterpret_cast<INT_PTR>(::GetPropW(hwnd, kPaintCount)));
}

HWND CreateProbe(ProbeWnd& wnd, Velkan::CWnd* parent, int cx, int cy) {
    DWORD style = parent != nullptr ? WS_CHILD | WS_VISIBLE : WS_OVERLAPPEDWINDOW;
    return wnd.CreateEx(0, L"VlkWnd", L"probe", style, 0, 0, cx, cy, parent, nullptr);
}

}  // namespace Testing
