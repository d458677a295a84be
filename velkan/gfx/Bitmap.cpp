#include "velkan/gfx/Bitmap.h"

#include <shlwapi.h>

#include <cmath>
#include <cstring>

#include "velkan/core/Exceptions.h"
#include "velkan/core/Resource.h"
#include "velkan/gfx/Icon.h"
#include "velkan/gfx/ScopedDC.h"

namespace Velkan {

const int CBitmap::BASE_DPI = 96;

namespace {

// A 32-bit top-down DIB section; bits receives its pixel memory.
HBITMAP CreateTopDownDib(int width, int height, void** bits) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    CDesktopDC screen;
    return ::CreateDIBSection(screen, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}

}  // namespace

CBitmap::CBitmap(HBITMAP bitmap) : CGdiObject(bitmap) {}

CBitmap::CBitmap(HDC hdc, int cx, int cy) {
    CreateCompatibleBitmap(hdc, cx, cy);
}

CBitmap::CBitmap(int cx, int cy, UINT planes, UINT bitsPerPixel, const void* bits) {
    CreateBitmap(cx, cy, planes, bitsPerPixel, bits);
}

CBitmap::CBitmap(UINT id, HINSTANCE instance) {
    if (LoadBitmapResource(id, instance) == nullptr) throw CResourceNotFoundException(id);
}

CBitmap::CBitmap(UINT id, int dpi, HINSTANCE instance) {
    if (LoadBitmapResourceWithDpi(id, dpi, instance) == nullptr) throw CResourceNotFoundException(id);
}

CBitmap::CBitmap(UINT id, const wchar_t* type, HINSTANCE instance) {
    if (LoadImageResource(id, type, instance) == nullptr) throw CResourceNotFoundException(id);
}

CBitmap::CBitmap(UINT id, const wchar_t* type, int dpi, HINSTANCE instance) {
    if (LoadImageResourceWithDpi(id, type, dpi, instance) == nullptr) throw CResourceNotFoundException(id);
}

CBitmap::CBitmap(Gdiplus::Bitmap& bitmap) {
    HBITMAP handle = nullptr;
    bitmap.GetHBITMAP(Gdiplus::Color(0), &handle);
    Attach(handle);
}

CBitmap::CBitmap(const CIcon& icon) {
    CIconInfo info = icon.GetIconInfo();
    BITMAP colour = {};
    ::GetObjectW(info.hbmColor != nullptr ? info.hbmColor : info.hbmMask, sizeof(colour), &colour);
    const int width = colour.bmWidth;
    const int height = info.hbmColor != nullptr ? colour.bmHeight : colour.bmHeight / 2;
    void* bits = nullptr;
    HBITMAP dib = CreateTopDownDib(width, height, &bits);
    if (dib == nullptr || bits == nullptr) return;
    std::memset(bits, 0, static_cast<size_t>(width) * height * 4);
    {
        CMemDC memory(nullptr);
        memory.SelectObject(dib);
        // DI_IMAGE alone: the mask is not applied, so icon alpha survives.
        ::DrawIconEx(memory, 0, 0, icon.GetHicon(), width, height, 0, nullptr, DI_IMAGE);
    }
    Attach(dib);
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

HBITMAP CBitmap::LoadBitmapResource(UINT id, HINSTANCE instance) {
    HANDLE handle = ::LoadImageW(CResourceLoader::ResolveInstance(instance), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0,
                                 0, LR_CREATEDIBSECTION);
    if (handle == nullptr) return nullptr;
    Attach(handle);
    return GetHbitmap();
}

HBITMAP CBitmap::LoadBitmapResourceWithDpi(UINT id, int dpi, HINSTANCE instance) {
    CBitmap source(id, instance);
    const CSize size = source.GetSize();
    CBitmap stretched = source.GetStretched(::MulDiv(size.cx, dpi, 96), ::MulDiv(size.cy, dpi, 96), TRUE);
    Attach(stretched.Detach());
    return GetHbitmap();
}

HBITMAP CBitmap::LoadImageResource(UINT id, const wchar_t* type, HINSTANCE instance) {
    IStream* stream = nullptr;
    try {
        stream = Gdiplus::BitmapEx::GetImageResourceAsStream(id, type, instance);
    } catch (const CResourceNotFoundException&) {
        return nullptr;  // the loaders report a missing resource as null
    }
    if (stream == nullptr) return nullptr;
    Gdiplus::Bitmap bitmap(stream);
    if (bitmap.GetLastStatus() != Gdiplus::Ok) return nullptr;
    HBITMAP dib = ConvertGdiPlusBitmapToDIB(bitmap);
    if (dib == nullptr) return nullptr;
    Attach(dib);
    return GetHbitmap();
}

HBITMAP CBitmap::LoadImageResourceWithDpi(UINT id, const wchar_t* type, int dpi, HINSTANCE instance) {
    CBitmap source(id, type, instance);
    const CSize size = source.GetSize();
    CBitmap stretched = source.GetStretched(::MulDiv(size.cx, dpi, 96), ::MulDiv(size.cy, dpi, 96), TRUE);
    Attach(stretched.Detach());
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

// ---------------------------------------------------------------------------
// Between GDI and GDI+

std::unique_ptr<Gdiplus::Bitmap> CBitmap::ConvertDIBToGdiPlusBitmap(HBITMAP hbm) {
    if (hbm == nullptr) return nullptr;
    DIBSECTION section = {};
    CBitmap* wrapper = FromHbitmap(hbm);
    if (wrapper->GetDIBSection(&section) != sizeof(DIBSECTION) || section.dsBm.bmBitsPixel != 32)
        return std::make_unique<Gdiplus::Bitmap>(hbm, static_cast<HPALETTE>(nullptr));

    const int width = section.dsBm.bmWidth, height = section.dsBm.bmHeight;
    auto bitmap = std::make_unique<Gdiplus::Bitmap>(width, height, PixelFormat32bppARGB);
    Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data = {};
    if (bitmap->LockBits(&whole, Gdiplus::ImageLockModeWrite, PixelFormat32bppARGB, &data) != Gdiplus::Ok)
        return nullptr;
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    int lines;
    {
        CDesktopDC screen;
        lines = ::GetDIBits(screen, hbm, 0, static_cast<UINT>(height), data.Scan0, &info, DIB_RGB_COLORS);
    }
    bitmap->UnlockBits(&data);
    if (lines == 0) return nullptr;
    return bitmap;
}

HBITMAP CBitmap::ConvertGdiPlusBitmapToDIB(Gdiplus::Bitmap& bitmap) {
    const int width = static_cast<int>(bitmap.GetWidth()), height = static_cast<int>(bitmap.GetHeight());
    void* bits = nullptr;
    HBITMAP dib = CreateTopDownDib(width, height, &bits);
    if (dib == nullptr || bits == nullptr) {
        if (dib != nullptr) ::DeleteObject(dib);
        return nullptr;
    }
    Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data = {};
    if (bitmap.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) != Gdiplus::Ok) {
        ::DeleteObject(dib);
        return nullptr;
    }
    for (int y = 0; y < height; ++y) {
        std::memcpy(static_cast<BYTE*>(bits) + static_cast<size_t>(y) * width * 4,
                    static_cast<BYTE*>(data.Scan0) + static_cast<ptrdiff_t>(y) * data.Stride,
                    static_cast<size_t>(width) * 4);
    }
    bitmap.UnlockBits(&data);
    return dib;
}

// ---------------------------------------------------------------------------
// Derived bitmaps

CBitmap CBitmap::GetStretched(int cx, int cy, BOOL highQuality) const {
    std::unique_ptr<Gdiplus::Bitmap> source = ToGdiplusBitmap();
    if (!source || cx <= 0 || cy <= 0) return CBitmap();
    Gdiplus::Bitmap target(cx, cy, PixelFormat32bppARGB);
    {
        Gdiplus::Graphics graphics(&target);
        Gdiplus::ImageAttributes attributes;
        // Mirrored tiling keeps edge pixels from blending with nothing.
        attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY, Gdiplus::Color(0xFF000000), FALSE);
        graphics.SetInterpolationMode(highQuality ? Gdiplus::InterpolationModeHighQuality
                                                  : Gdiplus::InterpolationModeNearestNeighbor);
        graphics.DrawImage(source.get(), Gdiplus::RectF(0, 0, static_cast<float>(cx), static_cast<float>(cy)), 0.0f,
                           0.0f, static_cast<float>(source->GetWidth()), static_cast<float>(source->GetHeight()),
                           Gdiplus::UnitPixel, &attributes);
    }
    return CBitmap(ConvertGdiPlusBitmapToDIB(target));
}

CBitmap CBitmap::GetScaled(float factor) const {
    BITMAP bitmap = {};
    int cx = 0, cy = 0;
    if (GetBitmap(&bitmap) != 0) {
        cx = static_cast<int>(std::ceil(static_cast<float>(bitmap.bmWidth) * factor));
        cy = static_cast<int>(std::ceil(static_cast<float>(bitmap.bmHeight) * factor));
    }
    return GetStretched(cx, cy, TRUE);
}

std::unique_ptr<Gdiplus::Bitmap> CBitmap::GetGrayscaleEx() const {
    std::unique_ptr<Gdiplus::Bitmap> source = ToGdiplusBitmap();
    if (!source) return nullptr;
    const int width = static_cast<int>(source->GetWidth()), height = static_cast<int>(source->GetHeight());
    auto target = std::make_unique<Gdiplus::Bitmap>(width, height, PixelFormat32bppARGB);
    // Each of R, G and B becomes the luminance; alpha stays.
    Gdiplus::ColorMatrix matrix = {{{0.299f, 0.299f, 0.299f, 0, 0},
                                    {0.587f, 0.587f, 0.587f, 0, 0},
                                    {0.114f, 0.114f, 0.114f, 0, 0},
                                    {0, 0, 0, 1, 0},
                                    {0, 0, 0, 0, 1}}};
    Gdiplus::ImageAttributes attributes;
    attributes.SetColorMatrix(&matrix, Gdiplus::ColorMatrixFlagsDefault, Gdiplus::ColorAdjustTypeDefault);
    Gdiplus::Graphics graphics(target.get());
    graphics.DrawImage(source.get(), Gdiplus::Rect(0, 0, width, height), 0, 0, width, height, Gdiplus::UnitPixel,
                       &attributes);
    return target;
}

CBitmap CBitmap::GetGrayscale() const {
    std::unique_ptr<Gdiplus::Bitmap> grey = GetGrayscaleEx();
    return grey ? CBitmap(ConvertGdiPlusBitmapToDIB(*grey)) : CBitmap();
}

CBitmap CBitmap::GetMasked(COLORREF mask) const {
    DIBSECTION section = {};
    GetObjectW(sizeof(section), &section);
    if (section.dsBm.bmBitsPixel > 8) {
        // Kept: bitmaps with more than 8 bits are copied, not masked.
        std::unique_ptr<Gdiplus::Bitmap> copy = ToGdiplusBitmap();
        return copy ? CBitmap(ConvertGdiPlusBitmapToDIB(*copy)) : CBitmap();
    }
    Gdiplus::Bitmap source(GetHbitmap(), static_cast<HPALETTE>(nullptr));
    Gdiplus::Bitmap target(static_cast<INT>(source.GetWidth()), static_cast<INT>(source.GetHeight()),
                           PixelFormat32bppARGB);
    {
        Gdiplus::Graphics graphics(&target);
        graphics.DrawImage(&source, 0, 0);
    }
    ReplaceMaskColorWithTransparency(target, mask);
    return CBitmap(ConvertGdiPlusBitmapToDIB(target));
}

void CBitmap::ReplaceMaskColorWithTransparency(Gdiplus::Bitmap& bitmap, COLORREF colour) {
    const UINT32 key = 0xFF000000u | (GetRValue(colour) << 16) | (GetGValue(colour) << 8) | GetBValue(colour);
    Gdiplus::Rect whole(0, 0, static_cast<INT>(bitmap.GetWidth()), static_cast<INT>(bitmap.GetHeight()));
    Gdiplus::BitmapData data = {};
    if (bitmap.LockBits(&whole, Gdiplus::ImageLockModeWrite, PixelFormat32bppARGB, &data) != Gdiplus::Ok) return;
    for (UINT y = 0; y < bitmap.GetHeight(); ++y) {
        auto* row = reinterpret_cast<UINT32*>(static_cast<BYTE*>(data.Scan0) + static_cast<ptrdiff_t>(y) * data.Stride);
        for (UINT x = 0; x < bitmap.GetWidth(); ++x) {
            if (row[x] == key) row[x] = 0x00FFFFFF;
        }
    }
    bitmap.UnlockBits(&data);
}

}  // namespace Velkan

namespace Gdiplus {

BitmapEx::BitmapEx(UINT id, const wchar_t* type, HINSTANCE instance)
    : Bitmap(GetImageResourceAsStream(id, type, instance)) {
    if (GetLastStatus() != Ok) throw Velkan::CResourceNotFoundException(id);
}

BitmapEx::~BitmapEx() = default;

IStream* BitmapEx::GetImageResourceAsStream(UINT id, const wchar_t* type, HINSTANCE instance) {
    using CreateStreamFn = IStream*(WINAPI*)(const BYTE*, UINT);
    static const CreateStreamFn createStream = reinterpret_cast<CreateStreamFn>(reinterpret_cast<void*>(
        ::GetProcAddress(::LoadLibraryW(L"shlwapi.dll"), reinterpret_cast<LPCSTR>(12))));
    Velkan::CResourceData data = Velkan::CResourceLoader::LoadData(id, type, instance);
    // The stream's creation reference is never released: kept as it has
    // always been, the resource bytes outlive it anyway.
    return createStream(static_cast<const BYTE*>(data.GetData()), data.GetSize());
}

}  // namespace Gdiplus
