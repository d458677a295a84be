// Test programs of windows, dialogs, menus and bars run inside an
// application object: it starts GDI+, and windows use its instance, help
// and registry settings. Its settings key (from the program's string table)
// is removed before and after the run. After every test no dialog and no
// visible window of the thread may be left.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "velkan/app/App.h"

namespace {

std::wstring SettingsKey() {
    wchar_t company[64] = {}, application[64] = {};
    ::LoadStringW(::GetModuleHandleW(nullptr), 0xE002, company, 64);
    ::LoadStringW(::GetModuleHandleW(nullptr), 0xE000, application, 64);
    return std::wstring(L"Software\\") + company + L"\\" + application;
}

class AppEnvironment : public testing::Environment {
public:
    void SetUp() override {
        ::RegDeleteTreeW(HKEY_CURRENT_USER, SettingsKey().c_str());
        m_app = std::make_unique<Velkan::CApp>();
    }
    void TearDown() override {
        m_app.reset();
        ::RegDeleteTreeW(HKEY_CURRENT_USER, SettingsKey().c_str());
    }

private:
    std::unique_ptr<Velkan::CApp> m_app;
};

std::wstring Text(HWND hwnd) {
    wchar_t text[256] = {};
    ::GetWindowTextW(hwnd, text, 256);
    return text;
}

BOOL CALLBACK CollectLeftovers(HWND hwnd, LPARAM list) {
    wchar_t name[16] = {};
    ::GetClassNameW(hwnd, name, 16);
    if (::IsWindowVisible(hwnd) || std::wstring(name) == L"#32770")
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
    return TRUE;
}

class LeftoverWindows : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& test) override {
        std::vector<HWND> left;
        ::EnumThreadWindows(::GetCurrentThreadId(), &CollectLeftovers, reinterpret_cast<LPARAM>(&left));
        for (HWND hwnd : left) {
            ADD_FAILURE() << test.name() << " left a window behind: \"" << Text(hwnd) << "\"";
            ::DestroyWindow(hwnd);
        }
    }
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new AppEnvironment);

struct ListenerRegistration {
    ListenerRegistration() { testing::UnitTest::GetInstance()->listeners().Append(new LeftoverWindows); }
} registration;

}  // namespace
