#include "GalleryFrame.h"

#include <cwchar>

#include "Screenshot.h"
#include "resource.h"

using namespace Velkan;

namespace {

const UINT_PTR kScreenshotTimer = 1;
const UINT_PTR kOpenMenuTimer = 2;

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

}  // namespace

GalleryFrame::GalleryFrame()
    : CFrameWndEx(L"Velkan Gallery", IDR_MAINMENU, IDS_READY, L"Gallery"),
      m_looksManager(m_looks),
      m_palette(L"Gallery", L"Swatches", TRUE, FALSE, TRUE) {
    // The frame's own manager draws one look; the gallery's draws three,
    // switched at run time, so the frame's stays off.
    UseCoolMenus(FALSE);
    AddWndMsgFilter(m_looksManager);
}

void GalleryFrame::OnCreate() {
    CFrameWndEx::OnCreate();

    CSvgImage icons(IDS_ICON_STRIP, nullptr, RGB(230, 150, 20));
    TBBUTTON files[] = {Button(0, ID_FILE_NEW), Button(1, ID_FILE_OPEN), Button(2, ID_FILE_SAVE),
                        Button(3, ID_HELP_ABOUT)};
    m_fileToolbar.Create(this, icons, files, 4, 24);
    AddToolbar(m_fileToolbar, FALSE);
    m_looksManager.AddToolbar(m_fileToolbar);

    CBitmapBundle looks({IDB_TOOLBAR24, IDB_TOOLBAR48});
    TBBUTTON lookButtons[] = {Button(0, ID_LOOK_CLASSIC), Button(1, ID_LOOK_THEMED), Button(2, ID_LOOK_VISUAL),
                              Button(3, ID_VIEW_PALETTE)};
    m_lookToolbar.Create(this, looks, lookButtons, 4, 24);
    AddToolbar(m_lookToolbar, FALSE);
    m_looksManager.AddToolbar(m_lookToolbar);

    // The view: the showcase above, notes below.
    m_splitter.Create(this);
    m_view.Create(&m_splitter);
    m_notes.CreateEx(WS_EX_CLIENTEDGE, L"EDIT",
                     L"Velkan Gallery: the menus, bars, palette and view of this window are library classes.\r\n"
                     L"Switch the menu look in the View menu or with the second toolbar.",
                     WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_READONLY, 0, 0, 10, 10, &m_splitter, nullptr);
    m_notes.SetFont(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT)));
    m_splitter.AddPane(&m_view, MulDivDpi(200), 100000);
    m_splitter.AddPane(&m_notes, MulDivDpi(48), MulDivDpi(80));
    SetView(&m_splitter);

    ShowStatusParts();
    ShowLook(m_looks.GetLook());

    m_palette.Create(this);
    m_swatches.Create(&m_palette);
    m_palette.SetView(&m_swatches);
    m_palette.SetViewMinSize(CSize(MulDivDpi(120), MulDivDpi(80)));
    m_palette.OnSize();
    AddPaletteWindow(m_palette);
    RegisterForNotification(CPaletteWnd::ClosedNotification);

    if (!m_screenshotPath.IsNullOrEmpty()) SetTimer(m_openMenu >= 0 ? kOpenMenuTimer : kScreenshotTimer, 600);
}

void GalleryFrame::ShowStatusParts() {
    CStatusBar& bar = GetStatusBar();
    const int dpiWidth = MulDivDpi(80), lookWidth = MulDivDpi(130);
    const int edges[] = {MulDivDpi(200), MulDivDpi(200) + dpiWidth, MulDivDpi(200) + dpiWidth + lookWidth};
    bar.SetParts(3, edges);
    bar.SetRightJustifyMode(TRUE, MulDivDpi(200));
    CString dpi;
    dpi.Format(L"%d DPI", GetDpi());
    bar.SetPartText(1, dpi);
    ShowStatusBarIdleMessage();
    LayoutWindow();
}

void GalleryFrame::ShowLook(MenuLooks::Look look) {
    m_looks.Select(look);
    CString text;
    text.Format(L"Menus: %s", MenuLooks::Name(look));
    GetStatusBar().SetPartText(2, text);
}

void GalleryFrame::OnInitMenu(CMenu& menu) {
    CFrameWndEx::OnInitMenu(menu);
    menu.CheckMenuRadioItem(ID_LOOK_CLASSIC, ID_LOOK_VISUAL, LookCommand(m_looks.GetLook()), MF_BYCOMMAND);
    menu.CheckMenuItem(ID_VIEW_PALETTE, MF_BYCOMMAND | (m_palette.IsWindowVisible() ? MF_CHECKED : MF_UNCHECKED));
}

void GalleryFrame::OnNotify(CNotification& notification) {
    // A closed palette: nothing to undo here, the View menu reads its state.
    if (reinterpret_cast<CPaletteWnd*>(notification.GetData()) == &m_palette) GetStatusBar().SetPartText(0, L"Palette closed");
}

BOOL GalleryFrame::OnCommand(UINT wParam, LPARAM lParam) {
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
    case ID_VIEW_PALETTE:
        m_palette.ShowWindow(m_palette.IsWindowVisible() ? SW_HIDE : SW_SHOWNA);
        return TRUE;
    case ID_FILE_EXIT:
        DestroyWindow();
        return TRUE;
    default:
        return CFrameWndEx::OnCommand(wParam, lParam);
    }
}

void GalleryFrame::SaveScreenshot() {
    std::vector<HWND> windows = {GetHwnd()};
    if (m_palette.IsWindowVisible()) windows.push_back(m_palette);
    HWND popup = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenPopup, reinterpret_cast<LPARAM>(&popup));
    if (popup != nullptr) windows.push_back(popup);
    m_screenshotSaved = SaveWindowsPng(windows, m_screenshotPath.GetString());
    ::EndMenu();
    PostMessageW(WM_CLOSE);
}

BOOL GalleryFrame::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg != WM_TIMER || (wParam != kScreenshotTimer && wParam != kOpenMenuTimer))
        return CFrameWndEx::WndProc(msg, wParam, lParam, result);
    KillTimer(wParam);
    if (wParam == kScreenshotTimer) {
        SaveScreenshot();
    } else {
        // Drops the menu down as its mnemonic would; the menu's own loop
        // runs inside, and the screenshot timer fires in it.
        SetTimer(kScreenshotTimer, 400);
        wchar_t label[32] = {};
        ::GetMenuStringW(GetMenu(), static_cast<UINT>(m_openMenu), label, 32, MF_BYPOSITION);
        const wchar_t* amp = std::wcschr(label, L'&');
        SendMessageW(WM_SYSCOMMAND, SC_KEYMENU, amp != nullptr ? static_cast<LPARAM>(amp[1]) : 0);
    }
    result = 0;
    return TRUE;
}
