#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FrameIds.h"
#include "support/ModalDriver.h"
#include "velkan/app/App.h"
#include "velkan/frame/FrameWndEx.h"
#include "velkan/frame/PaletteWnd.h"
#include "velkan/menu/Menu.h"

using namespace Velkan;

namespace {

const wchar_t kSection[] = L"Test Frame";

// A frame with a plain view that records the commands it gets.
class TestFrame : public CFrameWndEx {
public:
    TestFrame() : CFrameWndEx(L"VelkanTestFrame", IDR_FRAME, IDS_FRAME_IDLE, kSection) {}
    std::vector<UINT> commands;
    CWnd view;

    void OnCreate() override {
        CFrameWndEx::OnCreate();
        view.CreateEx(0, L"VlkWnd", L"view", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, this, nullptr);
        SetView(&view);
    }
    BOOL OnCommand(UINT wParam, LPARAM lParam) override {
        commands.push_back(LOWORD(wParam));
        if (LOWORD(wParam) == ID_CMD_REFRESH) DestroyWindow();
        return CFrameWndEx::OnCommand(wParam, lParam);
    }
};

CRect ViewRect(TestFrame& frame) {
    CRect rect = frame.view.GetWindowRect();
    frame.ScreenToClient(&rect);
    return rect;
}

// The frame's death posts WM_QUIT; tests that do not run the loop drop it.
void DropQuit() {
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
}

void Forget() {
    theAppPtr->RegDeleteSection(kSection);
}

struct Watch : public IObservable {
    std::vector<DWORD_PTR> data;
    void OnNotify(CNotification& n) override { data.push_back(n.GetData()); }
};

}  // namespace

TEST(Frame, PlacementAndBarsSurviveARestartButNotAnOffScreenPlace) {
    Forget();
    {
        TestFrame first;
        ASSERT_NE(nullptr, first.Create());
        first.ShowWindow(SW_SHOWNORMAL);
        first.SetWindowPos(CWnd::ZOrderTop, 100, 80, 600, 400, SWP_NOZORDER);
        first.SendMessageW(WM_COMMAND, CFrameWndEx::ToggleStatusBarCommand, 0);
        EXPECT_FALSE(first.IsStatusBarVisible());
        first.Destroy();
    }
    DropQuit();
    {
        TestFrame second;
        ASSERT_NE(nullptr, second.Create());
        EXPECT_EQ(CRect(100, 80, 700, 480), second.GetWindowRect());
        EXPECT_FALSE(second.IsStatusBarVisible());
        EXPECT_FALSE(second.GetStatusBar().GetWindowStyle() & WS_VISIBLE);
        EXPECT_TRUE(second.IsRebarVisible());
        // Closing while maximised keeps the last normal rectangle.
        second.ShowWindow(SW_SHOWMAXIMIZED);
        second.Destroy();
    }
    DropQuit();
    int left = 0, width = 0;
    theAppPtr->RegQueryInt(kSection, L"Frame.Left", &left);
    theAppPtr->RegQueryInt(kSection, L"Frame.Width", &width);
    EXPECT_EQ(100, left);
    EXPECT_EQ(600, width);

    // A place on no screen gives the default placement.
    theAppPtr->RegWriteInt(kSection, L"Frame.Left", 30000);
    theAppPtr->RegWriteInt(kSection, L"Frame.Top", 30000);
    TestFrame third;
    ASSERT_NE(nullptr, third.Create());
    EXPECT_LT(third.GetWindowRect().left, 5000);
    third.Destroy();
    DropQuit();
    Forget();
}

