#include "GalleryFrame.h"

#include "GalleryDialogs.h"
#include "GalleryTimers.h"
#include "Screenshot.h"
#include "resource.h"

using namespace Velkan;

namespace {

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

// Where the recent files' sub-menu sits in the File menu (see gallery.rc).
const int kRecentFilesPosition = 4;

BOOL CALLBACK FindOpenPopup(HWND hwnd, LPARAM result) {
    wchar_t name[16] = {};
    ::GetClassNameW(hwnd, name, 16);
    if (::lstrcmpW(name, L"#32768") != 0 || !::IsWindowVisible(hwnd)) return TRUE;
    *reinterpret_cast<HWND*>(result) = hwnd;
    return FALSE;
}

}  // namespace

GalleryFrame::GalleryFrame(bool tour)
    : CFrameWndEx(L"Velkan Gallery", IDR_MAINMENU, IDS_READY, tour ? L"Tour" : L"Gallery"),
      m_tour(tour),
      m_looksManager(m_looks),
      m_recent(tour ? L"Tour recent files" : L"Recent files", L"File%d", 4, 48),
      m_menus(MakeMenusPage()),
      m_dialogs(MakeDialogsPage()),
      m_palette(tour ? L"Tour" : L"Gallery", L"Swatches", TRUE, FALSE, TRUE) {
    // The frame's own manager draws one look; the gallery's draws three,
    // switched at run time, so the frame's stays off.
    UseCoolMenus(FALSE);
    AddWndMsgFilter(m_looksManager);
    for (GalleryPage* page : std::initializer_list<GalleryPage*>{&m_graphics, &m_strings, &m_files, &m_http,
                                                                  m_menus.get(), m_dialogs.get(), &m_controls,
                                                                  &m_clipboard, &m_threads})
        m_host.AddPage(*page);
}

void GalleryFrame::SetTour(const wchar_t* folder, bool brief) {
    m_tourFolder = folder;
    m_tourBrief = brief;
}

