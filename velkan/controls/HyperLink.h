#pragma once

#include <windows.h>

#include "velkan/core/Export.h"

namespace Velkan {

/// The window class "VlkHyperLink" for dialog templates: the window text
/// drawn as a link, underlined in the hot-light colour while the mouse is
/// over it, with a focus rectangle when focused. A click (on button-down),
/// a space-bar release or BM_CLICK sends NM_CLICK to the parent; opening
/// anything is the parent's business. The object lives in GWLP_USERDATA
/// from WM_NCCREATE until after WM_NCDESTROY; the window procedure makes
/// and deletes it.
class VELKAN_API CHyperLink {
public:
    /// Registers "VlkHyperLink" in instance, with the hand cursor. Once per
    /// process, before a template that uses the class is loaded.
    static BOOL RegisterWindowClass(HINSTANCE instance);
    /// The class's window procedure: makes the object at WM_NCCREATE, routes
    /// to WndProc, and deletes the object after WM_NCDESTROY.
    static LRESULT CALLBACK VlkWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

    /// The window procedure makes and deletes the objects; copies only copy
    /// the state.
    ///@{
    CHyperLink() = default;
    CHyperLink(const CHyperLink&) = default;
    CHyperLink& operator=(const CHyperLink&) = default;
    virtual ~CHyperLink() = default;
    ///@}

    HWND GetHwnd() const { return m_hwnd; }  ///< The link window.
    BOOL IsHot() const { return m_hot; }  ///< The mouse is over the link.
    BOOL IsFocused() const { return m_focused; }  ///< The link has the focus.
    /// The underlined form of the link's font, or null.
    HFONT GetUnderlineFont() const { return m_underlineFont; }

protected:
    /// The link's messages; TRUE when handled, with result.
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnNcCreate();  ///< Resets the state.
    void OnNcDestroy();  ///< Deletes the underlined font.
    /// Draws the text, underlined in the hot-light colour while hot, and the
    /// focus rectangle.
    void OnPaint();
    void OnSetCursor();  ///< Becomes hot and tracks the mouse's leaving.
    /// Records the focus and redraws.
    ///@{
    void OnSetFocus();
    void OnKillFocus();
    ///@}
    void OnSetFont(HFONT font, BOOL redraw);  ///< Keeps the font and makes its underlined form.
    HFONT OnGetFont() const { return m_font; }  ///< The font of WM_SETFONT.
    void OnLButtonDown();  ///< Takes the focus and sends NM_CLICK.
    void OnKeyUp(WPARAM key);  ///< The space bar sends NM_CLICK.
    void OnMouseLeave();  ///< Stops being hot.
    void OnBmClick();  ///< BM_CLICK sends NM_CLICK.
    void NotifyParent(UINT code);  ///< Sends WM_NOTIFY with code to the parent.

private:
    HWND m_hwnd = nullptr;
    HFONT m_font = nullptr;
    HFONT m_underlineFont = nullptr;
    BOOL m_hot = FALSE;
    BOOL m_focused = FALSE;
};

}  // namespace Velkan
