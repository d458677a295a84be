#include "velkan/frame/StatusBar.h"

#include <cwchar>
#include <vector>

#include "velkan/core/Resource.h"

namespace Velkan {

namespace {

// WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBARS_SIZEGRIP | CCS_BOTTOM.
constexpr DWORD kStatusBarStyle = 0x54000103;
constexpr int kMaxParts = 16;
// Help strings belong to commands; lower ids are the host's other strings.
constexpr UINT kFirstCommandId = 40000;

}  // namespace

void CStatusBar::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = STATUSCLASSNAMEW;
}

void CStatusBar::PreCreate(CREATESTRUCTW& cs) {
    cs.style = static_cast<LONG>(kStatusBarStyle);
}

CRect CStatusBar::GetPartRect(int part) const {
    CRect rect(0, 0, 0, 0);
    SendMessageW(SB_GETRECT, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

CString CStatusBar::GetPartText(int part) const {
    const int length = GetPartTextLength(part);
    CString text(length);
    wchar_t* buffer = text.LockBuffer(length);
    if (buffer == nullptr) return text;
    buffer[0] = L'\0';
    SendMessageW(SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(buffer));
    buffer[length] = L'\0';
    text.UnlockBuffer();
    return text;
}

CString CStatusBar::GetHelpString(UINT id, HINSTANCE instance) const {
    CString text(L"");
    if (id < kFirstCommandId) return text;
    if (!CResourceLoader::TryLoadText(id, text, instance)) return CString(L"");
    const wchar_t* all = text.GetString();
    const wchar_t* lineFeed = std::wcschr(all, L'\n');
    // Kept as built: the line feed stays at the end of the help text.
    if (lineFeed != nullptr) return CString(all, static_cast<int>(lineFeed - all) + 1);
    return text;
}

void CStatusBar::SetRightJustifyMode(BOOL on, int firstPartWidth) {
    if (!on) return;
    if (m_prevWndProc == nullptr) Subclass();
    if (firstPartWidth != 0) {
        m_firstPartWidth = firstPartWidth;
        return;
    }
    int edges[kMaxParts] = {};
    m_firstPartWidth = GetParts(edges, kMaxParts) > 0 ? edges[0] : 24;
}

BOOL CStatusBar::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg != WM_SIZE) return FALSE;
    // The control sizes itself first.
    result = CWnd::DefaultWndProc(WM_SIZE, wParam, lParam);
    RightJustify();
    return TRUE;
}

void CStatusBar::RightJustify() {
    int edges[kMaxParts] = {};
    const int count = GetParts(edges, kMaxParts);
    if (count <= 0) return;
    const int n = count < kMaxParts ? count : kMaxParts;
    const int available = GetClientRect().Width() - ::GetSystemMetrics(SM_CXHTHUMB);
    std::vector<int> widths(static_cast<size_t>(n));
    int rest = 0;
    for (int i = 1; i < n; ++i) {
        widths[static_cast<size_t>(i)] = edges[i] - edges[i - 1];
        rest += widths[static_cast<size_t>(i)];
    }
    const int total = m_firstPartWidth + rest;
    const int rightEnd = available > total ? available : total;
    widths[0] = m_firstPartWidth + (rightEnd - total);
    int edge = 0;
    for (int i = 0; i < n; ++i) {
        edge += widths[static_cast<size_t>(i)];
        edges[i] = edge;
    }
    SetParts(n, edges);
}

}  // namespace Velkan
