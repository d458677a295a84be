#include "velkan/controls/HyperLink.h"

#include <commctrl.h>

#include "velkan/app/detail/Unhandled.h"
#include "velkan/core/String.h"

namespace Velkan {

namespace {

const wchar_t kClassName[] = L"VlkHyperLink";
constexpr int kMaxText = 256;

}  // namespace

BOOL CHyperLink::RegisterWindowClass(HINSTANCE instance) {
    WNDCLASSEXW wc = {};
    wc.cbSize = sizeof(wc);
    wc.lpfnWndProc = &CHyperLink::VlkWndProc;
    wc.hInstance = instance;
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.lpszClassName = kClassName;
    wc.hCursor = ::LoadCursorW(nullptr, IDC_HAND);
    if (wc.hCursor == nullptr) wc.hCursor = ::LoadCursorW(instance, MAKEINTRESOURCEW(1));
    if (wc.hCursor == nullptr) {
        CString message;
        message.Format(L"Cursor not loaded. Error 0x%08x\n", static_cast<unsigned>(::GetLastError()));
        ::MessageBoxW(nullptr, message, L"message", MB_OK);
    }
    return ::RegisterClassExW(&wc) != 0;
}

LRESULT CALLBACK CHyperLink::VlkWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    auto* link = reinterpret_cast<CHyperLink*>(::GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (msg == WM_NCCREATE) {
        link = new CHyperLink();
        link->m_hwnd = hwnd;
        ::SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(link));
    }
    LRESULT result = 0;
    const BOOL handled = link != nullptr && Detail::Guarded([&] { return link->WndProc(msg, wParam, lParam, result); },
                                                            [] { return FALSE; });
    if (!handled) result = ::DefWindowProcW(hwnd, msg, wParam, lParam);
    if (msg == WM_NCDESTROY && link != nullptr) {
        ::SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
        delete link;
    }
    return result;
}

BOOL CHyperLink::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (msg) {
    case WM_NCCREATE:
        result = ::DefWindowProcW(m_hwnd, msg, wParam, lParam);
        if (result != 0) {
            OnNcCreate();
            result = 1;
        }
        return TRUE;
    case WM_CREATE:
        // Kept: asked and not used.
        ::IsDlgButtonChecked(::GetParent(m_hwnd), ::GetDlgCtrlID(m_hwnd));
        result = 0;
        return TRUE;
    case WM_SETFOCUS:
        OnSetFocus();
        result = 0;
        return TRUE;
    case WM_KILLFOCUS:
        OnKillFocus();
        result = 0;
        return TRUE;
    case WM_PAINT:
        OnPaint();
        result = 0;
        return TRUE;
    case WM_SETCURSOR:
        // The class cursor comes from default processing.
        OnSetCursor();
        return FALSE;
    case WM_SETFONT:
        OnSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam));
        result = 0;
        return TRUE;
    case WM_GETFONT:
        result = reinterpret_cast<LRESULT>(OnGetFont());
        return TRUE;
    case WM_NCDESTROY:
        OnNcDestroy();
        return FALSE;
    case WM_GETDLGCODE:
        result = DLGC_BUTTON;
        return TRUE;
    case BM_CLICK:
        OnBmClick();
        result = 0;
        return TRUE;
    case WM_KEYUP:
        OnKeyUp(wParam);
        result = 0;
        return TRUE;
    case WM_LBUTTONDOWN:
        OnLButtonDown();
        result = 0;
        return TRUE;
    case WM_MOUSELEAVE:
        OnMouseLeave();
        result = 0;
        return TRUE;
    default:
        return FALSE;
    }
}

void CHyperLink::OnNcCreate() {
    m_font = nullptr;
    m_underlineFont = nullptr;
    m_hot = FALSE;
    m_focused = FALSE;
}

void CHyperLink::OnNcDestroy() {
    if (m_underlineFont != nullptr) ::DeleteObject(m_underlineFont);
    m_underlineFont = nullptr;
}

