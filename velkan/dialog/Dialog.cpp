#include "velkan/dialog/Dialog.h"

#include <cstdlib>

#include "velkan/app/App.h"
#include "velkan/core/ObjectContext.h"
#include "velkan/core/Resource.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/ScopedDC.h"

namespace Velkan {

namespace {

// WS_DLGFRAME, WS_SYSMENU, WS_THICKFRAME, WS_MINIMIZEBOX, WS_MAXIMIZEBOX.
constexpr DWORD kFrameStyles = 0x004F0000;
// WS_EX_DLGMODALFRAME, WS_EX_WINDOWEDGE, WS_EX_CLIENTEDGE, WS_EX_STATICEDGE.
constexpr DWORD kFrameExStyles = 0x00020301;

}  // namespace

CDialog::CDialog(UINT templateId, HINSTANCE instance)
    : m_instance(CResourceLoader::ResolveInstance(instance)), m_templateId(templateId) {}

CDialog::CDialog(UINT templateId, const wchar_t* helpTopic, HINSTANCE instance) : CDialog(templateId, instance) {
    m_helpTopic = helpTopic;
}

CDialog::~CDialog() {
    if (m_hwnd != nullptr) {
        // The system's EndDialog only marks a modeless window as ended; it
        // is the base class that destroys it afterwards.
        if (m_modeless)
            ::EndDialog(m_hwnd, IDCANCEL);
        else
            Destroy();
    }
    if (m_boldFont != nullptr) ::DeleteObject(m_boldFont);
}

// ---------------------------------------------------------------------------
// Creation

int CDialog::DoModal(CWnd* parent) {
    m_modeless = FALSE;
    CWnd*& beingCreated = GetWndBeingCreated();
    beingCreated = this;
    const INT_PTR result = ::DialogBoxParamW(m_instance, MAKEINTRESOURCEW(m_templateId),
                                             parent != nullptr ? parent->GetHwnd() : nullptr,
                                             &CDialog::StaticDlgProc, 0);
    // A template that could not be loaded never reached the procedure.
    if (beingCreated == this) beingCreated = nullptr;
    m_sizingGrip.Destroy();
    ResetCWnd();
    return static_cast<int>(result);
}

HWND CDialog::CreateModeless(CWnd* parent) {
    m_modeless = TRUE;
    CWnd*& beingCreated = GetWndBeingCreated();
    beingCreated = this;
    HWND hwnd = ::CreateDialogParamW(m_instance, MAKEINTRESOURCEW(m_templateId),
                                     parent != nullptr ? parent->GetHwnd() : nullptr, &CDialog::StaticDlgProc, 0);
    if (beingCreated == this) beingCreated = nullptr;
    m_hwnd = hwnd;
    return hwnd;
}

HWND CDialog::Create(CWnd* parent) {
    return CreateModeless(parent);
}

HWND CDialog::CreateChildDialog(CWnd* parent, int x, int y, BOOL show) {
    HWND hwnd = CreateModeless(parent);
    if (!::IsWindow(hwnd)) return nullptr;
    ::EnableWindow(hwnd, TRUE);
    UINT flags = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (show) flags |= SWP_SHOWWINDOW;
    ::SetWindowPos(hwnd, nullptr, x, y, 0, 0, flags);
    return hwnd;
}

// ---------------------------------------------------------------------------
// Routing

INT_PTR CALLBACK CDialog::StaticDlgProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    CWnd* wnd = FindByHandle(hwnd);
    if (wnd == nullptr) {
        // The first message of a new dialog, normally WM_SETFONT or
        // WM_INITDIALOG.
        wnd = TieWndBeingCreated(hwnd);
        if (wnd == nullptr) return FALSE;
    }
    return RouteDialogMessage(*wnd, msg, wParam, lParam);
}

