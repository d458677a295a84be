#pragma once

#include <windows.h>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// A CString with file-system path operations. `\` and `/` both separate;
/// `:` marks a drive. Queries return new values; a missing part is the null
/// string.
class VELKAN_API CPathString : public CString {
public:
    /// The constructors of CString, and copies and moves.
    ///@{
    CPathString() = default;
    CPathString(const CPathString& other) = default;
    CPathString(CPathString&& other) noexcept = default;
    CPathString(const CString& other) : CString(other) {}
    CPathString(CString&& other) noexcept : CString(std::move(other)) {}
    explicit CPathString(int capacity) : CString(capacity) {}
    CPathString(const char* text) : CString(text) {}
    CPathString(const char* text, int count) : CString(text, count) {}
    CPathString(const wchar_t* text) : CString(text) {}
    CPathString(const wchar_t* text, int count) : CString(text, count) {}
    CPathString& operator=(const CPathString& other) = default;
    CPathString& operator=(CPathString&& other) noexcept = default;
    ///@}

    /// `\\server\share`, `X:`, `/` or null (also for a lone leading `\`).
    CPathString GetVolume() const;
    /// The directory part: `C:\a` of `C:\a\b.txt`, `C:\` of `C:\b.txt`.
    CPathString GetPath() const;
    /// The part after the last separator. Null when the path ends with a
    /// separator or `:`.
    CPathString GetFileName() const;
    /// From the last `.` of the file name, dot included; else null.
    CPathString GetFileExtension() const;
    /// The file name up to its last `.`.
    CPathString GetFileNameWithoutExtension() const;
    /// The part of the file name after its last `~`.
    CPathString GetFileNameWithoutTilde() const;
    /// The last unit is `\` or `/`.
    bool EndsWithDirectoryOrAltSeparator() const;
    /// Starts with `\\`.
    bool IsUncPath() const;
    /// ch is `\` or `/`.
    static bool IsDirectoryOrAltSeparator(wchar_t ch) { return ch == L'\\' || ch == L'/'; }

    /// Joins with exactly one separator between (`\` when neither side has
    /// one); a null part makes the path null.
    ///@{
    CPathString& AppendPath(const wchar_t* part);
    CPathString& AppendPath(const char* part);
    ///@}
    /// Drops the last part: `C:\a\b` -> `C:\a` -> `C:` -> empty.
    CPathString& ChopLastPathPart();
    /// A display form at most maxLength units long, keeping the file name
    /// and the innermost directories (`C:\...\three\file.txt`).
    CPathString AbbreviatePath(int maxLength) const;

    /// The path of a known folder (SHGetKnownFolderPath). Throws
    /// CHResultException `Failed to get known folder path`.
    static CPathString WithKnownFolderPath(const GUID& folderId, DWORD flags = 0, HANDLE token = nullptr);
    /// The user's temporary folder, with its trailing separator.
    static CPathString WithTempPath(int capacity = MAX_PATH);
    /// A temporary file name (GetTempFileName) in directory, or in the
    /// temporary folder. The empty string when the system cannot make the
    /// name.
    ///@{
    static CPathString WithTempFileName(const wchar_t* directory, const wchar_t* prefix, UINT unique);
    static CPathString WithTempFileName(const wchar_t* prefix, UINT unique);
    ///@}
};

}  // namespace Velkan
