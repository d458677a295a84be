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

// The page record of comctl32 version 6: the headers' last version with
// the header bitmap that version 6 reads after the activation context.
struct PropertyPageRecord : PROPSHEETPAGEW_V3 {
    union {
        HBITMAP hbmHeader;
        LPCWSTR pszbmHeader;
    };
};

// A page of a property sheet: a template dialog that the sheet creates,
// routed like every CWnd once WM_INITDIALOG ties it to this object. The
// sheet's notifications reach the page handlers through OnPsNotify; the int
// handlers' results go back to the sheet (0 by default).
class VELKAN_API CPropertyPage : public CWnd {
public:
    // A null instance means the application's.
    explicit CPropertyPage(UINT templateId, HINSTANCE instance = nullptr);
    CPropertyPage(UINT templateId, const wchar_t* helpTopic, HINSTANCE instance = nullptr);
    ~CPropertyPage() override;

    virtual DWORD* GetHelpIds();
    virtual void OnCallbackAddRef();
    // A positive value lets the sheet create the page; 0 or less leaves it out.
    virtual int OnCallbackCreate();
    virtual void OnCallbackRelease();
    virtual void OnHelp(HELPINFO* info);
    virtual void OnInitDialog();
    virtual int OnApply();
    virtual void OnReset(BOOL cancelled);
    virtual int OnSetActive();
    virtual int OnQueryCancel();
    virtual int OnKillActive();
    // TRUE when the code was a sheet notification this page handles.
    virtual BOOL OnPsNotify(UINT id, LPARAM nmhdr, LRESULT& result);
    LRESULT DefaultWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;
    LRESULT FinalWndProc(UINT msg, WPARAM wParam, LPARAM lParam) override;

    // The page handle for a sheet.
    HPROPSHEETPAGE Create();
    using CWnd::Create;
    CPropertySheet* GetPropertySheet() const;
    void SetDlgItemFocusDelayed(UINT id) const;
    PropertyPageRecord& GetPageRecord() { return m_psp; }
    const CString& GetHelpTopic() const { return m_helpTopic; }

    static INT_PTR CALLBACK StaticDlgProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    static UINT CALLBACK PspCallback(HWND hwnd, UINT msg, PROPSHEETPAGEW* page);

private:
    UINT PageCallback(UINT msg);

public:

protected:
    PropertyPageRecord m_psp;
    HINSTANCE m_instance;
    UINT m_templateId;
    CString m_helpTopic;
};

// A property sheet run modally over the pages added to it.
class VELKAN_API CPropertySheet : public CWnd {
public:
    // The caption is the instance's string captionId.
    CPropertySheet(UINT captionId, HINSTANCE instance = nullptr);
    explicit CPropertySheet(HINSTANCE instance = nullptr);

    void AddPage(CPropertyPage& page);
    void AddPage(HPROPSHEETPAGE page);
    void AddPages(std::initializer_list<std::reference_wrapper<CPropertyPage>> pages);
    // PropertySheetW's result.
    virtual int DoModal(CWnd* parent = nullptr);
    virtual void OnCallbackInitialized();
    virtual void OnCallbackPreCreate(DLGTEMPLATE* dialogTemplate);
    virtual void OnButtonPressed(int button);

    BOOL SetCurSel(int index) const { return static_cast<BOOL>(SendMessageW(PSM_SETCURSEL, static_cast<WPARAM>(index), 0)); }
    BOOL SetCurSel(HPROPSHEETPAGE page) const { return static_cast<BOOL>(SendMessageW(PSM_SETCURSEL, 0, reinterpret_cast<LPARAM>(page))); }
    BOOL SetCurSelByID(UINT id) const { return static_cast<BOOL>(SendMessageW(PSM_SETCURSELID, 0, static_cast<LPARAM>(id))); }
    int HwndToIndex(HWND page) const { return static_cast<int>(SendMessageW(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(page))); }
    void SetHeaderTitle(int index, const wchar_t* text) const { SendMessageW(PSM_SETHEADERTITLEW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)); }
    void SetHeaderSubTitle(int index, const wchar_t* text) const { SendMessageW(PSM_SETHEADERSUBTITLEW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)); }
    PROPSHEETHEADERW& GetHeaderRecord() { return m_psh; }
    const std::vector<HPROPSHEETPAGE>& GetPages() const { return m_pages; }

    static int CALLBACK PshCallback(HWND hwnd, UINT msg, LPARAM lParam);

private:
    static int SheetCallback(HWND hwnd, UINT msg, LPARAM lParam);

public:

protected:
    PROPSHEETHEADERW m_psh;
    std::vector<HPROPSHEETPAGE> m_pages;

private:
    void SyncPages();
};

// A wizard-97 sheet with a watermark and, optionally, a header bitmap.
class VELKAN_API CWizardSheet : public CPropertySheet {
public:
    // headerId 0: no header bitmap.
    CWizardSheet(UINT watermarkId, UINT headerId = 0, HINSTANCE instance = nullptr);

    virtual int DoWizard(HWND parent);
    // Posted: a call from a page notification takes effect after it.
    void SetWizButtons(UINT flags) const { PostMessageW(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(flags)); }
    const CBitmap& GetWatermarkBitmap() const { return m_watermark; }
    const CBitmap& GetHeaderBitmap() const { return m_header; }

private:
    CBitmap m_watermark;
    CBitmap m_header;
};

// A wizard page with a header title and subtitle; exterior pages
// (PSP_HIDEHEADER) paint the sheet's watermark themselves at DPIs other
// than 96, where the system's would be scaled wrongly.
class VELKAN_API CWizardPage : public CPropertyPage {
public:
    explicit CWizardPage(UINT templateId, HINSTANCE instance = nullptr);
    // The titles are kept as pointers: texts that outlive the page, or
    // MAKEINTRESOURCE string ids of the instance.
    CWizardPage(UINT templateId, const wchar_t* headerTitle, const wchar_t* headerSubTitle,
                HINSTANCE instance = nullptr);

    virtual int OnWizBack();
    virtual int OnWizNext();
    BOOL OnPsNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    void OnPaint(CDC& dc) override;

    void SetHeaderTitle(const wchar_t* text) const;
    void SetHeaderSubTitle(const wchar_t* text) const;
    CWizardSheet* GetWizardSheet() const;
    CFont& GetTitleFont() { return m_titleFont; }

private:
    CFont m_titleFont;
};

}  // namespace Velkan
