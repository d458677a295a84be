#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>
#include <vssym32.h>

#include "gfx/Dib.h"
#include "velkan/app/Wnd.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/UxTheme.h"
#include "velkan/menu/CoolMenuItemRenderer.h"
#include "velkan/menu/CoolMenuItemUxThemedRenderer.h"
#include "velkan/menu/Menu.h"

using namespace Velkan;
using Testing::Canvas;

namespace {

constexpr uint32_t kMarker = 0x123456;

uint32_t Rgb(COLORREF c) {
    return (static_cast<uint32_t>(GetRValue(c)) << 16) | (static_cast<uint32_t>(GetGValue(c)) << 8) | GetBValue(c);
}

uint32_t Sys(int index) {
    return Rgb(::GetSysColor(index));
}

bool ThemesOn() {
    return CUxTheme::IsAppThemed() && CUxTheme::IsThemeActive();
}

// One owner window, a popup whose items the check marks are read from, and
// an image list with a red image, all at the prefix's DPI.
class RendererTest : public testing::Test {
protected:
    void SetUp() override {
        wnd.CreateEx(0, L"VlkWnd", L"renderer", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr);
        dpi = wnd.GetDpi();
        icon = ::MulDiv(16, dpi, 96);
        popup.CreatePopupMenu();
        popup.AppendMenuItem(1, L"&Open\tCtrl+O");
        popup.AppendMenuW(MF_STRING | MFT_RADIOCHECK, 2, L"&Radio");
        popup.AppendMenuItem(3, L"&Own mark");
        green = ::CreateBitmap(8, 8, 1, 32, std::vector<uint32_t>(64, 0xFF00FF00).data());
        ::SetMenuItemBitmaps(popup, 3, MF_BYCOMMAND, nullptr, green);
        images.Create(icon, icon, 1);
        HBITMAP red = ::CreateBitmap(icon, icon, 1, 32,
                                     std::vector<uint32_t>(static_cast<size_t>(icon * icon), 0xFFFF0000).data());
        images.Add(red, nullptr);
        ::DeleteObject(red);
    }
    void TearDown() override {
        wnd.Destroy();
        ::DeleteObject(green);
    }

    ICoolMenuItemRenderer::CoolMenuItemMeasureStruct Measure(UINT type, const wchar_t* text, int image) {
        measureItem = MEASUREITEMSTRUCT{ODT_MENU, 0, 1, 0, 0, 0};
        return {&wnd, type, text, image, &images, &measureItem};
    }

    // Draws one item of the given size into a canvas filled with the marker.
    std::unique_ptr<Canvas> Draw(ICoolMenuItemRenderer& renderer, UINT type, const wchar_t* text, int image,
                                 UINT state, UINT id = 1, int width = 0, int height = 0) {
        width = width != 0 ? width : ::MulDiv(160, dpi, 96);
        height = height != 0 ? height : ::MulDiv(24, dpi, 96);
        auto canvas = std::make_unique<Canvas>(width, height, 0xFF000000 | kMarker);
        DRAWITEMSTRUCT draw = {ODT_MENU, 0, id, ODA_DRAWENTIRE, state,
                               reinterpret_cast<HWND>(popup.GetHmenu()), canvas->dc, {0, 0, width, height}, 0};
        ICoolMenuItemRenderer::CoolMenuItemDrawStruct item = {&wnd, type, text, image, &images, &draw};
        EXPECT_TRUE(renderer.DrawMenuItem(item));
        return canvas;
    }

    static bool SamePixels(const Canvas& a, const Canvas& b) {
        if (a.dib.width != b.dib.width || a.dib.height != b.dib.height) return false;
        for (int y = 0; y < a.dib.height; ++y)
            for (int x = 0; x < a.dib.width; ++x)
                if ((a.At(x, y) & 0xFFFFFF) != (b.At(x, y) & 0xFFFFFF)) return false;
        return true;
    }

    // How many pixels of the rectangle have exactly the colour.
    static int Count(const Canvas& c, const RECT& r, uint32_t colour) {
        int n = 0;
        for (int y = r.top; y < r.bottom; ++y)
            for (int x = r.left; x < r.right; ++x)
                if ((c.At(x, y) & 0xFFFFFF) == colour) ++n;
        return n;
    }

