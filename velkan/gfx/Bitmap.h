#pragma once

#include "velkan/core/Geometry.h"
#include "velkan/gfx/GdiObject.h"

namespace Velkan {

// A bitmap shared by reference count, most often a 32-bit top-down DIB
// section with straight alpha.
class VELKAN_API CBitmap : public CGdiObject {
public:
    static const int BASE_DPI;  // 96: the DPI resource images are drawn for

    CBitmap() = default;
    explicit CBitmap(HBITMAP bitmap);
    CBitmap(HDC hdc, int cx, int cy);
    CBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits);
    CBitmap(const CBitmap&) = default;
    CBitmap(CBitmap&&) noexcept = default;
    CBitmap& operator=(const CBitmap&) = default;
    CBitmap& operator=(CBitmap&&) noexcept = default;
    ~CBitmap() override;

    HBITMAP CreateBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits);
    HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy);
    HBITMAP CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                           const BITMAPINFO* info, UINT usage);

    HBITMAP GetHbitmap() const { return static_cast<HBITMAP>(GetHandle()); }
    operator HBITMAP() const { return GetHbitmap(); }
    HBITMAP Detach() { return static_cast<HBITMAP>(CGdiObject::Detach()); }
    BOOL IsValid() const { return GetHandle() != nullptr; }
    int GetBitmap(BITMAP* bitmap) const { return GetObjectW(sizeof(BITMAP), bitmap); }
    int GetDIBSection(DIBSECTION* section) const { return GetObjectW(sizeof(DIBSECTION), section); }
    // (0, 0) when the bitmap cannot be read.
    CSize GetSize() const;
    // A 32-bit DIB section.
    bool HasAlpha() const;
    // 8 bits per pixel or fewer.
    bool HasPalette() const;

    static CBitmap* FromHbitmap(HBITMAP bitmap);
};

}  // namespace Velkan
