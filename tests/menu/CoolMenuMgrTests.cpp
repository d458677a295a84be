#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "gfx/Dib.h"
#include "support/ModalDriver.h"
#include "velkan/core/Exceptions.h"
#include "velkan/frame/Toolbar.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/menu/CoolMenuItemUxThemedRenderer.h"
#include "velkan/menu/CoolMenuMgr.h"
#include "velkan/menu/Menu.h"

using namespace Velkan;
using Testing::Script;
using Testing::ThreadTimer;

namespace {

// Counts what the manager asks of the renderer and lets a real one work.
class RecordingRenderer : public ICoolMenuItemRenderer {
public:
    CCoolMenuItemUxThemedRenderer real;
    int settings = 0, measures = 0, draws = 0;
    std::vector<std::wstring> drawnTexts;

    BOOL MeasureMenuItem(CoolMenuItemMeasureStruct& item) override {
        ++measures;
        return real.MeasureMenuItem(item);
    }
    BOOL DrawMenuItem(const CoolMenuItemDrawStruct& item) override {
        ++draws;
        drawnTexts.push_back(item.text);
        return real.DrawMenuItem(item);
    }
    void OnSettingChange(CWnd& wnd) override {
        ++settings;
        real.OnSettingChange(wnd);
    }
};

// Sees what the manager let through.
class PassedThrough : public IWndMsgFilter {
public:
    std::vector<UINT> messages;
    BOOL WndMsgFilterProc(HWND, UINT msg, WPARAM, LPARAM, LRESULT&) override {
        messages.push_back(msg);
        return FALSE;
    }
    int Count(UINT msg) const { return static_cast<int>(std::count(messages.begin(), messages.end(), msg)); }
};

// A visible owner window with the manager as its first filter.
struct Owner {
    explicit Owner(CCoolMenuMgr& manager) {
        wnd.AddWndMsgFilter(manager);
        wnd.AddWndMsgFilter(after);
        wnd.CreateEx(0, L"VlkWnd", L"menu owner", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr);
        ::SetForegroundWindow(wnd);
    }
    ~Owner() { wnd.Destroy(); }
    CWnd wnd;
    PassedThrough after;
};

const char* const kRedBlue =
    "<svg xmlns='http://www.w3.org/2000/svg' width='32' height='16'>"
    "<rect x='0' y='0' width='16' height='16' fill='#ff0000'/><rect x='16' y='0' width='16' height='16' fill='#0000ff'/></svg>";
const char* const kGreenBlack =
    "<svg xmlns='http://www.w3.org/2000/svg' width='32' height='16'>"
    "<rect x='0' y='0' width='16' height='16' fill='#00ff00'/><rect x='16' y='0' width='16' height='16' fill='#000000'/></svg>";

TBBUTTON Button(int image, int command) {
    TBBUTTON button = {};
    button.iBitmap = image;
    button.idCommand = command;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON;
    return button;
}

MENUITEMINFOW ItemAt(HMENU menu, UINT pos, wchar_t* text = nullptr, UINT room = 0) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_DATA | (text != nullptr ? MIIM_STRING : 0u);
    info.dwTypeData = text;
    info.cch = room;
    ::GetMenuItemInfoW(menu, pos, TRUE, &info);
    return info;
}

// The pixel in the middle of an image of the manager's list.
uint32_t ImageColour(CCoolMenuMgr& manager, int index) {
    const CSize icon = manager.GetImageList().GetIconSize();
    Testing::Canvas canvas(icon.cx, icon.cy, 0xFFFFFFFF);
    manager.GetImageList().Draw(index, canvas.dc, 0, 0, ILD_NORMAL);
    return canvas.At(icon.cx / 2, icon.cy / 2) & 0x00FFFFFF;
}

}  // namespace

