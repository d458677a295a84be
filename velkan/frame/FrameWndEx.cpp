#include "velkan/frame/FrameWndEx.h"

#include <algorithm>
#include <cstdlib>

#include "velkan/app/App.h"
#include "velkan/core/Resource.h"
#include "velkan/frame/PaletteWnd.h"
#include "velkan/menu/Menu.h"

namespace Velkan {

namespace {

const wchar_t kLeft[] = L"Frame.Left";
const wchar_t kTop[] = L"Frame.Top";
const wchar_t kWidth[] = L"Frame.Width";
const wchar_t kHeight[] = L"Frame.Height";
const wchar_t kRebarShow[] = L"Rebar.Show";
const wchar_t kStatusBarShow[] = L"StatusBar.Show";
// Part 255 with SBT_NOBORDERS: the simple-mode text.
constexpr WPARAM kSimplePart = 511;

}  // namespace

CFrameWndEx::CFrameWndEx(LPCWSTR title, UINT menuId, UINT idleMessageId, LPCWSTR registrySection,
                         HINSTANCE instance)
    : m_title(title), m_section(registrySection != nullptr ? registrySection : title), m_menuId(menuId),
      m_idleMessageId(idleMessageId), m_instance(CResourceLoader::ResolveInstance(instance)), m_rebar(1) {
    // After the frame's own filter: the frame lays out before menus draw.
    AddWndMsgFilter(m_menuManager);
}

// ---------------------------------------------------------------------------
// Bars, palettes and the view

void CFrameWndEx::AddToolbar(CToolbar& toolbar, int band) {
    m_rebar.InsertToolbar(toolbar, band, TRUE, -1);
    m_menuManager.Enable(m_useCoolMenus);
    m_menuManager.AddToolbar(toolbar);
}

void CFrameWndEx::AddPaletteWindow(CPaletteWnd& palette) {
    if (std::find(m_palettes.begin(), m_palettes.end(), &palette) == m_palettes.end())
        m_palettes.push_back(&palette);
}

void CFrameWndEx::ShowRebar(BOOL show) {
    m_rebarVisible = show;
    m_rebar.ShowWindow(show ? SW_SHOWNA : SW_HIDE);
    LayoutWindow();
}

void CFrameWndEx::ShowStatusBar(BOOL show) {
    m_statusBarVisible = show;
    m_statusBar.ShowWindow(show ? SW_SHOWNA : SW_HIDE);
    LayoutWindow();
}

void CFrameWndEx::ShowStatusBarIdleMessage() {
    CString text;
    CResourceLoader::TryLoadText(m_idleMessageId, text, m_instance);
    m_statusBar.SendMessageW(SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.GetString()));
}

// ---------------------------------------------------------------------------
// Creation

void CFrameWndEx::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = m_title;
    wc.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.hInstance = m_instance;
}

void CFrameWndEx::PreCreate(CREATESTRUCTW& cs) {
    if (m_menuId != 0) {
        cs.hMenu = ::LoadMenuW(m_instance, MAKEINTRESOURCEW(m_menuId));
        if (m_accelerators == nullptr) m_accelerators = ::LoadAcceleratorsW(m_instance, MAKEINTRESOURCEW(m_menuId));
    }
    int x = CW_USEDEFAULT, y = CW_USEDEFAULT, cx = CW_USEDEFAULT, cy = CW_USEDEFAULT;
    if (theAppPtr != nullptr) {
        theAppPtr->RegQueryInt(m_section, kLeft, &x);
        theAppPtr->RegQueryInt(m_section, kTop, &y);
        theAppPtr->RegQueryInt(m_section, kWidth, &cx);
        theAppPtr->RegQueryInt(m_section, kHeight, &cy);
    }
    // A saved place on no screen (a monitor since removed) is forgotten;
    // nothing else is clamped.
    const RECT saved = {x, y, x + cx, y + cy};
    if (IsOffScreen(saved)) x = y = cx = cy = CW_USEDEFAULT;
    cs.x = x;
    cs.y = y;
    cs.cx = cx;
    cs.cy = cy;
    cs.style = WS_OVERLAPPEDWINDOW;
    cs.lpszName = m_title;
    if (theAppPtr != nullptr) {
        theAppPtr->RegQueryBOOL(m_section, kRebarShow, &m_rebarVisible);
        theAppPtr->RegQueryBOOL(m_section, kStatusBarShow, &m_statusBarVisible);
    }
}

void CFrameWndEx::OnCreate() {
    m_rebar.Create(this);
    m_statusBar.Create(this);
    m_statusBar.SetRightJustifyMode(TRUE, 0);
    if (m_idleMessageId != 0) ShowStatusBarIdleMessage();
    if (theAppPtr != nullptr) {
        theAppPtr->RegQueryBOOL(m_section, kRebarShow, &m_rebarVisible);
        theAppPtr->RegQueryBOOL(m_section, kStatusBarShow, &m_statusBarVisible);
    }
    if (!m_rebarVisible) m_rebar.ShowWindow(SW_HIDE);
    if (!m_statusBarVisible) m_statusBar.ShowWindow(SW_HIDE);
}

void CFrameWndEx::OnDestroy() {
    if (theAppPtr == nullptr) return;
    // Maximised or minimised, the last normal place stays as it was saved.
    if (!IsZoomed() && !IsIconic()) {
        const CRect rect = GetWindowRect();
        theAppPtr->RegWriteInt(m_section, kLeft, rect.left);
        theAppPtr->RegWriteInt(m_section, kTop, rect.top);
        theAppPtr->RegWriteInt(m_section, kWidth, std::abs(static_cast<int>(rect.right - rect.left)));
        theAppPtr->RegWriteInt(m_section, kHeight, std::abs(static_cast<int>(rect.bottom - rect.top)));
    }
    theAppPtr->RegWriteBOOL(m_section, kRebarShow, m_rebarVisible);
    theAppPtr->RegWriteBOOL(m_section, kStatusBarShow, m_statusBarVisible);
}

