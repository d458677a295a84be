#include "velkan/dialog/PropertySheet.h"

#include "velkan/app/App.h"
#include "velkan/app/detail/Unhandled.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"
#include "velkan/gfx/DC.h"

namespace Velkan {

VELKAN_X86_SIZE(PropertyPageRecord, 56);
VELKAN_X86_SIZE(PROPSHEETHEADERW, 52);

namespace {

// PSH_WIZARD97 | PSH_HEADER | PSH_WATERMARK.
constexpr DWORD kWizardFlags = 0x01088000;

bool Is(const NMHDR* header, UINT code) {
    // The PSN_ codes are unsigned here; compare as the header's type.
    return header->code == static_cast<UINT>(code);
}

}  // namespace

// ---------------------------------------------------------------------------
// Pages

CPropertyPage::CPropertyPage(UINT templateId, HINSTANCE instance)
    : m_psp(), m_instance(CResourceLoader::ResolveInstance(instance)), m_templateId(templateId) {
    m_psp.dwSize = sizeof(m_psp);
    m_psp.dwFlags = PSP_USECALLBACK;
    m_psp.hInstance = m_instance;
    m_psp.pszTemplate = MAKEINTRESOURCEW(templateId);
    m_psp.pfnDlgProc = &CPropertyPage::StaticDlgProc;
    m_psp.lParam = reinterpret_cast<LPARAM>(this);
    m_psp.pfnCallback = &CPropertyPage::PspCallback;
}

CPropertyPage::CPropertyPage(UINT templateId, const wchar_t* helpTopic, HINSTANCE instance)
    : CPropertyPage(templateId, instance) {
    m_helpTopic = helpTopic;
}

CPropertyPage::~CPropertyPage() = default;

HPROPSHEETPAGE CPropertyPage::Create() {
    return ::CreatePropertySheetPageW(reinterpret_cast<LPCPROPSHEETPAGEW>(&m_psp));
}

CPropertySheet* CPropertyPage::GetPropertySheet() const {
    return dynamic_cast<CPropertySheet*>(FindByHandle(::GetParent(m_hwnd)));
}

void CPropertyPage::SetDlgItemFocusDelayed(UINT id) const {
    ::PostMessageW(m_hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(m_hwnd, static_cast<int>(id))), TRUE);
}

INT_PTR CALLBACK CPropertyPage::StaticDlgProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    CWnd* wnd = FindByHandle(hwnd);
    if (wnd == nullptr) {
        // Pages are tied at WM_INITDIALOG, whose lParam is their record.
        if (msg != WM_INITDIALOG || lParam == 0) return FALSE;
        auto* page = reinterpret_cast<CPropertyPage*>(reinterpret_cast<PROPSHEETPAGEW*>(lParam)->lParam);
        if (page == nullptr) return FALSE;
        page->m_hwnd = hwnd;
        AddToContext(hwnd, *page);
        wnd = page;
    }
    return RouteDialogMessage(*wnd, msg, wParam, lParam);
}

UINT CALLBACK CPropertyPage::PspCallback(HWND, UINT msg, PROPSHEETPAGEW* record) {
    auto* page = record != nullptr ? reinterpret_cast<CPropertyPage*>(record->lParam) : nullptr;
    if (page == nullptr) return msg == PSPCB_CREATE ? 1 : 0;
    // A handler's exception is answered as the defaults would: create.
    return Detail::Guarded([&] { return page->PageCallback(msg); },
                           [&]() -> UINT { return msg == PSPCB_CREATE ? 1 : 0; });
}

UINT CPropertyPage::PageCallback(UINT msg) {
    CPropertyPage* page = this;
    switch (msg) {
    case PSPCB_ADDREF:
        page->OnCallbackAddRef();
        return 0;
    case PSPCB_RELEASE:
        page->OnCallbackRelease();
        return 0;
    case PSPCB_CREATE:
        return page->OnCallbackCreate() > 0 ? 1 : 0;
    default:
        return 0;
    }
}

LRESULT CPropertyPage::DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
    case WM_INITDIALOG:
        OnInitDialog();
        return TRUE;
    case WM_NOTIFY: {
        LRESULT result = 0;
        if (OnPsNotify(static_cast<UINT>(wParam), lParam, result)) return SetDialogMsgResult(WM_NOTIFY, result);
        LRESULT answer = 0;
        if (DialogNotify(wParam, lParam, answer)) return answer;
        break;
    }
    case WM_COMMAND:
        if (DialogCommand(wParam, lParam)) return TRUE;
        break;
    case WM_HELP:
        OnHelp(reinterpret_cast<HELPINFO*>(lParam));
        return TRUE;
    case WM_PAINT:
        return DialogPaint();
    case WM_ERASEBKGND:
        if (DialogEraseBkgnd(wParam)) return TRUE;
        break;
    case WM_ENTERIDLE:
        // Temporary objects made while a menu or a nested loop idles.
        if (theAppPtr != nullptr) theAppPtr->CleanUpTempObjects();
        return TRUE;
    case WM_DESTROY:
        OnDestroy();
        return TRUE;
    case WM_NCDESTROY:
        // The sheet destroys its pages; the object is free again.
        ResetCWnd();
        return FALSE;
    default:
        break;
    }
    return FinalWndProc(msg, wParam, lParam);
}

