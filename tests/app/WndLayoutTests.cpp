#include <gtest/gtest.h>

#include "WindowTestSupport.h"
#include "velkan/app/Wnd.h"

using namespace Velkan;
using Testing::ProbeWnd;

namespace {

// A parent with auto-resizing and one child at (100, 50)-(160, 80) in a
// 400 x 200 client area.
struct Layout {
    ProbeWnd parent, child;
    explicit Layout(DWORD mask) {
        parent.CreateEx(0, L"VlkWnd", L"parent", WS_POPUP | WS_VISIBLE, 0, 0, 400, 200, nullptr, nullptr);
        child.CreateEx(0, L"VlkWnd", L"child", WS_CHILD | WS_VISIBLE, 100, 50, 60, 30, &parent, nullptr);
        parent.UseAutoResizing(TRUE);
        child.SetAutoResizingMask(mask);
        // The first WM_SIZE only records the starting geometry.
        parent.SendMessageW(WM_SIZE, 0, MAKELPARAM(400, 200));
    }
    RECT ChildAfter(int width, int height) {
        parent.SendMessageW(WM_SIZE, 0, MAKELPARAM(width, height));
        RECT r = child.GetWindowRect();
        ::MapWindowPoints(nullptr, parent.GetHwnd(), reinterpret_cast<POINT*>(&r), 2);
        return r;
    }
};

void ExpectRect(const RECT& expected, const RECT& actual, DWORD mask) {
    EXPECT_EQ(expected.left, actual.left) << "mask " << std::hex << mask;
    EXPECT_EQ(expected.top, actual.top) << "mask " << std::hex << mask;
    EXPECT_EQ(expected.right, actual.right) << "mask " << std::hex << mask;
    EXPECT_EQ(expected.bottom, actual.bottom) << "mask " << std::hex << mask;
}

RECT PrimaryWorkArea() {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    ::GetMonitorInfoW(::MonitorFromPoint(POINT{0, 0}, MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

}  // namespace

TEST(WndAutoResize, EveryMaskFollowsItsRule) {
    // The parent grows from 400 x 200 to 800 x 300.
    struct Case { DWORD mask; RECT expected; };
    const Case cases[] = {
        {AnchorLeft | AnchorTop, {100, 50, 160, 80}},
        {AnchorRight | AnchorBottom, {500, 150, 560, 180}},
        {AnchorLeft | AnchorRight | ScaleHorizontal | AnchorTop, {100, 50, 560, 80}},
        {ScaleHorizontal | ScaleVertical, {200, 75, 320, 120}},
        {AnchorLeft | ScaleVertical, {100, 75, 160, 120}},
        {ScaleHorizontal | AnchorBottom, {200, 150, 320, 180}},
        // Both anchors without scaling: same size, centre moved in proportion.
        // (MulDiv rounds: the centre 65 becomes 97.5, then 98.)
        {AnchorLeft | AnchorRight | AnchorTop | AnchorBottom, {230, 83, 290, 113}},
        // No horizontal bit at all: both edges stay.
        {AnchorTop, {100, 50, 160, 80}},
    };
    for (const Case& c : cases) {
        Layout layout(c.mask);
        ExpectRect(c.expected, layout.ChildAfter(800, 300), c.mask);
    }
}

TEST(WndAutoResize, FirstCallRecordsAndLaterCallsStartFromTheRecord) {
    ProbeWnd parent, child;
    parent.CreateEx(0, L"VlkWnd", L"parent", WS_POPUP, 0, 0, 400, 200, nullptr, nullptr);
    child.CreateEx(0, L"VlkWnd", L"child", WS_CHILD, 100, 50, 60, 30, &parent, nullptr);
    child.SetAutoResizingMask(AnchorRight | AnchorBottom);

    child.AutoResizeWindow(CSize(400, 200));
    RECT r = child.GetWindowRect();
    ::MapWindowPoints(nullptr, parent.GetHwnd(), reinterpret_cast<POINT*>(&r), 2);
    EXPECT_EQ(100, r.left);  // not moved by the first call

    child.AutoResizeWindow(CSize(500, 200));
    child.AutoResizeWindow(CSize(450, 220));
    r = child.GetWindowRect();
    ::MapWindowPoints(nullptr, parent.GetHwnd(), reinterpret_cast<POINT*>(&r), 2);
    EXPECT_EQ(150, r.left);
    EXPECT_EQ(70, r.top);

    // A parent without auto-resizing leaves its children where they are.
    parent.UseAutoResizing(FALSE);
    parent.SendMessageW(WM_SIZE, 0, MAKELPARAM(900, 900));
    RECT after = child.GetWindowRect();
    ::MapWindowPoints(nullptr, parent.GetHwnd(), reinterpret_cast<POINT*>(&after), 2);
    EXPECT_EQ(r.left, after.left);
}

TEST(WndPopups, EnablingAgainLeavesPopupsThatWereDisabledBeforeDisabled) {
    ProbeWnd owner, wasEnabled, wasDisabled, tooltip;
    owner.CreateEx(0, L"VlkWnd", L"owner", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr);
    wasEnabled.CreateEx(0, L"VlkWnd", L"a", WS_POPUP, 0, 0, 50, 50, &owner, nullptr);
    wasDisabled.CreateEx(0, L"VlkWnd", L"b", WS_POPUP | WS_DISABLED, 0, 0, 50, 50, &owner, nullptr);
    tooltip.CreateEx(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 10, 10, &owner, nullptr);
    HWND foreign = Testing::CreatePlainWindow(owner.GetHwnd(), WS_POPUP);  // no object: not touched

    auto popups = owner.GetOwnedPopupWindows();
    EXPECT_EQ(2u, popups.size());

    owner.EnableOwnedPopupWindows(FALSE);
    EXPECT_FALSE(wasEnabled.IsWindowEnabled());
    EXPECT_FALSE(wasDisabled.IsWindowEnabled());
    EXPECT_TRUE(tooltip.IsWindowEnabled());
    EXPECT_TRUE(::IsWindowEnabled(foreign));

    owner.EnableOwnedPopupWindows(TRUE);
    EXPECT_TRUE(wasEnabled.IsWindowEnabled());
    EXPECT_FALSE(wasDisabled.IsWindowEnabled());
    EXPECT_EQ(nullptr, wasEnabled.GetPropW(L"tessaline.velkan.pwstate"));
    EXPECT_EQ(nullptr, wasDisabled.GetPropW(L"tessaline.velkan.pwstate"));
    ::DestroyWindow(foreign);
}

TEST(WndScreen, RectanglesInTheBottomBandOrOutsideAreOffScreen) {
    const RECT work = PrimaryWorkArea();

    EXPECT_FALSE(CWnd::IsOffScreen(RECT{work.left + 10, work.top + 10, work.left + 100, work.top + 100}));
    EXPECT_TRUE(CWnd::IsOffScreen(RECT{10, 10, 10, 50}));  // empty
    EXPECT_TRUE(CWnd::IsOffScreen(RECT{-5000, -5000, -4000, -4000}));
    // Only the lowest 8 pixels of the work area: off screen; 9: on.
    EXPECT_TRUE(CWnd::IsOffScreen(RECT{100, work.bottom - 8, 300, work.bottom + 50}));
    EXPECT_FALSE(CWnd::IsOffScreen(RECT{100, work.bottom - 9, 300, work.bottom + 50}));
}

TEST(WndScreen, CenterWindowCentresOnTheParentAndStaysInTheWorkArea) {
    const RECT work = PrimaryWorkArea();

    ProbeWnd owner, popup;
    owner.CreateEx(0, L"VlkWnd", L"o", WS_POPUP, 100, 100, 400, 300, nullptr, nullptr);
    popup.CreateEx(0, L"VlkWnd", L"p", WS_POPUP, 0, 0, 200, 100, &owner, nullptr);
    popup.CenterWindow();
    RECT r = popup.GetWindowRect();
    EXPECT_EQ(200, r.left);
    EXPECT_EQ(200, r.top);

    // An owner hanging off the top-left corner: clamped into the work area.
    owner.SetWindowPos(static_cast<CWnd*>(nullptr), work.left - 350, work.top - 250, 400, 300, SWP_NOZORDER);
    popup.CenterWindow();
    r = popup.GetWindowRect();
    EXPECT_EQ(work.left, r.left);
    EXPECT_EQ(work.top, r.top);
}

TEST(WndText, GetIntAcceptsOnlyASignAndDigits) {
    ProbeWnd wnd;
    Testing::CreateProbe(wnd);
    struct Case { const wchar_t* text; int value; BOOL ok; };
    const Case cases[] = {
        {L"42", 42, TRUE},          {L"-17", -17, TRUE},         {L"+8", 8, TRUE},
        {L"-", 0, TRUE},            {L"+", 0, TRUE},             {L"", 0, FALSE},
        {L" 1", 0, FALSE},          {L"1 ", 0, FALSE},           {L"--1", 0, FALSE},
        {L"12a", 0, FALSE},         {L"2147483647", 2147483647, TRUE},
        {L"2147483648", 0, FALSE},  {L"99999999999", 0, FALSE},  {L"\x0661", 0, FALSE},
    };
    for (const Case& c : cases) {
        wnd.SetWindowTextW(c.text);
        BOOL ok = !c.ok;
        EXPECT_EQ(c.value, wnd.GetInt(&ok)) << "text \"" << testing::PrintToString(std::wstring(c.text)) << "\"";
        EXPECT_EQ(c.ok, ok) << testing::PrintToString(std::wstring(c.text));
    }
    int value = 5;
    wnd.SetInt(-300);
    EXPECT_EQ(L"-300", wnd.GetTextW());
    EXPECT_TRUE(wnd.TryGetInt(&value));
    EXPECT_EQ(-300, value);
}

TEST(WndText, DialogResultsGoToTheReturnValueOrToTheWindowLong) {
    ProbeWnd wnd;
    wnd.CreateEx(0, L"#32770", L"dlg", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr);
    ASSERT_NE(nullptr, wnd.GetHwnd());
    for (UINT msg : {WM_CHARTOITEM, WM_COMPAREITEM, WM_VKEYTOITEM, WM_QUERYDRAGICON, WM_INITDIALOG,
                     WM_CTLCOLORMSGBOX, WM_CTLCOLORSTATIC}) {
        EXPECT_EQ(77, wnd.SetDialogMsgResult(msg, 77)) << msg;
    }
    EXPECT_EQ(TRUE, wnd.SetDialogMsgResult(WM_NOTIFY, 55));
    EXPECT_EQ(55, ::GetWindowLongPtrW(wnd.GetHwnd(), DWLP_MSGRESULT));
}

TEST(WndNotifications, RegistrationsEndWithTheWindow) {
    struct Listener : ProbeWnd {
        int received = 0;
        void OnNotify(CNotification&) override { ++received; }
        using ProbeWnd::OnNotify;
    };
    auto* listener = new Listener;
    Testing::CreateProbe(*listener);
    listener->RegisterForNotification(L"Test.Ping");
    listener->RegisterForNotification(L"Test.Ping");  // once only
    ProbeWnd sender;
    sender.PostNotification(L"test.ping", 3);
    EXPECT_EQ(1, listener->received);

    listener->UnregisterForNotification(L"Test.Ping");
    sender.PostNotification(L"Test.Ping", 3);
    EXPECT_EQ(1, listener->received);

    listener->RegisterForNotification(L"Test.Ping");
    delete listener;  // must leave the center
    sender.PostNotification(L"Test.Ping", 3);  // would reach a dead object otherwise
}
