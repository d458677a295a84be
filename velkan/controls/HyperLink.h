#pragma once

#include <windows.h>

#include "velkan/core/Export.h"

namespace Velkan {

// The window class "VlkHyperLink" for dialog templates: the window text
// drawn as a link, underlined in the hot-light colour while the mouse is
// over it, with a focus rectangle when focused. A click (on button-down),
// a space-bar release or BM_CLICK sends NM_CLICK to the parent; opening
// anything is the parent's business. The object lives in GWLP_USERDATA
// from WM_NCCREATE until after WM_NCDESTROY; the window procedure makes
// and deletes it.
class VELKAN_API CHyperLink {
public:
    // Once per process, before a template that uses the class is loaded.
    static BOOL RegisterWindowClass(HINSTANCE instance);
    static LRESULT CALLBACK VlkWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

    CHyperLink() = default;
    CHyperLink(const CHyperLink&) = default;
    CHyperLink& operator=(const CHyperLink&) = default;
    virtual ~CHyperLink() = default;

    HWND GetHwnd() const { return m_hwnd; }
    BOOL IsHot() const { return m_hot; }
    BOOL IsFocused() const { return m_focused; }
    HFONT GetUnderlineFont() const { return m_underlineFont; }

protected:
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnNcCreate();
    void OnNcDestroy();
    void OnPaint();
    void OnSetCursor();
    void OnSetFocus();
    void OnKillFocus();
    void OnSetFont(HFONT font, BOOL redraw);
    HFONT OnGetFont() const { return m_font; }
    void OnLButtonDown();
    void OnKeyUp(WPARAM key);
    void OnMouseLeave();
    void OnBmClick();
    void NotifyParent(UINT code);

private:
    HWND m_hwnd = nullptr;
    HFONT m_font = nullptr;
    HFONT m_underlineFont = nullptr;
    BOOL m_hot = FALSE;
    BOOL m_focused = FALSE;
};

}  // namespace Velkan
