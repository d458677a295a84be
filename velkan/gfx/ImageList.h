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

/// Owns a common-controls image list. A handle has one owner at a time:
/// attaching it elsewhere empties the previous owner. Temporary wrappers
/// (FromHimageList) never destroy their list.
class VELKAN_API CImageList {
public:
    using Context = ObjectContext<HIMAGELIST, CImageList>;  ///< The handle table's type.

    /// No list yet; flags (ILC_*) serve the Create functions.
    explicit CImageList(UINT flags = ILC_COLOR32 | ILC_MASK);
    /// A list from a bitmap strip resource, icons cx wide. Magenta is
    /// transparent. Throws CResourceNotFoundException.
    CImageList(UINT bitmapId, int cx, int grow, HINSTANCE instance);
    /// A list from a bitmap strip, icons cx wide. Throws CRuntimeException
    /// "Failed to create HIMAGELIST from existing bitmap".
    CImageList(HBITMAP strip, int cx, int grow);
    explicit CImageList(HIMAGELIST list);  ///< Takes ownership of list, as Attach does.
    /// Not copyable: a list has one owner.
    ///@{
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;
    ///@}
    virtual ~CImageList();  ///< Destroy.

    /// A new empty list of cx x cy icons, owned in place of the current one;
    /// null on failure.
    HIMAGELIST Create(int cx, int cy, int grow);
    /// A new list from a horizontal strip of equal icons cx wide.
    HIMAGELIST Create(HBITMAP strip, int cx, int grow);
    /// A new list from a bitmap strip resource, magenta transparent; null on
    /// failure.
    HIMAGELIST CreateFromBitmapResource(UINT id, int cx, int grow, HINSTANCE instance);
    /// A new list from a PNG strip resource; null on failure.
    HIMAGELIST CreateFromPngResource(UINT id, int cx, int grow, HINSTANCE instance);
    /// A new list for dpi from a bundle's strip. cx is one icon's width at
    /// 96 DPI; the cells are cut from the bundle's
    /// artwork for the DPI and scaled to MulDiv(cx, dpi, 96).
    HIMAGELIST Create(CBitmapBundle& bundle, int dpi, int cx, int grow);
    /// A new list for dpi from an SVG strip; cx is one icon's width at 96 DPI.
    HIMAGELIST Create(CSvgImage& svg, int dpi, int cx, int grow);

    /// Destroys the current list and owns list, taking it from any other owner.
    void Attach(HIMAGELIST list);
    HIMAGELIST Detach();  ///< Gives the list up without destroying it.
    void Destroy();  ///< Destroys an owned list and empties the wrapper.
    HIMAGELIST GetHimageList() const { return m_list; }  ///< The list, or null.
    operator HIMAGELIST() const { return m_list; }  ///< The list, or null.
    bool IsValid() const { return m_list != nullptr; }  ///< There is a list.
    /// ImageList_GetImageCount.
    int GetImageCount() const { return ::ImageList_GetImageCount(m_list); }
    CSize GetIconSize() const;  ///< The icon size; (0, 0) without a list.
    static bool IsImageList(HIMAGELIST list);  ///< list is a live image list.

    /// The ImageList_ function of the same name, on this list.
    ///@{
    int Add(HBITMAP image, HBITMAP mask) { return ::ImageList_Add(m_list, image, mask); }
    int AddMasked(HBITMAP image, COLORREF mask) { return ::ImageList_AddMasked(m_list, image, mask); }
    BOOL Draw(int index, HDC hdc, int x, int y, UINT style) const { return ::ImageList_Draw(m_list, index, hdc, x, y, style); }
    BOOL DrawEx(int index, HDC hdc, int x, int y, int cx, int cy, COLORREF background, COLORREF foreground, UINT style) const {
        return ::ImageList_DrawEx(m_list, index, hdc, x, y, cx, cy, background, foreground, style);
    }
    BOOL DrawIndirect(IMAGELISTDRAWPARAMS& params) const { return ::ImageList_DrawIndirect(&params); }
    ///@}
    /// Draws an image desaturated (ILS_SATURATE), for disabled items.
    BOOL DrawGrayscale(int index, HDC hdc, int x, int y, UINT style) const;
    /// ImageList_GetIcon; the caller destroys the icon.
    HICON GetIcon(int index, UINT flags) const { return ::ImageList_GetIcon(m_list, index, flags); }
    /// ImageList_GetIcon without flags.
    HICON ExtractIconW(int index) const { return ::ImageList_GetIcon(m_list, index, 0); }

    /// The owner of list, or a temporary wrapper that never destroys it.
    static CImageList* FromHimageList(HIMAGELIST list);
    static void CleanUpTempObjects();  ///< Deletes the calling thread's temporary wrappers.
    /// (temporary wrappers of the calling fiber, registered lists)
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
