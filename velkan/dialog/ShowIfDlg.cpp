#include "velkan/dialog/ShowIfDlg.h"

#include "velkan/app/App.h"

namespace Velkan {

namespace {

constexpr const wchar_t* kSettings = L"Settings";

}  // namespace

CShowIfDlg::CShowIfDlg(UINT templateId, const wchar_t* valueName, HINSTANCE instance)
    : CDialog(templateId, instance), m_valueName(valueName) {}

int CShowIfDlg::DoModal(CWnd* parent) {
    DWORD show = 1;
    if (theAppPtr != nullptr) theAppPtr->RegQueryDWORD(kSettings, m_valueName, &show);
    if (show == 0) return IDOK;
    return CDialog::DoModal(parent);
}

void CShowIfDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    CheckDlgButton(ShowAgainCheckBoxId, BST_CHECKED);
}

void CShowIfDlg::OnDestroy() {
    CDialog::OnDestroy();
    // Kept: a ticked box writes nothing, so nothing here switches the
    // dialog back on.
    if (IsDlgButtonChecked(ShowAgainCheckBoxId) != BST_CHECKED && theAppPtr != nullptr)
        theAppPtr->RegWriteDWORD(kSettings, m_valueName, 0);
}

CShowIfTaskDialog::CShowIfTaskDialog(const wchar_t* section, const wchar_t* valueName, int defaultResult,
                                     HINSTANCE instance)
    : CTaskDialog(instance), m_section(section), m_valueName(valueName), m_defaultResult(defaultResult) {}

int CShowIfTaskDialog::ShowIf(Velkan::CWnd* parent, int*) {
    BOOL show = TRUE;
    if (theAppPtr != nullptr) theAppPtr->RegQueryBOOL(m_section, m_valueName, &show);
    if (!show) return m_defaultResult;
    BOOL checked = FALSE;
    const int result = Show(parent, nullptr, &checked);
    if (result == -1) return -1;
    if (theAppPtr != nullptr) theAppPtr->RegWriteBOOL(m_section, m_valueName, checked == FALSE);
    return result;
}

}  // namespace Velkan
