#pragma once

#include <windows.h>
#include <objidl.h>  // GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out
#include <gdiplus.h>

#include <exception>

#include "velkan/app/ResourceIds.h"
#include "velkan/app/NotificationCenter.h"
#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/core/PathString.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWnd;
class CDialog;
class CFrameWndEx;

/// The one application object of a process. Its constructor starts GDI+, the
/// common controls and COM, probes the system, reads the registry keys from the
/// executable's string resources 0xE000 (application) and 0xE002 (company),
/// opens the single-instance marker and publishes itself as theAppPtr; its
/// destructor undoes all of that.
///
/// Settings live at HKEY_CURRENT_USER, key Software, then the company, the
/// application, the section and the value name. Every registry function sets
/// the thread's last error to the registry's result code.
class VELKAN_API CApp {
public:
    /// Starts the application as the class notes say. Throws
    /// std::runtime_error when GDI+ cannot start.
    CApp();
    /// Not copyable.
    ///@{
    CApp(const CApp&) = delete;
    CApp& operator=(const CApp&) = delete;
    ///@}

    // Message loop.
    /// Keyboard and mouse messages first go to the PreTranslateMessage of
    /// the target window and its ancestors; TRUE when one of them consumed
    /// the message.
    virtual BOOL PreTranslateMessage(MSG& msg);
    /// Runs until WM_QUIT with a dialog as the main window, no accelerators.
    virtual void RunLoop(CDialog& dialog);
    /// Runs until WM_QUIT (the frame posts it when it dies) with the frame's
    /// accelerator table.
    virtual void RunLoop(CFrameWndEx& frame);
    /// One message of the loop: PreTranslateMessage, the accelerators of
    /// window, the active modeless dialog, then TranslateMessage and
    /// DispatchMessage. CleanUpTempObjects runs when the queue is empty.
    virtual void PumpMessage(MSG& msg, CWnd& window, HACCEL accelerators);
    /// Idle work: frees the calling thread's temporary wrapper objects
    /// (windows, menus, device contexts, GDI objects, image lists, icons).
    virtual void CleanUpTempObjects();
    /// Undoes the constructor's work and records that a run has ended (see
    /// IsFirstRun).
    virtual ~CApp();
    /// An exception that a handler let out where the system called the
    /// library (window and dialog procedures, callbacks, a worker's entry).
    /// It has been traced, and the message gets its default processing; the
    /// default does nothing more, so the program keeps running. e is null for
    /// an exception that is not a std::exception.
    virtual void OnUnhandledException(const std::exception* e);

    /// The modeless dialog of the calling thread that is active (the
    /// dialogs keep it on WM_ACTIVATE); the loop lets it see keyboard
    /// messages through IsDialogMessageW.
    ///@{
    static HWND GetActiveModelessDialog();
    static void SetActiveModelessDialog(HWND dialog);
    ///@}

