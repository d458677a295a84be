#pragma once

#include "velkan/app/Wnd.h"
#include "velkan/controls/Scrollbar.h"

namespace Velkan {

// A dialog made from a template resource, modal (DoModal) or modeless
// (CreateModeless, Create, CreateChildDialog). Its dialog procedure joins the
// routing of every CWnd: filters, WndProc, then DefaultWndProc, whose
// results reach the dialog manager through SetDialogMsgResult.
//
// OK and Cancel differ by mode: a modal dialog ends with IDOK or IDCANCEL;
// a modeless one ignores OK and only hides on Cancel, so it can be shown
// again. EndDialog ends a modal loop or destroys a modeless window.
class VELKAN_API CDialog : public CWnd {
public:
    // A null instance means the application's.
    explicit CDialog(UINT templateId, HINSTANCE instance = nullptr);
    CDialog(UINT templateId, const wchar_t* helpTopic, HINSTANCE instance = nullptr);
    // A live modeless window gets the system's EndDialog(IDCANCEL), a modal
    // one is destroyed; then the bold font is deleted.
    ~CDialog() override;

    // Creates the dialog modeless and moves it to (x, y) in its parent
    // without activating it, shown when show is non-zero: the page of a
    // larger window, from a child-style template.
    virtual HWND CreateChildDialog(CWnd* parent, int x, int y, BOOL show);
    // Runs the system's modal loop; the object is detached afterwards and
    // can run again. The result is DialogBoxParamW's: IDOK, IDCANCEL, the
    // value given to EndDialog, or -1 when the template cannot be loaded.
    virtual int DoModal(CWnd* parent = nullptr);
    // (control id, help context id) pairs ended by a pair of zeros.
    virtual DWORD* GetHelpIds();
    virtual void OnHelp(HELPINFO* info);
    virtual void OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    virtual void EndDialog(int result);
    // NULL when the template cannot be loaded.
    virtual HWND CreateModeless(CWnd* parent = nullptr);
    HWND Create(CWnd* parent = nullptr) override;
    LRESULT DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;
    // FALSE: the dialog manager's own processing runs.
    LRESULT FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;

    HWND CreateChildDialog(CWnd* parent, POINT& pt, BOOL show) { return CreateChildDialog(parent, pt.x, pt.y, show); }

    // The DLGPROC of every CDialog.
    static INT_PTR CALLBACK StaticDlgProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

    BOOL IsModeless() const { return m_modeless; }
    UINT GetTemplateId() const { return m_templateId; }
    HINSTANCE GetTemplateInstance() const { return m_instance; }
    const CString& GetHelpTopic() const { return m_helpTopic; }
    HFONT GetBoldFont() const { return m_boldFont; }
    CScrollbar& GetSizingGrip() { return m_sizingGrip; }

    // Focus to a control with the dialog manager's default-button
    // bookkeeping, at once or after the current message.
    void SetDlgItemFocus(UINT id) const;
    void SetDlgItemFocusDelayed(UINT id) const;
    // Flashes the dialog, moves focus to the control id (when not 0) and
    // beeps.
    void ShowDlgInputError(UINT id) const;
    // One bold font serves the whole dialog: it is the bold form of the
    // font of the first control passed in.
    void SetBold(UINT id);
    void SetBoldFont(CWnd* control);
    // A borderless panel of the same client size.
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
