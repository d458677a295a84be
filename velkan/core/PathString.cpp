#include "velkan/core/PathString.h"

#include <shlobj.h>

#include <algorithm>
#include <vector>

#include "velkan/core/Exceptions.h"

namespace Velkan {

namespace {

bool IsSeparator(wchar_t ch) {
    return CPathString::IsDirectoryOrAltSeparator(ch);
}

bool IsAsciiLetter(wchar_t ch) {
    return (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z');
}

// Index of the last "\" or "/" (and ":" when asked), or -1.
int LastSeparator(const CString& text, bool colonCounts) {
    for (int i = text.GetLength() - 1; i >= 0; --i) {
        if (IsSeparator(text[i]) || (colonCounts && text[i] == L':')) return i;
    }
    return -1;
}

bool EndsWithSeparatorOrColon(const CString& text) {
    if (text.IsNullOrEmpty()) return false;
    wchar_t last = text[text.GetLength() - 1];
    return IsSeparator(last) || last == L':';
}

}  // namespace

CPathString CPathString::GetVolume() const {
    if (IsNullOrEmpty()) return CPathString();
    const int length = GetLength();
    if (IsUncPath()) {
        // Server and share: up to the second "\" after the prefix.
        int found = 0;
        for (int i = 2; i < length; ++i) {
            if ((*this)[i] == L'\\' && ++found == 2) return CPathString(GetString(), i);
        }
        return *this;
    }
    if (length >= 2 && (*this)[1] == L':') {
        return IsAsciiLetter((*this)[0]) ? CPathString(GetString(), 2) : CPathString();
    }
    if ((*this)[0] == L'/') return CPathString(L"/");
    // A lone leading "\" is no volume, unlike "/": kept on purpose.
    return CPathString();
}

CPathString CPathString::GetPath() const {
    if (IsNullOrEmpty()) return CPathString();
    const int length = GetLength();
    if (IsSeparator((*this)[length - 1])) {
        if (length >= 2 && (*this)[length - 2] == L':') return *this;  // a drive root
        if (length == 1) return *this;
        return CPathString(GetString(), length - 1);
    }
    const int p = LastSeparator(*this, true);
    if (p < 0) return CPathString();
    if ((*this)[p] == L':') return CPathString(GetString(), p + 1);
    if (p > 0 && (*this)[p - 1] != L':') return CPathString(GetString(), p);
    // Keep the separator of a root: "\" of "\name", "C:\" of "C:\name".
    return CPathString(GetString(), p + 1);
}

CPathString CPathString::GetFileName() const {
    if (IsNullOrEmpty() || EndsWithSeparatorOrColon(*this)) return CPathString();
    return CPathString(GetString() + LastSeparator(*this, false) + 1);
}

CPathString CPathString::GetFileExtension() const {
    if (IsNullOrEmpty() || EndsWithSeparatorOrColon(*this)) return CPathString();
    const int dot = LastIndexOf(L'.');
    if (dot < 0 || dot < LastSeparator(*this, false)) return CPathString();
    return CPathString(GetString() + dot);
}

CPathString CPathString::GetFileNameWithoutExtension() const {
    CPathString name = GetFileName();
    const int dot = name.LastIndexOf(L'.');
    if (dot >= 0) name.Chop(name.GetLength() - dot);
    return name;
}

CPathString CPathString::GetFileNameWithoutTilde() const {
    CPathString name = GetFileName();
    const int tilde = name.LastIndexOf(L'~');
    return tilde >= 0 ? CPathString(name.GetString() + tilde + 1) : name;
}

bool CPathString::EndsWithDirectoryOrAltSeparator() const {
    return !IsNullOrEmpty() && IsSeparator((*this)[GetLength() - 1]);
}

bool CPathString::IsUncPath() const {
    return GetLength() >= 2 && (*this)[0] == L'\\' && (*this)[1] == L'\\';
}

CPathString& CPathString::AppendPath(const wchar_t* part) {
    if (part == nullptr) {
        SetNull();
        return *this;
    }
    const bool pathHasOne = EndsWithDirectoryOrAltSeparator();
    const bool partHasOne = IsSeparator(part[0]);
    if (pathHasOne && partHasOne) {
        Chop(1);
    } else if (!pathHasOne && !partHasOne && !IsNullOrEmpty()) {
        Append(L'\\');
    }
    Append(part);
    return *this;
}

CPathString& CPathString::AppendPath(const char* part) {
    if (part == nullptr) {
        SetNull();
        return *this;
    }
    return AppendPath(CString(part).GetString());
}

CPathString& CPathString::ChopLastPathPart() {
    if (IsNullOrEmpty()) return *this;
    if (EndsWithDirectoryOrAltSeparator()) Chop(1);
    if (!IsEmpty() && (*this)[GetLength() - 1] == L':') Chop(1);
    const int p = LastSeparator(*this, true);
    if (p < 0) {
        SetEmpty();
    } else if ((*this)[p] == L':') {
        Chop(GetLength() - (p + 1));
    } else if (p > 0) {
        Chop(GetLength() - p);
    } else {
        Chop(GetLength() - 1);
    }
    return *this;
}

CPathString CPathString::AbbreviatePath(int maxLength) const {
    if (maxLength <= 0) return CPathString();
    if (maxLength >= GetLength()) return *this;

    CPathString name = GetFileName();
    if (name.IsNull()) name = L"";  // a path ending in a separator
    if (name.GetLength() > maxLength) {
        CPathString cut(name.GetString(), maxLength);
        if (cut.GetLength() >= 4) cut.Chop(3).Append(L"...");
        return cut;
    }

    CString volume = GetVolume();
    if (volume.IsNull()) volume = L"";
    CString directory = GetPath();
    if (directory.IsNull()) directory = L"";
    const int skip = volume.IsEmpty() ? 0 : std::min(volume.GetLength(), directory.GetLength());

    // The directory's non-empty parts after the volume, as (start, length).
    std::vector<std::pair<int, int>> parts;
    for (int i = skip, start = skip; i <= directory.GetLength(); ++i) {
        if (i == directory.GetLength() || IsSeparator(directory[i])) {
            if (i > start) parts.emplace_back(start, i - start);
            start = i + 1;
        }
    }

    CString prefix(volume.GetLength() + 4);
    prefix.Append(volume);
    if (!volume.IsEmpty()) prefix.Append(L'\\');
    prefix.Append(L"...");

    // Outermost directories go first, so the innermost ones survive. The
    // lengths are summed first; only the candidate that fits is built, with
    // "\\" between its parts whatever separated them before.
    const int nameLength = name.GetLength();
    int partsLength = 0;
    for (const auto& part : parts) partsLength += 1 + part.second;
    for (size_t first = 0; first < parts.size(); ++first) {
        const int total = prefix.GetLength() + partsLength + 1 + nameLength;
        if (total <= maxLength) {
            CString candidate(total);
            candidate.Append(prefix);
            for (size_t i = first; i < parts.size(); ++i)
                candidate.Append(L'\\').Append(directory.GetString() + parts[i].first, parts[i].second);
            candidate.Append(L'\\').Append(name);
            return CPathString(std::move(candidate));
        }
        partsLength -= 1 + parts[first].second;
    }
    CString candidate(prefix);
    candidate.Append(L'\\').Append(name);
    if (candidate.GetLength() <= maxLength) return candidate;

    if (candidate.StartsWith(L"\\\\")) {
        // A UNC volume: try the server alone, then no server at all.
        CPathString server(volume);
        server.ChopLastPathPart();
        CString withServer(server);
        withServer.Append(L"\\...\\").Append(name);
        if (withServer.GetLength() <= maxLength) return withServer;
        CString bare(L"\\\\...\\");
        bare.Append(name);
        if (bare.GetLength() <= maxLength) return bare;
    }
    return name;
}

CPathString CPathString::WithKnownFolderPath(const GUID& folderId, DWORD flags, HANDLE token) {
    PWSTR path = nullptr;
    HRESULT hr = ::SHGetKnownFolderPath(folderId, flags, token, &path);
    if (FAILED(hr)) {
        ::CoTaskMemFree(path);
        throw CHResultException(hr, "Failed to get known folder path");
    }
    CPathString result(path);
    ::CoTaskMemFree(path);
    return result;
}

CPathString CPathString::WithTempPath(int capacity) {
    CPathString path;
    wchar_t* buffer = path.LockBuffer(capacity);
    if (buffer != nullptr) ::GetTempPathW(static_cast<DWORD>(path.GetCapacity()), buffer);
    path.UnlockBuffer();
    return path;
}

CPathString CPathString::WithTempFileName(const wchar_t* directory, const wchar_t* prefix, UINT unique) {
    CPathString path(L"");
    wchar_t* buffer = path.LockBuffer(MAX_PATH);
    // The result is not inspected: a failure leaves the empty string.
    if (buffer != nullptr) ::GetTempFileNameW(directory, prefix, unique, buffer);
    path.UnlockBuffer();
    return path;
}

CPathString CPathString::WithTempFileName(const wchar_t* prefix, UINT unique) {
    return WithTempFileName(WithTempPath(MAX_PATH).GetString(), prefix, unique);
}

}  // namespace Velkan