    // Registry.
    /// The application's key under root (Software, company, application),
    /// created when missing; read-only outside HKEY_CURRENT_USER. Null on
    /// failure; the caller closes it.
    HKEY GetAppRegKey(HKEY root = HKEY_CURRENT_USER) const;
    /// A section's key below the application's, created when missing; null on
    /// failure. The caller closes it.
    HKEY GetSectionKey(LPCWSTR section, HKEY root = HKEY_CURRENT_USER) const;
    /// Reads a DWORD value; the other types are converted from it. FALSE, with
    /// *value untouched, when it cannot be read.
    ///@{
    BOOL RegQueryDWORD(LPCWSTR section, LPCWSTR name, DWORD* value) const;
    BOOL RegQueryLONG(LPCWSTR section, LPCWSTR name, LONG* value) const;
    BOOL RegQueryInt(LPCWSTR section, LPCWSTR name, int* value) const;
    BOOL RegQueryBOOL(LPCWSTR section, LPCWSTR name, BOOL* value) const;
    BOOL RegQueryWORD(LPCWSTR section, LPCWSTR name, WORD* value) const;
    ///@}
    /// Four values N.Left, N.Right, N.Top, N.Bottom; all or nothing.
    BOOL RegQueryRect(LPCWSTR section, LPCWSTR name, CRect& rect) const;
    /// Reads a string value into buffer. Bytes read, or 0. size is the
    /// buffer's size in bytes.
    int RegQueryString(LPCWSTR section, LPCWSTR name, wchar_t* buffer, int size,
                       HKEY root = HKEY_CURRENT_USER) const;
    /// Reads a string value into value, with room for size units; bytes
    /// read, or 0.
    int RegQueryString(LPCWSTR section, LPCWSTR name, CString& value, int size,
                       HKEY root = HKEY_CURRENT_USER) const;
    /// A string value of at most size units, or defaultValue when it is
    /// missing or empty.
    CString RegQueryString(LPCWSTR section, LPCWSTR name, LPCWSTR defaultValue, int size,
                           HKEY root = HKEY_CURRENT_USER) const;
    /// Reads a value of at most size bytes into data.
    BOOL RegQueryBinary(LPCWSTR section, LPCWSTR name, void* data, int size) const;
    /// Writes a REG_DWORD value, creating the keys when missing.
    ///@{
    BOOL RegWriteDWORD(LPCWSTR section, LPCWSTR name, DWORD value) const;
    BOOL RegWriteLONG(LPCWSTR section, LPCWSTR name, LONG value) const;
    BOOL RegWriteInt(LPCWSTR section, LPCWSTR name, int value) const;
    BOOL RegWriteBOOL(LPCWSTR section, LPCWSTR name, BOOL value) const;
    BOOL RegWriteWORD(LPCWSTR section, LPCWSTR name, WORD value) const;
    ///@}
    /// Writes the four values that RegQueryRect reads.
    BOOL RegWriteRect(LPCWSTR section, LPCWSTR name, const CRect& rect) const;
    /// Writes a REG_SZ value.
    /// Without the terminator; a null value deletes the value.
    BOOL RegWriteString(LPCWSTR section, LPCWSTR name, LPCWSTR value) const;
    /// Writes a REG_BINARY value.
    BOOL RegWriteBinary(LPCWSTR section, LPCWSTR name, const void* data, int size) const;
    /// Deletes a value of a section.
    BOOL RegDeleteValueW(LPCWSTR section, LPCWSTR name) const;
    /// Deletes a section's key.
    /// Fails for a section that has subkeys.
    BOOL RegDeleteSection(LPCWSTR section) const;

    // Single instance.
    /// Another instance held the single-instance marker, a named file
    /// mapping, when this one started.
    BOOL AlreadyRunning() const { return m_alreadyRunning; }
    /// The marker's 520-byte shared memory; INVALID_HANDLE_VALUE once released.
    HANDLE GetSharedMem() const { return m_sharedMem; }
    /// Closes the marker, so that an instance started later is the first;
    /// FALSE when closing failed.
    BOOL ReleaseSharedMem();

    /// Timing from the last ResetTimer: milliseconds, and units of 100 µs.
    /// Starts the timer.
    void ResetTimer();
    /// Milliseconds since the last ResetTimer.
    int GetElapsedTime() const;
    /// Units of 100 microseconds since the last ResetTimer, despite the name.
    int GetMicroElapsedTime() const;

    /// SHA-1 of a file's contents; E_INVALIDARG when size is not 20.
    static HRESULT HashFileContents(LPCWSTR path, void* digest, DWORD size);

    // HTML help on the executable's .chm; FALSE when help is unavailable.
    /// HtmlHelp on the executable's .chm, with topic (if any) after "::";
    /// FALSE when help is unavailable.
    BOOL HtmlHelpW(HWND hwnd, LPCWSTR topic, UINT command, DWORD_PTR data);
    /// Opens the .chm at its default topic; FALSE when help is unavailable.
    BOOL OpenHelpTopics(HWND hwnd);
    /// The context-help pop-up (HH_TP_HELP_WM_HELP) of a text file in the
    /// .chm with the control-to-topic ids; FALSE when help is unavailable.
    BOOL PopupHelp(HWND hwnd, LPCWSTR topic, DWORD* ids);

