#include "GalleryDialogs.h"

#include "resource.h"

using namespace Velkan;

namespace {

// A page that keeps the name typed on it.
class NamePage : public CWizardPage {
public:
    NamePage(UINT id, const wchar_t* title, const wchar_t* subtitle, CString& name)
        : CWizardPage(id, title, subtitle), m_name(name) {}

protected:
    void OnInitDialog() override { SetDlgItemTextW(IDC_NAME, m_name); }
    int OnKillActive() override {
        if (GetDlgItem(IDC_NAME) != nullptr) m_name = GetDlgItemText(IDC_NAME);
        return 0;
    }

private:
    CString& m_name;
};

class WelcomePage : public CWizardPage {
public:
    WelcomePage() : CWizardPage(IDD_WIZARD_WELCOME) { m_psp.dwFlags |= PSP_HIDEHEADER; }

protected:
    int OnSetActive() override {
        if (CWizardSheet* sheet = GetWizardSheet()) sheet->SetWizButtons(PSWIZB_NEXT);
        return 0;
    }
};

class DetailsPage : public NamePage {
public:
    explicit DetailsPage(CString& name)
        : NamePage(IDD_WIZARD_DETAILS, L"Details", L"Give the new item a name.", name) {}

protected:
    int OnSetActive() override {
        if (CWizardSheet* sheet = GetWizardSheet()) sheet->SetWizButtons(PSWIZB_BACK | PSWIZB_FINISH);
        return 0;
    }
};

// A task dialog whose progress bar fills from its own timer.
class ProgressDialog : public CTaskDialog {
public:
    ProgressDialog() {
        WithWindowTitle(L"Velkan Gallery")
            .WithMainInstruction(L"Copying the gallery's files")
            .WithContent(L"The bar fills from the dialog's timer notifications.")
            .WithProgressBar(TRUE)
            .WithCommonButtons(TDCBF_CANCEL_BUTTON)
            .WithVerificationText(L"Don't show progress again", FALSE);
        GetConfig().dwFlags |= TDF_CALLBACK_TIMER;
    }

    int OnTimer(CTaskDialog&, DWORD) override {
        m_position += 10;
        SetProgressBarPos(m_position);
        if (m_position >= 100) ClickButton(IDCANCEL);
        return 0;
    }

private:
    int m_position = 0;
};

}  // namespace

namespace GalleryDialogs {

CString ShowAbout(CWnd& owner) {
    CDialog about(IDD_ABOUT);
    about.DoModal(&owner);
    return CString(L"Velkan Gallery, made of Velkan classes");
}

CString ShowShowIf(CWnd& owner) {
    CShowIfDlg tip(IDD_SHOWIF, L"ShowGalleryTip");
    const int result = tip.DoModal(&owner);
    return CString::FormatS(L"The show-if dialog returned %d", result);
}

CString ShowPropertySheet(CWnd& owner) {
    CString name(L"Gallery item");
    NamePage general(IDD_SHEET_GENERAL, nullptr, nullptr, name);
    CPropertyPage view(IDD_SHEET_VIEW);
    CPropertySheet sheet;
    sheet.GetHeaderRecord().pszCaption = L"Gallery properties";
    sheet.AddPages({general, view});
    const int result = sheet.DoModal(&owner);
    return CString::FormatS(result > 0 ? L"Properties saved: %s" : L"Properties left as they were", name.GetString());
}

CString ShowWizard(CWnd& owner) {
    CString name(L"New item");
    WelcomePage welcome;
    DetailsPage details(name);
    // The watermark is drawn pixel for pixel: the one made for this DPI.
    const int dpi = owner.GetDpi();
    CWizardSheet wizard(dpi >= 192 ? IDB_WATERMARK192 : dpi >= 144 ? IDB_WATERMARK144 : IDB_WATERMARK);
    wizard.GetHeaderRecord().pszCaption = L"Gallery wizard";
    wizard.AddPages({welcome, details});
    const int result = wizard.DoWizard(owner.GetHwnd());
    return CString::FormatS(result > 0 ? L"The wizard made %s" : L"The wizard was cancelled", name.GetString());
}

CString ShowOpenFiles(CWnd& owner) {
    COpenFileDlg open(L"Pictures", L"*.bmp;*.png;*.svg");
    CPathFilterBuilder filters;
    filters.Add(L"Pictures", L"*.bmp;*.png;*.svg").Add(L"All files", L"*.*");
    open.SetPathFilter(filters.Build());
    open.AllowMultipleSelection();
    if (!open.Show(&owner)) return CString(L"No file opened");
    return CString::FormatS(L"%d file(s) picked, the first: %s", static_cast<int>(open.GetSelectedFiles().size()),
                            open.GetFileName().GetString());
}

CString ShowSaveAs(CWnd& owner) {
    CSaveFileDlg save(L"Text", L"*.txt", L"txt");
    save.SetSuggestedFileName(L"gallery notes");
    if (!save.Show(&owner)) return CString(L"Nothing saved");
    return CString::FormatS(L"Would save to %s", save.GetFileName().GetString());
}

CString ShowFolderPicker(CWnd& owner) {
    try {
        CBrowseFolderDlg picker;
        picker.WithTitle(L"Pick a folder for the gallery");
        if (!picker.Show(owner)) return CString(L"No folder picked");
        return CString::FormatS(L"Folder: %s", picker.GetSelectedFolder().GetString());
    } catch (const CHResultException& e) {
        return CString(e.what());
    }
}

CString ShowMessageBox(CWnd& owner) {
    const int answer = CMessageBox::Show(&owner, L"Velkan formats message texts: %d%% done.",
                                         L"Velkan Gallery", MB_OKCANCEL | MB_ICONINFORMATION, 100);
    return CString(answer == IDOK ? L"The message was acknowledged" : L"The message was dismissed");
}

CString ShowTaskDialog(CWnd& owner) {
    ProgressDialog dialog;
    int radio = 0;
    BOOL verification = FALSE;
    const int result = dialog.Show(&owner, &radio, &verification);
    return CString::FormatS(L"Task dialog closed with button %d%s", result,
                            verification ? L", progress switched off" : L"");
}

}  // namespace GalleryDialogs
