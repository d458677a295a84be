#include "velkan/menu/CoolMenuItemUxThemedRenderer.h"

#include <vssym32.h>

#include <algorithm>
#include <string>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/ScopedDC.h"
#include "velkan/menu/detail/MenuText.h"

namespace Velkan {

namespace {

int Scale(int value, int dpi) {
    return ::MulDiv(value, dpi, 96);
}

MARGINS Scaled(const MARGINS& m, int dpi) {
    return MARGINS{Scale(m.cxLeftWidth, dpi), Scale(m.cxRightWidth, dpi), Scale(m.cyTopHeight, dpi),
                   Scale(m.cyBottomHeight, dpi)};
}

SIZE Cell(const SIZE& size, const MARGINS& m) {
    return SIZE{size.cx + m.cxLeftWidth + m.cxRightWidth, size.cy + m.cyTopHeight + m.cyBottomHeight};
}

CSize IconSize(const CImageList* list) {
    return list != nullptr ? list->GetIconSize() : CSize(0, 0);
}


}  // namespace

CCoolMenuItemUxThemedRenderer::CCoolMenuItemUxThemedRenderer() : m_theme(L"Menu") {}

BOOL CCoolMenuItemUxThemedRenderer::Themed() const {
    return CUxTheme::IsAppThemed() && CUxTheme::IsThemeActive();
}

void CCoolMenuItemUxThemedRenderer::OnSettingChange(CWnd& wnd) {
    m_fallback.OnSettingChange(wnd);
    m_dpi = wnd.GetDpi();
    if (m_theme.OpenThemeDataForDpi(wnd, static_cast<UINT>(m_dpi)) == nullptr) return;

    CClientDC dc(&wnd);
    HDC hdc = dc.GetHdc();
    HRESULT status = S_OK;
    MARGINS margins = {};
    status |= m_theme.GetThemePartSize(hdc, MENU_POPUPCHECK, MC_CHECKMARKNORMAL, nullptr, TS_TRUE, m_checkSize);
    status |= m_theme.GetThemeMargins(hdc, MENU_POPUPCHECK, MC_CHECKMARKNORMAL, TMT_CONTENTMARGINS, nullptr, margins);
    m_checkMargins = Scaled(margins, m_dpi);
    m_checkCell = Cell(m_checkSize, m_checkMargins);
    status |= m_theme.GetThemePartSize(hdc, MENU_POPUPCHECK, MC_BULLETNORMAL, nullptr, TS_TRUE, m_bulletSize);
    status |= m_theme.GetThemeMargins(hdc, MENU_POPUPCHECK, MC_BULLETNORMAL, TMT_CONTENTMARGINS, nullptr, margins);
    m_bulletMargins = Scaled(margins, m_dpi);
    m_bulletCell = Cell(m_bulletSize, m_bulletMargins);
    const int two = Scale(2, m_dpi);
    m_imageMargins = RECT{two, two, two, two};
    status |= m_theme.GetThemeMargins(hdc, MENU_POPUPCHECKBACKGROUND, 0, TMT_CONTENTMARGINS, nullptr, margins);
    m_checkBackgroundMargins = Scaled(margins, m_dpi);
    SIZE size = {};
    status |= m_theme.GetThemePartSize(hdc, MENU_POPUPGUTTER, 0, nullptr, TS_TRUE, size);
    m_gutterSize = SIZE{Scale(size.cx, m_dpi), Scale(size.cy, m_dpi)};
    status |= m_theme.GetThemePartSize(hdc, MENU_POPUPSEPARATOR, 0, nullptr, TS_TRUE, size);
    m_separatorSize = SIZE{Scale(size.cx, m_dpi), Scale(size.cy, m_dpi)};

    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    m_menuFont.CreateFontIndirectW(metrics.lfMenuFont);
    HGDIOBJ old = dc.SelectObject(m_menuFont.GetHfont());
    ::GetTextMetricsW(hdc, &m_textMetrics);
    dc.SelectObject(old);

    // A metric that cannot be read leaves the classic look in charge.
    if (FAILED(status)) m_theme.CloseThemeData();
}

CSize CCoolMenuItemUxThemedRenderer::GetColumnSize(const CImageList* list) const {
    const CSize icon = IconSize(list);
    const LONG imageWidth = icon.cx + m_imageMargins.left + m_imageMargins.right;
    const LONG imageHeight = icon.cy + m_imageMargins.top + m_imageMargins.bottom;
    return CSize(std::max({imageWidth, m_checkCell.cx, m_bulletCell.cx}),
                 std::max({imageHeight, m_checkCell.cy, m_bulletCell.cy}));
}

BOOL CCoolMenuItemUxThemedRenderer::MeasureMenuItem(CoolMenuItemMeasureStruct& item) {
    if (!Themed() || !m_theme.IsValid()) return m_fallback.MeasureMenuItem(item);
    MEASUREITEMSTRUCT& measure = *item.measureItem;
    if (item.type & MFT_SEPARATOR) {
        measure.itemWidth = static_cast<UINT>(m_separatorSize.cx);
        measure.itemHeight = static_cast<UINT>(::MulDiv(m_separatorSize.cy, 5, 4));
        return TRUE;
    }
    const CSize column = GetColumnSize(item.imageList);
    measure.itemHeight = static_cast<UINT>(
        std::max({static_cast<int>(column.cy), m_theme.GetThemeSysSize(SM_CYMENUSIZE),
                  static_cast<int>(m_textMetrics.tmHeight)}));
    const std::wstring text = Detail::TabsAsMM(item.text);
    CClientDC dc(item.window);
    HGDIOBJ old = dc.SelectObject(m_menuFont.GetHfont());
    CRect extent;
    m_theme.GetThemeTextExtent(dc.GetHdc(), MENU_POPUPITEM, MPI_NORMAL, text.c_str(), static_cast<int>(text.size()),
                               DT_CALCRECT | DT_SINGLELINE | DT_VCENTER, nullptr, extent);
    dc.SelectObject(old);
    measure.itemWidth = static_cast<UINT>(extent.Width() + m_gutterSize.cx + m_checkBackgroundMargins.cxRightWidth +
                                          column.cx + IconSize(item.imageList).cx);
    return TRUE;
}

BOOL CCoolMenuItemUxThemedRenderer::DrawMenuItem(const CoolMenuItemDrawStruct& item) {
    if (!Themed() || !m_theme.IsValid()) return m_fallback.DrawMenuItem(item);
    if (TryDraw(item)) return TRUE;
    // Part of the item may be drawn already: the classic look draws it all.
    return m_fallback.DrawMenuItem(item);
}

BOOL CCoolMenuItemUxThemedRenderer::TryDraw(const CoolMenuItemDrawStruct& item) {
    const DRAWITEMSTRUCT& draw = *item.drawItem;
    HDC hdc = draw.hDC;
    const CRect rcItem(draw.rcItem);
    const BOOL selected = (draw.itemState & ODS_SELECTED) != 0;
    const BOOL grayed = (draw.itemState & ODS_GRAYED) != 0;
    const BOOL checked = (draw.itemState & ODS_CHECKED) != 0;
    const BOOL hasImage = item.imageIndex >= 0 && item.imageList != nullptr;
    const CSize icon = IconSize(item.imageList);
    const CSize column = GetColumnSize(item.imageList);

    int state = MPI_NORMAL;
    if (selected && grayed)
        state = MPI_DISABLEDHOT;
    else if (selected)
        state = MPI_HOT;
    else if (grayed)
        state = MPI_DISABLED;

    const int checkTop = rcItem.top + rcItem.Height() / 2 - column.cy / 2;
    const CRect checkBackground(rcItem.left, checkTop, rcItem.left + column.cx, checkTop + column.cy);

    HWND window = item.window != nullptr ? item.window->GetHwnd() : nullptr;
    CUxTheme::DrawThemeParentBackground(window, hdc, &rcItem);
    if (FAILED(m_theme.DrawThemeBackground(hdc, MENU_POPUPBACKGROUND, 0, rcItem, nullptr))) return FALSE;

    if (item.type & MFT_SEPARATOR) {
        SIZE part = {};
        if (FAILED(m_theme.GetThemePartSize(hdc, MENU_POPUPSEPARATOR, 0, nullptr, TS_TRUE, part))) return FALSE;
        const int top = rcItem.top + (rcItem.Height() - part.cy) / 2;
        const CRect line(rcItem.left + column.cx + m_checkBackgroundMargins.cxRightWidth, top, rcItem.right,
                         top + part.cy);
        if (FAILED(m_theme.DrawThemeBackground(hdc, MENU_POPUPSEPARATOR, 0, line, nullptr))) return FALSE;
    }
    const int gutterLeft = rcItem.left + m_checkBackgroundMargins.cxRightWidth + column.cx - m_gutterSize.cx;
    const CRect gutter(gutterLeft, rcItem.top, gutterLeft + m_gutterSize.cx, rcItem.bottom);
    if (FAILED(m_theme.DrawThemeBackground(hdc, MENU_POPUPGUTTER, 0, gutter, nullptr))) return FALSE;
    if (item.type & MFT_SEPARATOR) return TRUE;

    if (FAILED(m_theme.DrawThemeBackground(hdc, MENU_POPUPITEM, state, rcItem, nullptr))) return FALSE;

    if (checked) {
        if (FAILED(m_theme.DrawThemeBackground(hdc, MENU_POPUPCHECKBACKGROUND, grayed ? MCB_DISABLED : MCB_NORMAL,
                                               checkBackground, nullptr)))
            return FALSE;
        if (!hasImage) {
            const BOOL radio = (item.type & MFT_RADIOCHECK) != 0;
            const MARGINS& m = radio ? m_bulletMargins : m_checkMargins;
            const CRect mark(checkBackground.left + m.cxLeftWidth, checkBackground.top + m.cyTopHeight,
                             checkBackground.right - m.cxRightWidth, checkBackground.bottom - m.cyBottomHeight);
            const int markState = radio ? (grayed ? MC_BULLETDISABLED : MC_BULLETNORMAL)
                                        : (grayed ? MC_CHECKMARKDISABLED : MC_CHECKMARKNORMAL);
            if (FAILED(m_theme.DrawThemeBackground(hdc, MENU_POPUPCHECK, markState, mark, nullptr))) return FALSE;
        }
    }

    if (hasImage) {
        const int x = checkBackground.left + m_imageMargins.left;
        const int y = checkBackground.top + m_imageMargins.top;
        if (grayed)
            item.imageList->DrawGrayscale(item.imageIndex, hdc, x, y, ILD_TRANSPARENT);
        else
            item.imageList->Draw(item.imageIndex, hdc, x, y, ILD_TRANSPARENT);
    }

    CRect textRect = rcItem;
    textRect.left += m_gutterSize.cx + Scale(1, m_dpi) + column.cx + m_checkBackgroundMargins.cxRightWidth;
    HGDIOBJ oldFont = ::SelectObject(hdc, m_menuFont.GetHfont());
    std::wstring label, accelerator;
    Detail::SplitMenuText(item.text, label, accelerator);
    BOOL ok = SUCCEEDED(m_theme.DrawThemeText(hdc, label.c_str(), MENU_POPUPITEM, state, textRect,
                                              DT_SINGLELINE | DT_VCENTER));
    if (ok && !accelerator.empty()) {
        CRect extent;
        ok = SUCCEEDED(m_theme.GetThemeTextExtent(hdc, MENU_POPUPITEM, state, accelerator.c_str(),
                                                  static_cast<int>(accelerator.size()),
                                                  DT_NOPREFIX | DT_CALCRECT | DT_SINGLELINE | DT_VCENTER, nullptr,
                                                  extent));
        if (ok) {
            CRect acceleratorRect = textRect;
            acceleratorRect.left = rcItem.right - extent.Width() - icon.cx;
            ok = SUCCEEDED(m_theme.DrawThemeText(hdc, accelerator.c_str(), MENU_POPUPITEM, state, acceleratorRect,
                                                 DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER));
        }
    }
    ::SelectObject(hdc, oldFont);
    return ok;
}

}  // namespace Velkan
