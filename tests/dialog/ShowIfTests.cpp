#include <gtest/gtest.h>

#include <string>

#include "DialogTestSupport.h"
#include "resource.h"
#include "velkan/app/App.h"
#include "velkan/core/Exceptions.h"
#include "velkan/dialog/MessageBox.h"
#include "velkan/dialog/ShowIfDlg.h"

using namespace Velkan;
using Testing::Watchdog;

namespace {

bool ValueExists(const wchar_t* section, const wchar_t* name) {
    DWORD value = 0;
    return theAppPtr->RegQueryDWORD(section, name, &value) != FALSE;
}

DWORD Value(const wchar_t* section, const wchar_t* name) {
    DWORD value = 0xDEAD;
    theAppPtr->RegQueryDWORD(section, name, &value);
    return value;
}

class CountingShowIfDlg : public CShowIfDlg {
public:
    using CShowIfDlg::CShowIfDlg;
    int inits = 0;
    UINT boxAtInit = BST_UNCHECKED;
    bool untick = false;

protected:
    void OnInitDialog() override {
        CShowIfDlg::OnInitDialog();
        ++inits;
        boxAtInit = IsDlgButtonChecked(ShowAgainCheckBoxId);
        if (untick) CheckDlgButton(ShowAgainCheckBoxId, BST_UNCHECKED);
        ::PostMessageW(::GetDlgItem(*this, IDOK), BM_CLICK, 0, 0);
    }
};

}  // namespace

TEST(ShowIfDialog, TickedBoxWritesNothingUntickedSwitchesItOffForGood) {
    Watchdog watchdog;
    theAppPtr->RegDeleteValueW(L"Settings", L"AskTwice");

    CountingShowIfDlg kept(IDD_SHOWIF, L"AskTwice");
    EXPECT_EQ(IDOK, kept.DoModal());
    EXPECT_EQ(1, kept.inits);
    EXPECT_EQ(static_cast<UINT>(BST_CHECKED), kept.boxAtInit);
    EXPECT_FALSE(ValueExists(L"Settings", L"AskTwice"));

    CountingShowIfDlg dropped(IDD_SHOWIF, L"AskTwice");
    dropped.untick = true;
    EXPECT_EQ(IDOK, dropped.DoModal());
    EXPECT_EQ(0u, Value(L"Settings", L"AskTwice"));

    // Switched off: IDOK at once, no window.
    CountingShowIfDlg skipped(IDD_SHOWIF, L"AskTwice");
    EXPECT_EQ(IDOK, skipped.DoModal());
    EXPECT_EQ(0, skipped.inits);
    EXPECT_TRUE(Testing::ThreadDialogs().empty());
}

TEST(ShowIfTaskDialog, TheVerificationBoxMeansDontShowAgain) {
    const wchar_t* section = L"Warnings";
    theAppPtr->RegDeleteValueW(section, L"Overwrite");
    Testing::TaskDialogInterceptor platform;
    CShowIfTaskDialog dialog(section, L"Overwrite", IDNO);
    dialog.WithVerificationText(L"Don't ask again", FALSE).WithCommonButtons(TDCBF_YES_BUTTON | TDCBF_NO_BUTTON);

    // Unticked: shown, TRUE stored, shown again next time.
    platform.pressed = IDYES;
    platform.verification = FALSE;
    EXPECT_EQ(IDYES, dialog.ShowIf());
    EXPECT_FALSE(platform.radioRequested);
    EXPECT_TRUE(platform.verificationRequested);
    EXPECT_EQ(1u, Value(section, L"Overwrite"));
    EXPECT_EQ(IDYES, dialog.ShowIf());
    EXPECT_EQ(2, platform.calls);

    // Ticked: FALSE stored, and the next ShowIf answers the default unseen.
    platform.verification = TRUE;
    EXPECT_EQ(IDYES, dialog.ShowIf());
    EXPECT_EQ(0u, Value(section, L"Overwrite"));
    EXPECT_EQ(IDNO, dialog.ShowIf());
    EXPECT_EQ(3, platform.calls);
    EXPECT_FALSE(ValueExists(L"Settings", L"Overwrite"));
}

