#pragma once

#include <vector>

#include "velkan/controls/Control.h"

namespace Velkan {

/// A list box ("ListBox"); indices are 0-based, LB_ERR (-1) on failure.
class VELKAN_API CListBox : public CControl {
public:
    CListBox() : CControl(WC_LISTBOXW) {}  ///< A wrapper without a window.

    /// The list box message of the matching name (LB_*).
    ///@{
    int AddString(const wchar_t* text) const { return static_cast<int>(SendMessageW(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text))); }
    int InsertString(int index, const wchar_t* text) const { return static_cast<int>(SendMessageW(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text))); }
    int DeleteString(int index) const { return static_cast<int>(SendMessageW(LB_DELETESTRING, static_cast<WPARAM>(index))); }
    void ResetContent() const { SendMessageW(LB_RESETCONTENT); }
    int GetCount() const { return static_cast<int>(SendMessageW(LB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessageW(LB_GETCURSEL)); }
    int SetCurSel(int index) const { return static_cast<int>(SendMessageW(LB_SETCURSEL, static_cast<WPARAM>(index))); }
    int FindStringExact(int start, const wchar_t* text) const { return static_cast<int>(SendMessageW(LB_FINDSTRINGEXACT, static_cast<WPARAM>(start), reinterpret_cast<LPARAM>(text))); }
    /// The item's text; a null string for an index out of range.
    CString GetItemText(int index) const;
    LPARAM GetItemData(int index) const { return SendMessageW(LB_GETITEMDATA, static_cast<WPARAM>(index)); }
    int SetItemData(int index, LPARAM data) const { return static_cast<int>(SendMessageW(LB_SETITEMDATA, static_cast<WPARAM>(index), data)); }
    // Multiple-selection lists.
    int GetSelCount() const { return static_cast<int>(SendMessageW(LB_GETSELCOUNT)); }
    /// The item is selected.
    BOOL GetSel(int index) const { return SendMessageW(LB_GETSEL, static_cast<WPARAM>(index)) > 0; }
    /// Selects or deselects an item; -1 means every item.
    int SetSel(int index, BOOL select) const { return static_cast<int>(SendMessageW(LB_SETSEL, static_cast<WPARAM>(select), static_cast<LPARAM>(index))); }
    /// The selected items of a multiple-selection list, in order.
    std::vector<int> GetSelectedIndices() const;
    int GetTopIndex() const { return static_cast<int>(SendMessageW(LB_GETTOPINDEX)); }
    int SetTopIndex(int index) const { return static_cast<int>(SendMessageW(LB_SETTOPINDEX, static_cast<WPARAM>(index))); }
    ///@}
};

}  // namespace Velkan
