#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "resource.h"
#include "support/ModalDriver.h"
#include "velkan/app/Wnd.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/File.h"
#include "velkan/dialog/FileDialogs.h"

using namespace Velkan;
using Testing::Script;
using Testing::Watchdog;

namespace {

std::vector<wchar_t> Chars(const wchar_t* text, size_t count) {
    return std::vector<wchar_t>(text, text + count);
}

// A scratch folder with a few files, removed afterwards.
struct Folder {
    Folder() {
        wchar_t temp[MAX_PATH] = {};
        ::GetTempPathW(MAX_PATH, temp);
        path = std::wstring(temp) + L"velkan-file-dialogs";
        ::CreateDirectoryW(path.c_str(), nullptr);
        for (const wchar_t* name : {L"a.txt", L"b.txt", L"c.log"}) {
            const std::wstring file = path + L"\\" + name;
            CFile::WriteBytesToFile(file.c_str(), "x", 1);
        }
    }
    ~Folder() {
        for (const wchar_t* name : {L"a.txt", L"b.txt", L"c.log", L"saved.txt"})
            ::DeleteFileW((path + L"\\" + name).c_str());
        ::RemoveDirectoryW(path.c_str());
    }
    std::wstring path;
};

// Types into the file-name field of the thread's file dialog and presses a
// button, one step per tick.
struct Answer {
    Answer(const std::wstring& typed, int button)
        : script({
              [] { return Testing::FindThreadDialog() != nullptr; },
              [this, typed] {
                  HWND dialog = Testing::FindThreadDialog();
                  // Explorer-style dialogs name their field cmb13, older ones edt1.
                  HWND field = ::GetDlgItem(dialog, 0x47C);
                  if (field == nullptr) field = ::GetDlgItem(dialog, 0x480);
                  if (!typed.empty()) ::SetWindowTextW(field, typed.c_str());
                  return true;
              },
              [button] {
                  ::PostMessageW(Testing::FindThreadDialog(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
                  return true;
              },
          }) {}
    Script script;
};

struct Owner {
    Owner() { wnd.CreateEx(0, L"VlkWnd", L"owner", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr); }
    ~Owner() { wnd.Destroy(); }
    CWnd wnd;
};

}  // namespace

TEST(PathFilter, BuildsDoubleNulStringsAndReadsThemBack) {
    CPathFilterBuilder empty;
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_TRUE(empty.Build().empty());

    CPathFilterBuilder two(L"Text", L"*.txt");
    two.Add(L"All", L"*.*");
    const wchar_t expected[] = L"Text\0*.txt\0All\0*.*\0";
    EXPECT_EQ(Chars(expected, sizeof(expected) / sizeof(wchar_t)), two.Build());

    // A built string reads back into the same entries.
    CPathFilterBuilder parsed;
    parsed.Add(two.Build());
    EXPECT_EQ(two.Build(), parsed.Build());
    // Parsing stops at the first empty description or missing pattern.
    const wchar_t gap[] = L"A\0*.a\0\0B\0*.b\0";
    EXPECT_EQ(1u, CPathFilterBuilder().Add(Chars(gap, sizeof(gap) / sizeof(wchar_t))).GetCount());
    const wchar_t cut[] = {L'A', 0, L'*', L'.', L'a', 0, L'B', 0};
    EXPECT_EQ(1u, CPathFilterBuilder().Add(Chars(cut, 8)).GetCount());

    // From a resource, from another builder, and cleared.
    CPathFilterBuilder fromId(IDS_FILTER_TEXT, L"*.txt");
    const wchar_t textFiles[] = L"Text files\0*.txt\0";
    EXPECT_EQ(Chars(textFiles, sizeof(textFiles) / sizeof(wchar_t)), fromId.Build());
    fromId.Add(fromId);
    EXPECT_EQ(2u, fromId.GetCount());
    EXPECT_TRUE(fromId.Clear().IsEmpty());
    EXPECT_THROW(CPathFilterBuilder(4242u, L"*.x"), CResourceNotFoundException);
}

TEST(FileDialogs, OpenOneFileSeveralFilesOrCancel) {
    Watchdog watchdog;
    Folder folder;
    Owner owner;
    COpenFileDlg open(IDS_FILTER_TEXT, L"*.txt", folder.path.c_str());
    EXPECT_EQ(static_cast<DWORD>(OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY),
              open.GetOpenFileNameStruct().Flags);
    {
        Answer answer(folder.path + L"\\a.txt", IDOK);
        ASSERT_TRUE(open.Show(&owner.wnd));
    }
    ASSERT_EQ(1u, open.GetSelectedFiles().size());
    EXPECT_TRUE(open.GetFileName().EqualsIgnoreCase((folder.path + L"\\a.txt").c_str()));
    EXPECT_EQ(owner.wnd.GetHwnd(), open.GetOpenFileNameStruct().hwndOwner);
    EXPECT_EQ(1u, open.GetFilterIndex());

    // Cancel keeps the earlier selection.
    {
        Answer answer(L"", IDCANCEL);
        EXPECT_FALSE(open.Show(nullptr));
    }
    ASSERT_EQ(1u, open.GetSelectedFiles().size());

    // Several files: the folder joined with every name.
    COpenFileDlg many(L"Text", L"*.txt", folder.path.c_str());
    many.AllowMultipleSelection();
    EXPECT_TRUE(many.IsMultipleSelectionAllowed());
    {
        Answer answer(L"\"a.txt\" \"b.txt\"", IDOK);
        ASSERT_TRUE(many.Show(nullptr));
    }
    ASSERT_EQ(2u, many.GetSelectedFiles().size());
    EXPECT_TRUE(many.GetSelectedFiles()[0].EqualsIgnoreCase((folder.path + L"\\a.txt").c_str()));
    EXPECT_TRUE(many.GetSelectedFiles()[1].EqualsIgnoreCase((folder.path + L"\\b.txt").c_str()));
    // One file of a multiple selection comes as one whole path.
    {
        Answer answer(folder.path + L"\\b.txt", IDOK);
        ASSERT_TRUE(many.Show(nullptr));
    }
    ASSERT_EQ(1u, many.GetSelectedFiles().size());
    EXPECT_TRUE(many.GetSelectedFiles()[0].EqualsIgnoreCase((folder.path + L"\\b.txt").c_str()));
}

TEST(FileDialogs, SaveTakesTheSuggestedNameAndTheDefaultExtension) {
    Watchdog watchdog;
    Folder folder;
    CSaveFileDlg save(L"Text", L"*.txt", L"txt", folder.path.c_str());
    EXPECT_EQ(static_cast<DWORD>(OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT),
              save.GetOpenFileNameStruct().Flags);
    save.SetSuggestedFileName(L"draft");
    std::wstring shown;
    Script script({
        [] { return Testing::FindThreadDialog() != nullptr; },
        [&] {
            HWND dialog = Testing::FindThreadDialog();
            HWND field = ::GetDlgItem(dialog, 0x47C);
            if (field == nullptr) field = ::GetDlgItem(dialog, 0x480);
            shown = Testing::WindowText(field);
            ::SetWindowTextW(field, (folder.path + L"\\saved").c_str());
            return true;
        },
        [] {
            ::PostMessageW(Testing::FindThreadDialog(), WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
            return true;
        },
    });
    ASSERT_TRUE(save.Show(nullptr));
    EXPECT_EQ(L"draft", shown);
    EXPECT_TRUE(save.GetFileName().EqualsIgnoreCase((folder.path + L"\\saved.txt").c_str()));

    Answer cancel(L"", IDCANCEL);
    EXPECT_FALSE(save.Show(nullptr));
}

TEST(FileDialogs, TheFolderPickerCancelledIsFalse) {
    Watchdog watchdog;
    Owner owner;
    CBrowseFolderDlg picker;
    picker.WithTitle(L"Pick a folder").WithInitialFolder(L"C:\\windows").WithInitialFolder(L"::not a path::");
    Script script({
        [] { return Testing::FindThreadDialog(L"Pick a folder") != nullptr; },
        [] {
            ::PostMessageW(Testing::FindThreadDialog(L"Pick a folder"), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
            return true;
        },
    });
    BOOL shown = TRUE;
    EXPECT_NO_THROW(shown = picker.Show(owner.wnd));
    EXPECT_FALSE(shown);
    EXPECT_THROW(picker.GetSelectedFolder(), CHResultException);
}
