#include "GalleryPage.h"

using namespace Velkan;

namespace {

// Commands from here on are the frame's (see resource.h).
const UINT kFirstFrameCommand = 40000;

HFONT MakeFont(CFont& font, const CWnd& wnd, int points, bool bold) {
    if (font.GetHfont() != nullptr) return font;
    LOGFONTW lf = {};
    lf.lfHeight = -::MulDiv(points, wnd.GetDpi(), 72);
    lf.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    lf.lfCharSet = DEFAULT_CHARSET;
    lf.lfQuality = CLEARTYPE_QUALITY;
    ::lstrcpynW(lf.lfFaceName, L"Tahoma", LF_FACESIZE);
    return font.CreateFontIndirectW(lf);
}

}  // namespace

HWND GalleryPage::Create(CWnd* parent) {
    return CreateEx(WS_EX_CONTROLPARENT, L"VlkWnd", m_title, WS_CHILD | WS_CLIPCHILDREN, 0, 0, 10, 10, parent,
                    nullptr);
}

HFONT GalleryPage::UiFont() {
    return MakeFont(m_uiFont, *this, 9, false);
}

HFONT GalleryPage::HeadingFont() {
    return MakeFont(m_headingFont, *this, 14, true);
}

CRect GalleryPage::ContentRect() const {
    CRect client = GetClientRect();
    client.Deflate(MulDivDpi(16), MulDivDpi(16));
    client.top += MulDivDpi(58);
    return client;
}

void GalleryPage::OnPaint(CDC& dc) {
    const CRect client = GetClientRect();
    ::FillRect(dc, &client, ::GetSysColorBrush(COLOR_WINDOW));
    ::SetBkMode(dc, TRANSPARENT);
    HGDIOBJ old = ::SelectObject(dc, HeadingFont());
    ::SetTextColor(dc, RGB(24, 72, 140));
    CRect heading(MulDivDpi(16), MulDivDpi(12), client.right - MulDivDpi(16), MulDivDpi(42));
    ::DrawTextW(dc, m_title, -1, &heading, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    ::SelectObject(dc, UiFont());
    ::SetTextColor(dc, ::GetSysColor(COLOR_GRAYTEXT));
    CRect summary(heading.left, heading.bottom, heading.right, heading.bottom + MulDivDpi(22));
    ::DrawTextW(dc, m_summary, -1, &summary, DT_LEFT | DT_SINGLELINE | DT_END_ELLIPSIS);
    ::SetTextColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    PaintContent(dc, ContentRect());
    ::SelectObject(dc, old);
}

BOOL GalleryPage::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) < kFirstFrameCommand || HIWORD(wParam) != BN_CLICKED) return CWnd::OnCommand(wParam, lParam);
    ::PostMessageW(::GetAncestor(GetHwnd(), GA_ROOT), WM_COMMAND, LOWORD(wParam), 0);
    return TRUE;
}

BOOL GalleryPage::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (msg) {
    case WM_SIZE:
        Layout(ContentRect());
        InvalidateRect();
        break;
    case WM_CTLCOLORSTATIC:
        // Read-only edits and check boxes on the page's white.
        ::SetBkColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(COLOR_WINDOW));
        result = reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_WINDOW));
        return TRUE;
    default:
        break;
    }
    return CWnd::WndProc(msg, wParam, lParam, result);
}

void GalleryPage::MakeButton(CButton& button, UINT id, const wchar_t* text, DWORD style) {
    button.Create(*this, id, CRect(0, 0, 10, 10), style | WS_TABSTOP);
    button.SetWindowTextW(text);
    button.SetFont(UiFont(), FALSE);
}

void GalleryPage::MakeOutput(CEditControl& edit, UINT id) {
    edit.Create(*this, id, CRect(0, 0, 10, 10),
                ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE);
    edit.SetFont(UiFont(), FALSE);
}

void GalleryPage::MakeEdit(CEditControl& edit, UINT id, const wchar_t* text) {
    edit.Create(*this, id, CRect(0, 0, 10, 10), ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE);
    edit.SetFont(UiFont(), FALSE);
    edit.SetWindowTextW(text);
}

void GalleryPage::LayoutTopRow(const CRect& content, std::initializer_list<Cell> row, CWnd& output) {
    int rest = content.Width() - Gap() * (static_cast<int>(row.size()) - 1);
    for (const Cell& cell : row) rest -= MulDivDpi(cell.width);
    int x = content.left;
    for (const Cell& cell : row) {
        const int width = cell.width != 0 ? MulDivDpi(cell.width) : rest;
        const int inset = MulDivDpi(cell.inset);
        cell.wnd->SetWindowPos(ZOrderTop, x, content.top + inset, width, RowHeight() - 2 * inset, SWP_NOZORDER);
        x += width + Gap();
    }
    const int top = content.top + RowHeight() + Gap();
    output.SetWindowPos(ZOrderTop, content.left, top, content.Width(), content.bottom - top, SWP_NOZORDER);
}

HWND PageHost::Create(CWnd* parent) {
    return CreateEx(WS_EX_CONTROLPARENT, L"VlkWnd", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 10, 10,
                    parent, nullptr);
}

void PageHost::OnCreate() {
    m_list.Create(*this, 1, CRect(0, 0, 10, 10), LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_TABSTOP, WS_EX_CLIENTEDGE);
    LOGFONTW lf = {};
    lf.lfHeight = -::MulDiv(10, GetDpi(), 72);
    lf.lfWeight = FW_NORMAL;
    lf.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(lf.lfFaceName, L"Tahoma", LF_FACESIZE);
    m_list.SetFont(m_font.CreateFontIndirectW(lf), FALSE);
    m_list.SendMessageW(LB_SETITEMHEIGHT, 0, MulDivDpi(28));
    for (GalleryPage* page : m_pages) {
        page->Create(this);
        m_list.AddString(page->GetTitle());
    }
    ShowPage(0);
}

void PageHost::ShowPage(int index) {
    if (index < 0 || index >= GetPageCount() || index == m_current) return;
    if (m_current >= 0) GetPage(m_current).HideWindow();
    m_current = index;
    m_list.SetCurSel(index);
    Layout();
    GetPage(index).ShowWindow(SW_SHOW);
}

void PageHost::Layout() {
    const CRect client = GetClientRect();
    const int listWidth = MulDivDpi(170);
    m_list.SetWindowPos(ZOrderTop, 0, 0, listWidth, client.Height(), SWP_NOZORDER);
    if (m_current >= 0)
        GetPage(m_current).SetWindowPos(ZOrderTop, listWidth, 0, client.Width() - listWidth, client.Height(),
                                        SWP_NOZORDER);
}

BOOL PageHost::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) == 1 && HIWORD(wParam) == LBN_SELCHANGE) {
        ShowPage(m_list.GetCurSel());
        return TRUE;
    }
    return CWnd::OnCommand(wParam, lParam);
}

BOOL PageHost::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg == WM_SIZE && m_list.IsWindow()) Layout();
    return CWnd::WndProc(msg, wParam, lParam, result);
}
