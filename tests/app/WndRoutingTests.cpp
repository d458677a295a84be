#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "WindowTestSupport.h"
#include "velkan/app/Wnd.h"

using namespace Velkan;
using Testing::ProbeWnd;

namespace {

const UINT WM_PROBE = WM_APP + 7;

struct RecordingFilter : IWndMsgFilter {
    RecordingFilter(std::vector<std::string>& log, const char* name, BOOL consume)
        : log(log), name(name), consume(consume) {}
    BOOL WndMsgFilterProc(HWND, UINT msg, WPARAM, LPARAM, LRESULT& result) override {
        if (msg != WM_PROBE) return FALSE;
        log.push_back(name);
        if (consume) result = 99;
        return consume;
    }
    std::vector<std::string>& log;
    const char* name;
    BOOL consume;
};

unsigned TableSize() {
    return std::get<1>(CWnd::GetContextInfo());
}

}  // namespace

TEST(WndRouting, FiltersRunInRegistrationOrderAndTheFirstTrueConsumes) {
    std::vector<std::string> log;
    RecordingFilter first(log, "first", FALSE), second(log, "second", TRUE), third(log, "third", FALSE);
    ProbeWnd wnd;
    wnd.wndProc = [&](UINT msg, WPARAM, LPARAM, LRESULT&) {
        if (msg == WM_PROBE) log.push_back("WndProc");
        return FALSE;
    };
    ASSERT_NE(nullptr, Testing::CreateProbe(wnd));

    wnd.AddWndMsgFilter(first);
    EXPECT_EQ(0, wnd.SendMessageW(WM_PROBE));
    EXPECT_EQ((std::vector<std::string>{"first", "WndProc"}), log);

    log.clear();
    wnd.AddWndMsgFilter(second);
    wnd.AddWndMsgFilter(third);
    EXPECT_EQ(99, wnd.SendMessageW(WM_PROBE));
    EXPECT_EQ((std::vector<std::string>{"first", "second"}), log);
}

TEST(WndRouting, WndProcHandlesOrFallsToDefaultProcessing) {
    ProbeWnd wnd;
    wnd.wndProc = [](UINT msg, WPARAM w, LPARAM, LRESULT& result) {
        if (msg != WM_PROBE || w != 1) return FALSE;
        result = 1234;
        return TRUE;
    };
    ASSERT_NE(nullptr, Testing::CreateProbe(wnd));
    wnd.finalMessages.clear();

    EXPECT_EQ(1234, wnd.SendMessageW(WM_PROBE, 1));
    EXPECT_TRUE(wnd.finalMessages.empty());
    EXPECT_EQ(0, wnd.SendMessageW(WM_PROBE, 2));
    EXPECT_EQ(std::vector<UINT>{WM_PROBE}, wnd.finalMessages);
}

TEST(WndRouting, HandledReflectedCommandStillGetsDefaultProcessingButNotOnCommand) {
    ProbeWnd parent, button;
    ASSERT_NE(nullptr, Testing::CreateProbe(parent));
    ASSERT_NE(nullptr, button.CreateEx(0, L"BUTTON", L"b", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, &parent,
                                       reinterpret_cast<HMENU>(5)));
    int parentCommands = 0;
    parent.onCommand = [&](UINT, LPARAM) { ++parentCommands; return TRUE; };
    const WPARAM w = MAKEWPARAM(5, BN_CLICKED);
    const LPARAM l = reinterpret_cast<LPARAM>(button.GetHwnd());

    // The control takes it: the parent's OnCommand is skipped, default runs.
    button.onCommandReflect = [](UINT, LPARAM) { return TRUE; };
    parent.finalMessages.clear();
    parent.SendMessageW(WM_COMMAND, w, l);
    EXPECT_EQ(0, parentCommands);
    EXPECT_EQ(std::vector<UINT>{WM_COMMAND}, parent.finalMessages);

    // The control declines: the parent handles it, default does not run.
    button.onCommandReflect = [](UINT, LPARAM) { return FALSE; };
    parent.finalMessages.clear();
    EXPECT_EQ(0, parent.SendMessageW(WM_COMMAND, w, l));
    EXPECT_EQ(1, parentCommands);
    EXPECT_TRUE(parent.finalMessages.empty());
}

TEST(WndRouting, HandledReflectedNotificationReturnsTheControlsResult) {
    ProbeWnd parent, child;
    ASSERT_NE(nullptr, Testing::CreateProbe(parent));
    ASSERT_NE(nullptr, Testing::CreateProbe(child, &parent, 50, 20));
    int parentNotifies = 0;
    parent.onNotify = [&](UINT, LPARAM, LRESULT& r) { ++parentNotifies; r = 7; return TRUE; };
    NMHDR header = {child.GetHwnd(), 3, NM_CLICK};
    const LPARAM l = reinterpret_cast<LPARAM>(&header);

    child.onNotifyReflect = [](UINT id, LPARAM, LRESULT& r) { r = 40 + static_cast<LRESULT>(id); return TRUE; };
    parent.finalMessages.clear();
    EXPECT_EQ(43, parent.SendMessageW(WM_NOTIFY, 3, l));
    EXPECT_EQ(0, parentNotifies);
    EXPECT_TRUE(parent.finalMessages.empty());

    child.onNotifyReflect = nullptr;
    EXPECT_EQ(7, parent.SendMessageW(WM_NOTIFY, 3, l));
    EXPECT_EQ(1, parentNotifies);
}

