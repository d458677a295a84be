// The graphics tests run inside an application object: it starts GDI+.
#include <gtest/gtest.h>

#include <memory>

#include "velkan/app/App.h"

namespace {

class AppEnvironment : public testing::Environment {
public:
    void SetUp() override { m_app = std::make_unique<Velkan::CApp>(); }
    void TearDown() override {
        m_app.reset();
        ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VelkanTestCompany\\VelkanGfxTests");
    }

private:
    std::unique_ptr<Velkan::CApp> m_app;
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new AppEnvironment);

}  // namespace
