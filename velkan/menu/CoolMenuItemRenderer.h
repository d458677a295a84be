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

// Measures and paints the owner-drawn items of the menu manager. Item
// texts are a label and an optional accelerator after a tab.
class VELKAN_API ICoolMenuItemRenderer {
public:
    struct CoolMenuItemMeasureStruct {
        CWnd* window;             // owns the menu; may be null
        UINT type;                // the item's own MFT_* flags
        const wchar_t* text;
        int imageIndex;           // -1 for none
        CImageList* imageList;
        MEASUREITEMSTRUCT* measureItem;
    };
    struct CoolMenuItemDrawStruct {
        CWnd* window;
        UINT type;
        const wchar_t* text;
        int imageIndex;
        CImageList* imageList;
        DRAWITEMSTRUCT* drawItem;
    };

    virtual ~ICoolMenuItemRenderer() = default;
    virtual BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) = 0;
    virtual BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) = 0;
    // Recomputes every metric for the window's DPI, fonts and colours; runs
    // before the first menu opens and on every setting change.
    virtual void OnSettingChange(CWnd& wnd) = 0;
};

// The classic look: system colours, 3-D edges around the image cell, a
// dithered cell for checked items, and check marks and bullets rendered
// from built-in SVG icons in the menu text colour.
class VELKAN_API CCoolMenuItemRenderer : public ICoolMenuItemRenderer {
public:
    // The built-in icons, 16 x 16 units, filled with "currentColor".
    static const char* const CheckMarkSvg;
    static const char* const BulletSvg;

    CCoolMenuItemRenderer();

    BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) override;
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override;
    void OnSettingChange(CWnd& wnd) override;

    // Metrics at the DPI of the last OnSettingChange (zero before it).
    const RECT& GetTextMargins() const { return m_textMargins; }
    const RECT& GetImageMargins() const { return m_imageMargins; }
    int GetGap() const { return m_gap; }
    const CFont& GetMenuFont() const { return m_menuFont; }
    const CBitmap& GetCheckBitmap() const { return m_checkBitmap; }
    const CBitmap& GetBulletBitmap() const { return m_bulletBitmap; }

protected:
    // The label at the left (ampersands underline), the accelerator at the
    // right edge of rect.
    void DrawMenuText(CDC& dc, CRect& rect, const wchar_t* text, BOOL disabled);
    // The classic steps; flat draws the themed renderer's variant.
    BOOL DrawItem(const CoolMenuItemDrawStruct& item, BOOL flat);
    // The check mark or bullet of a checked item without an image.
    void DrawCheckMark(CDC& dc, const DRAWITEMSTRUCT& draw, UINT type, const CRect& cell);

    RECT m_textMargins = {0, 0, 0, 0};
    RECT m_imageMargins = {0, 0, 0, 0};
    int m_gap = 0;
    CFont m_menuFont;
    CBrush m_ditherBrush;
    CBitmap m_bulletBitmap;
    CBitmap m_checkBitmap;
    BOOL m_highContrast = FALSE;
    int m_dpi = 96;
};

// The classic look made flat while visual styles are active: a highlight
// frame around checked items and a solid highlight across selected ones.
class VELKAN_API CCoolMenuItemThemedRenderer : public CCoolMenuItemRenderer {
public:
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override;
};

}  // namespace Velkan
