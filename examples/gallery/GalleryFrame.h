#pragma once

#include <memory>
#include <vector>

#include "CommandPages.h"
#include "ControlsPanel.h"
#include "GalleryView.h"
#include "MenuLooks.h"
#include "TextPages.h"
#include "WorkPages.h"
#include "velkan/Velkan.h"

// The gallery's main window: a frame with a rebar of two toolbars (SVG and
// bitmap-bundle images), a status bar with several parts and menu help, a
// swatch palette, recent files, and a view of pages, one per area of the
// library. Menus are drawn in one of three looks, switched from the View
// menu. It can save a screenshot of itself, or walk a tour of every page,
// menu look and dialog and save each as a picture.
class GalleryFrame : public Velkan::CFrameWndEx {
public:
    // A tour keeps its placement and recent files apart from the user's.
    explicit GalleryFrame(bool tour);

    // With a path, the frame saves itself there once shown, then closes.
    void SetScreenshotPath(const wchar_t* path) { m_screenshotPath = path; }
    // Walks the tour into a folder (brief: a few steps only), then closes.
    void SetTour(const wchar_t* folder, bool brief);
    void SetMenuLook(MenuLooks::Look look) { m_looks.Select(look); }
    // Screenshots saved, and whether any failed.
    int GetShotsSaved() const { return m_shotsSaved; }
    bool ShotFailed() const { return m_shotFailed; }

protected:
    void PreCreate(CREATESTRUCTW& cs) override;
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnInitMenu(Velkan::CMenu& menu) override;
    void OnNotify(Velkan::CNotification& notification) override;
    using CFrameWndEx::OnNotify;

private:
    struct TourStep {
        enum Kind { Page, Menu, Dialog } kind;
        int value;  // page index, menu look, or dialog command
        Velkan::CString name;
    };

    void ShowLook(MenuLooks::Look look);
    void ShowStatusParts();
    void OpenFile(const wchar_t* path);
    void ShowPopupMenu();
    // Runs a Dialogs command; FALSE for other commands.
    BOOL RunDialog(UINT command);
    // Saves the frame, its palette and any open drop-down or dialog.
    bool SaveShot(const wchar_t* path);

    // The tour (GalleryTour.cpp).
    void PlanTour();
    void NextTourStep();
    void TakeTourShot();

    bool m_tour;
    MenuLooks m_looks;
    Velkan::CCoolMenuMgr m_looksManager;
    Velkan::CToolbar m_fileToolbar;
    Velkan::CToolbar m_lookToolbar;
    Velkan::CRecentFileList m_recent;
    PageHost m_host;
    GraphicsPage m_graphics;
    StringsPage m_strings;
    FilesPage m_files;
    HttpPage m_http;
    std::unique_ptr<CommandPage> m_menus;
    std::unique_ptr<CommandPage> m_dialogs;
    ControlsPanel m_controls;
    ClipboardPage m_clipboard;
    ThreadsPage m_threads;
    Velkan::CPaletteWnd m_palette;
    SwatchView m_swatches;
    Velkan::CString m_screenshotPath;

    Velkan::CString m_tourFolder;
    bool m_tourBrief = false;
    std::vector<TourStep> m_steps;
    size_t m_step = 0;
    int m_waits = 0;
    bool m_dialogPlaced = false;
    int m_shotsSaved = 0;
    bool m_shotFailed = false;
};