void CHyperLink::OnSetFocus() {
    m_focused = TRUE;
    ::InvalidateRect(m_hwnd, nullptr, TRUE);
}

void CHyperLink::OnKillFocus() {
    m_focused = FALSE;
    ::InvalidateRect(m_hwnd, nullptr, TRUE);
}

void CHyperLink::OnSetCursor() {
    if (m_hot) return;
    TRACKMOUSEEVENT track = {sizeof(track), TME_LEAVE, m_hwnd, 0};
    ::TrackMouseEvent(&track);
    m_hot = TRUE;
    ::InvalidateRect(m_hwnd, nullptr, m_focused);
}

void CHyperLink::OnMouseLeave() {
    m_hot = FALSE;
    ::InvalidateRect(m_hwnd, nullptr, m_focused);
}

void CHyperLink::OnSetFont(HFONT font, BOOL redraw) {
    m_font = font;
    if (m_underlineFont != nullptr) ::DeleteObject(m_underlineFont);
    m_underlineFont = nullptr;
    LOGFONTW logFont = {};
    if (font != nullptr && ::GetObjectW(font, sizeof(logFont), &logFont) == sizeof(logFont)) {
        logFont.lfUnderline = TRUE;
        m_underlineFont = ::CreateFontIndirectW(&logFont);
    }
    if (redraw) ::InvalidateRect(m_hwnd, nullptr, TRUE);
}

void CHyperLink::OnLButtonDown() {
    if (!m_focused) ::SetFocus(m_hwnd);
    // The click acts on button-down.
    NotifyParent(static_cast<UINT>(NM_CLICK));
}

void CHyperLink::OnKeyUp(WPARAM key) {
    if (key == VK_SPACE) NotifyParent(static_cast<UINT>(NM_CLICK));
}

void CHyperLink::OnBmClick() {
    NotifyParent(static_cast<UINT>(NM_CLICK));
}

void CHyperLink::NotifyParent(UINT code) {
    NMHDR header = {};
    header.hwndFrom = m_hwnd;
    header.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(m_hwnd));
    header.code = code;
    ::SendMessageW(::GetParent(m_hwnd), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void CHyperLink::OnPaint() {
    PAINTSTRUCT paint;
    HDC hdc = ::BeginPaint(m_hwnd, &paint);
    RECT client;
    ::GetClientRect(m_hwnd, &client);
    wchar_t text[kMaxText] = {};
    const int length = ::GetWindowTextW(m_hwnd, text, kMaxText);
    if (length > 0) {
        HGDIOBJ oldFont = nullptr;
        if (!m_hot && m_font != nullptr) {
            oldFont = ::SelectObject(hdc, m_font);
        } else if (m_hot && m_underlineFont != nullptr) {
            oldFont = ::SelectObject(hdc, m_underlineFont);
            const COLORREF hot = ::GetSysColor(COLOR_HOTLIGHT);
            ::SetTextColor(hdc, hot != 0 ? hot : 0x00FF0000);
        }
        // Kept: an idle link is drawn in the DC's default text colour.
        ::SetBkColor(hdc, ::GetSysColor(COLOR_BTNFACE));
        TEXTMETRICW metrics = {};
        ::GetTextMetricsW(hdc, &metrics);
        // An arithmetic shift: rounds toward minus infinity.
        const int y = client.top + ((client.bottom - client.top - metrics.tmHeight) >> 1);
        const UINT state = ::IsWindowEnabled(m_hwnd) ? 0 : DSS_DISABLED;
        ::DrawStateW(hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(text), 0, client.left + 1, y, 0, 0,
                     DST_PREFIXTEXT | state);
        if (oldFont != nullptr) ::SelectObject(hdc, oldFont);
    }
    if (::GetFocus() == m_hwnd) ::DrawFocusRect(hdc, &client);
    ::EndPaint(m_hwnd, &paint);
}

}  // namespace Velkan
