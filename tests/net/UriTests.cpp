#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>

#include "velkan/net/QueryStringBuilder.h"
#include "velkan/net/Uri.h"

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

// Generated and mutated URLs: Parse returns or throws invalid_argument.
TEST(Uri, SurvivesGeneratedAndMutatedText) {
    std::mt19937 random(99);
    const std::wstring seeds[] = {L"https://host:8080/a/b?x=1&y=2#top", L"http://h", L"ftp://a.b/c?d#e"};
    const wchar_t alphabet[] = L":/?#@[]%&=.-_~ aZ09\x00e9\x20ac\xD83D";
    int parsed = 0;
    for (int round = 0; round < 5000; ++round) {
        std::wstring text = seeds[random() % 3];
        const int edits = 1 + random() % 6;
        for (int i = 0; i < edits; ++i) {
            size_t pos = text.empty() ? 0 : random() % (text.size() + 1);
            switch (random() % 3) {
            case 0: text.insert(pos, 1, alphabet[random() % (sizeof(alphabet) / sizeof(wchar_t) - 1)]); break;
            case 1: if (!text.empty() && pos < text.size()) text.erase(pos, 1); break;
            default: if (pos < text.size()) text[pos] = alphabet[random() % (sizeof(alphabet) / sizeof(wchar_t) - 1)];
            }
        }
        try {
            CUri uri = CUri::Parse(text.c_str());
            ++parsed;
            // The parts are the text's own, in order.
            const std::wstring head = S(uri.GetScheme()) + L"://" + S(uri.GetHost());
            ASSERT_EQ(0u, text.find(head)) << CString(text.c_str()).GetUtf8String();
            ASSERT_FALSE(uri.GetPathAndQuery().IsNull());
        } catch (const std::invalid_argument&) {
        }
    }
    EXPECT_GT(parsed, 100);
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
