// Timing, file hashing, HTML help, tracing and version queries.
#include "velkan/app/App.h"

#include <shlwapi.h>
#include <wincrypt.h>

#include <cstdarg>
#include <vector>

#include "velkan/core/detail/StructSize.h"

namespace Velkan {

// ---------------------------------------------------------------------------
// Timing

namespace {

LONGLONG Counter() {
    LARGE_INTEGER now;
    ::QueryPerformanceCounter(&now);
    return now.QuadPart;
}

LONGLONG Frequency() {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

}  // namespace

void CApp::ResetTimer() {
    m_timerStart = Counter();
}

int CApp::GetElapsedTime() const {
    return static_cast<int>((Counter() - m_timerStart) / (Frequency() / 1000));
}

int CApp::GetMicroElapsedTime() const {
    // Units of 100 microseconds, despite the name.
    return static_cast<int>((Counter() - m_timerStart) / (Frequency() / 10000));
}

// ---------------------------------------------------------------------------
// File hashing

HRESULT CApp::HashFileContents(LPCWSTR path, void* digest, DWORD size) {
    HANDLE file = ::CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return HRESULT_FROM_WIN32(::GetLastError());

    HRESULT hr = S_OK;
    HCRYPTPROV provider = 0;
    HCRYPTHASH hash = 0;
    if (!::CryptAcquireContextW(&provider, nullptr, L"Microsoft Base DSS Cryptographic Provider", PROV_DSS,
                                CRYPT_VERIFYCONTEXT) ||
        !::CryptCreateHash(provider, CALG_SHA1, 0, 0, &hash)) {
        hr = HRESULT_FROM_WIN32(::GetLastError());
    }
    BYTE block[4096];
    while (SUCCEEDED(hr)) {
        DWORD read = 0;
        if (!::ReadFile(file, block, sizeof(block), &read, nullptr)) {
            hr = HRESULT_FROM_WIN32(::GetLastError());
        } else if (read == 0) {
            break;
        } else if (!::CryptHashData(hash, block, read, 0)) {
            hr = HRESULT_FROM_WIN32(::GetLastError());
        }
    }
    if (SUCCEEDED(hr)) {
        DWORD hashSize = 0, sizeLength = sizeof(hashSize);
        if (!::CryptGetHashParam(hash, HP_HASHSIZE, reinterpret_cast<BYTE*>(&hashSize), &sizeLength, 0)) {
            hr = HRESULT_FROM_WIN32(::GetLastError());
        } else if (hashSize != size) {
            hr = E_INVALIDARG;
        } else if (!::CryptGetHashParam(hash, HP_HASHVAL, static_cast<BYTE*>(digest), &hashSize, 0)) {
            hr = HRESULT_FROM_WIN32(::GetLastError());
        }
    }
    if (hash != 0) ::CryptDestroyHash(hash);
    if (provider != 0) ::CryptReleaseContext(provider, 0);
    ::CloseHandle(file);
    return hr;
}

// ---------------------------------------------------------------------------
// HTML help

namespace {

using HtmlHelpFn = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

// Loaded once per process; a failure is remembered and never retried.
HtmlHelpFn HtmlHelpEntry() {
    static HtmlHelpFn entry = nullptr;
    static bool failed = false;
    if (entry != nullptr || failed) return entry;

    HMODULE module = nullptr;
    wchar_t server[MAX_PATH] = {};
    DWORD bytes = sizeof(server) - sizeof(wchar_t);
    if (::RegGetValueW(HKEY_CLASSES_ROOT, L"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32",
                       nullptr, RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ, nullptr, server, &bytes) == ERROR_SUCCESS &&
        server[0] != L'\0') {
        wchar_t expanded[MAX_PATH] = {};
        if (::ExpandEnvironmentStringsW(server, expanded, MAX_PATH) > 0) module = ::LoadLibraryW(expanded);
    }
    if (module == nullptr) module = ::LoadLibraryW(L"hhctrl.ocx");
    if (module != nullptr) {
        entry = reinterpret_cast<HtmlHelpFn>(
            reinterpret_cast<void*>(::GetProcAddress(module, reinterpret_cast<LPCSTR>(15))));
    }
    if (entry == nullptr) failed = true;
    return entry;
}

}  // namespace

BOOL CApp::HtmlHelpW(HWND hwnd, LPCWSTR topic, UINT command, DWORD_PTR data) {
    HtmlHelpFn entry = HtmlHelpEntry();
    if (entry == nullptr) return FALSE;
    CString file(m_htmlHelpPath);
    if (topic != nullptr) file.Append(L"::").Append(topic);
    return entry(hwnd, file.GetString(), command, data) != nullptr;
}

BOOL CApp::OpenHelpTopics(HWND hwnd) {
    HtmlHelpFn entry = HtmlHelpEntry();
    if (entry == nullptr) return FALSE;
    return entry(hwnd, m_htmlHelpPath, 0 /* HH_DISPLAY_TOPIC */, 0) != nullptr;
}

BOOL CApp::PopupHelp(HWND hwnd, LPCWSTR topic, DWORD* ids) {
    HtmlHelpFn entry = HtmlHelpEntry();
    if (entry == nullptr) return FALSE;
    CString file(m_htmlHelpPath);
    file.Append(L"::").Append(topic);
    return entry(hwnd, file.GetString(), 0x11 /* HH_TP_HELP_WM_HELP */, reinterpret_cast<DWORD_PTR>(ids)) != nullptr;
}

// ---------------------------------------------------------------------------
// Tracing, versions, appearance

int CApp::Trace(const wchar_t* format, ...) {
    wchar_t buffer[1025];
    va_list args;
    va_start(args, format);
    int count = ::wvsprintfW(buffer, format, args);
    va_end(args);
    ::OutputDebugStringW(buffer);
    return count;
}

DWORD CApp::GetDllVersion(LPCWSTR dll) {
    HMODULE module = ::LoadLibraryW(dll);
    if (module == nullptr) return 0;
    DWORD version = 0;
    auto getVersion = reinterpret_cast<DLLGETVERSIONPROC>(
        reinterpret_cast<void*>(::GetProcAddress(module, "DllGetVersion")));
    if (getVersion != nullptr) {
        VELKAN_X86_SIZE(DLLVERSIONINFO, 20);
        DLLVERSIONINFO info = {};
        info.cbSize = sizeof(info);
        if (SUCCEEDED(getVersion(&info))) version = MAKELONG(info.dwMinorVersion, info.dwMajorVersion);
    }
    ::FreeLibrary(module);
    return version;
}

BOOL CApp::GetFileVersion(LPCWSTR path, DWORD* ms, DWORD* ls) {
    *ms = 0;
    *ls = 0;
    wchar_t file[256] = {};
    if (path != nullptr) {
        ::lstrcpynW(file, path, 256);
    } else {
        ::GetModuleFileNameW(nullptr, file, 256);
    }
    DWORD handle = 0;
    DWORD size = ::GetFileVersionInfoSizeW(file, &handle);
    if (size == 0) return FALSE;
    std::vector<BYTE> data(size);
    if (!::GetFileVersionInfoW(file, 0, size, data.data())) return FALSE;
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (!::VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&fixed), &length) ||
        length < sizeof(VS_FIXEDFILEINFO) || fixed == nullptr) {
        return FALSE;
    }
    *ms = fixed->dwFileVersionMS;
    *ls = fixed->dwFileVersionLS;
    return TRUE;
}

CPathString CApp::GetModulePath(HINSTANCE instance) {
    wchar_t path[MAX_PATH] = {};
    if (::GetModuleFileNameW(instance, path, MAX_PATH) == 0) return CPathString(L"");
    return CPathString(path).GetPath();
}

BOOL CApp::IsThemed() const {
    BOOL flat = FALSE;
    ::SystemParametersInfoW(0x1022 /* SPI_GETFLATMENU */, 0, &flat, 0);
    return flat;
}

}  // namespace Velkan
