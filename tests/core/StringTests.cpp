#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cwctype>
#include <random>
#include <string>

#include "TestText.h"
#include "support/Fuzz.h"
#include "velkan/core/String.h"

using Velkan::CString;

using Testing::W;

TEST(StringStates, NullEmptyAndTextAreDistinct) {
    CString def;
    EXPECT_TRUE(def.IsNull());
    EXPECT_TRUE(def.IsEmpty());
    EXPECT_EQ(0, def.GetCapacity());
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(def));

    CString empty(L"");
    EXPECT_FALSE(empty.IsNull());
    EXPECT_TRUE(empty.IsNullOrEmpty());
    EXPECT_EQ(1, empty.GetCapacity());

    CString reserved(0);
    EXPECT_FALSE(reserved.IsNull());
    EXPECT_EQ(1, reserved.GetCapacity());
    EXPECT_TRUE(CString(-1).IsNull());

    CString fromNullWide(static_cast<const wchar_t*>(nullptr));
    CString fromNullNarrow(static_cast<const char*>(nullptr));
    EXPECT_TRUE(fromNullWide.IsNull());
    EXPECT_TRUE(fromNullNarrow.IsNull());

    CString text(L"abc");
    text.SetEmpty();
    EXPECT_FALSE(text.IsNull());
    EXPECT_EQ(0, text.GetLength());
    EXPECT_EQ(4, text.GetCapacity());  // the buffer is kept
    def.SetEmpty();
    EXPECT_TRUE(def.IsNull());
    text.SetNull();
    EXPECT_TRUE(text.IsNull());
    EXPECT_EQ(0, text.GetCapacity());
}

TEST(StringStates, AllocationFailureMakesTheStringNullInsteadOfThrowing) {
    // A unit count whose terminator does not fit an int is refused everywhere.
    EXPECT_TRUE(CString(INT_MAX).IsNull());
    CString n(L"abc");
    EXPECT_EQ(nullptr, n.LockBuffer(INT_MAX));
    EXPECT_TRUE(n.IsNull());

#if defined(_WIN64)
    // Four gigabytes are an ordinary allocation in a 64-bit process: the
    // byte count must not be computed in 32 bits, and both ends are usable.
    CString huge(INT_MAX - 1);
    ASSERT_FALSE(huge.IsNull());
    EXPECT_EQ(INT_MAX, huge.GetCapacity());
    wchar_t* units = huge.LockBuffer(INT_MAX - 1);
    ASSERT_NE(nullptr, units);
    units[INT_MAX - 1] = L'z';
    units[0] = L'a';
    units[1] = L'\0';
    huge.UnlockBuffer();
    EXPECT_EQ(1, huge.GetLength());
    EXPECT_EQ(L'z', huge.GetString()[INT_MAX - 1]);
#else
    // Two gigabytes of units do not fit a 32-bit process next to its code.
    CString huge(INT_MAX - 1);
    EXPECT_TRUE(huge.IsNull());

    CString s(L"abc");
    EXPECT_EQ(nullptr, s.LockBuffer(INT_MAX - 2));
    EXPECT_TRUE(s.IsNull());

    CString t(L"abc");
    t.Append(L'x', INT_MAX - 3);
    EXPECT_TRUE(t.IsNull());
#endif

    // A string that failed can be used again.
    n = L"again";
    EXPECT_EQ(L"again", W(n));
}

