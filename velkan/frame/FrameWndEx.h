#pragma once

#include <windows.h>

#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/frame/Rebar.h"
#include "velkan/frame/StatusBar.h"
#include "velkan/frame/Toolbar.h"
#include "velkan/menu/CoolMenuMgr.h"

namespace Velkan {

class CMenu;
class CPaletteWnd;

// The host's main window: a rebar of toolbars at the top, a status bar at
// the bottom with menu help, one view in between, owner-drawn menus, and the
// floating palettes. Its placement and the visibility of its bars are saved
// in its registry section when it is destroyed and read before it is
// created; WM_NCDESTROY ends the application's loop. Commands 0xE800 and
// 0xE801 toggle the rebar and the status bar.
class VELKAN_API CFrameWndEx : public CWnd {
public:
    static constexpr UINT ToggleRebarCommand = 0xE800;
    static constexpr UINT ToggleStatusBarCommand = 0xE801;

    // title is also the window class name; a null section means the title;
    // a null instance the application's; menuId 0 means no menu.
    CFrameWndEx(LPCWSTR title, UINT menuId = 0, UINT idleMessageId = 0, LPCWSTR registrySection = nullptr,
                HINSTANCE instance = nullptr);

    // A band of the rebar (band is its new-row flag); its images become the
    // menus' command images.
    void AddToolbar(CToolbar& toolbar, int band = 0);
    void AddPaletteWindow(CPaletteWnd& palette);
    void ShowRebar(BOOL show);
    void ShowStatusBar(BOOL show);
    void ShowStatusBarIdleMessage();
    void SetView(CWnd* view) { m_view = view; }
    CWnd* GetView() const { return m_view; }
    void SetViewRequiresInvalidateOnResize(BOOL on) { m_viewRequiresInvalidate = on; }
    void UseCoolMenus(BOOL on) { m_useCoolMenus = on; }
    HACCEL GetAcceleratorTable() const { return m_accelerators; }
    void SetAcceleratorTable(HACCEL accelerators) { m_accelerators = accelerators; }

    const CString& GetTitle() const { return m_title; }
    const CString& GetRegKey() const { return m_section; }
    UINT GetMenuId() const { return m_menuId; }
    HINSTANCE GetResourceInstance() const { return m_instance; }
    CRebar& GetRebar() { return m_rebar; }
    CStatusBar& GetStatusBar() { return m_statusBar; }
    CCoolMenuMgr& GetCoolMenuMgr() { return m_menuManager; }
    const std::vector<CPaletteWnd*>& GetPaletteWindows() const { return m_palettes; }
    BOOL IsRebarVisible() const { return m_rebarVisible; }
    BOOL IsStatusBarVisible() const { return m_statusBarVisible; }

    BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    void PreRegisterWndClass(WNDCLASSEXW& wc) override;
    void PreCreate(CREATESTRUCTW& cs) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    void OnCreate() override;
    void OnDestroy() override;
    BOOL OnEraseBkgnd(CDC& dc) override;
    void OnNcDestroy() override;
    using CWnd::OnNotify;

    virtual void UpdateUiState();
    virtual void OnInitMenu(CMenu& menu);
    virtual void OnMenuSelect(WORD item, WORD flags, CMenu* menu);
    virtual void OnSettingChange();
    virtual void OnShowWindow(BOOL show, UINT status);
    virtual void OnSize();
    virtual CString GetStatusString(UINT id);
    virtual void LayoutWindow();

private:
    CString m_title;
    CString m_section;
    UINT m_menuId;
    UINT m_idleMessageId;
    HINSTANCE m_instance;
    HACCEL m_accelerators = nullptr;
    CWnd* m_view = nullptr;
    CRebar m_rebar;
    CStatusBar m_statusBar;
    CCoolMenuMgr m_menuManager;
    std::vector<CPaletteWnd*> m_palettes;
    BOOL m_rebarVisible = TRUE;
    BOOL m_statusBarVisible = TRUE;
    BOOL m_useCoolMenus = TRUE;
    BOOL m_viewRequiresInvalidate = FALSE;
    BOOL m_shownOnce = FALSE;
};

}  // namespace Velkan
