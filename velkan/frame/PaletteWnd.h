#pragma once

#include <windows.h>

#include "velkan/app/Wnd.h"
#include "velkan/frame/Rebar.h"
#include "velkan/frame/StatusBar.h"

namespace Velkan {

// A floating tool window owned by the main frame: a captioned, resizable
// pop-up with an optional rebar and status bar around one view. Closing
// only hides it and posts "Vlk.PaletteWndClosed" (data: the palette's
// address). Its rectangle and visibility are kept in the registry under its
// id and restored when it is created; the frame shows remembered palettes
// when it is first shown.
class VELKAN_API CPaletteWnd : public CWnd {
public:
    static constexpr const wchar_t* ClosedNotification = L"Vlk.PaletteWndClosed";

    CPaletteWnd(LPCWSTR registrySection, LPCWSTR id, BOOL visibleByDefault, BOOL hasRebar, BOOL hasStatusBar);

    const CString& GetId() const { return m_id; }
    void SetId(LPCWSTR id) { m_id = id; }
    const CString& GetRegKey() const { return m_section; }
    CRebar& GetRebar() { return m_rebar; }
    CStatusBar& GetStatusBar() { return m_statusBar; }
    CWnd* GetView() const { return m_view; }
    void SetView(CWnd* view) { m_view = view; }
    void SetViewMinSize(const SIZE& size) { m_viewMinSize = size; }
    void SetViewRequiresInvalidateOnResize(BOOL on) { m_viewRequiresInvalidate = on; }
    // The remembered visibility: set by explicit shows, cleared by closing.
    BOOL WasVisible() const { return m_wasVisible; }

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;
    void PreCreate(CREATESTRUCTW& cs) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnCreate() override;
    void OnDestroy() override;

    // Inside the frame's top-right corner, 50 pixels in (at 96 DPI).
    virtual CPoint GetDefaultPosition();
    // 192 x 256 at 96 DPI.
    virtual CSize GetDefaultSize();
    virtual CSize GetViewMinSize();
    virtual void LayoutView(const CRect& rect);
    virtual void OnClose();
    virtual void OnGetMinMaxInfo(MINMAXINFO* info);
    virtual void OnShowWindow(BOOL show, UINT status);
    virtual void OnSize();

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
