// Auto-resizing, centring, screen checks, DPI and owned pop-ups.
#include "velkan/app/Wnd.h"
#include "velkan/app/detail/Unhandled.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>

#include "velkan/core/ObjectContext.h"

namespace Velkan {

namespace {

// One axis of AutoResizeWindow: near/far are the initial edges (left/right
// or top/bottom), extent0 the initial parent extent, extent the new one.
void ResizeAxis(DWORD mask, DWORD anchorNear, DWORD anchorFar, DWORD scale, LONG near0, LONG far0,
                LONG extent0, LONG extent, LONG& nearEdge, LONG& farEdge) {
    const LONG size0 = std::abs(far0 - near0);
    if ((mask & anchorNear) && (mask & anchorFar) && !(mask & scale)) {
        // Both anchors without scaling keep the size and move the centre
        // proportionally: intended, not a stretch.
        nearEdge = ::MulDiv((near0 + far0) / 2, extent, extent0) - size0 / 2;
        farEdge = nearEdge + size0;
        return;
    }
    bool nearFree = false, farFree = false;
    if (mask & anchorNear) {
        nearEdge = near0;
    } else if (mask & scale) {
        nearEdge = ::MulDiv(near0, extent, extent0);
    } else {
        nearEdge = near0;
        nearFree = true;
    }
    if (mask & anchorFar) {
        farEdge = far0 - extent0 + extent;
    } else if (mask & scale) {
        farEdge = ::MulDiv(far0, extent, extent0);
    } else {
        farEdge = far0;
        farFree = true;
    }
    if (!nearFree && farFree) farEdge = nearEdge + size0;
    if (nearFree && !farFree) nearEdge = farEdge - size0;
}

struct ResizeWalk {
    CSize size;
};

BOOL CALLBACK ResizeDescendant(HWND hwnd, LPARAM lParam) {
    CWnd* wnd = CWnd::FindByHandle(hwnd);
    if (wnd == nullptr || wnd->GetAutoResizingMask() == 0) return TRUE;
    // Called back from EnumChildWindows: nothing may unwind through it.
    return Detail::Guarded(
        [&]() -> BOOL {
            wnd->AutoResizeWindow(reinterpret_cast<ResizeWalk*>(lParam)->size);
            return TRUE;
        },
        []() -> BOOL { return TRUE; });
}

}  // namespace

BOOL CWnd::WndMsgFilterProc(HWND, UINT msg, WPARAM, LPARAM lParam, LRESULT&) {
    if (msg == WM_SIZE && m_autoResizing) {
        ResizeWalk walk{CSize(LOWORD(lParam), HIWORD(lParam))};
        ::EnumChildWindows(m_hwnd, &ResizeDescendant, reinterpret_cast<LPARAM>(&walk));
    }
    return FALSE;
}

void CWnd::AutoResizeWindow(const CSize& newParentSize) {
    if (m_autoResizingMask == 0 || !::IsWindow(m_hwnd)) return;
    HWND parent = ::GetParent(m_hwnd);
    if (parent == nullptr) return;

    if (!m_layoutCaptured) {
        // The first call only records where the window starts.
        RECT rect;
        ::GetWindowRect(m_hwnd, &rect);
        if (::IsRectEmpty(&rect)) return;
        ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
        m_initialRect = rect;
        m_initialParentSize = newParentSize;
        m_layoutCaptured = TRUE;
        return;
    }

    const DWORD mask = m_autoResizingMask;
    RECT r;
    ResizeAxis(mask, AnchorLeft, AnchorRight, ScaleHorizontal, m_initialRect.left, m_initialRect.right,
               m_initialParentSize.cx, newParentSize.cx, r.left, r.right);
    ResizeAxis(mask, AnchorTop, AnchorBottom, ScaleVertical, m_initialRect.top, m_initialRect.bottom,
               m_initialParentSize.cy, newParentSize.cy, r.top, r.bottom);
    ::SetWindowPos(m_hwnd, nullptr, r.left, r.top, std::abs(r.right - r.left), std::abs(r.bottom - r.top),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    if (mask & RepaintAfterResize) ::InvalidateRect(m_hwnd, nullptr, TRUE);
}

void CWnd::CenterWindow() const {
    RECT window;
    ::GetWindowRect(m_hwnd, &window);
    const LONG width = window.right - window.left;
    const LONG height = window.bottom - window.top;

    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    ::GetMonitorInfoW(::MonitorFromWindow(m_hwnd, MONITOR_DEFAULTTONEAREST), &info);
    const RECT work = info.rcWork;
    RECT reference = work;
    if (HWND parent = ::GetParent(m_hwnd)) {
        RECT parentRect;
        ::GetWindowRect(parent, &parentRect);
        ::IntersectRect(&reference, &parentRect, &work);
    }

    LONG x = reference.left + ((reference.right - reference.left) - width) / 2;
    LONG y = reference.top + ((reference.bottom - reference.top) - height) / 2;
    x = std::min(std::max(x, work.left), work.right - width);
    y = std::min(std::max(y, work.top), work.bottom - height);
    ::SetWindowPos(m_hwnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::IsOffScreen(const RECT& rect) {
    if (::IsRectEmpty(&rect)) return TRUE;
    HMONITOR monitor = ::MonitorFromRect(&rect, MONITOR_DEFAULTTONULL);
    if (monitor == nullptr) return TRUE;
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (!::GetMonitorInfoW(monitor, &info)) return TRUE;
    // A window whose only visible part is a sliver at the very bottom of
    // the work area cannot be grabbed: count it as off screen.
    RECT usable = info.rcWork;
    usable.bottom -= 8;
    RECT overlap;
    return !::IntersectRect(&overlap, &rect, &usable);
}

BOOL CWnd::IsOffScreen() const {
    RECT rect;
    ::GetWindowRect(m_hwnd, &rect);
    return IsOffScreen(rect);
}

int CWnd::GetDpi() const {
    using GetDpiForWindowFn = UINT(WINAPI*)(HWND);
    // Found once for the process; a failed look-up is tried again later.
    static std::atomic<GetDpiForWindowFn> getDpiForWindow{nullptr};
    GetDpiForWindowFn fn = getDpiForWindow.load();
    if (fn == nullptr) {
        fn = reinterpret_cast<GetDpiForWindowFn>(
            reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
        if (fn != nullptr) getDpiForWindow.store(fn);
    }
    if (fn != nullptr) return static_cast<int>(fn(m_hwnd));
    HDC dc = ::GetDC(m_hwnd);
    int dpi = ::GetDeviceCaps(dc, LOGPIXELSX);
    ::ReleaseDC(m_hwnd, dc);
    return dpi;
}

namespace {

struct PopupWalk {
    HWND owner;
    std::vector<CWnd*> popups;
};

BOOL CALLBACK CollectPopup(HWND hwnd, LPARAM lParam) {
    auto* walk = reinterpret_cast<PopupWalk*>(lParam);
    if (hwnd == walk->owner || ::GetWindow(hwnd, GW_OWNER) != walk->owner) return TRUE;
    CWnd* wnd = CWnd::FindByHandle(hwnd);
    if (wnd == nullptr) return TRUE;
    wchar_t className[32] = {};
    ::GetClassNameW(hwnd, className, 32);
    if (::lstrcmpW(className, L"tooltips_class32") != 0) walk->popups.push_back(wnd);
    return TRUE;
}

const CString& PopupStateProperty() {
    static const CString name(L"tessaline.velkan.pwstate");
    return name;
}

}  // namespace

std::vector<CWnd*> CWnd::GetOwnedPopupWindows() const {
    PopupWalk walk{m_hwnd, {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), &CollectPopup, reinterpret_cast<LPARAM>(&walk));
    return walk.popups;
}

void CWnd::EnableOwnedPopupWindows(BOOL enable) {
    const wchar_t* property = PopupStateProperty().GetString();
    const HANDLE disabledByUs = reinterpret_cast<HANDLE>(1);
    for (CWnd* popup : GetOwnedPopupWindows()) {
        HWND hwnd = popup->GetHwnd();
        if (!enable) {
            // Only what we disable is marked, so a pop-up that was already
            // disabled stays disabled when we enable again.
            if (::IsWindowEnabled(hwnd)) {
                ::EnableWindow(hwnd, FALSE);
                ::SetPropW(hwnd, property, disabledByUs);
            } else {
                ::RemovePropW(hwnd, property);
            }
        } else {
            if (::GetPropW(hwnd, property) == disabledByUs) ::EnableWindow(hwnd, TRUE);
            ::RemovePropW(hwnd, property);
        }
    }
}

BOOL CWnd::ToggleWindow() const {
    if (::IsWindowVisible(m_hwnd)) {
        ::ShowWindow(m_hwnd, SW_HIDE);
        return FALSE;
    }
    ::ShowWindow(m_hwnd, SW_SHOWNORMAL);
    return TRUE;
}

CSize CWnd::GetClientSize() const {
    RECT r = {};
    ::GetClientRect(m_hwnd, &r);
    return CSize(r.right - r.left, r.bottom - r.top);
}

CSize CWnd::GetWindowSize() const {
    RECT r = {};
    ::GetWindowRect(m_hwnd, &r);
    return CSize(r.right - r.left, r.bottom - r.top);
}

namespace {

HWND ZOrderHandle(CWnd::ZOrder order) {
    switch (order) {
    case CWnd::ZOrderBottom: return HWND_BOTTOM;
    case CWnd::ZOrderTopMost: return HWND_TOPMOST;
    case CWnd::ZOrderNoTopMost: return HWND_NOTOPMOST;
    default: return HWND_TOP;
    }
}

}  // namespace

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags) const {
    return ::SetWindowPos(m_hwnd, insertAfter != nullptr ? insertAfter->m_hwnd : nullptr, x, y, cx, cy, flags);
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, const POINT& pos, const SIZE& size, UINT flags) const {
    return SetWindowPos(insertAfter, pos.x, pos.y, size.cx, size.cy, flags);
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, const RECT& rect, UINT flags) const {
    return SetWindowPos(insertAfter, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, flags);
}

BOOL CWnd::SetWindowPos(ZOrder insertAfter, int x, int y, int cx, int cy, UINT flags) const {
    return ::SetWindowPos(m_hwnd, ZOrderHandle(insertAfter), x, y, cx, cy, flags);
}

BOOL CWnd::SetWindowPos(ZOrder insertAfter, const POINT& pos, const SIZE& size, UINT flags) const {
    return SetWindowPos(insertAfter, pos.x, pos.y, size.cx, size.cy, flags);
}

BOOL CWnd::SetWindowPos(ZOrder insertAfter, const RECT& rect, UINT flags) const {
    return SetWindowPos(insertAfter, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, flags);
}

BOOL CWnd::GetMonitorInfoW(MONITORINFO& info, DWORD flags) const {
    info.cbSize = sizeof(MONITORINFO);
    return ::GetMonitorInfoW(::MonitorFromWindow(m_hwnd, flags), &info);
}

BOOL CWnd::FlashWindowEx(DWORD flags, UINT count, DWORD timeout) const {
    FLASHWINFO info = {sizeof(FLASHWINFO), m_hwnd, flags, count, timeout};
    return ::FlashWindowEx(&info);
}

BOOL CWnd::TrackMouseEvent(DWORD flags, DWORD hoverTime) const {
    TRACKMOUSEEVENT tme = {sizeof(TRACKMOUSEEVENT), flags, m_hwnd, hoverTime};
    return ::TrackMouseEvent(&tme);
}

}  // namespace Velkan
