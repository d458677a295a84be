#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWin32Error;

/// Base of the library's exceptions. Messages are narrow text; a missing
/// message reads "Unknown exception".
class VELKAN_API CRuntimeException : public std::runtime_error {
public:
    /// A null message reads "Unknown exception".
    explicit CRuntimeException(const char* message);
    /// Takes the message as it is.
    explicit CRuntimeException(const std::string& message);
    /// Copies and moves keep the message.
    ///@{
    CRuntimeException(const CRuntimeException& other);
    CRuntimeException(CRuntimeException&& other) noexcept;
    CRuntimeException& operator=(const CRuntimeException& other);
    CRuntimeException& operator=(CRuntimeException&& other) noexcept;
    ///@}
};

/// A failed COM call: `message: <HRESULT in signed decimal>`.
class CHResultException : public CRuntimeException {
public:
    /// The message gets ": " and the HRESULT in signed decimal appended.
    CHResultException(HRESULT hr, const std::string& message)
        : CRuntimeException(message + ": " + std::to_string(static_cast<long>(hr))), m_hr(hr) {}

    /// The HRESULT of the failed call.
    HRESULT GetHResult() const { return m_hr; }

private:
    HRESULT m_hr;
};

/// A resource id or name that does not resolve in its module.
class VELKAN_API CResourceNotFoundException : public CRuntimeException {
public:
    /// The message reads `Win32 resource not found: <id>`.
    explicit CResourceNotFoundException(unsigned int id);
    /// The id with a message of the caller's.
    ///@{
    CResourceNotFoundException(unsigned int id, std::string& message);
    CResourceNotFoundException(unsigned int id, const char* message);
    ///@}
    /// A named resource; the message ends with the name. A MAKEINTRESOURCE
    /// value is taken as the id it carries.
    explicit CResourceNotFoundException(const wchar_t* name);
    /// Copies and moves keep the message and the id.
    ///@{
    CResourceNotFoundException(const CResourceNotFoundException& other);
    CResourceNotFoundException(CResourceNotFoundException&& other) noexcept;
    CResourceNotFoundException& operator=(const CResourceNotFoundException& other);
    CResourceNotFoundException& operator=(CResourceNotFoundException&& other) noexcept;
    ///@}

    /// The id in decimal, or the resource's name.
    const CString& GetResourceId() const { return m_id; }

private:
    CString m_id;
};

/// A failed HTTP exchange with its Win32/WinINet error code. Derives from
/// std::runtime_error directly, not from CRuntimeException.
class VELKAN_API CHttpRequestException : public std::runtime_error {
public:
    /// The error's code; the message is the error's text in the ANSI code
    /// page.
    explicit CHttpRequestException(const CWin32Error& error);
    /// A code with a message of the caller's (null reads "Unknown exception").
    ///@{
    CHttpRequestException(unsigned long code, std::string& message);
    CHttpRequestException(unsigned long code, const char* message);
    ///@}
    /// Copies and moves keep the message and the code.
    ///@{
    CHttpRequestException(const CHttpRequestException& other);
    CHttpRequestException(CHttpRequestException&& other) noexcept;
    CHttpRequestException& operator=(const CHttpRequestException& other);
    CHttpRequestException& operator=(CHttpRequestException&& other) noexcept;
    ///@}

    /// The Win32 or WinINet error code.
    unsigned long code() const { return m_code; }

private:
    unsigned long m_code;
};

}  // namespace Velkan
