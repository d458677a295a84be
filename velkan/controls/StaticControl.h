#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A static text, icon or bitmap ("Static").
class VELKAN_API CStaticControl : public CControl {
public:
    CStaticControl();  ///< A wrapper without a window.

    /// STM_SETICON; returns the previous icon.
    HICON SetIcon(HICON icon) const { return reinterpret_cast<HICON>(SendMessageW(STM_SETICON, reinterpret_cast<WPARAM>(icon))); }
    /// STM_GETICON.
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessageW(STM_GETICON)); }
    /// The control does not own the bitmap; the previous one is returned.
    /// STM_SETIMAGE with IMAGE_BITMAP.
    HBITMAP SetBitmap(HBITMAP bitmap) const { return reinterpret_cast<HBITMAP>(SendMessageW(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap))); }
    /// STM_GETIMAGE with IMAGE_BITMAP.
    HBITMAP GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessageW(STM_GETIMAGE, IMAGE_BITMAP)); }
};

}  // namespace Velkan