TEST(StringNullContagion, NullStaysNullAndNullArgumentsMakeNull) {
    CString n;
    n.Append(L"x").Append(L'y').Append("z").AppendLine(L"w").AppendFormat(L"%d", 1);
    EXPECT_TRUE(n.IsNull());
    n += L"more";
    EXPECT_TRUE(n.IsNull());
    EXPECT_TRUE((n + L"tail").IsNull());

    CString a(L"abc");
    a.Append(static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(a.IsNull());

    CString b(L"abc");
    b.Append(L"xyz", 0);
    EXPECT_EQ(L"abc", W(b));
    b.Append(static_cast<const char*>(nullptr));
    EXPECT_TRUE(b.IsNull());

    CString c(L"abc");
    c.AppendFormat(nullptr);
    EXPECT_TRUE(c.IsNull());

    CString d(L"abc");
    d.AppendLine(nullptr);  // the null text wins over the line break
    EXPECT_TRUE(d.IsNull());
}

TEST(StringCapacity, StorageIsExactFitAndNeverShrinks) {
    CString s(L"abc");
    EXPECT_EQ(4, s.GetCapacity());
    s.Append(L"de");
    EXPECT_EQ(6, s.GetCapacity());
    s.Append(L'f');
    EXPECT_EQ(7, s.GetCapacity());
    s.Append(L'-', 3);
    EXPECT_EQ(L"abcdef---", W(s));
    EXPECT_EQ(10, s.GetCapacity());

    s = L"x";  // shorter text reuses the buffer
    EXPECT_EQ(10, s.GetCapacity());
    EXPECT_EQ(1, s.GetLength());

    CString copy(s);  // copies are exact fit again
    EXPECT_EQ(2, copy.GetCapacity());

    CString reserved(50);
    reserved.Append(L"0123456789");
    EXPECT_EQ(51, reserved.GetCapacity());

    s.Format(L"%d", 7);
    EXPECT_EQ(10, s.GetCapacity());
    s.Format(L"%s", L"a text longer than ten units");
    EXPECT_EQ(29, s.GetCapacity());
}

TEST(StringCapacity, LockBufferGrowsByOneUnitPerBareCallAndUnlockMeasures) {
    CString s(4);
    EXPECT_EQ(5, s.GetCapacity());
    s.LockBuffer();
    s.LockBuffer();
    EXPECT_EQ(7, s.GetCapacity());
    EXPECT_TRUE(s.IsBufferLocked());

    CString w(L"ab");
    wchar_t* p = w.LockBuffer(10);
    ASSERT_NE(nullptr, p);
    EXPECT_EQ(11, w.GetCapacity());
    EXPECT_EQ(L"ab", std::wstring(p));  // the text is kept
    lstrcpyW(p, L"written");
    w.UnlockBuffer();
    EXPECT_FALSE(w.IsBufferLocked());
    EXPECT_EQ(7, w.GetLength());
    EXPECT_EQ(L"written", W(w));

    CString fromNull;
    ASSERT_NE(nullptr, fromNull.LockBuffer(3));
    fromNull.UnlockBuffer();
    EXPECT_FALSE(fromNull.IsNull());
    EXPECT_EQ(0, fromNull.GetLength());
}

TEST(StringCopyAndMove, MovesLeaveTheSourceNullAndCopiesAreIndependent) {
    CString a(L"text");
    a.GetCString();
    CString b(std::move(a));
    EXPECT_TRUE(a.IsNull());
    EXPECT_EQ(0, a.GetCapacity());
    EXPECT_EQ(L"text", W(b));

    CString c(L"other");
    c = std::move(b);
    EXPECT_EQ(L"text", W(c));
    EXPECT_TRUE(b.IsNull());

    CString& self = c;
    c = std::move(self);
    EXPECT_EQ(L"text", W(c));
    c = self;
    EXPECT_EQ(L"text", W(c));

    CString d(c);
    d[0] = L'T';
    EXPECT_EQ(L"text", W(c));
    EXPECT_EQ(L"Text", W(d));

    CString locked(L"x");
    locked.LockBuffer(5);
    CString lockedCopy(locked);
    EXPECT_FALSE(lockedCopy.IsBufferLocked());
}

TEST(StringConversion, Utf8RoundTripsNonAsciiAndSurrogatePairs) {
    const wchar_t wide[] = L"Gr\u00FC\u00DFe \u6F22\u5B57 \xD83D\xDE00";
    CString s(wide);
    std::string utf8 = static_cast<std::string>(s);
    EXPECT_EQ(std::string("Gr\xC3\xBC\xC3\x9F" "e \xE6\xBC\xA2\xE5\xAD\x97 \xF0\x9F\x98\x80"), utf8);
    EXPECT_EQ(std::string(s.GetUtf8String()), utf8);

    CString back = CString::FromUtf8(utf8.c_str());
    EXPECT_EQ(W(s), W(back));
    EXPECT_EQ(static_cast<int>(wcslen(wide)), back.GetLength());

    CString counted;
    counted.SetFromUtf8String("\xE6\xBC\xA2\xE5\xAD\x97tail", 6);
    EXPECT_EQ(L"\u6F22\u5B57", W(counted));

    CString empty;
    empty.SetFromUtf8String("");
    EXPECT_FALSE(empty.IsNull());
    EXPECT_TRUE(empty.IsEmpty());
}

TEST(StringConversion, AnsiRoundTripsTextOfTheCodePage) {
    // Build text that the process's ANSI code page can hold: every byte
    // value that converts without loss, so the check works in any code page.
    std::string bytes;
    for (int c = 0x20; c < 0x100; ++c) {
        char ch = static_cast<char>(c);
        wchar_t unit = 0;
        if (MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &ch, 1, &unit, 1) == 1) bytes.push_back(ch);
    }
    CString s(bytes.c_str());
    ASSERT_FALSE(s.IsNull());
    EXPECT_EQ(bytes, std::string(s.GetCString()));

    CString counted("abcdef", 3);
    EXPECT_EQ(L"abc", W(counted));
    CString viaSet;
    viaSet.SetString("xyz", 2);
    EXPECT_EQ(L"xy", W(viaSet));

    char buffer[4];
    CString(L"abcdef").CopyToBuffer(buffer, 4);
    EXPECT_STREQ("abc", buffer);
    CString().CopyToBuffer(buffer, 4);
    EXPECT_STREQ("", buffer);
    wchar_t wbuffer[3];
    CString(L"xyz").CopyToBuffer(wbuffer, 3);
    EXPECT_STREQ(L"xy", wbuffer);
}

