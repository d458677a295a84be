#pragma once

#include <windows.h>
#include <commctrl.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "velkan/app/NotificationCenter.h"
#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/core/String.h"

namespace Velkan {

class CDC;
class CWnd;
template <typename Key, typename Object> class ObjectContext;

// Sees a window's messages before its object's handlers; TRUE consumes the
// message and result becomes the window procedure's result.
class IWndMsgFilter {
public:
    virtual BOOL WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam,
                                  LRESULT& result) = 0;

protected:
    ~IWndMsgFilter() = default;
};

// How a child follows its parent's size when the parent auto-resizes.
enum AutoResizingMaskOptions : DWORD {
    AnchorLeft = 0x0001,
    AnchorRight = 0x0002,
    AnchorTop = 0x0004,
    AnchorBottom = 0x0008,
    ScaleHorizontal = 0x0010,
    ScaleVertical = 0x0020,
    RepaintAfterResize = 0x8000,
};

// The base of every window: ties one HWND to one object through a
// process-wide handle table and routes the window's messages through its
// filters, then WndProc, then the named handlers of DefaultWndProc.
//
// The library never deletes a window object; its owner does. A permanent
// object destroys its window in its destructor. Objects made by FromHwnd
// are temporary: they belong to the calling thread until it calls
// CleanUpTempObjects and never destroy their window.
class VELKAN_API CWnd : public IObservable, protected IWndMsgFilter {
public:
    using Context = ObjectContext<HWND, CWnd>;

    enum ZOrder { ZOrderTop, ZOrderBottom, ZOrderTopMost, ZOrderNoTopMost };

    CWnd();
    // Attaches hwnd, or, for HWND_BOTTOM, HWND_TOPMOST and HWND_NOTOPMOST,
    // only stores it so that the object can stand for an insert-after
    // position. Such objects have no templates and no filter of their own.
    explicit CWnd(HWND hwnd);
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // The handle table.
    static Context& GetContext();
    static CWnd* FromHwnd(HWND hwnd);
    static CWnd* FindByHandle(HWND hwnd);
    static void AddToContext(HWND hwnd, CWnd& wnd);
    static void CleanUpTempObjects();
    static void ResetContext();
    // (temporary objects of the calling thread, entries in the table)
    static std::tuple<unsigned, unsigned> GetContextInfo();
    static CWnd*& GetWndBeingCreated();
    static LRESULT CALLBACK StaticWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    static BOOL IsOffScreen(const RECT& rect);
    static CWnd* GetDesktopWindow() { return FromHwnd(::GetDesktopWindow()); }
    static CWnd* GetFocus() { return FromHwnd(::GetFocus()); }

