#pragma once

#include "velkan/app/Wnd.h"
#include "velkan/gfx/Bitmap.h"

namespace Velkan {

/// A window ("VlkImageWnd") that paints one bitmap in a fit mode over its
/// background colour. Bitmaps with alpha are blended.
class VELKAN_API CImageWnd : public CWnd {
public:
    /// How the bitmap is placed in the window.
    enum FitMode {
        FitNone,    ///< at the top left, actual size, clipped
        FitInside,  ///< scaled to fit whole, aspect kept, centred
        FitFill,    ///< scaled to cover the window, aspect kept, centred and clipped
        FitCentre,  ///< actual size, centred
    };

    CImageWnd() = default;  ///< No window and no bitmap; FitInside over the window colour.

    /// A child of parent (WS_CHILD | WS_VISIBLE | style).
    HWND Create(CWnd& parent, UINT id, const RECT& rect, DWORD style = 0);
    using CWnd::Create;  ///< CWnd's Create, from the templates.

    /// The window keeps its own reference to the bitmap.
    void SetBitmap(const CBitmap& bitmap);
    const CBitmap& GetBitmap() const { return m_bitmap; }  ///< The bitmap shown.
    void SetFitMode(FitMode mode);  ///< Changes the fit mode and repaints.
    FitMode GetFitMode() const { return m_fitMode; }  ///< The fit mode.
    /// The colour around the bitmap, and repaints.
    /// 0xFFFFFFFF: the window colour.
    void SetBackgroundColor(COLORREF colour);
    /// Where the bitmap lands in a client rectangle of the given size.
    CRect GetImageRect(const CSize& client) const;

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< Names the "VlkImageWnd" class.
    void OnPaint(CDC& dc) override;  ///< Paints the background and the bitmap.
    BOOL OnEraseBkgnd(CDC& dc) override;  ///< Nothing to erase: OnPaint covers the window.

private:
    CBitmap m_bitmap;
    FitMode m_fitMode = FitInside;
    COLORREF m_background = 0xFFFFFFFF;
};

}  // namespace Velkan
