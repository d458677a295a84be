#include "velkan/menu/CoolMenuItemRenderer.h"

#include <algorithm>
#include <string>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/ScopedDC.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/gfx/UxTheme.h"
#include "velkan/menu/detail/MenuText.h"

namespace Velkan {

const char* const CCoolMenuItemRenderer::CheckMarkSvg =
    "\n<svg xmlns=\"http://www.w3.org/2000/svg\" xml:space=\"preserve\" "
    "style=\"fill:currentColor;fill-rule:evenodd;clip-rule:evenodd;stroke-linejoin:round;stroke-miterlimit:2\" "
    "viewBox=\"0 0 16 16\"><path d=\"m4 6.547 2.5 2.559L11 4.5v2.894L6.5 12 4 9.441z\"/></svg>\n  ";

const char* const CCoolMenuItemRenderer::BulletSvg =
    "\n<svg xmlns=\"http://www.w3.org/2000/svg\" xml:space=\"preserve\" "
    "style=\"fill:currentColor;fill-rule:evenodd;clip-rule:evenodd;stroke-linejoin:round;stroke-miterlimit:2\" "
    "viewBox=\"0 0 16 16\"><circle cx=\"24\" cy=\"8\" r=\"3\" transform=\"translate(-16)\"/></svg>\n  ";

namespace {

HBRUSH SysBrush(int index) {
    return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(index + 1));
}

CSize IconSize(const CImageList* list) {
    return list != nullptr ? list->GetIconSize() : CSize(0, 0);
}

// Owns the bitmap of an 8 x 8 checkerboard, rows 0x55 and 0xAA as words.
HBITMAP MakeDitherBitmap() {
    static const WORD rows[8] = {0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA};
    return ::CreateBitmap(8, 8, 1, 1, rows);
}

CBitmap RenderIcon(const char* svg, COLORREF colour, int dpi) {
    CSvgImage image(svg, colour);
    return image.Render(static_cast<float>(dpi) / 96.0f);
}


LOGFONTW MenuLogFont() {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    return metrics.lfMenuFont;
}

}  // namespace

CCoolMenuItemRenderer::CCoolMenuItemRenderer() {
    HBITMAP pattern = MakeDitherBitmap();
    m_ditherBrush = CBrush(pattern);
    // A pattern brush keeps its own copy of the bitmap.
    ::DeleteObject(pattern);
}

void CCoolMenuItemRenderer::OnSettingChange(CWnd& wnd) {
    m_dpi = wnd.GetDpi();
    LOGFONTW font = MenuLogFont();
    m_menuFont.CreateFontIndirectW(font);
    const COLORREF text = ::GetSysColor(COLOR_MENUTEXT);
    m_checkBitmap = RenderIcon(CheckMarkSvg, text, m_dpi);
    m_bulletBitmap = RenderIcon(BulletSvg, text, m_dpi);
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof(contrast);
    m_highContrast = ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, contrast.cbSize, &contrast, 0) &&
                     (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
    const int two = ::MulDiv(2, m_dpi, 96);
    m_textMargins = RECT{two, 0, two, 0};
    m_imageMargins = RECT{two, two, two, two};
    m_gap = ::MulDiv(1, m_dpi, 96);
}

BOOL CCoolMenuItemRenderer::MeasureMenuItem(CoolMenuItemMeasureStruct& item) {
    MEASUREITEMSTRUCT& measure = *item.measureItem;
    const CSize icon = IconSize(item.imageList);
    const int gutterWidth = icon.cx + m_imageMargins.left + m_imageMargins.right;
    const int minHeight = icon.cy + m_imageMargins.top + m_imageMargins.bottom;
    if (item.type & MFT_SEPARATOR) {
        measure.itemHeight = static_cast<UINT>(::GetSystemMetrics(SM_CYMENU) / 2);
        measure.itemWidth = static_cast<UINT>(2 * gutterWidth);
        return TRUE;
    }
    const std::wstring text = Detail::TabsAsMM(item.text);
    CClientDC dc(item.window);
    HGDIOBJ old = dc.SelectObject(m_menuFont.GetHfont());
    SIZE extent = {0, 0};
    ::GetTextExtentPoint32W(dc.GetHdc(), text.c_str(), static_cast<int>(text.size()), &extent);
    dc.SelectObject(old);
    measure.itemHeight = static_cast<UINT>(std::max({::GetSystemMetrics(SM_CYMENU), static_cast<int>(extent.cy), minHeight}));
    measure.itemWidth = static_cast<UINT>(::GetSystemMetrics(SM_CXMENUCHECK) + m_gap + gutterWidth + extent.cx);
    return TRUE;
}

