#pragma once

#include <windows.h>
#include <commctrl.h>

#include "velkan/app/Wnd.h"

namespace Velkan {

/// A common-controls status bar with parts, texts, icons, simple mode and
/// menu help strings. In right-justify mode the first part stretches so that
/// the other parts stay at the right edge, clear of the size grip.
class VELKAN_API CStatusBar : public CWnd {
public:
    CStatusBar() = default;  ///< No window; Create makes the control.

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< Names the status bar class.
    void PreCreate(CREATESTRUCTW& cs) override;  ///< A visible child with a size grip.
    /// WM_SIZE, in right-justify mode: the control sizes itself, then the parts
    /// follow.
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    /// The help text of a command: empty for ids below 40000 or without a
    /// string; up to and including the first line feed when there is one.
    virtual CString GetHelpString(UINT id, HINSTANCE instance) const;
    /// Turns right-justify mode on or off. firstPartWidth 0 keeps the current
    /// first part's width (24 without parts). Subclasses the control once, so
    /// that WM_SIZE reaches WndProc.
    void SetRightJustifyMode(BOOL on, int firstPartWidth = 0);
    /// The first part's width of right-justify mode.
    int GetFirstPartWidth() const { return m_firstPartWidth; }

    /// The status bar message of the matching name (SB_*).
    ///@{
    BOOL SetParts(int count, const int* rightEdges) const { return static_cast<BOOL>(SendMessageW(SB_SETPARTS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rightEdges))); }
    /// SetParts.
    BOOL CreateParts(int count, const int* rightEdges) const { return SetParts(count, rightEdges); }
    int GetParts(int* edges, int max) const { return static_cast<int>(SendMessageW(SB_GETPARTS, static_cast<WPARAM>(max), reinterpret_cast<LPARAM>(edges))); }
    /// The number of parts.
    int GetPartsCount() const { return static_cast<int>(SendMessageW(SB_GETPARTS, 0, 0)); }
    CRect GetPartRect(int part) const;  ///< SB_GETRECT; empty on failure.
    BOOL SetPartText(int part, const wchar_t* text, UINT type = 0) const { return static_cast<BOOL>(SendMessageW(SB_SETTEXTW, static_cast<WPARAM>(part) | type, reinterpret_cast<LPARAM>(text))); }
    int GetPartTextLength(int part) const { return LOWORD(SendMessageW(SB_GETTEXTLENGTHW, static_cast<WPARAM>(part))); }
    CString GetPartText(int part) const;  ///< A part's text.
    BOOL SetPartIcon(int part, HICON icon) const { return static_cast<BOOL>(SendMessageW(SB_SETICON, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(icon))); }
    HICON GetPartIcon(int part) const { return reinterpret_cast<HICON>(SendMessageW(SB_GETICON, static_cast<WPARAM>(part))); }
    void SetSimple(BOOL simple) const { SendMessageW(SB_SIMPLE, static_cast<WPARAM>(simple)); }
    BOOL IsSimple() const { return static_cast<BOOL>(SendMessageW(SB_ISSIMPLE)); }
    ///@}

private:
    // Stretches the first part over the room the others leave.
    void RightJustify();

    int m_firstPartWidth = 0;
};

}  // namespace Velkan
