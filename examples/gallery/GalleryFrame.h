#pragma once

#include "ControlsPanel.h"
#include "GalleryView.h"
#include "MenuLooks.h"
#include "velkan/Velkan.h"

// The gallery's main window: a frame with a rebar of two toolbars (SVG and
// bitmap-bundle images), a status bar with several parts and menu help, a
// swatch palette, and a splitter view. Menus are drawn in one of three
// looks, switched from the View menu. It can save a screenshot of itself
// with its palette (or with one drop-down open) and close.
class GalleryFrame : public Velkan::CFrameWndEx {
public:
    GalleryFrame();

    // With a path, the frame saves itself there once shown, then closes.
    void SetScreenshotPath(const wchar_t* path) { m_screenshotPath = path; }
    // The drop-down (0-based) to open for the screenshot; -1 for none.
    void SetOpenMenu(int index) { m_openMenu = index; }
    // A Dialogs command to run for the screenshot, taken with the dialog up.
    void SetOpenDialog(UINT command) { m_openDialog = command; }
    void SetMenuLook(MenuLooks::Look look) { m_looks.Select(look); }
    bool ScreenshotSaved() const { return m_screenshotSaved; }
    Velkan::CPaletteWnd& GetPalette() { return m_palette; }

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnInitMenu(Velkan::CMenu& menu) override;
    void OnNotify(Velkan::CNotification& notification) override;
    using CFrameWndEx::OnNotify;

private:
    void ShowLook(MenuLooks::Look look);
    void ShowStatusParts();
    // Saves the frame, its palette and any open drop-down, then closes.
    void SaveScreenshot();
    // Runs a Dialogs command; FALSE for other commands.
    BOOL RunDialog(UINT command);

    MenuLooks m_looks;
    Velkan::CCoolMenuMgr m_looksManager;
    Velkan::CToolbar m_fileToolbar;
    Velkan::CToolbar m_lookToolbar;
    Velkan::CSplitterWnd m_splitter;
    GalleryView m_view;
    ControlsPanel m_controls;
    Velkan::CPaletteWnd m_palette;
    SwatchView m_swatches;
    Velkan::CString m_screenshotPath;
    int m_openMenu = -1;
    UINT m_openDialog = 0;
    bool m_screenshotSaved = false;
};