    CWnd wnd;
    int dpi = 96;
    int icon = 16;
    CMenu popup;
    HBITMAP green = nullptr;
    CImageList images;
    MEASUREITEMSTRUCT measureItem = {};
};

}  // namespace

TEST(CoolMenuIcons, BuiltInDocumentsAsShipped) {
    const std::string check = CCoolMenuItemRenderer::CheckMarkSvg;
    const std::string bullet = CCoolMenuItemRenderer::BulletSvg;
    for (const std::string& svg : {check, bullet}) {
        EXPECT_EQ('\n', svg.front());
        EXPECT_EQ("\n  ", svg.substr(svg.size() - 3));
        EXPECT_NE(std::string::npos, svg.find("xmlns=\"http://www.w3.org/2000/svg\""));
        EXPECT_NE(std::string::npos, svg.find("xml:space=\"preserve\""));
        EXPECT_NE(std::string::npos, svg.find("style=\"fill:currentColor;fill-rule:evenodd;clip-rule:evenodd;"
                                              "stroke-linejoin:round;stroke-miterlimit:2\""));
        EXPECT_NE(std::string::npos, svg.find("viewBox=\"0 0 16 16\""));
    }
    EXPECT_NE(std::string::npos, check.find("<path d=\"m4 6.547 2.5 2.559L11 4.5v2.894L6.5 12 4 9.441z\"/>"));
    EXPECT_NE(std::string::npos, bullet.find("<circle cx=\"24\" cy=\"8\" r=\"3\" transform=\"translate(-16)\"/>"));
}

TEST_F(RendererTest, ClassicMetricsFollowTheWindowsDpi) {
    // The harness runs this program at 96 and at 144 DPI.
    if (const char* expected = std::getenv("VELKAN_TEST_DPI")) {
        EXPECT_EQ(std::atoi(expected), dpi);
    }
    CCoolMenuItemRenderer classic;
    EXPECT_EQ(0, classic.GetGap());
    classic.OnSettingChange(wnd);
    EXPECT_EQ(::MulDiv(2, dpi, 96), classic.GetTextMargins().left);
    EXPECT_EQ(::MulDiv(2, dpi, 96), classic.GetImageMargins().bottom);
    EXPECT_EQ(::MulDiv(1, dpi, 96), classic.GetGap());
    // 16 x 16 at 96 DPI, 24 x 24 at 144.
    EXPECT_EQ(icon, classic.GetCheckBitmap().GetSize().cx);
    EXPECT_EQ(icon, classic.GetBulletBitmap().GetSize().cy);
}

TEST_F(RendererTest, ClassicMeasurements) {
    CCoolMenuItemRenderer classic;
    classic.OnSettingChange(wnd);
    const int margins = 2 * ::MulDiv(2, dpi, 96);
    const int gutter = icon + margins;

    auto separator = Measure(MFT_SEPARATOR, L"", -1);
    ASSERT_TRUE(classic.MeasureMenuItem(separator));
    EXPECT_EQ(static_cast<UINT>(::GetSystemMetrics(SM_CYMENU) / 2), measureItem.itemHeight);
    EXPECT_EQ(static_cast<UINT>(2 * gutter), measureItem.itemWidth);

    // The tab measures as "MM" between label and accelerator.
    HDC dc = ::GetDC(nullptr);
    HGDIOBJ old = ::SelectObject(dc, classic.GetMenuFont().GetHfont());
    SIZE extent = {};
    ::GetTextExtentPoint32W(dc, L"&OpenMMCtrl+O", 13, &extent);
    ::SelectObject(dc, old);
    ::ReleaseDC(nullptr, dc);
    auto text = Measure(MFT_STRING, L"&Open\tCtrl+O", 0);
    ASSERT_TRUE(classic.MeasureMenuItem(text));
    EXPECT_EQ(static_cast<UINT>(::GetSystemMetrics(SM_CXMENUCHECK) + classic.GetGap() + gutter + extent.cx),
              measureItem.itemWidth);
    const UINT height = static_cast<UINT>(std::max({::GetSystemMetrics(SM_CYMENU), static_cast<int>(extent.cy),
                                                    icon + margins}));
    EXPECT_EQ(height, measureItem.itemHeight);
}

