#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "velkan/app/App.h"
#include "velkan/core/File.h"
#include "velkan/menu/Menu.h"
#include "velkan/menu/RecentFileList.h"

using namespace Velkan;

namespace {

std::vector<std::wstring> Paths(const CRecentFileList& list) {
    std::vector<std::wstring> paths;
    for (int i = 0; i < list.GetCapacity(); ++i) {
        const CPathString path = list.GetFilePath(i);
        paths.push_back(path.IsNull() ? L"-" : path.GetString());
    }
    return paths;
}

std::vector<std::wstring> Labels(const CMenu& menu) {
    std::vector<std::wstring> labels;
    for (int i = 0; i < menu.GetMenuItemCount(); ++i)
        labels.push_back(menu.GetMenuStringW(static_cast<UINT>(i), MF_BYPOSITION).GetString());
    return labels;
}

}  // namespace

TEST(RecentFileList, AddMovesToTheFrontAndDropsTheOldest) {
    CRecentFileList list(L"Recent", L"File%d", 4, 40);
    EXPECT_EQ(4, list.GetCapacity());
    EXPECT_EQ(0, list.GetCount());
    for (const wchar_t* p : {L"D", L"C", L"B", L"A"}) list.Add(p);
    EXPECT_EQ((std::vector<std::wstring>{L"A", L"B", L"C", L"D"}), Paths(list));
    list.Add(L"C");
    EXPECT_EQ((std::vector<std::wstring>{L"C", L"A", L"B", L"D"}), Paths(list));
    list.Add(L"E");
    EXPECT_EQ((std::vector<std::wstring>{L"E", L"C", L"A", L"B"}), Paths(list));
    // Equal ignoring case: moved up with the new letter case.
    list.Add(L"a");
    EXPECT_EQ((std::vector<std::wstring>{L"a", L"E", L"C", L"B"}), Paths(list));

    list.Remove(L"c");
    EXPECT_EQ((std::vector<std::wstring>{L"a", L"E", L"B", L"-"}), Paths(list));
    list.Remove(0);
    EXPECT_EQ((std::vector<std::wstring>{L"E", L"B", L"-", L"-"}), Paths(list));
    EXPECT_EQ(2, list.GetCount());

    CRecentFileList copy(list);
    list.Clear();
    EXPECT_EQ(0, list.GetCount());
    EXPECT_EQ(2, copy.GetCount());
}

TEST(RecentFileList, OnlyFilesSurvive) {
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    const std::wstring existing = std::wstring(folder) + L"velkan-recent.txt";
    CFile::WriteBytesToFile(existing.c_str(), "x", 1);
    CRecentFileList list(L"Recent", L"File%d", 5, 40);
    for (const wchar_t* p : {L"Z:\\no\\such\\file.txt", existing.c_str(), L"Z:\\missing.txt", static_cast<const wchar_t*>(folder)}) list.Add(p);
    EXPECT_TRUE(list.RemoveNonexistantFiles());
    EXPECT_EQ((std::vector<std::wstring>{existing, L"-", L"-", L"-", L"-"}), Paths(list));
    EXPECT_FALSE(list.RemoveNonexistantFiles());
    ::DeleteFileW(existing.c_str());
}

TEST(RecentFileList, SavingStopsAtTheFirstEmptySlotLoadingAtTheFirstMissingValue) {
    CRecentFileList list(L"Recent Files", L"File%d", 4, 40);
    list.Add(L"C:\\two.txt");
    list.Add(L"C:\\one.txt");
    theAppPtr->RegWriteString(L"Recent Files", L"Stale", L"gone after saving");
    list.Save();
    CString value;
    EXPECT_GT(theAppPtr->RegQueryString(L"Recent Files", L"File1", value, 64), 0);
    EXPECT_STREQ(L"C:\\one.txt", value);
    EXPECT_EQ(0, theAppPtr->RegQueryString(L"Recent Files", L"File3", value, 64));
    EXPECT_EQ(0, theAppPtr->RegQueryString(L"Recent Files", L"Stale", value, 64));

    // A gap: the value after it is not read.
    theAppPtr->RegWriteString(L"Recent Files", L"File4", L"C:\\four.txt");
    CRecentFileList loaded(L"Recent Files", L"File%d", 4, 40);
    loaded.Add(L"C:\\replaced.txt");
    loaded.Load();
    EXPECT_EQ((std::vector<std::wstring>{L"C:\\one.txt", L"C:\\two.txt", L"-", L"-"}), Paths(loaded));
}

TEST(RecentFileList, MenuLabelsDigitsAmpersandsAndThePlaceholder) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenuItem(1, L"&New");
    menu.AppendMenuItem(500, L"Recent files");
    menu.AppendMenuItem(2, L"E&xit");
    CRecentFileList list(L"Recent", L"File%d", 10, 40);

    // Empty: the placeholder, disabled.
    list.UpdateMenu(menu, 500);
    EXPECT_EQ((std::vector<std::wstring>{L"&New", L"Recent files", L"E&xit"}), Labels(menu));
    EXPECT_TRUE(menu.IsDisabled(500, FALSE));

    for (int i = 10; i >= 1; --i) list.Add((L"C:\\f" + std::to_wstring(i) + (i == 2 ? L" & co.txt" : L".txt")).c_str());
    list.UpdateMenu(menu, 500);
    std::vector<std::wstring> labels = Labels(menu);
    ASSERT_EQ(12u, labels.size());
    EXPECT_EQ(L"&New", labels[0]);
    EXPECT_EQ(L"&1 C:\\f1.txt", labels[1]);
    EXPECT_EQ(L"&2 C:\\f2 && co.txt", labels[2]);
    EXPECT_EQ(L"&0 C:\\f10.txt", labels[10]);
    EXPECT_EQ(L"E&xit", labels[11]);
    EXPECT_EQ(509u, menu.GetMenuItemID(10));
    EXPECT_TRUE(menu.IsEnabled(500, FALSE));

    // Long paths are abbreviated to the display length.
    CRecentFileList shortList(L"Recent", L"File%d", 2, 20);
    shortList.Add(L"C:\\a rather long folder name\\and another one\\file.txt");
    CMenu other;
    other.CreatePopupMenu();
    other.AppendMenuItem(700, L"none");
    shortList.UpdateMenu(other, 700);
    EXPECT_LE(other.GetMenuStringW(700, MF_BYCOMMAND).GetLength(), 3 + 20);

    // Emptied again: the saved placeholder comes back, the later items stay.
    list.Clear();
    list.UpdateMenu(menu, 500);
    EXPECT_STREQ(L"Recent files", menu.GetMenuStringW(500, MF_BYCOMMAND));
    EXPECT_TRUE(menu.IsDisabled(500, FALSE));
    EXPECT_EQ(12, menu.GetMenuItemCount());
}
