#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

// A static text, icon or bitmap ("Static").
class VELKAN_API CStaticControl : public CControl {
public:
    CStaticControl();

    HICON SetIcon(HICON icon) const { return reinterpret_cast<HICON>(SendMessageW(STM_SETICON, reinterpret_cast<WPARAM>(icon))); }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessageW(STM_GETICON)); }
    // The control does not own the bitmap; the previous one is returned.
    HBITMAP SetBitmap(HBITMAP bitmap) const { return reinterpret_cast<HBITMAP>(SendMessageW(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap))); }
    HBITMAP GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessageW(STM_GETIMAGE, IMAGE_BITMAP)); }
};

}  // namespace Velkan
