#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "velkan/app/App.h"
#include "velkan/app/Thread.h"
#include "velkan/app/Wnd.h"
#include "velkan/dialog/Dialog.h"
#include "velkan/dialog/PropertySheet.h"
#include "velkan/dialog/TaskDialog.h"
#include "velkan/gfx/DC.h"

using namespace Velkan;

namespace {

// Counts the exceptions that reached the application's hook.
class HookApp : public CApp {
public:
    std::vector<std::string> seen;
    void OnUnhandledException(const std::exception* e) override {
        seen.push_back(e != nullptr ? e->what() : "(other)");
    }
};

// Handlers that throw once each, then behave.
// A filter that throws once.
class ThrowingFilter : public IWndMsgFilter {
public:
    bool armed = false;
    BOOL WndMsgFilterProc(HWND, UINT msg, WPARAM, LPARAM, LRESULT&) override {
        if (msg == WM_USER + 1 && armed) {
            armed = false;
            throw std::logic_error("filter");
        }
        return FALSE;
    }
};

class Thrower : public CWnd {
public:
    bool throwPaint = false, throwCommand = false, throwCreate = false;
    int paints = 0, commands = 0;

protected:
    void OnCreate() override {
        if (throwCreate) throw std::runtime_error("create failed on purpose");
    }
    void OnPaint(CDC&) override {
        ++paints;
        if (throwPaint) {
            throwPaint = false;
            throw std::runtime_error("paint");
        }
    }
    BOOL OnCommand(UINT, LPARAM) override {
        ++commands;
        if (throwCommand) {
            throwCommand = false;
            throw 42;  // not a std::exception
        }
        return TRUE;
    }
};

class ThrowingDialog : public CDialog {
public:
    ThrowingDialog() : CDialog(700) {}

protected:
    void OnInitDialog() override {
        PostMessageW(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
        throw std::runtime_error("init dialog");
    }
};

class ThrowingTaskDialog : public CTaskDialog {
public:
    void OnCreated(CTaskDialog&) override {
        ClickButton(IDCANCEL);
        throw std::runtime_error("task dialog");
    }
};

class ThrowingSheet : public CPropertySheet {
public:
    void OnCallbackPreCreate(DLGTEMPLATE*) override { throw std::runtime_error("sheet"); }
};

void ThrowingWork(void*) {
    throw std::runtime_error("worker");
}

}  // namespace

TEST(UnhandledExceptions, WindowHandlersKeepTheProgramRunning) {
    HookApp app;
    Thrower wnd;
    ThrowingFilter filter;
    wnd.AddWndMsgFilter(filter);
    ASSERT_NE(nullptr, wnd.CreateEx(0, L"VlkWnd", L"thrower", WS_POPUP | WS_VISIBLE, 0, 0, 60, 40, nullptr, nullptr));

    wnd.throwPaint = true;
    wnd.InvalidateRect();
    wnd.UpdateWindow();
    wnd.throwCommand = true;
    wnd.SendMessageW(WM_COMMAND, 7, 0);
    filter.armed = true;
    wnd.SendMessageW(WM_USER + 1, 0, 0);
    EXPECT_EQ((std::vector<std::string>{"paint", "(other)", "filter"}), app.seen);

    // The window still paints, handles commands and closes.
    const int paints = wnd.paints;
    wnd.InvalidateRect();
    wnd.UpdateWindow();
    EXPECT_GT(wnd.paints, paints);
    wnd.SendMessageW(WM_COMMAND, 8, 0);
    EXPECT_EQ(2, wnd.commands);
    wnd.Destroy();
    EXPECT_FALSE(wnd.IsWindow());
    EXPECT_EQ(3u, app.seen.size());
}

TEST(UnhandledExceptions, AFailedCreationSaysWhy) {
    HookApp app;
    Thrower wnd;
    wnd.throwCreate = true;
    ::SetLastError(0);
    EXPECT_EQ(nullptr, wnd.CreateEx(0, L"VlkWnd", L"never", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));
    EXPECT_EQ(574u, ::GetLastError());  // ERROR_UNHANDLED_EXCEPTION
    EXPECT_EQ((std::vector<std::string>{"create failed on purpose"}), app.seen);
    EXPECT_EQ(nullptr, wnd.GetHwnd());
}

TEST(UnhandledExceptions, DialogsCallbacksAndWorkersKeepTheProgramRunning) {
    HookApp app;
    ThrowingDialog dialog;
    EXPECT_EQ(IDCANCEL, dialog.DoModal());

    ThrowingTaskDialog task;
    EXPECT_EQ(IDCANCEL, task.Show());

    // The sheet's first callback: answered 0, and reported.
    ThrowingSheet sheet;
    CWnd::GetWndBeingCreated() = &sheet;
    EXPECT_EQ(0, CPropertySheet::PshCallback(nullptr, PSCB_PRECREATE, 0));
    CWnd::GetWndBeingCreated() = nullptr;

    CVlkThread worker;
    ASSERT_TRUE(worker.Start(&ThrowingWork, nullptr));
    worker.WaitUntilDone();
    EXPECT_EQ((std::vector<std::string>{"init dialog", "task dialog", "sheet", "worker"}), app.seen);
}
