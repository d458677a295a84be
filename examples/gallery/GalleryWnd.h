#pragma once

#include "MenuLooks.h"
#include "velkan/Velkan.h"

// The gallery's main window: remembers where it was, has a menu bar drawn
// by the owner-drawn menu manager in one of three looks with images from
// its toolbar, paints a showcase of what the library draws, and can save a
// screenshot of itself (with one drop-down open) and close.
class GalleryWnd : public Velkan::CWnd {
public:
    GalleryWnd();

    // With a path, the window saves itself there once shown, then closes.
    void SetScreenshotPath(const wchar_t* path) { m_screenshotPath = path; }
    // The drop-down (0-based) to open for the screenshot; -1 for none.
    void SetOpenMenu(int index) { m_openMenu = index; }
    void SetMenuLook(MenuLooks::Look look) { m_looks.Select(look); }
    bool ScreenshotSaved() const { return m_screenshotSaved; }

protected:
    void PreCreate(CREATESTRUCTW& cs) override;
    void OnCreate() override;
    void OnDestroy() override;
    void OnNcDestroy() override;
    void OnPaint(Velkan::CDC& dc) override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void ShowLook(MenuLooks::Look look);
    void LayoutToolbar();
    // Saves the window and the open drop-down, then ends the menu.
    void SaveWithOpenMenu();

    MenuLooks m_looks;
    Velkan::CCoolMenuMgr m_menuManager;
    Velkan::CMenu m_menu;
    Velkan::CToolbar m_toolbar;
    Velkan::CString m_title;
    Velkan::CImageList m_icons;
    Velkan::CString m_screenshotPath;
    int m_openMenu = -1;
    bool m_screenshotSaved = false;
};
