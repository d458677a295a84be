#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A tooltip control ("tooltips_class32"): tools are windows or rectangles
/// of a window, each with its text.
class VELKAN_API CTooltip : public CControl {
public:
    CTooltip() : CControl(TOOLTIPS_CLASSW) {}  ///< A wrapper without a window.

    /// A top-level tooltip owned by owner, with TTS_ALWAYSTIP | TTS_NOPREFIX.
    HWND Create(CWnd& owner, DWORD style = TTS_ALWAYSTIP | TTS_NOPREFIX);
    using CControl::Create;  ///< CControl's Create.

    /// The whole window tool, subclassed so the tooltip sees its mouse moves.
    BOOL AddTool(HWND tool, const wchar_t* text) const;
    /// A rectangle of window, known by id.
    BOOL AddTool(HWND window, UINT id, const RECT& rect, const wchar_t* text) const;
    /// Removes a tool: a window's handle as id, or a rectangle's id.
    void DelTool(HWND window, UINT_PTR id) const;
    /// Changes a tool's text.
    void UpdateTipText(HWND window, UINT_PTR id, const wchar_t* text) const;
    /// The tooltip message of the matching name (TTM_*).
    ///@{
    int GetToolCount() const { return static_cast<int>(SendMessageW(TTM_GETTOOLCOUNT)); }
    void Activate(BOOL active) const { SendMessageW(TTM_ACTIVATE, static_cast<WPARAM>(active)); }
    int SetMaxTipWidth(int width) const { return static_cast<int>(SendMessageW(TTM_SETMAXTIPWIDTH, 0, width)); }
    void SetDelayTime(DWORD which, int ms) const { SendMessageW(TTM_SETDELAYTIME, which, MAKELPARAM(ms, 0)); }
    void Pop() const { SendMessageW(TTM_POP); }
    ///@}
};

}  // namespace Velkan