BOOL CCoolMenuItemRenderer::DrawMenuItem(const CoolMenuItemDrawStruct& item) {
    return DrawItem(item, FALSE);
}

void CCoolMenuItemRenderer::DrawCheckMark(CDC& dc, const DRAWITEMSTRUCT& draw, UINT type, const CRect& cell) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_CHECKMARKS | MIIM_TYPE;
    ::GetMenuItemInfoW(reinterpret_cast<HMENU>(draw.hwndItem), draw.itemID, FALSE, &info);
    HBITMAP bitmap = info.hbmpChecked;
    if (bitmap == nullptr) bitmap = (type & MFT_RADIOCHECK) ? m_bulletBitmap.GetHbitmap() : m_checkBitmap.GetHbitmap();
    if (bitmap == nullptr) return;
    BITMAP bm = {};
    ::GetObjectW(bitmap, sizeof(bm), &bm);
    const int x = (cell.Width() - bm.bmWidth + 1) / 2 + cell.left;
    const int y = std::max(static_cast<int>((cell.Height() - bm.bmHeight + 1) / 2 + cell.top), static_cast<int>(cell.top));
    dc.AlphaBlendBitmap(bitmap, x, y);
}

BOOL CCoolMenuItemRenderer::DrawItem(const CoolMenuItemDrawStruct& item, BOOL flat) {
    const DRAWITEMSTRUCT& draw = *item.drawItem;
    CDC& dc = *CDC::FromHdc(draw.hDC);
    const CRect rcItem(draw.rcItem);
    const BOOL selected = (draw.itemState & ODS_SELECTED) != 0;
    const BOOL grayed = (draw.itemState & ODS_GRAYED) != 0;
    const BOOL checked = (draw.itemState & ODS_CHECKED) != 0;
    const BOOL hasImage = item.imageIndex >= 0 && item.imageList != nullptr;
    const CSize icon = IconSize(item.imageList);
    const int one = ::MulDiv(1, m_dpi, 96);

    const int gutter = icon.cx + m_imageMargins.left + m_imageMargins.right +
                       (rcItem.Height() - icon.cy - m_imageMargins.top - m_imageMargins.bottom);

    if (item.type & MFT_SEPARATOR) {
        const int inset = flat ? ::MulDiv(2, m_dpi, 96) : ::GetSystemMetrics(SM_CXMENUCHECK);
        CRect line(rcItem.left + inset, rcItem.top + rcItem.Height() / 2, rcItem.right - inset, rcItem.bottom);
        ::DrawEdge(dc.GetHdc(), &line, EDGE_ETCHED, BF_TOP);
        return TRUE;
    }

    CRect cell(rcItem.left, rcItem.top, rcItem.left + gutter, rcItem.bottom);
    const CRect imageCell = cell;
    if (!grayed) {
        if (flat) {
            if (checked) {
                if (!hasImage) cell.Deflate(one, one);
                CBrush frame(::GetSysColor(COLOR_HIGHLIGHT));
                dc.FrameRect(cell, frame.GetHbrush(), one);
                if (!hasImage) DrawCheckMark(dc, draw, item.type, cell);
            } else {
                CRect wide = cell;
                wide.right += m_gap;
                dc.FillRect(wide, SysBrush(selected ? COLOR_HIGHLIGHT : COLOR_MENU));
            }
        } else if (checked || selected) {
            if (checked && !hasImage) cell.Deflate(1, 1);
            ::DrawEdge(dc.GetHdc(), &cell, checked ? BDR_SUNKENOUTER : BDR_RAISEDINNER, BF_RECT);
            if (checked) {
                CRect inner = cell;
                inner.Deflate(1, 1);
                if (!selected && !m_highContrast) {
                    const COLORREF oldBk = ::SetBkColor(dc.GetHdc(), ::GetSysColor(COLOR_MENU));
                    const COLORREF oldText = ::SetTextColor(dc.GetHdc(), ::GetSysColor(COLOR_3DHILIGHT));
                    dc.FillRect(inner, m_ditherBrush.GetHbrush());
                    ::SetBkColor(dc.GetHdc(), oldBk);
                    ::SetTextColor(dc.GetHdc(), oldText);
                } else {
                    dc.FillRect(inner, SysBrush(COLOR_MENU));
                }
                if (!hasImage) DrawCheckMark(dc, draw, item.type, cell);
            }
        } else {
            ::DrawEdge(dc.GetHdc(), &cell, BDR_RAISEDINNER, BF_RECT | BF_FLAT);
        }
    }

    if (hasImage) {
        const int x = (imageCell.Width() + 1 - icon.cx) / 2 + imageCell.left;
        const int y = (imageCell.Height() + 1 - icon.cy) / 2 + imageCell.top;
        CRect inner(imageCell.left + m_imageMargins.left, imageCell.top + m_imageMargins.top,
                    imageCell.right - m_imageMargins.right, imageCell.bottom - m_imageMargins.bottom);
        const BOOL highlight = flat && selected && !checked && !grayed;
        dc.FillRect(inner, SysBrush(highlight ? COLOR_HIGHLIGHT : COLOR_MENU));
        if (grayed)
            item.imageList->DrawGrayscale(item.imageIndex, dc.GetHdc(), x, y, ILD_TRANSPARENT);
        else
            item.imageList->Draw(item.imageIndex, dc.GetHdc(), x, y, ILD_TRANSPARENT);
    }

    CRect background = rcItem;
    if (hasImage || checked) background.left = rcItem.left + gutter + m_gap;
    dc.FillRect(background, SysBrush(selected && !grayed ? COLOR_HIGHLIGHT : COLOR_MENU));

    CRect textRect(rcItem.left + m_gap + m_textMargins.left + gutter, rcItem.top,
                   rcItem.right - ::GetSystemMetrics(SM_CXMENUCHECK) - ::GetSystemMetrics(SM_CXMENUCHECK) / 2,
                   rcItem.bottom);
    const BOOL highlight = selected && !grayed;
    const COLORREF oldBk = ::SetBkColor(dc.GetHdc(), ::GetSysColor(highlight ? COLOR_HIGHLIGHT : COLOR_MENU));
    const COLORREF oldText = ::SetTextColor(dc.GetHdc(), ::GetSysColor(highlight ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
    const int oldMode = ::SetBkMode(dc.GetHdc(), TRANSPARENT);
    HGDIOBJ oldFont = dc.SelectObject(m_menuFont.GetHfont());
    DrawMenuText(dc, textRect, item.text, grayed);
    dc.SelectObject(oldFont);
    ::SetBkMode(dc.GetHdc(), oldMode);
    ::SetBkColor(dc.GetHdc(), oldBk);
    ::SetTextColor(dc.GetHdc(), oldText);
    return TRUE;
}

void CCoolMenuItemRenderer::DrawMenuText(CDC& dc, CRect& rect, const wchar_t* text, BOOL disabled) {
    std::wstring label, accelerator;
    Detail::SplitMenuText(text, label, accelerator);
    HDC hdc = dc.GetHdc();

    SIZE labelSize = {0, 0};
    ::GetTextExtentPoint32W(hdc, label.c_str(), static_cast<int>(label.size()), &labelSize);
    int y = (rect.Height() - labelSize.cy) / 2 + rect.top;
    if (disabled) y -= 1;
    const UINT state = disabled ? DSS_DISABLED : DSS_NORMAL;
    ::DrawStateW(hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(label.c_str()),
                 static_cast<WPARAM>(label.size()), rect.left, y, 0, 0, DST_PREFIXTEXT | state);
    if (!accelerator.empty()) {
        CRect measured = rect;
        ::DrawTextW(hdc, accelerator.c_str(), static_cast<int>(accelerator.size()), &measured,
                    DT_CALCRECT | DT_NOCLIP | DT_SINGLELINE | DT_VCENTER);
        ::DrawStateW(hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(accelerator.c_str()),
                     static_cast<WPARAM>(accelerator.size()), rect.right - measured.Width(), y, 0, 0,
                     DST_TEXT | state);
    }
}

BOOL CCoolMenuItemThemedRenderer::DrawMenuItem(const CoolMenuItemDrawStruct& item) {
    return DrawItem(item, CUxTheme::IsAppThemed() && CUxTheme::IsThemeActive());
}

}  // namespace Velkan
