#pragma once

#include "velkan/app/ResourceIds.h"
#include "velkan/dialog/Dialog.h"
#include "velkan/dialog/TaskDialog.h"

namespace Velkan {

/// A template dialog the user can switch off for good. Its template must hold a
/// check box with id ShowAgainCheckBoxId, "show this again", which starts
/// ticked; closing with it unticked writes 0 to the DWORD value in the section
/// "Settings", after which DoModal returns IDOK without showing anything.
class VELKAN_API CShowIfDlg : public CDialog {
public:
    /// The id of the "show this again" check box.
    static constexpr UINT ShowAgainCheckBoxId = VELKAN_IDC_SHOW_AGAIN;

    /// The dialog of templateId, switched off by the DWORD value valueName
    /// of the section "Settings".
    CShowIfDlg(UINT templateId, const wchar_t* valueName, HINSTANCE instance = nullptr);

    /// IDOK at once when switched off; else CDialog::DoModal.
    int DoModal(CWnd* parent = nullptr) override;
    const CString& GetValueName() const { return m_valueName; }  ///< The registry value's name.

protected:
    void OnInitDialog() override;  ///< Ticks the check box.
    void OnDestroy() override;  ///< Writes 0 when the check box is not ticked.

private:
    CString m_valueName;
};

/// A task dialog the user can switch off with its verification check box
/// ("don't show this again"). Ticked on close, it stores FALSE as a BOOL in
/// the caller's section; ShowIf then returns the default result without
/// showing. Configure the verification text and buttons before ShowIf.
class VELKAN_API CShowIfTaskDialog : public CTaskDialog {
public:
    /// A task dialog switched off by the BOOL value valueName of section;
    /// defaultResult is what ShowIf returns while it is off.
    CShowIfTaskDialog(const wchar_t* section, const wchar_t* valueName, int defaultResult,
                      HINSTANCE instance = nullptr);

    // (CWnd is a private base of CTaskDialog: inside derived classes the
    // window class is named Velkan::CWnd.)
    /// Shows the dialog unless switched off, then stores the verification
    /// check box. The button id, the default result when switched off, or
    /// -1 when the dialog could not be shown (then nothing is written).
    /// reserved is not used.
    virtual int ShowIf(Velkan::CWnd* parent = nullptr, int* reserved = nullptr);

    const CString& GetSection() const { return m_section; }  ///< The registry section.
    const CString& GetValueName() const { return m_valueName; }  ///< The registry value's name.
    int GetDefaultResult() const { return m_defaultResult; }  ///< The result while switched off.

private:
    CString m_section;
    CString m_valueName;
    int m_defaultResult;
};

}  // namespace Velkan
