// Settings under HKCU\Software\<company>\<application>\<section>.
#include "velkan/app/App.h"

namespace Velkan {

namespace {

// Full access in the user's hive; read-only anywhere else.
REGSAM AccessFor(HKEY root) {
    return root == HKEY_CURRENT_USER ? (KEY_READ | KEY_WRITE) : KEY_READ;
}

// Sets the last error to a registry result and turns it into a BOOL.
BOOL Report(LONG status) {
    ::SetLastError(static_cast<DWORD>(status));
    return status == ERROR_SUCCESS;
}

// The section key, closed when the scope ends; the status of opening it is
// already the thread's last error when it is null.
class SectionKey {
public:
    SectionKey(const CApp& app, LPCWSTR section, HKEY root = HKEY_CURRENT_USER)
        : m_key(app.GetSectionKey(section, root)) {}
    ~SectionKey() {
        if (m_key != nullptr) ::RegCloseKey(m_key);
    }
    SectionKey(const SectionKey&) = delete;
    SectionKey& operator=(const SectionKey&) = delete;
    HKEY Get() const { return m_key; }

private:
    HKEY m_key;
};

BOOL WriteValue(const CApp& app, LPCWSTR section, LPCWSTR name, DWORD type, const void* data, DWORD size) {
    SectionKey key(app, section);
    if (key.Get() == nullptr) return FALSE;
    return Report(::RegSetValueExW(key.Get(), name, 0, type, static_cast<const BYTE*>(data), size));
}

CString RectValueName(LPCWSTR name, LPCWSTR part) {
    CString full(name);
    full.Append(part);
    return full;
}

const wchar_t* const kRectParts[] = {L".Left", L".Right", L".Top", L".Bottom"};

}  // namespace

HKEY CApp::GetAppRegKey(HKEY root) const {
    const REGSAM access = AccessFor(root);
    HKEY software = nullptr, company = nullptr, application = nullptr;
    LONG status = ::RegOpenKeyExW(root, L"Software", 0, access, &software);
    if (status == ERROR_SUCCESS) {
        status = ::RegCreateKeyExW(software, m_companyKey, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr,
                                   &company, nullptr);
        if (status == ERROR_SUCCESS) {
            status = ::RegCreateKeyExW(company, m_appKey, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr,
                                       &application, nullptr);
            ::RegCloseKey(company);
        }
        ::RegCloseKey(software);
    }
    ::SetLastError(static_cast<DWORD>(status));
    return status == ERROR_SUCCESS ? application : nullptr;
}

HKEY CApp::GetSectionKey(LPCWSTR section, HKEY root) const {
    HKEY application = GetAppRegKey(root);
    if (application == nullptr) return nullptr;
    HKEY key = nullptr;
    LONG status = ::RegCreateKeyExW(application, section, 0, nullptr, REG_OPTION_NON_VOLATILE, AccessFor(root),
                                    nullptr, &key, nullptr);
    ::RegCloseKey(application);
    ::SetLastError(static_cast<DWORD>(status));
    return status == ERROR_SUCCESS ? key : nullptr;
}

BOOL CApp::RegQueryDWORD(LPCWSTR section, LPCWSTR name, DWORD* value) const {
    // Nowhere to put the value: refused before the registry is asked.
    if (value == nullptr) return Report(ERROR_INVALID_PARAMETER);
    SectionKey key(*this, section);
    if (key.Get() == nullptr) return FALSE;
    DWORD size = sizeof(DWORD);
    return Report(::RegQueryValueExW(key.Get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size));
}

namespace {

// Reads a DWORD and stores it as T only when the read succeeded.
template <typename T, typename Convert>
BOOL QueryAs(const CApp& app, LPCWSTR section, LPCWSTR name, T* value, Convert convert) {
    if (value == nullptr) return Report(ERROR_INVALID_PARAMETER);
    DWORD read = 0;
    if (!app.RegQueryDWORD(section, name, &read)) return FALSE;
    *value = convert(read);
    return TRUE;
}

}  // namespace

BOOL CApp::RegQueryLONG(LPCWSTR section, LPCWSTR name, LONG* value) const {
    return QueryAs(*this, section, name, value, [](DWORD v) { return static_cast<LONG>(v); });
}

BOOL CApp::RegQueryInt(LPCWSTR section, LPCWSTR name, int* value) const {
    return QueryAs(*this, section, name, value, [](DWORD v) { return static_cast<int>(v); });
}

BOOL CApp::RegQueryBOOL(LPCWSTR section, LPCWSTR name, BOOL* value) const {
    return QueryAs(*this, section, name, value, [](DWORD v) { return static_cast<BOOL>(v); });
}

BOOL CApp::RegQueryWORD(LPCWSTR section, LPCWSTR name, WORD* value) const {
    return QueryAs(*this, section, name, value, [](DWORD v) { return LOWORD(v); });
}

BOOL CApp::RegQueryRect(LPCWSTR section, LPCWSTR name, CRect& rect) const {
    LONG parts[4];
    for (int i = 0; i < 4; ++i) {
        if (!RegQueryLONG(section, RectValueName(name, kRectParts[i]), &parts[i])) return FALSE;
    }
    rect = CRect(parts[0], parts[2], parts[1], parts[3]);
    return TRUE;
}

int CApp::RegQueryString(LPCWSTR section, LPCWSTR name, wchar_t* buffer, int size, HKEY root) const {
    if (buffer == nullptr || size <= 0) {
        Report(ERROR_INVALID_PARAMETER);
        return 0;
    }
    SectionKey key(*this, section, root);
    if (key.Get() == nullptr) return 0;
    DWORD bytes = static_cast<DWORD>(size);
    LONG status = ::RegQueryValueExW(key.Get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(buffer), &bytes);
    return Report(status) ? static_cast<int>(bytes) : 0;
}

int CApp::RegQueryString(LPCWSTR section, LPCWSTR name, CString& value, int size, HKEY root) const {
    wchar_t* buffer = value.LockBuffer(size);
    if (buffer == nullptr) return 0;
    // The registry does not promise a terminator, so the buffer's last
    // unit is kept for one.
    buffer[0] = L'\0';
    int bytes = RegQueryString(section, name, buffer, size * static_cast<int>(sizeof(wchar_t)), root);
    buffer[bytes > 0 ? bytes / static_cast<int>(sizeof(wchar_t)) : 0] = L'\0';
    const DWORD error = ::GetLastError();
    value.UnlockBuffer();
    ::SetLastError(error);
    return bytes;
}

CString CApp::RegQueryString(LPCWSTR section, LPCWSTR name, LPCWSTR defaultValue, int size, HKEY root) const {
    CString value;
    if (RegQueryString(section, name, value, size, root) > 0) return value;
    return CString(defaultValue);
}

BOOL CApp::RegQueryBinary(LPCWSTR section, LPCWSTR name, void* data, int size) const {
    if (data == nullptr || size <= 0) return Report(ERROR_INVALID_PARAMETER);
    SectionKey key(*this, section);
    if (key.Get() == nullptr) return FALSE;
    DWORD bytes = static_cast<DWORD>(size);
    return Report(::RegQueryValueExW(key.Get(), name, nullptr, nullptr, static_cast<BYTE*>(data), &bytes));
}

BOOL CApp::RegWriteDWORD(LPCWSTR section, LPCWSTR name, DWORD value) const {
    return WriteValue(*this, section, name, REG_DWORD, &value, sizeof(value));
}

BOOL CApp::RegWriteLONG(LPCWSTR section, LPCWSTR name, LONG value) const {
    return RegWriteDWORD(section, name, static_cast<DWORD>(value));
}

BOOL CApp::RegWriteInt(LPCWSTR section, LPCWSTR name, int value) const {
    return RegWriteDWORD(section, name, static_cast<DWORD>(value));
}

BOOL CApp::RegWriteBOOL(LPCWSTR section, LPCWSTR name, BOOL value) const {
    return RegWriteDWORD(section, name, static_cast<DWORD>(value));
}

BOOL CApp::RegWriteWORD(LPCWSTR section, LPCWSTR name, WORD value) const {
    return RegWriteDWORD(section, name, value);
}

BOOL CApp::RegWriteRect(LPCWSTR section, LPCWSTR name, const CRect& rect) const {
    const LONG parts[4] = {rect.left, rect.right, rect.top, rect.bottom};
    for (int i = 0; i < 4; ++i) {
        if (!RegWriteLONG(section, RectValueName(name, kRectParts[i]), parts[i])) return FALSE;
    }
    return TRUE;
}

BOOL CApp::RegWriteString(LPCWSTR section, LPCWSTR name, LPCWSTR value) const {
    if (value == nullptr) return RegDeleteValueW(section, name);
    return WriteValue(*this, section, name, REG_SZ, value,
                      static_cast<DWORD>(::lstrlenW(value)) * sizeof(wchar_t));
}

BOOL CApp::RegWriteBinary(LPCWSTR section, LPCWSTR name, const void* data, int size) const {
    return WriteValue(*this, section, name, REG_BINARY, data, static_cast<DWORD>(size));
}

BOOL CApp::RegDeleteValueW(LPCWSTR section, LPCWSTR name) const {
    SectionKey key(*this, section);
    if (key.Get() == nullptr) return FALSE;
    return Report(::RegDeleteValueW(key.Get(), name));
}

BOOL CApp::RegDeleteSection(LPCWSTR section) const {
    HKEY application = GetAppRegKey();
    if (application == nullptr) return FALSE;
    LONG status = ::RegDeleteKeyW(application, section);
    ::RegCloseKey(application);
    return Report(status);
}

}  // namespace Velkan
