#include "GalleryFrame.h"
#include "GalleryTimers.h"
#include "resource.h"

using namespace Velkan;

// The tour: every page, one drop-down menu in each look, and every kind of
// dialog, each saved as "NN-what-which.png" in the tour's folder. Steps run
// from timers: a page is shown and shot once its work is done; a menu or a
// dialog is opened, and its own modal loop runs until the shot, taken from
// a timer inside that loop, closes it again.

namespace {

struct Named {
    int value;
    const wchar_t* name;
};

const Named kDialogs[] = {{ID_HELP_ABOUT, L"template"}, {ID_DIALOG_TASK, L"task"},
                          {ID_DIALOG_SHOWIF, L"show-if"}, {ID_DIALOG_MESSAGE, L"message-box"},
                          {ID_DIALOG_SHEET, L"property-sheet"}, {ID_DIALOG_WIZARD, L"wizard"},
                          {ID_DIALOG_OPEN, L"open-files"},   {ID_DIALOG_SAVE, L"save-as"},
                          {ID_DIALOG_FOLDER, L"folder"}};

// The pages behind the menus and the dialogs (see the frame's constructor).
const int kMenusPage = 4;
const int kDialogsPage = 5;

// How long a step may wait for its page's work or its dialog, in 100 ms.
const int kMaxWaits = 50;

CString StepName(size_t number, const wchar_t* kind, const wchar_t* which) {
    CString name;
    name.Format(L"%02u-%s-%s", static_cast<unsigned>(number), kind, which);
    return name;
}

}  // namespace

void GalleryFrame::PlanTour() {
    // A brief tour (for the tests) takes one of each kind, with work in it.
    for (int i = 0; i < m_host.GetPageCount(); ++i) {
        if (m_tourBrief && i != 3) continue;
        m_steps.push_back({TourStep::Page, i, StepName(m_steps.size() + 1, L"page", m_host.GetPage(i).GetSlug())});
    }
    for (MenuLooks::Look look : {MenuLooks::Classic, MenuLooks::Themed, MenuLooks::VisualStyle}) {
        if (m_tourBrief && look != MenuLooks::VisualStyle) continue;
        m_steps.push_back({TourStep::Menu, look, StepName(m_steps.size() + 1, L"menu", MenuLooks::Name(look))});
    }
    for (const Named& dialog : kDialogs) {
        if (m_tourBrief && dialog.value != ID_DIALOG_TASK) continue;
        m_steps.push_back({TourStep::Dialog, dialog.value, StepName(m_steps.size() + 1, L"dialog", dialog.name)});
    }
    // Something in the recent files for the File menu's pictures.
    wchar_t self[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, self, MAX_PATH);
    m_recent.Add(self);
}

void GalleryFrame::NextTourStep() {
    if (m_step >= m_steps.size()) {
        PostMessageW(WM_CLOSE);
        return;
    }
    const TourStep& step = m_steps[m_step];
    m_waits = 0;
    m_dialogPlaced = false;
    switch (step.kind) {
    case TourStep::Page:
        m_host.ShowPage(step.value);
        m_host.GetPage(step.value).PrepareForTour();
        SetTimer(kTourShotTimer, 400);
        break;
    case TourStep::Menu:
        m_host.ShowPage(kMenusPage);
        ShowLook(static_cast<MenuLooks::Look>(step.value));
        SetTimer(kTourShotTimer, 400);
        // Drops the File menu down as its mnemonic would; the menu's loop
        // runs inside this call until the shot ends it.
        SendMessageW(WM_SYSCOMMAND, SC_KEYMENU, L'f');
        SetTimer(kTourStepTimer, 100);
        break;
    case TourStep::Dialog:
        m_host.ShowPage(kDialogsPage);
        SetTimer(kTourShotTimer, 900);
        RunDialog(static_cast<UINT>(step.value));
        SetTimer(kTourStepTimer, 100);
        break;
    }
}

void GalleryFrame::TakeTourShot() {
    const TourStep& step = m_steps[m_step];
    HWND dialog = ::GetLastActivePopup(GetHwnd());
    const bool waiting = (step.kind == TourStep::Page && m_host.GetPage(step.value).IsBusy()) ||
                         (step.kind == TourStep::Dialog && (dialog == GetHwnd() || dialog == m_palette.GetHwnd()));
    if (waiting && ++m_waits < kMaxWaits) {
        SetTimer(kTourShotTimer, 100);
        return;
    }
    // Dialogs come up where the system puts them (the screen's centre, or
    // its corner); for the picture they are moved over the frame, and shot
    // once they have repainted there.
    if (step.kind == TourStep::Dialog && !m_dialogPlaced && dialog != GetHwnd()) {
        m_dialogPlaced = true;
        const CRect frame = GetWindowRect();
        CRect box;
        ::GetWindowRect(dialog, &box);
        ::SetWindowPos(dialog, nullptr, frame.left + (frame.Width() - box.Width()) / 2,
                       frame.top + (frame.Height() - box.Height()) / 2, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        SetTimer(kTourShotTimer, 200);
        return;
    }
    CString path(m_tourFolder);
    path.Append(L"\\").Append(step.name).Append(L".png");
    if (SaveShot(path)) {
        ++m_shotsSaved;
    } else {
        m_shotFailed = true;
    }
    ++m_step;
    switch (step.kind) {
    case TourStep::Page:
        SetTimer(kTourStepTimer, 50);
        break;
    case TourStep::Menu:
        ::EndMenu();
        break;
    case TourStep::Dialog:
        if (dialog != GetHwnd()) ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        break;
    }
}
