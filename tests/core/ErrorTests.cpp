#include <gtest/gtest.h>

#include <string>

#include "TestText.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/Win32Error.h"

using namespace Velkan;

namespace {

// What the system table (or a module) says for a code, trimmed, for
// comparison with CWin32Error's own look-up.
std::wstring SystemText(DWORD code, HMODULE module) {
    wchar_t buffer[256] = {};
    DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    if (module != nullptr) flags |= FORMAT_MESSAGE_FROM_HMODULE;
    if (FormatMessageW(flags, module, code, 0, buffer, 256, nullptr) == 0) return L"unknown_error";
    std::wstring text(buffer);
    const wchar_t* blanks = L" \t\r\n";
    text.erase(text.find_last_not_of(blanks) + 1);
    text.erase(0, text.find_first_not_of(blanks));
    return text;
}

std::wstring W(const CString& s) {
    return s.IsNull() ? L"<null>" : std::wstring(s.GetString());
}

}  // namespace

TEST(Win32Error, SystemTextsAreTrimmedAndUnknownCodesSaySo) {
    CWin32Error notFound(ERROR_FILE_NOT_FOUND, nullptr);
    EXPECT_EQ(2u, notFound.GetErrorCode());
    const CString& text = notFound.GetErrorMessage();
    ASSERT_FALSE(text.IsNullOrEmpty());
    EXPECT_NE(L"unknown_error", W(text));
    EXPECT_FALSE(text.EndsWith(L'\n'));
    EXPECT_FALSE(text.EndsWith(L' '));
    EXPECT_FALSE(text.StartsWith(L' '));
    EXPECT_EQ(SystemText(2, nullptr), W(text));

    EXPECT_EQ(L"unknown_error", W(CWin32Error(0x20001234, nullptr).GetErrorMessage()));

    SetLastError(ERROR_ACCESS_DENIED);
    CWin32Error last;
    EXPECT_EQ(5u, last.GetErrorCode());
    EXPECT_EQ(SystemText(5, nullptr), W(last.GetErrorMessage()));

    CWin32Error given(42, L"my own text");
    EXPECT_EQ(L"my own text", W(given.GetErrorMessage()));
    CWin32Error copy(given);
    CWin32Error moved(std::move(given));
    EXPECT_EQ(42u, moved.GetErrorCode());
    EXPECT_EQ(L"my own text", W(copy.GetErrorMessage()));
}

TEST(Win32Error, InternetCodesComeFromTheLoadedInternetModule) {
    HMODULE wininet = LoadLibraryW(L"wininet.dll");
    ASSERT_NE(nullptr, wininet);
    const DWORD cannotConnect = 12029;
    std::wstring expected = SystemText(cannotConnect, wininet);
    ASSERT_NE(L"unknown_error", expected);
    EXPECT_EQ(expected, W(CWin32Error(cannotConnect, nullptr).GetErrorMessage()));
    EXPECT_EQ(expected, W(CWin32Error(cannotConnect, wininet).GetErrorMessage()));

    // 12190 is past the internet range: only the system table is asked.
    EXPECT_EQ(SystemText(12190, nullptr), W(CWin32Error(12190, nullptr).GetErrorMessage()));

    // Network-management codes fall back to the system table when there is
    // no netmsg.dll; either way some text or "unknown_error" results.
    CWin32Error network(2102, nullptr);
    EXPECT_FALSE(network.GetErrorMessage().IsNullOrEmpty());
    FreeLibrary(wininet);
}

TEST(Exceptions, MessagesAndIdentifiers) {
    CResourceNotFoundException byId(101);
    EXPECT_STREQ("Win32 resource not found: 101", byId.what());
    EXPECT_EQ(L"101", W(byId.GetResourceId()));

    CResourceNotFoundException big(4294967295u);
    EXPECT_STREQ("Win32 resource not found: 4294967295", big.what());

    CResourceNotFoundException byName(L"Gr\u00FC\u00DFe.png");
    EXPECT_STREQ("Win32 resource not found: Gr\xC3\xBC\xC3\x9F" "e.png", byName.what());
    EXPECT_EQ(L"Gr\u00FC\u00DFe.png", W(byName.GetResourceId()));

    CResourceNotFoundException byIntResource(MAKEINTRESOURCEW(7));
    EXPECT_STREQ("Win32 resource not found: 7", byIntResource.what());
    EXPECT_EQ(L"7", W(byIntResource.GetResourceId()));

    std::string custom = "custom text";
    CResourceNotFoundException withMessage(9, custom);
    EXPECT_STREQ("custom text", withMessage.what());
    EXPECT_EQ(L"9", W(withMessage.GetResourceId()));
    CResourceNotFoundException copy = withMessage;
    EXPECT_STREQ("custom text", copy.what());
    EXPECT_EQ(L"9", W(copy.GetResourceId()));

    CHResultException failed(static_cast<HRESULT>(0x80004005), "Failed");
    EXPECT_STREQ("Failed: -2147467259", failed.what());
    EXPECT_EQ(static_cast<HRESULT>(0x80004005), failed.GetHResult());
    EXPECT_STREQ("Ok: 1", CHResultException(S_FALSE, "Ok").what());

    EXPECT_STREQ("Unknown exception", CRuntimeException(static_cast<const char*>(nullptr)).what());
    EXPECT_STREQ("plain", CRuntimeException(std::string("plain")).what());
}

TEST(Exceptions, HttpRequestExceptionCarriesTheErrorsCodeAndText) {
    CHttpRequestException fromError(CWin32Error(1344, L"Content length exceeded maximum configured"));
    EXPECT_EQ(1344u, fromError.code());
    EXPECT_STREQ("Content length exceeded maximum configured", fromError.what());

    CHttpRequestException direct(12029, "cannot connect");
    CHttpRequestException copy(direct);
    EXPECT_EQ(12029u, copy.code());
    EXPECT_STREQ("cannot connect", copy.what());

    // It is a runtime error but not one of the library's runtime exceptions.
    bool caughtAsRuntimeError = false;
    try {
        throw direct;
    } catch (const CRuntimeException&) {
        FAIL() << "must not derive from CRuntimeException";
    } catch (const std::runtime_error& e) {
        caughtAsRuntimeError = true;
        EXPECT_STREQ("cannot connect", e.what());
    }
    EXPECT_TRUE(caughtAsRuntimeError);
}
