#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>

#include "AppChild.h"
#include "WindowTestSupport.h"
#include "velkan/app/App.h"
#include "velkan/frame/FrameWndEx.h"
#include "velkan/app/Wnd.h"

using namespace Velkan;
using Testing::ProbeWnd;

namespace Testing {

int RunAppChild() {
    wchar_t exe[MAX_PATH];
    ::GetModuleFileNameW(nullptr, exe, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(exe) + L"\" --app-child";
    STARTUPINFOW si = {};
    si.cb = sizeof(si);
    PROCESS_INFORMATION pi = {};
    if (!::CreateProcessW(exe, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi)) return -1;
    DWORD code = static_cast<DWORD>(-1);
    if (::WaitForSingleObject(pi.hProcess, 60000) == WAIT_OBJECT_0) ::GetExitCodeProcess(pi.hProcess, &code);
    ::CloseHandle(pi.hThread);
    ::CloseHandle(pi.hProcess);
    return static_cast<int>(code);
}

}  // namespace Testing

namespace {

const wchar_t kCompanyKey[] = L"Software\\VelkanTestCompany";

// Every test starts and ends without the test application's settings.
class AppTest : public testing::Test {
protected:
    void SetUp() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kCompanyKey); }
    void TearDown() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kCompanyKey); }
};

struct AppWithVersionProbe : CApp {
    using CApp::GetDllVersion;
};

}  // namespace

TEST_F(AppTest, StartUpReadsItsNamesAndPublishesItself) {
    {
        AppWithVersionProbe app;
        EXPECT_EQ(&app, theAppPtr);
        EXPECT_STREQ(L"VelkanAppTests", app.GetRegistryAppKey());
        EXPECT_STREQ(L"VelkanTestCompany", app.GetRegistryCompanyKey());
        EXPECT_EQ(::GetModuleHandleW(nullptr), app.GetInstance());
        EXPECT_EQ(&app.GetNotificationCenter(), &CNotificationCenter::GetDefault());
        EXPECT_TRUE(app.IsFirstRun());
        EXPECT_FALSE(app.AlreadyRunning());
        EXPECT_TRUE(app.IsWindowsNT());

        std::wstring chm = app.GetHtmlHelpPath();
        EXPECT_EQ(L".chm", chm.substr(chm.size() - 4));
        EXPECT_EQ(std::wstring(app.GetModuleFileName()).substr(0, chm.size() - 4), chm.substr(0, chm.size() - 4));

        WNDCLASSEXW wc = {};
        wc.cbSize = sizeof(wc);
        EXPECT_TRUE(::GetClassInfoExW(app.GetInstance(), L"VlkStatic", &wc));

        DWORD ms = 0, ls = 0;
        EXPECT_TRUE(CApp::GetFileVersion(nullptr, &ms, &ls));
        EXPECT_EQ(MAKELONG(2, 1), static_cast<LONG>(ms));
        EXPECT_EQ(MAKELONG(4, 3), static_cast<LONG>(ls));
        EXPECT_FALSE(CApp::GetFileVersion(L"C:\\no\\such.dll", &ms, &ls));
        EXPECT_EQ(0u, ms);

        EXPECT_NE(0u, AppWithVersionProbe::GetDllVersion(L"comctl32.dll"));
        EXPECT_EQ(0u, AppWithVersionProbe::GetDllVersion(L"no-such-library.dll"));
        EXPECT_EQ(0u, AppWithVersionProbe::GetDllVersion(L"kernel32.dll"));  // no DllGetVersion

        CString folder = CApp::GetModulePath(nullptr);
        EXPECT_EQ(0, std::wcsncmp(app.GetModuleFileName(), folder.GetString(), folder.GetLength()));
        EXPECT_EQ(L'\\', app.GetModuleFileName()[folder.GetLength()]);

        // The help engine loads, but there is no .chm beside the tests.
        EXPECT_FALSE(app.OpenHelpTopics(nullptr));
        EXPECT_FALSE(app.HtmlHelpW(nullptr, L"topic.htm", 0, 0));
        EXPECT_EQ(5, app.Trace(L"%s%d", L"abc", 12));
    }
    EXPECT_EQ(nullptr, theAppPtr);
}