    /// Formats with wvsprintfW (1024 characters at most) to the debugger.
    int Trace(const wchar_t* format, ...);

    /// Packed file version of a module's version resource; FALSE without one.
    /// A null path means the executable.
    static BOOL GetFileVersion(LPCWSTR path, DWORD* ms, DWORD* ls);
    /// The folder of a module's file, or an empty string.
    static CPathString GetModulePath(HINSTANCE instance);

    /// TRUE until a run of the program has ended (the value FirstRun of the
    /// section Settings).
    BOOL IsFirstRun() const { return m_firstRun; }
    BOOL IsCommCtrlsV6() const { return m_commCtrlsV6; }  ///< comctl32.dll is version 6 or later.
    /// The processor's feature flag of that name (CPUID leaf 1).
    ///@{
    BOOL IsMMXCpu() const { return m_mmx; }
    BOOL IsSSE3Cpu() const { return m_sse3; }
    BOOL IsSSSE3Cpu() const { return m_ssse3; }
    BOOL IsHypervisorPresent() const { return m_hypervisor; }
    ///@}
    BOOL IsWindowsNT() const { return m_windowsNT; }  ///< GetVersionEx reports an NT platform.
    /// GetVersionEx reports version 6 or later.
    BOOL IsWindowsVista() const { return m_windowsVista; }
    BOOL IsThemed() const;  ///< The system draws flat menus (SPI_GETFLATMENU).
    HINSTANCE GetInstance() const { return m_instance; }  ///< The executable's module.
    /// The center CNotificationCenter::GetDefault returns.
    CNotificationCenter& GetNotificationCenter() { return m_notificationCenter; }
    LPCWSTR GetModuleFileName() const { return m_modulePath; }  ///< The executable's path.
    /// The executable's path with .hlp for .exe.
    LPCWSTR GetHelpFilePath() const { return m_helpPath; }
    /// The executable's path with .chm for .exe.
    LPCWSTR GetHtmlHelpPath() const { return m_htmlHelpPath; }
    LPCWSTR GetRegistryCompanyKey() const { return m_companyKey; }  ///< The company's key name.
    LPCWSTR GetRegistryAppKey() const { return m_appKey; }  ///< The application's key name.

protected:
    /// MAKELONG(minor, major) from the DLL's DllGetVersion, or 0.
    static DWORD GetDllVersion(LPCWSTR dll);

private:
    // The loop of every RunLoop: until WM_QUIT, each message through
    // PumpMessage.
    void Loop(CWnd& mainWindow, HACCEL accelerators);

    Gdiplus::GdiplusStartupInput m_gdiplusInput;
    ULONG_PTR m_gdiplusToken = 0;
    HINSTANCE m_instance = nullptr;
    HANDLE m_sharedMem = INVALID_HANDLE_VALUE;
    BOOL m_alreadyRunning = FALSE;
    BOOL m_windowsNT = FALSE;
    wchar_t m_modulePath[MAX_PATH] = {};
    wchar_t m_helpPath[MAX_PATH] = {};
    wchar_t m_htmlHelpPath[MAX_PATH] = {};
    wchar_t m_companyKey[64] = {};
    wchar_t m_appKey[64] = {};
    LONGLONG m_timerStart = 0;
    BOOL m_firstRun = TRUE;
    BOOL m_commCtrlsV6 = FALSE;
    BOOL m_mmx = FALSE;
    BOOL m_sse3 = FALSE;
    BOOL m_ssse3 = FALSE;
    BOOL m_hypervisor = FALSE;
    BOOL m_windowsVista = FALSE;
    CNotificationCenter m_notificationCenter;
};

/// The application object, from the start of its constructor to the end of
/// its destructor; null otherwise.
extern VELKAN_API CApp* theAppPtr;

}  // namespace Velkan
