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

/// Sees a window's messages before its object's handlers; TRUE consumes the
/// message and result becomes the window procedure's result.
class IWndMsgFilter {
public:
    /// Offered each message of a window that has the filter, before the
    /// window's own handlers. Returns TRUE to consume it, with result as the
    /// window procedure's result.
    virtual BOOL WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam,
                                  LRESULT& result) = 0;

protected:
    /// Filters are not deleted through this interface.
    ~IWndMsgFilter() = default;
};

/// How a child follows its parent's size when the parent auto-resizes.
enum AutoResizingMaskOptions : DWORD {
    AnchorLeft = 0x0001,  ///< keeps its distance to the parent's left edge
    AnchorRight = 0x0002,  ///< keeps its distance to the parent's right edge
    AnchorTop = 0x0004,  ///< keeps its distance to the parent's top edge
    AnchorBottom = 0x0008,  ///< keeps its distance to the parent's bottom edge
    ScaleHorizontal = 0x0010,  ///< scales its free horizontal edges with the parent's width
    ScaleVertical = 0x0020,  ///< scales its free vertical edges with the parent's height
    RepaintAfterResize = 0x8000,  ///< invalidates the window after each move
};

/// The base of every window: ties one HWND to one object through a
/// process-wide handle table and routes the window's messages through its
/// filters, then WndProc, then the named handlers of DefaultWndProc.
///
/// The library never deletes a window object; its owner does. A permanent
/// object destroys its window in its destructor. Objects made by FromHwnd
/// are temporary: they belong to the calling thread until it calls
/// CleanUpTempObjects and never destroy their window.
class VELKAN_API CWnd : public IObservable, protected IWndMsgFilter {
public:
    /// The handle table's type.
    using Context = ObjectContext<HWND, CWnd>;

    /// Insert-after positions for SetWindowPos: HWND_TOP, HWND_BOTTOM,
    /// HWND_TOPMOST and HWND_NOTOPMOST.
    enum ZOrder { ZOrderTop, ZOrderBottom, ZOrderTopMost, ZOrderNoTopMost };

    CWnd();  ///< No window yet: Create, CreateEx or Attach gives it one.
    /// Attaches hwnd, or, for HWND_BOTTOM, HWND_TOPMOST and HWND_NOTOPMOST,
    /// only stores it so that the object can stand for an insert-after
    /// position. Such objects have no templates and no filter of their own.
    explicit CWnd(HWND hwnd);
    /// Not copyable: the handle table points at the object.
    ///@{
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    ///@}

    // The handle table.
    /// The process-wide table of permanent objects and the threads'
    /// temporary ones.
    static Context& GetContext();
    /// The object of hwnd: its permanent one, or a temporary object made for
    /// it and owned by the calling thread until CleanUpTempObjects. Null for a
    /// null handle.
    static CWnd* FromHwnd(HWND hwnd);
    /// The object registered for hwnd, or null; makes no temporary object.
    static CWnd* FindByHandle(HWND hwnd);
    /// Registers wnd as hwnd's object, replacing any earlier entry.
    static void AddToContext(HWND hwnd, CWnd& wnd);
    /// Deletes the calling thread's temporary objects; pointers from FromHwnd
    /// to them become invalid.
    static void CleanUpTempObjects();
    /// Forgets the calling thread's temporary objects and every entry of the
    /// table.
    static void ResetContext();
    /// (temporary objects of the calling thread, entries in the table)
    static std::tuple<unsigned, unsigned> GetContextInfo();
    /// The calling thread's object whose window is being created: the first
    /// message of the new window ties the handle to it.
    static CWnd*& GetWndBeingCreated();
    /// The window procedure of every window class the library registers and
    /// of subclassed windows: filters, then WndProc, then DefaultWndProc. An
    /// exception from a handler is reported and the message gets its default
    /// processing.
    static LRESULT CALLBACK StaticWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    /// TRUE when rect is empty or shows on no monitor's work area, a sliver
    /// at the bottom of the work area not counting.
    static BOOL IsOffScreen(const RECT& rect);
    /// The desktop window, through FromHwnd.
    static CWnd* GetDesktopWindow() { return FromHwnd(::GetDesktopWindow()); }
    /// The window with the keyboard focus, through FromHwnd.
    static CWnd* GetFocus() { return FromHwnd(::GetFocus()); }

