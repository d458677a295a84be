#include "velkan/controls/Scrollbar.h"

namespace Velkan {

HWND CScrollbar::CreateSizingGrip(CWnd& parent) {
    // The system's metrics already follow the display's DPI.
    const int cx = ::GetSystemMetrics(SM_CXVSCROLL);
    const int cy = ::GetSystemMetrics(SM_CYHSCROLL);
    const CRect client = parent.GetClientRect();
    // WS_CLIPSIBLINGS keeps controls that overlap the corner from being
    // painted over by the box and the other way round.
    return CreateEx(0, WC_SCROLLBARW, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBS_SIZEBOX | SBS_SIZEGRIP,
                    client.right - cx, client.bottom - cy, cx, cy, &parent, nullptr);
}

}  // namespace Velkan
