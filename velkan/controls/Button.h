#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A push button, check box, radio button or group box ("Button").
class VELKAN_API CButton : public CControl {
public:
    CButton() : CControl(WC_BUTTONW) {}  ///< A wrapper without a window.

    /// The button message of the matching name (BM_*).
    ///@{
    UINT GetCheck() const { return static_cast<UINT>(SendMessageW(BM_GETCHECK)); }
    void SetCheck(UINT check) const { SendMessageW(BM_SETCHECK, check); }
    BOOL IsChecked() const { return GetCheck() == BST_CHECKED; }  ///< GetCheck() is BST_CHECKED.
    UINT GetState() const { return static_cast<UINT>(SendMessageW(BM_GETSTATE)); }
    void SetState(BOOL highlight) const { SendMessageW(BM_SETSTATE, static_cast<WPARAM>(highlight)); }
    /// BM_SETSTYLE.
    void SetButtonStyle(DWORD style, BOOL redraw = TRUE) const { SendMessageW(BM_SETSTYLE, style, redraw); }
    void Click() const { SendMessageW(BM_CLICK); }
    HANDLE SetImage(UINT type, HANDLE image) const { return reinterpret_cast<HANDLE>(SendMessageW(BM_SETIMAGE, type, reinterpret_cast<LPARAM>(image))); }
    HANDLE GetImage(UINT type) const { return reinterpret_cast<HANDLE>(SendMessageW(BM_GETIMAGE, type)); }
    ///@}
    /// The size that fits text and image; (0, 0) where the control cannot tell.
    /// BCM_GETIDEALSIZE.
    CSize GetIdealSize() const;
    /// BCM_SETSHIELD: the shield icon of an action that needs elevation.
    BOOL SetElevationRequired(BOOL required) const { return static_cast<BOOL>(SendMessageW(BCM_SETSHIELD, 0, required)); }
};

}  // namespace Velkan