TEST(Frame, LayoutBarsAndTogglingTwiceRestoresItToThePixel) {
    Forget();
    TestFrame frame;
    ASSERT_NE(nullptr, frame.Create());
    frame.ShowWindow(SW_SHOWNORMAL);
    frame.SetWindowPos(CWnd::ZOrderTop, 0, 0, 500, 350, SWP_NOZORDER);
    const CRect client = frame.GetClientRect();
    const CRect view = ViewRect(frame);
    // The view sits between the rebar's height and the status bar.
    EXPECT_EQ(static_cast<LONG>(frame.GetRebar().GetBarHeight()), view.top);
    EXPECT_EQ(client.bottom - frame.GetStatusBar().GetWindowSize().cy, view.bottom);
    EXPECT_EQ(client.right, view.right);

    frame.SendMessageW(WM_COMMAND, CFrameWndEx::ToggleStatusBarCommand, 0);
    EXPECT_EQ(client.bottom, ViewRect(frame).bottom);
    frame.SendMessageW(WM_COMMAND, CFrameWndEx::ToggleStatusBarCommand, 0);
    EXPECT_EQ(view, ViewRect(frame));
    frame.SendMessageW(WM_COMMAND, CFrameWndEx::ToggleRebarCommand, 0);
    frame.SendMessageW(WM_COMMAND, CFrameWndEx::ToggleRebarCommand, 0);
    EXPECT_EQ(view, ViewRect(frame));

    // The View menu's items show the bars' state.
    frame.SendMessageW(WM_COMMAND, CFrameWndEx::ToggleRebarCommand, 0);
    CMenu menu;
    menu.Attach(::GetMenu(frame));
    frame.SendMessageW(WM_INITMENU, reinterpret_cast<WPARAM>(menu.GetHmenu()), 0);
    EXPECT_FALSE(menu.IsChecked(0xE800, FALSE));
    EXPECT_TRUE(menu.IsChecked(0xE801, FALSE));
    menu.Detach();
    frame.Destroy();
    DropQuit();
    Forget();
}

