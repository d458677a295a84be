#include <gtest/gtest.h>

#include <windows.h>
#include <initguid.h>
#include <knownfolders.h>

#include <random>
#include <string>

#include "TestText.h"
#include "support/Fuzz.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/PathString.h"

using Velkan::CPathString;
using Testing::W;

namespace {

struct Query {
    const wchar_t* path;
    const wchar_t* expected;  // nullptr: the null string
};

std::wstring Expected(const wchar_t* text) {
    return text != nullptr ? std::wstring(text) : std::wstring(L"<null>");
}

template <typename Method>
void CheckAll(const char* what, Method method, std::initializer_list<Query> cases) {
    for (const Query& q : cases) {
        EXPECT_EQ(Expected(q.expected), W((CPathString(q.path).*method)())) << what << " of \"" << CPathString(q.path).GetUtf8String() << '"';
    }
}

}  // namespace

TEST(PathParts, VolumesDirectoriesAndNames) {
    CheckAll("GetVolume", &CPathString::GetVolume,
             {{L"\\\\srv\\share\\dir\\f", L"\\\\srv\\share"}, {L"\\\\srv\\share", L"\\\\srv\\share"},
              {L"\\\\srv", L"\\\\srv"}, {L"c:\\x", L"c:"}, {L"Z:", L"Z:"}, {L"1:\\x", nullptr},
              {L"/usr/x", L"/"}, {L"\\x", nullptr}, {L"x\\y", nullptr}, {L"", nullptr}});
    CheckAll("GetPath", &CPathString::GetPath,
             {{L"C:\\a\\b.txt", L"C:\\a"}, {L"C:\\b.txt", L"C:\\"}, {L"b.txt", nullptr}, {L"C:\\a\\", L"C:\\a"},
              {L"C:\\", L"C:\\"}, {L"\\", L"\\"}, {L"\\name", L"\\"}, {L"C:name", L"C:"}, {L"a/b/c", L"a/b"},
              {L"", nullptr}});
    CheckAll("GetFileName", &CPathString::GetFileName,
             {{L"C:\\dir\\", nullptr}, {L"C:\\dir\\a.txt", L"a.txt"}, {L"a.txt", L"a.txt"}, {L"C:", nullptr},
              {L"C:name", L"C:name"}, {L"x/y.z", L"y.z"}, {L"", nullptr}});
    CheckAll("GetFileExtension", &CPathString::GetFileExtension,
             {{L"archive.tar.gz", L".gz"}, {L"C:\\dir.d\\file", nullptr}, {L"file.", L"."},
              {L".profile", L".profile"}, {L"noext", nullptr}, {L"a.b/", nullptr}});
    CheckAll("GetFileNameWithoutExtension", &CPathString::GetFileNameWithoutExtension,
             {{L"archive.tar.gz", L"archive.tar"}, {L".profile", L""}, {L"C:\\d\\plain", L"plain"}});
    CheckAll("GetFileNameWithoutTilde", &CPathString::GetFileNameWithoutTilde,
             {{L"C:\\x\\abc~def", L"def"}, {L"C:\\x\\abc", L"abc"}, {L"a~b~c", L"c"}});
    EXPECT_TRUE(CPathString(L"\\\\s").IsUncPath());
    EXPECT_FALSE(CPathString(L"\\s").IsUncPath());
    EXPECT_TRUE(CPathString(L"a/").EndsWithDirectoryOrAltSeparator());
}