TEST(WndRouting, SubclassedControlPaintsThroughItsOldProcedureUnlessAskedOtherwise) {
    HWND plain = Testing::CreatePlainWindow(nullptr, WS_POPUP | WS_VISIBLE);
    ASSERT_NE(nullptr, plain);
    ProbeWnd wnd;
    wnd.SubclassWnd(plain);
    ASSERT_NE(nullptr, wnd.GetPreviousWndProc());

    ::InvalidateRect(plain, nullptr, TRUE);
    ::UpdateWindow(plain);
    EXPECT_EQ(0, wnd.paints);
    EXPECT_GE(Testing::PlainWindowPaints(plain), 1);

    wnd.SetPaintThrough(TRUE);
    const int before = Testing::PlainWindowPaints(plain);
    ::InvalidateRect(plain, nullptr, TRUE);
    ::UpdateWindow(plain);
    EXPECT_EQ(1, wnd.paints);
    EXPECT_EQ(before, Testing::PlainWindowPaints(plain));

    // Detach gives the window its own procedure back.
    EXPECT_EQ(plain, wnd.Detach());
    ::InvalidateRect(plain, nullptr, TRUE);
    ::UpdateWindow(plain);
    EXPECT_EQ(1, wnd.paints);
    EXPECT_EQ(before + 1, Testing::PlainWindowPaints(plain));
    ::DestroyWindow(plain);
}

TEST(WndRouting, ExceptionFromOnCreateFailsCreationWithoutEscaping) {
    const unsigned before = TableSize();
    ProbeWnd wnd;
    wnd.onCreate = [] { throw std::runtime_error("no"); };
    HWND hwnd = nullptr;
    EXPECT_NO_THROW(hwnd = Testing::CreateProbe(wnd));
    EXPECT_EQ(nullptr, hwnd);
    EXPECT_EQ(nullptr, wnd.GetHwnd());
    EXPECT_EQ(before, TableSize());

    // The object is still usable for a second, successful creation.
    wnd.onCreate = nullptr;
    EXPECT_NE(nullptr, Testing::CreateProbe(wnd));
    EXPECT_EQ(before + 1, TableSize());
}

TEST(WndCreate, CreateAppliesTheDefaultClassStyleAndPlacement) {
    ProbeWnd top;
    ASSERT_NE(nullptr, top.Create());
    EXPECT_EQ(L"VlkWnd", std::wstring(top.GetClassNameW().GetString()));
    EXPECT_EQ(static_cast<DWORD>(WS_OVERLAPPEDWINDOW), top.GetWindowStyle() & WS_OVERLAPPEDWINDOW);
    EXPECT_FALSE(top.GetWindowStyle() & WS_CHILD);
    EXPECT_GT(top.GetWindowSize().cx, 0);  // CW_USEDEFAULT gave it a size
    EXPECT_EQ(1, top.creates);

    ProbeWnd child;
    ASSERT_NE(nullptr, child.Create(&top));
    EXPECT_EQ(static_cast<DWORD>(WS_CHILD | WS_VISIBLE), child.GetWindowStyle() & (WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(top.GetHwnd(), ::GetParent(child.GetHwnd()));
}

TEST(WndCreate, SystemControlWithSubclassFlagIsTiedAfterCreation) {
    ProbeWnd parent;
    ASSERT_NE(nullptr, Testing::CreateProbe(parent));
    ProbeWnd edit;
    edit.SetSubclass(TRUE);
    HWND hwnd = edit.CreateEx(0, L"EDIT", L"12", WS_CHILD, 0, 0, 60, 20, &parent, nullptr);
    ASSERT_NE(nullptr, hwnd);
    EXPECT_EQ(&edit, CWnd::FindByHandle(hwnd));
    EXPECT_NE(nullptr, edit.GetPreviousWndProc());
    EXPECT_EQ(1, edit.creates);
    // The control still works through its own procedure.
    EXPECT_EQ(12, edit.GetInt());
}

TEST(WndLifetime, DestroyingTheObjectDestroysItsWindowAndItsEntry) {
    const unsigned before = TableSize();
    HWND hwnd;
    {
        ProbeWnd wnd;
        hwnd = Testing::CreateProbe(wnd);
        ASSERT_TRUE(::IsWindow(hwnd));
        EXPECT_EQ(before + 1, TableSize());
    }
    EXPECT_FALSE(::IsWindow(hwnd));
    EXPECT_EQ(before, TableSize());
}
