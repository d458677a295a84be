#include <gtest/gtest.h>

#include <stdexcept>

#include "TestText.h"
#include "velkan/app/NotificationCenter.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/Resource.h"

using namespace Velkan;

// These prove that the DLL and the host share one C++ runtime: exceptions
// thrown inside velkan.dll reach the host's handlers, and host exceptions
// unwind through the DLL's frames.

TEST(RuntimeBoundary, ExceptionThrownInsideTheDllIsCaughtByTypeInTheHost) {
    try {
        CResourceString missing(999);
        FAIL() << "a missing string must throw";
    } catch (const CResourceNotFoundException& e) {
        EXPECT_STREQ("Win32 resource not found: 999", e.what());
        EXPECT_EQ(CString(L"999"), e.GetResourceId());
    }

    EXPECT_THROW(CResourceLoader::LoadData(L"NO_SUCH_THING", MAKEINTRESOURCEW(10)), std::runtime_error);
}

TEST(RuntimeBoundary, HostExceptionUnwindsThroughTheDll) {
    struct Thrower : IObservable {
        void OnNotify(CNotification&) override { throw std::logic_error("from the host"); }
    } thrower;
    CNotificationCenter center;
    center.AddObserver(L"boom", thrower);
    try {
        center.PostNotification(L"boom", nullptr, 0);
        FAIL() << "the observer's exception must reach the poster";
    } catch (const std::logic_error& e) {
        EXPECT_STREQ("from the host", e.what());
    }
    // The center still works after the unwinding.
    center.RemoveObserver(thrower);
    center.PostNotification(L"boom", nullptr, 0);
}

TEST(Resources, StringsLoadFromTheExecutablesTable) {
    EXPECT_EQ(CString(L"Hello from the string table"), CResourceString(100));
    EXPECT_EQ(CString(L"Gr\u00FC\u00DF" L"e, \u4E16\u754C"), CResourceString(101));
    // 117 sits in the same block as 100 and 101, after unused entries.
    EXPECT_EQ(CString(L"Seventeenth"), CResourceLoader::LoadText(117));

    CString text(L"unchanged");
    EXPECT_FALSE(CResourceLoader::TryLoadText(102, text));
    EXPECT_FALSE(CResourceLoader::TryLoadText(5000, text));
    EXPECT_EQ(CString(L"unchanged"), text);

    EXPECT_EQ(GetModuleHandleW(nullptr), CResourceLoader::ResolveInstance(nullptr));
    HMODULE self = GetModuleHandleW(nullptr);
    EXPECT_EQ(CString(L"Seventeenth"), CResourceString(117, self));
}
