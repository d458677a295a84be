// The thin control wrappers' operations that are more than one message.
#include <vector>

#include "velkan/controls/Button.h"
#include "velkan/controls/ComboBox.h"
#include "velkan/controls/EditControl.h"
#include "velkan/controls/ListBox.h"
#include "velkan/controls/ProgressControl.h"
#include "velkan/controls/RichEdit.h"
#include "velkan/controls/StaticControl.h"
#include "velkan/controls/Tooltip.h"

namespace Velkan {

namespace {

// The text of a list item whose length one message gives and another
// fills; null for an index the control does not have.
CString ItemText(const CWnd& control, UINT lengthMsg, UINT textMsg, int index) {
    const LRESULT length = control.SendMessageW(lengthMsg, static_cast<WPARAM>(index));
    if (length < 0) return CString();
    CString text(static_cast<int>(length));
    wchar_t* buffer = text.LockBuffer(static_cast<int>(length));
    if (buffer == nullptr) return CString();
    buffer[0] = L'\0';
    control.SendMessageW(textMsg, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer));
    buffer[length] = L'\0';
    text.UnlockBuffer();
    return text;
}

}  // namespace

CStaticControl::CStaticControl() : CControl(WC_STATICW) {}

CSize CButton::GetIdealSize() const {
    SIZE size = {0, 0};
    if (!SendMessageW(BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&size))) return CSize(0, 0);
    return CSize(size.cx, size.cy);
}

void CEditControl::GetSel(int& start, int& end) const {
    DWORD first = 0, last = 0;
    SendMessageW(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    start = static_cast<int>(first);
    end = static_cast<int>(last);
}

void CEditControl::SetSel(int start, int end, BOOL noScroll) const {
    SendMessageW(EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(end));
    if (!noScroll) SendMessageW(EM_SCROLLCARET);
}

void CEditControl::AppendText(const wchar_t* text) const {
    const int length = GetWindowTextLengthW();
    SetSel(length, length);
    ReplaceSel(text, FALSE);
}

CString CEditControl::GetLine(int line) const {
    const int index = LineIndex(line);
    if (index < 0) return CString();
    const int length = LineLength(index);
    // EM_GETLINE takes the buffer's size in its first word; at least one.
    std::vector<wchar_t> buffer(static_cast<size_t>(length > 0 ? length : 1) + 1, L'\0');
    *reinterpret_cast<WORD*>(buffer.data()) = static_cast<WORD>(buffer.size() - 1);
    const LRESULT copied = SendMessageW(EM_GETLINE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(buffer.data()));
    return CString(buffer.data(), static_cast<int>(copied));
}

CString CComboBox::GetItemText(int index) const {
    return ItemText(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, index);
}

CString CListBox::GetItemText(int index) const {
    return ItemText(*this, LB_GETTEXTLEN, LB_GETTEXT, index);
}

std::vector<int> CListBox::GetSelectedIndices() const {
    const int count = GetSelCount();
    if (count <= 0) return {};
    std::vector<int> indices(static_cast<size_t>(count));
    const LRESULT got = SendMessageW(LB_GETSELITEMS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(indices.data()));
    indices.resize(got > 0 ? static_cast<size_t>(got) : 0);
    return indices;
}

PBRANGE CProgressControl::SetRange(int low, int high) const {
    PBRANGE previous = GetRange();
    SendMessageW(PBM_SETRANGE32, static_cast<WPARAM>(low), static_cast<LPARAM>(high));
    return previous;
}

PBRANGE CProgressControl::GetRange() const {
    PBRANGE range = {0, 0};
    SendMessageW(PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
    return range;
}

CRichEdit::CRichEdit() : CControl(MSFTEDIT_CLASS) {}

BOOL CRichEdit::LoadLibrary() {
    static HMODULE module = ::LoadLibraryW(L"msftedit.dll");
    return module != nullptr;
}

HWND CRichEdit::Create(CWnd& parent, UINT id, const RECT& rect, DWORD style, DWORD exStyle) {
    if (!LoadLibrary()) return nullptr;
    return CControl::Create(parent, id, rect, style, exStyle);
}

void CRichEdit::SetSel(LONG start, LONG end) const {
    CHARRANGE range = {start, end};
    SendMessageW(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

void CRichEdit::GetSel(LONG& start, LONG& end) const {
    CHARRANGE range = {0, 0};
    SendMessageW(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    start = range.cpMin;
    end = range.cpMax;
}

BOOL CRichEdit::SetCharFormat(CHARFORMAT2W& format, DWORD which) const {
    format.cbSize = sizeof(format);
    return static_cast<BOOL>(SendMessageW(EM_SETCHARFORMAT, which, reinterpret_cast<LPARAM>(&format)));
}

DWORD CRichEdit::GetCharFormat(CHARFORMAT2W& format, DWORD which) const {
    format.cbSize = sizeof(format);
    return static_cast<DWORD>(SendMessageW(EM_GETCHARFORMAT, which, reinterpret_cast<LPARAM>(&format)));
}

int CRichEdit::GetTextLength() const {
    GETTEXTLENGTHEX length = {GTL_DEFAULT | GTL_NUMCHARS, 1200};
    return static_cast<int>(SendMessageW(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length)));
}

HWND CTooltip::Create(CWnd& owner, DWORD style) {
    return CreateEx(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | style, CW_USEDEFAULT, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, &owner, nullptr);
}

BOOL CTooltip::AddTool(HWND tool, const wchar_t* text) const {
    TTTOOLINFOW info = {};
    info.cbSize = sizeof(info);
    info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    info.hwnd = ::GetParent(tool);
    info.uId = reinterpret_cast<UINT_PTR>(tool);
    info.lpszText = const_cast<wchar_t*>(text);
    return static_cast<BOOL>(SendMessageW(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info)));
}

BOOL CTooltip::AddTool(HWND window, UINT id, const RECT& rect, const wchar_t* text) const {
    TTTOOLINFOW info = {};
    info.cbSize = sizeof(info);
    info.uFlags = TTF_SUBCLASS;
    info.hwnd = window;
    info.uId = id;
    info.rect = rect;
    info.lpszText = const_cast<wchar_t*>(text);
    return static_cast<BOOL>(SendMessageW(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info)));
}

void CTooltip::DelTool(HWND window, UINT_PTR id) const {
    TTTOOLINFOW info = {};
    info.cbSize = sizeof(info);
    info.hwnd = window;
    info.uId = id;
    SendMessageW(TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void CTooltip::UpdateTipText(HWND window, UINT_PTR id, const wchar_t* text) const {
    TTTOOLINFOW info = {};
    info.cbSize = sizeof(info);
    info.hwnd = window;
    info.uId = id;
    info.lpszText = const_cast<wchar_t*>(text);
    SendMessageW(TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
}

}  // namespace Velkan
