#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

#include "Dib.h"
#include "velkan/gfx/Brush.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/Font.h"
#include "velkan/gfx/Icon.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/ScopedDC.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/menu/Menu.h"
#include "support/Soak.h"

using namespace Velkan;
using Testing::Canvas;
using Testing::Dib;
using namespace Testing;

namespace {

const int kRounds = 4000;

}  // namespace

TEST(Soak, GdiWrappersGiveBackWhatTheyTake) {
    const auto gdi = FillGdiTable();
    Soak("brushes", kRounds, [] {
        CBrush brush;
        return brush.CreateSolidBrush(RGB(1, 2, 3)) != nullptr;
    });
    Soak("fonts", kRounds, [] {
        CFont font;
        return font.CreatePointFont(90, L"Tahoma") != nullptr;
    });
    Soak("memory DCs with a bitmap selected", kRounds, [] {
        CMemDC dc(nullptr);
        CBitmap bitmap;
        if (bitmap.CreateCompatibleBitmap(dc, 4, 4) == nullptr) return false;
        HGDIOBJ old = dc.SelectObject(bitmap);
        const bool drawn = ::PatBlt(dc, 0, 0, 4, 4, WHITENESS) != FALSE;
        dc.SelectObject(old);
        return drawn;
    });
    Dib source(2, 2, 32, 0x80000080);
    Canvas canvas(4, 4, 0xFFFFFFFF);
    CDC& target = *CDC::FromHdc(canvas.dc);
    Soak("alpha-blended bitmaps", kRounds, [&] { return target.AlphaBlendBitmap(source.bitmap, 0, 0) != FALSE; });
    CDC::CleanUpTempObjects();
    Soak("icons", kRounds, [] {
        BYTE andMask[32 * 4] = {}, xorMask[32 * 4] = {};
        HICON handle = ::CreateIcon(nullptr, 32, 32, 1, 1, andMask, xorMask);
        if (handle == nullptr) return false;
        CIcon icon(handle);
        return icon.GetHicon() == handle;
    });
    Dib cell(16, 16, 32, 0xFF0000FF);
    Soak("image lists", kRounds, [&] {
        CImageList list;
        return list.Create(16, 16, 0) != nullptr && list.Add(cell.bitmap, nullptr) == 0 &&
               list.Draw(0, canvas.dc, 0, 0, ILD_NORMAL);
    });
}

TEST(Soak, MenusAndSvgRendersGiveBackWhatTheyTake) {
    const auto gdi = FillGdiTable();
    const auto user = FillUserTable();
    Soak("menus", kRounds, [] {
        CMenu menu;
        if (menu.CreatePopupMenu() == nullptr) return false;
        CMenu sub;
        sub.CreatePopupMenu();
        menu.AppendMenuItem(1, L"One");
        return menu.AppendMenuW(MF_POPUP, reinterpret_cast<UINT_PTR>(sub.Detach()), L"More") != FALSE;
    });
    CSvgImage svg("<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
                  "<circle cx='8' cy='8' r='6' stroke='#000' stroke-dasharray='2 1'/></svg>",
                  RGB(0, 0, 0));
    Soak("SVG renders", kRounds, [&] { return svg.Render(1.5f).IsValid() && svg.RenderEx(1.0f) != nullptr; });
}

// The check itself: a loop that keeps one brush a round runs out of
// handles (Wine) or raises the count (Windows) within the rounds.
TEST(Soak, ALeakOfOneHandleARoundIsCaught) {
    const auto gdi = FillGdiTable();
    const Usage before = MeasureUsage();
    std::vector<HBRUSH> leaked;
    for (int i = 0; i < kRounds; ++i) {
        HBRUSH brush = ::CreateSolidBrush(RGB(1, 2, 3));
        if (brush == nullptr) break;
        leaked.push_back(brush);
    }
    const Usage after = MeasureUsage();
    if (before.gdi != 0) {
        EXPECT_GE(after.gdi, before.gdi + kRounds);
    } else {
        EXPECT_LT(leaked.size(), static_cast<size_t>(kRounds));
    }
    for (HBRUSH brush : leaked) ::DeleteObject(brush);
}