TEST(StringConversion, NarrowViewsOfNullEmptyAndSharedBuffer) {
    EXPECT_EQ(nullptr, CString().GetCString());
    EXPECT_EQ(nullptr, CString().GetUtf8String());
    EXPECT_EQ(std::string(), static_cast<std::string>(CString()));

    CString empty(L"");
    const char* e = empty.GetCString();
    ASSERT_NE(nullptr, e);
    EXPECT_EQ('\0', e[0]);

    // A lone surrogate cannot be written as UTF-8 and becomes U+FFFD.
    CString lone(L"a\xD800" L"b");
    EXPECT_EQ(std::string("a\xEF\xBF\xBD" "b"), std::string(lone.GetUtf8String()));
}

TEST(StringAppend, CharsAndLinesAndSignExtension) {
    CString s(L"a");
    s += static_cast<char>(0xE9);
    ASSERT_EQ(2, s.GetLength());
    EXPECT_EQ(0xFFE9, static_cast<unsigned>(s[1]));

    CString line(L"a");
    line.AppendLine(L"x");
    EXPECT_EQ(L"ax\r\n", W(line));
    line.AppendLine();
    EXPECT_EQ(L"ax\r\n\r\n", W(line));
    CString counted(L"");
    counted.AppendLine(L"xyz", 2);
    EXPECT_EQ(L"xy\r\n", W(counted));

    CString mixed(L"w:");
    mixed += "narrow";
    mixed += L'!';
    EXPECT_EQ(L"w:narrow!", W(mixed));
    EXPECT_EQ(L"w:narrow!+", W(mixed + L"+"));
    EXPECT_EQ(L"w:narrow!-", W(mixed + "-"));

    // Counted appends stop at a NUL inside the text.
    CString stop(L"<");
    stop.Append(L"ab\0cd", 5);
    EXPECT_EQ(L"<ab", W(stop));

    // Appending a string to itself reads its text before growing.
    CString twice(L"xy");
    twice.Append(twice.GetString(), twice.GetLength());
    EXPECT_EQ(L"xyxy", W(twice));
}

TEST(StringFormat, UsesTheRuntimesWideConventions) {
    CString s;
    s.Format(L"%s|%S|%d|%5.2f|%c|%x", L"wide", "narrow", -42, 3.14159, L'z', 255);
    EXPECT_EQ(L"wide|narrow|-42| 3.14|z|ff", W(s));

    EXPECT_EQ(L"[7]", W(CString::FormatS(L"[%d]", 7)));

    CString big;
    big.Format(L"%s%s", std::wstring(5000, L'a').c_str(), std::wstring(5000, L'b').c_str());
    EXPECT_EQ(10000, big.GetLength());
    EXPECT_EQ(10001, big.GetCapacity());

    CString appended(L"n=");
    appended.AppendFormat(L"%d,%s", 3, L"x");
    EXPECT_EQ(L"n=3,x", W(appended));

    CString self(L"abc");
    self.Format(L"[%s][%s]", self.GetString(), self.GetString());
    EXPECT_EQ(L"[abc][abc]", W(self));

    CString nullFormat(L"x");
    nullFormat.Format(nullptr);
    EXPECT_TRUE(nullFormat.IsNull());
}