void CFrameWndEx::OnNcDestroy() {
    ::PostQuitMessage(0);
}

// ---------------------------------------------------------------------------
// Messages

BOOL CFrameWndEx::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (msg) {
    case WM_SIZE:
        OnSize();
        result = 0;
        return TRUE;
    case WM_ENABLE:
        EnableOwnedPopupWindows(static_cast<BOOL>(wParam));
        return FALSE;
    case WM_SHOWWINDOW:
        OnShowWindow(static_cast<BOOL>(wParam), static_cast<UINT>(lParam));
        return FALSE;
    case WM_SETTINGCHANGE:
        OnSettingChange();
        result = 0;
        return TRUE;
    case WM_INITMENU:
        if (CMenu* menu = CMenu::FromHmenu(reinterpret_cast<HMENU>(wParam))) OnInitMenu(*menu);
        result = 0;
        return TRUE;
    case WM_MENUSELECT:
        OnMenuSelect(LOWORD(wParam), HIWORD(wParam), CMenu::FromHmenu(reinterpret_cast<HMENU>(lParam)));
        result = 0;
        return TRUE;
    case WM_ENTERIDLE:
        if (theAppPtr != nullptr) theAppPtr->CleanUpTempObjects();
        result = 0;
        return TRUE;
    default:
        return FALSE;
    }
}

void CFrameWndEx::OnSize() {
    LayoutWindow();
}

void CFrameWndEx::LayoutWindow() {
    CRect rect = GetClientRect();
    if (m_rebar.IsWindow() && m_rebarVisible) {
        m_rebar.SendMessageW(WM_SIZE, 0, 0);
        rect.top += static_cast<LONG>(m_rebar.GetBarHeight());
    }
    // The style, not IsWindowVisible: the frame may not be shown yet.
    if (m_statusBar.IsWindow() && (m_statusBar.GetWindowStyle() & WS_VISIBLE) != 0) {
        m_statusBar.SendMessageW(WM_SIZE, 0, 0);
        rect.bottom -= m_statusBar.GetWindowSize().cy;
    }
    if (m_view != nullptr && m_view->IsWindow()) {
        ::SetWindowPos(m_view->GetHwnd(), nullptr, rect.left, rect.top, rect.Width(), rect.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
        if (m_viewRequiresInvalidate) m_view->InvalidateRect(nullptr, TRUE);
    }
}

BOOL CFrameWndEx::OnCommand(UINT wParam, LPARAM) {
    switch (LOWORD(wParam)) {
    case ToggleRebarCommand:
        m_rebarVisible = !m_rebarVisible;
        m_rebar.ShowWindow(m_rebarVisible ? SW_SHOWNA : SW_HIDE);
        LayoutWindow();
        return TRUE;
    case ToggleStatusBarCommand:
        m_statusBarVisible = !m_statusBarVisible;
        m_statusBar.ShowWindow(m_statusBarVisible ? SW_SHOWNA : SW_HIDE);
        LayoutWindow();
        return TRUE;
    default:
        return FALSE;
    }
}

void CFrameWndEx::OnInitMenu(CMenu& menu) {
    menu.CheckMenuItem(ToggleRebarCommand, MF_BYCOMMAND | (m_rebarVisible ? MF_CHECKED : MF_UNCHECKED));
    menu.CheckMenuItem(ToggleStatusBarCommand, MF_BYCOMMAND | (m_statusBarVisible ? MF_CHECKED : MF_UNCHECKED));
}

BOOL CFrameWndEx::OnNotify(UINT, LPARAM nmhdr, LRESULT& result) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header == nullptr || header->code != static_cast<UINT>(RBN_HEIGHTCHANGE)) return FALSE;
    LayoutWindow();
    result = 0;
    return TRUE;
}

void CFrameWndEx::OnMenuSelect(WORD item, WORD flags, CMenu* menu) {
    if (flags == 0xFFFF && menu == nullptr) {
        // The menu closed: the parts come back.
        m_statusBar.SetSimple(FALSE);
        return;
    }
    m_statusBar.SetSimple(TRUE);
    const CString text = GetStatusString(item);
    m_statusBar.SendMessageW(SB_SETTEXTW, kSimplePart, reinterpret_cast<LPARAM>(text.GetString()));
}

CString CFrameWndEx::GetStatusString(UINT id) {
    return m_statusBar.GetHelpString(id, m_instance);
}

BOOL CFrameWndEx::OnEraseBkgnd(CDC&) {
    // The view covers the client area; erasing under it only flickers.
    return m_view != nullptr;
}

void CFrameWndEx::OnSettingChange() {
    // A fresh menu, so that owner-drawn items are measured anew.
    HMENU current = GetMenu();
    if (m_menuId == 0 || current == nullptr) return;
    HMENU fresh = ::LoadMenuW(m_instance, MAKEINTRESOURCEW(m_menuId));
    SetMenu(fresh);
    ::DestroyMenu(current);
}

void CFrameWndEx::OnShowWindow(BOOL show, UINT) {
    if (!show) return;
    if (!m_shownOnce) {
        m_shownOnce = TRUE;
        for (CPaletteWnd* palette : m_palettes) {
            if (palette->WasVisible()) palette->ShowWindow(SW_SHOWNA);
        }
    } else {
        ShowOwnedPopups(TRUE);
    }
    UpdateUiState();
}

void CFrameWndEx::UpdateUiState() {}

}  // namespace Velkan