TEST_F(AppTest, RegistryValuesRoundTripWithTheirTypes) {
    CApp app;
    EXPECT_TRUE(app.RegWriteDWORD(L"Values", L"Dword", 0xDEADBEEF));
    EXPECT_TRUE(app.RegWriteLONG(L"Values", L"Long", -5));
    EXPECT_TRUE(app.RegWriteInt(L"Values", L"Int", 1234567));
    EXPECT_TRUE(app.RegWriteBOOL(L"Values", L"Bool", TRUE));
    EXPECT_TRUE(app.RegWriteDWORD(L"Values", L"Wide", 0x12345678));
    EXPECT_TRUE(app.RegWriteString(L"Values", L"Text", L"h\x00e9llo"));
    const BYTE blob[5] = {0, 1, 2, 0xFE, 0xFF};
    EXPECT_TRUE(app.RegWriteBinary(L"Values", L"Blob", blob, 5));

    DWORD dw = 0;
    LONG l = 0;
    int i = 0;
    BOOL b = FALSE;
    WORD w = 0;
    EXPECT_TRUE(app.RegQueryDWORD(L"Values", L"Dword", &dw));
    EXPECT_EQ(0xDEADBEEFu, dw);
    EXPECT_TRUE(app.RegQueryLONG(L"Values", L"Long", &l));
    EXPECT_EQ(-5, l);
    EXPECT_TRUE(app.RegQueryInt(L"Values", L"Int", &i));
    EXPECT_EQ(1234567, i);
    EXPECT_TRUE(app.RegQueryBOOL(L"Values", L"Bool", &b));
    EXPECT_EQ(TRUE, b);
    EXPECT_TRUE(app.RegQueryWORD(L"Values", L"Wide", &w));
    EXPECT_EQ(0x5678, w);

    // Strings are written without their terminator, but Wine's registry
    // appends one to REG_SZ data itself, so the stored size is not checked.
    wchar_t buffer[16];
    std::fill(std::begin(buffer), std::end(buffer), L'#');
    // Windows returns the stored 10 bytes; Wine adds a terminator.
    const int bytes = app.RegQueryString(L"Values", L"Text", buffer, sizeof(buffer));
    EXPECT_TRUE(bytes == 10 || bytes == 12) << bytes;
    EXPECT_EQ(0, std::wmemcmp(L"h\x00e9llo", buffer, 5));
    EXPECT_EQ(L"h\x00e9llo", std::wstring(app.RegQueryString(L"Values", L"Text", L"default", 64).GetString()));
    EXPECT_EQ(L"default", std::wstring(app.RegQueryString(L"Values", L"Missing", L"default", 64).GetString()));

    BYTE read[5] = {};
    EXPECT_TRUE(app.RegQueryBinary(L"Values", L"Blob", read, 5));
    EXPECT_EQ(0, std::memcmp(blob, read, 5));

    // A failed read leaves the output alone and reports the registry code.
    dw = 77;
    EXPECT_FALSE(app.RegQueryDWORD(L"Values", L"Missing", &dw));
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), ::GetLastError());
    EXPECT_EQ(77u, dw);
    EXPECT_EQ(0, app.RegQueryString(L"Values", L"Missing", buffer, sizeof(buffer)));

    // A null string deletes the value.
    EXPECT_TRUE(app.RegWriteString(L"Values", L"Text", nullptr));
    EXPECT_EQ(0, app.RegQueryString(L"Values", L"Text", buffer, sizeof(buffer)));
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), ::GetLastError());
    EXPECT_TRUE(app.RegDeleteValueW(L"Values", L"Blob"));
    EXPECT_FALSE(app.RegDeleteValueW(L"Values", L"Blob"));
}