TEST(PathEditing, AppendAndChopKeepOneSeparator) {
    struct Case { const wchar_t* path; const wchar_t* part; const wchar_t* expected; };
    for (const Case& c : {Case{L"C:\\a\\", L"b", L"C:\\a\\b"}, Case{L"C:\\a\\", L"\\b", L"C:\\a\\b"},
                          Case{L"C:\\a", L"b", L"C:\\a\\b"}, Case{L"C:/a", L"/b", L"C:/a/b"},
                          Case{L"", L"b", L"b"}, Case{L"C:\\a/", L"/b", L"C:\\a/b"}}) {
        CPathString path(c.path);
        EXPECT_EQ(c.expected, W(path.AppendPath(c.part))) << W(CPathString(c.path));
    }
    CPathString nulled(L"C:\\a");
    EXPECT_TRUE(nulled.AppendPath(static_cast<const wchar_t*>(nullptr)).IsNull());
    CPathString narrow(L"C:\\a");
    EXPECT_EQ(L"C:\\a\\b.txt", W(narrow.AppendPath("b.txt")));

    CPathString chopped(L"C:\\a\\b");
    EXPECT_EQ(L"C:\\a", W(chopped.ChopLastPathPart()));
    EXPECT_EQ(L"C:", W(chopped.ChopLastPathPart()));
    EXPECT_EQ(L"", W(chopped.ChopLastPathPart()));
    CPathString root(L"\\a");
    EXPECT_EQ(L"\\", W(root.ChopLastPathPart()));
    CPathString unc(L"\\\\srv\\share\\");
    EXPECT_EQ(L"\\\\srv", W(unc.ChopLastPathPart()));
}

TEST(PathAbbreviation, KeepsTheNameAndTheInnermostDirectories) {
    const CPathString path(L"C:\\one\\two\\three\\file.txt");
    EXPECT_EQ(L"C:\\one\\two\\three\\file.txt", W(path.AbbreviatePath(25)));
    EXPECT_EQ(L"C:\\...\\three\\file.txt", W(path.AbbreviatePath(21)));
    EXPECT_EQ(L"C:\\...\\file.txt", W(path.AbbreviatePath(20)));
    EXPECT_EQ(L"file.txt", W(path.AbbreviatePath(14)));
    EXPECT_EQ(L"fil...", W(path.AbbreviatePath(6)));
    EXPECT_EQ(L"fil", W(path.AbbreviatePath(3)));
    EXPECT_TRUE(path.AbbreviatePath(0).IsNull());

    const CPathString unc(L"\\\\server\\share\\projects\\velkan\\readme.md");
    EXPECT_EQ(L"\\\\server\\share\\...\\velkan\\readme.md", W(unc.AbbreviatePath(36)));
    EXPECT_EQ(L"\\\\server\\...\\readme.md", W(unc.AbbreviatePath(24)));
    EXPECT_EQ(L"\\\\...\\readme.md", W(unc.AbbreviatePath(17)));
    EXPECT_EQ(L"readme.md", W(unc.AbbreviatePath(12)));

    const CPathString relative(L"a/b/c/name.txt");
    EXPECT_EQ(L"...\\name.txt", W(relative.AbbreviatePath(13)));
}

// Thousands of generated paths of separators, drives, dots, tildes and UNC
// prefixes: the joining and shortening rules hold for all of them.
TEST(PathProperties, AppendThenNameAndAbbreviationBoundsHold) {
    std::mt19937 random(12345);
    const wchar_t* pieces[] = {L"\\", L"/", L":", L".", L"~", L"a", L"bc", L"d.e", L"\\\\", L"C:", L"x~1", L".."};
    const wchar_t* names[] = {L"f", L"file.txt", L".hidden", L"a.b.c", L"x~y", L"name."};
    for (int round = 0; round < 4000; ++round) {
        std::wstring text;
        int count = random() % 8;
        for (int i = 0; i < count; ++i) text += pieces[random() % 12];
        const wchar_t* name = names[random() % 6];

        CPathString joined(text.c_str());
        joined.AppendPath(name);
        ASSERT_EQ(name, W(joined.GetFileName())) << "path \"" << CPathString(text.c_str()).GetUtf8String() << '"';

        CPathString path(text.c_str());
        const CPathString fileName = path.GetFileName();
        for (int n = 1; n <= path.GetLength() + 1; ++n) {
            CPathString shortened = path.AbbreviatePath(n);
            ASSERT_FALSE(shortened.IsNull());
            ASSERT_LE(shortened.GetLength(), n);
            if (fileName.IsNullOrEmpty() || n >= path.GetLength()) continue;
            // The name itself, its end, or its shortened start.
            const std::wstring s = W(shortened), f = W(fileName);
            const bool endsWithName = s.size() >= f.size() && s.compare(s.size() - f.size(), f.size(), f) == 0;
            const bool cutName = s.size() >= 4 && s.compare(s.size() - 3, 3, L"...") == 0 &&
                                 f.compare(0, s.size() - 3, s, 0, s.size() - 3) == 0;
            const bool prefix = f.compare(0, s.size(), s) == 0;
            ASSERT_TRUE(endsWithName || cutName || prefix) << "\"" << path.GetUtf8String() << "\" " << n;
        }
    }
}

