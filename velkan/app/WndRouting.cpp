// The one window procedure and the built-in dispatcher.
#include "velkan/app/Wnd.h"

#include "velkan/app/detail/Unhandled.h"
#include "velkan/core/ObjectContext.h"
#include "velkan/gfx/ScopedDC.h"

namespace Velkan {

LRESULT CALLBACK CWnd::StaticWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    CWnd* wnd = GetContext().Find(hwnd);
    if (wnd == nullptr) {
        // The first message of a window that this thread is creating. A
        // window of our class made without an object gets default handling.
        wnd = TieWndBeingCreated(hwnd);
        if (wnd == nullptr) return ::DefWindowProcW(hwnd, msg, wParam, lParam);
        if (wnd->m_subclass &&
            reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hwnd, GWLP_WNDPROC)) != &CWnd::StaticWndProc) {
            wnd->InstallStaticWndProc();
        }
    }
    // Nothing may unwind into the system's dispatch: a handler's exception
    // is reported and the message gets its default processing.
    return Detail::Guarded(
        [&]() -> LRESULT {
            if (FilterMessage(*wnd, msg, wParam, lParam, result)) return result;
            if (wnd->WndProc(msg, wParam, lParam, result)) return result;
            return wnd->DefaultWndProc(msg, wParam, lParam);
        },
        [&]() -> LRESULT {
            CWnd* still = GetContext().Find(hwnd);
            if (still != nullptr && still->m_prevWndProc != nullptr)
                return ::CallWindowProcW(still->m_prevWndProc, hwnd, msg, wParam, lParam);
            return ::DefWindowProcW(hwnd, msg, wParam, lParam);
        });
}

CWnd* CWnd::TieWndBeingCreated(HWND hwnd) {
    CWnd*& beingCreated = GetWndBeingCreated();
    CWnd* wnd = beingCreated;
    beingCreated = nullptr;
    if (wnd == nullptr) return nullptr;
    wnd->m_hwnd = hwnd;
    AddToContext(hwnd, *wnd);
    return wnd;
}

BOOL CWnd::FilterMessage(CWnd& wnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    // A filter may add filters; those see the next message, not this one.
    const size_t count = wnd.m_filters.size();
    for (size_t i = 0; i < count; ++i) {
        if (wnd.m_filters[i]->WndMsgFilterProc(wnd.m_hwnd, msg, wParam, lParam, result)) return TRUE;
    }
    return FALSE;
}

LRESULT CWnd::DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
    case WM_CREATE:
        try {
            OnCreate();
        } catch (const std::exception& e) {
            // The exception becomes a failed creation; why is reported, and
            // CreateEx leaves ERROR_UNHANDLED_EXCEPTION as the last error.
            Detail::ReportUnhandledException(&e);
            CreationThrew() = true;
            return -1;
        } catch (...) {
            Detail::ReportUnhandledException(nullptr);
            CreationThrew() = true;
            return -1;
        }
        break;
    case WM_DESTROY:
        OnDestroy();
        break;
    case WM_NCDESTROY:
        OnNcDestroy();
        break;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        // A subclassed control paints itself unless asked to paint through.
        if (m_paintThrough || m_prevWndProc == nullptr) return RoutePaint(msg, wParam);
        break;
    case WM_ERASEBKGND: {
        CDC dc(reinterpret_cast<HDC>(wParam), CDC::PrivateToken());
        if (OnEraseBkgnd(dc)) return 1;
        break;
    }
    case WM_NOTIFY: {
        LRESULT result = 0;
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        CWnd* sender = header != nullptr ? FindByHandle(header->hwndFrom) : nullptr;
        if (sender != nullptr && sender->OnNotifyReflect(static_cast<UINT>(wParam), lParam, result)) return result;
        if (OnNotify(static_cast<UINT>(wParam), lParam, result)) return result;
        break;
    }
    case WM_COMMAND: {
        // Unlike WM_NOTIFY, a command the control handled itself still gets
        // default processing, and this window's OnCommand does not see it.
        CWnd* sender = FindByHandle(reinterpret_cast<HWND>(lParam));
        if (sender != nullptr && sender->OnCommandReflect(static_cast<UINT>(wParam), lParam)) break;
        if (OnCommand(static_cast<UINT>(wParam), lParam)) return 0;
        break;
    }
    default:
        break;
    }
    return DefaultProcessing(msg, wParam, lParam);
}

LRESULT CWnd::DefaultProcessing(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (m_prevWndProc != nullptr) return ::CallWindowProcW(m_prevWndProc, m_hwnd, msg, wParam, lParam);
    return FinalWndProc(msg, wParam, lParam);
}

LRESULT CWnd::FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    return ::DefWindowProcW(m_hwnd, msg, wParam, lParam);
}

LRESULT CWnd::RoutePaint(UINT msg, WPARAM wParam) {
    if (msg == WM_PRINTCLIENT) {
        CDC dc(reinterpret_cast<HDC>(wParam), CDC::PrivateToken());
        OnPaint(dc);
    } else if (::GetUpdateRect(m_hwnd, nullptr, FALSE)) {
        CPaintDC dc(*this);
        OnPaint(dc);
    } else {
        CClientDC dc(this);
        OnPaint(dc);
    }
    return 0;
}

}  // namespace Velkan
