#pragma once

#include "velkan/app/Wnd.h"
#include "velkan/controls/Scrollbar.h"

namespace Velkan {

/// A dialog made from a template resource, modal (DoModal) or modeless
/// (CreateModeless, Create, CreateChildDialog). Its dialog procedure joins the
/// routing of every CWnd: filters, WndProc, then DefaultWndProc, whose
/// results reach the dialog manager through SetDialogMsgResult.
///
/// OK and Cancel differ by mode: a modal dialog ends with IDOK or IDCANCEL;
/// a modeless one ignores OK and only hides on Cancel, so it can be shown
/// again. EndDialog ends a modal loop or destroys a modeless window.
class VELKAN_API CDialog : public CWnd {
public:
    /// The dialog of template templateId in instance. A null instance means
    /// the application's.
    explicit CDialog(UINT templateId, HINSTANCE instance = nullptr);
    /// The same, with the HTML help topic that the title bar's help button
    /// opens.
    CDialog(UINT templateId, const wchar_t* helpTopic, HINSTANCE instance = nullptr);
    /// A live modeless window gets the system's EndDialog(IDCANCEL), a modal
    /// one is destroyed; then the bold font is deleted.
    ~CDialog() override;

    /// Creates the dialog modeless and moves it to (x, y) in its parent
    /// without activating it, shown when show is non-zero: the page of a
    /// larger window, from a child-style template.
    virtual HWND CreateChildDialog(CWnd* parent, int x, int y, BOOL show);
    /// Runs the system's modal loop; the object is detached afterwards and
    /// can run again. The result is DialogBoxParamW's: IDOK, IDCANCEL, the
    /// value given to EndDialog, or -1 when the template cannot be loaded.
    virtual int DoModal(CWnd* parent = nullptr);
    /// (control id, help context id) pairs ended by a pair of zeros.
    virtual DWORD* GetHelpIds();
    /// WM_HELP: the context-help pop-up of the control, with the ids of
    /// GetHelpIds.
    virtual void OnHelp(HELPINFO* info);
    /// WM_INITDIALOG, after the sizing grip of a resizable dialog with
    /// auto-resizing has been made. Does nothing by default.
    virtual void OnInitDialog();
    /// IDOK by click or Enter: a modal dialog ends with IDOK; a modeless one
    /// ignores it.
    virtual void OnOK();
    /// IDCANCEL, Escape or the close box: a modal dialog ends with IDCANCEL;
    /// a modeless one hides.
    virtual void OnCancel();
    /// Ends the modal loop with result, or destroys a modeless window.
    virtual void EndDialog(int result);
    /// Creates the dialog modeless (hidden unless its template says
    /// WS_VISIBLE).
    /// NULL when the template cannot be loaded.
    virtual HWND CreateModeless(CWnd* parent = nullptr);
    HWND Create(CWnd* parent = nullptr) override;  ///< CreateModeless.
    /// The dialog's named handlers: OnInitDialog, OnOK, OnCancel, OnHelp,
    /// OnDestroy, OnPaint, OnEraseBkgnd, OnNotify and OnCommand with their
    /// reflections, and the help button.
    LRESULT DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;
    /// FALSE: the dialog manager's own processing runs.
    LRESULT FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;

    /// CreateChildDialog at pt.
    HWND CreateChildDialog(CWnd* parent, POINT& pt, BOOL show) { return CreateChildDialog(parent, pt.x, pt.y, show); }

    /// The DLGPROC of every CDialog.
    static INT_PTR CALLBACK StaticDlgProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

    BOOL IsModeless() const { return m_modeless; }  ///< Made by CreateModeless.
    UINT GetTemplateId() const { return m_templateId; }  ///< The template's resource id.
    HINSTANCE GetTemplateInstance() const { return m_instance; }  ///< The module of the template.
    /// The help topic, or an empty or null string.
    const CString& GetHelpTopic() const { return m_helpTopic; }
    HFONT GetBoldFont() const { return m_boldFont; }  ///< The bold font of SetBold, or null.
    /// The sizing grip of a resizable dialog with auto-resizing.
    CScrollbar& GetSizingGrip() { return m_sizingGrip; }

    /// Focus to a control with the dialog manager's default-button
    /// bookkeeping, at once or after the current message.
    ///@{
    void SetDlgItemFocus(UINT id) const;
    void SetDlgItemFocusDelayed(UINT id) const;
    ///@}
    /// Flashes the dialog, moves focus to the control id (when not 0) and
    /// beeps.
    void ShowDlgInputError(UINT id) const;
    /// One bold font serves the whole dialog: it is the bold form of the
    /// font of the first control passed in.
    ///@{
    void SetBold(UINT id);
    void SetBoldFont(CWnd* control);
    ///@}
    /// A borderless panel of the same client size.
    void MakeSplashScreenStyle();

private:
    HINSTANCE m_instance = nullptr;
    UINT m_templateId = 0;
    BOOL m_modeless = FALSE;
    HFONT m_boldFont = nullptr;
    CScrollbar m_sizingGrip;
    CString m_helpTopic;
};

}  // namespace Velkan
