// Tying handles to objects, creation, attaching and subclassing.
#include "velkan/app/Wnd.h"

#include "velkan/core/ObjectContext.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"

namespace Velkan {

namespace {

// HWND_BOTTOM, HWND_TOPMOST and HWND_NOTOPMOST: not windows, but positions.
bool IsInsertAfterValue(HWND hwnd) {
    return hwnd == HWND_BOTTOM || hwnd == HWND_TOPMOST || hwnd == HWND_NOTOPMOST;
}

// ERROR_UNHANDLED_EXCEPTION, which this toolchain's headers lack.
constexpr DWORD kUnhandledException = 574;

HINSTANCE ModuleInstance() {
    return CResourceLoader::GetDefaultInstance();
}

}  // namespace

VELKAN_X86_SIZE(WNDCLASSEXW, 48);

CWnd::CWnd()
    : m_wndClass(std::make_shared<WNDCLASSEXW>()), m_createStruct(std::make_shared<CREATESTRUCTW>()) {
    m_wndClass->cbSize = sizeof(WNDCLASSEXW);
    m_filters.push_back(static_cast<IWndMsgFilter*>(this));
}

CWnd::CWnd(HWND hwnd) {
    if (hwnd == nullptr) return;
    if (IsInsertAfterValue(hwnd)) {
        m_hwnd = hwnd;
        return;
    }
    CWnd::Attach(hwnd);
}

CWnd::~CWnd() {
    CWnd::Destroy();
}

// ---------------------------------------------------------------------------
// The handle table

CWnd::Context& CWnd::GetContext() {
    static Context context;
    return context;
}

CWnd* CWnd::FindByHandle(HWND hwnd) {
    return hwnd != nullptr ? GetContext().Find(hwnd) : nullptr;
}

void CWnd::AddToContext(HWND hwnd, CWnd& wnd) {
    GetContext().Insert(hwnd, &wnd);
}

CWnd* CWnd::FromHwnd(HWND hwnd) {
    if (hwnd == nullptr) return nullptr;
    if (CWnd* found = FindByHandle(hwnd)) return found;
    auto temp = std::make_shared<CWnd>();
    temp->m_hwnd = hwnd;
    temp->m_isTemp = TRUE;
    CWnd* raw = GetContext().AddTempObject(std::move(temp));
    AddToContext(hwnd, *raw);
    return raw;
}

void CWnd::CleanUpTempObjects() {
    GetContext().CleanUpTempObjects();
}

void CWnd::ResetContext() {
    GetContext().Reset();
}

std::tuple<unsigned, unsigned> CWnd::GetContextInfo() {
    return GetContext().GetInfo();
}

CWnd*& CWnd::GetWndBeingCreated() {
    // A plain pointer: thread_local objects with destructors are not safe
    // in this DLL at thread exit.
    static thread_local CWnd* wnd = nullptr;
    return wnd;
}

bool& CWnd::CreationThrew() {
    static thread_local bool threw = false;
    return threw;
}

// ---------------------------------------------------------------------------
// Creation

BOOL CWnd::RegisterWndClass(WNDCLASSEXW& wc) {
    HINSTANCE instance = ModuleInstance();
    WNDCLASSEXW existing = {};
    existing.cbSize = sizeof(existing);
    if (::GetClassInfoExW(instance, wc.lpszClassName, &existing)) return TRUE;
    wc.hInstance = instance;
    wc.lpfnWndProc = &CWnd::StaticWndProc;
    ::RegisterClassExW(&wc);
    return TRUE;
}

HWND CWnd::Create(CWnd* parent) {
    WNDCLASSEXW& wc = *m_wndClass;
    CREATESTRUCTW& cs = *m_createStruct;
    PreRegisterWndClass(wc);
    if (wc.lpszClassName != nullptr) {
        RegisterWndClass(wc);
        cs.lpszClass = wc.lpszClassName;
    }
    cs.hwndParent = parent != nullptr ? parent->m_hwnd : nullptr;
    PreCreate(cs);

    LPCWSTR className = cs.lpszClass != nullptr ? cs.lpszClass : L"VlkWnd";
    HWND parentHwnd = parent != nullptr ? parent->m_hwnd : cs.hwndParent;
    DWORD style = cs.style != 0 ? static_cast<DWORD>(cs.style)
                                : (parentHwnd != nullptr ? WS_CHILD | WS_VISIBLE : WS_OVERLAPPEDWINDOW);
    int x = cs.x, y = cs.y, cx = cs.cx, cy = cs.cy;
    if (cx == 0 && cy == 0) x = y = cx = cy = CW_USEDEFAULT;
    return CreateEx(cs.dwExStyle, className, cs.lpszName, style, x, y, cx, cy, FromHwnd(parentHwnd),
                    cs.hMenu, cs.lpCreateParams);
}

HWND CWnd::CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                    int cx, int cy, CWnd* parent, HMENU menu, LPVOID param) {
    if (className == nullptr || *className == L'\0') className = L"VlkWnd";
    WNDCLASSEXW wc = {};
    wc.cbSize = sizeof(wc);
    wc.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = className;
    RegisterWndClass(wc);

    CWnd*& beingCreated = GetWndBeingCreated();
    beingCreated = this;
    CreationThrew() = false;
    HWND hwnd = ::CreateWindowExW(exStyle, className, windowName, style, x, y, cx, cy,
                                  parent != nullptr ? parent->m_hwnd : nullptr, menu, ModuleInstance(), param);
    if (hwnd == nullptr && CreationThrew()) {
        CreationThrew() = false;
        ::SetLastError(kUnhandledException);
    }
    // A creation that failed after the first message (OnCreate threw, say)
    // has tied us to a handle that is already gone: untie it, or the table
    // would keep pointing at this object.
    if (hwnd == nullptr && m_hwnd != nullptr && beingCreated == nullptr) {
        GetContext().Erase(m_hwnd, this);
    }
    m_hwnd = hwnd;

    if (beingCreated != nullptr) {
        // No message reached StaticWndProc: a class with a procedure of its
        // own, such as a system control.
        beingCreated = nullptr;
        if (hwnd != nullptr) {
            AddToContext(hwnd, *this);
            if (m_subclass) {
                InstallStaticWndProc();
                OnCreate();
            }
        }
    }
    return hwnd;
}