TEST(PathSystem, TempAndKnownFolders) {
    CPathString temp = CPathString::WithTempPath();
    EXPECT_FALSE(temp.IsNullOrEmpty());
    EXPECT_TRUE(temp.EndsWithDirectoryOrAltSeparator());

    CPathString file = CPathString::WithTempFileName(L"vlk", 0);
    EXPECT_FALSE(file.IsNullOrEmpty());
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, ::GetFileAttributesW(file));
    ::DeleteFileW(file);
    EXPECT_TRUE(CPathString::WithTempFileName(L"Q:\\no\\such\\folder", L"vlk", 0).IsEmpty());

    EXPECT_FALSE(CPathString::WithKnownFolderPath(FOLDERID_LocalAppData).IsNullOrEmpty());
    const GUID unknown = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};
    try {
        CPathString::WithKnownFolderPath(unknown);
        FAIL() << "no exception";
    } catch (const Velkan::CHResultException& e) {
        EXPECT_LT(e.GetHResult(), 0);
        EXPECT_EQ(0, std::string(e.what()).rfind("Failed to get known folder path", 0));
    }
}

// Random paths of separators, drives, UNC prefixes, dots and tildes, some
// very long: every query answers without a crash, and the answers agree
// with one another.
TEST(PathString, RandomPathsGiveConsistentParts) {
    const Testing::FuzzRun run = Testing::FuzzSettings("path strings", 5000);
    std::mt19937 random(run.seed);
    const wchar_t* pieces[] = {L"\\", L"/", L"\\\\", L"C:", L"c:\\", L"\\\\server\\share", L".", L"..",
                               L"a", L"name", L".ext", L"~1", L" ", L":", L"\x00e9"};
    for (int round = 0; round < run.rounds; ++round) {
        std::wstring text;
        const int count = random() % 50 == 0 ? 2000 : static_cast<int>(random() % 8);
        for (int i = 0; i < count; ++i) text += pieces[random() % (sizeof(pieces) / sizeof(pieces[0]))];
        const CPathString path(text.c_str());
        const std::wstring where = L"seed " + std::to_wstring(run.seed) + L", round " + std::to_wstring(round) +
                                   L": '" + text.substr(0, 80) + L"'";

        const CPathString name = path.GetFileName();
        if (!name.IsNull()) {
            const std::wstring n = W(name);
            ASSERT_FALSE(n.empty()) << where;
            ASSERT_EQ(std::wstring::npos, n.find_first_of(L"\\/")) << where;
            ASSERT_EQ(n, text.substr(text.size() - n.size())) << where;
            const CPathString extension = path.GetFileExtension();
            const std::wstring stem = W(path.GetFileNameWithoutExtension());
            if (extension.IsNull()) {
                ASSERT_EQ(n, stem) << where;
            } else {
                ASSERT_EQ(L'.', extension[0]) << where;
                ASSERT_EQ(n, stem + W(extension)) << where;
            }
            ASSERT_EQ(n.substr(n.find_last_of(L'~') == std::wstring::npos ? 0 : n.find_last_of(L'~') + 1),
                      W(path.GetFileNameWithoutTilde()))
                << where;
        }
        path.GetVolume();
        path.GetPath();
        path.IsUncPath();
        for (int length : {-1, 0, 3, 10, 40, static_cast<int>(text.size()) + 1}) path.AbbreviatePath(length);

        // Chopping path parts ends at the empty string, one part at a time.
        CPathString chopped(path);
        for (int steps = 0; !chopped.IsNullOrEmpty(); ++steps) {
            const int before = chopped.GetLength();
            chopped.ChopLastPathPart();
            ASSERT_LT(chopped.GetLength(), before) << where;
            ASSERT_LE(steps, static_cast<int>(text.size())) << where;
        }
    }
}