// Bounds, empty texts and null strings with random texts are in the model
// test at the end; these are the arguments it does not make.
TEST(StringSearch, NullTextsCharactersAndContains) {
    CString s(L"abcabc");
    EXPECT_EQ(-1, s.IndexOf(static_cast<const wchar_t*>(nullptr), 0));
    EXPECT_EQ(5, s.LastIndexOf(L'c'));
    EXPECT_EQ(-1, s.LastIndexOf(L'z'));
    EXPECT_EQ(-1, CString().LastIndexOf(L'a'));
    EXPECT_TRUE(s.Contains(L"ca"));
    EXPECT_FALSE(s.Contains(L"cb"));
}

TEST(StringSearch, StartsWithAndEndsWithTreatEmptyTextDifferently) {
    CString s(L"abc");
    EXPECT_TRUE(s.StartsWith(L""));
    EXPECT_FALSE(s.EndsWith(L""));
    EXPECT_TRUE(s.StartsWith(L"ab"));
    EXPECT_FALSE(s.StartsWith(L"abcd"));
    EXPECT_TRUE(s.EndsWith(L"bc"));
    EXPECT_TRUE(s.EndsWith(L"abc"));
    EXPECT_FALSE(s.EndsWith(L"xabc"));
    EXPECT_TRUE(s.StartsWith(L'a'));
    EXPECT_TRUE(s.EndsWith(L'c'));
    EXPECT_FALSE(CString().StartsWith(L""));
    EXPECT_FALSE(CString(L"").StartsWith(L""));
    EXPECT_FALSE(CString(L"").EndsWith(L'x'));
    EXPECT_FALSE(CString().EndsWith(L""));
    // A repeated tail still ends the string.
    EXPECT_TRUE(CString(L"aaa").EndsWith(L"aa"));
}

TEST(StringCompare, EqualityIsCaseSensitiveButOrderingIsNot) {
    CString abc(L"abc");
    CString ABC(L"ABC");
    EXPECT_FALSE(abc == ABC.GetString());
    EXPECT_TRUE(abc != ABC);
    EXPECT_FALSE(abc < ABC.GetString());
    EXPECT_FALSE(abc > ABC.GetString());
    EXPECT_TRUE(abc.EqualsIgnoreCase(L"AbC"));
    EXPECT_TRUE(CString(L"apple") < L"Banana");
    EXPECT_TRUE(CString(L"Cherry") > L"banana");

    CString null;
    EXPECT_TRUE(null == static_cast<const wchar_t*>(nullptr));
    EXPECT_FALSE(null == L"");
    EXPECT_FALSE(CString(L"") == static_cast<const wchar_t*>(nullptr));
    EXPECT_FALSE(null < L"a");
    EXPECT_FALSE(null > L"a");
    EXPECT_TRUE(null.EqualsIgnoreCase(nullptr));
    EXPECT_FALSE(abc.EqualsIgnoreCase(nullptr));

    // Text on the left compares the texts, not the pointers.
    const wchar_t text[] = L"abc";
    EXPECT_TRUE(text == abc);
    EXPECT_FALSE(L"abd" == abc);
}

TEST(StringCompare, CompareIsAsymmetricForCaseAndNull) {
    CString abc(L"abc");
    CString ABC(L"ABC");
    CString null;
    EXPECT_EQ(1, abc.Compare(ABC, true));
    EXPECT_EQ(-1, abc.Compare(ABC, false));
    EXPECT_EQ(1, ABC.Compare(abc, true));  // never equal, either way round
    EXPECT_EQ(0, abc.Compare(CString(L"abc"), true));
    EXPECT_EQ(0, null.Compare(CString(), true));
    EXPECT_EQ(1, null.Compare(abc, true));
    EXPECT_EQ(1, abc.Compare(null, true));
    EXPECT_EQ(-1, null.Compare(abc, false));
    EXPECT_EQ(-1, abc.Compare(null, false));
    EXPECT_EQ(-1, CString(L"apple").Compare(CString(L"Banana"), true));
    EXPECT_EQ(1, CString(L"apple").Compare(CString(L"Banana"), false));
}

// Text replacement against random texts is in the model test; these are
// the cases it does not make.
TEST(StringReplace, NullFindAndCharacters) {
    CString nothing(L"abc");
    nothing.Replace(nullptr, L"x");
    EXPECT_EQ(L"abc", W(nothing));

    CString chars(L"a.b.c");
    chars.Replace(L'.', L'/');
    EXPECT_EQ(L"a/b/c", W(chars));
}

