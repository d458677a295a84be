#include "velkan/dialog/TaskDialog.h"
#include "velkan/app/ResourceIds.h"

#include <mutex>

#include "velkan/app/detail/Unhandled.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"

namespace Velkan {

VELKAN_X86_SIZE(TASKDIALOGCONFIG, 96);

namespace {

using TaskDialogIndirectProc = HRESULT(WINAPI*)(const TASKDIALOGCONFIG*, int*, int*, BOOL*);

// comctl32 exports TaskDialogIndirect by name only from version 6; its
// ordinal is the same in every version that has it.
TaskDialogIndirectProc GetTaskDialogIndirect() {
    static TaskDialogIndirectProc proc = nullptr;
    static std::once_flag once;
    std::call_once(once, [] {
        HMODULE comctl = ::LoadLibraryW(L"comctl32.dll");
        if (comctl != nullptr)
            proc = reinterpret_cast<TaskDialogIndirectProc>(
                reinterpret_cast<void*>(::GetProcAddress(comctl, MAKEINTRESOURCEA(345))));
    });
    return proc;
}

PCWSTR StandardIcon(WORD icon) {
    return MAKEINTRESOURCEW(icon);
}

}  // namespace

// ---------------------------------------------------------------------------
// The handler's defaults

int ITaskDialogNotificationHandler::OnButtonClicked(CTaskDialog&, int) { return 0; }
void ITaskDialogNotificationHandler::OnCreated(CTaskDialog&) {}
void ITaskDialogNotificationHandler::OnDestroyed(CTaskDialog&) {}
void ITaskDialogNotificationHandler::OnDialogConstructed(CTaskDialog&) {}
void ITaskDialogNotificationHandler::OnExpandoButtonClicked(CTaskDialog&, BOOL) {}
void ITaskDialogNotificationHandler::OnHelp(CTaskDialog&) {}
void ITaskDialogNotificationHandler::OnHyperlinkClicked(CTaskDialog&, const wchar_t*) {}
void ITaskDialogNotificationHandler::OnNavigated(CTaskDialog&) {}
void ITaskDialogNotificationHandler::OnRadioButtonClicked(CTaskDialog&, int) {}
int ITaskDialogNotificationHandler::OnTimer(CTaskDialog&, DWORD) { return 0; }
void ITaskDialogNotificationHandler::OnVerificationClicked(CTaskDialog&, BOOL) {}

// ---------------------------------------------------------------------------
// Construction

CTaskDialog::CTaskDialog(HINSTANCE instance) : m_config() {
    m_config.cbSize = sizeof(m_config);
    m_config.hInstance = CResourceLoader::ResolveInstance(instance);
    m_config.pszWindowTitle = MAKEINTRESOURCEW(VELKAN_IDS_APP_TITLE);
}

CTaskDialog::~CTaskDialog() = default;

// ---------------------------------------------------------------------------
// Texts

void CTaskDialog::SetText(PCWSTR& field, CString& backing, const wchar_t* text) {
    backing = text;
    field = text != nullptr ? backing.GetString() : nullptr;
}

void CTaskDialog::SetText(PCWSTR& field, CString& backing, UINT id) {
    backing.SetNull();
    field = MAKEINTRESOURCEW(id);
}

void CTaskDialog::SetTextV(PCWSTR& field, CString& backing, const wchar_t* format, va_list args) {
    backing.FormatV(format, args);
    field = backing.GetString();
}

CString CTaskDialog::LoadString(UINT id) const {
    return CResourceString(id, m_config.hInstance);
}

void CTaskDialog::SetFlag(DWORD flag, BOOL on) {
    if (on)
        m_config.dwFlags |= flag;
    else
        m_config.dwFlags &= ~flag;
}

CTaskDialog& CTaskDialog::WithWindowTitle(UINT id) {
    SetText(m_config.pszWindowTitle, m_windowTitle, id);
    return *this;
}

CTaskDialog& CTaskDialog::WithWindowTitle(const wchar_t* text) {
    SetText(m_config.pszWindowTitle, m_windowTitle, text);
    return *this;
}

CTaskDialog& CTaskDialog::WithMainInstruction(UINT id) {
    SetText(m_config.pszMainInstruction, m_mainInstruction, id);
    return *this;
}

CTaskDialog& CTaskDialog::WithMainInstruction(const wchar_t* text) {
    SetText(m_config.pszMainInstruction, m_mainInstruction, text);
    return *this;
}

CTaskDialog& CTaskDialog::WithMainInstructionFmt(UINT formatId, ...) {
    const CString format = LoadString(formatId);
    va_list args;
    va_start(args, formatId);
    SetTextV(m_config.pszMainInstruction, m_mainInstruction, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithMainInstructionFmt(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    SetTextV(m_config.pszMainInstruction, m_mainInstruction, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithContent(UINT id) {
    SetText(m_config.pszContent, m_content, id);
    return *this;
}

CTaskDialog& CTaskDialog::WithContent(const wchar_t* text) {
    SetText(m_config.pszContent, m_content, text);
    return *this;
}

CTaskDialog& CTaskDialog::WithContentFmt(UINT formatId, ...) {
    const CString format = LoadString(formatId);
    va_list args;
    va_start(args, formatId);
    SetTextV(m_config.pszContent, m_content, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithContentFmt(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    SetTextV(m_config.pszContent, m_content, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithExpandedInformation(UINT id, BOOL inFooter) {
    SetText(m_config.pszExpandedInformation, m_expandedInformation, id);
    SetFlag(TDF_EXPAND_FOOTER_AREA, inFooter);
    return *this;
}

CTaskDialog& CTaskDialog::WithExpandedInformation(const wchar_t* text, BOOL inFooter) {
    SetText(m_config.pszExpandedInformation, m_expandedInformation, text);
    SetFlag(TDF_EXPAND_FOOTER_AREA, inFooter);
    return *this;
}

CTaskDialog& CTaskDialog::WithExpandedInformationFmt(UINT formatId, ...) {
    const CString format = LoadString(formatId);
    va_list args;
    va_start(args, formatId);
    SetTextV(m_config.pszExpandedInformation, m_expandedInformation, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithExpandedInformationFmt(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    SetTextV(m_config.pszExpandedInformation, m_expandedInformation, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithFooter(UINT id) {
    SetText(m_config.pszFooter, m_footer, id);
    return *this;
}

CTaskDialog& CTaskDialog::WithFooter(const wchar_t* text) {
    SetText(m_config.pszFooter, m_footer, text);
    return *this;
}

CTaskDialog& CTaskDialog::WithFooterFmt(UINT formatId, ...) {
    const CString format = LoadString(formatId);
    va_list args;
    va_start(args, formatId);
    SetTextV(m_config.pszFooter, m_footer, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithFooterFmt(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    SetTextV(m_config.pszFooter, m_footer, format, args);
    va_end(args);
    return *this;
}

CTaskDialog& CTaskDialog::WithExpandedControlText(UINT id) {
    SetText(m_config.pszExpandedControlText, m_expandedControlText, id);
    return *this;
}

CTaskDialog& CTaskDialog::WithExpandedControlText(const wchar_t* text) {
    SetText(m_config.pszExpandedControlText, m_expandedControlText, text);
    return *this;
}

CTaskDialog& CTaskDialog::WithCollapsedControlText(UINT id) {
    SetText(m_config.pszCollapsedControlText, m_collapsedControlText, id);
    return *this;
}

CTaskDialog& CTaskDialog::WithCollapsedControlText(const wchar_t* text) {
    SetText(m_config.pszCollapsedControlText, m_collapsedControlText, text);
    return *this;
}

CTaskDialog& CTaskDialog::WithVerificationText(UINT id, BOOL checked) {
    SetText(m_config.pszVerificationText, m_verificationText, id);
    SetFlag(TDF_VERIFICATION_FLAG_CHECKED, checked);
    return *this;
}

CTaskDialog& CTaskDialog::WithVerificationText(const wchar_t* text, BOOL checked) {
    SetText(m_config.pszVerificationText, m_verificationText, text);
    SetFlag(TDF_VERIFICATION_FLAG_CHECKED, text != nullptr && checked);
    return *this;
}

// ---------------------------------------------------------------------------
// Icons

CTaskDialog& CTaskDialog::WithIcon(UINT resourceId) {
    SetFlag(TDF_USE_HICON_MAIN, FALSE);
    m_config.pszMainIcon = MAKEINTRESOURCEW(resourceId);
    return *this;
}

CTaskDialog& CTaskDialog::WithIcon(HICON icon) {
    SetFlag(TDF_USE_HICON_MAIN, TRUE);
    m_config.hMainIcon = icon;
    return *this;
}

CTaskDialog& CTaskDialog::WithIcon(StandardIcons icon) {
    // Kept: the HICON flag stays as it is, so after WithIcon(HICON) the
    // system reads the standard value as an icon handle.
    m_config.pszMainIcon = StandardIcon(icon);
    return *this;
}

CTaskDialog& CTaskDialog::WithFooterIcon(UINT resourceId) {
    SetFlag(TDF_USE_HICON_FOOTER, FALSE);
    m_config.pszFooterIcon = MAKEINTRESOURCEW(resourceId);
    return *this;
}

CTaskDialog& CTaskDialog::WithFooterIcon(HICON icon) {
    SetFlag(TDF_USE_HICON_FOOTER, TRUE);
    m_config.hFooterIcon = icon;
    return *this;
}

CTaskDialog& CTaskDialog::WithFooterIcon(StandardIcons icon) {
    m_config.pszFooterIcon = StandardIcon(icon);
    return *this;
}

// ---------------------------------------------------------------------------
// Buttons and layout

CTaskDialog& CTaskDialog::WithCommonButtons(int buttons) {
    m_config.dwCommonButtons = static_cast<TASKDIALOG_COMMON_BUTTON_FLAGS>(buttons);
    return *this;
}

CTaskDialog& CTaskDialog::WithDefaultButton(int id) {
    m_config.nDefaultButton = id;
    return *this;
}

CTaskDialog& CTaskDialog::WithDefaultRadioButton(int id) {
    m_config.nDefaultRadioButton = id;
    return *this;
}

CTaskDialog& CTaskDialog::WithFixedWidth(int dialogUnits) {
    m_config.cxWidth = static_cast<UINT>(dialogUnits);
    return *this;
}

CTaskDialog& CTaskDialog::WithCallbackHandler(ITaskDialogNotificationHandler* handler) {
    m_handler = handler;
    return *this;
}

CTaskDialog& CTaskDialog::AddButton(int id, UINT textId) {
    return AddButton(id, LoadString(textId));
}

CTaskDialog& CTaskDialog::AddButton(int id, const wchar_t* text) {
    m_buttons.push_back(Button{id, CString(text)});
    return *this;
}

CTaskDialog& CTaskDialog::AddRadioButton(int id, UINT textId) {
    return AddRadioButton(id, LoadString(textId));
}

CTaskDialog& CTaskDialog::AddRadioButton(int id, const wchar_t* text) {
    m_radioButtons.push_back(Button{id, CString(text)});
    return *this;
}

// ---------------------------------------------------------------------------
// Flags

CTaskDialog& CTaskDialog::WithHyperLinks(BOOL on) { SetFlag(TDF_ENABLE_HYPERLINKS, on); return *this; }
CTaskDialog& CTaskDialog::AllowCancellation(BOOL on) { SetFlag(TDF_ALLOW_DIALOG_CANCELLATION, on); return *this; }
CTaskDialog& CTaskDialog::WithCommandLinks(BOOL on) { SetFlag(TDF_USE_COMMAND_LINKS, on); return *this; }
CTaskDialog& CTaskDialog::WithCommandLinksNoIcon(BOOL on) { SetFlag(TDF_USE_COMMAND_LINKS_NO_ICON, on); return *this; }
CTaskDialog& CTaskDialog::WithExpandFooterArea(BOOL on) { SetFlag(TDF_EXPAND_FOOTER_AREA, on); return *this; }
CTaskDialog& CTaskDialog::WithExpandByDefault(BOOL on) { SetFlag(TDF_EXPANDED_BY_DEFAULT, on); return *this; }
CTaskDialog& CTaskDialog::WithRelativePlacement(BOOL on) { SetFlag(TDF_POSITION_RELATIVE_TO_WINDOW, on); return *this; }
CTaskDialog& CTaskDialog::WithRtlLayout(BOOL on) { SetFlag(TDF_RTL_LAYOUT, on); return *this; }
CTaskDialog& CTaskDialog::WithNoDefaultRadioButton(BOOL on) { SetFlag(TDF_NO_DEFAULT_RADIO_BUTTON, on); return *this; }
CTaskDialog& CTaskDialog::WithCanBeMinimized(BOOL on) { SetFlag(TDF_CAN_BE_MINIMIZED, on); return *this; }
CTaskDialog& CTaskDialog::WithSizeToContent(BOOL on) { SetFlag(TDF_SIZE_TO_CONTENT, on); return *this; }

CTaskDialog& CTaskDialog::WithProgressBar(BOOL on) {
    if (on) SetFlag(TDF_SHOW_MARQUEE_PROGRESS_BAR, FALSE);
    SetFlag(TDF_SHOW_PROGRESS_BAR, on);
    return *this;
}

CTaskDialog& CTaskDialog::WithMarqueeProgressBar(BOOL on) {
    if (on) SetFlag(TDF_SHOW_PROGRESS_BAR, FALSE);
    SetFlag(TDF_SHOW_MARQUEE_PROGRESS_BAR, on);
    return *this;
}

// ---------------------------------------------------------------------------
// Showing

int CTaskDialog::Show(CWnd* parent, int* radioResult, int* verificationResult) {
    m_config.hwndParent = parent != nullptr ? parent->GetHwnd() : nullptr;

    // The texts point into the stored strings, which outlive the call.
    std::vector<TASKDIALOG_BUTTON> buttons, radios;
    for (const Button& b : m_buttons) buttons.push_back(TASKDIALOG_BUTTON{b.id, b.text.GetString()});
    for (const Button& b : m_radioButtons) radios.push_back(TASKDIALOG_BUTTON{b.id, b.text.GetString()});
    m_config.cButtons = static_cast<UINT>(buttons.size());
    m_config.pButtons = buttons.empty() ? nullptr : buttons.data();
    m_config.cRadioButtons = static_cast<UINT>(radios.size());
    m_config.pRadioButtons = radios.empty() ? nullptr : radios.data();
    m_config.pfCallback = &CTaskDialog::TaskDialogCallback;
    m_config.lpCallbackData = reinterpret_cast<LONG_PTR>(this);

    HRESULT hr = E_NOTIMPL;
    int pressed = 0;
    if (TaskDialogIndirectProc taskDialogIndirect = GetTaskDialogIndirect())
        hr = taskDialogIndirect(&m_config, &pressed, radioResult, verificationResult);

    // The arrays die here; the configuration must not point at them.
    m_config.cButtons = 0;
    m_config.pButtons = nullptr;
    m_config.cRadioButtons = 0;
    m_config.pRadioButtons = nullptr;
    return FAILED(hr) ? -1 : pressed;
}

HRESULT CALLBACK CTaskDialog::TaskDialogCallback(HWND hwnd, UINT notification, WPARAM wParam, LPARAM lParam,
                                                 LONG_PTR refData) {
    auto* dialog = reinterpret_cast<CTaskDialog*>(refData);
    if (dialog == nullptr) return S_OK;
    // A handler's exception is reported and answered as the defaults would.
    return Detail::Guarded([&] { return dialog->Notify(hwnd, notification, wParam, lParam); },
                           [&]() -> HRESULT {
                               // The window still goes, whatever the handler did.
                               if (notification == TDN_DESTROYED) dialog->CWnd::Detach();
                               return S_OK;
                           });
}

HRESULT CTaskDialog::Notify(HWND hwnd, UINT notification, WPARAM wParam, LPARAM lParam) {
    CTaskDialog* dialog = this;
    ITaskDialogNotificationHandler* handler =
        dialog->m_handler != nullptr ? dialog->m_handler : static_cast<ITaskDialogNotificationHandler*>(dialog);
    switch (notification) {
    case TDN_BUTTON_CLICKED:
        return handler->OnButtonClicked(*dialog, static_cast<int>(wParam));
    case TDN_CREATED:
        handler->OnCreated(*dialog);
        break;
    case TDN_DESTROYED:
        handler->OnDestroyed(*dialog);
        dialog->CWnd::Detach();
        break;
    case TDN_DIALOG_CONSTRUCTED:
        dialog->CWnd::Attach(hwnd);
        handler->OnDialogConstructed(*dialog);
        break;
    case TDN_EXPANDO_BUTTON_CLICKED:
        handler->OnExpandoButtonClicked(*dialog, wParam != 0);
        break;
    case TDN_HELP:
        handler->OnHelp(*dialog);
        break;
    case TDN_HYPERLINK_CLICKED:
        handler->OnHyperlinkClicked(*dialog, reinterpret_cast<const wchar_t*>(lParam));
        break;
    case TDN_NAVIGATED:
        handler->OnNavigated(*dialog);
        break;
    case TDN_RADIO_BUTTON_CLICKED:
        handler->OnRadioButtonClicked(*dialog, static_cast<int>(wParam));
        break;
    case TDN_TIMER:
        return handler->OnTimer(*dialog, static_cast<DWORD>(wParam));
    case TDN_VERIFICATION_CLICKED:
        handler->OnVerificationClicked(*dialog, wParam != 0);
        break;
    default:
        break;
    }
    return S_OK;
}

// ---------------------------------------------------------------------------
// Live operations

void CTaskDialog::ClickButton(int id) {
    SendMessageW(TDM_CLICK_BUTTON, static_cast<WPARAM>(id), 0);
}

void CTaskDialog::SetMarqueeProgressBar(BOOL on) {
    SendMessageW(TDM_SET_MARQUEE_PROGRESS_BAR, static_cast<WPARAM>(on), 0);
}

int CTaskDialog::SetProgressBarState(ProgressBarStates state) {
    return static_cast<int>(SendMessageW(TDM_SET_PROGRESS_BAR_STATE, static_cast<WPARAM>(state), 0));
}

std::pair<WORD, WORD> CTaskDialog::SetProgressBarRange(WORD min, WORD max) {
    const LRESULT previous = SendMessageW(TDM_SET_PROGRESS_BAR_RANGE, 0, MAKELPARAM(min, max));
    return {LOWORD(previous), HIWORD(previous)};
}

void CTaskDialog::SetProgressBarPos(int pos) {
    SendMessageW(TDM_SET_PROGRESS_BAR_POS, static_cast<WPARAM>(pos), 0);
}

void CTaskDialog::SetProgressBarMarquee(BOOL on, UINT speedMs) {
    SendMessageW(TDM_SET_PROGRESS_BAR_MARQUEE, static_cast<WPARAM>(on), static_cast<LPARAM>(speedMs));
}

void CTaskDialog::SetElementText(int element, const wchar_t* text) {
    SendMessageW(TDM_SET_ELEMENT_TEXT, static_cast<WPARAM>(element), reinterpret_cast<LPARAM>(text));
}

void CTaskDialog::ClickRadioButton(int id) {
    SendMessageW(TDM_CLICK_RADIO_BUTTON, static_cast<WPARAM>(id), 0);
}

void CTaskDialog::EnableButton(int id, BOOL enable) {
    SendMessageW(TDM_ENABLE_BUTTON, static_cast<WPARAM>(id), enable);
}

void CTaskDialog::EnableRadioButton(int id, BOOL enable) {
    SendMessageW(TDM_ENABLE_RADIO_BUTTON, static_cast<WPARAM>(id), enable);
}

void CTaskDialog::ClickVerification(BOOL checked, BOOL setFocus) {
    SendMessageW(TDM_CLICK_VERIFICATION, static_cast<WPARAM>(checked), setFocus);
}

void CTaskDialog::UpdateElementText(Elements element, const wchar_t* text) {
    SendMessageW(TDM_UPDATE_ELEMENT_TEXT, static_cast<WPARAM>(element), reinterpret_cast<LPARAM>(text));
}

void CTaskDialog::SetButtonElevationRequiredState(int id, BOOL required) {
    SendMessageW(TDM_SET_BUTTON_ELEVATION_REQUIRED_STATE, static_cast<WPARAM>(id), required);
}

void CTaskDialog::UpdateIcon(IconElements element, HICON icon) {
    SendMessageW(TDM_UPDATE_ICON, static_cast<WPARAM>(element), reinterpret_cast<LPARAM>(icon));
}

void CTaskDialog::UpdateIcon(IconElements element, const wchar_t* resource) {
    SendMessageW(TDM_UPDATE_ICON, static_cast<WPARAM>(element), reinterpret_cast<LPARAM>(resource));
}

void CTaskDialog::UpdateIcon(IconElements element, UINT resourceId) {
    SendMessageW(TDM_UPDATE_ICON, static_cast<WPARAM>(element), static_cast<LPARAM>(resourceId));
}

void CTaskDialog::UpdateIcon(IconElements element, StandardIcons icon) {
    SendMessageW(TDM_UPDATE_ICON, static_cast<WPARAM>(element), static_cast<LPARAM>(static_cast<WORD>(icon)));
}

void CTaskDialog::NavigatePage(CTaskDialog&) {}

}  // namespace Velkan
