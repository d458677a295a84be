#pragma once

#include "velkan/controls/Control.h"
#include "velkan/controls/Tooltip.h"

namespace Velkan {

class CListView;

/// Compares two items for a column-click sort; item1 and item2 are the
/// items' current indices. Negative, zero or positive as for any sort.
class VELKAN_API IListViewDelegate {
public:
    /// Compares two items of list by column in the given direction. An
    /// exception compares as equal.
    virtual int CompareItems(CListView& list, LPARAM item1, LPARAM item2, int column, BOOL ascending) = 0;

protected:
    ~IListViewDelegate() = default;  ///< Delegates are not deleted through this interface.
};

/// A list view ("SysListView32"). With a delegate, a click on a column
/// header sorts by that column (ascending first, then flipping) and moves
/// the sort arrow there. Check boxes use the state images 1 (unchecked) and
/// 2 (checked).
class VELKAN_API CListView : public CControl {
public:
    /// A wrapper without a window; the delegate is not owned.
    explicit CListView(IListViewDelegate* delegate = nullptr);

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< Names the list view class.
    /// LVN_COLUMNCLICK sorts through the delegate.
    BOOL OnNotifyReflect(UINT id, LPARAM nmhdr, LRESULT& result) override;

    CTooltip& GetTooltips() { return m_tooltips; }  ///< A tooltip wrapper for the list's own use.
    IListViewDelegate* GetDelegate() const { return m_delegate; }  ///< The delegate, or null.
    /// The column of the last click sort, or -1.
    int GetSortColumn() const { return m_sortColumn; }
    /// The direction of the last click sort.
    BOOL IsSortAscending() const { return m_sortAscending; }

