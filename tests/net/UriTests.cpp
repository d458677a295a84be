#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <random>
#include <regex>
#include <stdexcept>
#include <string>

#include "velkan/net/QueryStringBuilder.h"
#include "velkan/net/Uri.h"
#include "support/Fuzz.h"

using namespace Velkan;

namespace {

std::wstring S(const CString& s) {
    return s.IsNull() ? L"<null>" : std::wstring(s.GetString());
}

}  // namespace

// scheme|host|port|path|query|fragment, then the request target.
std::wstring Parts(const wchar_t* text) {
    const CUri uri = CUri::Parse(text);
    return S(uri.GetScheme()) + L"|" + S(uri.GetHost()) + L"|" + S(uri.GetPort()) + L"|" + S(uri.GetPath()) + L"|" +
           S(uri.GetQuery()) + L"|" + S(uri.GetFragment()) + L" -> " + S(uri.GetPathAndQuery());
}

TEST(Uri, SplitsIntoSixPartsAsWritten) {
    EXPECT_EQ(L"https|host|8080|/a/b|x=1&y=2|top -> /a/b?x=1&y=2", Parts(L"https://host:8080/a/b?x=1&y=2#top"));
    EXPECT_EQ(L"http|host|||| -> ", Parts(L"http://host"));
    EXPECT_EQ(L"http|host|||q| -> ?q", Parts(L"http://host?q"));
    // No interpretation: case kept, user info stays in the host, a query
    // may hold "?", the fragment takes the rest.
    EXPECT_EQ(L"HTTP|user@Host||/p%20q|a?b|c#d -> /p%20q?a?b", Parts(L"HTTP://user@Host/p%20q?a?b#c#d"));
    EXPECT_TRUE(CUri().GetHost().IsNull());
}

TEST(Uri, RejectsWhatDoesNotMatchAsAWhole) {
    for (const wchar_t* text : {L"host/path", L"http://:80/", L"http://host:8x/", L"", L"http:/host",
                                L"http://[::1]/", L"http://host:/", L"://host"}) {
        try {
            CUri::Parse(text);
            ADD_FAILURE() << "accepted " << CString(text).GetUtf8String();
        } catch (const std::invalid_argument& e) {
            EXPECT_STREQ("Invalid Uri", e.what());
        }
    }
    EXPECT_THROW(CUri::Parse(nullptr), std::invalid_argument);
}

namespace {

// The grammar as a regular expression, with \d spelled [0-9]: the oracle
// the parser must agree with on texts short enough for a regex engine.
std::wstring Oracle(const std::wstring& text) {
    static const std::wregex expression(
        L"([^:/?#]+):\\/\\/([^:/?#]+)(?::([0-9]+))?(\\/[^?#]*)?(?:\\?([^#]*))?(?:#(.*))?",
        std::regex_constants::ECMAScript);
    std::wsmatch match;
    if (!std::regex_match(text, match, expression)) return L"invalid";
    std::wstring parts;
    for (size_t i = 1; i <= 6; ++i) parts += (match[i].matched ? match[i].str() : std::wstring()) + L"|";
    return parts;
}

std::wstring Parsed(const std::wstring& text) {
    try {
        const CUri uri = CUri::Parse(text.c_str());
        return S(uri.GetScheme()) + L"|" + S(uri.GetHost()) + L"|" + S(uri.GetPort()) + L"|" + S(uri.GetPath()) +
               L"|" + S(uri.GetQuery()) + L"|" + S(uri.GetFragment()) + L"|";
    } catch (const std::invalid_argument&) {
        return L"invalid";
    }
}

DWORD WINAPI ParseOnSmallStack(LPVOID text) {
    return Parsed(*static_cast<const std::wstring*>(text)) == L"invalid" ? 1 : 0;
}

}  // namespace

// Generated and mutated URLs give the same six parts, or the same refusal,
// as the expression. The seed is printed (VELKAN_FUZZ_SEED picks another);
// VELKAN_FUZZ_ROUNDS runs longer.
TEST(Uri, AgreesWithTheExpressionOnGeneratedAndMutatedText) {
    const Testing::FuzzRun run = Testing::FuzzSettings("URI differential", 20000);
    const int count = run.rounds;
    std::mt19937 random(run.seed);
    const std::wstring seeds[] = {L"https://host:8080/a/b?x=1&y=2#top", L"http://h", L"ftp://a.b/c?d#e",
                                  L"x://u@h:1?#"};
    const wchar_t alphabet[] = L":/?#@[]%&=.-_~ aZ09\x00e9\x20ac\xD83D\x00b2\x0663\xff11\n\r\x2028";
    const size_t letters = sizeof(alphabet) / sizeof(wchar_t) - 1;
    int agreed = 0, valid = 0;
    for (int round = 0; round < count; ++round) {
        std::wstring text = seeds[random() % 4];
        const int edits = 1 + random() % 6;
        for (int i = 0; i < edits; ++i) {
            const size_t pos = text.empty() ? 0 : random() % (text.size() + 1);
            switch (random() % 3) {
            case 0: text.insert(pos, 1, alphabet[random() % letters]); break;
            case 1: if (pos < text.size()) text.erase(pos, 1); break;
            default: if (pos < text.size()) text[pos] = alphabet[random() % letters];
            }
        }
        const std::wstring expected = Oracle(text);
        ASSERT_EQ(expected, Parsed(text)) << "seed " << run.seed << ", round " << round;
        ++agreed;
        if (expected != L"invalid") ++valid;
    }
    EXPECT_EQ(count, agreed);
    EXPECT_GT(valid, count / 50);
}

