#pragma once

#include <windows.h>

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

enum CFileMode {
    Read = 0,    // existing file, read only
    Write = 1,   // created or truncated, read and write
    Append = 2,  // existing file, read and write, positioned at its end
};

// An exclusively opened file with whole-buffer transfers and a sticky
// HRESULT status: 0 success, 1 (S_FALSE) once a read returned nothing,
// negative after a failure, which refuses every later transfer. 1 is not a
// failure and is never reset to 0.
class VELKAN_API CFile {
public:
    CFile(const wchar_t* name, CFileMode mode);
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    virtual ~CFile();

    bool IsFileOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HRESULT GetError() const { return m_status; }
    // 0xFFFFFFFF on failure and for files of 4 GiB or more.
    DWORD GetSize();
    HRESULT ReadBytes(void* buffer, unsigned long count);
    HRESULT WriteBytes(const void* data, unsigned long count);

    static HRESULT ReadBytesFromFile(const wchar_t* name, void* buffer, unsigned long count);
    static HRESULT WriteBytesToFile(const wchar_t* name, const void* data, unsigned long count);
    static DWORD GetSize(const wchar_t* name);
    // Empty with status 0 when the file cannot be opened.
    static std::vector<unsigned char> ReadFileContents(const wchar_t* name, long& status);
    // MD5 of the content followed by the extra bytes (a salt); null on
    // failure.
    static CString Md5Hash(const wchar_t* name, unsigned char* extra = nullptr, unsigned long extraLength = 0);
    // A folder does not count.
    static bool Exists(const wchar_t* name);
    static BOOL CreateFolder(const wchar_t* name) { return ::CreateDirectoryW(name, nullptr); }
    static BOOL Delete(const wchar_t* name) { return ::DeleteFileW(name); }
    static BOOL DeleteFolder(const wchar_t* name) { return ::RemoveDirectoryW(name); }

private:
    static HRESULT FromWin32(DWORD error);

    HANDLE m_handle = INVALID_HANDLE_VALUE;
    HRESULT m_status = S_OK;
    CFileMode m_mode;
};

// Walks the entries matching a pattern such as "C:\logs\*.txt".
class VELKAN_API CFileFind {
public:
    explicit CFileFind(const wchar_t* pattern);
    CFileFind(const CFileFind&) = delete;
    CFileFind& operator=(const CFileFind&) = delete;
    ~CFileFind();

    // FALSE when a search is already open or nothing matches.
    BOOL FindFirst();
    BOOL FindNext();
    bool IsDirectory() const { return (m_data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    const WIN32_FIND_DATAW& GetFindData() const { return m_data; }

    // The highest number in the "?" run of the pattern's file name among
    // existing files ("shot??.png"), 0 when none, or -1 when the highest
    // possible number is taken.
    static int GetMaxSequenceNo(const wchar_t* pattern);

    WIN32_FIND_DATAW m_data;

private:
    HANDLE m_handle = INVALID_HANDLE_VALUE;
    CString m_pattern;
};

}  // namespace Velkan