TEST(CoolMenuMgr, ItemsAreOwnerDrawnWhileOpenAndRestoredAfterwards) {
    RecordingRenderer renderer;
    CCoolMenuMgr manager(renderer);
    Owner owner(manager);
    EXPECT_EQ(1, renderer.settings);  // on WM_CREATE

    CSvgImage strip(kRedBlue, 0xFFFFFFFF);
    TBBUTTON buttons[] = {Button(0, 101), Button(1, 0)};
    CToolbar toolbar;
    ASSERT_NE(nullptr, toolbar.Create(&owner.wnd, strip, buttons, 2, 16));
    manager.AddToolbar(toolbar);

    HBITMAP picture = ::CreateBitmap(8, 8, 1, 32, nullptr);
    CMenu popup;
    popup.CreatePopupMenu();
    popup.AppendMenuW(MF_STRING, 101, L"&Open\tCtrl+O");
    popup.AppendMenuW(MF_STRING | MF_CHECKED, 102, L"&Options");
    popup.AppendMenuW(MF_SEPARATOR, 0, nullptr);
    popup.AppendMenuW(MF_STRING | MF_GRAYED, 103, L"E&xit");
    popup.AppendMenuW(MF_OWNERDRAW, 104, reinterpret_cast<const wchar_t*>(0x1234));
    popup.AppendMenuW(MF_BITMAP, 105, reinterpret_cast<const wchar_t*>(picture));
    popup.SetMenuItemData(101, 0x51, FALSE);

    std::vector<MENUITEMINFOW> open;
    std::vector<std::wstring> recordTexts;
    std::vector<int> recordImages;
    Testing::Watchdog watchdog;
    Script script({
        [&] { return renderer.draws >= 4; },
        [&] {
            for (UINT i = 0; i < 6; ++i) {
                open.push_back(ItemAt(popup, i));
                const auto* record = CCoolMenuMgr::AsRecord(open.back().dwItemData);
                recordTexts.push_back(record != nullptr ? record->text : L"(none)");
                recordImages.push_back(record != nullptr ? record->imageIndex : -2);
            }
            ::PostMessageW(owner.wnd, WM_CANCELMODE, 0, 0);
            return true;
        },
    });
    popup.TrackPopupMenu(TPM_LEFTALIGN | TPM_RETURNCMD, 10, 10, owner.wnd);
    ASSERT_TRUE(script.Finished());

    // While open: owner-drawn items carrying records, foreign ones untouched.
    ASSERT_EQ(6u, open.size());
    for (int i : {0, 1, 2, 3}) EXPECT_TRUE(open[i].fType & MFT_OWNERDRAW) << i;
    EXPECT_EQ(L"&Open\tCtrl+O", recordTexts[0]);
    EXPECT_EQ(L"&Options", recordTexts[1]);
    EXPECT_EQ(L"", recordTexts[2]);
    EXPECT_EQ(manager.GetCommandImage(101), recordImages[0]);
    EXPECT_GE(recordImages[0], 0);
    EXPECT_EQ(-1, recordImages[1]);
    EXPECT_EQ(0x1234u, open[4].dwItemData);
    EXPECT_EQ(L"(none)", recordTexts[4]);
    EXPECT_TRUE(open[5].fType & MFT_BITMAP);
    EXPECT_EQ(L"(none)", recordTexts[5]);
    EXPECT_GE(renderer.measures, 4);
    EXPECT_NE(renderer.drawnTexts.end(),
              std::find(renderer.drawnTexts.begin(), renderer.drawnTexts.end(), L"E&xit"));
    // The foreign owner-drawn item reached the window, not the renderer.
    EXPECT_GE(owner.after.Count(WM_DRAWITEM), 1);

    // Closed: every item has its type, text and data back.
    wchar_t text[64] = {};
    MENUITEMINFOW first = ItemAt(popup, 0, text, 64);
    EXPECT_EQ(static_cast<UINT>(MFT_STRING), first.fType);
    EXPECT_STREQ(L"&Open\tCtrl+O", text);
    EXPECT_EQ(0x51u, first.dwItemData);
    EXPECT_EQ(static_cast<UINT>(MFT_SEPARATOR), ItemAt(popup, 2).fType);
    EXPECT_STREQ(L"E&xit", popup.GetMenuStringW(103, MF_BYCOMMAND));
    EXPECT_TRUE(popup.IsDisabled(103, FALSE));
    EXPECT_TRUE(popup.IsChecked(102, FALSE));
    EXPECT_TRUE(ItemAt(popup, 4).fType & MFT_OWNERDRAW);
    EXPECT_FALSE(manager.IsInMenuLoop());
    ::DeleteObject(picture);
}

