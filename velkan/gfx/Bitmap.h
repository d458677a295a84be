#pragma once

#include <windows.h>
#include <objidl.h>  // GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out
#include <gdiplus.h>

#include <memory>

#include "velkan/core/Geometry.h"
#include "velkan/gfx/GdiObject.h"

namespace Velkan {

class CIcon;

// A bitmap shared by reference count, most often a 32-bit top-down DIB
// section with straight (not premultiplied) alpha. Resource loaders use the
// application's module when given a null instance; GDI+ must be running
// (the application object starts it).
class VELKAN_API CBitmap : public CGdiObject {
public:
    static const int BASE_DPI;  // 96: the DPI resource images are drawn for

    CBitmap() = default;
    explicit CBitmap(HBITMAP bitmap);
    CBitmap(HDC hdc, int cx, int cy);
    CBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits);
    // The loading constructors throw CResourceNotFoundException.
    CBitmap(UINT id, HINSTANCE instance);
    CBitmap(UINT id, int dpi, HINSTANCE instance);
    // An image resource of a type GDI+ decodes, such as "PNG".
    CBitmap(UINT id, const wchar_t* type, HINSTANCE instance);
    CBitmap(UINT id, const wchar_t* type, int dpi, HINSTANCE instance);
    explicit CBitmap(Gdiplus::Bitmap& bitmap);
    // The icon's colour image in a 32-bit DIB, alpha kept.
    explicit CBitmap(const CIcon& icon);
    CBitmap(const CBitmap&) = default;
    CBitmap(CBitmap&&) noexcept = default;
    CBitmap& operator=(const CBitmap&) = default;
    CBitmap& operator=(CBitmap&&) noexcept = default;
    ~CBitmap() override;

    HBITMAP CreateBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits);
    HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy);
    HBITMAP CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                           const BITMAPINFO* info, UINT usage);
    // Null when the resource is missing (no exception).
    HBITMAP LoadBitmapResource(UINT id, HINSTANCE instance);
    // Loaded, then always stretched to MulDiv(size, dpi, 96), even at 96.
    HBITMAP LoadBitmapResourceWithDpi(UINT id, int dpi, HINSTANCE instance);
    HBITMAP LoadImageResource(UINT id, const wchar_t* type, HINSTANCE instance);
    HBITMAP LoadImageResourceWithDpi(UINT id, const wchar_t* type, int dpi, HINSTANCE instance);

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

    // New bitmaps; this one is not changed.
    CBitmap GetStretched(int cx, int cy, BOOL highQuality) const;
    CBitmap GetStretched(const CSize& size, BOOL highQuality) const { return GetStretched(size.cx, size.cy, highQuality); }
    // ceil(size x factor), high quality.
    CBitmap GetScaled(float factor) const;
    CBitmap GetGrayscale() const;
    std::unique_ptr<Gdiplus::Bitmap> GetGrayscaleEx() const;
    // Only palette bitmaps are masked; others come back as plain copies.
    CBitmap GetMasked(COLORREF mask) const;
    std::unique_ptr<Gdiplus::Bitmap> ToGdiplusBitmap() const { return ConvertDIBToGdiPlusBitmap(GetHbitmap()); }

    static CBitmap* FromHbitmap(HBITMAP bitmap);
    // Byte for byte: DIB BGRA is GDI+ ARGB, nothing is premultiplied.
    static std::unique_ptr<Gdiplus::Bitmap> ConvertDIBToGdiPlusBitmap(HBITMAP bitmap);
    static HBITMAP ConvertGdiPlusBitmapToDIB(Gdiplus::Bitmap& bitmap);

private:
    static void ReplaceMaskColorWithTransparency(Gdiplus::Bitmap& bitmap, COLORREF colour);
};

}  // namespace Velkan

namespace Gdiplus {

// A GDI+ bitmap decoded from an image resource (PNG and the like).
class VELKAN_API BitmapEx : public Bitmap {
public:
    // Throws Velkan::CResourceNotFoundException when the resource is
    // missing or does not decode.
    BitmapEx(UINT id, const wchar_t* type, HINSTANCE instance);
    ~BitmapEx() override;
    Velkan::CSize GetSize() { return Velkan::CSize(static_cast<LONG>(GetWidth()), static_cast<LONG>(GetHeight())); }

private:
    friend class Velkan::CBitmap;
    static IStream* GetImageResourceAsStream(UINT id, const wchar_t* type, HINSTANCE instance);
};

}  // namespace Gdiplus
