#include "velkan/controls/TreeView.h"

#include "velkan/core/Resource.h"

namespace Velkan {

void CTreeView::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = WC_TREEVIEWW;
}

HTREEITEM CTreeView::InsertItem(HTREEITEM parent, const wchar_t* text, int image, int selectedImage,
                                HTREEITEM insertAfter) const {
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = insertAfter;
    TVITEMW& item = insert.item;
    item.mask = TVIF_TEXT | TVIF_STATE;
    item.state = TVIS_EXPANDED;
    item.stateMask = TVIS_EXPANDED;
    item.pszText = const_cast<wchar_t*>(text);
    if (image >= 0) {
        item.mask |= TVIF_IMAGE;
        item.iImage = image;
    }
    if (selectedImage >= 0) {
        item.mask |= TVIF_SELECTEDIMAGE;
        item.iSelectedImage = selectedImage;
    }
    return InsertItem(&insert);
}

HTREEITEM CTreeView::InsertItem(HTREEITEM parent, UINT textId, HINSTANCE instance, int image, int selectedImage,
                                HTREEITEM insertAfter) const {
    const CResourceString text(textId, instance);
    return InsertItem(parent, text, image, selectedImage, insertAfter);
}

HTREEITEM CTreeView::InsertItemWithStateImage(HTREEITEM parent, const wchar_t* text, int stateImage,
                                              HTREEITEM insertAfter) const {
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = insertAfter;
    TVITEMW& item = insert.item;
    item.mask = TVIF_TEXT | TVIF_STATE;
    item.state = static_cast<UINT>(stateImage << 12) | TVIS_EXPANDED;
    item.stateMask = TVIS_STATEIMAGEMASK | TVIS_EXPANDED;
    item.pszText = const_cast<wchar_t*>(text);
    return InsertItem(&insert);
}

HTREEITEM CTreeView::InsertItemWithStateImage(HTREEITEM parent, UINT textId, HINSTANCE instance, int stateImage,
                                              HTREEITEM insertAfter) const {
    const CResourceString text(textId, instance);
    return InsertItemWithStateImage(parent, text, stateImage, insertAfter);
}

void CTreeView::ExpandChildren(HTREEITEM item) const {
    if (item == nullptr) return;
    Expand(item);
    for (HTREEITEM child = GetChild(item); child != nullptr; child = GetNextSibling(child)) ExpandChildren(child);
}

BOOL CTreeView::GetItemRect(HTREEITEM item, RECT& rect, BOOL textOnly) const {
    // TVM_GETITEMRECT takes the item handle in the rectangle's first bytes.
    *reinterpret_cast<HTREEITEM*>(&rect) = item;
    return static_cast<BOOL>(SendMessageW(TVM_GETITEMRECT, static_cast<WPARAM>(textOnly), reinterpret_cast<LPARAM>(&rect)));
}

CRect CTreeView::GetItemRect(HTREEITEM item, BOOL textOnly) const {
    CRect rect(0, 0, 0, 0);
    if (!GetItemRect(item, rect, textOnly)) return CRect(0, 0, 0, 0);
    return rect;
}

CString CTreeView::GetItemText(HTREEITEM item, int maxLength) const {
    CString text(maxLength);
    wchar_t* buffer = text.LockBuffer(maxLength);
    if (buffer == nullptr) return text;
    buffer[0] = L'\0';
    TVITEMEXW info = {};
    info.mask = TVIF_TEXT;
    info.hItem = item;
    info.pszText = buffer;
    info.cchTextMax = maxLength + 1;
    GetItem(info);
    text.UnlockBuffer();
    return text;
}

BOOL CTreeView::SetItemImage(HTREEITEM item, int image, int selectedImage) const {
    TVITEMW info = {};
    info.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    info.hItem = item;
    info.iImage = image;
    info.iSelectedImage = selectedImage;
    return SetItem(&info);
}

BOOL CTreeView::SetItemState(HTREEITEM item, UINT state, UINT mask) const {
    TVITEMW info = {};
    info.mask = TVIF_STATE;
    info.hItem = item;
    info.state = state;
    info.stateMask = mask;
    return SetItem(&info);
}

}  // namespace Velkan
