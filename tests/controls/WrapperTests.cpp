#include <gtest/gtest.h>

#include <vector>

#include "ControlsTestSupport.h"
#include "velkan/controls/Button.h"
#include "velkan/controls/ComboBox.h"
#include "velkan/controls/EditControl.h"
#include "velkan/controls/ListBox.h"
#include "velkan/controls/StaticControl.h"
#include "velkan/controls/Tooltip.h"

using namespace Velkan;
using Testing::Parent;

namespace {

const CRect kRect(5, 6, 205, 106);

}  // namespace

TEST(Control, CreateMakesAVisibleChildWithTheId) {
    Parent parent;
    CStaticControl label;
    ASSERT_NE(nullptr, label.Create(parent, 41, kRect, SS_ICON));
    EXPECT_EQ(41, label.GetDlgCtrlID());
    EXPECT_EQ(parent.GetHwnd(), ::GetParent(label));
    EXPECT_EQ(static_cast<DWORD>(WS_CHILD | WS_VISIBLE | SS_ICON), label.GetWindowStyle() & (WS_CHILD | WS_VISIBLE | SS_TYPEMASK));
    CRect placed = label.GetWindowRect();
    parent.ScreenToClient(&placed);
    EXPECT_EQ(kRect.TopLeft(), placed.TopLeft());
    HICON icon = ::LoadIconW(nullptr, IDI_INFORMATION);
    label.SetIcon(icon);
    EXPECT_EQ(icon, label.GetIcon());
}

TEST(EditControl, LinesSelectionAndAppending) {
    Parent parent;
    CEditControl edit;
    ASSERT_NE(nullptr, edit.Create(parent, 42, kRect, ES_MULTILINE | ES_AUTOVSCROLL));
    edit.SetWindowTextW(L"first\r\n\r\nthird");
    EXPECT_EQ(CString(L"first"), edit.GetLine(0));
    const CString empty = edit.GetLine(1);
    EXPECT_FALSE(empty.IsNull());
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(CString(L"third"), edit.GetLine(2));
    EXPECT_TRUE(edit.GetLine(3).IsNull());

    int start = -1, end = -1;
    edit.SetSel(2, 4);
    edit.GetSel(start, end);
    EXPECT_EQ(2, start);
    EXPECT_EQ(4, end);
    // Appending goes to the end whatever the selection and leaves the caret there.
    edit.AppendText(L" line\r\nfourth");
    EXPECT_EQ(CString(L"first\r\n\r\nthird line\r\nfourth"), edit.GetWindowTextW());
    EXPECT_EQ(CString(L"fourth"), edit.GetLine(3));
    edit.GetSel(start, end);
    EXPECT_EQ(edit.GetWindowTextLengthW(), start);
    EXPECT_EQ(start, end);
}

TEST(ListControls, ItemTextIsNullOutOfRangeAndSelectionsListAllSelected) {
    Parent parent;
    CComboBox combo;
    ASSERT_NE(nullptr, combo.Create(parent, 43, kRect, CBS_DROPDOWNLIST));
    combo.AddString(L"alpha");
    combo.AddString(L"");
    EXPECT_EQ(CString(L"alpha"), combo.GetItemText(0));
    EXPECT_FALSE(combo.GetItemText(1).IsNull());
    EXPECT_TRUE(combo.GetItemText(1).IsEmpty());
    EXPECT_TRUE(combo.GetItemText(2).IsNull());
    EXPECT_TRUE(combo.GetItemText(-1).IsNull());

    CListBox list;
    ASSERT_NE(nullptr, list.Create(parent, 44, kRect, LBS_EXTENDEDSEL));
    for (const wchar_t* text : {L"zero", L"one", L"two", L"three"}) list.AddString(text);
    EXPECT_EQ(CString(L"three"), list.GetItemText(3));
    EXPECT_TRUE(list.GetItemText(4).IsNull());
    EXPECT_TRUE(list.GetSelectedIndices().empty());
    list.SetSel(1, TRUE);
    list.SetSel(3, TRUE);
    EXPECT_EQ((std::vector<int>{1, 3}), list.GetSelectedIndices());
}

TEST(Tooltip, ToolsAreAddedAndDeletedByWindowAndId) {
    Parent parent;
    CButton button;
    ASSERT_NE(nullptr, button.Create(parent, 47, kRect, BS_PUSHBUTTON));
    CTooltip tips;
    ASSERT_NE(nullptr, tips.Create(parent));
    EXPECT_EQ(parent.GetHwnd(), ::GetWindow(tips, GW_OWNER));
    EXPECT_NE(0u, tips.GetWindowExStyle() & WS_EX_TOPMOST);
    EXPECT_EQ(static_cast<DWORD>(TTS_ALWAYSTIP | TTS_NOPREFIX), tips.GetWindowStyle() & (TTS_ALWAYSTIP | TTS_NOPREFIX));
    EXPECT_TRUE(tips.AddTool(button, L"the button"));
    EXPECT_TRUE(tips.AddTool(parent, 7, CRect(0, 0, 10, 10), L"a corner"));
    EXPECT_EQ(2, tips.GetToolCount());
    // A whole-window tool belongs to the tool's parent and is known by its handle.
    TTTOOLINFOW info = {};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(tips.SendMessageW(TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&info)));
    EXPECT_EQ(parent.GetHwnd(), info.hwnd);
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(button.GetHwnd()), info.uId);
    EXPECT_EQ(static_cast<UINT>(TTF_IDISHWND | TTF_SUBCLASS), info.uFlags & (TTF_IDISHWND | TTF_SUBCLASS));
    tips.DelTool(parent, reinterpret_cast<UINT_PTR>(button.GetHwnd()));
    EXPECT_EQ(1, tips.GetToolCount());
    tips.DelTool(parent, 7);
    EXPECT_EQ(0, tips.GetToolCount());
}
