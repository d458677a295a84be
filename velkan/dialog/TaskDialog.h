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

/// Receives a shown task dialog's notifications. Every operation has a
/// default body; override the ones you need. The int results go back to
/// the dialog: from OnButtonClicked, 1 keeps the dialog open and 0 lets the
/// click close it; from OnTimer, non-zero restarts the elapsed time.
class VELKAN_API ITaskDialogNotificationHandler {
public:
    /// TDN_BUTTON_CLICKED; 1 keeps the dialog open, 0 (the default) lets the
    /// click close it.
    virtual int OnButtonClicked(CTaskDialog& dialog, int buttonId);
    virtual void OnCreated(CTaskDialog& dialog);  ///< TDN_CREATED.
    /// TDN_DESTROYED; the window is detached after it.
    virtual void OnDestroyed(CTaskDialog& dialog);
    /// TDN_DIALOG_CONSTRUCTED; the window is attached before it.
    virtual void OnDialogConstructed(CTaskDialog& dialog);
    /// TDN_EXPANDO_BUTTON_CLICKED.
    virtual void OnExpandoButtonClicked(CTaskDialog& dialog, BOOL expanded);
    virtual void OnHelp(CTaskDialog& dialog);  ///< TDN_HELP.
    /// TDN_HYPERLINK_CLICKED.
    virtual void OnHyperlinkClicked(CTaskDialog& dialog, const wchar_t* href);
    virtual void OnNavigated(CTaskDialog& dialog);  ///< TDN_NAVIGATED.
    /// TDN_RADIO_BUTTON_CLICKED.
    virtual void OnRadioButtonClicked(CTaskDialog& dialog, int radioId);
    /// TDN_TIMER; non-zero restarts the elapsed time.
    virtual int OnTimer(CTaskDialog& dialog, DWORD elapsedMs);
    /// TDN_VERIFICATION_CLICKED.
    virtual void OnVerificationClicked(CTaskDialog& dialog, BOOL checked);

protected:
    /// Handlers are not deleted through this interface.
    ~ITaskDialogNotificationHandler() = default;
};

/// A system task dialog, configured with chained With... calls and shown
/// with Show. Text fields are either the caller's text, kept in the object,
/// or a string id that the system loads from the dialog's instance.
///
/// While shown (from TDN_DIALOG_CONSTRUCTED to TDN_DESTROYED) the dialog's
/// window is attached, and the live operations below act on it; at other
/// times they do nothing. The configuration survives Show, so the object
/// can be shown again; it must not be copied while shown.
class VELKAN_API CTaskDialog : private CWnd, public ITaskDialogNotificationHandler {
public:
    /// Their values are the platform's TD_*_ICON resources.
    enum StandardIcons : WORD {
        WarningIcon = 0xFFFF,  ///< TD_WARNING_ICON
        ErrorIcon = 0xFFFE,  ///< TD_ERROR_ICON
        InformationIcon = 0xFFFD,  ///< TD_INFORMATION_ICON
        ShieldIcon = 0xFFFC,  ///< TD_SHIELD_ICON
    };
    /// The text elements of SetElementText and UpdateElementText (TDE_*).
    enum Elements { ContentElement = 0, ExpandedInformationElement = 1, FooterElement = 2, MainInstructionElement = 3 };
    /// The icons of UpdateIcon (TDIE_ICON_*).
    enum IconElements { MainIconElement = 0, FooterIconElement = 1 };
    /// The progress bar states of SetProgressBarState (PBST_*).
    enum ProgressBarStates { ProgressNormal = 1, ProgressError = 2, ProgressPaused = 3 };

    /// A null instance means the application's. The title is the instance's
    /// string VELKAN_IDS_APP_TITLE until one is given.
    explicit CTaskDialog(HINSTANCE instance = nullptr);
    ~CTaskDialog() override;  ///< Does not close a shown dialog.

    // Texts.
    /// Sets a text: the caller's text (kept in the object), a string id that
    /// the system loads when showing, or a text formatted from a format or a
    /// format id (loaded at once) as CString::Format does. A null text removes
    /// it.
    ///@{
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
    ///@}
    /// The text the expando button shows or hides, set as the other texts
    /// are. The plain forms also decide whether the text shows in the
    /// footer.
    ///@{
    CTaskDialog& WithExpandedInformation(UINT id, BOOL inFooter);
    CTaskDialog& WithExpandedInformation(const wchar_t* text, BOOL inFooter);
    ///@}
    /// Sets a text as the other text setters do: the caller's text, a string
    /// id, or a formatted text.
    ///@{
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
    ///@}
    /// The verification check box's text and its starting state. A null
    /// text removes the check box and its checked flag.
    ///@{
    CTaskDialog& WithVerificationText(UINT id, BOOL checked);
    CTaskDialog& WithVerificationText(const wchar_t* text, BOOL checked);
    ///@}