void CWnd::Destroy() {
    if (m_hwnd != nullptr && !m_isTemp && ::IsWindow(m_hwnd)) ::DestroyWindow(m_hwnd);
    ResetCWnd();
}

// ---------------------------------------------------------------------------
// Attaching and subclassing

void CWnd::Attach(HWND hwnd) {
    if (m_hwnd != nullptr) Destroy();
    CWnd* holder = FindByHandle(hwnd);
    if (holder != nullptr && holder != this) holder->ResetCWnd();
    m_hwnd = hwnd;
    AddToContext(hwnd, *this);
    if (m_subclass && m_prevWndProc == nullptr) InstallStaticWndProc();
    OnCreate();
}

void CWnd::AttachDlgItem(UINT id, CWnd* parent) {
    Attach(::GetDlgItem(parent != nullptr ? parent->m_hwnd : nullptr, static_cast<int>(id)));
}

void CWnd::Subclass() {
    InstallStaticWndProc();
}

void CWnd::SubclassWnd(HWND hwnd) {
    Attach(hwnd);
    InstallStaticWndProc();
}

void CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    SubclassWnd(::GetDlgItem(parent != nullptr ? parent->m_hwnd : nullptr, static_cast<int>(id)));
}

HWND CWnd::Detach() {
    if (m_hwnd != nullptr) {
        if (m_prevWndProc != nullptr) {
            ::SetWindowLongPtrW(m_hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_prevWndProc));
        } else if (reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(m_hwnd, GWLP_WNDPROC)) == &CWnd::StaticWndProc) {
            ::SetWindowLongPtrW(m_hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&::DefWindowProcW));
        }
    }
    HWND hwnd = m_hwnd;
    ResetCWnd();
    return hwnd;
}

void CWnd::InstallStaticWndProc() {
    if (m_hwnd == nullptr) return;
    auto old = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(m_hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::StaticWndProc)));
    // Subclassing twice must not make StaticWndProc its own predecessor.
    if (old != nullptr && old != &CWnd::StaticWndProc) m_prevWndProc = old;
}

void CWnd::ResetCWnd() {
    if (m_notificationCount > 0) CNotificationCenter::GetDefault().RemoveObserver(*this);
    if (m_hwnd != nullptr && !IsInsertAfterValue(m_hwnd)) GetContext().Erase(m_hwnd, this);
    m_hwnd = nullptr;
    m_isTemp = FALSE;
    m_prevWndProc = nullptr;
    m_notificationCount = 0;
    m_autoResizingMask = 0;
    m_layoutCaptured = FALSE;
    m_initialRect = RECT{0, 0, 0, 0};
    m_initialParentSize = SIZE{0, 0};
}

// ---------------------------------------------------------------------------
// Notifications

void CWnd::OnNotify(CNotification&) {}

void CWnd::PostNotification(LPCWSTR name, DWORD_PTR data) {
    CNotificationCenter::GetDefault().PostNotification(name, this, data);
}

void CWnd::RegisterForNotification(LPCWSTR name) {
    if (CNotificationCenter::GetDefault().AddObserver(name, *this)) ++m_notificationCount;
}

void CWnd::UnregisterForNotification(LPCWSTR name) {
    if (CNotificationCenter::GetDefault().RemoveObserver(name, *this)) --m_notificationCount;
}

void CWnd::UnregisterForAllNotifications() {
    CNotificationCenter::GetDefault().RemoveObserver(*this);
    m_notificationCount = 0;
}

// ---------------------------------------------------------------------------
// Hooks with nothing to do by default

void CWnd::AddWndMsgFilter(IWndMsgFilter& filter) { m_filters.push_back(&filter); }
void CWnd::PreRegisterWndClass(WNDCLASSEXW&) {}
void CWnd::PreCreate(CREATESTRUCTW&) {}
BOOL CWnd::PreTranslateMessage(MSG&) { return FALSE; }
BOOL CWnd::WndProc(UINT, WPARAM, LPARAM, LRESULT&) { return FALSE; }
BOOL CWnd::OnNotify(UINT, LPARAM, LRESULT&) { return FALSE; }
BOOL CWnd::OnCommand(UINT, LPARAM) { return FALSE; }
BOOL CWnd::OnCommandReflect(UINT, LPARAM) { return FALSE; }
void CWnd::OnCreate() {}
void CWnd::OnDestroy() {}
BOOL CWnd::OnEraseBkgnd(CDC&) { return FALSE; }
void CWnd::OnNcDestroy() {}
BOOL CWnd::OnNotifyReflect(UINT, LPARAM, LRESULT&) { return FALSE; }
void CWnd::OnPaint(CDC&) {}

}  // namespace Velkan
