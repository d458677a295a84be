#pragma once

#include <windows.h>

#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/Brush.h"
#include "velkan/gfx/Font.h"

namespace Velkan {

class CDC;
class CImageList;
class CWnd;

/// Measures and paints the owner-drawn items of the menu manager. Item
/// texts are a label and an optional accelerator after a tab.
class VELKAN_API ICoolMenuItemRenderer {
public:
    /// What MeasureMenuItem gets: the item as it was before conversion and
    /// the system's record to fill in.
    struct CoolMenuItemMeasureStruct {
        CWnd* window;             ///< owns the menu; may be null
        UINT type;                ///< the item's own MFT_* flags
        const wchar_t* text;  ///< the label, then a tab and the accelerator
        int imageIndex;           ///< -1 for none
        CImageList* imageList;  ///< the manager's command images
        MEASUREITEMSTRUCT* measureItem;  ///< receives the item's size
    };
    /// What DrawMenuItem gets: the item as it was before conversion and the
    /// system's drawing record.
    struct CoolMenuItemDrawStruct {
        CWnd* window;  ///< owns the menu; may be null
        UINT type;  ///< the item's own MFT_* flags
        const wchar_t* text;  ///< the label, then a tab and the accelerator
        int imageIndex;  ///< -1 for none
        CImageList* imageList;  ///< the manager's command images
        DRAWITEMSTRUCT* drawItem;  ///< the DC, the rectangle and the item's state
    };

    /// Renderers may be deleted through this interface.
    virtual ~ICoolMenuItemRenderer() = default;
    /// WM_MEASUREITEM of a converted item; TRUE when measured.
    virtual BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) = 0;
    /// WM_DRAWITEM of a converted item; TRUE when drawn.
    virtual BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) = 0;
    /// Recomputes every metric for the window's DPI, fonts and colours; runs
    /// before the first menu opens and on every setting change.
    virtual void OnSettingChange(CWnd& wnd) = 0;
};

/// The classic look: system colours, 3-D edges around the image cell, a
/// dithered cell for checked items, and check marks and bullets rendered
/// from built-in SVG icons in the menu text colour.
class VELKAN_API CCoolMenuItemRenderer : public ICoolMenuItemRenderer {
public:
    /// The built-in icons, 16 x 16 units, filled with "currentColor".
    ///@{
    static const char* const CheckMarkSvg;
    static const char* const BulletSvg;
    ///@}

    CCoolMenuItemRenderer();  ///< Metrics stay zero until OnSettingChange.

    /// The text's extent in the menu font beside the image cell; separators
    /// half a menu bar high.
    BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) override;
    /// DrawItem in the classic look.
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override;
    /// Recomputes the metrics, the menu font and the check bitmaps.
    void OnSettingChange(CWnd& wnd) override;

    /// Metrics at the DPI of the last OnSettingChange (zero before it).
    ///@{
    const RECT& GetTextMargins() const { return m_textMargins; }
    const RECT& GetImageMargins() const { return m_imageMargins; }
    int GetGap() const { return m_gap; }
    const CFont& GetMenuFont() const { return m_menuFont; }
    const CBitmap& GetCheckBitmap() const { return m_checkBitmap; }
    const CBitmap& GetBulletBitmap() const { return m_bulletBitmap; }
    ///@}

protected:
    /// The label at the left (ampersands underline), the accelerator at the
    /// right edge of rect.
    void DrawMenuText(CDC& dc, CRect& rect, const wchar_t* text, BOOL disabled);
    /// The classic steps; flat draws the themed renderer's variant.
    BOOL DrawItem(const CoolMenuItemDrawStruct& item, BOOL flat);
    /// The check mark or bullet of a checked item without an image.
    void DrawCheckMark(CDC& dc, const DRAWITEMSTRUCT& draw, UINT type, const CRect& cell);

    RECT m_textMargins = {0, 0, 0, 0};  ///< Around the text.
    RECT m_imageMargins = {0, 0, 0, 0};  ///< Around the image cell.
    int m_gap = 0;  ///< Between the image cell and the text.
    CFont m_menuFont;  ///< The system's menu font at the DPI.
    CBrush m_ditherBrush;  ///< Fills the cell of a checked item.
    CBitmap m_bulletBitmap;  ///< The bullet, rendered in the menu text colour.
    CBitmap m_checkBitmap;  ///< The check mark, rendered in the menu text colour.
    BOOL m_highContrast = FALSE;  ///< The system is in high-contrast mode.
    int m_dpi = 96;  ///< The DPI of the metrics.
};

/// The classic look made flat while visual styles are active: a highlight
/// frame around checked items and a solid highlight across selected ones.
class VELKAN_API CCoolMenuItemThemedRenderer : public CCoolMenuItemRenderer {
public:
    /// DrawItem in the flat variant while visual styles are active, else
    /// classic.
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override;
};

}  // namespace Velkan