void GalleryFrame::PreCreate(CREATESTRUCTW& cs) {
    CFrameWndEx::PreCreate(cs);
    // The first run (and every tour) opens at a size made for the screen's
    // DPI; later runs keep where the user left the window.
    if (cs.cx == static_cast<int>(CW_USEDEFAULT) || m_tour) {
        HDC screen = ::GetDC(nullptr);
        const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
        ::ReleaseDC(nullptr, screen);
        cs.cx = ::MulDiv(900, dpi, 96);
        cs.cy = ::MulDiv(620, dpi, 96);
        if (m_tour) cs.x = cs.y = 0;
    }
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

    m_host.Create(this);
    SetView(&m_host);
    m_recent.Load();

    ShowStatusParts();
    ShowLook(m_looks.GetLook());

    m_palette.Create(this);
    m_swatches.Create(&m_palette);
    m_palette.SetView(&m_swatches);
    m_palette.SetViewMinSize(CSize(MulDivDpi(120), MulDivDpi(80)));
    m_palette.OnSize();
    AddPaletteWindow(m_palette);
    if (m_tour) {
        // Beside the frame, so that the tour's pictures show every page whole.
        const CRect frame = GetWindowRect();
        // A size for this DPI: what an earlier tour left in the registry
        // may have been for another.
        m_palette.SetWindowPos(ZOrderTop, frame.right + MulDivDpi(8), frame.top + MulDivDpi(60), MulDivDpi(190),
                               MulDivDpi(250), SWP_NOZORDER | SWP_NOACTIVATE);
    }
    RegisterForNotification(CPaletteWnd::ClosedNotification);
    RegisterForNotification(ThreadsPage::ProgressNotification);

    if (!m_tourFolder.IsNullOrEmpty()) {
        PlanTour();
        SetTimer(kTourStepTimer, 600);
    } else if (!m_screenshotPath.IsNullOrEmpty()) {
        SetTimer(kScreenshotTimer, 600);
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
    if (m_menus->IsWindow()) m_menus->CheckChoice(LookCommand(look));
}

void GalleryFrame::OnInitMenu(CMenu& menu) {
    CFrameWndEx::OnInitMenu(menu);
    menu.CheckMenuRadioItem(ID_LOOK_CLASSIC, ID_LOOK_VISUAL, LookCommand(m_looks.GetLook()), MF_BYCOMMAND);
    menu.CheckMenuItem(ID_VIEW_PALETTE, MF_BYCOMMAND | (m_palette.IsWindowVisible() ? MF_CHECKED : MF_UNCHECKED));
    // The recent files fill a sub-menu of the File menu, not the bar.
    if (CMenu* recent = CMenu::FromHmenu(::GetSubMenu(::GetSubMenu(menu, 0), kRecentFilesPosition)))
        m_recent.UpdateMenu(*recent, ID_FILE_MRU_FIRST);
}

void GalleryFrame::OnNotify(CNotification& notification) {
    if (::lstrcmpiW(notification.GetName(), ThreadsPage::ProgressNotification) == 0) {
        CString text;
        text.Format(L"Worker thread: %d %% done", static_cast<int>(notification.GetData()));
        GetStatusBar().SetPartText(0, text);
        return;
    }
    // A closed palette: nothing to undo here, the View menu reads its state.
    if (reinterpret_cast<CPaletteWnd*>(notification.GetData()) == &m_palette)
        GetStatusBar().SetPartText(0, L"Palette closed");
}

void GalleryFrame::OpenFile(const wchar_t* path) {
    m_files.Hash(path);
    m_host.ShowPage(2);
    m_recent.Add(path);
    m_recent.Save();
}

void GalleryFrame::ShowPopupMenu() {
    HMENU view = ::GetSubMenu(GetMenu(), 1);
    if (view == nullptr) return;
    CPoint at;
    ::GetCursorPos(&at);
    ::TrackPopupMenu(view, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON, at.x, at.y, 0, GetHwnd(), nullptr);
}

BOOL GalleryFrame::OnCommand(UINT wParam, LPARAM lParam) {
    const UINT command = LOWORD(wParam);
    if (command >= ID_FILE_MRU_FIRST && command < ID_FILE_MRU_FIRST + 4) {
        const int index = static_cast<int>(command - ID_FILE_MRU_FIRST);
        if (index < m_recent.GetCount()) OpenFile(m_recent.GetFilePath(index));
        return TRUE;
    }
    switch (command) {
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
    case ID_VIEW_POPUP:
        ShowPopupMenu();
        return TRUE;
    case ID_FILE_OPEN: {
        COpenFileDlg open(L"All files", L"*.*");
        if (open.Show(this)) OpenFile(open.GetFileName());
        return TRUE;
    }
    case ID_FILE_NEW:
    case ID_FILE_SAVE:
        GetStatusBar().SetPartText(0, L"The gallery keeps no documents.");
        return TRUE;
    case ID_FILE_EXIT:
        DestroyWindow();
        return TRUE;
    case IDC_LINK:
        GetStatusBar().SetPartText(0, m_controls.GetMessageText());
        return TRUE;
    default:
        if (RunDialog(command)) return TRUE;
        return CFrameWndEx::OnCommand(wParam, lParam);
    }
}

bool GalleryFrame::SaveShot(const wchar_t* path) {
    std::vector<HWND> windows = {GetHwnd()};
    if (m_palette.IsWindowVisible()) windows.push_back(m_palette);
    HWND popup = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenPopup, reinterpret_cast<LPARAM>(&popup));
    if (popup != nullptr) windows.push_back(popup);
    HWND dialog = ::GetLastActivePopup(GetHwnd());
    if (dialog != GetHwnd() && dialog != m_palette.GetHwnd()) windows.push_back(dialog);
    return SaveWindowsPng(windows, path);
}

BOOL GalleryFrame::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg != WM_TIMER) return CFrameWndEx::WndProc(msg, wParam, lParam, result);
    switch (wParam) {
    case kScreenshotTimer:
        KillTimer(wParam);
        m_shotFailed = !SaveShot(m_screenshotPath);
        m_shotsSaved += m_shotFailed ? 0 : 1;
        PostMessageW(WM_CLOSE);
        break;
    case kTourStepTimer:
        KillTimer(wParam);
        NextTourStep();
        break;
    case kTourShotTimer:
        KillTimer(wParam);
        TakeTourShot();
        break;
    default:
        return CFrameWndEx::WndProc(msg, wParam, lParam, result);
    }
    result = 0;
    return TRUE;
}

BOOL GalleryFrame::RunDialog(UINT command) {
    CString line;
    switch (command) {
    case ID_HELP_ABOUT:
        line = GalleryDialogs::ShowAbout(*this);
        break;
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
    case ID_DIALOG_SHOWIF:
        line = GalleryDialogs::ShowShowIf(*this);
        break;
    default:
        return FALSE;
    }
    if (IsWindow()) GetStatusBar().SetPartText(0, line);
    return TRUE;
}
