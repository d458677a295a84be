#pragma once

#include "velkan/dialog/Dialog.h"
#include "velkan/dialog/TaskDialog.h"

namespace Velkan {

// A template dialog the user can switch off for good. Its template must
// hold a check box with id 57344, "show this again", which starts ticked;
// closing with it unticked writes 0 to the DWORD value in the section
// "Settings", after which DoModal returns IDOK without showing anything.
class VELKAN_API CShowIfDlg : public CDialog {
public:
    static constexpr UINT ShowAgainCheckBoxId = 57344;

    CShowIfDlg(UINT templateId, const wchar_t* valueName, HINSTANCE instance = nullptr);

    int DoModal(CWnd* parent = nullptr) override;
    const CString& GetValueName() const { return m_valueName; }

protected:
    void OnInitDialog() override;
    void OnDestroy() override;

private:
    CString m_valueName;
};

// A task dialog the user can switch off with its verification check box
// ("don't show this again"). Ticked on close, it stores FALSE as a BOOL in
// the caller's section; ShowIf then returns the default result without
// showing. Configure the verification text and buttons before ShowIf.
class VELKAN_API CShowIfTaskDialog : public CTaskDialog {
public:
    CShowIfTaskDialog(const wchar_t* section, const wchar_t* valueName, int defaultResult,
                      HINSTANCE instance = nullptr);

    // (CWnd is a private base of CTaskDialog: inside derived classes the
    // window class is named Velkan::CWnd.)
    // The button id, the default result when switched off, or -1 when the
    // dialog could not be shown (then nothing is written). reserved is not
    // used.
    virtual int ShowIf(Velkan::CWnd* parent = nullptr, int* reserved = nullptr);

    const CString& GetSection() const { return m_section; }
    const CString& GetValueName() const { return m_valueName; }
    int GetDefaultResult() const { return m_defaultResult; }

private:
    CString m_section;
    CString m_valueName;
    int m_defaultResult;
};

}  // namespace Velkan