TEST(Frame, MenuHelpInSimpleModeAndThePartsComeBack) {
    Forget();
    TestFrame frame;
    ASSERT_NE(nullptr, frame.Create());
    CStatusBar& bar = frame.GetStatusBar();
    EXPECT_STREQ(L"Ready", bar.GetPartText(0));
    HMENU file = ::GetSubMenu(::GetMenu(frame), 0);
    frame.SendMessageW(WM_MENUSELECT, MAKEWPARAM(ID_CMD_OPEN, MF_HILITE), reinterpret_cast<LPARAM>(file));
    EXPECT_TRUE(bar.IsSimple());
    // The simple text is part 255 on Windows and part 0 under Wine.
    const CString simple = bar.GetPartText(255).IsEmpty() ? bar.GetPartText(0) : bar.GetPartText(255);
    EXPECT_EQ(0, std::wstring(simple.GetString()).find(L"Opens a document"));
    frame.SendMessageW(WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
    EXPECT_FALSE(bar.IsSimple());
    EXPECT_STREQ(L"Ready", bar.GetPartText(0));

    // Help strings: up to and including the line feed; none below 40000.
    EXPECT_STREQ(L"Opens a document\n", frame.GetStatusString(ID_CMD_OPEN));
    EXPECT_STREQ(L"Reloads the view", frame.GetStatusString(ID_CMD_REFRESH));
    EXPECT_STREQ(L"", frame.GetStatusString(ID_CMD_LOW));
    EXPECT_STREQ(L"", frame.GetStatusString(40999));
    frame.Destroy();
    DropQuit();
}

TEST(Frame, TheLoopRunsTheAcceleratorsAndEndsWhenTheFrameDies) {
    Forget();
    TestFrame frame;
    ASSERT_NE(nullptr, frame.Create());
    ASSERT_NE(nullptr, frame.GetAcceleratorTable());
    frame.ShowWindow(SW_SHOWNORMAL);
    // F5 is the accelerator of the command that destroys the frame.
    ::PostMessageW(frame, WM_KEYDOWN, VK_F5, 1);
    bool stuck = false;
    Testing::ThreadTimer watchdog(5000, [&] {
        stuck = true;
        ::PostQuitMessage(1);
    });
    theAppPtr->RunLoop(frame);
    EXPECT_FALSE(stuck);
    EXPECT_FALSE(frame.IsWindow());
    ASSERT_FALSE(frame.commands.empty());
    EXPECT_EQ(static_cast<UINT>(ID_CMD_REFRESH), frame.commands.back());
    Forget();
}

TEST(Palette, FirstRunGeometryClosingAndTheWasVisibleRule) {
    Forget();
    Watch watch;
    CNotificationCenter::GetDefault().AddObserver(CPaletteWnd::ClosedNotification, watch);
    CRect frameRect;
    {
        TestFrame frame;
        ASSERT_NE(nullptr, frame.Create());
        frame.SetWindowPos(CWnd::ZOrderTop, 40, 30, 800, 600, SWP_NOZORDER);
        CPaletteWnd palette(kSection, L"Tools", TRUE, TRUE, TRUE);
        ASSERT_NE(nullptr, palette.Create(&frame));
        frame.AddPaletteWindow(palette);
        EXPECT_STREQ(L"VlkPaletteWnd", palette.GetClassNameW());
        EXPECT_STREQ(L"Tools", palette.GetWindowTextW());
        const int dpi = palette.GetDpi();
        frameRect = frame.GetWindowRect();
        const CRect expected(frameRect.right - ::MulDiv(50, dpi, 96) - ::MulDiv(192, dpi, 96),
                             frameRect.top + ::MulDiv(50, dpi, 96), frameRect.right - ::MulDiv(50, dpi, 96),
                             frameRect.top + ::MulDiv(50, dpi, 96) + ::MulDiv(256, dpi, 96));
        EXPECT_EQ(expected, palette.GetWindowRect());
        EXPECT_FALSE(palette.IsWindowVisible());

        // The frame's first show brings the palette that is visible by default.
        frame.ShowWindow(SW_SHOWNORMAL);
        EXPECT_TRUE(palette.IsWindowVisible());
        EXPECT_TRUE(palette.WasVisible());

        // Minimising and restoring the frame leaves the remembered state.
        frame.ShowWindow(SW_MINIMIZE);
        frame.ShowWindow(SW_RESTORE);
        EXPECT_TRUE(palette.WasVisible());

        // The caption's close button hides it and says so, once.
        palette.SendMessageW(WM_SYSCOMMAND, SC_CLOSE, 0);
        EXPECT_TRUE(palette.IsWindow());
        EXPECT_FALSE(palette.IsWindowVisible());
        EXPECT_FALSE(palette.WasVisible());
        ASSERT_EQ(1u, watch.data.size());
        EXPECT_EQ(reinterpret_cast<DWORD_PTR>(&palette), watch.data[0]);

        // The minimum track size keeps the view's minimum.
        palette.SetViewMinSize(CSize(300, 200));
        MINMAXINFO info = {};
        palette.SendMessageW(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
        CRect border(0, 0, 0, 0);
        ::AdjustWindowRectEx(&border, palette.GetWindowStyle(), FALSE, palette.GetWindowExStyle());
        EXPECT_GE(info.ptMinTrackSize.x, 300 + border.Width());
        EXPECT_GE(info.ptMinTrackSize.y, 200 + border.Height() + palette.GetStatusBar().GetWindowSize().cy);
        palette.Destroy();
        frame.Destroy();
    }
    DropQuit();
    // The next start remembers the closed palette and does not show it.
    {
        TestFrame frame;
        ASSERT_NE(nullptr, frame.Create());
        CPaletteWnd palette(kSection, L"Tools", TRUE, FALSE, FALSE);
        ASSERT_NE(nullptr, palette.Create(&frame));
        frame.AddPaletteWindow(palette);
        frame.ShowWindow(SW_SHOWNORMAL);
        EXPECT_FALSE(palette.IsWindowVisible());
        EXPECT_FALSE(palette.WasVisible());
        palette.Destroy();
        frame.Destroy();
    }
    DropQuit();
    CNotificationCenter::GetDefault().RemoveObserver(watch);
    Forget();
}
