#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

// A tree view ("SysTreeView32"). Inserted items start expanded.
class VELKAN_API CTreeView : public CControl {
public:
    CTreeView() : CControl(WC_TREEVIEWW) {}

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;

    // Negative images leave those fields out. Null on failure.
    HTREEITEM InsertItem(HTREEITEM parent, const wchar_t* text, int image = -1, int selectedImage = -1,
                         HTREEITEM insertAfter = TVI_LAST) const;
    HTREEITEM InsertItem(HTREEITEM parent, UINT textId, HINSTANCE instance, int image = -1, int selectedImage = -1,
                         HTREEITEM insertAfter = TVI_LAST) const;
    HTREEITEM InsertItemWithStateImage(HTREEITEM parent, const wchar_t* text, int stateImage,
                                       HTREEITEM insertAfter = TVI_LAST) const;
    HTREEITEM InsertItemWithStateImage(HTREEITEM parent, UINT textId, HINSTANCE instance, int stateImage,
                                       HTREEITEM insertAfter = TVI_LAST) const;
    HTREEITEM InsertItem(TVINSERTSTRUCTW* insert) const { return reinterpret_cast<HTREEITEM>(SendMessageW(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(insert))); }

    BOOL Expand(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item))); }
    BOOL Collapse(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(item))); }
    // The item and its whole subtree, depth first.
    void ExpandChildren(HTREEITEM item) const;
    // Kept as designed: the first top-level item's subtree only.
    void ExpandAll() const { ExpandChildren(GetRootItem()); }

    BOOL SelectItem(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item))); }
    HTREEITEM GetSelection() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetNextSibling(HTREEITEM item) const { return GetNextItem(item, TVGN_NEXT); }
    HTREEITEM GetChild(HTREEITEM item) const { return GetNextItem(item, TVGN_CHILD); }
    HTREEITEM GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
    HTREEITEM GetNextItem(HTREEITEM item, UINT code) const { return reinterpret_cast<HTREEITEM>(SendMessageW(TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item))); }
    HTREEITEM HitTest(TVHITTESTINFO& info) const { return reinterpret_cast<HTREEITEM>(SendMessageW(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info))); }
    BOOL GetItem(TVITEMEXW& item) const { return static_cast<BOOL>(SendMessageW(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))); }
    CRect GetItemRect(HTREEITEM item, BOOL textOnly) const;
    BOOL GetItemRect(HTREEITEM item, RECT& rect, BOOL textOnly) const;
    int GetItemHeight() const { return static_cast<int>(SendMessageW(TVM_GETITEMHEIGHT)); }
    UINT GetItemState(HTREEITEM item, UINT mask) const { return static_cast<UINT>(SendMessageW(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), static_cast<LPARAM>(mask))); }
    CString GetItemText(HTREEITEM item, int maxLength = 260) const;
    UINT GetCount() const { return static_cast<UINT>(SendMessageW(TVM_GETCOUNT)); }

    BOOL SetItem(TVITEMW* item) const { return static_cast<BOOL>(SendMessageW(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item))); }
    BOOL SetItem(TVITEMEXW* item) const { return static_cast<BOOL>(SendMessageW(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item))); }
    BOOL SetItemImage(HTREEITEM item, int image, int selectedImage) const;
    BOOL SetItemState(HTREEITEM item, UINT state, UINT mask) const;
    int SetItemHeight(int height) const { return static_cast<int>(SendMessageW(TVM_SETITEMHEIGHT, static_cast<WPARAM>(height))); }
    HIMAGELIST SetImageList(HIMAGELIST list, int which) const { return reinterpret_cast<HIMAGELIST>(SendMessageW(TVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list))); }
    BOOL DeleteItem(HTREEITEM item) const { return static_cast<BOOL>(SendMessageW(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item))); }
    BOOL DeleteAllItems() const { return DeleteItem(TVI_ROOT); }
};

}  // namespace Velkan
