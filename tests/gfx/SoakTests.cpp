#include <gtest/gtest.h>

#include <windows.h>
#include <psapi.h>

#include <memory>
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

using namespace Velkan;
using Testing::Canvas;
using Testing::Dib;

namespace {

// Each wrapper is made, used and destroyed many times over, and the
// process's resources must not grow.
//
// Windows counts GDI and USER objects (GetGuiResources) and private bytes,
// and they are compared before and after. Wine 8 reports 0 for all three.
// There the handle tables do the checking: they are filled up to a
// headroom of a few thousand handles first (Wine's GDI table holds about
// 65,500 objects, its USER table about 32,700), so a wrapper that leaks one
// handle a round fails to create its object before the loop ends.
const int kHeadroom = 3000;
const int kRounds = 4000;

// Takes every free handle of one table but the headroom, and gives them
// back when it goes.
template <typename Handle>
class TableFiller {
public:
    template <typename Create>
    explicit TableFiller(Create create, BOOL (*destroy)(Handle)) : m_destroy(destroy) {
        if (::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS) != 0) return;  // counted instead
        for (Handle handle; m_handles.size() < 100000 && (handle = create()) != nullptr;) m_handles.push_back(handle);
        for (int i = 0; i < kHeadroom && !m_handles.empty(); ++i) Release();
    }
    ~TableFiller() {
        while (!m_handles.empty()) Release();
    }
    TableFiller(const TableFiller&) = delete;
    TableFiller& operator=(const TableFiller&) = delete;

private:
    void Release() {
        m_destroy(m_handles.back());
        m_handles.pop_back();
    }

    BOOL (*m_destroy)(Handle);
    std::vector<Handle> m_handles;
};

BOOL DeleteGdiObject(HGDIOBJ object) {
    return ::DeleteObject(object);
}

BOOL DestroyMenuHandle(HMENU menu) {
    return ::DestroyMenu(menu);
}

struct Usage {
    DWORD gdi;
    DWORD user;
    SIZE_T privateBytes;
};

Usage Measure() {
    PROCESS_MEMORY_COUNTERS_EX memory = {};
    memory.cb = sizeof(memory);
    ::GetProcessMemoryInfo(::GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                           sizeof(memory));
    return {::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS),
            ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS), memory.PrivateUsage};
}

template <typename Round>
void Soak(const char* family, int rounds, Round round) {
    // A first pass settles caches (stock objects, font tables, heaps).
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(round()) << family;
    const Usage before = Measure();
    for (int i = 0; i < rounds; ++i) ASSERT_TRUE(round()) << family << ", round " << i;
    const Usage after = Measure();
    if (before.gdi != 0) {
        EXPECT_LE(after.gdi, before.gdi + 8) << family;
    }
    if (before.user != 0) {
        EXPECT_LE(after.user, before.user + 8) << family;
    }
    if (before.privateBytes != 0) {
        EXPECT_LE(after.privateBytes, before.privateBytes + (4u << 20)) << family;
    }
}

std::unique_ptr<TableFiller<HGDIOBJ>> FillGdiTable() {
    return std::make_unique<TableFiller<HGDIOBJ>>(
        [] { return static_cast<HGDIOBJ>(::CreateSolidBrush(RGB(9, 9, 9))); }, DeleteGdiObject);
}

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
    TableFiller<HMENU> user([] { return ::CreatePopupMenu(); }, DestroyMenuHandle);
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
    const Usage before = Measure();
    std::vector<HBRUSH> leaked;
    for (int i = 0; i < kRounds; ++i) {
        HBRUSH brush = ::CreateSolidBrush(RGB(1, 2, 3));
        if (brush == nullptr) break;
        leaked.push_back(brush);
    }
    const Usage after = Measure();
    if (before.gdi != 0) {
        EXPECT_GE(after.gdi, before.gdi + kRounds);
    } else {
        EXPECT_LT(leaked.size(), static_cast<size_t>(kRounds));
    }
    for (HBRUSH brush : leaked) ::DeleteObject(brush);
}
