#include "velkan/gfx/ImageList.h"

#include <cmath>
#include <memory>

#include "velkan/core/Exceptions.h"
#include "velkan/core/ObjectContext.h"
#include "velkan/core/detail/StructSize.h"
#include "velkan/core/Resource.h"
#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/SvgImage.h"

namespace Velkan {

CImageList::CImageList(UINT flags) : m_flags(flags) {}

CImageList::CImageList(UINT bitmapId, int cx, int grow, HINSTANCE instance) : CImageList() {
    if (CreateFromBitmapResource(bitmapId, cx, grow, instance) == nullptr) throw CResourceNotFoundException(bitmapId);
}

CImageList::CImageList(HBITMAP strip, int cx, int grow) : CImageList() {
    if (Create(strip, cx, grow) == nullptr) throw CRuntimeException("Failed to create HIMAGELIST from existing bitmap");
}

CImageList::CImageList(HIMAGELIST list) : CImageList() {
    Attach(list);
}

CImageList::~CImageList() {
    Destroy();
}

bool CImageList::IsImageList(HIMAGELIST list) {
    int cx = 0, cy = 0;
    return list != nullptr && ::ImageList_GetIconSize(list, &cx, &cy);
}

void CImageList::ResetCImageList() {
    if (m_list != nullptr) GetContext().Erase(m_list, this);
    m_list = nullptr;
    m_notOwned = FALSE;
}

void CImageList::Destroy() {
    if (!m_notOwned && IsImageList(m_list)) ::ImageList_Destroy(m_list);
    ResetCImageList();
}

void CImageList::Attach(HIMAGELIST list) {
    if (m_list == list && list != nullptr) return;
    Destroy();
    if (list == nullptr) return;
    // One owner per list: whoever held it lets go without destroying it.
    if (CImageList* holder = GetContext().Find(list)) {
        if (holder != this) holder->ResetCImageList();
    }
    m_list = list;
    GetContext().Insert(list, this);
}

HIMAGELIST CImageList::Detach() {
    HIMAGELIST list = m_list;
    ResetCImageList();
    return list;
}

CSize CImageList::GetIconSize() const {
    int cx = 0, cy = 0;
    if (!::ImageList_GetIconSize(m_list, &cx, &cy)) return CSize(0, 0);
    return CSize(cx, cy);
}

HIMAGELIST CImageList::Create(int cx, int cy, int grow) {
    HIMAGELIST list = ::ImageList_Create(cx, cy, m_flags, 0, grow);
    if (list != nullptr) Attach(list);
    return list;
}

HIMAGELIST CImageList::Create(HBITMAP strip, int cx, int grow) {
    BITMAP info = {};
    if (::GetObjectW(strip, sizeof(info), &info) == 0) return nullptr;
    HIMAGELIST list = ::ImageList_Create(cx, info.bmHeight, m_flags, 0, grow);
    if (list == nullptr) return nullptr;
    ::ImageList_Add(list, strip, nullptr);
    Attach(list);
    return list;
}

HIMAGELIST CImageList::CreateFromBitmapResource(UINT id, int cx, int grow, HINSTANCE instance) {
    HIMAGELIST list = ::ImageList_LoadImageW(CResourceLoader::ResolveInstance(instance), MAKEINTRESOURCEW(id), cx,
                                             grow, RGB(255, 0, 255), IMAGE_BITMAP, LR_CREATEDIBSECTION);
    if (list != nullptr) Attach(list);
    return list;
}

HIMAGELIST CImageList::CreateFromPngResource(UINT id, int cx, int grow, HINSTANCE instance) {
    CBitmap bitmap;
    if (bitmap.LoadImageResource(id, L"PNG", instance) == nullptr) return nullptr;
    return Create(bitmap, cx, grow);
}

HIMAGELIST CImageList::Create(CBitmapBundle& bundle, int dpi, int cx, int grow) {
    CBitmap source = bundle.GetSourceBitmapForDpi(dpi);
    if (source.HasPalette()) source = source.GetMasked(RGB(255, 0, 255));
    const CSize nominal = bundle.GetNominalSize();
    const int count = cx > 0 ? nominal.cx / cx : 0;
    if (count <= 0) return nullptr;
    const CSize sourceSize = source.GetSize();
    const float sourceCell = static_cast<float>(sourceSize.cx / count);
    const int targetCell = ::MulDiv(cx, dpi, 96);
    const int targetHeight = ::MulDiv(nominal.cy, dpi, 96);

    std::unique_ptr<Gdiplus::Bitmap> gdiSource = source.ToGdiplusBitmap();
    if (!gdiSource) return nullptr;
    Gdiplus::Bitmap target(targetCell * count, targetHeight, gdiSource->GetPixelFormat());
    {
        Gdiplus::Graphics graphics(&target);
        Gdiplus::ImageAttributes attributes;
        attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY, Gdiplus::Color(0xFF000000), FALSE);
        // At exactly twice the artwork's DPI the 200 % cells copy 1:1.
        graphics.SetInterpolationMode(dpi == 192 ? Gdiplus::InterpolationModeNearestNeighbor
                                                 : Gdiplus::InterpolationModeHighQuality);
        const bool scaled = sourceCell != static_cast<float>(targetCell);
        for (int i = 0; i < count; ++i) {
            Gdiplus::RectF dest(static_cast<float>(i * targetCell), 0, static_cast<float>(targetCell),
                                static_cast<float>(targetHeight));
            graphics.DrawImage(gdiSource.get(), dest, i * sourceCell, 0.0f, scaled ? sourceCell - 0.5f : sourceCell,
                               static_cast<float>(sourceSize.cy), Gdiplus::UnitPixel,
                               scaled ? &attributes : nullptr);
        }
    }
    CBitmap strip(target);
    BITMAP info = {};
    strip.GetBitmap(&info);
    HIMAGELIST list = ::ImageList_Create(targetCell, info.bmHeight, m_flags, 0, grow);
    if (list == nullptr) return nullptr;
    ::ImageList_Add(list, strip, nullptr);
    Attach(list);
    return list;
}

