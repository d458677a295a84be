#pragma once

#include <windows.h>
#include <commctrl.h>
#include <prsht.h>

#include <initializer_list>
#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/Font.h"

namespace Velkan {

class CPropertySheet;
class CWizardSheet;

/// The page record of comctl32 version 6: the headers' last version with
/// the header bitmap that version 6 reads after the activation context.
struct PropertyPageRecord : PROPSHEETPAGEW_V3 {
    union {
        HBITMAP hbmHeader;  ///< The header bitmap, with PSP_USEHBMHEADER.
        LPCWSTR pszbmHeader;  ///< The header bitmap's resource.
    };
};

/// A page of a property sheet: a template dialog that the sheet creates,
/// routed like every CWnd once WM_INITDIALOG ties it to this object. The
/// sheet's notifications reach the page handlers through OnPsNotify; the int
/// handlers' results go back to the sheet (0 by default).
class VELKAN_API CPropertyPage : public CWnd {
public:
    /// The page of template templateId in instance. A null instance means
    /// the application's.
    explicit CPropertyPage(UINT templateId, HINSTANCE instance = nullptr);
    /// The same, with an HTML help topic.
    CPropertyPage(UINT templateId, const wchar_t* helpTopic, HINSTANCE instance = nullptr);
    ~CPropertyPage() override;  ///< The sheet destroys the page's window, not the object.

    /// (control id, help context id) pairs ended by a pair of zeros, for
    /// OnHelp; none by default.
    virtual DWORD* GetHelpIds();
    virtual void OnCallbackAddRef();  ///< PSPCB_ADDREF.
    /// PSPCB_CREATE; 1 by default. A positive value lets the sheet create the
    /// page; 0 or less leaves it out.
    virtual int OnCallbackCreate();
    virtual void OnCallbackRelease();  ///< PSPCB_RELEASE.
    /// WM_HELP: the context-help pop-up of the control, with the ids of
    /// GetHelpIds.
    virtual void OnHelp(HELPINFO* info);
    virtual void OnInitDialog();  ///< WM_INITDIALOG, once the page is tied to this object.
    virtual int OnApply();  ///< PSN_APPLY; PSNRET_NOERROR (0) lets the sheet close.
    /// PSN_RESET; cancelled when the sheet is closing by Cancel.
    virtual void OnReset(BOOL cancelled);
    virtual int OnSetActive();  ///< PSN_SETACTIVE; 0 accepts the activation.
    virtual int OnQueryCancel();  ///< PSN_QUERYCANCEL; non-zero keeps the sheet open.
    virtual int OnKillActive();  ///< PSN_KILLACTIVE; non-zero keeps the page active.
    /// Sends a sheet's WM_NOTIFY to the handler of its PSN_ code, with the
    /// handler's result as result.
    /// TRUE when the code was a sheet notification this page handles.
    virtual BOOL OnPsNotify(UINT id, LPARAM nmhdr, LRESULT& result);
    /// The page's named handlers: OnInitDialog, OnPsNotify, OnNotify and
    /// OnCommand with their reflections, OnHelp, OnPaint, OnEraseBkgnd and
    /// OnDestroy. WM_NCDESTROY frees the object for the next sheet.
    LRESULT DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;
    /// FALSE: the dialog manager's own processing runs.
    LRESULT FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;

    /// The page handle for a sheet.
    /// CreatePropertySheetPage on the page record.
    HPROPSHEETPAGE Create();
    using CWnd::Create;  ///< CWnd's Create, which pages do not use.
    CPropertySheet* GetPropertySheet() const;  ///< The sheet that holds the page, or null.
    /// Moves the focus to control id after the current message.
    void SetDlgItemFocusDelayed(UINT id) const;
    /// The page record CreatePropertySheetPage reads.
    PropertyPageRecord& GetPageRecord() { return m_psp; }
    /// The help topic, or an empty or null string.
    const CString& GetHelpTopic() const { return m_helpTopic; }

    /// The dialog procedure of every page; ties the page at WM_INITDIALOG.
    static INT_PTR CALLBACK StaticDlgProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    /// The page callback of every page: OnCallbackAddRef, OnCallbackCreate and
    /// OnCallbackRelease.
    static UINT CALLBACK PspCallback(HWND hwnd, UINT msg, PROPSHEETPAGEW* page);

private:
    UINT PageCallback(UINT msg);

public:

protected:
    PropertyPageRecord m_psp;  ///< The page record.
    HINSTANCE m_instance;  ///< The module of the template.
    UINT m_templateId;  ///< The template's resource id.
    CString m_helpTopic;  ///< The help topic.
};

/// A property sheet run modally over the pages added to it.
class VELKAN_API CPropertySheet : public CWnd {
public:
    /// The caption is the instance's string captionId.
    CPropertySheet(UINT captionId, HINSTANCE instance = nullptr);
    explicit CPropertySheet(HINSTANCE instance = nullptr);  ///< A sheet without a caption.

