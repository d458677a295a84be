#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "WindowTestSupport.h"
#include "velkan/app/Wnd.h"

using namespace Velkan;
using Testing::ProbeWnd;

namespace {

unsigned Temps() { return std::get<0>(CWnd::GetContextInfo()); }
unsigned Entries() { return std::get<1>(CWnd::GetContextInfo()); }

}  // namespace

TEST(WndContext, FromHwndMakesOneTemporaryPerHandleUntilCleanUp) {
    EXPECT_EQ(nullptr, CWnd::FromHwnd(nullptr));
    HWND plain = Testing::CreatePlainWindow();
    ASSERT_NE(nullptr, plain);
    const unsigned temps = Temps(), entries = Entries();

    CWnd* first = CWnd::FromHwnd(plain);
    ASSERT_NE(nullptr, first);
    EXPECT_TRUE(first->IsTempWnd());
    EXPECT_EQ(first, CWnd::FromHwnd(plain));
    EXPECT_EQ(first, CWnd::FindByHandle(plain));
    EXPECT_EQ(temps + 1, Temps());
    EXPECT_EQ(entries + 1, Entries());

    CWnd::CleanUpTempObjects();
    EXPECT_EQ(0u, Temps());
    EXPECT_EQ(entries, Entries());
    EXPECT_EQ(nullptr, CWnd::FindByHandle(plain));
    EXPECT_TRUE(::IsWindow(plain));  // a temporary never destroys its window

    CWnd* second = CWnd::FromHwnd(plain);
    EXPECT_TRUE(second->IsTempWnd());
    CWnd::CleanUpTempObjects();
    ::DestroyWindow(plain);
}

TEST(WndContext, PermanentObjectsAreFoundAndInsertAfterValuesAreNotEntered) {
    ProbeWnd wnd;
    HWND hwnd = Testing::CreateProbe(wnd);
    EXPECT_EQ(&wnd, CWnd::FromHwnd(hwnd));
    EXPECT_FALSE(wnd.IsTempWnd());

    const unsigned entries = Entries();
    {
        CWnd topmost(HWND_TOPMOST), bottom(HWND_BOTTOM);
        EXPECT_EQ(HWND_TOPMOST, topmost.GetHwnd());
        EXPECT_EQ(entries, Entries());
        // Such an object serves as an insert-after position.
        EXPECT_TRUE(wnd.SetWindowPos(&topmost, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE));
        EXPECT_TRUE(wnd.GetWindowExStyle() & WS_EX_TOPMOST);
    }
    EXPECT_EQ(entries, Entries());
}

TEST(WndContext, AttachTakesTheHandleAwayFromItsHolder) {
    HWND plain = Testing::CreatePlainWindow();
    const unsigned entries = Entries();
    ProbeWnd a, b;
    a.Attach(plain);
    EXPECT_EQ(1, a.creates);
    EXPECT_EQ(&a, CWnd::FindByHandle(plain));

    b.Attach(plain);
    EXPECT_EQ(nullptr, a.GetHwnd());
    EXPECT_EQ(plain, b.GetHwnd());
    EXPECT_EQ(&b, CWnd::FindByHandle(plain));
    EXPECT_EQ(entries + 1, Entries());

    // a no longer holds the window, so its destruction leaves it alone.
    a.Destroy();
    EXPECT_TRUE(::IsWindow(plain));
    EXPECT_EQ(&b, CWnd::FindByHandle(plain));

    EXPECT_EQ(plain, b.Detach());
    EXPECT_EQ(entries, Entries());
    ::DestroyWindow(plain);
}

TEST(WndContext, EachThreadOwnsItsTemporariesAndItsExitFreesThem) {
    HWND mine = Testing::CreatePlainWindow();
    CWnd::FromHwnd(mine);
    const unsigned entries = Entries();

    std::atomic<unsigned> threadTemps{0};
    std::atomic<bool> differentObject{false};
    HWND theirs = Testing::CreatePlainWindow();
    std::thread worker([&] {
        CWnd* wnd = CWnd::FromHwnd(theirs);
        differentObject = wnd != nullptr && wnd != CWnd::FindByHandle(mine) && wnd->IsTempWnd();
        threadTemps = Temps();
        // No clean-up here: the thread's end must do it.
    });
    worker.join();

    EXPECT_TRUE(differentObject);
    EXPECT_EQ(1u, threadTemps.load());
    EXPECT_EQ(1u, Temps());  // ours is untouched
    EXPECT_EQ(entries, Entries());
    EXPECT_EQ(nullptr, CWnd::FindByHandle(theirs));
    CWnd::CleanUpTempObjects();
    ::DestroyWindow(mine);
    ::DestroyWindow(theirs);
}

TEST(WndContext, ResetContextForgetsEveryEntry) {
    std::vector<HWND> windows;
    for (int i = 0; i < 3; ++i) windows.push_back(Testing::CreatePlainWindow());
    for (HWND h : windows) CWnd::FromHwnd(h);
    EXPECT_GE(Entries(), 3u);
    CWnd::ResetContext();
    EXPECT_EQ(0u, Temps());
    EXPECT_EQ(0u, Entries());
    for (HWND h : windows) ::DestroyWindow(h);
}

// Several threads create, message and destroy many windows while asking for
// temporaries of their own foreign windows; the table ends where it began.
TEST(WndContext, ConcurrentCreationRoutingAndCleanUpLeaveTheTableEmpty) {
    const unsigned entries = Entries();
    const int threads = 4, rounds = 150;
    std::atomic<int> failures{0};
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&] {
            HWND foreign = Testing::CreatePlainWindow(nullptr, WS_POPUP);
            for (int i = 0; i < rounds; ++i) {
                ProbeWnd parent;
                ProbeWnd child;
                int seen = 0;
                parent.wndProc = [&](UINT msg, WPARAM w, LPARAM, LRESULT& r) {
                    if (msg != WM_APP) return FALSE;
                    seen += static_cast<int>(w);
                    r = 1;
                    return TRUE;
                };
                if (!parent.CreateEx(0, L"VlkWnd", L"p", WS_POPUP, 0, 0, 30, 30, nullptr, nullptr) ||
                    !child.CreateEx(0, L"VlkWnd", L"c", WS_CHILD, 0, 0, 10, 10, &parent, nullptr)) {
                    ++failures;
                    continue;
                }
                if (parent.SendMessageW(WM_APP, 2) != 1 || seen != 2) ++failures;
                if (CWnd::FromHwnd(child.GetHwnd()) != &child) ++failures;
                CWnd* temp = CWnd::FromHwnd(foreign);
                if (temp == nullptr || !temp->IsTempWnd()) ++failures;
                if (i % 10 == 0) CWnd::CleanUpTempObjects();
            }
            CWnd::CleanUpTempObjects();
            ::DestroyWindow(foreign);
        });
    }
    for (auto& w : workers) w.join();
    EXPECT_EQ(0, failures.load());
    EXPECT_EQ(entries, Entries());
}
