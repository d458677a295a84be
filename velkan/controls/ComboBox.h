#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A combo box ("ComboBox"); indices are 0-based, CB_ERR (-1) on failure.
class VELKAN_API CComboBox : public CControl {
public:
    CComboBox() : CControl(WC_COMBOBOXW) {}  ///< A wrapper without a window.

    /// The combo box message of the matching name (CB_*).
    ///@{
    int AddString(const wchar_t* text) const { return static_cast<int>(SendMessageW(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text))); }
    int InsertString(int index, const wchar_t* text) const { return static_cast<int>(SendMessageW(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text))); }
    int DeleteString(int index) const { return static_cast<int>(SendMessageW(CB_DELETESTRING, static_cast<WPARAM>(index))); }
    void ResetContent() const { SendMessageW(CB_RESETCONTENT); }
    int GetCount() const { return static_cast<int>(SendMessageW(CB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessageW(CB_GETCURSEL)); }
    int SetCurSel(int index) const { return static_cast<int>(SendMessageW(CB_SETCURSEL, static_cast<WPARAM>(index))); }
    int FindStringExact(int start, const wchar_t* text) const { return static_cast<int>(SendMessageW(CB_FINDSTRINGEXACT, static_cast<WPARAM>(start), reinterpret_cast<LPARAM>(text))); }
    int SelectString(int start, const wchar_t* text) const { return static_cast<int>(SendMessageW(CB_SELECTSTRING, static_cast<WPARAM>(start), reinterpret_cast<LPARAM>(text))); }
    /// The item's text; a null string for an index out of range.
    CString GetItemText(int index) const;
    LPARAM GetItemData(int index) const { return SendMessageW(CB_GETITEMDATA, static_cast<WPARAM>(index)); }
    int SetItemData(int index, LPARAM data) const { return static_cast<int>(SendMessageW(CB_SETITEMDATA, static_cast<WPARAM>(index), data)); }
    void ShowDropDown(BOOL show) const { SendMessageW(CB_SHOWDROPDOWN, static_cast<WPARAM>(show)); }
    BOOL GetDroppedState() const { return static_cast<BOOL>(SendMessageW(CB_GETDROPPEDSTATE)); }
    void LimitText(int chars) const { SendMessageW(CB_LIMITTEXT, static_cast<WPARAM>(chars)); }
    BOOL SetCueBanner(const wchar_t* text) const { return static_cast<BOOL>(SendMessageW(CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(text))); }
    ///@}
};

}  // namespace Velkan