    // Virtual operations, in slot order after IObservable's OnNotify.
    /// Receives the notifications the window registered for; does nothing
    /// by default.
    void OnNotify(CNotification& notification) override;
    /// Adds a filter after the ones the window has; filters see messages in
    /// the order they were added. The filter is not owned.
    virtual void AddWndMsgFilter(IWndMsgFilter& filter);
    /// Ties an existing window to this object (taking it from any object
    /// that held it), subclasses it when the object asks for that, and calls
    /// OnCreate. A window the object had is destroyed first.
    virtual void Attach(HWND hwnd);
    /// Attach to the dialog item id of parent.
    virtual void AttachDlgItem(UINT id, CWnd* parent);
    /// Centers the window over its parent, or over the work area of its
    /// monitor, keeping it inside that work area.
    virtual void CenterWindow() const;
    /// Creates the window from its templates: PreRegisterWndClass and
    /// PreCreate fill them, and CreateEx runs. Without a style, a child window
    /// is WS_CHILD | WS_VISIBLE and a top-level one WS_OVERLAPPEDWINDOW; a zero
    /// size means CW_USEDEFAULT. Returns the handle, or null.
    virtual HWND Create(CWnd* parent = nullptr);
    /// Creates a window of className (registered with the library's
    /// procedure when it is not yet; "VlkWnd" when empty) and ties it to this
    /// object. Null on failure; when OnCreate threw, the last error is
    /// ERROR_UNHANDLED_EXCEPTION.
    virtual HWND CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style,
                          int x, int y, int cx, int cy, CWnd* parent, HMENU menu,
                          LPVOID param = nullptr);
    /// Destroys a permanent object's window and forgets it (see ResetCWnd).
    /// A temporary object only forgets its window.
    virtual void Destroy();
    /// Disables the owned pop-ups (GetOwnedPopupWindows), or enables again
    /// the ones this call disabled; pop-ups that were disabled before stay
    /// disabled.
    virtual void EnableOwnedPopupWindows(BOOL enable);
    /// Unties the window and returns it: the previous procedure of a
    /// subclassed window is put back, and the window is not destroyed.
    virtual HWND Detach();
    /// Puts StaticWndProc in front of the attached window's procedure.
    virtual void Subclass();
    /// Attach, then Subclass.
    virtual void SubclassWnd(HWND hwnd);
    /// SubclassWnd on the dialog item id of parent.
    virtual void SubclassDlgItem(UINT id, CWnd* parent);
    /// Registers wc in the application's module with StaticWndProc as its
    /// procedure, unless a class of that name exists there already.
    virtual BOOL RegisterWndClass(WNDCLASSEXW& wc);
    /// Follows the parent's new client size by the auto-resizing mask. The
    /// first call only records the window's starting place.
    virtual void AutoResizeWindow(const CSize& newParentSize);
    /// Posts a notification through the default center, with this window as
    /// its sender.
    virtual void PostNotification(LPCWSTR name, DWORD_PTR data);
    /// Registers for name in the default center; Destroy and Detach
    /// unregister.
    virtual void RegisterForNotification(LPCWSTR name);
    /// Unregisters from name in the default center.
    virtual void UnregisterForNotification(LPCWSTR name);
    /// Unregisters from every name in the default center.
    virtual void UnregisterForAllNotifications();
    /// WM_NOTIFY from a child that did not handle it in OnNotifyReflect;
    /// TRUE when handled, with result as the message's result.
    virtual BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result);
    /// Fills the class template before Create registers it; a class name
    /// makes Create use that class.
    virtual void PreRegisterWndClass(WNDCLASSEXW& wc);
    /// Fills the creation template before Create creates the window.
    virtual void PreCreate(CREATESTRUCTW& cs);
    /// Offered each message of the message loop before it is translated and
    /// dispatched; TRUE consumes it.
    virtual BOOL PreTranslateMessage(MSG& msg);
    /// The window's own message handler, after the filters; TRUE when
    /// handled, with result as the procedure's result. FALSE passes the
    /// message to DefaultWndProc.
    virtual BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);
    /// Routes messages to the named handlers (OnCreate, OnDestroy,
    /// OnNcDestroy, OnPaint, OnEraseBkgnd, OnNotify and OnNotifyReflect,
    /// OnCommand and OnCommandReflect), then to the previous procedure of a
    /// subclassed window or FinalWndProc.
    virtual LRESULT DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam);
    /// The last step of a message nobody handled: DefWindowProc.
    virtual LRESULT FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam);
    /// WM_COMMAND that the sending control did not handle in
    /// OnCommandReflect; TRUE when handled.
    virtual BOOL OnCommand(UINT wParam, LPARAM lParam);
    /// WM_COMMAND sent by this window to its parent, reflected back to it;
    /// TRUE when handled. The parent's OnCommand then does not see it.
    virtual BOOL OnCommandReflect(UINT wParam, LPARAM lParam);
    /// The window exists: WM_CREATE, or Attach. An exception thrown here
    /// makes the creation fail.
    virtual void OnCreate();
    virtual void OnDestroy();  ///< WM_DESTROY.
    /// WM_ERASEBKGND; TRUE when the background was erased.
    virtual BOOL OnEraseBkgnd(CDC& dc);
    virtual void OnNcDestroy();  ///< WM_NCDESTROY, the window's last message.
    /// WM_NOTIFY sent by this window to its parent, reflected back to it;
    /// TRUE when handled, with result as the message's result.
    virtual BOOL OnNotifyReflect(UINT id, LPARAM nmhdr, LRESULT& result);
    /// WM_PAINT and WM_PRINTCLIENT, with the paint, client or given device
    /// context. A subclassed control paints itself unless the object asks to
    /// paint through.
    virtual void OnPaint(CDC& dc);
    virtual ~CWnd();  ///< Destroy.

    // State.
    HWND GetHwnd() const { return m_hwnd; }  ///< The window, or null.
    operator HWND() const { return m_hwnd; }  ///< The window, or null.
    BOOL IsTempWnd() const { return m_isTemp; }  ///< Made by FromHwnd and owned by a thread.
    /// The procedure a subclassed window had before, or null.
    WNDPROC GetPreviousWndProc() const { return m_prevWndProc; }
    /// Whether WM_SIZE lays out the descendants that have an auto-resizing
    /// mask (see AutoResizeWindow).
    void UseAutoResizing(BOOL enable) { m_autoResizing = enable; }
    BOOL IsAutoResizingEnabled() const { return m_autoResizing; }  ///< See UseAutoResizing.
    /// AutoResizingMaskOptions, combined; 0 for none.
    void SetAutoResizingMask(DWORD mask) { m_autoResizingMask = mask; }
    DWORD GetAutoResizingMask() const { return m_autoResizingMask; }  ///< See SetAutoResizingMask.

    // DPI.
    /// The window's DPI (GetDpiForWindow where the system has it, else the
    /// screen's).
    int GetDpi() const;
    double GetDpiScaleFactor() const { return GetDpi() / 96.0; }  ///< GetDpi() / 96.
    /// Value scaled from 96 DPI to the window's.
    int MulDivDpi(int value) const { return ::MulDiv(value, GetDpi(), 96); }

    /// Windows of this thread owned by this one that have an object.
    /// Tooltips are left out.
    std::vector<CWnd*> GetOwnedPopupWindows() const;
    /// Visible: hide and return FALSE; hidden: show and return TRUE.
    BOOL ToggleWindow() const;
    /// IsOffScreen of the window's rectangle.
    BOOL IsOffScreen() const;

    // Text.
    /// The window text through GetWindowText, SetWindowText and
    /// GetWindowTextLength, as narrow, standard wide or library strings.
    ///@{
    std::string GetTextA() const;
    std::wstring GetTextW() const;
    BOOL SetTextA(const std::string& text) const { return ::SetWindowTextA(m_hwnd, text.c_str()); }
    BOOL SetTextW(const std::wstring& text) const { return ::SetWindowTextW(m_hwnd, text.c_str()); }
    CString GetWindowTextW() const;
    BOOL SetWindowTextW(LPCWSTR text) const { return ::SetWindowTextW(m_hwnd, text); }
    int GetWindowTextLengthW() const { return ::GetWindowTextLengthW(m_hwnd); }
    ///@}
    /// The text as a signed decimal: an optional sign, then digits only.
    /// Anything else, or a value out of range, gives 0 with *ok FALSE.
    int GetInt(BOOL* ok = nullptr) const;
    /// GetInt into *value; TRUE when the text was a number.
    BOOL TryGetInt(int* value) const;
    /// Sets the text to value in decimal.
    BOOL SetInt(int value) const;
    /// The value a dialog procedure returns for msg: result itself for the
    /// messages whose result a dialog procedure returns directly
    /// (WM_CTLCOLOR*, WM_INITDIALOG, WM_COMPAREITEM and the like); otherwise
    /// result goes to DWLP_MSGRESULT and the value is TRUE.
    LRESULT SetDialogMsgResult(UINT msg, LRESULT result) const;

    // Geometry.
    CSize GetClientSize() const;  ///< The size of the client area.
    CSize GetWindowSize() const;  ///< The size of the window rectangle.
    /// The size of count units of text in the window's font.
    CSize GetWindowTextExtentPoint32(LPCWSTR text, int count) const;
    /// The metrics of the window's font.
    BOOL GetWindowTextMetrics(TEXTMETRICW& metrics) const;

    // Relatives, through FromHwnd.
    /// Relatives by the Win32 function of the same name (GetRoot and
    /// GetRootOwner: GetAncestor with GA_ROOT and GA_ROOTOWNER) as objects
    /// from FromHwnd; null for none. The Set functions return the window that
    /// had the activation, capture or focus before.
    ///@{
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
    ///@}

    /// Thin wrappers of the Win32 functions of the same name.
    /// Thin wrapper of the Win32 function of the same name, applied to this
    /// window.
    ///@{
    BOOL ShowWindow(int show = SW_SHOWNORMAL) const { return ::ShowWindow(m_hwnd, show); }
    BOOL HideWindow() const { return ::ShowWindow(m_hwnd, SW_HIDE); }  ///< ShowWindow(SW_HIDE).
    BOOL EnableWindow(BOOL enable = TRUE) const { return ::EnableWindow(m_hwnd, enable); }
    BOOL InvalidateRect(const RECT* rect = nullptr, BOOL erase = TRUE) const { return ::InvalidateRect(m_hwnd, rect, erase); }
    BOOL UpdateWindow() const { return ::UpdateWindow(m_hwnd); }
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags) const;
    BOOL SetWindowPos(const CWnd* insertAfter, const POINT& pos, const SIZE& size, UINT flags) const;
    BOOL SetWindowPos(const CWnd* insertAfter, const RECT& rect, UINT flags) const;
    BOOL SetWindowPos(ZOrder insertAfter, int x, int y, int cx, int cy, UINT flags) const;
    BOOL SetWindowPos(ZOrder insertAfter, const POINT& pos, const SIZE& size, UINT flags) const;
    BOOL SetWindowPos(ZOrder insertAfter, const RECT& rect, UINT flags) const;
    /// Resizes without moving, activating or changing the z-order.
    BOOL SetWindowSize(int cx, int cy) const { return ::SetWindowPos(m_hwnd, nullptr, 0, 0, cx, cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE); }
    BOOL GetClientRect(RECT* rect) const { return ::GetClientRect(m_hwnd, rect); }
    CRect GetClientRect() const { CRect r; ::GetClientRect(m_hwnd, &r); return r; }
    BOOL GetWindowRect(RECT* rect) const { return ::GetWindowRect(m_hwnd, rect); }
    CRect GetWindowRect() const { CRect r; ::GetWindowRect(m_hwnd, &r); return r; }
    BOOL ClientToScreen(POINT* point) const { return ::ClientToScreen(m_hwnd, point); }
    /// Maps both corners of rect, through MapWindowPoints.
    BOOL ClientToScreen(RECT* rect) const { return ::MapWindowPoints(m_hwnd, nullptr, reinterpret_cast<POINT*>(rect), 2) != 0 || ::GetLastError() == 0; }
    BOOL ScreenToClient(POINT* point) const { return ::ScreenToClient(m_hwnd, point); }
    /// Maps both corners of rect, through MapWindowPoints.
    BOOL ScreenToClient(RECT* rect) const { return ::MapWindowPoints(nullptr, m_hwnd, reinterpret_cast<POINT*>(rect), 2) != 0 || ::GetLastError() == 0; }
    int MapWindowPoints(HWND to, POINT* points, UINT count) const { return ::MapWindowPoints(m_hwnd, to, points, count); }
    int MapWindowPoints(HWND to, RECT* rect) const { return ::MapWindowPoints(m_hwnd, to, reinterpret_cast<POINT*>(rect), 2); }
    /// MapWindowPoints from another window to this one.
    int MapWindowPointsFrom(HWND from, POINT* points, UINT count) const { return ::MapWindowPoints(from, m_hwnd, points, count); }
    /// MapWindowPoints of both corners from another window to this one.
    int MapWindowPointsFrom(HWND from, RECT* rect) const { return ::MapWindowPoints(from, m_hwnd, reinterpret_cast<POINT*>(rect), 2); }
    LONG GetWindowLongW(int index) const { return ::GetWindowLongW(m_hwnd, index); }
    LONG SetWindowLongW(int index, LONG value) const { return ::SetWindowLongW(m_hwnd, index, value); }
    /// GWL_STYLE.
    DWORD GetWindowStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hwnd, GWL_STYLE)); }
    /// Sets GWL_STYLE; returns the previous style.
    DWORD SetWindowStyle(DWORD style) const { return static_cast<DWORD>(::SetWindowLongW(m_hwnd, GWL_STYLE, static_cast<LONG>(style))); }
    /// GWL_EXSTYLE.
    DWORD GetWindowExStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hwnd, GWL_EXSTYLE)); }
    /// Sets GWL_EXSTYLE; returns the previous style.
    DWORD SetWindowExStyle(DWORD style) const { return static_cast<DWORD>(::SetWindowLongW(m_hwnd, GWL_EXSTYLE, static_cast<LONG>(style))); }
    LRESULT SendMessageW(UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const { return ::SendMessageW(m_hwnd, msg, wParam, lParam); }
    BOOL PostMessageW(UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const { return ::PostMessageW(m_hwnd, msg, wParam, lParam); }
    LRESULT SendDlgItemMessageW(int id, UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const { return ::SendDlgItemMessageW(m_hwnd, id, msg, wParam, lParam); }
    UINT_PTR SetTimer(UINT_PTR id, UINT elapse, TIMERPROC proc = nullptr) const { return ::SetTimer(m_hwnd, id, elapse, proc); }
    BOOL KillTimer(UINT_PTR id) const { return ::KillTimer(m_hwnd, id); }
    HANDLE GetPropW(LPCWSTR name) const { return ::GetPropW(m_hwnd, name); }
    BOOL SetPropW(LPCWSTR name, HANDLE data) const { return ::SetPropW(m_hwnd, name, data); }
    HANDLE RemovePropW(LPCWSTR name) const { return ::RemovePropW(m_hwnd, name); }
    /// WM_SETFONT.
    void SetFont(HFONT font, BOOL redraw = TRUE) const { ::SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw); }
    /// WM_GETFONT.
    HFONT GetFont() const { return reinterpret_cast<HFONT>(::SendMessageW(m_hwnd, WM_GETFONT, 0, 0)); }
    /// WM_SETICON; returns the previous icon.
    HICON SetIcon(HICON icon, BOOL big) const { return reinterpret_cast<HICON>(::SendMessageW(m_hwnd, WM_SETICON, big ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(icon))); }
    BOOL SetMenu(HMENU menu) const { return ::SetMenu(m_hwnd, menu); }
    HMENU GetMenu() const { return ::GetMenu(m_hwnd); }
    BOOL DrawMenuBar() const { return ::DrawMenuBar(m_hwnd); }
    /// WM_SETREDRAW.
    void SetRedraw(BOOL redraw) const { ::SendMessageW(m_hwnd, WM_SETREDRAW, redraw, 0); }
    /// SetParent; returns the previous parent through FromHwnd.
    CWnd* SetParent(HWND parent) const { return FromHwnd(::SetParent(m_hwnd, parent)); }
    int GetId() const { return ::GetDlgCtrlID(m_hwnd); }  ///< GetDlgCtrlID.
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hwnd); }
    /// Sets GWL_ID; returns the previous id.
    LONG SetDlgCtrlID(int id) const { return ::SetWindowLongW(m_hwnd, GWL_ID, id); }
    UINT GetDlgItemTextW(int id, LPWSTR text, int max) const { return ::GetDlgItemTextW(m_hwnd, id, text, max); }
    CString GetDlgItemText(int id) const;  ///< The text of the dialog item id.
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
    BOOL IsMinimized() const { return ::IsIconic(m_hwnd); }  ///< IsIconic.
    BOOL IsMaximized() const { return ::IsZoomed(m_hwnd); }  ///< IsZoomed.
    /// Neither minimized nor maximized.
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
    /// SetWindowRgn. The system owns the region after a successful call.
    int SetWindowRegion(HRGN region, BOOL redraw = TRUE) const { return ::SetWindowRgn(m_hwnd, region, redraw); }
    /// AdjustWindowRectEx with the window's styles and menu.
    BOOL AdjustWindowRectEx(RECT* rect) const { return ::AdjustWindowRectEx(rect, GetWindowStyle(), ::GetMenu(m_hwnd) != nullptr, GetWindowExStyle()); }
    BOOL MapDialogRect(RECT* rect) const { return ::MapDialogRect(m_hwnd, rect); }
    HMONITOR MonitorFromWindow(DWORD flags = MONITOR_DEFAULTTONEAREST) const { return ::MonitorFromWindow(m_hwnd, flags); }
    /// GetMonitorInfo of the window's monitor (MonitorFromWindow with flags).
    BOOL GetMonitorInfoW(MONITORINFO& info, DWORD flags = MONITOR_DEFAULTTONEAREST) const;
    BOOL EnumChildWindows(WNDENUMPROC proc, LPARAM lParam) const { return ::EnumChildWindows(m_hwnd, proc, lParam); }
    /// EnumThreadWindows over the thread that owns this window.
    BOOL EnumThreadWindows(WNDENUMPROC proc, LPARAM lParam) const { return ::EnumThreadWindows(::GetWindowThreadProcessId(m_hwnd, nullptr), proc, lParam); }
    BOOL GetWindowPlacement(WINDOWPLACEMENT& placement) const { placement.length = sizeof(placement); return ::GetWindowPlacement(m_hwnd, &placement); }
    /// The cursor in screen coordinates.
    static CPoint GetCursorPos() { CPoint p; ::GetCursorPos(&p); return p; }
    /// The cursor in this window's client coordinates.
    CPoint GetClientCursorPos() const { CPoint p = GetCursorPos(); ::ScreenToClient(m_hwnd, &p); return p; }
    /// The cursor at the current message, in screen coordinates.
    static CPoint GetMessagePos() { return CPoint(static_cast<LPARAM>(::GetMessagePos())); }
    /// GetMessagePos in this window's client coordinates.
    CPoint GetClientMessagePos() const { CPoint p = GetMessagePos(); ::ScreenToClient(m_hwnd, &p); return p; }
    CString GetClassNameW() const;
    CString RealGetWindowClassW() const;
    /// GWLP_HINSTANCE.
    HINSTANCE GetInstance() const { return reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(m_hwnd, GWLP_HINSTANCE)); }
    LRESULT CallWindowProcW(WNDPROC proc, UINT msg, WPARAM wParam, LPARAM lParam) const { return ::CallWindowProcW(proc, m_hwnd, msg, wParam, lParam); }
    HRESULT SetWindowTheme(LPCWSTR subAppName, LPCWSTR subIdList) const;
    /// SetWindowTheme with blank names: the classic look.
    HRESULT DisableWindowTheme() const { return SetWindowTheme(L" ", L" "); }
    BOOL DestroyWindow() const { return ::DestroyWindow(m_hwnd); }
    ///@}

