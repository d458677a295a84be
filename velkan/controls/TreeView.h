#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A tree view ("SysTreeView32"). Inserted items start expanded.
class VELKAN_API CTreeView : public CControl {
public:
    CTreeView() : CControl(WC_TREEVIEWW) {}  ///< A wrapper without a window.

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< Names the tree view class.

    /// Inserts an item with its text (or a string id of instance) and
    /// images under parent. Negative images leave those fields out. Null on
    /// failure.
    ///@{
    HTREEITEM InsertItem(HTREEITEM parent, const wchar_t* text, int image = -1, int selectedImage = -1,
                         HTREEITEM insertAfter = TVI_LAST) const;
    HTREEITEM InsertItem(HTREEITEM parent, UINT textId, HINSTANCE instance, int image = -1, int selectedImage = -1,
                         HTREEITEM insertAfter = TVI_LAST) const;
    ///@}
    /// Inserts an item with its text (or a string id of instance) and
    /// state image under parent; null on failure.
    ///@{
    HTREEITEM InsertItemWithStateImage(HTREEITEM parent, const wchar_t* text, int stateImage,
                                       HTREEITEM insertAfter = TVI_LAST) const;
    HTREEITEM InsertItemWithStateImage(HTREEITEM parent, UINT textId, HINSTANCE instance, int stateImage,
                                       HTREEITEM insertAfter = TVI_LAST) const;
    ///@}
    /// TVM_INSERTITEM.
    HTREEITEM InsertItem(TVINSERTSTRUCTW* insert) const { return reinterpret_cast<HTREEITEM>(SendMessageW(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(insert))); }

    /// TVM_EXPAND with TVE_EXPAND.
    BOOL Expand(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item))); }
    /// TVM_EXPAND with TVE_COLLAPSE.
    BOOL Collapse(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(item))); }
    /// Expands the item and its whole subtree, depth first.
    void ExpandChildren(HTREEITEM item) const;
    /// Expands from the root item. Kept as designed: the first top-level
    /// item's subtree only.
    void ExpandAll() const { ExpandChildren(GetRootItem()); }

    /// Selects the item (TVGN_CARET).
    BOOL SelectItem(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item))); }
    /// GetNextItem with the matching code (TVGN_CARET, TVGN_ROOT, TVGN_NEXT,
    /// TVGN_CHILD, TVGN_PARENT); null for none.
    ///@{
    HTREEITEM GetSelection() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetNextSibling(HTREEITEM item) const { return GetNextItem(item, TVGN_NEXT); }
    HTREEITEM GetChild(HTREEITEM item) const { return GetNextItem(item, TVGN_CHILD); }
    HTREEITEM GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
    ///@}
    /// TVM_GETNEXTITEM.
    HTREEITEM GetNextItem(HTREEITEM item, UINT code) const { return reinterpret_cast<HTREEITEM>(SendMessageW(TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item))); }
    /// TVM_HITTEST.
    HTREEITEM HitTest(TVHITTESTINFO& info) const { return reinterpret_cast<HTREEITEM>(SendMessageW(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info))); }
    /// TVM_GETITEM.
    BOOL GetItem(TVITEMEXW& item) const { return static_cast<BOOL>(SendMessageW(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))); }
    /// TVM_GETITEMRECT: the item's row, or its text only; the CRect form is
    /// empty on failure.
    ///@{
    CRect GetItemRect(HTREEITEM item, BOOL textOnly) const;
    BOOL GetItemRect(HTREEITEM item, RECT& rect, BOOL textOnly) const;
    ///@}
    /// TVM_GETITEMHEIGHT.
    int GetItemHeight() const { return static_cast<int>(SendMessageW(TVM_GETITEMHEIGHT)); }
    /// TVM_GETITEMSTATE.
    UINT GetItemState(HTREEITEM item, UINT mask) const { return static_cast<UINT>(SendMessageW(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), static_cast<LPARAM>(mask))); }
    /// The item's text, at most maxLength units.
    CString GetItemText(HTREEITEM item, int maxLength = 260) const;
    /// TVM_GETCOUNT.
    UINT GetCount() const { return static_cast<UINT>(SendMessageW(TVM_GETCOUNT)); }

    /// TVM_SETITEM.
    ///@{
    BOOL SetItem(TVITEMW* item) const { return static_cast<BOOL>(SendMessageW(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item))); }
    BOOL SetItem(TVITEMEXW* item) const { return static_cast<BOOL>(SendMessageW(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item))); }
    ///@}
    /// Sets the item's images.
    BOOL SetItemImage(HTREEITEM item, int image, int selectedImage) const;
    /// Sets the item's state bits in mask.
    BOOL SetItemState(HTREEITEM item, UINT state, UINT mask) const;
    /// TVM_SETITEMHEIGHT.
    int SetItemHeight(int height) const { return static_cast<int>(SendMessageW(TVM_SETITEMHEIGHT, static_cast<WPARAM>(height))); }
    /// TVM_SETIMAGELIST; returns the previous list.
    HIMAGELIST SetImageList(HIMAGELIST list, int which) const { return reinterpret_cast<HIMAGELIST>(SendMessageW(TVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list))); }
    /// TVM_DELETEITEM: the item and its subtree.
    BOOL DeleteItem(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item))); }
    BOOL DeleteAllItems() const { return DeleteItem(TVI_ROOT); }  ///< Deletes every item.
};

}  // namespace Velkan
