#include <gtest/gtest.h>

#include <vector>

#include "ControlsTestSupport.h"
#include "velkan/controls/ListView.h"

using namespace Velkan;
using Testing::Parent;

namespace {

// Records every comparison the list asks for and orders by index.
class RecordingDelegate : public IListViewDelegate {
public:
    struct Call { LPARAM item1, item2; int column; BOOL ascending; };
    std::vector<Call> calls;

    int CompareItems(CListView&, LPARAM item1, LPARAM item2, int column, BOOL ascending) override {
        calls.push_back({item1, item2, column, ascending});
        return CListView::Compare(static_cast<int>(item1), static_cast<int>(item2), ascending);
    }
};

// The sort-arrow bits of a column as the list keeps them: Wine does not
// pass them on to the header control.
int Arrows(const CListView& list, int column) {
    LVCOLUMNW info = {};
    info.mask = LVCF_FMT;
    ::SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&info));
    return info.fmt & (HDF_SORTUP | HDF_SORTDOWN);
}

// A header click as the list sees it: the list sends LVN_COLUMNCLICK to
// its parent, which reflects it to the list's object.
void ClickColumn(const CListView& list, int column) {
    NMHEADERW click = {};
    click.hdr.hwndFrom = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
    click.hdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(click.hdr.hwndFrom));
    click.hdr.code = static_cast<UINT>(HDN_ITEMCLICKW);
    click.iItem = column;
    ::SendMessageW(list, WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

// Items with parameters far from their indices: the delegate must get indices.
void Fill(CListView& list, int columns, std::vector<const wchar_t*> items) {
    for (int i = 0; i < columns; ++i) list.InsertColumn(i, L"column", LVCFMT_LEFT, 40);
    for (size_t i = 0; i < items.size(); ++i) list.InsertItem(static_cast<int>(i), items[i], 0, static_cast<LPARAM>(1000 + i));
}

}  // namespace

TEST(ListView, ColumnClickWithoutDelegateLeavesOrderAndArrows) {
    Parent parent;
    CListView list;
    ASSERT_NE(nullptr, list.Create(parent, 10, CRect(0, 0, 300, 200), LVS_REPORT));
    EXPECT_EQ(CString(L"SysListView32"), list.GetClassNameW());
    Fill(list, 2, {L"b", L"c", L"a"});
    list.SetSortArrowDown(1);
    ClickColumn(list, 0);
    EXPECT_EQ(0, Arrows(list, 0));
    EXPECT_EQ(HDF_SORTDOWN, Arrows(list, 1));
    EXPECT_EQ(CString(L"b"), list.GetItemText(0, 0));
    EXPECT_EQ(CString(L"a"), list.GetItemText(2, 0));
}

TEST(ListView, ColumnClicksSortAscendingThenFlipWithTheArrowOnThatColumnOnly) {
    Parent parent;
    RecordingDelegate delegate;
    CListView list(&delegate);
    ASSERT_NE(nullptr, list.Create(parent, 10, CRect(0, 0, 300, 200), LVS_REPORT));
    Fill(list, 52, {L"b", L"c", L"a", L"d"});
    list.SetSortArrowDown(0);
    list.SetSortArrowUp(2);
    // Wine 8 orders rows wrongly under LVM_SORTITEMSEX: what is checked is
    // what the delegate was asked and the arrows, not the final row order.
    const auto clickAndCheck = [&](int column, BOOL ascending) {
        delegate.calls.clear();
        ClickColumn(list, column);
        ASSERT_FALSE(delegate.calls.empty()) << "column " << column;
        for (const RecordingDelegate::Call& call : delegate.calls) {
            EXPECT_EQ(column, call.column);
            EXPECT_EQ(ascending, call.ascending);
            EXPECT_TRUE(call.item1 >= 0 && call.item1 < 4 && call.item2 >= 0 && call.item2 < 4)
                << "not item indices: " << call.item1 << ", " << call.item2;
        }
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(i != column ? 0 : ascending ? HDF_SORTUP : HDF_SORTDOWN, Arrows(list, i)) << "column " << i;
    };
    clickAndCheck(1, TRUE);   // no arrow yet: ascending; the others' arrows go
    clickAndCheck(1, FALSE);  // up arrow: descending
    clickAndCheck(1, TRUE);   // down arrow: ascending again
    clickAndCheck(1, FALSE);
    clickAndCheck(2, TRUE);   // another column starts ascending

    // Arrows are cleared on the first 50 columns only.
    list.SetSortArrowUp(49);
    list.SetSortArrowDown(50);
    ClickColumn(list, 0);
    EXPECT_EQ(0, Arrows(list, 49));
    EXPECT_EQ(HDF_SORTDOWN, Arrows(list, 50));
}