    /// Adds a page after the others: a page object (its handle is made
    /// now), a page handle, or a list of page objects.
    ///@{
    void AddPage(CPropertyPage& page);
    void AddPage(HPROPSHEETPAGE page);
    void AddPages(std::initializer_list<std::reference_wrapper<CPropertyPage>> pages);
    ///@}
    /// Runs the sheet modally.
    /// PropertySheetW's result.
    virtual int DoModal(CWnd* parent = nullptr);
    /// PSCB_INITIALIZED: the sheet window exists and is attached.
    virtual void OnCallbackInitialized();
    /// PSCB_PRECREATE, with the sheet's template.
    virtual void OnCallbackPreCreate(DLGTEMPLATE* dialogTemplate);
    /// PSCB_BUTTONPRESSED; the sheet is detached after it.
    virtual void OnButtonPressed(int button);

    /// The sheet message (PSM_*) of the same name.
    ///@{
    BOOL SetCurSel(int index) const { return static_cast<BOOL>(SendMessageW(PSM_SETCURSEL, static_cast<WPARAM>(index), 0)); }
    BOOL SetCurSel(HPROPSHEETPAGE page) const { return static_cast<BOOL>(SendMessageW(PSM_SETCURSEL, 0, reinterpret_cast<LPARAM>(page))); }
    BOOL SetCurSelByID(UINT id) const { return static_cast<BOOL>(SendMessageW(PSM_SETCURSELID, 0, static_cast<LPARAM>(id))); }
    int HwndToIndex(HWND page) const { return static_cast<int>(SendMessageW(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(page))); }
    void SetHeaderTitle(int index, const wchar_t* text) const { SendMessageW(PSM_SETHEADERTITLEW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)); }
    void SetHeaderSubTitle(int index, const wchar_t* text) const { SendMessageW(PSM_SETHEADERSUBTITLEW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)); }
    ///@}
    /// The header record PropertySheetW reads.
    PROPSHEETHEADERW& GetHeaderRecord() { return m_psh; }
    /// The page handles, in order.
    const std::vector<HPROPSHEETPAGE>& GetPages() const { return m_pages; }

    /// The sheet callback of every sheet.
    static int CALLBACK PshCallback(HWND hwnd, UINT msg, LPARAM lParam);

private:
    static int SheetCallback(HWND hwnd, UINT msg, LPARAM lParam);

public:

protected:
    PROPSHEETHEADERW m_psh;  ///< The header record.
    std::vector<HPROPSHEETPAGE> m_pages;  ///< The page handles.

private:
    void SyncPages();
};

/// A wizard-97 sheet with a watermark and, optionally, a header bitmap.
class VELKAN_API CWizardSheet : public CPropertySheet {
public:
    /// A wizard with the bitmap resources watermarkId and headerId.
    /// headerId 0: no header bitmap.
    CWizardSheet(UINT watermarkId, UINT headerId = 0, HINSTANCE instance = nullptr);

    virtual int DoWizard(HWND parent);  ///< DoModal over parent.
    /// PSM_SETWIZBUTTONS with PSWIZB_* flags.
    /// Posted: a call from a page notification takes effect after it.
    void SetWizButtons(UINT flags) const { PostMessageW(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(flags)); }
    const CBitmap& GetWatermarkBitmap() const { return m_watermark; }  ///< The watermark bitmap.
    /// The header bitmap, or an empty one.
    const CBitmap& GetHeaderBitmap() const { return m_header; }

private:
    CBitmap m_watermark;
    CBitmap m_header;
};

/// A wizard page with a header title and subtitle; exterior pages
/// (PSP_HIDEHEADER) paint the sheet's watermark themselves at DPIs other
/// than 96, where the system's would be scaled wrongly.
class VELKAN_API CWizardPage : public CPropertyPage {
public:
    /// A page whose header title and subtitle the sheet takes from the page
    /// record.
    explicit CWizardPage(UINT templateId, HINSTANCE instance = nullptr);
    /// A page with its header title and subtitle.
    /// The titles are kept as pointers: texts that outlive the page, or
    /// MAKEINTRESOURCE string ids of the instance.
    CWizardPage(UINT templateId, const wchar_t* headerTitle, const wchar_t* headerSubTitle,
                HINSTANCE instance = nullptr);

    /// PSN_WIZBACK; 0 goes to the previous page, -1 stays, a template id goes
    /// there.
    virtual int OnWizBack();
    /// PSN_WIZNEXT; 0 goes to the next page, -1 stays, a template id goes
    /// there.
    virtual int OnWizNext();
    /// Adds OnWizBack and OnWizNext.
    BOOL OnPsNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    /// Paints the watermark on exterior pages at DPIs other than 96.
    void OnPaint(CDC& dc) override;

    /// Changes this page's header title or subtitle in the sheet.
    ///@{
    void SetHeaderTitle(const wchar_t* text) const;
    void SetHeaderSubTitle(const wchar_t* text) const;
    ///@}
    CWizardSheet* GetWizardSheet() const;  ///< The wizard that holds the page, or null.
    /// A font for the page's titles, for the page's own use.
    CFont& GetTitleFont() { return m_titleFont; }

private:
    CFont m_titleFont;
};

}  // namespace Velkan