TEST_F(AppTest, RectanglesAreFourValuesReadAllOrNothing) {
    CApp app;
    const CRect written(10, -20, 300, 400);
    EXPECT_TRUE(app.RegWriteRect(L"Layout", L"Frame", written));
    CRect read;
    EXPECT_TRUE(app.RegQueryRect(L"Layout", L"Frame", read));
    EXPECT_EQ(written, read);
    DWORD right = 0;
    EXPECT_TRUE(app.RegQueryDWORD(L"Layout", L"Frame.Right", &right));
    EXPECT_EQ(300u, right);

    EXPECT_TRUE(app.RegDeleteValueW(L"Layout", L"Frame.Bottom"));
    CRect untouched(1, 2, 3, 4);
    EXPECT_FALSE(app.RegQueryRect(L"Layout", L"Frame", untouched));
    EXPECT_EQ(CRect(1, 2, 3, 4), untouched);

    EXPECT_TRUE(app.RegDeleteSection(L"Layout"));
    EXPECT_FALSE(app.RegQueryDWORD(L"Layout", L"Frame.Left", &right));
}

TEST_F(AppTest, FirstRunEndsWithAnOrderlyExitAndASecondInstanceIsSeen) {
    EXPECT_EQ(Testing::kChildSawFirstRun, Testing::RunAppChild());
    EXPECT_EQ(0, Testing::RunAppChild());
    {
        CApp app;
        EXPECT_FALSE(app.IsFirstRun());
        EXPECT_EQ(Testing::kChildSawAlreadyRunning, Testing::RunAppChild());
        EXPECT_TRUE(app.ReleaseSharedMem());
        EXPECT_EQ(INVALID_HANDLE_VALUE, app.GetSharedMem());
        EXPECT_TRUE(app.ReleaseSharedMem());
        EXPECT_EQ(0, Testing::RunAppChild());
    }
}

TEST_F(AppTest, HashFileContentsGivesSha1AndChecksTheDigestSize) {
    wchar_t folder[MAX_PATH], path[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    ::GetTempFileNameW(folder, L"vlk", 0, path);
    HANDLE file = ::CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    // Over 4096 bytes so that the file is read in several blocks.
    std::string content;
    for (int i = 0; i < 1000; ++i) content += "abcde";
    DWORD written = 0;
    ::WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    ::CloseHandle(file);

    BYTE digest[20] = {};
    EXPECT_EQ(S_OK, CApp::HashFileContents(path, digest, 20));
    char hex[41];
    for (int i = 0; i < 20; ++i) std::snprintf(hex + 2 * i, 3, "%02x", digest[i]);
    // sha1sum of "abcde" x 1000.
    EXPECT_STREQ("052a022499a04de5e03e6283306159db6f963f03", hex);

    BYTE small[16];
    EXPECT_EQ(E_INVALIDARG, CApp::HashFileContents(path, small, 16));
    ::DeleteFileW(path);
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), CApp::HashFileContents(path, digest, 20));
}

TEST_F(AppTest, TimersCountMillisecondsAndTenthsOfMilliseconds) {
    CApp app;
    app.ResetTimer();
    ::Sleep(60);
    int micro = app.GetMicroElapsedTime();
    int milli = app.GetElapsedTime();
    EXPECT_GE(milli, 50);
    EXPECT_GE(micro, 500);
    EXPECT_NEAR(micro / 10, milli, 2);
}

