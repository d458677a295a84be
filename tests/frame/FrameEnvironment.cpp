// The frame tests run inside an application object: it starts GDI+ and
// the common controls, and is the default resource instance. After every
// test no visible window may be left.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "velkan/app/App.h"

namespace {

class AppEnvironment : public testing::Environment {
public:
    void SetUp() override { m_app = std::make_unique<Velkan::CApp>(); }
    void TearDown() override {
        m_app.reset();
        ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VelkanTestCompany\\VelkanFrameTests");
    }

private:
    std::unique_ptr<Velkan::CApp> m_app;
};

BOOL CALLBACK CollectVisible(HWND hwnd, LPARAM list) {
    if (::IsWindowVisible(hwnd)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
    return TRUE;
}

class LeftoverWindows : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& test) override {
        std::vector<HWND> left;
        ::EnumThreadWindows(::GetCurrentThreadId(), &CollectVisible, reinterpret_cast<LPARAM>(&left));
        for (HWND hwnd : left) {
            ADD_FAILURE() << test.name() << " left a visible window behind";
            ::DestroyWindow(hwnd);
        }
    }
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new AppEnvironment);

struct ListenerRegistration {
    ListenerRegistration() { testing::UnitTest::GetInstance()->listeners().Append(new LeftoverWindows); }
} registration;

}  // namespace
