#pragma once

#include "velkan/gfx/UxTheme.h"
#include "velkan/menu/CoolMenuItemRenderer.h"

namespace Velkan {

/// The visual-style look: every piece drawn with the "Menu" theme parts and
/// measured with the theme's metrics at the window's DPI. Whenever theming
/// is off, an item is drawn by the classic renderer inside; a theme call
/// that fails while drawing hands that whole item to it, and a metric that
/// cannot be read closes the theme until the next setting change.
class VELKAN_API CCoolMenuItemUxThemedRenderer : public ICoolMenuItemRenderer {
public:
    CCoolMenuItemUxThemedRenderer();  ///< Closed until OnSettingChange opens the theme.

    /// Measures with the theme's parts and font, or classically.
    BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) override;
    /// Draws with the theme's parts, or hands the item to the classic renderer.
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override;
    /// Reopens the theme at the window's DPI and reads its metrics.
    void OnSettingChange(CWnd& wnd) override;

    const CUxTheme& GetTheme() const { return m_theme; }  ///< The "Menu" theme.
    CCoolMenuItemRenderer& GetFallback() { return m_fallback; }  ///< The classic renderer inside.
    /// The column that holds images and check marks.
    CSize GetColumnSize(const CImageList* list) const;
    /// A theme metric read at the last OnSettingChange.
    ///@{
    const SIZE& GetSeparatorSize() const { return m_separatorSize; }
    const SIZE& GetGutterSize() const { return m_gutterSize; }
    const MARGINS& GetCheckBackgroundMargins() const { return m_checkBackgroundMargins; }
    ///@}

private:
    BOOL Themed() const;
    // FALSE as soon as a theme call fails.
    BOOL TryDraw(const CoolMenuItemDrawStruct& item);

    CUxTheme m_theme;
    CCoolMenuItemRenderer m_fallback;
    SIZE m_checkSize = {0, 0};
    MARGINS m_checkMargins = {0, 0, 0, 0};
    SIZE m_checkCell = {0, 0};
    SIZE m_bulletSize = {0, 0};
    MARGINS m_bulletMargins = {0, 0, 0, 0};
    SIZE m_bulletCell = {0, 0};
    MARGINS m_checkBackgroundMargins = {0, 0, 0, 0};
    SIZE m_gutterSize = {0, 0};
    SIZE m_separatorSize = {0, 0};
    RECT m_imageMargins = {0, 0, 0, 0};
    TEXTMETRICW m_textMetrics = {};
    CFont m_menuFont;
    int m_dpi = 96;
};

}  // namespace Velkan
