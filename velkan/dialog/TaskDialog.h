#pragma once

#include <windows.h>
#include <commctrl.h>

#include <cstdarg>
#include <utility>
#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/core/String.h"

namespace Velkan {

class CTaskDialog;

// Receives a shown task dialog's notifications. Every operation has a
// default body; override the ones you need. The int results go back to
// the dialog: from OnButtonClicked, 1 keeps the dialog open and 0 lets the
// click close it; from OnTimer, non-zero restarts the elapsed time.
class VELKAN_API ITaskDialogNotificationHandler {
public:
    virtual int OnButtonClicked(CTaskDialog& dialog, int buttonId);
    virtual void OnCreated(CTaskDialog& dialog);
    virtual void OnDestroyed(CTaskDialog& dialog);
    virtual void OnDialogConstructed(CTaskDialog& dialog);
    virtual void OnExpandoButtonClicked(CTaskDialog& dialog, BOOL expanded);
    virtual void OnHelp(CTaskDialog& dialog);
    virtual void OnHyperlinkClicked(CTaskDialog& dialog, const wchar_t* href);
    virtual void OnNavigated(CTaskDialog& dialog);
    virtual void OnRadioButtonClicked(CTaskDialog& dialog, int radioId);
    virtual int OnTimer(CTaskDialog& dialog, DWORD elapsedMs);
    virtual void OnVerificationClicked(CTaskDialog& dialog, BOOL checked);

protected:
    ~ITaskDialogNotificationHandler() = default;
};

// A system task dialog, configured with chained With... calls and shown
// with Show. Text fields are either the caller's text, kept in the object,
// or a string id that the system loads from the dialog's instance.
//
// While shown (from TDN_DIALOG_CONSTRUCTED to TDN_DESTROYED) the dialog's
// window is attached, and the live operations below act on it; at other
// times they do nothing. The configuration survives Show, so the object
// can be shown again; it must not be copied while shown.
class VELKAN_API CTaskDialog : private CWnd, public ITaskDialogNotificationHandler {
public:
    // Their values are the platform's TD_*_ICON resources.
    enum StandardIcons : WORD {
        WarningIcon = 0xFFFF,
        ErrorIcon = 0xFFFE,
        InformationIcon = 0xFFFD,
        ShieldIcon = 0xFFFC,
    };
    enum Elements { ContentElement = 0, ExpandedInformationElement = 1, FooterElement = 2, MainInstructionElement = 3 };
    enum IconElements { MainIconElement = 0, FooterIconElement = 1 };
    enum ProgressBarStates { ProgressNormal = 1, ProgressError = 2, ProgressPaused = 3 };

    // A null instance means the application's. The title is the instance's
    // string 57344 until one is given.
    explicit CTaskDialog(HINSTANCE instance = nullptr);
    ~CTaskDialog() override;

    // Texts.
    CTaskDialog& WithWindowTitle(UINT id);
    CTaskDialog& WithWindowTitle(const wchar_t* text);
    CTaskDialog& WithMainInstruction(UINT id);
    CTaskDialog& WithMainInstruction(const wchar_t* text);
    CTaskDialog& WithMainInstructionFmt(UINT formatId, ...);
    CTaskDialog& WithMainInstructionFmt(const wchar_t* format, ...);
    CTaskDialog& WithContent(UINT id);
    CTaskDialog& WithContent(const wchar_t* text);
    CTaskDialog& WithContentFmt(UINT formatId, ...);
    CTaskDialog& WithContentFmt(const wchar_t* format, ...);
    // The plain forms also decide whether the text shows in the footer.
    CTaskDialog& WithExpandedInformation(UINT id, BOOL inFooter);
    CTaskDialog& WithExpandedInformation(const wchar_t* text, BOOL inFooter);
    CTaskDialog& WithExpandedInformationFmt(UINT formatId, ...);
    CTaskDialog& WithExpandedInformationFmt(const wchar_t* format, ...);
    CTaskDialog& WithFooter(UINT id);
    CTaskDialog& WithFooter(const wchar_t* text);
    CTaskDialog& WithFooterFmt(UINT formatId, ...);
    CTaskDialog& WithFooterFmt(const wchar_t* format, ...);
    CTaskDialog& WithExpandedControlText(UINT id);
    CTaskDialog& WithExpandedControlText(const wchar_t* text);
    CTaskDialog& WithCollapsedControlText(UINT id);
    CTaskDialog& WithCollapsedControlText(const wchar_t* text);
    // A null text removes the check box and its checked flag.
    CTaskDialog& WithVerificationText(UINT id, BOOL checked);
    CTaskDialog& WithVerificationText(const wchar_t* text, BOOL checked);

