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

/// The host's main window: a rebar of toolbars at the top, a status bar at
/// the bottom with menu help, one view in between, owner-drawn menus, and the
/// floating palettes. Its placement and the visibility of its bars are saved
/// in its registry section when it is destroyed and read before it is
/// created; WM_NCDESTROY ends the application's loop. Commands 0xE800 and
/// 0xE801 toggle the rebar and the status bar.
class VELKAN_API CFrameWndEx : public CWnd {
public:
    static constexpr UINT ToggleRebarCommand = 0xE800;  ///< Shows or hides the rebar.
    static constexpr UINT ToggleStatusBarCommand = 0xE801;  ///< Shows or hides the status bar.

    /// A frame whose menu and accelerators are resource menuId, and whose
    /// status bar shows string idleMessageId when idle. title is also the
    /// window class name; a null section means the title;
    /// a null instance the application's; menuId 0 means no menu.
    CFrameWndEx(LPCWSTR title, UINT menuId = 0, UINT idleMessageId = 0, LPCWSTR registrySection = nullptr,
                HINSTANCE instance = nullptr);

    /// Adds a toolbar as a band of the rebar (band is its new-row flag); its
    /// images become the menus' command images.
    void AddToolbar(CToolbar& toolbar, int band = 0);
    /// Registers a palette, once; the frame shows it when first shown if it was
    /// visible last time.
    void AddPaletteWindow(CPaletteWnd& palette);
    /// Shows or hides a bar and lays out again.
    ///@{
    void ShowRebar(BOOL show);
    void ShowStatusBar(BOOL show);
    ///@}
    void ShowStatusBarIdleMessage();  ///< Puts the idle message in the status bar's first part.
    void SetView(CWnd* view) { m_view = view; }  ///< The view between the bars; not owned.
    CWnd* GetView() const { return m_view; }  ///< See SetView.
    /// Whether the view is repainted after each layout.
    void SetViewRequiresInvalidateOnResize(BOOL on) { m_viewRequiresInvalidate = on; }
    /// Whether menus are owner-drawn once a toolbar is added.
    void UseCoolMenus(BOOL on) { m_useCoolMenus = on; }
    /// The accelerators the loop translates.
    HACCEL GetAcceleratorTable() const { return m_accelerators; }
    /// See GetAcceleratorTable.
    void SetAcceleratorTable(HACCEL accelerators) { m_accelerators = accelerators; }

    const CString& GetTitle() const { return m_title; }  ///< The title and class name.
    const CString& GetRegKey() const { return m_section; }  ///< The registry section.
    UINT GetMenuId() const { return m_menuId; }  ///< The menu resource id.
    HINSTANCE GetResourceInstance() const { return m_instance; }  ///< The module of the resources.
    CRebar& GetRebar() { return m_rebar; }  ///< The rebar.
    CStatusBar& GetStatusBar() { return m_statusBar; }  ///< The status bar.
    CCoolMenuMgr& GetCoolMenuMgr() { return m_menuManager; }  ///< The menu manager.
    /// The registered palettes.
    const std::vector<CPaletteWnd*>& GetPaletteWindows() const { return m_palettes; }
    BOOL IsRebarVisible() const { return m_rebarVisible; }  ///< The rebar is shown.
    BOOL IsStatusBarVisible() const { return m_statusBarVisible; }  ///< The status bar is shown.

    /// RBN_HEIGHTCHANGE lays out again.
    BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< The class named after the title.
    /// The menu, the accelerators and the saved placement.
    void PreCreate(CREATESTRUCTW& cs) override;
    /// Routes the frame's messages to the handlers below.
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;  ///< The toggle commands.
    void OnCreate() override;  ///< Creates the rebar and the status bar.
    void OnDestroy() override;  ///< Saves the placement and the bars' visibility.
    BOOL OnEraseBkgnd(CDC& dc) override;  ///< Skips erasing while a view covers the client area.
    void OnNcDestroy() override;  ///< Ends the application's loop (PostQuitMessage).
    using CWnd::OnNotify;  ///< CWnd's notification-center OnNotify.

    /// Called each time the frame is shown; does nothing by default.
    virtual void UpdateUiState();
    virtual void OnInitMenu(CMenu& menu);  ///< Checks the toggle commands by the bars' visibility.
    /// Shows the item's help in the status bar's simple mode, and the parts
    /// again when the menu closes.
    virtual void OnMenuSelect(WORD item, WORD flags, CMenu* menu);
    virtual void OnSettingChange();  ///< Reloads the menu, so that its items are measured anew.
    /// Shows the remembered palettes the first time, the owned pop-ups later.
    virtual void OnShowWindow(BOOL show, UINT status);
    virtual void OnSize();  ///< LayoutWindow.
    /// The help string of a command (CStatusBar::GetHelpString).
    virtual CString GetStatusString(UINT id);
    /// Places the rebar at the top, the status bar at the bottom and the view
    /// between.
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
