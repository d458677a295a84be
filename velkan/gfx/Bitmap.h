#pragma once

#include <windows.h>
#include <objidl.h>  // GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out
#include <gdiplus.h>

#include <memory>

#include "velkan/core/Geometry.h"
#include "velkan/gfx/GdiObject.h"

namespace Velkan {

class CIcon;

/// A bitmap shared by reference count, most often a 32-bit top-down DIB
/// section with straight (not premultiplied) alpha. Resource loaders use the
/// application's module when given a null instance; GDI+ must be running
/// (the application object starts it).
class VELKAN_API CBitmap : public CGdiObject {
public:
    static const int BASE_DPI;  ///< 96: the DPI resource images are drawn for

    CBitmap() = default;  ///< No bitmap.
    explicit CBitmap(HBITMAP bitmap);  ///< Takes ownership of bitmap, as Attach does.
    /// A new bitmap compatible with hdc (CreateCompatibleBitmap).
    CBitmap(HDC hdc, int cx, int cy);
    /// A new bitmap (CreateBitmap).
    CBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits);
    /// A BITMAP resource, as it is or stretched for dpi (see
    /// LoadBitmapResourceWithDpi). The loading constructors throw
    /// CResourceNotFoundException.
    ///@{
    CBitmap(UINT id, HINSTANCE instance);
    CBitmap(UINT id, int dpi, HINSTANCE instance);
    ///@}
    /// An image resource of a type GDI+ decodes, such as "PNG", as it is or
    /// stretched for dpi; throws CResourceNotFoundException.
    ///@{
    CBitmap(UINT id, const wchar_t* type, HINSTANCE instance);
    CBitmap(UINT id, const wchar_t* type, int dpi, HINSTANCE instance);
    ///@}
    explicit CBitmap(Gdiplus::Bitmap& bitmap);  ///< A new bitmap from a GDI+ one (GetHBITMAP).
    /// The icon's colour image in a 32-bit DIB, alpha kept.
    explicit CBitmap(const CIcon& icon);
    /// Copies share the bitmap.
    ///@{
    CBitmap(const CBitmap&) = default;
    CBitmap(CBitmap&&) noexcept = default;
    CBitmap& operator=(const CBitmap&) = default;
    CBitmap& operator=(CBitmap&&) noexcept = default;
    ///@}
    ~CBitmap() override;  ///< Drops this owner.

    /// Makes a new bitmap by the GDI function of the same name and owns it in
    /// place of the current one.
    ///@{
    HBITMAP CreateBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits);
    HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy);
    HBITMAP CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                           const BITMAPINFO* info, UINT usage);
    ///@}
    /// Loads a BITMAP resource as a DIB section and owns it. Null when the
    /// resource is missing (no exception).
    HBITMAP LoadBitmapResource(UINT id, HINSTANCE instance);
    /// LoadBitmapResource, then always stretched to MulDiv(size, dpi, 96),
    /// even at 96. Throws when the resource is missing.
    HBITMAP LoadBitmapResourceWithDpi(UINT id, int dpi, HINSTANCE instance);
    /// Decodes an image resource with GDI+ into a 32-bit DIB section and owns
    /// it; null when it is missing or does not decode.
    HBITMAP LoadImageResource(UINT id, const wchar_t* type, HINSTANCE instance);
    /// LoadImageResource, then stretched as LoadBitmapResourceWithDpi
    /// stretches. Throws when the resource is missing.
    HBITMAP LoadImageResourceWithDpi(UINT id, const wchar_t* type, int dpi, HINSTANCE instance);

    /// The bitmap, or null.
    HBITMAP GetHbitmap() const { return static_cast<HBITMAP>(GetHandle()); }
    operator HBITMAP() const { return GetHbitmap(); }  ///< The bitmap, or null.
    /// CGdiObject::Detach, typed.
    HBITMAP Detach() { return static_cast<HBITMAP>(CGdiObject::Detach()); }
    BOOL IsValid() const { return GetHandle() != nullptr; }  ///< There is a bitmap.
    /// GetObject into a BITMAP.
    int GetBitmap(BITMAP* bitmap) const { return GetObjectW(sizeof(BITMAP), bitmap); }
    /// GetObject into a DIBSECTION; sizeof(DIBSECTION) for a DIB section.
    int GetDIBSection(DIBSECTION* section) const { return GetObjectW(sizeof(DIBSECTION), section); }
    /// The size in pixels; (0, 0) when the bitmap cannot be read.
    CSize GetSize() const;
    /// The bitmap is a 32-bit DIB section, taken as having alpha.
    bool HasAlpha() const;
    /// The bitmap has 8 bits per pixel or fewer.
    bool HasPalette() const;

    // New bitmaps; this one is not changed.
    /// A 32-bit copy stretched with GDI+, high quality or nearest neighbour;
    /// empty for a zero size.
    ///@{
    CBitmap GetStretched(int cx, int cy, BOOL highQuality) const;
    CBitmap GetStretched(const CSize& size, BOOL highQuality) const { return GetStretched(size.cx, size.cy, highQuality); }
    ///@}
    /// A copy stretched to ceil(size x factor), high quality.
    CBitmap GetScaled(float factor) const;
    /// A grey copy (luminance), alpha kept; GetGrayscaleEx gives it as a GDI+
    /// bitmap.
    ///@{
    CBitmap GetGrayscale() const;
    std::unique_ptr<Gdiplus::Bitmap> GetGrayscaleEx() const;
    ///@}
    /// A 32-bit copy whose pixels of colour mask are transparent. Only
    /// palette bitmaps are masked; others come back as plain copies.
    CBitmap GetMasked(COLORREF mask) const;
    /// ConvertDIBToGdiPlusBitmap of this bitmap.
    std::unique_ptr<Gdiplus::Bitmap> ToGdiplusBitmap() const { return ConvertDIBToGdiPlusBitmap(GetHbitmap()); }

    /// The permanent wrapper of bitmap, or a temporary one.
    static CBitmap* FromHbitmap(HBITMAP bitmap);
    /// A GDI+ bitmap of a GDI one; a 32-bit DIB section is copied byte for
    /// byte: DIB BGRA is GDI+ ARGB, nothing is premultiplied.
    static std::unique_ptr<Gdiplus::Bitmap> ConvertDIBToGdiPlusBitmap(HBITMAP bitmap);
    /// A new 32-bit top-down DIB section of a GDI+ bitmap, or null; the caller
    /// owns it.
    static HBITMAP ConvertGdiPlusBitmapToDIB(Gdiplus::Bitmap& bitmap);

private:
    static void ReplaceMaskColorWithTransparency(Gdiplus::Bitmap& bitmap, COLORREF colour);
};

}  // namespace Velkan

namespace Gdiplus {

/// A GDI+ bitmap decoded from an image resource (PNG and the like).
class VELKAN_API BitmapEx : public Bitmap {
public:
    /// Throws Velkan::CResourceNotFoundException when the resource is
    /// missing or does not decode.
    BitmapEx(UINT id, const wchar_t* type, HINSTANCE instance);
    ~BitmapEx() override;  ///< Releases the GDI+ bitmap.
    /// The size in pixels.
    Velkan::CSize GetSize() { return Velkan::CSize(static_cast<LONG>(GetWidth()), static_cast<LONG>(GetHeight())); }

private:
    friend class Velkan::CBitmap;
    static IStream* GetImageResourceAsStream(UINT id, const wchar_t* type, HINSTANCE instance);
};

}  // namespace Gdiplus
