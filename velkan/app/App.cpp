// Start-up, shutdown and the message loop of the application object.
#include "velkan/app/ResourceIds.h"
#include "velkan/app/App.h"

#include <commctrl.h>
#include <cpuid.h>
#include <objbase.h>
#include <shlwapi.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "velkan/app/Wnd.h"
#include "velkan/dialog/Dialog.h"
#include "velkan/frame/FrameWndEx.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/GdiObject.h"
#include "velkan/gfx/Icon.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/menu/Menu.h"

namespace Velkan {

CApp* theAppPtr = nullptr;

namespace {

// Replaces the last four characters of path ("exe") by a new extension.
void WithExtension(wchar_t* out, const wchar_t* path, const wchar_t* extension) {
    ::lstrcpynW(out, path, MAX_PATH);
    int length = ::lstrlenW(out);
    if (length >= 4) ::lstrcpynW(out + length - 4, extension, MAX_PATH - (length - 4));
}

HWND& ActiveModelessDialog() {
    static thread_local HWND dialog = nullptr;
    return dialog;
}

}  // namespace

CApp::CApp() {
    m_gdiplusInput = Gdiplus::GdiplusStartupInput();
    m_firstRun = TRUE;
    theAppPtr = this;
    m_instance = ::GetModuleHandleW(nullptr);
    std::srand(::GetTickCount());

    Gdiplus::Status status = Gdiplus::GdiplusStartup(&m_gdiplusToken, &m_gdiplusInput, nullptr);
    if (status != Gdiplus::Ok) {
        theAppPtr = nullptr;
        char message[64];
        std::snprintf(message, sizeof(message), "GDI+ failed to initialize. Error code: %d", static_cast<int>(status));
        throw std::runtime_error(message);
    }

    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    INITCOMMONCONTROLSEX icc = {sizeof(icc), 0x607};
    ::InitCommonControlsEx(&icc);
    ::CoInitialize(nullptr);

    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    if (::GetVersionExW(&version)) {
        m_windowsNT = version.dwPlatformId == VER_PLATFORM_WIN32_NT;
        m_windowsVista = version.dwMajorVersion >= 6;
    }

    ::GetModuleFileNameW(nullptr, m_modulePath, MAX_PATH);
    WithExtension(m_helpPath, m_modulePath, L".hlp");
    WithExtension(m_htmlHelpPath, m_modulePath, L".chm");

    ::LoadStringW(m_instance, VELKAN_IDS_COMPANY, m_companyKey, 64);
    ::LoadStringW(m_instance, VELKAN_IDS_APP_TITLE, m_appKey, 64);

    DWORD firstRun = 0;
    if (RegQueryDWORD(L"Settings", L"FirstRun", &firstRun)) m_firstRun = static_cast<BOOL>(firstRun);

    wchar_t mappingName[80];
    ::wsprintfW(mappingName, L"%sShMem", m_appKey);
    m_sharedMem = ::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 520, mappingName);
    // Compared with -1, not null: a failed creation leaves a null handle
    // and the flag FALSE.
    m_alreadyRunning = m_sharedMem != INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_ALREADY_EXISTS;

    m_commCtrlsV6 = GetDllVersion(L"comctl32.dll") >= 0x60000;

    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx)) {
        m_mmx = (edx >> 23) & 1;
        m_sse3 = ecx & 1;
        m_ssse3 = (ecx >> 9) & 1;
        m_hypervisor = (ecx >> 31) & 1;
    }

    WNDCLASSEXW wc = {};
    wc.cbSize = sizeof(wc);
    wc.style = CS_HREDRAW | CS_VREDRAW;
    wc.lpfnWndProc = &::DefWindowProcW;
    wc.hInstance = m_instance;
    wc.lpszClassName = L"VlkStatic";
    ::RegisterClassExW(&wc);
}

CApp::~CApp() {
    CApp::CleanUpTempObjects();
    m_firstRun = FALSE;
    RegWriteDWORD(L"Settings", L"FirstRun", 0);
    Gdiplus::GdiplusShutdown(m_gdiplusToken);
    if (m_sharedMem != INVALID_HANDLE_VALUE) ::CloseHandle(m_sharedMem);
    ::CoUninitialize();
    theAppPtr = nullptr;
}

void CApp::OnUnhandledException(const std::exception*) {}

HWND CApp::GetActiveModelessDialog() {
    return ActiveModelessDialog();
}

void CApp::SetActiveModelessDialog(HWND dialog) {
    ActiveModelessDialog() = dialog;
}

BOOL CApp::ReleaseSharedMem() {
    if (m_sharedMem == INVALID_HANDLE_VALUE) return TRUE;
    if (!::CloseHandle(m_sharedMem)) return FALSE;
    m_sharedMem = INVALID_HANDLE_VALUE;
    return TRUE;
}

// ---------------------------------------------------------------------------
// The message loop

void CApp::RunLoop(CDialog& dialog) {
    Loop(dialog, nullptr);
}

void CApp::RunLoop(CFrameWndEx& frame) {
    Loop(frame, frame.GetAcceleratorTable());
}

void CApp::Loop(CWnd& mainWindow, HACCEL accelerators) {
    MSG msg;
    BOOL got;
    // -1 (an invalid call) does not end the loop; only WM_QUIT does.
    while ((got = ::GetMessageW(&msg, nullptr, 0, 0)) != 0) {
        if (got == -1) continue;
        PumpMessage(msg, mainWindow, accelerators);
    }
}

void CApp::PumpMessage(MSG& msg, CWnd& window, HACCEL accelerators) {
    if (PreTranslateMessage(msg)) return;
    if (accelerators != nullptr && ::TranslateAcceleratorW(window.GetHwnd(), accelerators, &msg)) return;
    HWND dialog = GetActiveModelessDialog();
    if (dialog != nullptr && ::IsDialogMessageW(dialog, &msg)) return;
    ::TranslateMessage(&msg);
    ::DispatchMessageW(&msg);
    MSG next;
    if (!::PeekMessageW(&next, nullptr, 0, 0, PM_NOREMOVE)) CleanUpTempObjects();
}

BOOL CApp::PreTranslateMessage(MSG& msg) {
    const bool keyboard = msg.message >= WM_KEYFIRST && msg.message <= 0x109;
    const bool mouse = msg.message >= WM_MOUSEFIRST && msg.message <= 0x20E;
    if (!keyboard && !mouse) return FALSE;
    for (HWND hwnd = msg.hwnd; hwnd != nullptr; hwnd = ::GetParent(hwnd)) {
        CWnd* wnd = CWnd::FindByHandle(hwnd);
        if (wnd != nullptr && wnd->PreTranslateMessage(msg)) return TRUE;
    }
    return FALSE;
}

void CApp::CleanUpTempObjects() {
    CWnd::CleanUpTempObjects();
    CMenu::CleanUpTempObjects();
    CDC::CleanUpTempObjects();
    CGdiObject::CleanUpTempObjects();
    CImageList::CleanUpTempObjects();
    CIcon::CleanUpTempObjects();
}

}  // namespace Velkan