    // Icons. The standard-icon forms leave the HICON flag as it is.
    CTaskDialog& WithIcon(UINT resourceId);
    CTaskDialog& WithIcon(HICON icon);
    CTaskDialog& WithIcon(StandardIcons icon);
    CTaskDialog& WithFooterIcon(UINT resourceId);
    CTaskDialog& WithFooterIcon(HICON icon);
    CTaskDialog& WithFooterIcon(StandardIcons icon);

    // Buttons and layout.
    CTaskDialog& WithCommonButtons(int buttons);
    CTaskDialog& WithDefaultButton(int id);
    CTaskDialog& WithDefaultRadioButton(int id);
    CTaskDialog& WithFixedWidth(int dialogUnits);
    // Not owned; null makes the dialog its own handler again.
    CTaskDialog& WithCallbackHandler(ITaskDialogNotificationHandler* handler);
    // The id forms load the text at once from the dialog's instance.
    CTaskDialog& AddButton(int id, UINT textId);
    CTaskDialog& AddButton(int id, const wchar_t* text);
    CTaskDialog& AddRadioButton(int id, UINT textId);
    CTaskDialog& AddRadioButton(int id, const wchar_t* text);

    // Option flags. The two progress bars exclude each other.
    CTaskDialog& WithHyperLinks(BOOL on);
    CTaskDialog& AllowCancellation(BOOL on);
    CTaskDialog& WithCommandLinks(BOOL on);
    CTaskDialog& WithCommandLinksNoIcon(BOOL on);
    CTaskDialog& WithExpandFooterArea(BOOL on);
    CTaskDialog& WithExpandByDefault(BOOL on);
    CTaskDialog& WithProgressBar(BOOL on);
    CTaskDialog& WithMarqueeProgressBar(BOOL on);
    CTaskDialog& WithRelativePlacement(BOOL on);
    CTaskDialog& WithRtlLayout(BOOL on);
    CTaskDialog& WithNoDefaultRadioButton(BOOL on);
    CTaskDialog& WithCanBeMinimized(BOOL on);
    CTaskDialog& WithSizeToContent(BOOL on);

    // Shows the dialog and returns the id of the button that closed it, or
    // -1 when it could not be shown. The two results may be null.
    int Show(CWnd* parent = nullptr, int* radioResult = nullptr, int* verificationResult = nullptr);

    // Live operations, for the shown dialog only.
    void ClickButton(int id);
    void SetMarqueeProgressBar(BOOL on);
    int SetProgressBarState(ProgressBarStates state);
    // The previous range (min, max).
    std::pair<WORD, WORD> SetProgressBarRange(WORD min, WORD max);
    void SetProgressBarPos(int pos);
    void SetProgressBarMarquee(BOOL on, UINT speedMs);
    // Relayouts the dialog for the new text.
    void SetElementText(int element, const wchar_t* text);
    void ClickRadioButton(int id);
    void EnableButton(int id, BOOL enable);
    void EnableRadioButton(int id, BOOL enable);
    void ClickVerification(BOOL checked, BOOL setFocus);
    // Keeps the layout: the text must fit.
    void UpdateElementText(Elements element, const wchar_t* text);
    void SetButtonElevationRequiredState(int id, BOOL required);
    void UpdateIcon(IconElements element, HICON icon);
    void UpdateIcon(IconElements element, const wchar_t* resource);
    void UpdateIcon(IconElements element, UINT resourceId);
    void UpdateIcon(IconElements element, StandardIcons icon);
    // Page navigation is not offered; this does nothing.
    void NavigatePage(CTaskDialog& next);

    // The shown dialog's window, or null.
    HWND GetHwnd() const { return m_hwnd; }
    const TASKDIALOGCONFIG& GetConfig() const { return m_config; }
    TASKDIALOGCONFIG& GetConfig() { return m_config; }

    static HRESULT CALLBACK TaskDialogCallback(HWND hwnd, UINT notification, WPARAM wParam, LPARAM lParam,
                                               LONG_PTR refData);

private:
    struct Button {
        int id;
        CString text;
    };

    // Points field at text kept in backing, or clears both for null.
    void SetText(PCWSTR& field, CString& backing, const wchar_t* text);
    void SetText(PCWSTR& field, CString& backing, UINT id);
    void SetTextV(PCWSTR& field, CString& backing, const wchar_t* format, va_list args);
    CString LoadString(UINT id) const;
    // The callback's work for this dialog.
    HRESULT Notify(HWND hwnd, UINT notification, WPARAM wParam, LPARAM lParam);
    void SetFlag(DWORD flag, BOOL on);

    TASKDIALOGCONFIG m_config;
    CString m_windowTitle;
    CString m_mainInstruction;
    CString m_content;
    CString m_verificationText;
    CString m_expandedInformation;
    CString m_expandedControlText;
    CString m_collapsedControlText;
    CString m_footer;
    std::vector<Button> m_buttons;
    std::vector<Button> m_radioButtons;
    ITaskDialogNotificationHandler* m_handler = nullptr;
};

}  // namespace Velkan
