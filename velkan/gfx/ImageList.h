#pragma once

#include <windows.h>
#include <commctrl.h>

#include <tuple>

#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"

namespace Velkan {

template <typename Key, typename Object> class ObjectContext;
class CBitmapBundle;
class CSvgImage;

// Owns a common-controls image list. A handle has one owner at a time:
// attaching it elsewhere empties the previous owner. Temporary wrappers
// (FromHimageList) never destroy their list.
class VELKAN_API CImageList {
public:
    using Context = ObjectContext<HIMAGELIST, CImageList>;

    explicit CImageList(UINT flags = ILC_COLOR32 | ILC_MASK);
    // Magenta is transparent. Throws CResourceNotFoundException.
    CImageList(UINT bitmapId, int cx, int grow, HINSTANCE instance);
    // Throws CRuntimeException "Failed to create HIMAGELIST from existing bitmap".
    CImageList(HBITMAP strip, int cx, int grow);
    explicit CImageList(HIMAGELIST list);
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;
    virtual ~CImageList();

    HIMAGELIST Create(int cx, int cy, int grow);
    // A horizontal strip of equal icons cx wide.
    HIMAGELIST Create(HBITMAP strip, int cx, int grow);
    HIMAGELIST CreateFromBitmapResource(UINT id, int cx, int grow, HINSTANCE instance);
    HIMAGELIST CreateFromPngResource(UINT id, int cx, int grow, HINSTANCE instance);
    // cx is one icon's width at 96 DPI; the cells are cut from the bundle's
    // artwork for the DPI and scaled to MulDiv(cx, dpi, 96).
    HIMAGELIST Create(CBitmapBundle& bundle, int dpi, int cx, int grow);
    HIMAGELIST Create(CSvgImage& svg, int dpi, int cx, int grow);

    void Attach(HIMAGELIST list);
    HIMAGELIST Detach();
    void Destroy();
    HIMAGELIST GetHimageList() const { return m_list; }
    operator HIMAGELIST() const { return m_list; }
    bool IsValid() const { return m_list != nullptr; }
    int GetImageCount() const { return ::ImageList_GetImageCount(m_list); }
    CSize GetIconSize() const;
    static bool IsImageList(HIMAGELIST list);

    int Add(HBITMAP image, HBITMAP mask) { return ::ImageList_Add(m_list, image, mask); }
    int AddMasked(HBITMAP image, COLORREF mask) { return ::ImageList_AddMasked(m_list, image, mask); }
    BOOL Draw(int index, HDC hdc, int x, int y, UINT style) const { return ::ImageList_Draw(m_list, index, hdc, x, y, style); }
    BOOL DrawEx(int index, HDC hdc, int x, int y, int cx, int cy, COLORREF background, COLORREF foreground, UINT style) const {
        return ::ImageList_DrawEx(m_list, index, hdc, x, y, cx, cy, background, foreground, style);
    }
    BOOL DrawIndirect(IMAGELISTDRAWPARAMS& params) const { return ::ImageList_DrawIndirect(&params); }
    // Desaturated, for disabled items.
    BOOL DrawGrayscale(int index, HDC hdc, int x, int y, UINT style) const;
    HICON GetIcon(int index, UINT flags) const { return ::ImageList_GetIcon(m_list, index, flags); }
    HICON ExtractIconW(int index) const { return ::ImageList_GetIcon(m_list, index, 0); }

    static CImageList* FromHimageList(HIMAGELIST list);
    static void CleanUpTempObjects();
    // (temporary wrappers of the calling fiber, registered lists)
    static std::tuple<unsigned, unsigned> GetContextInfo();

private:
    static Context& GetContext();
    static void ResetContext();
    // Unregisters and empties this wrapper without destroying the list.
    void ResetCImageList();

    HIMAGELIST m_list = nullptr;
    BOOL m_notOwned = FALSE;
    UINT m_flags;
};

}  // namespace Velkan
