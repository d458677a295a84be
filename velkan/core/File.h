#pragma once

#include <windows.h>

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// How CFile opens its file.
enum CFileMode {
    Read = 0,    ///< existing file, read only
    Write = 1,   ///< created or truncated, read and write
    Append = 2,  ///< existing file, read and write, positioned at its end
};

/// An exclusively opened file with whole-buffer transfers and a sticky
/// HRESULT status: 0 success, 1 (S_FALSE) once a read returned nothing,
/// negative after a failure, which refuses every later transfer. 1 is not a
/// failure and is never reset to 0.
class VELKAN_API CFile {
public:
    /// Opens name in the given mode; a failure shows in GetError.
    CFile(const wchar_t* name, CFileMode mode);
    CFile(const CFile&) = delete;             ///< Not copyable.
    CFile& operator=(const CFile&) = delete;  ///< Not copyable.
    /// Closes the file.
    virtual ~CFile();

    /// The open succeeded.
    bool IsFileOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    /// The sticky status.
    HRESULT GetError() const { return m_status; }
    /// The size in bytes. 0xFFFFFFFF on failure and for files of 4 GiB or
    /// more.
    DWORD GetSize();
    /// Reads count bytes from the current position; returns the status.
    HRESULT ReadBytes(void* buffer, unsigned long count);
    /// Writes count bytes at the current position; returns the status.
    HRESULT WriteBytes(const void* data, unsigned long count);

    /// Opens, reads count bytes and closes: S_OK, S_FALSE when nothing was
    /// read, or the failure.
    static HRESULT ReadBytesFromFile(const wchar_t* name, void* buffer, unsigned long count);
    /// Creates or truncates the file and writes count bytes.
    static HRESULT WriteBytesToFile(const wchar_t* name, const void* data, unsigned long count);
    /// The size of a file by name; 0xFFFFFFFF as for GetSize().
    static DWORD GetSize(const wchar_t* name);
    /// The whole file; status is the read's result. Empty with status 0 when
    /// the file cannot be opened.
    static std::vector<unsigned char> ReadFileContents(const wchar_t* name, long& status);
    /// MD5 of the content followed by the extra bytes (a salt), as lower-case
    /// hexadecimal; null on failure.
    static CString Md5Hash(const wchar_t* name, unsigned char* extra = nullptr, unsigned long extraLength = 0);
    /// A file of that name exists. A folder does not count.
    static bool Exists(const wchar_t* name);
    /// CreateDirectory, DeleteFile and RemoveDirectory.
    ///@{
    static BOOL CreateFolder(const wchar_t* name) { return ::CreateDirectoryW(name, nullptr); }
    static BOOL Delete(const wchar_t* name) { return ::DeleteFileW(name); }
    static BOOL DeleteFolder(const wchar_t* name) { return ::RemoveDirectoryW(name); }
    ///@}

private:
    static HRESULT FromWin32(DWORD error);

    HANDLE m_handle = INVALID_HANDLE_VALUE;
    HRESULT m_status = S_OK;
    CFileMode m_mode;
};

/// Walks the entries matching a pattern such as `C:\logs\*.txt`.
class VELKAN_API CFileFind {
public:
    /// Stores the pattern; FindFirst starts the search.
    explicit CFileFind(const wchar_t* pattern);
    CFileFind(const CFileFind&) = delete;             ///< Not copyable.
    CFileFind& operator=(const CFileFind&) = delete;  ///< Not copyable.
    /// Closes the search.
    ~CFileFind();

    /// Starts the search and reads the first entry. FALSE when a search is
    /// already open or nothing matches.
    BOOL FindFirst();
    /// Reads the next entry; FALSE at the end or without a search.
    BOOL FindNext();
    /// The current entry is a folder.
    bool IsDirectory() const { return (m_data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    /// The current entry.
    const WIN32_FIND_DATAW& GetFindData() const { return m_data; }

    /// The highest number in the "?" run of the pattern's file name among
    /// existing files ("shot??.png"), 0 when none, or -1 when the highest
    /// possible number is taken.
    static int GetMaxSequenceNo(const wchar_t* pattern);

    /// The current entry, as GetFindData returns it.
    WIN32_FIND_DATAW m_data;

private:
    HANDLE m_handle = INVALID_HANDLE_VALUE;
    CString m_pattern;
};

}  // namespace Velkan
