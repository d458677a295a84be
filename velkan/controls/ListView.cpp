#include "velkan/controls/ListView.h"

#include <cstdlib>

#include "velkan/app/detail/Unhandled.h"
#include "velkan/core/Resource.h"
#include "velkan/gfx/ImageList.h"

namespace Velkan {

namespace {

constexpr int kMaxColumns = 50;
constexpr UINT kStateImageMask = 0xF000;

}  // namespace

CListView::CListView(IListViewDelegate* delegate) : CControl(WC_LISTVIEWW), m_delegate(delegate) {}

void CListView::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = WC_LISTVIEWW;
}

// ---------------------------------------------------------------------------
// Convenience forms

int CListView::FindItem(int start, const wchar_t* text, BOOL partial) const {
    LVFINDINFOW info = {};
    info.flags = LVFI_STRING | (partial ? LVFI_PARTIAL : 0);
    info.psz = text;
    return FindItem(start, info);
}

int CListView::GetColumnCount() const {
    CWnd* header = GetHeader();
    return header != nullptr ? static_cast<int>(header->SendMessageW(HDM_GETITEMCOUNT)) : 0;
}

CRect CListView::GetItemRect(int item, UINT code) const {
    CRect rect(static_cast<LONG>(code), 0, 0, 0);
    if (!SendMessageW(LVM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect)))
        return CRect(0, 0, 0, 0);
    return rect;
}

LPARAM CListView::GetItemParam(int item) const {
    LVITEMW info = {};
    info.mask = LVIF_PARAM;
    info.iItem = item;
    GetItem(info);
    return info.lParam;
}

CString CListView::GetItemText(int item, int subItem, int maxLength) const {
    CString text(maxLength);
    wchar_t* buffer = text.LockBuffer(maxLength);
    if (buffer == nullptr) return text;
    buffer[0] = L'\0';
    LVITEMW info = {};
    info.iSubItem = subItem;
    info.pszText = buffer;
    info.cchTextMax = maxLength + 1;
    SendMessageW(LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&info));
    text.UnlockBuffer();
    return text;
}

int CListView::InsertColumn(int column, const wchar_t* text, int format, int width, int subItem) const {
    LVCOLUMNW info = {};
    info.mask = LVCF_TEXT | LVCF_FMT;
    info.fmt = format;
    info.pszText = const_cast<wchar_t*>(text);
    if (width >= 0) {
        info.mask |= LVCF_WIDTH;
        info.cx = width;
    }
    if (subItem >= 0) {
        info.mask |= LVCF_SUBITEM;
        info.iSubItem = subItem;
    }
    return InsertColumn(column, info);
}

int CListView::InsertItem(int item, const wchar_t* text) const {
    LVITEMW info = {};
    info.mask = LVIF_TEXT;
    info.iItem = item;
    info.pszText = const_cast<wchar_t*>(text);
    return InsertItem(info);
}

int CListView::InsertItem(int item, const wchar_t* text, int image) const {
    LVITEMW info = {};
    info.mask = LVIF_TEXT | LVIF_IMAGE;
    info.iItem = item;
    info.pszText = const_cast<wchar_t*>(text);
    info.iImage = image;
    return InsertItem(info);
}

int CListView::InsertItem(int item, const wchar_t* text, int image, LPARAM param) const {
    LVITEMW info = {};
    info.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    info.iItem = item;
    info.pszText = const_cast<wchar_t*>(text);
    info.iImage = image;
    info.lParam = param;
    return InsertItem(info);
}

BOOL CListView::SetColumnText(int column, const wchar_t* text) const {
    LVCOLUMNW info = {};
    info.mask = LVCF_TEXT;
    info.pszText = const_cast<wchar_t*>(text);
    return SetColumn(column, info);
}

HIMAGELIST CListView::SetImageList(UINT bitmapId, HINSTANCE instance, int cx, int grow, int which) const {
    CImageList list;
    if (list.CreateFromBitmapResource(bitmapId, cx, grow, CResourceLoader::ResolveInstance(instance)) == nullptr)
        return nullptr;
    HIMAGELIST handle = list.Detach();
    SetImageList(handle, which);
    return handle;
}

BOOL CListView::SetItem(int item, int subItem, const wchar_t* text, int image) const {
    LVITEMW info = {};
    info.mask = LVIF_TEXT;
    info.iItem = item;
    info.iSubItem = subItem;
    info.pszText = const_cast<wchar_t*>(text);
    if (image >= 0) {
        info.mask |= LVIF_IMAGE;
        info.iImage = image;
    }
    return static_cast<BOOL>(SendMessageW(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&info)));
}

BOOL CListView::SetItemImage(int item, int image) const {
    LVITEMW info = {};
    info.mask = LVIF_IMAGE;
    info.iItem = item;
    info.iImage = image;
    return static_cast<BOOL>(SendMessageW(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&info)));
}

BOOL CListView::SetItemParam(int item, LPARAM param) const {
    LVITEMW info = {};
    info.mask = LVIF_PARAM;
    info.iItem = item;
    info.lParam = param;
    return static_cast<BOOL>(SendMessageW(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&info)));
}

BOOL CListView::SetItemState(int item, UINT state, UINT mask) const {
    LVITEMW info = {};
    info.state = state;
    info.stateMask = mask;
    return static_cast<BOOL>(SendMessageW(LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&info)));
}

BOOL CListView::SetItemText(int item, int subItem, const wchar_t* text) const {
    LVITEMW info = {};
    info.iSubItem = subItem;
    info.pszText = const_cast<wchar_t*>(text);
    return static_cast<BOOL>(SendMessageW(LVM_SETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&info)));
}

