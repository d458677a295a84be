#include "velkan/frame/PaletteWnd.h"

#include "velkan/app/App.h"
#include "velkan/core/Resource.h"

namespace Velkan {

namespace {

// WS_POPUP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_CAPTION | WS_SYSMENU |
// WS_THICKFRAME.
constexpr DWORD kPaletteStyle = 0x86CC0000;
// WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT.
constexpr DWORD kPaletteExStyle = 0x10080;

}  // namespace

CPaletteWnd::CPaletteWnd(LPCWSTR registrySection, LPCWSTR id, BOOL visibleByDefault, BOOL hasRebar,
                         BOOL hasStatusBar)
    : m_id(id), m_section(registrySection), m_rebar(1), m_hasRebar(hasRebar), m_hasStatusBar(hasStatusBar),
      m_visibleByDefault(visibleByDefault) {}

CString CPaletteWnd::ValueName(const wchar_t* suffix) const {
    CString name(m_id);
    name.Append(suffix);
    return name;
}

void CPaletteWnd::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = L"VlkPaletteWnd";
    wc.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    wc.hInstance = CResourceLoader::GetDefaultInstance();
}

void CPaletteWnd::PreCreate(CREATESTRUCTW& cs) {
    cs.style = static_cast<LONG>(kPaletteStyle);
    cs.dwExStyle = kPaletteExStyle;
    cs.lpszName = m_id;
}

CSize CPaletteWnd::GetDefaultSize() {
    return CSize(MulDivDpi(192), MulDivDpi(256));
}

CPoint CPaletteWnd::GetDefaultPosition() {
    CRect parent;
    if (HWND owner = ::GetWindow(m_hwnd, GW_OWNER)) ::GetWindowRect(owner, &parent);
    return CPoint(parent.right - MulDivDpi(50) - GetDefaultSize().cx, parent.top + MulDivDpi(50));
}

CSize CPaletteWnd::GetViewMinSize() {
    return CSize(m_viewMinSize.cx, m_viewMinSize.cy);
}

void CPaletteWnd::OnCreate() {
    if (m_hasRebar) m_rebar.Create(this);
    if (m_hasStatusBar) m_statusBar.Create(this);

    m_wasVisible = m_visibleByDefault;
    if (theAppPtr != nullptr) theAppPtr->RegQueryBOOL(m_section, ValueName(L".Show"), &m_wasVisible);

    const CPoint position = GetDefaultPosition();
    const CSize size = GetDefaultSize();
    CRect rect(position.x, position.y, position.x + size.cx, position.y + size.cy);
    CRect saved;
    if (theAppPtr != nullptr && theAppPtr->RegQueryRect(m_section, ValueName(L".Frame"), saved)) rect = saved;
    if (IsOffScreen(rect)) rect = CRect(position.x, position.y, position.x + size.cx, position.y + size.cy);
    ::SetWindowPos(m_hwnd, nullptr, rect.left, rect.top, rect.Width(), rect.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CPaletteWnd::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (msg) {
    case WM_SIZE:
        OnSize();
        result = 0;
        return TRUE;
    case WM_CLOSE:
        OnClose();
        result = 0;
        return TRUE;
    case WM_SHOWWINDOW:
        OnShowWindow(static_cast<BOOL>(wParam), static_cast<UINT>(lParam));
        return FALSE;
    case WM_GETMINMAXINFO:
        OnGetMinMaxInfo(reinterpret_cast<MINMAXINFO*>(lParam));
        result = 0;
        return TRUE;
    default:
        return FALSE;
    }
}

void CPaletteWnd::OnClose() {
    ShowWindow(SW_HIDE);
    m_wasVisible = FALSE;
    PostNotification(ClosedNotification, reinterpret_cast<DWORD_PTR>(this));
}

void CPaletteWnd::OnShowWindow(BOOL show, UINT status) {
    // Only an explicit show counts, not the owner opening or minimising.
    if (show && (status & 3) == 0) m_wasVisible = TRUE;
}

void CPaletteWnd::OnSize() {
    CRect rect = GetClientRect();
    const LPARAM size = MAKELPARAM(rect.Width(), rect.Height());
    if (m_rebar.IsWindow()) {
        m_rebar.SendMessageW(WM_SIZE, 0, size);
        rect.top += static_cast<LONG>(m_rebar.GetBarHeight());
    }
    if (m_statusBar.IsWindow()) {
        m_statusBar.SendMessageW(WM_SIZE, 0, size);
        rect.bottom -= m_statusBar.GetWindowSize().cy;
    }
    LayoutView(rect);
}

void CPaletteWnd::LayoutView(const CRect& rect) {
    if (m_view == nullptr || !m_view->IsWindow()) return;
    ::SetWindowPos(m_view->GetHwnd(), nullptr, rect.left, rect.top, rect.Width(), rect.Height(),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    if (m_viewRequiresInvalidate) m_view->InvalidateRect(nullptr, TRUE);
}

void CPaletteWnd::OnGetMinMaxInfo(MINMAXINFO* info) {
    if (info == nullptr) return;
    CRect border(0, 0, 0, 0);
    ::AdjustWindowRectEx(&border, GetWindowStyle(), FALSE, GetWindowExStyle());
    const int bw = border.Width(), bh = border.Height();
    int minWidth = bw, minHeight = bh;
    if (m_rebar.IsWindow()) {
        minWidth = m_rebar.GetMinWidth() + bw;
        minHeight += static_cast<int>(m_rebar.GetBarHeight());
    }
    if (m_statusBar.IsWindow()) minHeight += m_statusBar.GetWindowSize().cy;
    const CSize view = GetViewMinSize();
    info->ptMinTrackSize.x = minWidth > view.cx + bw ? minWidth : view.cx + bw;
    info->ptMinTrackSize.y = minHeight + view.cy;
}

void CPaletteWnd::OnDestroy() {
    // Minimised or maximised, the frame keeps the last normal-state values.
    HWND owner = ::GetWindow(m_hwnd, GW_OWNER);
    if (owner != nullptr && (::IsIconic(owner) || ::IsZoomed(owner))) return;
    if (theAppPtr == nullptr) return;
    theAppPtr->RegWriteRect(m_section, ValueName(L".Frame"), GetWindowRect());
    theAppPtr->RegWriteBOOL(m_section, ValueName(L".Show"), m_wasVisible);
}

}  // namespace Velkan
