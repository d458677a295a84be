#pragma once

#include <windows.h>

#include <cstddef>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// A Win32 error code with the system's text for it. A plain value, not an
/// exception. Without a module, codes 2100-2999 are looked up in netmsg.dll
/// and 12000-12189 in the loaded wininet.dll; a code with no text anywhere
/// reads "unknown_error". The text is trimmed of the system's line break.
class VELKAN_API CWin32Error {
public:
    CWin32Error();                                  ///< GetLastError(), no module
    /// GetLastError(), its text looked up in module first.
    explicit CWin32Error(HINSTANCE module);
    /// Code, its text looked up in module first.
    CWin32Error(unsigned long code, HINSTANCE module);
    /// Code with the given text; no look-up.
    CWin32Error(unsigned long code, const wchar_t* message);
    /// A literal nullptr means "no module", not "no message".
    CWin32Error(unsigned long code, std::nullptr_t) : CWin32Error(code, static_cast<HINSTANCE>(nullptr)) {}
    /// Copies and moves keep the code and the text.
    ///@{
    CWin32Error(const CWin32Error& other);
    CWin32Error(CWin32Error&& other) noexcept;
    CWin32Error& operator=(const CWin32Error& other);
    CWin32Error& operator=(CWin32Error&& other) noexcept;
    ///@}

    unsigned long GetErrorCode() const { return m_code; }              ///< The code.
    const CString& GetErrorMessage() const { return m_message; }       ///< The text.

private:
    void LookUp(HINSTANCE module);

    unsigned long m_code;
    CString m_message;
};

}  // namespace Velkan
