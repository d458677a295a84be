#include <gtest/gtest.h>

#include <vector>

#include "ControlsTestSupport.h"
#include "velkan/controls/TreeView.h"

using namespace Velkan;
using Testing::Parent;

namespace {

// Copies of the TVINSERTSTRUCTWs the thread's trees receive while it lives.
std::vector<TVINSERTSTRUCTW>* g_inserts = nullptr;

LRESULT CALLBACK WatchInserts(int code, WPARAM wParam, LPARAM lParam) {
    const auto* call = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && g_inserts != nullptr && call->message == TVM_INSERTITEMW)
        g_inserts->push_back(*reinterpret_cast<const TVINSERTSTRUCTW*>(call->lParam));
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

TVITEMEXW Stored(const CTreeView& tree, HTREEITEM item) {
    TVITEMEXW info = {};
    info.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    info.hItem = item;
    tree.GetItem(info);
    return info;
}

bool Expanded(const CTreeView& tree, HTREEITEM item) { return tree.GetItemState(item, TVIS_EXPANDED) != 0; }

}  // namespace

TEST(TreeView, InsertItemNamesOnlyTheFieldsItIsGivenAndStartsExpanded) {
    Parent parent;
    CTreeView tree;
    ASSERT_NE(nullptr, tree.Create(parent, 11, CRect(0, 0, 200, 200)));
    EXPECT_EQ(CString(L"SysTreeView32"), tree.GetClassNameW());
    std::vector<TVINSERTSTRUCTW> inserts;
    g_inserts = &inserts;
    HHOOK hook = ::SetWindowsHookExW(WH_CALLWNDPROC, &WatchInserts, nullptr, ::GetCurrentThreadId());
    HTREEITEM plain = tree.InsertItem(nullptr, L"plain");
    HTREEITEM image = tree.InsertItem(nullptr, L"image", 3);
    HTREEITEM selected = tree.InsertItem(nullptr, L"selected", -1, 4);
    HTREEITEM both = tree.InsertItem(plain, L"both", 5, 6);
    HTREEITEM option = tree.InsertItemWithStateImage(plain, L"option", 2);
    ::UnhookWindowsHookEx(hook);
    g_inserts = nullptr;

    ASSERT_EQ(5u, inserts.size());
    const UINT masks[] = {9, 11, 41, 43};
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(masks[i], inserts[i].item.mask) << i;
        EXPECT_EQ(static_cast<UINT>(TVIS_EXPANDED), inserts[i].item.state) << i;
        EXPECT_EQ(static_cast<UINT>(TVIS_EXPANDED), inserts[i].item.stateMask) << i;
    }
    EXPECT_EQ(plain, inserts[3].hParent);
    EXPECT_EQ(5, Stored(tree, both).iImage);
    EXPECT_EQ(6, Stored(tree, both).iSelectedImage);
    EXPECT_EQ(3, Stored(tree, image).iImage);
    EXPECT_EQ(4, Stored(tree, selected).iSelectedImage);
    // State image 2, expanded.
    EXPECT_EQ(static_cast<UINT>(TVIF_TEXT | TVIF_STATE), inserts[4].item.mask);
    EXPECT_EQ(0xF020u, inserts[4].item.stateMask);
    EXPECT_EQ(0x2020u, tree.GetItemState(option, TVIS_STATEIMAGEMASK | TVIS_EXPANDED));

    EXPECT_EQ(CString(L"option"), tree.GetItemText(option));
    EXPECT_EQ(CString(L"opt"), tree.GetItemText(option, 3));
    tree.SetItemImage(image, 7, 8);
    EXPECT_EQ(7, Stored(tree, image).iImage);
    EXPECT_EQ(8, Stored(tree, image).iSelectedImage);
}

TEST(TreeView, ExpandAllExpandsTheFirstTopLevelSubtreeOnly) {
    Parent parent;
    CTreeView tree;
    ASSERT_NE(nullptr, tree.Create(parent, 11, CRect(0, 0, 200, 200)));
    HTREEITEM a = tree.InsertItem(nullptr, L"a");
    HTREEITEM a1 = tree.InsertItem(a, L"a1");
    tree.InsertItem(a1, L"a1x");
    HTREEITEM a2 = tree.InsertItem(a, L"a2");
    tree.InsertItem(a2, L"a2x");
    HTREEITEM b = tree.InsertItem(nullptr, L"b");
    tree.InsertItem(b, L"b1");
    // Inserted items start expanded; collapse from the leaves up.
    for (HTREEITEM item : {a1, a2, a, b}) {
        tree.Collapse(item);
        ASSERT_FALSE(Expanded(tree, item));
    }
    tree.ExpandAll();
    EXPECT_TRUE(Expanded(tree, a));
    EXPECT_TRUE(Expanded(tree, a1));
    EXPECT_TRUE(Expanded(tree, a2));
    EXPECT_FALSE(Expanded(tree, b));

    // Rows follow each other; a hidden item has no rectangle.
    tree.Collapse(a);
    const int height = tree.GetItemHeight();
    const CRect row = tree.GetItemRect(b, FALSE);
    EXPECT_EQ(height, row.top);
    EXPECT_GT(row.bottom, row.top);
    EXPECT_LE(row.bottom, 2 * height);  // Wine's rows end one pixel short
    const CRect text = tree.GetItemRect(b, TRUE);
    EXPECT_TRUE(!text.IsEmpty() && text.left >= row.left && text.right <= row.right);
    EXPECT_EQ(CRect(0, 0, 0, 0), tree.GetItemRect(a1, FALSE));
}