TEST_F(RendererTest, ClassicSelectionImagesAndGreyedImages) {
    CCoolMenuItemRenderer classic;
    classic.OnSettingChange(wnd);
    auto normal = Draw(classic, MFT_STRING, L"&Open\tCtrl+O", 0, 0);
    auto selected = Draw(classic, MFT_STRING, L"&Open\tCtrl+O", 0, ODS_SELECTED);
    auto grayed = Draw(classic, MFT_STRING, L"&Open", 0, ODS_GRAYED | ODS_SELECTED);
    const int w = normal->dib.width, h = normal->dib.height;
    // The far right of the text area: no text there.
    EXPECT_EQ(Sys(COLOR_MENU), normal->At(w - 2, 1) & 0xFFFFFF);
    EXPECT_EQ(Sys(COLOR_HIGHLIGHT), selected->At(w - 2, 1) & 0xFFFFFF);
    EXPECT_EQ(Sys(COLOR_MENU), grayed->At(w - 2, 1) & 0xFFFFFF);
    // The image sits in the middle of the gutter cell; greyed it is grey.
    const int gutter = icon + 2 * ::MulDiv(2, dpi, 96) + (h - icon - 2 * ::MulDiv(2, dpi, 96));
    const uint32_t image = normal->At(gutter / 2, h / 2) & 0xFFFFFF;
    EXPECT_EQ(0xFF0000u, image);
    const uint32_t grey = grayed->At(gutter / 2, h / 2);
    EXPECT_EQ((grey >> 16) & 0xFF, (grey >> 8) & 0xFF);
    EXPECT_EQ((grey >> 8) & 0xFF, grey & 0xFF);
    // Text was drawn: the label area is not one flat colour.
    const RECT label = {gutter + 2, 0, gutter + 2 + w / 4, h};
    EXPECT_LT(Count(*normal, label, Sys(COLOR_MENU)), (label.right - label.left) * h);
}

TEST_F(RendererTest, ClassicCheckMarksBulletsAndOwnBitmaps) {
    CCoolMenuItemRenderer classic;
    classic.OnSettingChange(wnd);
    auto checked = Draw(classic, MFT_STRING, L"&Open", -1, ODS_CHECKED);
    auto radio = Draw(classic, MFT_RADIOCHECK, L"&Radio", -1, ODS_CHECKED, 2);
    auto own = Draw(classic, MFT_STRING, L"&Own mark", -1, ODS_CHECKED, 3);
    auto grayed = Draw(classic, MFT_STRING, L"&Open", -1, ODS_CHECKED | ODS_GRAYED);
    const int h = checked->dib.height;
    const RECT cell = {0, 0, h, h};  // no image: the gutter is the item's height
    // The check mark is in the menu text colour; the cell around it dithered.
    EXPECT_GT(Count(*checked, cell, Sys(COLOR_MENUTEXT)), 0);
    if (Sys(COLOR_MENU) != Sys(COLOR_3DHILIGHT)) {
        const uint32_t a = checked->At(3, 3) & 0xFFFFFF, b = checked->At(4, 3) & 0xFFFFFF;
        EXPECT_NE(a, b);
        EXPECT_TRUE((a == Sys(COLOR_MENU) && b == Sys(COLOR_3DHILIGHT)) ||
                    (b == Sys(COLOR_MENU) && a == Sys(COLOR_3DHILIGHT)));
    }
    // A radio item shows the bullet, an item with its own bitmap that one.
    EXPECT_GT(Count(*radio, cell, Sys(COLOR_MENUTEXT)), 0);
    EXPECT_NE(Count(*radio, cell, Sys(COLOR_MENUTEXT)), Count(*checked, cell, Sys(COLOR_MENUTEXT)));
    EXPECT_EQ(0x00FF00u, own->At(h / 2, h / 2) & 0xFFFFFF);
    // Greyed: no mark, no edge, the cell untouched.
    EXPECT_EQ(0, Count(*grayed, cell, Sys(COLOR_MENUTEXT)));
    EXPECT_EQ(kMarker, grayed->At(h / 2, h / 2) & 0xFFFFFF);

    // A separator is an etched line across the middle, inset on both sides.
    auto separator = Draw(classic, MFT_SEPARATOR, L"", -1, 0);
    const int inset = ::GetSystemMetrics(SM_CXMENUCHECK);
    EXPECT_NE(kMarker, separator->At(separator->dib.width / 2, separator->dib.height / 2) & 0xFFFFFF);
    EXPECT_EQ(kMarker, separator->At(inset / 2, separator->dib.height / 2) & 0xFFFFFF);
}

