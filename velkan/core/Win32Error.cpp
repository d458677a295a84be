#include "velkan/core/Win32Error.h"

#include <cstdlib>
#include <utility>

namespace Velkan {

namespace {

const int kMessageUnits = 256;

// netmsg.dll holds the network-management texts. It is mapped once as a
// data file and stays mapped for later look-ups.
HMODULE NetworkMessages() {
    static const HMODULE module = LoadLibraryExW(L"netmsg.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    return module;
}

}  // namespace

CWin32Error::CWin32Error() : m_code(GetLastError()) {
    LookUp(nullptr);
}

CWin32Error::CWin32Error(HINSTANCE module) : m_code(GetLastError()) {
    LookUp(module);
}

CWin32Error::CWin32Error(unsigned long code, HINSTANCE module) : m_code(code) {
    LookUp(module);
}

CWin32Error::CWin32Error(unsigned long code, const wchar_t* message) : m_code(code), m_message(message) {}

CWin32Error::CWin32Error(const CWin32Error& other) = default;

CWin32Error::CWin32Error(CWin32Error&& other) noexcept : m_code(other.m_code), m_message(std::move(other.m_message)) {}

CWin32Error& CWin32Error::operator=(const CWin32Error& other) {
    if (this != &other) {
        m_code = other.m_code;
        m_message = other.m_message;
    }
    return *this;
}

CWin32Error& CWin32Error::operator=(CWin32Error&& other) noexcept {
    if (this != &other) {
        m_code = other.m_code;
        m_message = std::move(other.m_message);
    }
    return *this;
}

void CWin32Error::LookUp(HINSTANCE module) {
    m_message.SetNull();
    wchar_t* buffer = static_cast<wchar_t*>(std::calloc(kMessageUnits, sizeof(wchar_t)));
    if (buffer == nullptr) {
        m_message = L"unknown_error";
        return;
    }
    if (module == nullptr) {
        if (m_code >= 2100 && m_code < 3000) {
            module = NetworkMessages();
        } else if (m_code >= 12000 && m_code < 12190) {
            module = GetModuleHandleW(L"wininet.dll");
        }
    }
    DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    if (module != nullptr) flags |= FORMAT_MESSAGE_FROM_HMODULE;
    DWORD units = FormatMessageW(flags, module, m_code, 0, buffer, kMessageUnits, nullptr);
    if (units != 0) {
        m_message = buffer;
        m_message.TrimStart();
        m_message.TrimEnd();
    } else {
        m_message = L"unknown_error";
    }
    std::free(buffer);
}

}  // namespace Velkan
