#pragma once

#include "velkan/Velkan.h"

// The three looks of owner-drawn menus behind one renderer, so that a menu
// command can switch between them while the manager keeps its renderer.
class MenuLooks : public Velkan::ICoolMenuItemRenderer {
public:
    enum Look { Classic, Themed, VisualStyle };

    void Select(Look look) { m_look = look; }
    Look GetLook() const { return m_look; }
    static const wchar_t* Name(Look look);
    // "classic", "themed" or "visual"; false for anything else.
    static bool Parse(const wchar_t* text, Look& look);

    BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) override { return Current().MeasureMenuItem(item); }
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override { return Current().DrawMenuItem(item); }
    void OnSettingChange(Velkan::CWnd& wnd) override {
        m_classic.OnSettingChange(wnd);
        m_themed.OnSettingChange(wnd);
        m_visualStyle.OnSettingChange(wnd);
    }

private:
    Velkan::ICoolMenuItemRenderer& Current();

    Look m_look = VisualStyle;
    Velkan::CCoolMenuItemRenderer m_classic;
    Velkan::CCoolMenuItemThemedRenderer m_themed;
    Velkan::CCoolMenuItemUxThemedRenderer m_visualStyle;
};
