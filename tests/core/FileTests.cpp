#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestText.h"
#include "velkan/core/File.h"
#include "velkan/core/PathString.h"

using namespace Velkan;
using Testing::W;

namespace {

// A fresh folder under the temporary path, removed with its files.
class FileTest : public testing::Test {
protected:
    void SetUp() override {
        m_folder = CPathString::WithTempPath();
        m_folder.AppendPath(CString::FormatS(L"velkan-files-%lu", ::GetCurrentProcessId()).GetString());
        ASSERT_TRUE(CFile::CreateFolder(m_folder) || ::GetLastError() == ERROR_ALREADY_EXISTS);
    }
    void TearDown() override {
        CFileFind find(Path(L"*"));
        for (BOOL found = find.FindFirst(); found; found = find.FindNext()) {
            if (!find.IsDirectory()) CFile::Delete(Path(find.m_data.cFileName));
        }
        CFile::DeleteFolder(m_folder);
    }
    CPathString Path(const wchar_t* name) const {
        CPathString path(m_folder);
        return path.AppendPath(name);
    }
    void Put(const wchar_t* name, const std::string& content) {
        ASSERT_EQ(S_OK, CFile::WriteBytesToFile(Path(name), content.data(), static_cast<unsigned long>(content.size())));
    }

    CPathString m_folder;
};

}  // namespace

TEST_F(FileTest, ModesCreateTruncateAndAppend) {
    const CPathString name = Path(L"modes.bin");
    {
        CFile file(name, Write);
        ASSERT_TRUE(file.IsFileOpen());
        EXPECT_EQ(S_OK, file.WriteBytes("hello", 5));
    }
    {
        CFile file(name, Append);
        ASSERT_TRUE(file.IsFileOpen());
        EXPECT_EQ(S_OK, file.WriteBytes(" world", 6));
    }
    EXPECT_EQ(11u, CFile::GetSize(name));
    char buffer[11];
    EXPECT_EQ(S_OK, CFile::ReadBytesFromFile(name, buffer, 11));
    EXPECT_EQ("hello world", std::string(buffer, 11));

    {
        CFile file(name, Write);  // truncates
        EXPECT_EQ(0u, file.GetSize());
    }
    CFile missing(Path(L"missing.bin"), Append);
    EXPECT_FALSE(missing.IsFileOpen());
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), missing.GetError());
    EXPECT_FALSE(CFile::Exists(Path(L"missing.bin")));
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), CFile::ReadBytesFromFile(Path(L"missing.bin"), buffer, 1));
}

TEST_F(FileTest, StatusIsStickyEndOfFileIsNotAFailure) {
    Put(L"two.bin", "ab");
    CFile file(Path(L"two.bin"), Read);
    char buffer[4];
    EXPECT_EQ(S_OK, file.ReadBytes(buffer, 2));
    EXPECT_EQ(S_FALSE, file.ReadBytes(buffer, 2));  // end of file
    file.ReadBytes(buffer, 2);
    EXPECT_EQ(S_FALSE, file.GetError());            // never reset to 0
    // A write to a read-only handle fails, and then nothing runs any more.
    const HRESULT failure = file.WriteBytes("x", 1);
    EXPECT_LT(failure, 0);
    EXPECT_EQ(failure, file.ReadBytes(buffer, 1));
    EXPECT_EQ(failure, file.WriteBytes("y", 1));

    // Exclusive sharing: a second open of an open file fails.
    CFile second(Path(L"two.bin"), Read);
    EXPECT_FALSE(second.IsFileOpen());
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION), second.GetError());
    EXPECT_EQ(0xFFFFFFFFu, second.GetSize());
}

TEST_F(FileTest, WholeFileHelpers) {
    Put(L"empty.bin", "");
    long status = -1;
    EXPECT_TRUE(CFile::ReadFileContents(Path(L"empty.bin"), status).empty());
    EXPECT_EQ(S_FALSE, status);  // a read of nothing
    EXPECT_EQ(L"d41d8cd98f00b204e9800998ecf8427e", W(CFile::Md5Hash(Path(L"empty.bin"))));

    Put(L"abc.txt", "abc");
    std::vector<unsigned char> content = CFile::ReadFileContents(Path(L"abc.txt"), status);
    EXPECT_EQ(S_OK, status);
    EXPECT_EQ(std::vector<unsigned char>({'a', 'b', 'c'}), content);
    unsigned char salt[] = {'d', 'e', 'f'};
    EXPECT_EQ(L"e80b5017098950fc58aad83c8c14978e", W(CFile::Md5Hash(Path(L"abc.txt"), salt, 3)));  // md5("abcdef")
    EXPECT_EQ(L"900150983cd24fb0d6963f7d28e17f72", W(CFile::Md5Hash(Path(L"abc.txt"), nullptr, 3)));

    status = -1;
    EXPECT_TRUE(CFile::ReadFileContents(Path(L"nothing.txt"), status).empty());
    EXPECT_EQ(0, status);
    EXPECT_TRUE(CFile::Md5Hash(Path(L"nothing.txt")).IsNull());
    EXPECT_TRUE(CFile::Exists(Path(L"abc.txt")));
    EXPECT_FALSE(CFile::Exists(m_folder));  // folders do not count
}

TEST_F(FileTest, MaxSequenceNumberReadsTheQuestionMarkRun) {
    const CPathString pattern = Path(L"shot??.png");
    EXPECT_EQ(0, CFileFind::GetMaxSequenceNo(pattern));
    Put(L"shot03.png", "");
    Put(L"shot17.png", "");
    Put(L"shotAB.png", "");
    Put(L"shot5.png", "");
    CFile::CreateFolder(Path(L"shot42.png"));  // a folder is skipped
    EXPECT_EQ(17, CFileFind::GetMaxSequenceNo(pattern));
    Put(L"shot99.png", "");
    EXPECT_EQ(-1, CFileFind::GetMaxSequenceNo(pattern));
    CFile::DeleteFolder(Path(L"shot42.png"));
    EXPECT_EQ(0, CFileFind::GetMaxSequenceNo(Path(L"plain.png")));
    EXPECT_EQ(0, CFileFind::GetMaxSequenceNo(Path(L"shot???.png")));  // nothing has three digits
}