    // Icons.
    /// The main or footer icon: an icon resource of the dialog's instance,
    /// an icon handle, or a standard icon. The standard-icon forms leave the
    /// HICON flag as it is, so they follow a resource form, not a handle.
    ///@{
    CTaskDialog& WithIcon(UINT resourceId);
    CTaskDialog& WithIcon(HICON icon);
    CTaskDialog& WithIcon(StandardIcons icon);
    CTaskDialog& WithFooterIcon(UINT resourceId);
    CTaskDialog& WithFooterIcon(HICON icon);
    CTaskDialog& WithFooterIcon(StandardIcons icon);
    ///@}

    // Buttons and layout.
    /// The common buttons, TDCBF_* flags combined.
    CTaskDialog& WithCommonButtons(int buttons);
    CTaskDialog& WithDefaultButton(int id);  ///< The button that Enter presses.
    CTaskDialog& WithDefaultRadioButton(int id);  ///< The radio button selected at the start.
    /// The client width in dialog units; 0 lets the system choose.
    CTaskDialog& WithFixedWidth(int dialogUnits);
    /// The object that receives the notifications. Not owned; null makes
    /// the dialog its own handler again.
    CTaskDialog& WithCallbackHandler(ITaskDialogNotificationHandler* handler);
    /// Adds a custom button or radio button with its id and text, after the
    /// ones added before. The id forms load the text at once from the
    /// dialog's instance.
    ///@{
    CTaskDialog& AddButton(int id, UINT textId);
    CTaskDialog& AddButton(int id, const wchar_t* text);
    CTaskDialog& AddRadioButton(int id, UINT textId);
    CTaskDialog& AddRadioButton(int id, const wchar_t* text);
    ///@}

    // Option flags.
    /// Turns the matching option flag (TDF_*) on or off. The two progress
    /// bars exclude each other: turning one on turns the other off.
    ///@{
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
    ///@}

    /// Shows the dialog and returns the id of the button that closed it, or
    /// -1 when it could not be shown. The two results may be null.
    /// The configuration is kept for the next Show.
    int Show(CWnd* parent = nullptr, int* radioResult = nullptr, int* verificationResult = nullptr);

    // Live operations, for the shown dialog only.
    /// Presses a button (TDM_CLICK_BUTTON).
    void ClickButton(int id);
    void SetMarqueeProgressBar(BOOL on);  ///< TDM_SET_MARQUEE_PROGRESS_BAR.
    int SetProgressBarState(ProgressBarStates state);  ///< TDM_SET_PROGRESS_BAR_STATE.
    /// TDM_SET_PROGRESS_BAR_RANGE.
    /// The previous range (min, max).
    std::pair<WORD, WORD> SetProgressBarRange(WORD min, WORD max);
    void SetProgressBarPos(int pos);  ///< TDM_SET_PROGRESS_BAR_POS.
    void SetProgressBarMarquee(BOOL on, UINT speedMs);  ///< TDM_SET_PROGRESS_BAR_MARQUEE.
    /// TDM_SET_ELEMENT_TEXT with an Elements value.
    /// Relayouts the dialog for the new text.
    void SetElementText(int element, const wchar_t* text);
    void ClickRadioButton(int id);  ///< TDM_CLICK_RADIO_BUTTON.
    void EnableButton(int id, BOOL enable);  ///< TDM_ENABLE_BUTTON.
    void EnableRadioButton(int id, BOOL enable);  ///< TDM_ENABLE_RADIO_BUTTON.
    void ClickVerification(BOOL checked, BOOL setFocus);  ///< TDM_CLICK_VERIFICATION.
    /// TDM_UPDATE_ELEMENT_TEXT.
    /// Keeps the layout: the text must fit.
    void UpdateElementText(Elements element, const wchar_t* text);
    /// TDM_SET_BUTTON_ELEVATION_REQUIRED_STATE.
    void SetButtonElevationRequiredState(int id, BOOL required);
    /// TDM_UPDATE_ICON with an icon handle, a resource name or id, or a
    /// standard icon.
    ///@{
    void UpdateIcon(IconElements element, HICON icon);
    void UpdateIcon(IconElements element, const wchar_t* resource);
    void UpdateIcon(IconElements element, UINT resourceId);
    void UpdateIcon(IconElements element, StandardIcons icon);
    ///@}
    /// Page navigation is not offered; this does nothing.
    void NavigatePage(CTaskDialog& next);

    /// The shown dialog's window, or null.
    HWND GetHwnd() const { return m_hwnd; }
    /// The configuration the setters fill; the buttons are filled in only
    /// while Show runs.
    ///@{
    const TASKDIALOGCONFIG& GetConfig() const { return m_config; }
    TASKDIALOGCONFIG& GetConfig() { return m_config; }
    ///@}

    /// The callback of every shown task dialog: routes notifications to the
    /// handler. A handler's exception is reported and answered with S_OK.
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
