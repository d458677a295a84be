// The app tests' program. Started with --app-child it is a second process
// of the same application instead: it makes an application object and
// reports what it saw in its exit code.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "AppChild.h"
#include "velkan/app/App.h"

int main(int argc, char** argv) {
    if (argc >= 2 && std::strcmp(argv[1], "--app-child") == 0) {
        Velkan::CApp app;
        int code = 0;
        if (app.IsFirstRun()) code |= Testing::kChildSawFirstRun;
        if (app.AlreadyRunning()) code |= Testing::kChildSawAlreadyRunning;
        return code;
    }
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