LRESULT CPropertyPage::FinalWndProc(UINT, WPARAM, LPARAM) {
    return FALSE;
}

BOOL CPropertyPage::OnPsNotify(UINT, LPARAM nmhdr, LRESULT& result) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header == nullptr) return FALSE;
    if (Is(header, PSN_SETACTIVE)) {
        result = OnSetActive();
    } else if (Is(header, PSN_KILLACTIVE)) {
        result = OnKillActive();
    } else if (Is(header, PSN_APPLY)) {
        result = OnApply();
    } else if (Is(header, PSN_RESET)) {
        OnReset(reinterpret_cast<const PSHNOTIFY*>(nmhdr)->lParam == 1);
    } else if (Is(header, PSN_QUERYCANCEL)) {
        result = OnQueryCancel();
    } else {
        return FALSE;
    }
    return TRUE;
}

DWORD* CPropertyPage::GetHelpIds() {
    static DWORD none[2] = {0, 0};
    return none;
}

void CPropertyPage::OnHelp(HELPINFO* info) {
    if (theAppPtr == nullptr) return;
    theAppPtr->PopupHelp(info != nullptr ? static_cast<HWND>(info->hItemHandle) : nullptr, nullptr, GetHelpIds());
}

void CPropertyPage::OnCallbackAddRef() {}
int CPropertyPage::OnCallbackCreate() { return 1; }
void CPropertyPage::OnCallbackRelease() {}
void CPropertyPage::OnInitDialog() {}
int CPropertyPage::OnApply() { return 0; }
void CPropertyPage::OnReset(BOOL) {}
int CPropertyPage::OnSetActive() { return 0; }
int CPropertyPage::OnQueryCancel() { return 0; }
int CPropertyPage::OnKillActive() { return 0; }

// ---------------------------------------------------------------------------
// Sheets

CPropertySheet::CPropertySheet(UINT captionId, HINSTANCE instance) : CPropertySheet(instance) {
    m_psh.pszCaption = MAKEINTRESOURCEW(captionId);
}

CPropertySheet::CPropertySheet(HINSTANCE instance) : m_psh() {
    m_psh.dwSize = sizeof(m_psh);
    m_psh.dwFlags = PSH_NOAPPLYNOW | PSH_USECALLBACK;
    m_psh.hInstance = CResourceLoader::ResolveInstance(instance);
    m_psh.pfnCallback = &CPropertySheet::PshCallback;
}

void CPropertySheet::SyncPages() {
    m_psh.nPages = static_cast<UINT>(m_pages.size());
    m_psh.phpage = m_pages.empty() ? nullptr : m_pages.data();
}

void CPropertySheet::AddPage(CPropertyPage& page) {
    AddPage(page.Create());
}

void CPropertySheet::AddPage(HPROPSHEETPAGE page) {
    m_pages.push_back(page);
    SyncPages();
}

void CPropertySheet::AddPages(std::initializer_list<std::reference_wrapper<CPropertyPage>> pages) {
    for (CPropertyPage& page : pages) AddPage(page);
}

int CPropertySheet::DoModal(CWnd* parent) {
    m_psh.dwFlags &= ~static_cast<DWORD>(PSH_MODELESS);
    m_psh.hwndParent = parent != nullptr ? parent->GetHwnd() : nullptr;
    SyncPages();
    CWnd*& beingCreated = GetWndBeingCreated();
    beingCreated = this;
    const INT_PTR result = ::PropertySheetW(&m_psh);
    beingCreated = nullptr;
    // The sheet window is gone; a table entry for it must not outlive it.
    if (m_hwnd != nullptr && !::IsWindow(m_hwnd)) ResetCWnd();
    return static_cast<int>(result);
}

int CALLBACK CPropertySheet::PshCallback(HWND hwnd, UINT msg, LPARAM lParam) {
    return Detail::Guarded([&] { return SheetCallback(hwnd, msg, lParam); }, [] { return 0; });
}

