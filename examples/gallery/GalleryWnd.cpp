#include "GalleryWnd.h"

#include "resource.h"
#include "Screenshot.h"
#include "velkan/gfx/DC.h"

#include <cwchar>

using namespace Velkan;

namespace {

const wchar_t kSection[] = L"Window";
const wchar_t kPlacement[] = L"Placement";
const UINT_PTR kScreenshotTimer = 1;
const UINT_PTR kOpenMenuTimer = 2;
const UINT_PTR kMenuShotTimer = 3;

void FillSolid(HDC dc, const RECT& rect, COLORREF colour) {
    HBRUSH brush = ::CreateSolidBrush(colour);
    ::FillRect(dc, &rect, brush);
    ::DeleteObject(brush);
}

HFONT MakeFont(const CWnd& wnd, int points, bool bold) {
    LOGFONTW lf = {};
    lf.lfHeight = -wnd.MulDivDpi(points * 96 / 72);
    lf.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    lf.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(lf.lfFaceName, L"Segoe UI", LF_FACESIZE);
    return ::CreateFontIndirectW(&lf);
}

TBBUTTON Button(int image, int command) {
    TBBUTTON button = {};
    button.iBitmap = image;
    button.idCommand = command;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON;
    return button;
}

UINT LookCommand(MenuLooks::Look look) {
    switch (look) {
    case MenuLooks::Classic:
        return ID_LOOK_CLASSIC;
    case MenuLooks::Themed:
        return ID_LOOK_THEMED;
    default:
        return ID_LOOK_VISUAL;
    }
}

BOOL CALLBACK FindOpenPopup(HWND hwnd, LPARAM result) {
    wchar_t name[16] = {};
    ::GetClassNameW(hwnd, name, 16);
    if (::lstrcmpW(name, L"#32768") != 0 || !::IsWindowVisible(hwnd)) return TRUE;
    *reinterpret_cast<HWND*>(result) = hwnd;
    return FALSE;
}

// The visible pop-up menu window of this thread, if any.
HWND OpenPopup() {
    HWND found = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenPopup, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

GalleryWnd::GalleryWnd() : m_menuManager(m_looks) {
    // The manager sees the window's messages from the first one on.
    AddWndMsgFilter(m_menuManager);
}

void GalleryWnd::PreCreate(CREATESTRUCTW& cs) {
    m_title = CResourceString(IDS_TITLE);
    cs.lpszName = m_title.GetString();
    cs.style = WS_OVERLAPPEDWINDOW;
    m_menu.Load(IDR_MAINMENU);
    cs.hMenu = m_menu.GetHmenu();
    // The last position, when it is still on a screen; else a default size.
    CRect saved;
    if (theAppPtr->RegQueryRect(kSection, kPlacement, saved) && !IsOffScreen(saved)) {
        cs.x = saved.left;
        cs.y = saved.top;
        cs.cx = saved.Width();
        cs.cy = saved.Height();
    } else {
        cs.x = 80;
        cs.y = 60;
        cs.cx = 640;
        cs.cy = 420;
    }
}

void GalleryWnd::OnCreate() {
    // Icons drawn once as SVG, made sharp for this window's DPI.
    CSvgImage strip(IDS_ICON_STRIP, nullptr, RGB(255, 196, 40));
    m_icons.Create(strip, GetDpi(), 24, 0);

    // The toolbar's images are the menu's command images too.
    CSvgImage tools(IDS_ICON_STRIP, nullptr, RGB(255, 196, 40));
    TBBUTTON buttons[] = {Button(0, ID_FILE_NEW), Button(1, ID_FILE_OPEN), Button(2, ID_FILE_SAVE),
                          Button(3, ID_HELP_ABOUT)};
    m_toolbar.Create(this, tools, buttons, 4, 24);
    LayoutToolbar();
    m_menuManager.AddToolbar(m_toolbar);
    ShowLook(m_looks.GetLook());

    if (!m_screenshotPath.IsNullOrEmpty()) SetTimer(m_openMenu >= 0 ? kOpenMenuTimer : kScreenshotTimer, 500);
}

void GalleryWnd::LayoutToolbar() {
    const CSize size = m_toolbar.GetMaxSize();
    m_toolbar.SetWindowPos(ZOrderTop, 0, 0, GetClientSize().cx, size.cy, SWP_NOZORDER);
}

void GalleryWnd::ShowLook(MenuLooks::Look look) {
    m_looks.Select(look);
    ::CheckMenuRadioItem(m_menu, ID_LOOK_CLASSIC, ID_LOOK_VISUAL, LookCommand(look), MF_BYCOMMAND);
}

BOOL GalleryWnd::OnCommand(UINT wParam, LPARAM) {
    switch (LOWORD(wParam)) {
    case ID_LOOK_CLASSIC:
        ShowLook(MenuLooks::Classic);
        return TRUE;
    case ID_LOOK_THEMED:
        ShowLook(MenuLooks::Themed);
        return TRUE;
    case ID_LOOK_VISUAL:
        ShowLook(MenuLooks::VisualStyle);
        return TRUE;
    case ID_VIEW_TOOLBAR:
        m_menu.SetCheck(ID_VIEW_TOOLBAR, !m_toolbar.ToggleWindow() ? FALSE : TRUE, FALSE);
        return TRUE;
    case ID_FILE_EXIT:
        DestroyWindow();
        return TRUE;
    default:
        return FALSE;
    }
}

void GalleryWnd::SaveWithOpenMenu() {
    CRect shot = GetWindowRect();
    if (HWND popup = OpenPopup()) {
        CRect menu;
        ::GetWindowRect(popup, &menu);
        ::UnionRect(&shot, &shot, &menu);
    }
    m_screenshotSaved = SaveScreenPng(shot, m_screenshotPath.GetString());
    ::EndMenu();
    PostMessageW(WM_CLOSE);
}

void GalleryWnd::OnDestroy() {
    if (!IsIconic() && !IsZoomed()) theAppPtr->RegWriteRect(kSection, kPlacement, GetWindowRect());
}

void GalleryWnd::OnNcDestroy() {
    ::PostQuitMessage(0);
}

BOOL GalleryWnd::WndProc(UINT msg, WPARAM wParam, LPARAM, LRESULT& result) {
    if (msg == WM_SIZE && m_toolbar.IsWindow()) LayoutToolbar();
    if (msg != WM_TIMER) return FALSE;
    switch (wParam) {
    case kScreenshotTimer:
        KillTimer(kScreenshotTimer);
        m_screenshotSaved = SaveWindowPng(GetHwnd(), m_screenshotPath.GetString());
        DestroyWindow();
        break;
    case kOpenMenuTimer: {
        // Drops the menu down as a click on the bar would; the menu's own
        // loop runs inside, and the next timer saves and ends it.
        KillTimer(kOpenMenuTimer);
        SetTimer(kMenuShotTimer, 400);
        const int item = m_openMenu;
        wchar_t label[32] = {};
        ::GetMenuStringW(m_menu, static_cast<UINT>(item), label, 32, MF_BYPOSITION);
        const wchar_t* amp = std::wcschr(label, L'&');
        SendMessageW(WM_SYSCOMMAND, SC_KEYMENU, amp != nullptr ? static_cast<LPARAM>(amp[1]) : 0);
        break;
    }
    case kMenuShotTimer:
        KillTimer(kMenuShotTimer);
        SaveWithOpenMenu();
        break;
    default:
        return FALSE;
    }
    result = 0;
    return TRUE;
}

void GalleryWnd::OnPaint(CDC& dc) {
    CRect client = GetClientRect();
    if (m_toolbar.IsWindow() && m_toolbar.IsWindowVisible()) client.top += m_toolbar.GetWindowSize().cy;

    // A banded background in the library's blue.
    const int bands = 16;
    for (int i = 0; i < bands; ++i) {
        CRect band(client.left, client.top + client.Height() * i / bands, client.right,
                   client.top + client.Height() * (i + 1) / bands);
        FillSolid(dc, band, RGB(20 + i * 4, 60 + i * 6, 120 + i * 7));
    }

    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, RGB(255, 255, 255));
    HFONT titleFont = MakeFont(*this, 24, true);
    HGDIOBJ oldFont = ::SelectObject(dc, titleFont);
    CRect title(MulDivDpi(24), client.top + MulDivDpi(12), client.right - MulDivDpi(24), client.top + MulDivDpi(72));
    ::DrawTextW(dc, m_title.GetString(), -1, &title, DT_LEFT | DT_SINGLELINE | DT_VCENTER);

    HFONT bodyFont = MakeFont(*this, 10, false);
    ::SelectObject(dc, bodyFont);
    CString lines(L"");
    lines.AppendFormat(L"Window DPI: %d\r\n", GetDpi());
    lines.AppendFormat(L"First run: %s\r\n", theAppPtr->IsFirstRun() ? L"yes" : L"no");
    lines.AppendFormat(L"Common controls 6: %s\r\n", theAppPtr->IsCommCtrlsV6() ? L"yes" : L"no (or not reported)");
    lines.AppendFormat(L"Position is saved in HKCU\\Software\\%s\\%s\\%s", theAppPtr->GetRegistryCompanyKey(),
                       theAppPtr->GetRegistryAppKey(), kSection);
    CRect body(title.left, title.bottom + MulDivDpi(8), title.right, title.bottom + MulDivDpi(120));
    ::DrawTextW(dc, lines.GetString(), -1, &body, DT_LEFT | DT_WORDBREAK);

    // A row of swatches.
    const COLORREF swatches[] = {RGB(231, 76, 60), RGB(241, 196, 15), RGB(46, 204, 113), RGB(52, 152, 219),
                                 RGB(155, 89, 182)};
    const int size = MulDivDpi(48), gap = MulDivDpi(12);
    int x = title.left;
    const int y = body.bottom + MulDivDpi(12);
    for (COLORREF colour : swatches) {
        FillSolid(dc, CRect(x, y, x + size, y + size), colour);
        x += size + gap;
    }

    // The SVG icon strip, through an image list made for this DPI, and
    // the same strip greyed.
    const CSize icon = m_icons.GetIconSize();
    const int iconsTop = y + size + MulDivDpi(16);
    for (int i = 0; i < m_icons.GetImageCount(); ++i) {
        m_icons.Draw(i, dc, title.left + i * (icon.cx + gap), iconsTop, ILD_TRANSPARENT);
        m_icons.DrawGrayscale(i, dc, title.left + (i + 5) * (icon.cx + gap), iconsTop, ILD_TRANSPARENT);
    }

    ::SelectObject(dc, oldFont);
    ::DeleteObject(titleFont);
    ::DeleteObject(bodyFont);
}