LRESULT CDialog::DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
    case WM_DESTROY:
        OnDestroy();
        return TRUE;
    case WM_ACTIVATE:
        if (m_modeless) CApp::SetActiveModelessDialog(LOWORD(wParam) != WA_INACTIVE ? m_hwnd : nullptr);
        break;
    case WM_PAINT:
        return DialogPaint();
    case WM_ERASEBKGND:
        if (DialogEraseBkgnd(wParam)) return TRUE;
        break;
    case WM_NOTIFY: {
        LRESULT answer = 0;
        if (DialogNotify(wParam, lParam, answer)) return answer;
        break;
    }
    case WM_HELP:
        OnHelp(reinterpret_cast<HELPINFO*>(lParam));
        return TRUE;
    case WM_INITDIALOG:
        if (m_autoResizing && (GetWindowStyle() & WS_THICKFRAME) != 0) {
            m_sizingGrip.Destroy();
            m_sizingGrip.CreateSizingGrip(*this);
            m_sizingGrip.SetAutoResizingMask(AnchorRight | AnchorBottom);
            // The dialog's first WM_SIZE came before the grip existed: the
            // grip records its starting place now, so the next resize
            // already moves it.
            m_sizingGrip.AutoResizeWindow(GetClientSize());
        }
        OnInitDialog();
        return TRUE;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK:
            // Only a click or Enter; other notifications of a control whose
            // id happens to be 1 are not an OK.
            if (HIWORD(wParam) != 0) break;
            OnOK();
            return TRUE;
        case IDCANCEL:
            // Escape and the close box arrive as IDCANCEL too.
            OnCancel();
            return TRUE;
        default:
            if (DialogCommand(wParam, lParam)) return TRUE;
            break;
        }
        break;
    case WM_SYSCOMMAND:
        if (!m_helpTopic.IsEmpty() && (wParam & 0xFFF0) == SC_CONTEXTHELP && theAppPtr != nullptr) {
            theAppPtr->HtmlHelpW(m_hwnd, m_helpTopic, 0, 0);
            return TRUE;
        }
        break;
    case WM_ENTERIDLE:
        // Temporary objects made while a menu or a nested modal loop idles.
        if (theAppPtr != nullptr) theAppPtr->CleanUpTempObjects();
        return TRUE;
    default:
        break;
    }
    return FinalWndProc(msg, wParam, lParam);
}

LRESULT CDialog::FinalWndProc(UINT, WPARAM, LPARAM) {
    return FALSE;
}

// ---------------------------------------------------------------------------
// Handlers

void CDialog::OnInitDialog() {}

void CDialog::OnOK() {
    if (!m_modeless) EndDialog(IDOK);
}

void CDialog::OnCancel() {
    if (m_modeless)
        ::ShowWindow(m_hwnd, SW_HIDE);
    else
        EndDialog(IDCANCEL);
}

void CDialog::EndDialog(int result) {
    if (m_modeless)
        Destroy();
    else
        ::EndDialog(m_hwnd, result);
}

DWORD* CDialog::GetHelpIds() {
    static DWORD none[2] = {0, 0};
    return none;
}

void CDialog::OnHelp(HELPINFO* info) {
    if (theAppPtr == nullptr) return;
    theAppPtr->PopupHelp(info != nullptr ? static_cast<HWND>(info->hItemHandle) : nullptr, nullptr, GetHelpIds());
}

// ---------------------------------------------------------------------------
// Utilities

void CDialog::SetDlgItemFocus(UINT id) const {
    ::SendMessageW(m_hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(m_hwnd, static_cast<int>(id))), TRUE);
}

void CDialog::SetDlgItemFocusDelayed(UINT id) const {
    ::PostMessageW(m_hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(m_hwnd, static_cast<int>(id))), TRUE);
}

void CDialog::ShowDlgInputError(UINT id) const {
    FlashWindowEx(FLASHW_ALL, 4, 50);
    if (id != 0) SetDlgItemFocus(id);
    ::MessageBeep(0xFFFFFFFF);
}

void CDialog::SetBold(UINT id) {
    SetBoldFont(FromHwnd(::GetDlgItem(m_hwnd, static_cast<int>(id))));
}

void CDialog::SetBoldFont(CWnd* control) {
    if (control == nullptr) return;
    if (m_boldFont == nullptr) {
        HFONT font = control->GetFont();
        LOGFONTW logFont = {};
        if (font != nullptr && ::GetObjectW(font, sizeof(logFont), &logFont) == sizeof(logFont)) {
            logFont.lfWeight = FW_BOLD;
            m_boldFont = ::CreateFontIndirectW(&logFont);
        }
    }
    if (m_boldFont != nullptr) control->SetFont(m_boldFont, FALSE);
}

void CDialog::MakeSplashScreenStyle() {
    CRect rect = GetClientRect();
    const DWORD style = (GetWindowStyle() & ~kFrameStyles) | WS_BORDER;
    const DWORD exStyle = GetWindowExStyle() & ~kFrameExStyles;
    SetWindowStyle(style);
    SetWindowExStyle(exStyle);
    ::AdjustWindowRectEx(&rect, style, FALSE, exStyle);
    ::SetWindowPos(m_hwnd, nullptr, 0, 0, std::abs(rect.right - rect.left), std::abs(rect.bottom - rect.top),
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}  // namespace Velkan
