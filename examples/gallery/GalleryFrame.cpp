#include "GalleryFrame.h"

#include <cwchar>

#include "GalleryDialogs.h"
#include "Screenshot.h"
#include "resource.h"

using namespace Velkan;

namespace {

const UINT_PTR kScreenshotTimer = 1;
const UINT_PTR kOpenMenuTimer = 2;
const UINT_PTR kOpenDialogTimer = 3;

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

    // The view: the showcase above, the controls below.
    m_splitter.Create(this);
    m_view.Create(&m_splitter);
    m_controls.Create(&m_splitter);
    m_splitter.AddPane(&m_view, MulDivDpi(200), 100000);
    m_splitter.AddPane(&m_controls, MulDivDpi(120), MulDivDpi(400));
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

    if (!m_screenshotPath.IsNullOrEmpty()) {
        if (m_openDialog != 0)
            SetTimer(kOpenDialogTimer, 600);
        else
            SetTimer(m_openMenu >= 0 ? kOpenMenuTimer : kScreenshotTimer, 600);
    }
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
    case IDC_LINK:
        GetStatusBar().SetPartText(0, m_controls.GetMessageText());
        return TRUE;
    default:
        if (RunDialog(LOWORD(wParam))) return TRUE;
        return CFrameWndEx::OnCommand(wParam, lParam);
    }
}

void GalleryFrame::SaveScreenshot() {
    std::vector<HWND> windows = {GetHwnd()};
    if (m_palette.IsWindowVisible()) windows.push_back(m_palette);
    HWND popup = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenPopup, reinterpret_cast<LPARAM>(&popup));
    if (popup != nullptr) windows.push_back(popup);
    // A dialog the screenshot was taken for: on top, and then ended.
    HWND dialog = ::GetLastActivePopup(GetHwnd());
    if (m_openDialog != 0 && dialog != GetHwnd() && dialog != m_palette.GetHwnd()) windows.push_back(dialog);
    m_screenshotSaved = SaveWindowsPng(windows, m_screenshotPath.GetString());
    ::EndMenu();
    if (m_openDialog != 0 && dialog != GetHwnd()) ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    PostMessageW(WM_CLOSE);
}

BOOL GalleryFrame::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg != WM_TIMER || (wParam != kScreenshotTimer && wParam != kOpenMenuTimer && wParam != kOpenDialogTimer))
        return CFrameWndEx::WndProc(msg, wParam, lParam, result);
    KillTimer(wParam);
    if (wParam == kScreenshotTimer) {
        SaveScreenshot();
    } else if (wParam == kOpenDialogTimer) {
        // The dialog's modal loop runs inside; the screenshot timer fires in it.
        SetTimer(kScreenshotTimer, 700);
        RunDialog(m_openDialog);
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

BOOL GalleryFrame::RunDialog(UINT command) {
    CString line;
    switch (command) {
    case ID_DIALOG_SHEET:
        line = GalleryDialogs::ShowPropertySheet(*this);
        break;
    case ID_DIALOG_WIZARD:
        line = GalleryDialogs::ShowWizard(*this);
        break;
    case ID_DIALOG_OPEN:
        line = GalleryDialogs::ShowOpenFiles(*this);
        break;
    case ID_DIALOG_SAVE:
        line = GalleryDialogs::ShowSaveAs(*this);
        break;
    case ID_DIALOG_FOLDER:
        line = GalleryDialogs::ShowFolderPicker(*this);
        break;
    case ID_DIALOG_MESSAGE:
        line = GalleryDialogs::ShowMessageBox(*this);
        break;
    case ID_DIALOG_TASK:
        line = GalleryDialogs::ShowTaskDialog(*this);
        break;
    default:
        return FALSE;
    }
    if (IsWindow()) GetStatusBar().SetPartText(0, line);
    return TRUE;
}
