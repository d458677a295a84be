#include <gtest/gtest.h>

#include <vector>

#include "velkan/frame/SplitterWnd.h"
#include "velkan/frame/StatusBar.h"

using namespace Velkan;

namespace {

// A parent that records what its children send on.
class Parent : public CWnd {
public:
    std::vector<UINT> commands;
    std::vector<UINT> notifications;

protected:
    BOOL OnCommand(UINT wParam, LPARAM) override {
        commands.push_back(wParam);
        return TRUE;
    }
    BOOL OnNotify(UINT, LPARAM nmhdr, LRESULT& result) override {
        notifications.push_back(reinterpret_cast<NMHDR*>(nmhdr)->code);
        result = 55;
        return TRUE;
    }
    using CWnd::OnNotify;
};

struct Stack {
    Stack(int width, int height) {
        parent.CreateEx(0, L"VlkWnd", L"parent", WS_POPUP, 0, 0, 600, 600, nullptr, nullptr);
        splitter.Create(&parent);
        splitter.SetWindowPos(CWnd::ZOrderTop, 0, 0, width, height, SWP_NOZORDER);
        for (CWnd& pane : panes) pane.CreateEx(0, L"VlkWnd", L"", WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, &splitter, nullptr);
    }
    ~Stack() { parent.Destroy(); }
    CRect PaneRect(int i) {
        CRect rect = panes[i].GetWindowRect();
        splitter.ScreenToClient(&rect);
        return rect;
    }
    Parent parent;
    CSplitterWnd splitter;
    CWnd panes[3];
};

}  // namespace

TEST(Splitter, LayoutAsDefinedWithItsGrowingShares) {
    {
        // Two panes, 400 high, no limits: 198 at 0 and 392 at 202.
        Stack stack(300, 400);
        EXPECT_EQ(0, stack.splitter.AddPane(&stack.panes[0], 0, 10000));
        EXPECT_EQ(1, stack.splitter.AddPane(&stack.panes[1], 0, 10000));
        EXPECT_EQ(CRect(0, 0, 300, 198), stack.PaneRect(0));
        EXPECT_EQ(CRect(0, 202, 300, 594), stack.PaneRect(1));
        EXPECT_EQ(392, stack.splitter.GetPanes()[1].height);
    }
    {
        // One pane fills the client area whatever its maximum.
        Stack stack(250, 300);
        stack.splitter.AddPane(&stack.panes[0], 0, 50);
        EXPECT_EQ(CRect(0, 0, 250, 300), stack.PaneRect(0));
    }
    {
        // A minimum above the share wins; the next pane starts 4 below; a
        // maximum clamps all but the last pane.
        Stack stack(200, 300);
        stack.splitter.AddPane(&stack.panes[0], 250, 10000);
        stack.splitter.AddPane(&stack.panes[1], 0, 20);
        stack.splitter.AddPane(&stack.panes[2], 0, 20);
        EXPECT_EQ(250, stack.PaneRect(0).Height());
        EXPECT_EQ(254, stack.PaneRect(1).top);
        EXPECT_EQ(20, stack.PaneRect(1).Height());
        EXPECT_EQ(278, stack.PaneRect(2).top);
        EXPECT_GT(stack.PaneRect(2).Height(), 20);
        // Every resize lays out again.
        stack.splitter.SetWindowPos(CWnd::ZOrderTop, 0, 0, 120, 600, SWP_NOZORDER);
        EXPECT_EQ(120, stack.PaneRect(0).Width());
    }
    {
        // A null pane and a destroyed one keep their slots and heights.
        Stack stack(100, 400);
        stack.splitter.AddPane(nullptr, 0, 10000);
        stack.panes[1].Destroy();
        stack.splitter.AddPane(&stack.panes[1], 0, 10000);
        stack.splitter.AddPane(&stack.panes[2], 0, 10000);
        ASSERT_EQ(3u, stack.splitter.GetPanes().size());
        EXPECT_EQ(130, stack.splitter.GetPanes()[0].height);
        EXPECT_EQ(194, stack.splitter.GetPanes()[1].height);
        EXPECT_EQ(CRect(0, 332, 100, 716), stack.PaneRect(2));
    }
}