TEST(CoolMenuMgr, MnemonicsCycleThroughItemsThatShareTheirLetter) {
    CCoolMenuMgr manager;
    Owner owner(manager);
    CMenu popup;
    popup.CreatePopupMenu();
    popup.AppendMenuItem(1, L"&Open");
    popup.AppendMenuItem(2, L"&Options");
    popup.AppendMenuItem(3, L"E&xit");
    // Wine's menu loop finds mnemonics in the texts it still keeps for
    // owner-drawn items and never asks the owner, so the owner is asked
    // here, while the real menu is open with a real highlight.
    auto menuChar = [&](wchar_t key) {
        return owner.wnd.SendMessageW(WM_MENUCHAR, MAKEWPARAM(key, MF_POPUP),
                                      reinterpret_cast<LPARAM>(popup.GetHmenu()));
    };
    auto down = [&] {
        ::PostMessageW(owner.wnd, WM_KEYDOWN, VK_DOWN, 1);
        return true;
    };
    auto highlightIs = [&](int pos) {
        return [&, pos] { return (popup.GetMenuState(static_cast<UINT>(pos), MF_BYPOSITION) & MF_HILITE) != 0; };
    };
    std::vector<LRESULT> replies;
    auto ask = [&](wchar_t key) {
        return [&, key] {
            replies.push_back(menuChar(key));
            return true;
        };
    };
    Testing::Watchdog watchdog;
    Script script({
        [&] { return CCoolMenuMgr::AsRecord(popup.GetMenuItemData(0, TRUE)) != nullptr; },
        ask(L'o'), down, highlightIs(0), ask(L'O'), down, highlightIs(1), ask(L'o'), ask(L'x'), ask(L'q'),
        [&] {
            ::PostMessageW(owner.wnd, WM_CANCELMODE, 0, 0);
            return true;
        },
    });
    popup.TrackPopupMenu(TPM_LEFTALIGN | TPM_RETURNCMD, 10, 10, owner.wnd);
    const std::vector<LRESULT> expected = {
        MAKELRESULT(0, MNC_SELECT),   // nothing highlighted: the first match
        MAKELRESULT(1, MNC_SELECT),   // after the highlighted first item
        MAKELRESULT(0, MNC_SELECT),   // after the last match: back to the first
        MAKELRESULT(2, MNC_EXECUTE),  // one match runs its command
        0,                            // no match
    };
    EXPECT_EQ(expected, replies);
}

TEST(CoolMenuMgr, PopupsAreConvertedOnlyInsideTheMenuLoopWhenEnabledAndNeverForTheSystemMenu) {
    RecordingRenderer renderer;
    CCoolMenuMgr manager(renderer);
    Owner owner(manager);
    CMenu popup;
    popup.CreatePopupMenu();
    popup.AppendMenuItem(1, L"&One");
    auto converted = [&] { return (ItemAt(popup, 0).fType & MFT_OWNERDRAW) != 0; };
    auto initPopup = [&](BOOL systemMenu) {
        owner.wnd.SendMessageW(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.GetHmenu()), MAKELPARAM(0, systemMenu));
    };

    initPopup(FALSE);
    EXPECT_FALSE(converted());
    owner.wnd.SendMessageW(WM_ENTERMENULOOP, TRUE, 0);
    EXPECT_TRUE(manager.IsInMenuLoop());
    CMenu systemMenu;
    systemMenu.CreatePopupMenu();
    systemMenu.AppendMenuItem(SC_CLOSE, L"&Close");
    owner.wnd.SendMessageW(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(systemMenu.GetHmenu()), MAKELPARAM(0, TRUE));
    EXPECT_FALSE(ItemAt(systemMenu, 0).fType & MFT_OWNERDRAW);
    manager.Enable(FALSE);
    initPopup(FALSE);
    EXPECT_FALSE(converted());
    manager.Enable(TRUE);
    initPopup(FALSE);
    ASSERT_TRUE(converted());

    // Items with records are measured by the renderer and consumed; others
    // pass on to the window.
    MEASUREITEMSTRUCT measure = {ODT_MENU, 0, 1, 0, 0, ItemAt(popup, 0).dwItemData};
    EXPECT_EQ(TRUE, owner.wnd.SendMessageW(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measure)));
    EXPECT_EQ(1, renderer.measures);
    EXPECT_GT(measure.itemHeight, 0u);
    const int before = owner.after.Count(WM_MEASUREITEM);
    MEASUREITEMSTRUCT foreign = {ODT_MENU, 0, 1, 0, 0, 0x1234};
    owner.wnd.SendMessageW(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&foreign));
    EXPECT_EQ(before + 1, owner.after.Count(WM_MEASUREITEM));
    EXPECT_EQ(1, renderer.measures);

    // The menu closes: items restored, the loop left.
    owner.wnd.SendMessageW(WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
    EXPECT_FALSE(converted());
    owner.wnd.SendMessageW(WM_EXITMENULOOP, TRUE, 0);
    EXPECT_FALSE(manager.IsInMenuLoop());
    owner.wnd.SendMessageW(WM_SETTINGCHANGE, 0, 0);
    EXPECT_EQ(2, renderer.settings);
}