    // Virtual operations, in slot order after IObservable's OnNotify.
    void OnNotify(CNotification& notification) override;
    virtual void AddWndMsgFilter(IWndMsgFilter& filter);
    virtual void Attach(HWND hwnd);
    virtual void AttachDlgItem(UINT id, CWnd* parent);
    virtual void CenterWindow() const;
    virtual HWND Create(CWnd* parent = nullptr);
    virtual HWND CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style,
                          int x, int y, int cx, int cy, CWnd* parent, HMENU menu,
                          LPVOID param = nullptr);
    virtual void Destroy();
    virtual void EnableOwnedPopupWindows(BOOL enable);
    virtual HWND Detach();
    virtual void Subclass();
    virtual void SubclassWnd(HWND hwnd);
    virtual void SubclassDlgItem(UINT id, CWnd* parent);
    virtual BOOL RegisterWndClass(WNDCLASSEXW& wc);
    virtual void AutoResizeWindow(const CSize& newParentSize);
    virtual void PostNotification(LPCWSTR name, DWORD_PTR data);
    virtual void RegisterForNotification(LPCWSTR name);
    virtual void UnregisterForNotification(LPCWSTR name);
    virtual void UnregisterForAllNotifications();
    virtual BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result);
    virtual void PreRegisterWndClass(WNDCLASSEXW& wc);
    virtual void PreCreate(CREATESTRUCTW& cs);
    virtual BOOL PreTranslateMessage(MSG& msg);
    virtual BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);
    virtual LRESULT DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam);
    virtual LRESULT FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(UINT wParam, LPARAM lParam);
    virtual BOOL OnCommandReflect(UINT wParam, LPARAM lParam);
    virtual void OnCreate();
    virtual void OnDestroy();
    virtual BOOL OnEraseBkgnd(CDC& dc);
    virtual void OnNcDestroy();
    virtual BOOL OnNotifyReflect(UINT id, LPARAM nmhdr, LRESULT& result);
    virtual void OnPaint(CDC& dc);
    virtual ~CWnd();

    // State.
    HWND GetHwnd() const { return m_hwnd; }
    operator HWND() const { return m_hwnd; }
    BOOL IsTempWnd() const { return m_isTemp; }
    WNDPROC GetPreviousWndProc() const { return m_prevWndProc; }
    void UseAutoResizing(BOOL enable) { m_autoResizing = enable; }
    BOOL IsAutoResizingEnabled() const { return m_autoResizing; }
    void SetAutoResizingMask(DWORD mask) { m_autoResizingMask = mask; }
    DWORD GetAutoResizingMask() const { return m_autoResizingMask; }

    // DPI.
    int GetDpi() const;
    double GetDpiScaleFactor() const { return GetDpi() / 96.0; }
    int MulDivDpi(int value) const { return ::MulDiv(value, GetDpi(), 96); }

    // Windows of this thread owned by this one that have an object.
    std::vector<CWnd*> GetOwnedPopupWindows() const;
    // Visible: hide and return FALSE; hidden: show and return TRUE.
    BOOL ToggleWindow() const;
    BOOL IsOffScreen() const;

    // Text.
    std::string GetTextA() const;
    std::wstring GetTextW() const;
    BOOL SetTextA(const std::string& text) const { return ::SetWindowTextA(m_hwnd, text.c_str()); }
    BOOL SetTextW(const std::wstring& text) const { return ::SetWindowTextW(m_hwnd, text.c_str()); }
    CString GetWindowTextW() const;
    BOOL SetWindowTextW(LPCWSTR text) const { return ::SetWindowTextW(m_hwnd, text); }
    int GetWindowTextLengthW() const { return ::GetWindowTextLengthW(m_hwnd); }
    // The text as a signed decimal: an optional sign, then digits only.
    int GetInt(BOOL* ok = nullptr) const;
    BOOL TryGetInt(int* value) const;
    BOOL SetInt(int value) const;
    LRESULT SetDialogMsgResult(UINT msg, LRESULT result) const;

    // Geometry.
    CSize GetClientSize() const;
    CSize GetWindowSize() const;
    CSize GetWindowTextExtentPoint32(LPCWSTR text, int count) const;
    BOOL GetWindowTextMetrics(TEXTMETRICW& metrics) const;

    // Relatives, through FromHwnd.
    CWnd* GetRoot() const { return FromHwnd(::GetAncestor(m_hwnd, GA_ROOT)); }
    CWnd* GetRootOwner() const { return FromHwnd(::GetAncestor(m_hwnd, GA_ROOTOWNER)); }
    CWnd* GetParent() const { return FromHwnd(::GetParent(m_hwnd)); }
    CWnd* GetWindow(UINT cmd) const { return FromHwnd(::GetWindow(m_hwnd, cmd)); }
    CWnd* GetAncestor(UINT flags) const { return FromHwnd(::GetAncestor(m_hwnd, flags)); }
    CWnd* GetDlgItem(int id) const { return FromHwnd(::GetDlgItem(m_hwnd, id)); }
    static CWnd* GetActiveWindow() { return FromHwnd(::GetActiveWindow()); }
    static CWnd* GetCapture() { return FromHwnd(::GetCapture()); }
    CWnd* SetActiveWindow() const { return FromHwnd(::SetActiveWindow(m_hwnd)); }
    CWnd* SetCapture() const { return FromHwnd(::SetCapture(m_hwnd)); }
    CWnd* SetFocus() const { return FromHwnd(::SetFocus(m_hwnd)); }

    // Thin wrappers of the Win32 functions of the same name.
    BOOL ShowWindow(int show = SW_SHOWNORMAL) const { return ::ShowWindow(m_hwnd, show); }
    BOOL HideWindow() const { return ::ShowWindow(m_hwnd, SW_HIDE); }
    BOOL EnableWindow(BOOL enable = TRUE) const { return ::EnableWindow(m_hwnd, enable); }
    BOOL InvalidateRect(const RECT* rect = nullptr, BOOL erase = TRUE) const { return ::InvalidateRect(m_hwnd, rect, erase); }
    BOOL UpdateWindow() const { return ::UpdateWindow(m_hwnd); }
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags) const;
    BOOL SetWindowPos(const CWnd* insertAfter, const POINT& pos, const SIZE& size, UINT flags) const;
    BOOL SetWindowPos(const CWnd* insertAfter, const RECT& rect, UINT flags) const;
    BOOL SetWindowPos(ZOrder insertAfter, int x, int y, int cx, int cy, UINT flags) const;
    BOOL SetWindowPos(ZOrder insertAfter, const POINT& pos, const SIZE& size, UINT flags) const;
    BOOL SetWindowPos(ZOrder insertAfter, const RECT& rect, UINT flags) const;
    BOOL SetWindowSize(int cx, int cy) const { return ::SetWindowPos(m_hwnd, nullptr, 0, 0, cx, cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE); }
    BOOL GetClientRect(RECT* rect) const { return ::GetClientRect(m_hwnd, rect); }
    CRect GetClientRect() const { CRect r; ::GetClientRect(m_hwnd, &r); return r; }
    BOOL GetWindowRect(RECT* rect) const { return ::GetWindowRect(m_hwnd, rect); }
    CRect GetWindowRect() const { CRect r; ::GetWindowRect(m_hwnd, &r); return r; }
    BOOL ClientToScreen(POINT* point) const { return ::ClientToScreen(m_hwnd, point); }
    BOOL ClientToScreen(RECT* rect) const { return ::MapWindowPoints(m_hwnd, nullptr, reinterpret_cast<POINT*>(rect), 2) != 0 || ::GetLastError() == 0; }
    BOOL ScreenToClient(POINT* point) const { return ::ScreenToClient(m_hwnd, point); }
    BOOL ScreenToClient(RECT* rect) const { return ::MapWindowPoints(nullptr, m_hwnd, reinterpret_cast<POINT*>(rect), 2) != 0 || ::GetLastError() == 0; }
    int MapWindowPoints(HWND to, POINT* points, UINT count) const { return ::MapWindowPoints(m_hwnd, to, points, count); }
    int MapWindowPoints(HWND to, RECT* rect) const { return ::MapWindowPoints(m_hwnd, to, reinterpret_cast<POINT*>(rect), 2); }
    int MapWindowPointsFrom(HWND from, POINT* points, UINT count) const { return ::MapWindowPoints(from, m_hwnd, points, count); }
    int MapWindowPointsFrom(HWND from, RECT* rect) const { return ::MapWindowPoints(from, m_hwnd, reinterpret_cast<POINT*>(rect), 2); }
    LONG GetWindowLongW(int index) const { return ::GetWindowLongW(m_hwnd, index); }
    LONG SetWindowLongW(int index, LONG value) const { return ::SetWindowLongW(m_hwnd, index, value); }
    DWORD GetWindowStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hwnd, GWL_STYLE)); }
    DWORD SetWindowStyle(DWORD style) const { return static_cast<DWORD>(::SetWindowLongW(m_hwnd, GWL_STYLE, static_cast<LONG>(style))); }
    DWORD GetWindowExStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hwnd, GWL_EXSTYLE)); }
    DWORD SetWindowExStyle(DWORD style) const { return static_cast<DWORD>(::SetWindowLongW(m_hwnd, GWL_EXSTYLE, static_cast<LONG>(style))); }
    LRESULT SendMessageW(UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const { return ::SendMessageW(m_hwnd, msg, wParam, lParam); }
    BOOL PostMessageW(UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const { return ::PostMessageW(m_hwnd, msg, wParam, lParam); }
    LRESULT SendDlgItemMessageW(int id, UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const { return ::SendDlgItemMessageW(m_hwnd, id, msg, wParam, lParam); }
    UINT_PTR SetTimer(UINT_PTR id, UINT elapse, TIMERPROC proc = nullptr) const { return ::SetTimer(m_hwnd, id, elapse, proc); }
    BOOL KillTimer(UINT_PTR id) const { return ::KillTimer(m_hwnd, id); }
    HANDLE GetPropW(LPCWSTR name) const { return ::GetPropW(m_hwnd, name); }
    BOOL SetPropW(LPCWSTR name, HANDLE data) const { return ::SetPropW(m_hwnd, name, data); }
    HANDLE RemovePropW(LPCWSTR name) const { return ::RemovePropW(m_hwnd, name); }
    void SetFont(HFONT font, BOOL redraw = TRUE) const { ::SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw); }
    HFONT GetFont() const { return reinterpret_cast<HFONT>(::SendMessageW(m_hwnd, WM_GETFONT, 0, 0)); }
    HICON SetIcon(HICON icon, BOOL big) const { return reinterpret_cast<HICON>(::SendMessageW(m_hwnd, WM_SETICON, big ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(icon))); }
    BOOL SetMenu(HMENU menu) const { return ::SetMenu(m_hwnd, menu); }
    HMENU GetMenu() const { return ::GetMenu(m_hwnd); }
    BOOL DrawMenuBar() const { return ::DrawMenuBar(m_hwnd); }
    void SetRedraw(BOOL redraw) const { ::SendMessageW(m_hwnd, WM_SETREDRAW, redraw, 0); }
    CWnd* SetParent(HWND parent) const { return FromHwnd(::SetParent(m_hwnd, parent)); }
    int GetId() const { return ::GetDlgCtrlID(m_hwnd); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hwnd); }
    LONG SetDlgCtrlID(int id) const { return ::SetWindowLongW(m_hwnd, GWL_ID, id); }
    UINT GetDlgItemTextW(int id, LPWSTR text, int max) const { return ::GetDlgItemTextW(m_hwnd, id, text, max); }
    CString GetDlgItemText(int id) const;
    BOOL SetDlgItemTextW(int id, LPCWSTR text) const { return ::SetDlgItemTextW(m_hwnd, id, text); }
    UINT GetDlgItemInt(int id, BOOL* ok = nullptr, BOOL isSigned = TRUE) const { return ::GetDlgItemInt(m_hwnd, id, ok, isSigned); }
    BOOL SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE) const { return ::SetDlgItemInt(m_hwnd, id, value, isSigned); }
    BOOL CheckDlgButton(int id, UINT check) const { return ::CheckDlgButton(m_hwnd, id, check); }
    UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hwnd, id); }
    BOOL CheckRadioButton(int first, int last, int check) const { return ::CheckRadioButton(m_hwnd, first, last, check); }
    BOOL IsWindow() const { return ::IsWindow(m_hwnd); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hwnd); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hwnd); }
    BOOL IsIconic() const { return ::IsIconic(m_hwnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hwnd); }
    BOOL IsMinimized() const { return ::IsIconic(m_hwnd); }
    BOOL IsMaximized() const { return ::IsZoomed(m_hwnd); }
    BOOL IsRestored() const { return !::IsIconic(m_hwnd) && !::IsZoomed(m_hwnd); }
    BOOL IsChild(HWND child) const { return ::IsChild(m_hwnd, child); }
    BOOL IsDialogMessageW(MSG& msg) const { return ::IsDialogMessageW(m_hwnd, &msg); }
    BOOL FlashWindow(BOOL invert) const { return ::FlashWindow(m_hwnd, invert); }
    BOOL FlashWindowEx(DWORD flags, UINT count, DWORD timeout) const;
    BOOL SetForegroundWindow() const { return ::SetForegroundWindow(m_hwnd); }
    BOOL ShowOwnedPopups(BOOL show) const { return ::ShowOwnedPopups(m_hwnd, show); }
    BOOL TrackMouseEvent(DWORD flags, DWORD hoverTime = HOVER_DEFAULT) const;
    HDC BeginPaint(PAINTSTRUCT& ps) const { return ::BeginPaint(m_hwnd, &ps); }
    BOOL EndPaint(PAINTSTRUCT& ps) const { return ::EndPaint(m_hwnd, &ps); }
    int ScrollWindowEx(int dx, int dy, const RECT* scroll, const RECT* clip, HRGN update, RECT* updated, UINT flags) const { return ::ScrollWindowEx(m_hwnd, dx, dy, scroll, clip, update, updated, flags); }
    BOOL GetScrollInfo(int bar, SCROLLINFO& info) const { return ::GetScrollInfo(m_hwnd, bar, &info); }
    int SetScrollInfo(int bar, const SCROLLINFO& info, BOOL redraw = TRUE) const { return ::SetScrollInfo(m_hwnd, bar, &info, redraw); }
    // The system owns the region after a successful call.
    int SetWindowRegion(HRGN region, BOOL redraw = TRUE) const { return ::SetWindowRgn(m_hwnd, region, redraw); }
    BOOL AdjustWindowRectEx(RECT* rect) const { return ::AdjustWindowRectEx(rect, GetWindowStyle(), ::GetMenu(m_hwnd) != nullptr, GetWindowExStyle()); }
    BOOL MapDialogRect(RECT* rect) const { return ::MapDialogRect(m_hwnd, rect); }
    HMONITOR MonitorFromWindow(DWORD flags = MONITOR_DEFAULTTONEAREST) const { return ::MonitorFromWindow(m_hwnd, flags); }
    BOOL GetMonitorInfoW(MONITORINFO& info, DWORD flags = MONITOR_DEFAULTTONEAREST) const;
    BOOL EnumChildWindows(WNDENUMPROC proc, LPARAM lParam) const { return ::EnumChildWindows(m_hwnd, proc, lParam); }
    BOOL EnumThreadWindows(WNDENUMPROC proc, LPARAM lParam) const { return ::EnumThreadWindows(::GetWindowThreadProcessId(m_hwnd, nullptr), proc, lParam); }
    BOOL GetWindowPlacement(WINDOWPLACEMENT& placement) const { placement.length = sizeof(placement); return ::GetWindowPlacement(m_hwnd, &placement); }
    static CPoint GetCursorPos() { CPoint p; ::GetCursorPos(&p); return p; }
    CPoint GetClientCursorPos() const { CPoint p = GetCursorPos(); ::ScreenToClient(m_hwnd, &p); return p; }
    static CPoint GetMessagePos() { return CPoint(static_cast<LPARAM>(::GetMessagePos())); }
    CPoint GetClientMessagePos() const { CPoint p = GetMessagePos(); ::ScreenToClient(m_hwnd, &p); return p; }
    CString GetClassNameW() const;
    CString RealGetWindowClassW() const;
    HINSTANCE GetInstance() const { return reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(m_hwnd, GWLP_HINSTANCE)); }
    LRESULT CallWindowProcW(WNDPROC proc, UINT msg, WPARAM wParam, LPARAM lParam) const { return ::CallWindowProcW(proc, m_hwnd, msg, wParam, lParam); }
    HRESULT SetWindowTheme(LPCWSTR subAppName, LPCWSTR subIdList) const;
    HRESULT DisableWindowTheme() const { return SetWindowTheme(L" ", L" "); }
    BOOL DestroyWindow() const { return ::DestroyWindow(m_hwnd); }

