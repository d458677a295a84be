#pragma once

#include <windows.h>
#include <commctrl.h>

#include "velkan/app/Wnd.h"

namespace Velkan {

/// The base of the thin wrappers of system and common controls: the wrapper
/// names the window class, and Create makes a child control of it. A
/// control from a dialog template is tied to its wrapper with
/// AttachDlgItem, or SubclassDlgItem when its messages must reach WndProc.
class VELKAN_API CControl : public CWnd {
public:
    /// Creates the control as child id of parent over rect.
    /// WS_CHILD | WS_VISIBLE are added to style. Null on failure.
    HWND Create(CWnd& parent, UINT id, const RECT& rect, DWORD style = 0, DWORD exStyle = 0);
    using CWnd::Create;  ///< CWnd's Create, from the templates.

    /// The window class the wrapper names.
    const wchar_t* GetControlClassName() const { return m_className; }

protected:
    /// A wrapper of the window class className (kept as a pointer).
    explicit CControl(const wchar_t* className) : m_className(className) {}
    /// Names the control's class, so that CWnd::Create makes one.
    void PreRegisterWndClass(WNDCLASSEXW& wc) override;

private:
    const wchar_t* m_className;
};

}  // namespace Velkan