TEST(ListView, ResizeColumnsToFitSharesTheClientWidthWithTheRestToTheLast) {
    Parent parent;
    CListView list;
    ASSERT_NE(nullptr, list.Create(parent, 10, CRect(0, 0, 100, 200), LVS_REPORT));
    ASSERT_EQ(100, list.GetClientRect().Width());
    list.ResizeColumnsToFit();  // no columns: nothing to do
    EXPECT_EQ(0, list.GetColumnCount());
    Fill(list, 3, {});
    list.ResizeColumnsToFit();
    EXPECT_EQ((std::vector<int>{33, 33, 34}), (std::vector<int>{list.GetColumnWidth(0), list.GetColumnWidth(1), list.GetColumnWidth(2)}));
    list.SetWindowSize(203, 200);
    list.ResizeColumnsToFit();
    EXPECT_EQ((std::vector<int>{67, 68, 68}), (std::vector<int>{list.GetColumnWidth(0), list.GetColumnWidth(1), list.GetColumnWidth(2)}));
}

TEST(ListView, CheckStatesUseStateImagesOneAndTwo) {
    Parent parent;
    CListView list;
    ASSERT_NE(nullptr, list.Create(parent, 10, CRect(0, 0, 300, 200), LVS_REPORT));
    Fill(list, 1, {L"a", L"b", L"c"});
    EXPECT_EQ(-1, list.GetCheckState(0));  // no check boxes: no state image

    list.SetExtendedListViewStyleEx(LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
    EXPECT_TRUE(list.SetCheckState(1, TRUE));
    EXPECT_EQ(0x2000, list.SendMessageW(LVM_GETITEMSTATE, 1, 0xF000));
    EXPECT_EQ(1, list.GetCheckState(1));
    EXPECT_EQ(0, list.GetCheckState(0));
    list.SetCheckState(1, FALSE);
    EXPECT_EQ(0x1000, list.SendMessageW(LVM_GETITEMSTATE, 1, 0xF000));
    EXPECT_EQ(0, list.GetCheckState(1));
    for (BOOL checked : {TRUE, FALSE}) {
        list.SetCheckStateForAllItems(checked);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(checked ? 1 : 0, list.GetCheckState(i)) << i;
    }

    EXPECT_TRUE(CListView::HasCheckChanged(0x2000, 0x1000));
    EXPECT_TRUE(CListView::HasCheckChanged(0x1000 | LVIS_SELECTED, 0x2000));
    EXPECT_TRUE(CListView::HasCheckChanged(0x1000, 0));
    EXPECT_FALSE(CListView::HasCheckChanged(0, 0x2000));  // the state image went away
    EXPECT_FALSE(CListView::HasCheckChanged(0x2000 | LVIS_SELECTED, 0x2000));
}

TEST(ListView, HeaderAndSortStyleHelpersChangeOnlyTheirBits) {
    Parent parent;
    CListView list;
    ASSERT_NE(nullptr, list.Create(parent, 10, CRect(0, 0, 300, 200), LVS_REPORT | LVS_NOCOLUMNHEADER));
    const auto bits = [&](DWORD mask) { return list.GetWindowStyle() & mask; };
    list.ShowColumnHeaders(TRUE);
    EXPECT_EQ(0u, bits(LVS_NOCOLUMNHEADER));
    list.ShowColumnHeaders(FALSE);
    EXPECT_EQ(static_cast<DWORD>(LVS_NOCOLUMNHEADER), bits(LVS_NOCOLUMNHEADER));
    const DWORD sorting = LVS_SORTASCENDING | LVS_SORTDESCENDING;
    list.SetSortDescending();
    EXPECT_EQ(static_cast<DWORD>(LVS_SORTDESCENDING), bits(sorting));
    list.SetSortAscending();
    EXPECT_EQ(static_cast<DWORD>(LVS_SORTASCENDING), bits(sorting));
    list.SetSortNone();
    EXPECT_EQ(0u, bits(sorting));
    EXPECT_EQ(static_cast<DWORD>(WS_CHILD | WS_VISIBLE | LVS_REPORT), bits(WS_CHILD | WS_VISIBLE | LVS_TYPEMASK));

    EXPECT_LT(CListView::Compare(3, 5, TRUE), 0);
    EXPECT_GT(CListView::Compare(3, 5, FALSE), 0);
    EXPECT_EQ(0, CListView::Compare(4, 4, FALSE));
}

TEST(CheckBoxListView, SetsItselfUpAsASingleColumnCheckListThatFollowsItsWidth) {
    Parent parent;
    CCheckBoxListView list;
    ASSERT_NE(nullptr, list.Create(parent, 10, CRect(0, 0, 150, 100), LVS_LIST));
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(&CWnd::StaticWndProc), ::GetWindowLongPtrW(list, GWLP_WNDPROC));
    const DWORD style = list.GetWindowStyle();
    EXPECT_EQ(static_cast<DWORD>(LVS_REPORT), style & LVS_TYPEMASK);
    EXPECT_EQ(static_cast<DWORD>(LVS_NOCOLUMNHEADER | LVS_SINGLESEL), style & (LVS_NOCOLUMNHEADER | LVS_SINGLESEL));
    const DWORD extended = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    EXPECT_EQ(extended, static_cast<DWORD>(list.SendMessageW(LVM_GETEXTENDEDLISTVIEWSTYLE)) & extended);
    EXPECT_EQ(1, list.GetColumnCount());
    EXPECT_EQ(list.GetClientRect().Width(), list.GetColumnWidth(0));
    list.SetWindowSize(237, 120);
    EXPECT_EQ(237, list.GetClientRect().Width());
    EXPECT_EQ(237, list.GetColumnWidth(0));
}
