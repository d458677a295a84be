#include "ControlsPanel.h"

#include <cwchar>

#include "resource.h"

using namespace Velkan;

namespace {

struct Row {
    const wchar_t* name;
    const wchar_t* kind;
    const wchar_t* size;
};

const Row kRows[] = {{L"velkan.dll", L"Library", L"812 KB"},     {L"gallery.exe", L"Program", L"344 KB"},
                     {L"icons.svg", L"Image", L"1 KB"},          {L"README.md", L"Text", L"6 KB"},
                     {L"toolbar24.bmp", L"Image", L"2 KB"},      {L"notes.txt", L"Text", L"3 KB"}};

}  // namespace

ControlsPanel::ControlsPanel()
    : GalleryPage(L"Controls", L"controls",
                  L"List view with sorting and check boxes, tree view, hyperlink, and thin control wrappers."),
      m_list(this) {}

void ControlsPanel::OnCreate() {
    const RECT none = {0, 0, 10, 10};
    m_list.Create(*this, IDC_LIST, none, LVS_REPORT | LVS_SHOWSELALWAYS | WS_BORDER);
    m_list.SetExtendedListViewStyleEx(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    m_list.InsertColumn(0, L"Name");
    m_list.InsertColumn(1, L"Kind");
    m_list.InsertColumn(2, L"Size");
    for (int i = 0; i < static_cast<int>(sizeof(kRows) / sizeof(kRows[0])); ++i) {
        m_list.InsertItem(i, kRows[i].name);
        m_list.SetItemText(i, 1, kRows[i].kind);
        m_list.SetItemText(i, 2, kRows[i].size);
        m_list.SetCheckState(static_cast<UINT>(i), i % 2 == 0);
    }

    m_tree.Create(*this, IDC_TREE, none, TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | WS_BORDER);
    HTREEITEM library = m_tree.InsertItem(TVI_ROOT, L"velkan");
    for (const wchar_t* folder : {L"core", L"app", L"frame", L"gfx", L"menu", L"dialog", L"controls"}) {
        HTREEITEM item = m_tree.InsertItem(library, folder);
        if (std::wcscmp(folder, L"controls") == 0) {
            m_tree.InsertItem(item, L"ListView");
            m_tree.InsertItem(item, L"TreeView");
            m_tree.InsertItem(item, L"HyperLink");
        }
    }
    m_tree.InsertItem(TVI_ROOT, L"tests");

    m_link = ::CreateWindowExW(0, L"VlkHyperLink", L"Visit the &project page", WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                               0, 0, 10, 10, GetHwnd(), reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_LINK)),
                               ::GetModuleHandleW(nullptr), nullptr);
    ::SendMessageW(m_link, WM_SETFONT, reinterpret_cast<WPARAM>(UiFont()), FALSE);

    m_progress.Create(*this, IDC_PROGRESS, none);
    m_progress.SetRange(0, 100);
    m_progress.SetPos(62);
    m_edit.Create(*this, IDC_EDIT, none, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
    m_edit.SetWindowTextW(L"An edit control");
    m_combo.Create(*this, IDC_COMBO, CRect(0, 0, 10, 200), CBS_DROPDOWNLIST);
    for (const wchar_t* look : {L"Classic menus", L"Themed menus", L"Visual-style menus"}) m_combo.AddString(look);
    m_combo.SetCurSel(2);
    for (CWnd* control : {static_cast<CWnd*>(&m_list), static_cast<CWnd*>(&m_tree), static_cast<CWnd*>(&m_edit),
                          static_cast<CWnd*>(&m_combo)})
        control->SetFont(UiFont(), FALSE);
}

void ControlsPanel::Layout(const CRect& content) {
    const int pad = Gap(), row = RowHeight();
    const int half = content.Width() / 2;
    m_list.SetWindowPos(ZOrderTop, content.left, content.top, half - pad, content.Height(), SWP_NOZORDER);
    m_list.ResizeColumnsToFit();
    const int x = content.left + half + pad, width = content.Width() - half - pad;
    int y = content.top;
    ::SetWindowPos(m_link, nullptr, x, y, width, row, SWP_NOZORDER);
    y += row;
    m_progress.SetWindowPos(ZOrderTop, x, y + MulDivDpi(4), width, row - MulDivDpi(8), SWP_NOZORDER);
    y += row;
    m_edit.SetWindowPos(ZOrderTop, x, y, width / 2 - pad, row - MulDivDpi(2), SWP_NOZORDER);
    m_combo.SetWindowPos(ZOrderTop, x + width / 2, y, width - width / 2, MulDivDpi(160), SWP_NOZORDER);
    y += row + pad;
    m_tree.SetWindowPos(ZOrderTop, x, y, width, content.bottom - y, SWP_NOZORDER);
    m_tree.ExpandAll();
}

BOOL ControlsPanel::OnNotify(UINT, LPARAM nmhdr, LRESULT& result) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header->hwndFrom == m_link && header->code == static_cast<UINT>(NM_CLICK)) {
        m_message = L"The link was clicked; the host decides what opens.";
        ::SendMessageW(::GetAncestor(GetHwnd(), GA_ROOT), WM_COMMAND, MAKEWPARAM(IDC_LINK, 0), 0);
        result = 0;
        return TRUE;
    }
    return FALSE;
}

int ControlsPanel::CompareItems(CListView& list, LPARAM item1, LPARAM item2, int column, BOOL ascending) {
    const CString a = list.GetItemText(static_cast<int>(item1), column);
    const CString b = list.GetItemText(static_cast<int>(item2), column);
    const int order = ::lstrcmpiW(a, b);
    return ascending ? order : -order;
}