TEST(ShowIfTaskDialog, NothingIsWrittenWhenTheDialogFails) {
    theAppPtr->RegDeleteValueW(L"Warnings", L"Broken");
    CShowIfTaskDialog dialog(L"Warnings", L"Broken", IDOK);
    dialog.GetConfig().cbSize = 0;
    EXPECT_EQ(-1, dialog.ShowIf());
    EXPECT_FALSE(ValueExists(L"Warnings", L"Broken"));
}

TEST(ShowIfTaskDialog, ARealDialogClosedWithTheBoxTicked) {
    Watchdog watchdog;
    theAppPtr->RegDeleteValueW(L"Warnings", L"Real");
    CShowIfTaskDialog dialog(L"Warnings", L"Real", 77);
    dialog.WithWindowTitle(L"Real show-if").WithVerificationText(L"Don't show again", FALSE);
    Testing::Script script({
        [] { return Testing::FindThreadDialog(L"Real show-if") != nullptr; },
        [&] {
            ::SendMessageW(Testing::FindThreadDialog(L"Real show-if"), TDM_CLICK_VERIFICATION, TRUE, FALSE);
            return true;
        },
        [&] {
            ::SendMessageW(Testing::FindThreadDialog(L"Real show-if"), TDM_CLICK_BUTTON, IDOK, 0);
            return true;
        },
    });
    EXPECT_EQ(IDOK, dialog.ShowIf());
    EXPECT_EQ(0u, Value(L"Warnings", L"Real"));
    EXPECT_EQ(77, dialog.ShowIf());
}

namespace {

// Reads the first message box of the thread and presses one of its buttons.
struct MessageBoxReader {
    std::wstring caption, text;
    HWND owner = nullptr;
    Testing::Script script;

    explicit MessageBoxReader(int press)
        : script({
              [this, press] {
                  HWND box = Testing::FindThreadDialog();
                  if (box == nullptr) return false;
                  caption = Testing::WindowText(box);
                  text = Testing::WindowText(::GetDlgItem(box, 0xFFFF));
                  owner = ::GetWindow(box, GW_OWNER);
                  ::PostMessageW(box, WM_COMMAND, MAKEWPARAM(press, BN_CLICKED), 0);
                  return true;
              },
          }) {}
};

}  // namespace

TEST(MessageBox, TextsAreAlwaysFormattedAndCaptionsComeFromTheRightPlace) {
    Watchdog watchdog;
    {
        MessageBoxReader reader(IDOK);
        EXPECT_EQ(IDOK, CMessageBox::Show(nullptr, L"100%% sure, %d of %s", L"Plain", MB_OK, 3, L"them"));
        EXPECT_EQ(L"Plain", reader.caption);
        EXPECT_EQ(L"100% sure, 3 of them", reader.text);
        EXPECT_EQ(nullptr, reader.owner);
    }
    {
        MessageBoxReader reader(IDNO);
        EXPECT_EQ(IDNO, CMessageBox::Show(nullptr, IDS_FORMAT, IDS_CAPTION, MB_YESNO, 12, L"C:\\data"));
        EXPECT_EQ(L"Caption from a resource", reader.caption);
        EXPECT_EQ(L"12 files in C:\\data", reader.text);
    }
    {
        CWnd owner;
        owner.CreateEx(0, L"VlkWnd", L"owner", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr);
        MessageBoxReader reader(IDCANCEL);
        EXPECT_EQ(IDCANCEL, CMessageBox::Show(::GetModuleHandleW(nullptr), &owner, L"%s", IDS_CAPTION,
                                              MB_OKCANCEL, L"owned"));
        EXPECT_EQ(owner.GetHwnd(), reader.owner);
        EXPECT_EQ(L"owned", reader.text);
        owner.Destroy();
    }
    EXPECT_THROW(CMessageBox::Show(nullptr, 4242u, IDS_CAPTION, MB_OK), CResourceNotFoundException);
}