TEST(StringSplit, PiecesSeparatorsAndSkipping) {
    CString csv(L",a,,b,");
    auto all = csv.Split(L",", false);
    ASSERT_EQ(5u, all.size());
    EXPECT_TRUE(all[0].IsEmpty());
    EXPECT_FALSE(all[0].IsNull());
    EXPECT_EQ(L"a", W(all[1]));
    EXPECT_TRUE(all[2].IsEmpty());
    EXPECT_EQ(L"b", W(all[3]));
    EXPECT_TRUE(all[4].IsEmpty());

    auto skipped = csv.Split(L',', true);
    ASSERT_EQ(2u, skipped.size());
    EXPECT_EQ(L"a", W(skipped[0]));
    EXPECT_EQ(L"b", W(skipped[1]));

    auto whole = csv.Split(L"", false);
    ASSERT_EQ(1u, whole.size());
    EXPECT_EQ(L",a,,b,", W(whole[0]));
    EXPECT_TRUE(CString(L"").Split(L",", false).empty());
    EXPECT_TRUE(CString().Split(L",", false).empty());

    auto multi = CString(L"one::two::::three").Split(L"::", false);
    ASSERT_EQ(4u, multi.size());
    EXPECT_EQ(L"two", W(multi[1]));
    EXPECT_TRUE(multi[2].IsEmpty());
    EXPECT_EQ(L"three", W(multi[3]));
}

TEST(StringEdit, TrimCaseChopAndSubstring) {
    CString blanks(L"   ");
    blanks.TrimEnd();
    EXPECT_FALSE(blanks.IsNull());
    EXPECT_TRUE(blanks.IsEmpty());

    CString inner(L" a b ");
    inner.Trim();
    EXPECT_EQ(L"a b", W(inner));

    CString mixed(L"\t\r\n x \r\n");
    mixed.TrimStart();
    EXPECT_EQ(L"x \r\n", W(mixed));
    mixed.TrimEnd();
    EXPECT_EQ(L"x", W(mixed));

    CString one(L"a");
    one.Trim();
    EXPECT_EQ(L"a", W(one));

    CString word(L"Stra\u00DFe \u00E9t\u00E9");
    EXPECT_EQ(L"STRA\u00DFE \u00C9T\u00C9", W(word.ToUpper()));
    EXPECT_EQ(L"Stra\u00DFe \u00E9t\u00E9", W(word));  // ToUpper copies
    word.MakeLower();
    EXPECT_EQ(L"stra\u00DFe \u00E9t\u00E9", W(word));
    EXPECT_TRUE(CString().ToUpper().IsNull());

    CString chop(L"abcdef");
    chop.Chop();
    chop.Chop(2);
    EXPECT_EQ(L"abc", W(chop));

    CString sub(L"0123456789");
    EXPECT_EQ(L"789", W(sub.Substring(7)));
    EXPECT_EQ(L"234", W(sub.Substring(2, 3)));
    EXPECT_TRUE(sub.Substring(10).IsEmpty());
    EXPECT_FALSE(sub.Substring(10).IsNull());
}

TEST(StringIterators, WalkTheUnitsBothWays) {
    CString s(L"abc");
    std::wstring forward(s.begin(), s.end());
    std::wstring backward(s.rbegin(), s.rend());
    EXPECT_EQ(L"abc", forward);
    EXPECT_EQ(L"cba", backward);

    for (wchar_t& ch : s) ch = static_cast<wchar_t>(ch - L'a' + L'A');
    EXPECT_EQ(L"ABC", W(s));

    const CString& cs = s;
    EXPECT_EQ(1, std::count(cs.cbegin(), cs.cend(), L'B'));
    EXPECT_EQ(L'C', *cs.crbegin());
    EXPECT_TRUE(CString().begin() == CString().end());
}

