#include "velkan/core/File.h"

#include <cwctype>
#include <cstdlib>
#include <cstring>

#include "velkan/core/Md5.h"
#include "velkan/core/PathString.h"

namespace Velkan {

namespace {

HANDLE Open(const wchar_t* name, CFileMode mode) {
    const DWORD access = mode == Read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    const DWORD creation = mode == Write ? CREATE_ALWAYS : OPEN_EXISTING;
    return ::CreateFileW(name, access, 0, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

HRESULT CFile::FromWin32(DWORD error) {
    const long e = static_cast<long>(error);
    return e <= 0 ? static_cast<HRESULT>(e) : static_cast<HRESULT>((error & 0xFFFF) | 0x80070000);
}

CFile::CFile(const wchar_t* name, CFileMode mode) : m_mode(mode) {
    m_handle = Open(name, mode);
    if (m_handle == INVALID_HANDLE_VALUE) {
        m_status = FromWin32(::GetLastError());
    } else if (mode == Append) {
        ::SetFilePointer(m_handle, 0, nullptr, FILE_END);
    }
}

CFile::~CFile() {
    if (m_handle != INVALID_HANDLE_VALUE) ::CloseHandle(m_handle);
}

DWORD CFile::GetSize() {
    if (m_handle != INVALID_HANDLE_VALUE) {
        DWORD high = 0;
        DWORD low = ::GetFileSize(m_handle, &high);
        // 0xFFFFFFFF is also a valid low word: the last error tells.
        if (high == 0 && (low != INVALID_FILE_SIZE || ::GetLastError() == 0)) return low;
    }
    DWORD error = ::GetLastError();
    if (error != 0) m_status = FromWin32(error);
    return INVALID_FILE_SIZE;
}

HRESULT CFile::ReadBytes(void* buffer, unsigned long count) {
    if (m_status < 0) return m_status;
    DWORD read = 0;
    if (!::ReadFile(m_handle, buffer, count, &read, nullptr)) {
        m_status = FromWin32(::GetLastError());
        return m_status;
    }
    if (read == 0) m_status = S_FALSE;
    return m_status;
}

HRESULT CFile::WriteBytes(const void* data, unsigned long count) {
    if (m_status < 0) return m_status;
    DWORD written = 0;
    if (!::WriteFile(m_handle, data, count, &written, nullptr)) m_status = FromWin32(::GetLastError());
    return m_status;
}

HRESULT CFile::ReadBytesFromFile(const wchar_t* name, void* buffer, unsigned long count) {
    HANDLE handle = Open(name, Read);
    if (handle == INVALID_HANDLE_VALUE) return FromWin32(::GetLastError());
    DWORD read = 0;
    HRESULT status = S_OK;
    if (!::ReadFile(handle, buffer, count, &read, nullptr)) {
        status = FromWin32(::GetLastError());
    } else if (read == 0) {
        status = S_FALSE;
    }
    ::CloseHandle(handle);
    return status;
}

HRESULT CFile::WriteBytesToFile(const wchar_t* name, const void* data, unsigned long count) {
    HANDLE handle = Open(name, Write);
    if (handle == INVALID_HANDLE_VALUE) return FromWin32(::GetLastError());
    DWORD written = 0;
    HRESULT status = ::WriteFile(handle, data, count, &written, nullptr) ? S_OK : FromWin32(::GetLastError());
    ::CloseHandle(handle);
    return status;
}

DWORD CFile::GetSize(const wchar_t* name) {
    CFile file(name, Read);
    return file.GetSize();
}

std::vector<unsigned char> CFile::ReadFileContents(const wchar_t* name, long& status) {
    status = 0;
    std::vector<unsigned char> content;
    CFile file(name, Read);
    if (!file.IsFileOpen()) return content;
    DWORD size = file.GetSize();
    if (size != INVALID_FILE_SIZE) {
        content.resize(size);
        status = file.ReadBytes(content.data(), size);
    }
    return content;
}

CString CFile::Md5Hash(const wchar_t* name, unsigned char* extra, unsigned long extraLength) {
    CFile file(name, Read);
    if (!file.IsFileOpen()) return CString();
    DWORD size = file.GetSize();
    if (size == INVALID_FILE_SIZE) return CString();
    if (extra == nullptr) extraLength = 0;
    std::vector<unsigned char> buffer(static_cast<size_t>(size) + extraLength);
    if (file.ReadBytes(buffer.data(), size) < 0) return CString();
    if (extraLength > 0) std::memcpy(buffer.data() + size, extra, extraLength);
    return CMd5(buffer.data(), static_cast<unsigned long>(buffer.size())).HexDigest();
}

bool CFile::Exists(const wchar_t* name) {
    DWORD attributes = ::GetFileAttributesW(name);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

CFileFind::CFileFind(const wchar_t* pattern) : m_data(), m_pattern(pattern) {}

CFileFind::~CFileFind() {
    if (m_handle != INVALID_HANDLE_VALUE) ::FindClose(m_handle);
}

BOOL CFileFind::FindFirst() {
    if (m_handle != INVALID_HANDLE_VALUE) return FALSE;
    m_handle = ::FindFirstFileW(m_pattern.GetString(), &m_data);
    return m_handle != INVALID_HANDLE_VALUE;
}

BOOL CFileFind::FindNext() {
    if (m_handle == INVALID_HANDLE_VALUE) return FALSE;
    return ::FindNextFileW(m_handle, &m_data);
}

int CFileFind::GetMaxSequenceNo(const wchar_t* pattern) {
    const CPathString name = CPathString(pattern).GetFileName();
    const int last = name.LastIndexOf(L'?');
    if (last < 0) return 0;
    int start = last;
    while (start > 0 && name[start - 1] == L'?') --start;
    const int width = last - start + 1;

    int maximum = 0;
    CFileFind find(pattern);
    for (BOOL found = find.FindFirst(); found; found = find.FindNext()) {
        if (find.IsDirectory()) continue;
        const wchar_t* file = find.m_data.cFileName;
        if (static_cast<int>(std::wcslen(file)) < start + width) continue;
        wchar_t digits[16] = {};
        bool numeric = width < 16;
        for (int i = 0; numeric && i < width; ++i) {
            digits[i] = file[start + i];
            numeric = std::iswdigit(digits[i]) != 0;
        }
        if (!numeric) continue;
        int value = std::wcstol(digits, nullptr, 10);
        if (value > maximum) maximum = value;
    }
    // All nines: no number is left for the next file.
    long long limit = 1;
    for (int i = 0; i < width; ++i) limit *= 10;
    return maximum < limit - 1 ? maximum : -1;
}

}  // namespace Velkan