TEST(Splitter, CommandsAndNotificationsGoToTheParentAndGapsShowTheResizeCursor) {
    Stack stack(200, 200);
    stack.splitter.AddPane(&stack.panes[0], 0, 10000);
    stack.splitter.SendMessageW(WM_COMMAND, MAKEWPARAM(77, BN_CLICKED), 0);
    ASSERT_EQ(1u, stack.parent.commands.size());
    EXPECT_EQ(MAKEWPARAM(77, BN_CLICKED), stack.parent.commands[0]);
    NMHDR header = {stack.panes[0].GetHwnd(), 5, NM_DBLCLK};
    EXPECT_EQ(55, stack.splitter.SendMessageW(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)));
    ASSERT_EQ(1u, stack.parent.notifications.size());

    EXPECT_EQ(0, stack.splitter.SendMessageW(WM_SETCURSOR, reinterpret_cast<WPARAM>(stack.splitter.GetHwnd()),
                                             MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(::LoadCursorW(nullptr, IDC_SIZENS), ::GetCursor());
}

TEST(StatusBar, RightJustifiedPartsStayAtTheRightEdge) {
    CWnd parent;
    parent.CreateEx(0, L"VlkWnd", L"parent", WS_POPUP, 0, 0, 500, 200, nullptr, nullptr);
    CStatusBar bar;
    ASSERT_NE(nullptr, bar.Create(&parent));
    EXPECT_STREQ(L"msctls_statusbar32", bar.GetClassNameW());
    EXPECT_EQ(0x54000103u, bar.GetWindowStyle() & 0x54000103u);
    const int edges[] = {100, 160, 250};
    bar.SetParts(3, edges);
    bar.SetRightJustifyMode(TRUE, 0);
    EXPECT_EQ(100, bar.GetFirstPartWidth());
    EXPECT_NE(nullptr, bar.GetPreviousWndProc());

    auto rightEdges = [&] {
        int read[20] = {};
        const int n = bar.GetParts(read, 20);
        return std::vector<int>(read, read + (n < 20 ? n : 20));
    };
    parent.SetWindowSize(700, 200);
    bar.SendMessageW(WM_SIZE, 0, 0);
    const int available = bar.GetClientRect().Width() - ::GetSystemMetrics(SM_CXHTHUMB);
    EXPECT_EQ((std::vector<int>{available - 150, available - 90, available}), rightEdges());

    // Narrower than its parts: the first keeps its width, the rest run past.
    bar.SetRightJustifyMode(TRUE, 300);
    parent.SetWindowSize(200, 200);
    bar.SendMessageW(WM_SIZE, 0, 0);
    EXPECT_EQ((std::vector<int>{300, 360, 450}), rightEdges());

    // Only the first 16 of more parts take part.
    std::vector<int> many;
    for (int i = 1; i <= 20; ++i) many.push_back(i * 10);
    bar.SetParts(20, many.data());
    bar.SetRightJustifyMode(TRUE, 10);
    parent.SetWindowSize(600, 200);
    bar.SendMessageW(WM_SIZE, 0, 0);
    const std::vector<int> after = rightEdges();
    ASSERT_GE(after.size(), 16u);
    EXPECT_EQ(bar.GetClientRect().Width() - ::GetSystemMetrics(SM_CXHTHUMB), after[15]);
    EXPECT_EQ(after[15] - 10, after[14]);

    // Texts and simple mode.
    bar.SetPartText(1, L"middle");
    EXPECT_STREQ(L"middle", bar.GetPartText(1));
    EXPECT_EQ(6, bar.GetPartTextLength(1));
    bar.SetSimple(TRUE);
    EXPECT_TRUE(bar.IsSimple());
    bar.SetSimple(FALSE);
    EXPECT_EQ(CRect(0, 0, 0, 0), bar.GetPartRect(99));
    parent.Destroy();
}