TEST_F(AppTest, PumpMessageOffersKeysToTheTargetAndItsAncestorsFirst) {
    CApp app;
    struct KeyEater : ProbeWnd {
        int eaten = 0;
        BOOL PreTranslateMessage(MSG& msg) override {
            if (msg.message != WM_KEYDOWN || msg.wParam != 'Q') return FALSE;
            ++eaten;
            return TRUE;
        }
    } parent;
    Testing::CreateProbe(parent);
    HWND child = Testing::CreatePlainWindow(parent.GetHwnd(), WS_CHILD);
    ProbeWnd childObject;
    childObject.SubclassWnd(child);
    int childKeys = 0;
    childObject.wndProc = [&](UINT msg, WPARAM, LPARAM, LRESULT&) {
        if (msg == WM_KEYDOWN) ++childKeys;
        return FALSE;
    };

    auto pumpOne = [&](HWND target, UINT message, WPARAM w, HACCEL accelerators = nullptr) {
        ::PostMessageW(target, message, w, 0);
        MSG msg;
        while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) app.PumpMessage(msg, parent, accelerators);
    };
    pumpOne(child, WM_KEYDOWN, 'Q');
    EXPECT_EQ(1, parent.eaten);
    EXPECT_EQ(0, childKeys);
    pumpOne(child, WM_KEYDOWN, 'W');
    EXPECT_EQ(1, childKeys);

    // Accelerators become WM_COMMAND for the main window.
    ACCEL accel = {FVIRTKEY, VK_F5, 4242};
    HACCEL table = ::CreateAcceleratorTableW(&accel, 1);
    UINT command = 0;
    parent.onCommand = [&](UINT w, LPARAM) { command = LOWORD(w); return TRUE; };
    pumpOne(child, WM_KEYDOWN, VK_F5, table);
    EXPECT_EQ(4242u, command);
    ::DestroyAcceleratorTable(table);
    childObject.Detach();
    ::DestroyWindow(child);
}

namespace {

// A main frame that ends the loop at its first timer.
class TimerFrame : public CFrameWndEx {
public:
    TimerFrame() : CFrameWndEx(L"VelkanLoopTestFrame") {}
    BOOL WndProc(UINT msg, WPARAM w, LPARAM l, LRESULT& r) override {
        if (msg == WM_TIMER) ::PostQuitMessage(0);
        return CFrameWndEx::WndProc(msg, w, l, r);
    }
};

}  // namespace

TEST_F(AppTest, TheLoopFreesTemporariesWhenIdleAndEndsAtWmQuit) {
    CApp app;
    TimerFrame main;
    ASSERT_NE(nullptr, main.Create());
    HWND foreign = Testing::CreatePlainWindow();
    CWnd::CleanUpTempObjects();
    CWnd::FromHwnd(foreign);
    EXPECT_EQ(1u, std::get<0>(CWnd::GetContextInfo()));

    // WM_NULL is dispatched into an empty queue: idle. The timer fires
    // later and ends the loop.
    ::PostMessageW(main.GetHwnd(), WM_NULL, 0, 0);
    main.SetTimer(1, 50);
    app.RunLoop(main);
    main.KillTimer(1);
    EXPECT_EQ(0u, std::get<0>(CWnd::GetContextInfo()));

    // No clean-up while more messages wait.
    CWnd::FromHwnd(foreign);
    ::PostMessageW(main.GetHwnd(), WM_NULL, 0, 0);
    ::PostMessageW(main.GetHwnd(), WM_NULL, 0, 0);
    MSG msg;
    ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);
    app.PumpMessage(msg, main, nullptr);
    EXPECT_EQ(1u, std::get<0>(CWnd::GetContextInfo()));
    ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);
    app.PumpMessage(msg, main, nullptr);
    EXPECT_EQ(0u, std::get<0>(CWnd::GetContextInfo()));
    ::DestroyWindow(foreign);
    // The frame's death posts WM_QUIT; it must not end a later loop.
    main.Destroy();
    MSG quit;
    EXPECT_TRUE(::PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST(AppModeless, TheActiveModelessDialogBelongsToItsThread) {
    HWND mine = reinterpret_cast<HWND>(0x1234);
    CApp::SetActiveModelessDialog(mine);
    HWND seenByOther = mine;
    std::thread([&] { seenByOther = CApp::GetActiveModelessDialog(); }).join();
    EXPECT_EQ(nullptr, seenByOther);
    EXPECT_EQ(mine, CApp::GetActiveModelessDialog());
    CApp::SetActiveModelessDialog(nullptr);
}
