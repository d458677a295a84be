// The routing that every window driven by a dialog procedure shares
// (template dialogs and property pages): their results reach the dialog
// manager through SetDialogMsgResult, and FALSE means "not handled".
#include "velkan/app/Wnd.h"

#include "velkan/app/detail/Unhandled.h"
#include "velkan/core/ObjectContext.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/ScopedDC.h"

namespace Velkan {

INT_PTR CWnd::RouteDialogMessage(CWnd& wnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    // A handler's exception is reported; FALSE lets the dialog manager do
    // its default processing.
    return Detail::Guarded(
        [&]() -> INT_PTR {
            LRESULT result = 0;
            if (FilterMessage(wnd, msg, wParam, lParam, result)) return wnd.SetDialogMsgResult(msg, result);
            result = 0;
            if (wnd.WndProc(msg, wParam, lParam, result)) return wnd.SetDialogMsgResult(msg, result);
            return wnd.DefaultWndProc(msg, wParam, lParam);
        },
        []() -> INT_PTR { return FALSE; });
}

LRESULT CWnd::DialogPaint() {
    // A subclassed dialog paints through its own procedure.
    if (m_prevWndProc != nullptr) return TRUE;
    if (::GetUpdateRect(m_hwnd, nullptr, FALSE)) {
        CPaintDC dc(*this);
        OnPaint(dc);
    } else {
        CClientDC dc(this);
        OnPaint(dc);
    }
    return TRUE;
}

BOOL CWnd::DialogEraseBkgnd(WPARAM hdc) {
    CDC dc(reinterpret_cast<HDC>(hdc), CDC::PrivateToken());
    return OnEraseBkgnd(dc);
}

BOOL CWnd::DialogNotify(WPARAM wParam, LPARAM lParam, LRESULT& answer) {
    LRESULT result = 0;
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    CWnd* sender = header != nullptr ? FindByHandle(header->hwndFrom) : nullptr;
    if (sender != nullptr && sender != this && sender->OnNotifyReflect(static_cast<UINT>(wParam), lParam, result)) {
        answer = SetDialogMsgResult(WM_NOTIFY, result);
        return TRUE;
    }
    result = 0;
    if (OnNotify(static_cast<UINT>(wParam), lParam, result)) {
        answer = SetDialogMsgResult(WM_NOTIFY, result);
        return TRUE;
    }
    return FALSE;
}

BOOL CWnd::DialogCommand(WPARAM wParam, LPARAM lParam) {
    CWnd* sender = FindByHandle(reinterpret_cast<HWND>(lParam));
    if (sender != nullptr && sender->OnCommandReflect(static_cast<UINT>(wParam), lParam)) return TRUE;
    return OnCommand(static_cast<UINT>(wParam), lParam);
}

}  // namespace Velkan