int CPropertySheet::SheetCallback(HWND hwnd, UINT msg, LPARAM lParam) {
    auto* sheet = dynamic_cast<CPropertySheet*>(FindByHandle(hwnd));
    if (sheet == nullptr) {
        CWnd*& beingCreated = GetWndBeingCreated();
        sheet = dynamic_cast<CPropertySheet*>(beingCreated);
        if (sheet == nullptr) return 0;
        if (hwnd != nullptr) {
            sheet->Attach(hwnd);
            beingCreated = nullptr;
        }
    }
    switch (msg) {
    case PSCB_INITIALIZED:
        sheet->OnCallbackInitialized();
        break;
    case PSCB_PRECREATE:
        sheet->OnCallbackPreCreate(reinterpret_cast<DLGTEMPLATE*>(lParam));
        break;
    case PSCB_BUTTONPRESSED:
        sheet->OnButtonPressed(static_cast<int>(lParam));
        sheet->Detach();
        break;
    default:
        break;
    }
    return 0;
}

void CPropertySheet::OnCallbackInitialized() {}
void CPropertySheet::OnCallbackPreCreate(DLGTEMPLATE*) {}
void CPropertySheet::OnButtonPressed(int) {}

// ---------------------------------------------------------------------------
// Wizards

CWizardSheet::CWizardSheet(UINT watermarkId, UINT headerId, HINSTANCE instance) : CPropertySheet(instance) {
    m_psh.dwFlags |= kWizardFlags;
    m_psh.pszbmWatermark = MAKEINTRESOURCEW(watermarkId);
    if (watermarkId != 0) m_watermark = CBitmap(watermarkId, m_psh.hInstance);
    if (headerId != 0) {
        m_psh.dwFlags |= PSH_HEADER;
        m_psh.pszbmHeader = MAKEINTRESOURCEW(headerId);
        m_header = CBitmap(headerId, m_psh.hInstance);
    }
}

int CWizardSheet::DoWizard(HWND parent) {
    return DoModal(CWnd::FromHwnd(parent));
}

CWizardPage::CWizardPage(UINT templateId, HINSTANCE instance) : CPropertyPage(templateId, instance) {
    m_psp.dwFlags |= PSP_USEHEADERTITLE | PSP_USEHEADERSUBTITLE;
}

CWizardPage::CWizardPage(UINT templateId, const wchar_t* headerTitle, const wchar_t* headerSubTitle,
                         HINSTANCE instance)
    : CWizardPage(templateId, instance) {
    // As given: texts the caller keeps alive, or MAKEINTRESOURCE ids that
    // comctl32 loads from the page's instance.
    m_psp.pszHeaderTitle = headerTitle;
    m_psp.pszHeaderSubTitle = headerSubTitle;
}

int CWizardPage::OnWizBack() { return 0; }
int CWizardPage::OnWizNext() { return 0; }

BOOL CWizardPage::OnPsNotify(UINT id, LPARAM nmhdr, LRESULT& result) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header != nullptr && Is(header, PSN_WIZBACK)) {
        result = OnWizBack();
        return TRUE;
    }
    if (header != nullptr && Is(header, PSN_WIZNEXT)) {
        result = OnWizNext();
        return TRUE;
    }
    return CPropertyPage::OnPsNotify(id, nmhdr, result);
}

void CWizardPage::OnPaint(CDC& dc) {
    // The system scales the watermark for 96 DPI only.
    if (GetDpi() == 96 || (m_psp.dwFlags & PSP_HIDEHEADER) == 0) return;
    CWizardSheet* sheet = GetWizardSheet();
    if (sheet != nullptr && sheet->GetWatermarkBitmap().GetHbitmap() != nullptr)
        dc.DrawBitmap(sheet->GetWatermarkBitmap().GetHbitmap(), 0, 0);
}

void CWizardPage::SetHeaderTitle(const wchar_t* text) const {
    HWND sheet = ::GetParent(m_hwnd);
    const WPARAM index = static_cast<WPARAM>(::SendMessageW(sheet, PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(m_hwnd), 0));
    ::SendMessageW(sheet, PSM_SETHEADERTITLEW, index, reinterpret_cast<LPARAM>(text));
}

void CWizardPage::SetHeaderSubTitle(const wchar_t* text) const {
    HWND sheet = ::GetParent(m_hwnd);
    const WPARAM index = static_cast<WPARAM>(::SendMessageW(sheet, PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(m_hwnd), 0));
    ::SendMessageW(sheet, PSM_SETHEADERSUBTITLEW, index, reinterpret_cast<LPARAM>(text));
}

CWizardSheet* CWizardPage::GetWizardSheet() const {
    return dynamic_cast<CWizardSheet*>(GetPropertySheet());
}

}  // namespace Velkan
