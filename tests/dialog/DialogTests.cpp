#include <gtest/gtest.h>

#include <functional>

#include "DialogTestSupport.h"
#include "resource.h"
#include "velkan/app/App.h"
#include "velkan/dialog/Dialog.h"
#include "velkan/gfx/DC.h"

using namespace Velkan;
using Testing::Script;
using Testing::Watchdog;

namespace {

// A dialog whose handlers are recorded and can be replaced.
class TestDialog : public CDialog {
public:
    using CDialog::CDialog;
    using CDialog::EndDialog;

    int inits = 0, oks = 0, cancels = 0, paints = 0;
    std::function<void(TestDialog&)> onInit;
    std::function<BOOL(UINT, LPARAM)> onCommand;
    std::function<BOOL(UINT, LPARAM, LRESULT&)> onNotify;

protected:
    void OnInitDialog() override {
        ++inits;
        if (onInit) onInit(*this);
    }
    void OnOK() override {
        ++oks;
        CDialog::OnOK();
    }
    void OnCancel() override {
        ++cancels;
        CDialog::OnCancel();
    }
    void OnPaint(CDC&) override { ++paints; }
    BOOL OnCommand(UINT w, LPARAM l) override { return onCommand ? onCommand(w, l) : FALSE; }
    BOOL OnNotify(UINT id, LPARAM l, LRESULT& r) override { return onNotify ? onNotify(id, l, r) : FALSE; }
    using CDialog::OnNotify;
};

// Consumes the commands with one id.
class CommandEater : public IWndMsgFilter {
public:
    explicit CommandEater(UINT id) : m_id(id) {}
    int eaten = 0;
    BOOL WndMsgFilterProc(HWND, UINT msg, WPARAM w, LPARAM, LRESULT& result) override {
        if (msg != WM_COMMAND || LOWORD(w) != m_id) return FALSE;
        ++eaten;
        result = 0;
        return TRUE;
    }

private:
    UINT m_id;
};

void Click(HWND dialog, int id) {
    ::PostMessageW(::GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

}  // namespace

TEST(DialogModal, OkActsOnlyOnClicksWhileCancelActsOnAnyNotification) {
    Watchdog watchdog;
    // An edit control with the OK id: its EN_CHANGE is not an OK.
    TestDialog editAsOk(IDD_EDIT_AS_OK);
    editAsOk.onInit = [](TestDialog& d) {
        ::SetDlgItemTextW(d, IDOK, L"typing");
        // A notification code other than a click still cancels.
        d.PostMessageW(WM_COMMAND, MAKEWPARAM(IDCANCEL, EN_CHANGE), 0);
    };
    EXPECT_EQ(IDCANCEL, editAsOk.DoModal());
    EXPECT_EQ(0, editAsOk.oks);
    EXPECT_EQ(1, editAsOk.cancels);

    TestDialog basic(IDD_BASIC);
    basic.onInit = [](TestDialog& d) { Click(d, IDOK); };
    EXPECT_EQ(IDOK, basic.DoModal());
    EXPECT_EQ(1, basic.oks);
}

TEST(DialogModal, EndDialogValuesAndReuseOfOneObject) {
    Watchdog watchdog;
    const unsigned before = std::get<1>(CWnd::GetContextInfo());
    TestDialog dialog(IDD_BASIC);
    dialog.onInit = [](TestDialog& d) { d.EndDialog(42); };
    EXPECT_EQ(42, dialog.DoModal());
    EXPECT_EQ(nullptr, dialog.GetHwnd());
    EXPECT_FALSE(dialog.IsModeless());

    // The same object runs again, and is detached again afterwards.
    dialog.onInit = [](TestDialog& d) { Click(d, IDCANCEL); };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ(nullptr, dialog.GetHwnd());
    EXPECT_EQ(2, dialog.inits);
    EXPECT_EQ(before, std::get<1>(CWnd::GetContextInfo()));
}

TEST(DialogModal, MissingTemplateFailsWithoutLeavingARecord) {
    TestDialog missing(4242);
    EXPECT_EQ(-1, missing.DoModal());
    EXPECT_EQ(nullptr, CWnd::GetWndBeingCreated());
    EXPECT_EQ(nullptr, missing.CreateModeless());
    EXPECT_EQ(nullptr, missing.CreateChildDialog(nullptr, 0, 0, TRUE));
    EXPECT_EQ(nullptr, CWnd::GetWndBeingCreated());
    EXPECT_EQ(0, missing.inits);
}

TEST(DialogModal, FiltersSeeMessagesBeforeTheDialog) {
    Watchdog watchdog;
    TestDialog dialog(IDD_BASIC);
    CommandEater eater(IDOK);
    dialog.AddWndMsgFilter(eater);
    dialog.onInit = [](TestDialog& d) {
        Click(d, IDOK);
        Click(d, IDCANCEL);
    };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ(1, eater.eaten);
    EXPECT_EQ(0, dialog.oks);
}

TEST(DialogModal, StepsFromAThreadTimerRunInsideTheModalLoop) {
    Watchdog watchdog;
    TestDialog dialog(IDD_BASIC);
    CString typed;
    Script script({
        [] { return Testing::FindThreadDialog(L"Basic") != nullptr; },
        [&] {
            ::SetDlgItemTextW(dialog, IDC_FIRST_EDIT, L"from the timer");
            return true;
        },
        [&] {
            typed = dialog.GetDlgItemText(IDC_FIRST_EDIT);
            Click(dialog, IDOK);
            return true;
        },
    });
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_TRUE(script.Finished());
    EXPECT_STREQ(L"from the timer", typed);
}

TEST(DialogModeless, OkDoesNothingCancelHidesEndDialogDestroys) {
    TestDialog dialog(IDD_BASIC);
    HWND hwnd = dialog.CreateModeless();
    ASSERT_NE(nullptr, hwnd);
    EXPECT_TRUE(dialog.IsModeless());
    EXPECT_EQ(1, dialog.inits);
    dialog.ShowWindow(SW_SHOW);

    dialog.SendMessageW(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    EXPECT_EQ(1, dialog.oks);
    EXPECT_TRUE(::IsWindowVisible(hwnd));

    // Escape and the close box arrive as IDCANCEL: hidden, still attached.
    dialog.SendMessageW(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    EXPECT_FALSE(::IsWindowVisible(hwnd));
    EXPECT_TRUE(::IsWindow(hwnd));
    EXPECT_EQ(&dialog, CWnd::FindByHandle(hwnd));
    dialog.ShowWindow(SW_SHOW);
    EXPECT_TRUE(::IsWindowVisible(hwnd));

    dialog.EndDialog(5);
    EXPECT_FALSE(::IsWindow(hwnd));
    EXPECT_EQ(nullptr, dialog.GetHwnd());
    EXPECT_EQ(nullptr, CWnd::FindByHandle(hwnd));
}

TEST(DialogModeless, CreateAndCreateChildDialogAreModeless) {
    TestDialog owner(IDD_BASIC);
    ASSERT_NE(nullptr, owner.Create(nullptr));
    EXPECT_TRUE(owner.IsModeless());

    TestDialog shown(IDD_CHILD), hidden(IDD_CHILD);
    HWND page = shown.CreateChildDialog(&owner, 15, 25, TRUE);
    ASSERT_NE(nullptr, page);
    EXPECT_EQ(owner.GetHwnd(), ::GetParent(page));
    EXPECT_TRUE(::GetWindowLongW(page, GWL_STYLE) & WS_VISIBLE);
    CRect rect = shown.GetWindowRect();
    owner.ScreenToClient(&rect);
    EXPECT_EQ(15, rect.left);
    EXPECT_EQ(25, rect.top);

    POINT at = {40, 5};
    HWND invisible = hidden.CreateChildDialog(&owner, at, FALSE);
    ASSERT_NE(nullptr, invisible);
    EXPECT_FALSE(::GetWindowLongW(invisible, GWL_STYLE) & WS_VISIBLE);
    owner.Destroy();
}

TEST(DialogModeless, TheActiveModelessDialogFollowsActivation) {
    TestDialog first(IDD_BASIC), second(IDD_BASIC);
    ASSERT_NE(nullptr, first.CreateModeless());
    ASSERT_NE(nullptr, second.CreateModeless());
    first.ShowWindow(SW_SHOW);
    second.ShowWindow(SW_SHOW);

    ::SetActiveWindow(first);
    EXPECT_EQ(first.GetHwnd(), CApp::GetActiveModelessDialog());
    ::SetActiveWindow(second);
    EXPECT_EQ(second.GetHwnd(), CApp::GetActiveModelessDialog());

    HWND gone = second.GetHwnd();
    second.Destroy();
    EXPECT_NE(gone, CApp::GetActiveModelessDialog());
    first.Destroy();
    EXPECT_EQ(nullptr, CApp::GetActiveModelessDialog());
}

TEST(DialogModeless, KeyboardNavigationInsideTheApplicationLoop) {
    TestDialog dialog(IDD_BASIC);
    ASSERT_NE(nullptr, dialog.CreateModeless());
    dialog.ShowWindow(SW_SHOW);
    ::SetForegroundWindow(dialog);
    ::SetActiveWindow(dialog);
    ASSERT_EQ(dialog.GetHwnd(), CApp::GetActiveModelessDialog());
    HWND first = ::GetDlgItem(dialog, IDC_FIRST_EDIT);
    HWND second = ::GetDlgItem(dialog, IDC_SECOND_EDIT);
    ::SetFocus(first);

    // Tab moves the focus; WM_QUIT comes only once the queue is empty.
    ::PostMessageW(first, WM_KEYDOWN, VK_TAB, 0);
    ::PostMessageW(first, WM_KEYUP, VK_TAB, 0xC0000001);
    ::PostQuitMessage(0);
    bool stuck = false;
    Testing::ThreadTimer watchdog(5000, [&] {
        stuck = true;
        ::PostQuitMessage(1);
    });
    theAppPtr->RunLoop(dialog);
    EXPECT_EQ(second, ::GetFocus());

    // Escape reaches the dialog as IDCANCEL, which hides a modeless one.
    ::PostMessageW(second, WM_KEYDOWN, VK_ESCAPE, 0);
    ::PostQuitMessage(0);
    theAppPtr->RunLoop(dialog);
    EXPECT_EQ(1, dialog.cancels);
    EXPECT_FALSE(dialog.IsWindowVisible());
    EXPECT_FALSE(stuck);
    dialog.Destroy();
}

TEST(DialogModeless, ADestroyedObjectTakesItsWindowAlong) {
    HWND hwnd;
    {
        TestDialog dialog(IDD_BASIC);
        hwnd = dialog.CreateModeless();
        ASSERT_NE(nullptr, hwnd);
    }
    EXPECT_FALSE(::IsWindow(hwnd));
    EXPECT_EQ(nullptr, CWnd::FindByHandle(hwnd));
}

TEST(DialogRouting, CommandsNotificationsAndTheirResults) {
    TestDialog dialog(IDD_BASIC);
    ASSERT_NE(nullptr, dialog.CreateModeless());
    UINT command = 0;
    dialog.onCommand = [&](UINT w, LPARAM) {
        command = w;
        return TRUE;
    };
    Click(dialog, IDC_OTHER);
    Testing::Pump();
    EXPECT_EQ(MAKEWPARAM(IDC_OTHER, BN_CLICKED), command);

    // A notification's result reaches the sender through DWLP_MSGRESULT.
    dialog.onNotify = [](UINT, LPARAM, LRESULT& result) {
        result = 77;
        return TRUE;
    };
    NMHDR header = {::GetDlgItem(dialog, IDC_FIRST_EDIT), IDC_FIRST_EDIT, NM_CLICK};
    EXPECT_EQ(77, dialog.SendMessageW(WM_NOTIFY, IDC_FIRST_EDIT, reinterpret_cast<LPARAM>(&header)));

    // Painting goes to OnPaint.
    dialog.ShowWindow(SW_SHOW);
    dialog.InvalidateRect();
    dialog.UpdateWindow();
    EXPECT_GE(dialog.paints, 1);

    // Idle in a menu or a nested loop frees temporary window objects.
    CWnd::FromHwnd(::GetDesktopWindow());
    EXPECT_GE(std::get<0>(CWnd::GetContextInfo()), 1u);
    dialog.SendMessageW(WM_ENTERIDLE, MSGF_MENU, 0);
    EXPECT_EQ(0u, std::get<0>(CWnd::GetContextInfo()));

    // Context help without a topic is left to the system.
    EXPECT_EQ(FALSE, CDialog::StaticDlgProc(dialog, WM_SYSCOMMAND, SC_CONTEXTHELP, 0));
    // Other system commands are left to it as well, and WM_HELP is handled.
    EXPECT_EQ(FALSE, CDialog::StaticDlgProc(dialog, WM_SYSCOMMAND, SC_KEYMENU, 0));
    HELPINFO info = {sizeof(info), HELPINFO_WINDOW, IDC_FIRST_EDIT, ::GetDlgItem(dialog, IDC_FIRST_EDIT), 0, {0, 0}};
    EXPECT_EQ(TRUE, CDialog::StaticDlgProc(dialog, WM_HELP, 0, reinterpret_cast<LPARAM>(&info)));
    dialog.Destroy();

    // With a topic the dialog shows it through the application's help.
    TestDialog withTopic(IDD_BASIC, L"dialogs/basic.htm");
    ASSERT_NE(nullptr, withTopic.CreateModeless());
    EXPECT_STREQ(L"dialogs/basic.htm", withTopic.GetHelpTopic());
    EXPECT_EQ(TRUE, CDialog::StaticDlgProc(withTopic, WM_SYSCOMMAND, SC_CONTEXTHELP | 2, 0));
    withTopic.Destroy();
}

TEST(DialogUtilities, OneBoldFontFromTheFirstControl) {
    TestDialog dialog(IDD_BASIC);
    ASSERT_NE(nullptr, dialog.CreateModeless());
    HFONT big = ::CreateFontW(-20, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Arial");
    HFONT small = ::CreateFontW(-9, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Courier New");
    dialog.SendDlgItemMessageW(IDC_FIRST_LABEL, WM_SETFONT, reinterpret_cast<WPARAM>(big), FALSE);
    dialog.SendDlgItemMessageW(IDC_SECOND_LABEL, WM_SETFONT, reinterpret_cast<WPARAM>(small), FALSE);

    // A window without a font gives no bold font, and a later call tries again.
    CWnd plain;
    plain.CreateEx(0, L"VlkStatic", L"", WS_CHILD, 0, 0, 10, 10, &dialog, nullptr);
    dialog.SetBoldFont(&plain);
    EXPECT_EQ(nullptr, dialog.GetBoldFont());

    dialog.SetBold(IDC_FIRST_LABEL);
    dialog.SetBold(IDC_SECOND_LABEL);
    HFONT bold = dialog.GetBoldFont();
    ASSERT_NE(nullptr, bold);
    EXPECT_EQ(bold, reinterpret_cast<HFONT>(dialog.SendDlgItemMessageW(IDC_FIRST_LABEL, WM_GETFONT)));
    EXPECT_EQ(bold, reinterpret_cast<HFONT>(dialog.SendDlgItemMessageW(IDC_SECOND_LABEL, WM_GETFONT)));
    LOGFONTW logFont = {};
    ASSERT_EQ(static_cast<int>(sizeof(logFont)), ::GetObjectW(bold, sizeof(logFont), &logFont));
    EXPECT_EQ(FW_BOLD, logFont.lfWeight);
    EXPECT_EQ(-20, logFont.lfHeight);
    EXPECT_STREQ(L"Arial", logFont.lfFaceName);

    plain.Destroy();
    dialog.Destroy();
    ::DeleteObject(big);
    ::DeleteObject(small);
}

TEST(DialogUtilities, FocusNowLaterAndOnInputErrors) {
    TestDialog dialog(IDD_BASIC);
    ASSERT_NE(nullptr, dialog.CreateModeless());
    dialog.ShowWindow(SW_SHOW);
    ::SetActiveWindow(dialog);
    HWND first = ::GetDlgItem(dialog, IDC_FIRST_EDIT);
    HWND second = ::GetDlgItem(dialog, IDC_SECOND_EDIT);

    dialog.SetDlgItemFocus(IDC_SECOND_EDIT);
    EXPECT_EQ(second, ::GetFocus());
    dialog.SetDlgItemFocusDelayed(IDC_FIRST_EDIT);
    EXPECT_EQ(second, ::GetFocus());
    Testing::Pump();
    EXPECT_EQ(first, ::GetFocus());

    dialog.ShowDlgInputError(IDC_SECOND_EDIT);
    EXPECT_EQ(second, ::GetFocus());
    dialog.ShowDlgInputError(0);
    EXPECT_EQ(second, ::GetFocus());
    dialog.Destroy();
}

TEST(DialogUtilities, SplashScreenStyleKeepsTheClientSize) {
    TestDialog dialog(IDD_RESIZABLE);
    ASSERT_NE(nullptr, dialog.CreateModeless());
    const CSize client = dialog.GetClientSize();
    dialog.MakeSplashScreenStyle();
    const DWORD style = dialog.GetWindowStyle();
    EXPECT_EQ(0u, style & (WS_DLGFRAME | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX));
    EXPECT_EQ(static_cast<DWORD>(WS_BORDER), style & WS_BORDER);
    EXPECT_EQ(0u, dialog.GetWindowExStyle() & 0x00020301u);
    EXPECT_EQ(client.cx, dialog.GetClientSize().cx);
    EXPECT_EQ(client.cy, dialog.GetClientSize().cy);
    dialog.Destroy();
}

TEST(DialogUtilities, SizingGripOnlyForResizableTemplatesAndItFollowsTheCorner) {
    TestDialog fixed(IDD_BASIC);
    fixed.UseAutoResizing(TRUE);
    ASSERT_NE(nullptr, fixed.CreateModeless());
    EXPECT_EQ(nullptr, fixed.GetSizingGrip().GetHwnd());

    TestDialog withoutResizing(IDD_RESIZABLE);
    ASSERT_NE(nullptr, withoutResizing.CreateModeless());
    EXPECT_EQ(nullptr, withoutResizing.GetSizingGrip().GetHwnd());

    TestDialog resizable(IDD_RESIZABLE);
    resizable.UseAutoResizing(TRUE);
    ASSERT_NE(nullptr, resizable.CreateModeless());
    CScrollbar& grip = resizable.GetSizingGrip();
    ASSERT_TRUE(grip.IsWindow());
    EXPECT_TRUE(grip.IsSizeBox());
    EXPECT_STREQ(L"ScrollBar", grip.GetClassNameW());
    EXPECT_EQ(static_cast<DWORD>(AnchorRight | AnchorBottom), grip.GetAutoResizingMask());
    auto corner = [&] {
        CRect rect = grip.GetWindowRect();
        resizable.ScreenToClient(&rect);
        return CPoint(rect.right, rect.bottom);
    };
    CRect client = resizable.GetClientRect();
    EXPECT_EQ(CPoint(client.right, client.bottom), corner());

    const CSize size = resizable.GetWindowSize();
    resizable.SetWindowSize(size.cx + 60, size.cy + 40);
    client = resizable.GetClientRect();
    EXPECT_EQ(CPoint(client.right, client.bottom), corner());

    fixed.Destroy();
    withoutResizing.Destroy();
    resizable.Destroy();
    EXPECT_FALSE(grip.IsWindow());
}
