#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "resource.h"
#include "support/ModalDriver.h"
#include "velkan/dialog/PropertySheet.h"
#include "velkan/gfx/DC.h"

using namespace Velkan;
using Testing::Script;
using Testing::Watchdog;

namespace {

// A page that records its handlers and answers what the test says.
class Page : public CWizardPage {
public:
    Page(UINT id, std::vector<std::string>& log, const char* name)
        : CWizardPage(id, L"Header", L"Subheader"), m_log(log), m_name(name) {}

    std::function<int()> killActive, apply, queryCancel, wizNext, create;
    std::function<void(Page&)> setActive;
    DWORD recordSize = 0, recordFlags = 0;

    int OnCallbackCreate() override { return create ? create() : 1; }
    int OnSetActive() override {
        Note("set active");
        if (setActive) setActive(*this);
        return 0;
    }
    int OnKillActive() override { return Note("kill active"), killActive ? killActive() : 0; }
    int OnApply() override { return Note("apply"), apply ? apply() : 0; }
    void OnReset(BOOL cancelled) override { Note(cancelled ? "reset cancelled" : "reset"); }
    int OnQueryCancel() override { return Note("query cancel"), queryCancel ? queryCancel() : 0; }
    int OnWizNext() override { return Note("next"), wizNext ? wizNext() : 0; }
    int OnWizBack() override { return Note("back"), 0; }
    BOOL WndProc(UINT msg, WPARAM w, LPARAM l, LRESULT& r) override {
        // The record comctl32 hands the page is the one it was given.
        if (msg == WM_INITDIALOG) {
            recordSize = reinterpret_cast<PROPSHEETPAGEW*>(l)->dwSize;
            recordFlags = reinterpret_cast<PROPSHEETPAGEW*>(l)->dwFlags;
        }
        return CWizardPage::WndProc(msg, w, l, r);
    }

private:
    void Note(const char* what) { m_log.push_back(m_name + " " + what); }
    std::vector<std::string>& m_log;
    std::string m_name;
};

HWND Sheet(const wchar_t* caption) {
    return Testing::FindThreadDialog(caption);
}

HWND CurrentPage(HWND sheet) {
    return reinterpret_cast<HWND>(::SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

int Count(const std::vector<std::string>& log, const std::string& entry) {
    return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

}  // namespace

TEST(PropertySheet, RecordsAndCallbacksAsComctlSeesThem) {
    std::vector<std::string> log;
    Page page(IDD_PAGE_ONE, log, "one");
    const PropertyPageRecord& record = page.GetPageRecord();
    EXPECT_EQ(sizeof(PropertyPageRecord), record.dwSize);
    EXPECT_EQ(static_cast<DWORD>(PSP_USECALLBACK | PSP_USEHEADERTITLE | PSP_USEHEADERSUBTITLE), record.dwFlags);
    EXPECT_EQ(reinterpret_cast<LPARAM>(&page), record.lParam);
    EXPECT_EQ(L"Header", std::wstring(record.pszHeaderTitle));
    // Titles may be string ids that comctl32 loads itself.
    CWizardPage byId(IDD_PAGE_TWO, MAKEINTRESOURCEW(IDS_SHEET_CAPTION), nullptr);
    EXPECT_EQ(MAKEINTRESOURCEW(IDS_SHEET_CAPTION), byId.GetPageRecord().pszHeaderTitle);
    CPropertySheet sheet(IDS_SHEET_CAPTION);
    EXPECT_EQ(sizeof(PROPSHEETHEADERW), sheet.GetHeaderRecord().dwSize);
    EXPECT_EQ(static_cast<DWORD>(PSH_NOAPPLYNOW | PSH_USECALLBACK), sheet.GetHeaderRecord().dwFlags);
#if defined(__i386__)
    EXPECT_EQ(56u, record.dwSize);
    EXPECT_EQ(52u, sheet.GetHeaderRecord().dwSize);
#endif
    CWizardSheet wizard(IDB_WATERMARK, IDB_WATERMARK);
    EXPECT_EQ(static_cast<DWORD>(0x01088000 | PSH_NOAPPLYNOW | PSH_USECALLBACK), wizard.GetHeaderRecord().dwFlags);
    EXPECT_NE(nullptr, wizard.GetWatermarkBitmap().GetHbitmap());

    // The creation callback answers 1 only for a positive OnCallbackCreate.
    PROPSHEETPAGEW copy = {};
    copy.lParam = reinterpret_cast<LPARAM>(&page);
    for (int answer : {1, 7, 0, -1}) {
        page.create = [answer] { return answer; };
        EXPECT_EQ(answer > 0 ? 1u : 0u, CPropertyPage::PspCallback(nullptr, PSPCB_CREATE, &copy)) << answer;
    }
    EXPECT_EQ(0u, CPropertyPage::PspCallback(nullptr, PSPCB_ADDREF, &copy));
}

TEST(PropertySheet, PageHandlersSteerTheSheet) {
    Watchdog watchdog;
    std::vector<std::string> log;
    Page one(IDD_PAGE_ONE, log, "one"), two(IDD_PAGE_TWO, log, "two");
    CPropertySheet sheet(IDS_SHEET_CAPTION);
    sheet.AddPages({one, two});
    EXPECT_EQ(2u, sheet.GetHeaderRecord().nPages);
    int refusals = 1, cancelRefusals = 1;
    one.killActive = [&] { return refusals-- > 0 ? TRUE : FALSE; };
    two.queryCancel = [&] { return cancelRefusals-- > 0 ? TRUE : FALSE; };
    HWND first = nullptr, stayed = nullptr, moved = nullptr;
    int index = -1;
    Script script({
        [&] { return Sheet(L"Sheet under test") != nullptr && one.GetHwnd() != nullptr; },
        [&] {
            first = CurrentPage(Sheet(L"Sheet under test"));
            // The first page refuses to be left once.
            ::SendMessageW(Sheet(L"Sheet under test"), PSM_SETCURSEL, 1, 0);
            stayed = CurrentPage(Sheet(L"Sheet under test"));
            sheet.SetCurSel(1);
            moved = CurrentPage(Sheet(L"Sheet under test"));
            index = sheet.HwndToIndex(moved);
            return true;
        },
        [&] {
            // Cancel is refused once, then allowed.
            ::SendMessageW(Sheet(L"Sheet under test"), PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
            return true;
        },
        [&] {
            ::SendMessageW(Sheet(L"Sheet under test"), PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
            return true;
        },
    });
    const int result = sheet.DoModal(nullptr);
    EXPECT_TRUE(script.Finished());
    EXPECT_EQ(0, result);
    EXPECT_EQ(first, stayed);
    EXPECT_NE(first, moved);
    EXPECT_EQ(1, index);
    EXPECT_EQ(2, Count(log, "one kill active"));
    EXPECT_EQ(1, Count(log, "two set active"));
    EXPECT_EQ(2, Count(log, "two query cancel"));
    // The sheet and its pages are detached once it has gone.
    EXPECT_EQ(nullptr, sheet.GetHwnd());
    EXPECT_EQ(nullptr, one.GetHwnd());
    EXPECT_EQ(static_cast<DWORD>(sizeof(PropertyPageRecord)), one.recordSize);
    EXPECT_TRUE(one.recordFlags & PSP_USECALLBACK);

    // OK applies every page that was shown and closes with a positive result.
    std::vector<std::string> again;
    Page three(IDD_PAGE_ONE, again, "three");
    CPropertySheet ok(IDS_SHEET_CAPTION);
    ok.AddPage(three);
    Script press({
        [&] { return Sheet(L"Sheet under test") != nullptr; },
        [&] {
            ::SendMessageW(Sheet(L"Sheet under test"), PSM_PRESSBUTTON, PSBTN_OK, 0);
            return true;
        },
    });
    EXPECT_GT(ok.DoModal(nullptr), 0);
    EXPECT_EQ(1, Count(again, "three apply"));

    // A reset notification says whether it came from a cancel.
    NMHDR header = {nullptr, 0, static_cast<UINT>(PSN_RESET)};
    PSHNOTIFY notify = {header, 1};
    LRESULT answer = 0;
    EXPECT_TRUE(three.OnPsNotify(0, reinterpret_cast<LPARAM>(&notify), answer));
    notify.lParam = 2;
    three.OnPsNotify(0, reinterpret_cast<LPARAM>(&notify), answer);
    EXPECT_EQ(1, Count(again, "three reset cancelled"));
    EXPECT_EQ(1, Count(again, "three reset"));
    NMHDR other = {nullptr, 0, static_cast<UINT>(PSN_HELP)};
    EXPECT_FALSE(three.OnPsNotify(0, reinterpret_cast<LPARAM>(&other), answer));
}

TEST(Wizard, NextBackFinishAndButtonsSetFromANotification) {
    Watchdog watchdog;
    std::vector<std::string> log;
    Page welcome(IDD_PAGE_ONE, log, "welcome"), middle(IDD_PAGE_TWO, log, "middle"), last(IDD_PAGE_THREE, log, "last");
    welcome.GetPageRecord().dwFlags |= PSP_HIDEHEADER;
    CWizardSheet wizard(IDB_WATERMARK);
    wizard.AddPages({welcome, middle, last});
    int nextRefusals = 1;
    middle.wizNext = [&] { return nextRefusals-- > 0 ? -1 : 0; };
    BOOL backEnabledInside = -1;
    middle.setActive = [&](Page& page) {
        // Posted: the sheet's own button update after this notification
        // would otherwise undo it.
        wizard.SetWizButtons(PSWIZB_NEXT);
        backEnabledInside = ::IsWindowEnabled(::GetDlgItem(::GetParent(page), 0x3023));
    };
    HWND sheetWindow = nullptr;
    BOOL backAfter = -1, nextAfter = -1;
    uint32_t watermarkPixel = 0;
    auto press = [&](int button) {
        return [&, button] {
            ::SendMessageW(sheetWindow, PSM_PRESSBUTTON, button, 0);
            return true;
        };
    };
    Script script({
        [&] { return (sheetWindow = Testing::FindThreadDialog()) != nullptr && welcome.GetHwnd() != nullptr; },
        [&] {
            // The exterior page paints the watermark itself away from 96 DPI.
            welcome.InvalidateRect();
            welcome.UpdateWindow();
            HDC dc = ::GetDC(welcome);
            watermarkPixel = ::GetPixel(dc, 1, 1);
            ::ReleaseDC(welcome, dc);
            return true;
        },
        press(PSBTN_NEXT),
        [&] {
            backAfter = ::IsWindowEnabled(::GetDlgItem(sheetWindow, 0x3023));
            nextAfter = ::IsWindowEnabled(::GetDlgItem(sheetWindow, 0x3024));
            return true;
        },
        press(PSBTN_NEXT),  // refused once: stays on the middle page
        [&] { return CurrentPage(sheetWindow) == middle.GetHwnd(); },
        press(PSBTN_NEXT), press(PSBTN_BACK), press(PSBTN_NEXT), press(PSBTN_NEXT), press(PSBTN_FINISH),
    });
    const int result = wizard.DoWizard(nullptr);
    EXPECT_TRUE(script.Finished());
    EXPECT_GT(result, 0);
    EXPECT_EQ(3, Count(log, "middle next"));
    EXPECT_EQ(1, Count(log, "last back"));
    EXPECT_EQ(2, Count(log, "middle set active"));
    EXPECT_FALSE(backAfter);
    EXPECT_TRUE(nextAfter);
    EXPECT_NE(-1, backEnabledInside);
    const int dpi = CWnd::GetDesktopWindow()->GetDpi();
    if (dpi != 96) {
        EXPECT_EQ(RGB(220, 20, 20), watermarkPixel) << std::hex << watermarkPixel;
    }
}