HIMAGELIST CImageList::Create(CSvgImage& svg, int dpi, int cx, int grow) {
    // Rendered at a whole scale, then fitted: sharper than one odd scale.
    const float scale = static_cast<float>(std::ceil(dpi / 96.0));
    CBitmap bitmap = svg.Render(scale);
    const int count = cx > 0 ? svg.GetSize().cx / cx : 0;
    if (!bitmap.IsValid() || count <= 0) return nullptr;
    const int targetWidth = ::MulDiv(cx, dpi, 96);
    const float factor = static_cast<float>(count * targetWidth) / static_cast<float>(bitmap.GetSize().cx);
    if (factor != 1.0f) bitmap = bitmap.GetScaled(factor);
    return Create(bitmap, targetWidth, grow);
}

VELKAN_X86_SIZE(IMAGELISTDRAWPARAMS, 0x44);

BOOL CImageList::DrawGrayscale(int index, HDC hdc, int x, int y, UINT style) const {
    IMAGELISTDRAWPARAMS params = {};
    params.cbSize = sizeof(params);
    params.himl = m_list;
    params.i = index;
    params.hdcDst = hdc;
    params.x = x;
    params.y = y;
    params.fStyle = style;
    params.fState = ILS_SATURATE;
    return ::ImageList_DrawIndirect(&params);
}

CImageList::Context& CImageList::GetContext() {
    static Context context;
    return context;
}

CImageList* CImageList::FromHimageList(HIMAGELIST list) {
    if (list == nullptr) return nullptr;
    if (CImageList* found = GetContext().Find(list)) return found;
    auto temp = std::make_shared<CImageList>();
    temp->m_list = list;
    temp->m_notOwned = TRUE;
    return GetContext().AddTempObject(std::move(temp));
}

void CImageList::CleanUpTempObjects() {
    GetContext().CleanUpTempObjects();
}

void CImageList::ResetContext() {
    GetContext().Reset();
}

std::tuple<unsigned, unsigned> CImageList::GetContextInfo() {
    return GetContext().GetInfo();
}

}  // namespace Velkan