void CListView::ShowColumnHeaders(BOOL show) const {
    const DWORD style = GetWindowStyle();
    SetWindowStyle(show ? (style & ~static_cast<DWORD>(LVS_NOCOLUMNHEADER)) : (style | LVS_NOCOLUMNHEADER));
}

// ---------------------------------------------------------------------------
// Sorting

void CListView::SetSortAscending() const {
    SetWindowStyle((GetWindowStyle() & ~static_cast<DWORD>(LVS_SORTDESCENDING)) | LVS_SORTASCENDING);
}

void CListView::SetSortDescending() const {
    SetWindowStyle((GetWindowStyle() & ~static_cast<DWORD>(LVS_SORTASCENDING)) | LVS_SORTDESCENDING);
}

void CListView::SetSortNone() const {
    SetWindowStyle(GetWindowStyle() & ~static_cast<DWORD>(LVS_SORTASCENDING | LVS_SORTDESCENDING));
}

int CListView::GetFormat(int column) const {
    LVCOLUMNW info = {};
    info.mask = LVCF_FMT;
    return GetColumn(column, info) ? info.fmt : 0;
}

void CListView::SetArrowBits(int column, int set, int clear) const {
    LVCOLUMNW info = {};
    info.mask = LVCF_FMT;
    if (!GetColumn(column, info)) return;
    info.fmt = (info.fmt & ~clear) | set;
    SetColumn(column, info);
}

void CListView::SetSortArrowUp(int column) const { SetArrowBits(column, HDF_SORTUP, HDF_SORTDOWN); }
void CListView::SetSortArrowDown(int column) const { SetArrowBits(column, HDF_SORTDOWN, HDF_SORTUP); }
void CListView::SetSortArrowNone(int column) const { SetArrowBits(column, 0, HDF_SORTUP | HDF_SORTDOWN); }
BOOL CListView::IsSortArrowUp(int column) const { return (GetFormat(column) & HDF_SORTUP) != 0; }
BOOL CListView::IsSortArrowDown(int column) const { return (GetFormat(column) & HDF_SORTDOWN) != 0; }

void CListView::ClearAllSortArrows() const {
    for (int column = 0; column < kMaxColumns; ++column) {
        LVCOLUMNW info = {};
        info.mask = LVCF_FMT;
        if (!GetColumn(column, info)) break;
        info.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        SetColumn(column, info);
    }
}

BOOL CListView::OnNotifyReflect(UINT, LPARAM nmhdr, LRESULT& result) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header == nullptr || header->code != static_cast<UINT>(LVN_COLUMNCLICK) || m_delegate == nullptr) return FALSE;
    const int column = reinterpret_cast<const NMLISTVIEW*>(nmhdr)->iSubItem;
    // A first click sorts ascending; each further click flips.
    const BOOL ascending = !IsSortArrowUp(column);
    ClearAllSortArrows();
    if (ascending)
        SetSortArrowUp(column);
    else
        SetSortArrowDown(column);
    m_sortColumn = column;
    m_sortAscending = ascending;
    SortItemsEx(&CListView::SortFunc, reinterpret_cast<LPARAM>(this));
    result = 0;
    return TRUE;
}

int CALLBACK CListView::SortFunc(LPARAM item1, LPARAM item2, LPARAM self) {
    auto* list = reinterpret_cast<CListView*>(self);
    // Called back from the control's sort: a delegate's exception compares
    // as equal.
    return Detail::Guarded(
        [&] { return list->m_delegate->CompareItems(*list, item1, item2, list->m_sortColumn, list->m_sortAscending); },
        [] { return 0; });
}

// ---------------------------------------------------------------------------
// Check boxes and widths

BOOL CListView::SetCheckState(UINT item, BOOL checked) const {
    return SetItemState(static_cast<int>(item), INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), kStateImageMask);
}

int CListView::GetCheckState(int item) const {
    const UINT state = static_cast<UINT>(SendMessageW(LVM_GETITEMSTATE, static_cast<WPARAM>(item), kStateImageMask));
    return static_cast<int>((state & kStateImageMask) >> 12) - 1;
}

void CListView::SetCheckStateForAllItems(BOOL checked) const {
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i) SetCheckState(static_cast<UINT>(i), checked);
}

BOOL CListView::HasCheckChanged(UINT newState, UINT oldState) {
    return (newState & kStateImageMask) != (oldState & kStateImageMask) && (newState & kStateImageMask) != 0;
}

void CListView::ResizeColumnsToFit() const {
    const int count = GetColumnCount();
    if (count <= 0) return;
    int remaining = std::abs(static_cast<int>(GetClientRect().Width()));
    for (int i = 0; i < count; ++i) {
        const int width = remaining / (count - i);
        remaining -= width;
        SetColumnWidth(i, width);
    }
}

// ---------------------------------------------------------------------------
// The check-box list

void CCheckBoxListView::OnCreate() {
    DWORD style = GetWindowStyle();
    if ((style & LVS_TYPEMASK) != LVS_REPORT) style = (style & ~static_cast<DWORD>(0x2)) | 0x1;
    SetWindowStyle(style | LVS_NOCOLUMNHEADER | LVS_SINGLESEL);
    const DWORD extended = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    SetExtendedListViewStyleEx(extended, extended);
    SetWindowTheme(L"Explorer", nullptr);
    InsertColumn(0, L"");
    ResizeColumnsToFit();
}

BOOL CCheckBoxListView::WndProc(UINT msg, WPARAM, LPARAM, LRESULT& result) {
    if (msg != WM_SIZE) return FALSE;
    result = 0;
    ResizeColumnsToFit();
    return TRUE;
}

}  // namespace Velkan
