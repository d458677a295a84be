#include <gtest/gtest.h>

#include "velkan/app/App.h"
#include "velkan/app/Wnd.h"

using namespace Velkan;

TEST(BadInput, RegistryQueriesWithNowhereToPutTheValueFail) {
    CApp app;
    app.RegWriteDWORD(L"BadInput", L"Value", 5);
    EXPECT_FALSE(app.RegQueryDWORD(L"BadInput", L"Value", nullptr));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_PARAMETER), ::GetLastError());
    EXPECT_FALSE(app.RegQueryInt(L"BadInput", L"Value", nullptr));
    EXPECT_FALSE(app.RegQueryBOOL(L"BadInput", L"Value", nullptr));
    EXPECT_FALSE(app.RegQueryWORD(L"BadInput", L"Value", nullptr));
    EXPECT_FALSE(app.RegQueryLONG(L"BadInput", L"Value", nullptr));
    EXPECT_EQ(0, app.RegQueryString(L"BadInput", L"Value", static_cast<wchar_t*>(nullptr), 40));
    EXPECT_FALSE(app.RegQueryBinary(L"BadInput", L"Value", nullptr, 4));
    // The value itself is still there for a real output.
    DWORD value = 0;
    EXPECT_TRUE(app.RegQueryDWORD(L"BadInput", L"Value", &value));
    EXPECT_EQ(5u, value);
    app.RegDeleteSection(L"BadInput");
}

TEST(BadInput, AWindowOfTheLibrarysClassWithoutAnObjectGetsDefaultHandling) {
    CApp app;
    // Registers the class through an object first.
    CWnd registered;
    ASSERT_NE(nullptr, registered.CreateEx(0, L"VlkWnd", L"first", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));
    HWND orphan = ::CreateWindowExW(0, L"VlkWnd", L"orphan", WS_POPUP, 0, 0, 30, 20, nullptr, nullptr,
                                    ::GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(nullptr, orphan);
    EXPECT_EQ(nullptr, CWnd::FindByHandle(orphan));
    wchar_t text[16] = {};
    ::GetWindowTextW(orphan, text, 16);
    EXPECT_STREQ(L"orphan", text);
    ::ShowWindow(orphan, SW_SHOW);
    ::UpdateWindow(orphan);
    EXPECT_TRUE(::DestroyWindow(orphan));
    registered.Destroy();
}
