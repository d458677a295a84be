#include "velkan/core/Exceptions.h"

#include <utility>

#include "velkan/core/Win32Error.h"

namespace Velkan {

namespace {

const char kUnknown[] = "Unknown exception";
const char kNotFound[] = "Win32 resource not found: ";

// Digits from the least significant end into a fixed buffer: at most ten
// for a 32-bit value.
std::string UnsignedDecimal(unsigned int value) {
    char digits[11];
    char* p = digits + sizeof(digits);
    do {
        *--p = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    return std::string(p, digits + sizeof(digits));
}

CString WideDecimal(unsigned int value) {
    return CString(UnsignedDecimal(value).c_str());
}

std::string NameMessage(const wchar_t* name) {
    if (IS_INTRESOURCE(name)) return kNotFound + UnsignedDecimal(static_cast<unsigned int>(reinterpret_cast<ULONG_PTR>(name)));
    CString wide(name);
    const char* utf8 = wide.GetUtf8String();
    return std::string(kNotFound) + (utf8 != nullptr ? utf8 : "");
}

CString NameId(const wchar_t* name) {
    if (IS_INTRESOURCE(name)) return WideDecimal(static_cast<unsigned int>(reinterpret_cast<ULONG_PTR>(name)));
    return CString(name);
}

}  // namespace

// --- CRuntimeException -----------------------------------------------------

CRuntimeException::CRuntimeException(const char* message) : std::runtime_error(message != nullptr ? message : kUnknown) {}
CRuntimeException::CRuntimeException(const std::string& message) : std::runtime_error(message) {}
CRuntimeException::CRuntimeException(const CRuntimeException& other) = default;
CRuntimeException::CRuntimeException(CRuntimeException&& other) noexcept : std::runtime_error(other) {}

CRuntimeException& CRuntimeException::operator=(const CRuntimeException& other) {
    if (this != &other) std::runtime_error::operator=(other);
    return *this;
}

CRuntimeException& CRuntimeException::operator=(CRuntimeException&& other) noexcept {
    if (this != &other) std::runtime_error::operator=(other);
    return *this;
}

// --- CResourceNotFoundException -------------------------------------------

CResourceNotFoundException::CResourceNotFoundException(unsigned int id)
    : CRuntimeException(kNotFound + UnsignedDecimal(id)), m_id(WideDecimal(id)) {}

CResourceNotFoundException::CResourceNotFoundException(unsigned int id, std::string& message)
    : CRuntimeException(message), m_id(WideDecimal(id)) {}

CResourceNotFoundException::CResourceNotFoundException(unsigned int id, const char* message)
    : CRuntimeException(message), m_id(WideDecimal(id)) {}

CResourceNotFoundException::CResourceNotFoundException(const wchar_t* name)
    : CRuntimeException(NameMessage(name)), m_id(NameId(name)) {}

CResourceNotFoundException::CResourceNotFoundException(const CResourceNotFoundException& other) = default;

CResourceNotFoundException::CResourceNotFoundException(CResourceNotFoundException&& other) noexcept
    : CRuntimeException(std::move(other)), m_id(std::move(other.m_id)) {}

CResourceNotFoundException& CResourceNotFoundException::operator=(const CResourceNotFoundException& other) {
    if (this != &other) {
        CRuntimeException::operator=(other);
        m_id = other.m_id;
    }
    return *this;
}

CResourceNotFoundException& CResourceNotFoundException::operator=(CResourceNotFoundException&& other) noexcept {
    if (this != &other) {
        CRuntimeException::operator=(std::move(other));
        m_id = std::move(other.m_id);
    }
    return *this;
}

// --- CHttpRequestException -------------------------------------------------

namespace {
std::string AnsiMessage(const CWin32Error& error) {
    const char* text = error.GetErrorMessage().GetCString();
    return text != nullptr ? std::string(text) : std::string(kUnknown);
}
}  // namespace

CHttpRequestException::CHttpRequestException(const CWin32Error& error)
    : std::runtime_error(AnsiMessage(error)), m_code(error.GetErrorCode()) {}

CHttpRequestException::CHttpRequestException(unsigned long code, std::string& message)
    : std::runtime_error(message), m_code(code) {}

CHttpRequestException::CHttpRequestException(unsigned long code, const char* message)
    : std::runtime_error(message != nullptr ? message : kUnknown), m_code(code) {}

CHttpRequestException::CHttpRequestException(const CHttpRequestException& other) = default;

CHttpRequestException::CHttpRequestException(CHttpRequestException&& other) noexcept
    : std::runtime_error(other), m_code(other.m_code) {}

CHttpRequestException& CHttpRequestException::operator=(const CHttpRequestException& other) {
    if (this != &other) {
        std::runtime_error::operator=(other);
        m_code = other.m_code;
    }
    return *this;
}

CHttpRequestException& CHttpRequestException::operator=(CHttpRequestException&& other) noexcept {
    if (this != &other) {
        std::runtime_error::operator=(other);
        m_code = other.m_code;
    }
    return *this;
}

}  // namespace Velkan