    // Items and columns.
    /// The list view message of the matching name (LVM_*).
    ///@{
    BOOL DeleteAllItems() const { return static_cast<BOOL>(SendMessageW(LVM_DELETEALLITEMS)); }
    BOOL DeleteColumn(int column) const { return static_cast<BOOL>(SendMessageW(LVM_DELETECOLUMN, static_cast<WPARAM>(column))); }
    BOOL DeleteItem(int item) const { return static_cast<BOOL>(SendMessageW(LVM_DELETEITEM, static_cast<WPARAM>(item))); }
    BOOL EnsureVisible(int item, BOOL partialOk = FALSE) const { return static_cast<BOOL>(SendMessageW(LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), partialOk)); }
    int FindItem(int start, const LVFINDINFOW& info) const { return static_cast<int>(SendMessageW(LVM_FINDITEMW, static_cast<WPARAM>(start), reinterpret_cast<LPARAM>(&info))); }
    /// The next item after start whose text is text, or starts with it when
    /// partial; -1 when none.
    int FindItem(int start, const wchar_t* text, BOOL partial) const;
    BOOL GetColumn(int column, LVCOLUMNW& info) const { return static_cast<BOOL>(SendMessageW(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&info))); }
    int GetColumnWidth(int column) const { return static_cast<int>(SendMessageW(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column))); }
    int GetColumnCount() const;  ///< The header's item count.
    /// The header control, through FromHwnd.
    CWnd* GetHeader() const { return FromHwnd(reinterpret_cast<HWND>(SendMessageW(LVM_GETHEADER))); }
    BOOL GetItem(LVITEMW& item) const { return static_cast<BOOL>(SendMessageW(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))); }
    int GetItemCount() const { return static_cast<int>(SendMessageW(LVM_GETITEMCOUNT)); }
    /// LVM_GETITEMRECT; an empty rectangle on failure.
    CRect GetItemRect(int item, UINT code = LVIR_BOUNDS) const;
    LPARAM GetItemParam(int item) const;  ///< The item's application value.
    /// The text of an item or subitem, at most maxLength units.
    CString GetItemText(int item, int subItem, int maxLength = 260) const;
    int GetNextItem(int start, UINT flags) const { return static_cast<int>(SendMessageW(LVM_GETNEXTITEM, static_cast<WPARAM>(start), static_cast<LPARAM>(flags))); }
    UINT GetSelectedCount() const { return static_cast<UINT>(SendMessageW(LVM_GETSELECTEDCOUNT)); }
    int GetSelectionMark() const { return static_cast<int>(SendMessageW(LVM_GETSELECTIONMARK)); }
    COLORREF GetTextBkColor() const { return static_cast<COLORREF>(SendMessageW(LVM_GETTEXTBKCOLOR)); }
    COLORREF GetTextColor() const { return static_cast<COLORREF>(SendMessageW(LVM_GETTEXTCOLOR)); }
    int HitTest(LVHITTESTINFO& info) const { return static_cast<int>(SendMessageW(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info))); }
    /// LVM_SUBITEMHITTEST.
    int HitTestEx(LVHITTESTINFO& info) const { return static_cast<int>(SendMessageW(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&info))); }
    int InsertColumn(int column, const LVCOLUMNW& info) const { return static_cast<int>(SendMessageW(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&info))); }
    /// Inserts a column; a negative width or subItem leaves it out.
    int InsertColumn(int column, const wchar_t* text, int format = LVCFMT_LEFT, int width = -1, int subItem = -1) const;
    int InsertItem(const LVITEMW& item) const { return static_cast<int>(SendMessageW(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item))); }
    /// Inserts an item with its text; returns its index, or -1.
    int InsertItem(int item, const wchar_t* text) const;
    /// InsertItem with its text and image.
    int InsertItem(int item, const wchar_t* text, int image) const;
    /// InsertItem with its text, image and application value.
    int InsertItem(int item, const wchar_t* text, int image, LPARAM param) const;
    /// The item has LVIS_SELECTED.
    BOOL IsItemSelected(int item) const { return (SendMessageW(LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_SELECTED) & LVIS_SELECTED) != 0; }
    BOOL RedrawItems(int first, int last) const { return static_cast<BOOL>(SendMessageW(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last)); }
    BOOL SetColumn(int column, const LVCOLUMNW& info) const { return static_cast<BOOL>(SendMessageW(LVM_SETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&info))); }
    BOOL SetColumnText(int column, const wchar_t* text) const;  ///< Changes a column's header text.
    BOOL SetColumnWidth(int column, int width) const { return static_cast<BOOL>(SendMessageW(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0))); }
    /// The Explorer look (SetWindowTheme).
    HRESULT SetExplorerTheme() const { return SetWindowTheme(L"Explorer", nullptr); }
    DWORD SetExtendedListViewStyle(DWORD style) const { return static_cast<DWORD>(SendMessageW(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style))); }
    /// LVM_SETEXTENDEDLISTVIEWSTYLE for the styles in mask only.
    DWORD SetExtendedListViewStyleEx(DWORD mask, DWORD style) const { return static_cast<DWORD>(SendMessageW(LVM_SETEXTENDEDLISTVIEWSTYLE, mask, static_cast<LPARAM>(style))); }
    HIMAGELIST SetImageList(HIMAGELIST list, int which) const { return reinterpret_cast<HIMAGELIST>(SendMessageW(LVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list))); }
    /// An image list made from a bitmap strip (magenta transparent), owned by
    /// the control (LVS_SHAREIMAGELISTS off).
    HIMAGELIST SetImageList(UINT bitmapId, HINSTANCE instance, int cx, int grow, int which) const;
    /// Sets an item's or subitem's text, and its image unless negative.
    BOOL SetItem(int item, int subItem, const wchar_t* text, int image = -1) const;
    BOOL SetItemImage(int item, int image) const;  ///< Sets an item's image.
    BOOL SetItemParam(int item, LPARAM param) const;  ///< Sets an item's application value.
    /// LVM_SETITEMSTATE for the bits in mask; item -1 means every item.
    BOOL SetItemState(int item, UINT state, UINT mask) const;
    /// Sets an item's or subitem's text.
    BOOL SetItemText(int item, int subItem, const wchar_t* text) const;
    BOOL SortItems(PFNLVCOMPARE compare, LPARAM data) const { return static_cast<BOOL>(SendMessageW(LVM_SORTITEMS, static_cast<WPARAM>(data), reinterpret_cast<LPARAM>(compare))); }
    BOOL SortItemsEx(PFNLVCOMPARE compare, LPARAM data) const { return static_cast<BOOL>(SendMessageW(LVM_SORTITEMSEX, static_cast<WPARAM>(data), reinterpret_cast<LPARAM>(compare))); }
    ///@}
    /// Clears LVS_NOCOLUMNHEADER to show the header, sets it to hide it.
    void ShowColumnHeaders(BOOL show) const;

    // Sorting styles.
    /// The control's own sorting by item text: LVS_SORTASCENDING,
    /// LVS_SORTDESCENDING or neither.
    ///@{
    void SetSortAscending() const;
    void SetSortDescending() const;
    void SetSortNone() const;
    ///@}

    // Sort arrows in the header.
    /// The header's sort arrow of a column (HDF_SORTUP, HDF_SORTDOWN).
    ///@{
    void SetSortArrowUp(int column) const;
    void SetSortArrowDown(int column) const;
    void SetSortArrowNone(int column) const;
    BOOL IsSortArrowUp(int column) const;
    BOOL IsSortArrowDown(int column) const;
    ///@}
    void ClearAllSortArrows() const;  ///< Removes the sort arrow of every column.

    // Check boxes: 0 unchecked, 1 checked, -1 no check box.
    /// An item's check box (LVS_EX_CHECKBOXES): GetCheckState gives 0
    /// unchecked, 1 checked, -1 no check box.
    ///@{
    BOOL SetCheckState(UINT item, BOOL checked) const;
    int GetCheckState(int item) const;
    void SetCheckStateForAllItems(BOOL checked) const;
    ///@}
    /// For LVN_ITEMCHANGED: the state image changed to a real one.
    static BOOL HasCheckChanged(UINT newState, UINT oldState);

    /// Column widths that share the client width, the last taking the rest.
    void ResizeColumnsToFit() const;

    /// For delegates: a - b ascending, b - a descending.
    static int Compare(int a, int b, BOOL ascending) { return ascending ? a - b : b - a; }

private:
    static int CALLBACK SortFunc(LPARAM item1, LPARAM item2, LPARAM self);
    void SetArrowBits(int column, int set, int clear) const;
    int GetFormat(int column) const;

    CTooltip m_tooltips;
    IListViewDelegate* m_delegate;
    int m_sortColumn = -1;
    BOOL m_sortAscending = TRUE;
};

/// A single-column list of check boxes without a header, for option lists.
class VELKAN_API CCheckBoxListView : public CListView {
public:
    /// Subclassed when created, so that it sets itself up and sees WM_SIZE.
    explicit CCheckBoxListView(IListViewDelegate* delegate = nullptr) : CListView(delegate) { m_subclass = TRUE; }

    /// Sets the list up after creation or subclassing.
    void OnCreate() override;
    /// WM_SIZE fits the column to the width.
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnSize() { ResizeColumnsToFit(); }  ///< Fits the column to the width.
};

}  // namespace Velkan
