#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A scroll bar control ("SCROLLBAR"), either a bar of its own or the size
/// box that resizable windows show in their lower right corner.
class VELKAN_API CScrollbar : public CControl {
public:
    CScrollbar() : CControl(WC_SCROLLBARW) {}  ///< A wrapper without a window.

    using CControl::Create;  ///< CControl's Create.
    /// A size-box bar with the gripper look, as large as the system's scroll
    /// bar arrows and placed in parent's lower right
    /// client corner. Anchor it right and bottom to keep it there.
    HWND CreateSizingGrip(CWnd& parent);

    /// The Win32 scroll bar function of the same name, on this control
    /// (SB_CTL).
    ///@{
    BOOL GetScrollInfo(SCROLLINFO& info) const { return ::GetScrollInfo(m_hwnd, SB_CTL, &info); }
    int SetScrollInfo(const SCROLLINFO& info, BOOL redraw = TRUE) const { return ::SetScrollInfo(m_hwnd, SB_CTL, &info, redraw); }
    int GetScrollPos() const { return ::GetScrollPos(m_hwnd, SB_CTL); }
    int SetScrollPos(int pos, BOOL redraw = TRUE) const { return ::SetScrollPos(m_hwnd, SB_CTL, pos, redraw); }
    BOOL GetScrollRange(int* min, int* max) const { return ::GetScrollRange(m_hwnd, SB_CTL, min, max); }
    BOOL SetScrollRange(int min, int max, BOOL redraw = TRUE) const { return ::SetScrollRange(m_hwnd, SB_CTL, min, max, redraw); }
    BOOL EnableScrollBar(UINT arrows = ESB_ENABLE_BOTH) const { return ::EnableScrollBar(m_hwnd, SB_CTL, arrows); }
    BOOL ShowScrollBar(BOOL show = TRUE) const { return ::ShowScrollBar(m_hwnd, SB_CTL, show); }
    ///@}
    /// The control is a size box (SBS_SIZEBOX or SBS_SIZEGRIP).
    BOOL IsSizeBox() const { return (GetWindowStyle() & (SBS_SIZEBOX | SBS_SIZEGRIP)) != 0; }
};

}  // namespace Velkan
