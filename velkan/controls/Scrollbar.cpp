#include "velkan/controls/Scrollbar.h"

namespace Velkan {

HWND CScrollbar::Create(CWnd& parent, UINT id, const RECT& rect, DWORD style) {
    return CreateEx(0, L"SCROLLBAR", nullptr, WS_CHILD | WS_VISIBLE | style, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, &parent,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)));
}

HWND CScrollbar::CreateSizingGrip(CWnd& parent) {
    // The system's metrics already follow the display's DPI.
    const int cx = ::GetSystemMetrics(SM_CXVSCROLL);
    const int cy = ::GetSystemMetrics(SM_CYHSCROLL);
    const CRect client = parent.GetClientRect();
    // WS_CLIPSIBLINGS keeps controls that overlap the corner from being
    // painted over by the box and the other way round.
    return CreateEx(0, L"SCROLLBAR", nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBS_SIZEBOX | SBS_SIZEGRIP,
                    client.right - cx, client.bottom - cy, cx, cy, &parent, nullptr);
}

}  // namespace Velkan