TEST(CoolMenuMgr, ImagesFromToolbarsFirstOneWinsAndFromMaskedBitmaps) {
    CCoolMenuMgr manager;
    Owner owner(manager);
    // Nothing to size images by before a toolbar was added.
    HBITMAP yellow = ::CreateBitmap(16, 16, 1, 32, std::vector<uint32_t>(256, 0x00FFFF00).data());
    EXPECT_FALSE(manager.AddMaskedMenuButton(yellow, RGB(255, 0, 255), 300));

    CSvgImage redBlue(kRedBlue, 0xFFFFFFFF), greenBlack(kGreenBlack, 0xFFFFFFFF);
    TBBUTTON first[] = {Button(0, 101), Button(1, 102)};
    TBBUTTON second[] = {Button(0, 102), Button(1, 103)};
    CToolbar one, two;
    ASSERT_NE(nullptr, one.Create(&owner.wnd, redBlue, first, 2, 16));
    ASSERT_NE(nullptr, two.Create(&owner.wnd, greenBlack, second, 2, 16));
    manager.AddToolbar(one);
    manager.AddToolbar(two);
    const CSize icon = manager.GetImageList().GetIconSize();
    EXPECT_EQ(::MulDiv(16, owner.wnd.GetDpi(), 96), icon.cx);
    EXPECT_EQ(3, manager.GetImageList().GetImageCount());
    EXPECT_EQ(0xFF0000u, ImageColour(manager, manager.GetCommandImage(101)));
    EXPECT_EQ(0x0000FFu, ImageColour(manager, manager.GetCommandImage(102)));
    EXPECT_EQ(0x000000u, ImageColour(manager, manager.GetCommandImage(103)));
    EXPECT_EQ(-1, manager.GetCommandImage(104));

    // Masked bitmaps are stretched to the icon size; a mapped id keeps its
    // image although the new one is added to the list.
    EXPECT_TRUE(manager.AddMaskedMenuButton(yellow, RGB(255, 0, 255), 300));
    EXPECT_EQ(0xFFFF00u, ImageColour(manager, manager.GetCommandImage(300)));
    EXPECT_FALSE(manager.AddMaskedMenuButton(yellow, RGB(255, 0, 255), 101));
    EXPECT_EQ(5, manager.GetImageList().GetImageCount());
    EXPECT_EQ(0xFF0000u, ImageColour(manager, manager.GetCommandImage(101)));
    EXPECT_FALSE(manager.AddMaskedMenuButton(static_cast<HBITMAP>(nullptr), 0, 301));
    EXPECT_THROW(manager.AddMaskedMenuButton(4242u, RGB(255, 0, 255), 302), CResourceNotFoundException);
    ::DeleteObject(yellow);
    one.Destroy();
    two.Destroy();
}
