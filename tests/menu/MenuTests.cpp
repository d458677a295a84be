#include <gtest/gtest.h>

#include <string>

#include "velkan/menu/Menu.h"

using namespace Velkan;

TEST(Menu, LoadingSubMenusAndOwnership) {
    CMenu missing(4242, nullptr);
    EXPECT_EQ(nullptr, missing.GetHmenu());
    EXPECT_FALSE(missing.Load(4242));

    HMENU bar;
    {
        CMenu menu(100, nullptr);
        bar = menu.GetHmenu();
        ASSERT_TRUE(menu.IsMenu());
        EXPECT_EQ(2, menu.GetMenuItemCount());
        CMenu* file = menu.GetSubMenu(0);
        ASSERT_NE(nullptr, file);
        EXPECT_EQ(file, menu.GetSubMenu(0));
        EXPECT_NE(file, menu.GetSubMenu(1));
        EXPECT_EQ(nullptr, menu.GetSubMenu(5));
        EXPECT_EQ(4, file->GetMenuItemCount());
        EXPECT_EQ(103u, file->GetMenuItemID(3));
        // The table knows the owner, not the sub-menu wrappers.
        EXPECT_EQ(&menu, CMenu::FromHmenu(bar));
    }
    // The owner destroyed the menu and its sub-menus.
    EXPECT_FALSE(::IsMenu(bar));

    // A detached parent lives on with its sub-menus.
    HMENU detached;
    {
        CMenu menu(100, nullptr);
        menu.GetSubMenu(0);
        detached = menu.Detach();
        EXPECT_EQ(nullptr, menu.GetHmenu());
    }
    EXPECT_TRUE(::IsMenu(detached));
    EXPECT_TRUE(::IsMenu(::GetSubMenu(detached, 0)));

    // Attaching another handle destroys the one held before.
    CMenu holder(detached);
    HMENU other = ::CreatePopupMenu();
    holder.Attach(other);
    EXPECT_FALSE(::IsMenu(detached));
    EXPECT_TRUE(holder.DestroyMenu());
    EXPECT_FALSE(::IsMenu(other));
}

TEST(Menu, TemporaryWrappersNeverDestroyTheirMenu) {
    HMENU foreign = ::CreatePopupMenu();
    CMenu* temp = CMenu::FromHmenu(foreign);
    ASSERT_NE(nullptr, temp);
    EXPECT_TRUE(temp->IsTempMenu());
    EXPECT_EQ(temp, CMenu::FromHmenu(foreign));
    EXPECT_FALSE(temp->DestroyMenu());
    EXPECT_TRUE(::IsMenu(foreign));
    CMenu::FromHmenu(foreign);
    CMenu::CleanUpTempObjects();
    EXPECT_TRUE(::IsMenu(foreign));
    EXPECT_EQ(nullptr, CMenu::FromHmenu(nullptr));
    ::DestroyMenu(foreign);

    // A created menu is registered as permanent.
    CMenu created;
    created.CreatePopupMenu();
    EXPECT_EQ(&created, CMenu::FromHmenu(created));
    EXPECT_FALSE(created.IsTempMenu());
}

TEST(Menu, ByPositionForwardsAndTheRenumberingOfSetMenuString) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenuItem(10, L"Ten");
    menu.AppendMenuW(MF_STRING, 11, L"Eleven");
    menu.AppendMenuItem(12, L"Twelve");
    menu.InsertMenuItemW(9, L"Nine", 0, TRUE);
    menu.InsertSeparator(2, TRUE);
    ASSERT_EQ(5, menu.GetMenuItemCount());
    EXPECT_EQ(9u, menu.GetMenuItemID(0));
    EXPECT_TRUE(menu.GetMenuState(2, MF_BYPOSITION) & MF_SEPARATOR);

    // By position, the item's id becomes its position.
    EXPECT_TRUE(menu.SetMenuString(3, L"Renamed", TRUE));
    EXPECT_EQ(3u, menu.GetMenuItemID(3));
    EXPECT_STREQ(L"Renamed", menu.GetMenuStringW(3, MF_BYPOSITION));
    EXPECT_TRUE(menu.ModifyMenuItem(12, L"Twelve again", FALSE));
    EXPECT_STREQ(L"Twelve again", menu.GetMenuStringW(12, MF_BYCOMMAND));

    menu.SetCheck(10, TRUE, FALSE);
    EXPECT_TRUE(menu.IsChecked(10, FALSE));
    EXPECT_TRUE(menu.IsChecked(1, TRUE));
    menu.SetCheck(1, FALSE, TRUE);
    EXPECT_FALSE(menu.IsChecked(10, FALSE));
    menu.SetEnabled(12, FALSE, FALSE);
    EXPECT_TRUE(menu.IsDisabled(12, FALSE));
    EXPECT_FALSE(menu.IsEnabled(4, TRUE));
    menu.SetEnabled(4, TRUE, TRUE);
    EXPECT_TRUE(menu.IsEnabled(12, FALSE));
    menu.SetRadioCheck(0, 1, 1, TRUE);
    EXPECT_TRUE(menu.IsChecked(1, TRUE));
    EXPECT_FALSE(menu.IsChecked(0, TRUE));

    EXPECT_TRUE(menu.SetMenuItemData(9, 0xABCD, FALSE));
    EXPECT_EQ(0xABCDu, menu.GetMenuItemData(0, TRUE));
#if defined(_WIN64)
    // Item data is as wide as a pointer.
    const ULONG_PTR wide = 0x123456789ABCull;
    menu.SetMenuItemData(0, wide, TRUE);
    EXPECT_EQ(wide, menu.GetMenuItemData(9, FALSE));
#endif
    EXPECT_TRUE(menu.DeleteMenu(9, MF_BYCOMMAND));
    EXPECT_EQ(4, menu.GetMenuItemCount());
}

TEST(Menu, LongTextsAreCutTo127Characters) {
    CMenu menu;
    menu.CreatePopupMenu();
    const std::wstring text(200, L'w');
    menu.AppendMenuItem(1, text.c_str());
    const CString read = menu.GetMenuStringW(1, MF_BYCOMMAND);
    EXPECT_EQ(127, read.GetLength());
    wchar_t buffer[300] = {};
    EXPECT_EQ(200, menu.GetMenuStringW(1, buffer, 300, MF_BYCOMMAND));
}