TEST_F(RendererTest, ThemedLookIsFlatOnlyWhileVisualStylesAreActive) {
    CCoolMenuItemRenderer classic;
    CCoolMenuItemThemedRenderer themed;
    classic.OnSettingChange(wnd);
    themed.OnSettingChange(wnd);
    struct Case {
        UINT type;
        int image;
        UINT state;
    };
    const Case cases[] = {{MFT_STRING, -1, ODS_CHECKED}, {MFT_STRING, 0, ODS_SELECTED}, {MFT_SEPARATOR, -1, 0}};
    for (const Case& c : cases) {
        auto a = Draw(classic, c.type, L"&Open", c.image, c.state);
        auto b = Draw(themed, c.type, L"&Open", c.image, c.state);
        EXPECT_EQ(!ThemesOn(), SamePixels(*a, *b)) << c.type << " " << c.state;
    }
    if (!ThemesOn()) return;
    const int one = ::MulDiv(1, dpi, 96);
    auto checked = Draw(themed, MFT_STRING, L"&Open", -1, ODS_CHECKED);
    // A one-pixel (scaled) highlight frame around the shrunken cell.
    EXPECT_EQ(Sys(COLOR_HIGHLIGHT), checked->At(one, checked->dib.height / 2) & 0xFFFFFF);
    auto selected = Draw(themed, MFT_STRING, L"&Open", 0, ODS_SELECTED);
    // The image cell is filled with the highlight around the image.
    EXPECT_EQ(Sys(COLOR_HIGHLIGHT), selected->At(::MulDiv(2, dpi, 96), 1) & 0xFFFFFF);
}

TEST_F(RendererTest, VisualStyleLookFallsBackToTheClassicOneWithoutStyles) {
    CCoolMenuItemRenderer classic;
    CCoolMenuItemUxThemedRenderer ux;
    classic.OnSettingChange(wnd);
    ux.OnSettingChange(wnd);
    if (!ThemesOn()) {
        auto m1 = Measure(MFT_STRING, L"&Open\tCtrl+O", 0);
        classic.MeasureMenuItem(m1);
        const MEASUREITEMSTRUCT first = measureItem;
        auto m2 = Measure(MFT_STRING, L"&Open\tCtrl+O", 0);
        ux.MeasureMenuItem(m2);
        EXPECT_EQ(first.itemWidth, measureItem.itemWidth);
        EXPECT_EQ(first.itemHeight, measureItem.itemHeight);
        for (UINT state : {0u, static_cast<UINT>(ODS_SELECTED), static_cast<UINT>(ODS_CHECKED | ODS_GRAYED)}) {
            auto a = Draw(classic, MFT_STRING, L"&Open\tCtrl+O", 0, state);
            auto b = Draw(ux, MFT_STRING, L"&Open\tCtrl+O", 0, state);
            EXPECT_TRUE(SamePixels(*a, *b)) << state;
        }
        return;
    }
    ASSERT_TRUE(ux.GetTheme().IsValid());
    // The separator measures 1.25 times the theme's separator height.
    CUxTheme theme(L"Menu");
    ASSERT_NE(nullptr, theme.OpenThemeDataForDpi(wnd, static_cast<UINT>(dpi)));
    SIZE part = {};
    ASSERT_EQ(S_OK, theme.GetThemePartSize(nullptr, MENU_POPUPSEPARATOR, 0, nullptr, TS_TRUE, part));
    auto separator = Measure(MFT_SEPARATOR, L"", -1);
    ASSERT_TRUE(ux.MeasureMenuItem(separator));
    EXPECT_EQ(static_cast<UINT>(::MulDiv(::MulDiv(part.cy, dpi, 96), 5, 4)), measureItem.itemHeight);
    EXPECT_EQ(static_cast<UINT>(::MulDiv(part.cx, dpi, 96)), measureItem.itemWidth);
    // Items are as high as the column, the theme's menu size or the font.
    auto text = Measure(MFT_STRING, L"&Open", 0);
    ASSERT_TRUE(ux.MeasureMenuItem(text));
    EXPECT_GE(measureItem.itemHeight, static_cast<UINT>(ux.GetColumnSize(&images).cy));
    EXPECT_GE(measureItem.itemHeight, static_cast<UINT>(theme.GetThemeSysSize(SM_CYMENUSIZE)));

    // A greyed checked item keeps a (disabled) mark in this look.
    auto greyedChecked = Draw(ux, MFT_STRING, L"&Open", -1, ODS_CHECKED | ODS_GRAYED);
    auto greyed = Draw(ux, MFT_STRING, L"&Open", -1, ODS_GRAYED);
    const CSize column = ux.GetColumnSize(&images);
    const int h = greyed->dib.height;
    const RECT cell = {0, h / 2 - column.cy / 2, column.cx, h / 2 - column.cy / 2 + column.cy};
    int differing = 0;
    for (int y = cell.top; y < cell.bottom; ++y)
        for (int x = cell.left; x < cell.right; ++x)
            if (greyed->At(x, y) != greyedChecked->At(x, y)) ++differing;
    EXPECT_GT(differing, 0);
    // The image is drawn at the column's top left inside its margins.
    auto withImage = Draw(ux, MFT_STRING, L"&Open", 0, 0);
    const int m = ::MulDiv(2, dpi, 96);
    EXPECT_EQ(0xFF0000u, withImage->At(m + icon / 2, h / 2 - column.cy / 2 + m + icon / 2) & 0xFFFFFF);
}