protected:
    /// CWnd's own filter: lays out descendants on WM_SIZE when enabled.
    BOOL WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // The two halves of routing that every procedure of the library shares.
    /// Hands the thread's window-being-created object the handle and
    /// registers it; null when no object is being created.
    static CWnd* TieWndBeingCreated(HWND hwnd);
    /// Set when OnCreate threw during the calling thread's current creation.
    static bool& CreationThrew();
    /// Offers a message to wnd's filters in registration order; TRUE when
    /// one consumed it.
    static BOOL FilterMessage(CWnd& wnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // Shared by the windows a dialog procedure drives. RouteDialogMessage
    // runs filters, WndProc and DefaultWndProc with the results as the
    // dialog manager wants them; the others are rows of their
    // DefaultWndProc (TRUE when handled; answer is the procedure's result).
    /// Runs filters, WndProc and DefaultWndProc for a window driven by a
    /// dialog procedure, with the results as the dialog manager wants them;
    /// a handler's exception is reported and gives FALSE.
    static INT_PTR RouteDialogMessage(CWnd& wnd, UINT msg, WPARAM wParam, LPARAM lParam);
    /// WM_PAINT of a dialog-driven window: OnPaint, unless the window is
    /// subclassed.
    LRESULT DialogPaint();
    /// WM_ERASEBKGND of a dialog-driven window: OnEraseBkgnd.
    BOOL DialogEraseBkgnd(WPARAM hdc);
    /// WM_NOTIFY of a dialog-driven window: OnNotifyReflect of the sender,
    /// then OnNotify; TRUE when handled, answer being the procedure's result.
    BOOL DialogNotify(WPARAM wParam, LPARAM lParam, LRESULT& answer);
    /// WM_COMMAND of a dialog-driven window: OnCommandReflect of the sender,
    /// then OnCommand; TRUE when handled.
    BOOL DialogCommand(WPARAM wParam, LPARAM lParam);

    /// Forgets the window: the table entry (if it is ours), notification
    /// registrations, subclassing and layout state. Does not destroy.
    void ResetCWnd();
    /// Puts StaticWndProc in front of the window's current procedure.
    void InstallStaticWndProc();
    /// The class template that Create registers.
    WNDCLASSEXW& GetWndClassTemplate() { return *m_wndClass; }
    /// The creation template that Create uses.
    CREATESTRUCTW& GetCreateTemplate() { return *m_createStruct; }

    HWND m_hwnd = nullptr;  ///< The window, or null.
    BOOL m_isTemp = FALSE;  ///< Made by FromHwnd.
    BOOL m_subclass = FALSE;  ///< Creation and Attach subclass the window.
    BOOL m_paintThrough = FALSE;  ///< A subclassed window's WM_PAINT goes to OnPaint.
    std::vector<IWndMsgFilter*> m_filters;  ///< The message filters, this object's own first.
    WNDPROC m_prevWndProc = nullptr;  ///< The procedure a subclassed window had.
    std::shared_ptr<WNDCLASSEXW> m_wndClass;  ///< The class template.
    std::shared_ptr<CREATESTRUCTW> m_createStruct;  ///< The creation template.
    int m_notificationCount = 0;  ///< Names registered for in the default center.
    BOOL m_autoResizing = FALSE;  ///< See UseAutoResizing.
    DWORD m_autoResizingMask = 0;  ///< See SetAutoResizingMask.
    BOOL m_layoutCaptured = FALSE;  ///< The starting place is recorded.
    RECT m_initialRect = {0, 0, 0, 0};  ///< The starting place, in the parent's client coordinates.
    SIZE m_initialParentSize = {0, 0};  ///< The parent's client size at the start.

private:
    LRESULT DefaultProcessing(UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT RoutePaint(UINT msg, WPARAM wParam);
};

}  // namespace Velkan
