#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "velkan/core/StringUtils.h"

using namespace Velkan::StringUtils;

TEST(StringUtils, Utf8RoundTripsNonAsciiTextAndSurrogatePairs) {
    const std::wstring text = L"Gr\x00fc\x00df \x65e5\x672c \xD83D\xDE00!";
    const std::string standard = "Gr\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80!";
    EXPECT_EQ(text, Utf8ToWide(standard));

    // Unit by unit: the pair becomes two three-byte sequences.
    const std::string unitwise = WideToUtf8(L"\xD83D\xDE00");
    EXPECT_EQ("\xED\xA0\xBD\xED\xB8\x80", unitwise);
    EXPECT_EQ(6u, unitwise.size());
    EXPECT_EQ("Gr\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC ", WideToUtf8(text.substr(0, 8)));
    EXPECT_EQ(std::wstring(L"\x7F\x80\x7FF\x800\xFFFF", 5), Utf8ToWide(WideToUtf8(std::wstring(L"\x7F\x80\x7FF\x800\xFFFF", 5))));
    EXPECT_EQ(L"", Utf8ToWide(""));
}

TEST(StringUtils, InvalidUtf8IsRejected) {
    const char* invalid[] = {
        "\x80",              // stray continuation
        "\xC3",              // truncated
        "\xE6\x97",          // truncated
        "\xC0\xAF",          // overlong
        "\xE0\x80\xAF",      // overlong
        "\xED\xA0\x80",      // encoded surrogate
        "\xF4\x90\x80\x80",  // past U+10FFFF
        "\xFF",              // never valid
        "ok\xC3(",           // bad continuation
    };
    for (const char* bytes : invalid) EXPECT_THROW(Utf8ToWide(bytes), std::invalid_argument) << bytes;
}

TEST(StringUtils, AnsiConversionsFollowTheCodePage) {
    // Latin-1 letters exist in the default ANSI code page of the tests.
    const std::wstring latin = L"caf\x00e9 na\x00efve";
    EXPECT_EQ(latin, AnsiToWide(WideToAnsi(latin, false)));
    // CJK is not in that code page: replaced, not converted.
    const std::string cjk = WideToAnsi(L"\x65e5", false);
    EXPECT_EQ(1u, cjk.size());
    EXPECT_NE(L"\x65e5", AnsiToWide(cjk));
    EXPECT_EQ("", WideToAnsi(L"", true));
}

TEST(StringUtils, FormattingUsesWidePercentS) {
    EXPECT_EQ(L"wide=x narrow=y 42", WideStringFormat(L"wide=%s narrow=%S %d", L"x", "y", 42));
    std::wstring big(5000, L'z');
    EXPECT_EQ(big + L"!", WideStringFormat(L"%s!", big.c_str()));
}