TEST_F(RendererTest, ThemeReportListsEveryPart) {
    // The harness runs this program with visual styles on and off.
    if (const char* themes = std::getenv("VELKAN_TEST_THEMES")) {
        EXPECT_EQ(std::string(themes) == "on", ThemesOn());
    }
    CUxTheme theme(L"Menu", 0);
    theme.CloseThemeData();  // closed already: nothing happens
    EXPECT_FALSE(theme.IsValid());
    const std::wstring closed = theme.DumpThemeMetrics().GetString();
    EXPECT_EQ(0u, closed.find(L"Dumping theme metrics for class list, Menu:\n"));
    for (const wchar_t* name : {L"MENU_POPUPITEM:\n", L"MENU_POPUPGUTTER:\n", L"MENU_POPUPCHECK::MC_CHECKMARKNORMAL:\n",
                                L"MENU_POPUPCHECK::MC_BULLETNORMAL:\n", L"MENU_POPUPCHECKBACKGROUND:\n",
                                L"MENU_POPUPSUBMENU:\n", L"MENU_POPUPSEPARATOR:\n"})
        EXPECT_NE(std::wstring::npos, closed.find(name)) << name;
    size_t failures = 0;
    for (size_t at = closed.find(L"\tFailed to get TMT_CONTENTMARGINS: hr=0x"); at != std::wstring::npos;
         at = closed.find(L"\tFailed to get TMT_CONTENTMARGINS: hr=0x", at + 1))
        ++failures;
    EXPECT_EQ(7u, failures);
    EXPECT_NE(std::wstring::npos, closed.find(L"Menu Font:\n\tFont: "));
    EXPECT_NE(std::wstring::npos, closed.find(L" (via SPI_GETNONCLIENTMETRICS)\n\tItem Height: "));

    if (!ThemesOn()) {
        EXPECT_EQ(nullptr, theme.OpenThemeData(wnd));
        return;
    }
    ASSERT_NE(nullptr, theme.OpenThemeData(wnd));
    const std::wstring open = theme.DumpThemeMetrics().GetString();
    EXPECT_NE(std::wstring::npos, open.find(L"\tPart size: width="));
    // A second open replaces the first handle.
    HTHEME first = theme.GetTheme();
    EXPECT_NE(nullptr, theme.OpenThemeDataForDpi(wnd, static_cast<UINT>(dpi)));
    EXPECT_TRUE(first == theme.GetTheme() || theme.IsValid());
    theme.CloseThemeData();
    EXPECT_FALSE(theme.IsValid());
}
