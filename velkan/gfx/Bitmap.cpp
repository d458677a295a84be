#include "velkan/gfx/Bitmap.h"

namespace Velkan {

const int CBitmap::BASE_DPI = 96;

CBitmap::CBitmap(HBITMAP bitmap) : CGdiObject(bitmap) {}

CBitmap::CBitmap(HDC hdc, int cx, int cy) {
    CreateCompatibleBitmap(hdc, cx, cy);
}

CBitmap::CBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits) {
    CreateBitmap(cx, cy, planes, bitsPerPixel, bits);
}

CBitmap::~CBitmap() = default;

HBITMAP CBitmap::CreateBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits) {
    Attach(::CreateBitmap(cx, cy, planes, bitsPerPixel, bits));
    return GetHbitmap();
}

HBITMAP CBitmap::CreateCompatibleBitmap(HDC hdc, int cx, int cy) {
    Attach(::CreateCompatibleBitmap(hdc, cx, cy));
    return GetHbitmap();
}

HBITMAP CBitmap::CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                                const BITMAPINFO* info, UINT usage) {
    Attach(::CreateDIBitmap(hdc, header, init, bits, info, usage));
    return GetHbitmap();
}

CSize CBitmap::GetSize() const {
    BITMAP bitmap = {};
    if (GetBitmap(&bitmap) == 0) return CSize(0, 0);
    return CSize(bitmap.bmWidth, bitmap.bmHeight);
}

bool CBitmap::HasAlpha() const {
    DIBSECTION section = {};
    if (GetDIBSection(&section) != sizeof(DIBSECTION)) return false;
    return section.dsBmih.biSize > 0 && section.dsBm.bmBitsPixel == 32;
}

bool CBitmap::HasPalette() const {
    BITMAP bitmap = {};
    return GetBitmap(&bitmap) != 0 && bitmap.bmBitsPixel <= 8;
}

CBitmap* CBitmap::FromHbitmap(HBITMAP bitmap) {
    CGdiObject* wrapper =
        FromHGDIObject(bitmap, [](HGDIOBJ) -> std::shared_ptr<CGdiObject> { return std::make_shared<CBitmap>(); });
    return static_cast<CBitmap*>(wrapper);
}

}  // namespace Velkan