// Random operation sequences against a model: the text as std::wstring plus
// a null flag. The model spells out the deliberate rules: appending to null
// and emptying null keep null, an empty text never ends a string, StartsWith is false on an
// empty string, a null replacement with a match makes the string null.
TEST(String, RandomOperationsAgreeWithAModel) {
    const Testing::FuzzRun run = Testing::FuzzSettings("CString model", 20000);
    std::mt19937 random(run.seed);
    const wchar_t letters[] = L"ab \t\x00e9\xD83D\xDE00";
    const auto text = [&](size_t most) {
        std::wstring t(random() % (most + 1), L'a');
        for (wchar_t& c : t) c = letters[random() % (sizeof(letters) / sizeof(wchar_t) - 1)];
        return t;
    };
    CString s;
    std::wstring model;
    bool null = true;
    for (int round = 0; round < run.rounds; ++round) {
        const std::wstring a = text(4), b = text(3);
        const int start = static_cast<int>(random() % (model.size() + 6)) - 3;
        const unsigned operation = random() % 12;
        const std::wstring where = L"seed " + std::to_wstring(run.seed) + L", round " + std::to_wstring(round) +
                                   L", operation " + std::to_wstring(operation) + L", text '" + a + L"'";
        switch (operation) {
        case 0: s.SetString(a.c_str(), static_cast<int>(a.size())); model = a; null = false; break;
        case 1: s.SetNull(); model.clear(); null = true; break;
        case 2: s.SetEmpty(); model.clear(); break;  // null stays null
        case 3:
            s.Append(a.c_str(), static_cast<int>(a.size()));
            if (!null) model += a;
            break;
        case 4:
            s.Append(L'b');
            if (!null) model += L'b';
            break;
        case 5: {
            size_t expected = null || model.empty() || a.empty() || start >= static_cast<int>(model.size())
                                  ? std::wstring::npos
                                  : model.find(a, static_cast<size_t>(std::max(start, 0)));
            ASSERT_EQ(expected == std::wstring::npos ? -1 : static_cast<int>(expected), s.IndexOf(a.c_str(), start))
                << where;
            const wchar_t ch = a.empty() ? L'a' : a[0];
            expected = null || model.empty() || start >= static_cast<int>(model.size())
                           ? std::wstring::npos
                           : model.find(ch, static_cast<size_t>(std::max(start, 0)));
            ASSERT_EQ(expected == std::wstring::npos ? -1 : static_cast<int>(expected), s.IndexOf(ch, start))
                << where;
            break;
        }
        case 6: {
            const size_t expected = null || model.empty() || a.empty() ? std::wstring::npos : model.rfind(a);
            ASSERT_EQ(expected == std::wstring::npos ? -1 : static_cast<int>(expected), s.LastIndexOf(a.c_str()))
                << where;
            break;
        }
        case 7:
            ASSERT_EQ(!null && !model.empty() && model.compare(0, a.size(), a) == 0 && model.size() >= a.size(),
                      s.StartsWith(a.c_str()))
                << where;
            ASSERT_EQ(!null && !a.empty() && model.size() >= a.size() &&
                          model.compare(model.size() - a.size(), a.size(), a) == 0,
                      s.EndsWith(a.c_str()))
                << where;
            break;
        case 8: {
            const bool nullReplacement = random() % 5 == 0;
            s.Replace(a.c_str(), nullReplacement ? nullptr : b.c_str());
            if (null || model.empty() || a.empty() || model.find(a) == std::wstring::npos) break;
            if (nullReplacement) {
                model.clear();
                null = true;
                break;
            }
            std::wstring result;
            size_t last = 0;
            for (size_t at = model.find(a); at != std::wstring::npos; at = model.find(a, last)) {
                result += model.substr(last, at - last) + b;
                last = at + a.size();
            }
            model = result + model.substr(last);
            break;
        }
        case 9: {
            s.Trim();
            if (null) break;
            const auto space = [](wchar_t c) { return std::iswspace(c) != 0; };
            while (!model.empty() && space(model.front())) model.erase(0, 1);
            while (!model.empty() && space(model.back())) model.pop_back();
            break;
        }
        case 10:
            if (!null && !model.empty()) {
                const int from = static_cast<int>(random() % model.size());
                const int count = static_cast<int>(random() % (model.size() - from + 1));
                ASSERT_EQ(model.substr(from, count), W(s.Substring(from, count))) << where;
            }
            break;
        default: {
            CString copy(s);
            ASSERT_TRUE(copy == s) << where;
            s = std::move(copy);
        }
        }
        ASSERT_EQ(null, s.IsNull()) << where;
        if (!null) {
            ASSERT_EQ(model, W(s)) << where;
        }
        ASSERT_EQ(static_cast<int>(model.size()), s.GetLength()) << where;
    }
}
