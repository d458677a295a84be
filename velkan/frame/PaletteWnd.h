#pragma once

#include <windows.h>

#include "velkan/app/Wnd.h"
#include "velkan/frame/Rebar.h"
#include "velkan/frame/StatusBar.h"

namespace Velkan {

/// A floating tool window owned by the main frame: a captioned, resizable
/// pop-up with an optional rebar and status bar around one view. Closing
/// only hides it and posts "Vlk.PaletteWndClosed" (data: the palette's
/// address). Its rectangle and visibility are kept in the registry under its
/// id and restored when it is created; the frame shows remembered palettes
/// when it is first shown.
class VELKAN_API CPaletteWnd : public CWnd {
public:
    /// Posted when the palette is closed.
    static constexpr const wchar_t* ClosedNotification = L"Vlk.PaletteWndClosed";

    /// A palette whose values are kept in registrySection under names
    /// starting with id.
    CPaletteWnd(LPCWSTR registrySection, LPCWSTR id, BOOL visibleByDefault, BOOL hasRebar, BOOL hasStatusBar);

    /// The id: the window title and the registry prefix.
    const CString& GetId() const { return m_id; }
    void SetId(LPCWSTR id) { m_id = id; }  ///< See GetId.
    const CString& GetRegKey() const { return m_section; }  ///< The registry section.
    CRebar& GetRebar() { return m_rebar; }  ///< The rebar, when the palette has one.
    /// The status bar, when the palette has one.
    CStatusBar& GetStatusBar() { return m_statusBar; }
    CWnd* GetView() const { return m_view; }  ///< The view; not owned.
    void SetView(CWnd* view) { m_view = view; }  ///< See GetView.
    /// The least size of the view.
    void SetViewMinSize(const SIZE& size) { m_viewMinSize = size; }
    /// Whether the view is repainted after each layout.
    void SetViewRequiresInvalidateOnResize(BOOL on) { m_viewRequiresInvalidate = on; }
    /// The remembered visibility: set by explicit shows, cleared by closing.
    BOOL WasVisible() const { return m_wasVisible; }

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< The "VlkPaletteWnd" class.
    /// A captioned, resizable tool window titled with the id.
    void PreCreate(CREATESTRUCTW& cs) override;
    /// Routes the palette's messages to the handlers below.
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    /// Creates the bars and restores the saved rectangle and visibility.
    void OnCreate() override;
    /// Saves the rectangle and visibility, unless the owner is minimised or
    /// maximised.
    void OnDestroy() override;

    /// Inside the frame's top-right corner, 50 pixels in (at 96 DPI).
    virtual CPoint GetDefaultPosition();
    /// 192 x 256 at 96 DPI.
    virtual CSize GetDefaultSize();
    virtual CSize GetViewMinSize();  ///< See SetViewMinSize.
    virtual void LayoutView(const CRect& rect);  ///< Places the view over rect.
    virtual void OnClose();  ///< Hides the palette and posts ClosedNotification.
    /// The least tracking size: the bars and the view's least size.
    virtual void OnGetMinMaxInfo(MINMAXINFO* info);
    virtual void OnShowWindow(BOOL show, UINT status);  ///< Records an explicit show.
    virtual void OnSize();  ///< Lays out the bars and the view.

private:
    CString ValueName(const wchar_t* suffix) const;

    CString m_id;
    CString m_section;
    CRebar m_rebar;
    CStatusBar m_statusBar;
    CWnd* m_view = nullptr;
    SIZE m_viewMinSize = {0, 0};
    BOOL m_viewRequiresInvalidate = FALSE;
    BOOL m_hasRebar;
    BOOL m_hasStatusBar;
    BOOL m_visibleByDefault;
    BOOL m_wasVisible = FALSE;
};

}  // namespace Velkan
