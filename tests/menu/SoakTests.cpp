#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

#include "velkan/frame/Toolbar.h"
#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/menu/CoolMenuItemRenderer.h"
#include "velkan/menu/CoolMenuItemUxThemedRenderer.h"
#include "velkan/menu/CoolMenuMgr.h"
#include "velkan/menu/Menu.h"
#include "support/Soak.h"

using namespace Velkan;
using namespace Testing;

namespace {

// Hands the items to a real look and counts those it drew.
class CountingRenderer : public ICoolMenuItemRenderer {
public:
    explicit CountingRenderer(ICoolMenuItemRenderer& look) : m_look(look) {}
    int draws = 0;
    BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) override { return m_look.MeasureMenuItem(item); }
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override {
        const BOOL drawn = m_look.DrawMenuItem(item);
        draws += drawn ? 1 : 0;
        return drawn;
    }
    void OnSettingChange(CWnd& wnd) override { m_look.OnSettingChange(wnd); }

private:
    ICoolMenuItemRenderer& m_look;
};

// Ends the menu as soon as the menu loop runs out of input, which is after
// the popup has been drawn.
class CloseWhenIdle : public IWndMsgFilter {
public:
    BOOL WndMsgFilterProc(HWND, UINT msg, WPARAM w, LPARAM, LRESULT&) override {
        if (msg == WM_ENTERIDLE && w == MSGF_MENU) ::EndMenu();
        return FALSE;
    }
};

TBBUTTON buttons[] = {{0, 101, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0}, {1, 102, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0}};

}  // namespace

// Popups drawn by the manager in two looks, tracked for real and closed
// every round, then menus with images. Small headrooms keep the run short.
// They hold what this test and the first rounds keep for good (about 70
// GDI objects) and the margin with little to spare, so one handle kept a
// round uses them up long before the last round.
TEST(Soak, CoolMenusGiveBackWhatTheyTake) {
    if (SoakedInAnotherRun()) GTEST_SKIP() << "soaked in the run at 96 DPI with visual styles on";
    const int rounds = 100;
    const auto gdi = FillGdiTable(150);
    const auto user = FillUserTable(80);
    CSvgImage strip("<svg xmlns='http://www.w3.org/2000/svg' width='32' height='16'><rect width='16' height='16' "
                    "fill='#f00'/><rect x='16' width='16' height='16' fill='#00f'/></svg>",
                    0xFFFFFFFF);
    CWnd parent;
    CToolbar toolbar;
    ASSERT_NE(nullptr, parent.Create());
    ASSERT_NE(nullptr, toolbar.Create(&parent, strip, buttons, 2, 16));

    CCoolMenuItemRenderer classic;
    CCoolMenuItemUxThemedRenderer themed;
    for (ICoolMenuItemRenderer* look : std::vector<ICoolMenuItemRenderer*>{&classic, &themed}) {
        CountingRenderer renderer(*look);
        CCoolMenuMgr manager(renderer);
        manager.AddToolbar(toolbar);
        CloseWhenIdle closer;
        CWnd owner;
        owner.AddWndMsgFilter(manager);
        owner.AddWndMsgFilter(closer);
        ASSERT_NE(nullptr, owner.CreateEx(0, L"VlkWnd", L"owner", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr));
        ::SetForegroundWindow(owner);
        SoakWindows(look == &classic ? "classic popups" : "themed popups", rounds, [&] {
                CMenu popup, more;
            popup.CreatePopupMenu();
            more.CreatePopupMenu();
            more.AppendMenuItem(103, L"&Nested");
            popup.AppendMenuItem(101, L"&Open\tCtrl+O");
            popup.AppendMenuW(MF_STRING | MF_CHECKED, 102, L"&Options");
            popup.AppendMenuW(MF_SEPARATOR, 0, nullptr);
            popup.AppendMenuW(MF_POPUP, reinterpret_cast<UINT_PTR>(more.Detach()), L"&More");
            const int drawn = renderer.draws;
            popup.TrackPopupMenu(TPM_LEFTALIGN | TPM_RETURNCMD, 10, 10, owner);
            return renderer.draws >= drawn + 4 && !manager.IsInMenuLoop();
        });
        owner.Destroy();
    }

    // A bitmap of the item's own and the manager's images for the commands.
    // Not icon-sized, so that the manager's masked copy is stretched too.
    const std::vector<DWORD> yellow(20 * 20, 0x00FFFF00);
    SoakWindows("menus with images", rounds, [&] {
        CBitmap picture(20, 20, 1, 32, yellow.data());
        CMenu menu, file;
        menu.CreateMenu();
        file.CreatePopupMenu();
        for (UINT id : {101u, 102u, 104u}) file.AppendMenuItem(id, L"&Item");
        MENUITEMINFOW item = {};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_BITMAP;
        item.hbmpItem = picture.GetHbitmap();
        file.SetMenuItemInfoW(104, &item, FALSE);
        menu.AppendMenuW(MF_POPUP, reinterpret_cast<UINT_PTR>(file.Detach()), L"&File");
        CCoolMenuMgr manager;
        manager.AddToolbar(toolbar);
        return manager.AddMaskedMenuButton(picture.GetHbitmap(), RGB(255, 0, 255), 104) &&
               manager.GetImageList().GetImageCount() == 3 && manager.GetCommandImage(102) >= 0;
    });
    parent.Destroy();
}