protected:
    // CWnd's own filter: lays out descendants on WM_SIZE when enabled.
    BOOL WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // The two halves of routing that every procedure of the library shares.
    // TieWndBeingCreated hands the thread's window-being-created object the
    // handle and registers it (null when no object is being created);
    // FilterMessage offers a message to wnd's filters in registration order
    // and is TRUE when one consumed it.
    static CWnd* TieWndBeingCreated(HWND hwnd);
    // Set when OnCreate threw during the calling thread's current creation.
    static bool& CreationThrew();
    static BOOL FilterMessage(CWnd& wnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // Shared by the windows a dialog procedure drives. RouteDialogMessage
    // runs filters, WndProc and DefaultWndProc with the results as the
    // dialog manager wants them; the others are rows of their
    // DefaultWndProc (TRUE when handled; answer is the procedure's result).
    static INT_PTR RouteDialogMessage(CWnd& wnd, UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT DialogPaint();
    BOOL DialogEraseBkgnd(WPARAM hdc);
    BOOL DialogNotify(WPARAM wParam, LPARAM lParam, LRESULT& answer);
    BOOL DialogCommand(WPARAM wParam, LPARAM lParam);

    // Forgets the window: the table entry (if it is ours), notification
    // registrations, subclassing and layout state. Does not destroy.
    void ResetCWnd();
    // Puts StaticWndProc in front of the window's current procedure.
    void InstallStaticWndProc();
    WNDCLASSEXW& GetWndClassTemplate() { return *m_wndClass; }
    CREATESTRUCTW& GetCreateTemplate() { return *m_createStruct; }

    HWND m_hwnd = nullptr;
    BOOL m_isTemp = FALSE;
    BOOL m_subclass = FALSE;
    BOOL m_paintThrough = FALSE;
    std::vector<IWndMsgFilter*> m_filters;
    WNDPROC m_prevWndProc = nullptr;
    std::shared_ptr<WNDCLASSEXW> m_wndClass;
    std::shared_ptr<CREATESTRUCTW> m_createStruct;
    int m_notificationCount = 0;
    BOOL m_autoResizing = FALSE;
    DWORD m_autoResizingMask = 0;
    BOOL m_layoutCaptured = FALSE;
    RECT m_initialRect = {0, 0, 0, 0};
    SIZE m_initialParentSize = {0, 0};

private:
    LRESULT DefaultProcessing(UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT RoutePaint(UINT msg, WPARAM wParam);
};

}  // namespace Velkan