TEST(Uri, LongTextsAndOtherScriptsDigits) {
    // A part of many thousand units on a 1 MiB stack: no recursion per
    // character, so no stack overflow.
    std::wstring longText = L"http://h/" + std::wstring(200000, L'p') + L"?" + std::wstring(50000, L'q');
    HANDLE thread = ::CreateThread(nullptr, 1 << 20, &ParseOnSmallStack, &longText, STACK_SIZE_PARAM_IS_A_RESERVATION,
                                   nullptr);
    ASSERT_NE(nullptr, thread);
    ::WaitForSingleObject(thread, INFINITE);
    DWORD code = 99;
    ::GetExitCodeThread(thread, &code);
    ::CloseHandle(thread);
    EXPECT_EQ(0u, code);
    std::wstring badLong = L"http://h:" + std::wstring(100000, L'1') + L"x";
    EXPECT_EQ(L"invalid", Parsed(badLong));
    EXPECT_EQ(L"http|h|" + std::wstring(100000, L'1') + L"|||x|", Parsed(L"http://h:" + std::wstring(100000, L'1') + L"#x"));

    // A port is ASCII digits only.
    for (const wchar_t* text : {L"http://h:\x00b2/", L"http://h:\x0663/", L"http://h:\xff11/"})
        EXPECT_EQ(L"invalid", Parsed(text));
    // "." stops at line breaks, "[^#]" does not.
    EXPECT_EQ(L"invalid", Parsed(L"http://h/#a\nb"));
    EXPECT_EQ(L"http|h||/a\nb|q\r||", Parsed(L"http://h/a\nb?q\r"));
}

TEST(QueryString, EncodesEachUtf16UnitOfTheValues) {
    CQueryStringBuilder builder;
    builder.WithParam(L"a", L"1").WithParam(L"b", L"").WithParam(L"c", CString());
    EXPECT_EQ(L"a=1&b=&c=", S(builder.Build()));

    CQueryStringBuilder values;
    values.WithParam(L"q", L"a b&c").WithParam(L"e", L"\x00e9").WithParam(L"euro", L"\x20ac")
          .WithParam(L"keep", L"-_.~Az9").WithParam(L"q", L"again");
    EXPECT_EQ(L"q=a%20b%26c&e=%E9&euro=%20AC&keep=-_.~Az9&q=again", S(values.Build()));
    EXPECT_EQ(L"", S(CQueryStringBuilder().Build()));
}

// Random values of any units against a reference encoder written from the
// wire form: ASCII letters, digits and "-_.~" as they are, every other unit
// as "%" and its value in at least two upper-case hex digits.
TEST(QueryString, AgreesWithAReferenceEncoder) {
    const Testing::FuzzRun run = Testing::FuzzSettings("query string differential", 3000);
    std::mt19937 random(run.seed);
    const auto encode = [](const std::wstring& value) {
        std::wstring out;
        for (wchar_t unit : value) {
            if ((unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z') || (unit >= L'0' && unit <= L'9') ||
                std::wcschr(L"-_.~", unit) != nullptr) {
                out += unit;
            } else {
                wchar_t hex[8];
                std::swprintf(hex, 8, L"%%%02X", static_cast<unsigned>(unit));
                out += hex;
            }
        }
        return out;
    };
    for (int round = 0; round < run.rounds; ++round) {
        CQueryStringBuilder builder;
        std::wstring expected;
        for (int i = 0, count = static_cast<int>(random() % 4); i < count; ++i) {
            const std::wstring name(1 + random() % 3, static_cast<wchar_t>(L'a' + random() % 26));
            std::wstring value(random() % 6, L'x');
            for (wchar_t& unit : value) {
                switch (random() % 3) {
                case 0: unit = static_cast<wchar_t>(1 + random() % 0x7F); break;
                case 1: unit = static_cast<wchar_t>(0x80 + random() % 0x80); break;
                default: unit = static_cast<wchar_t>(0x100 + random() % 0xFF00); break;
                }
            }
            builder.WithParam(name.c_str(), value.c_str());
            if (!expected.empty()) expected += L'&';
            expected += name + L'=' + encode(value);
        }
        ASSERT_EQ(expected, S(builder.Build())) << "seed " << run.seed << ", round " << round;
    }
}
