// Window text, numbers in window text, measuring, class names and themes.
#include "velkan/app/Wnd.h"

#include <uxtheme.h>

namespace Velkan {

std::string CWnd::GetTextA() const {
    int length = ::GetWindowTextLengthA(m_hwnd);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    int copied = ::GetWindowTextA(m_hwnd, &text[0], length + 1);
    text.resize(static_cast<size_t>(copied > 0 ? copied : 0));
    return text;
}

std::wstring CWnd::GetTextW() const {
    int length = ::GetWindowTextLengthW(m_hwnd);
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    int copied = ::GetWindowTextW(m_hwnd, &text[0], length + 1);
    text.resize(static_cast<size_t>(copied > 0 ? copied : 0));
    return text;
}

CString CWnd::GetWindowTextW() const {
    int length = ::GetWindowTextLengthW(m_hwnd);
    CString text(length);
    wchar_t* buffer = text.LockBuffer(length);
    if (buffer != nullptr) ::GetWindowTextW(m_hwnd, buffer, length + 1);
    text.UnlockBuffer();
    return text;
}

CString CWnd::GetDlgItemText(int id) const {
    HWND item = ::GetDlgItem(m_hwnd, id);
    int length = ::GetWindowTextLengthW(item);
    CString text(length);
    wchar_t* buffer = text.LockBuffer(length);
    if (buffer != nullptr) ::GetWindowTextW(item, buffer, length + 1);
    text.UnlockBuffer();
    return text;
}

int CWnd::GetInt(BOOL* ok) const {
    if (ok != nullptr) *ok = FALSE;
    const CString text = GetWindowTextW();
    if (text.IsNullOrEmpty()) return 0;
    const wchar_t* p = text.GetString();
    bool negative = false;
    if (*p == L'+' || *p == L'-') {
        negative = *p == L'-';
        ++p;
    }
    int value = 0;
    for (; *p != L'\0'; ++p) {
        if (*p < L'0' || *p > L'9') return 0;
        // Accumulate without signed overflow; a wrapped value shows up as
        // a decrease.
        int next = static_cast<int>(static_cast<unsigned>(value) * 10u + static_cast<unsigned>(*p - L'0'));
        if (next < value) return 0;
        value = next;
    }
    if (ok != nullptr) *ok = TRUE;
    return negative ? -value : value;
}

BOOL CWnd::TryGetInt(int* value) const {
    BOOL ok = FALSE;
    int parsed = GetInt(&ok);
    if (value != nullptr) *value = parsed;
    return ok;
}

BOOL CWnd::SetInt(int value) const {
    return ::SetWindowTextW(m_hwnd, CString::FormatS(L"%d", value).GetString());
}

LRESULT CWnd::SetDialogMsgResult(UINT msg, LRESULT result) const {
    switch (msg) {
    // A dialog procedure returns the result of these messages itself.
    case WM_CHARTOITEM:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_QUERYDRAGICON:
    case WM_INITDIALOG:
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
        return result;
    default:
        ::SetWindowLongPtrW(m_hwnd, DWLP_MSGRESULT, result);
        return TRUE;
    }
}

CSize CWnd::GetWindowTextExtentPoint32(LPCWSTR text, int count) const {
    CSize size;
    HDC dc = ::GetDC(m_hwnd);
    HGDIOBJ old = ::SelectObject(dc, GetFont());
    ::GetTextExtentPoint32W(dc, text, count, &size);
    ::SelectObject(dc, old);
    ::ReleaseDC(m_hwnd, dc);
    return size;
}

BOOL CWnd::GetWindowTextMetrics(TEXTMETRICW& metrics) const {
    HDC dc = ::GetDC(m_hwnd);
    HGDIOBJ old = ::SelectObject(dc, GetFont());
    BOOL ok = ::GetTextMetricsW(dc, &metrics);
    ::SelectObject(dc, old);
    ::ReleaseDC(m_hwnd, dc);
    return ok;
}

CString CWnd::GetClassNameW() const {
    wchar_t name[256] = {};
    int length = ::GetClassNameW(m_hwnd, name, 256);
    return CString(name, length);
}

CString CWnd::RealGetWindowClassW() const {
    wchar_t name[256] = {};
    UINT length = ::RealGetWindowClassW(m_hwnd, name, 256);
    return CString(name, static_cast<int>(length));
}

HRESULT CWnd::SetWindowTheme(LPCWSTR subAppName, LPCWSTR subIdList) const {
    return ::SetWindowTheme(m_hwnd, subAppName, subIdList);
}

}  // namespace Velkan
