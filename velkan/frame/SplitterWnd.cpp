#include "velkan/frame/SplitterWnd.h"

#include <cstdlib>

namespace Velkan {

namespace {

constexpr int kGap = 4;

}  // namespace

void CSplitterWnd::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = L"VlkSplitterWnd";
    wc.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
}

int CSplitterWnd::AddPane(const CWnd* pane, int minHeight, int maxHeight) {
    m_panes.push_back(Pane{pane, minHeight, maxHeight, 0});
    if (IsWindow()) LayoutPanes();
    return static_cast<int>(m_panes.size()) - 1;
}

void CSplitterWnd::OnSize() {
    LayoutPanes();
}

void CSplitterWnd::LayoutPanes() {
    if (m_panes.empty()) return;
    const CRect client = GetClientRect();
    const int width = std::abs(static_cast<int>(client.Width()));
    int height = std::abs(static_cast<int>(client.Height()));
    int gaps = kGap * (static_cast<int>(m_panes.size()) - 1);
    int y = 0;
    int remaining = static_cast<int>(m_panes.size());
    for (Pane& pane : m_panes) {
        int h = (height - gaps) / remaining;
        if (h < pane.minHeight)
            h = pane.minHeight;
        else if (h > pane.maxHeight && remaining > 1)
            h = pane.maxHeight;
        pane.height = h;
        if (pane.window != nullptr && pane.window->IsWindow())
            ::SetWindowPos(pane.window->GetHwnd(), nullptr, 0, y, width, h, SWP_NOZORDER);
        const int next = y + kGap + std::abs(h);
        // Kept as defined: the share taken is the gap plus |(y + h) - next|,
        // not the pane's height, so later panes get larger shares and the
        // last one reaches below the client area.
        height -= kGap + std::abs((y + h) - next);
        gaps -= kGap;
        y = next;
        --remaining;
    }
}

BOOL CSplitterWnd::WndProc(UINT msg, WPARAM wParam, LPARAM, LRESULT& result) {
    switch (msg) {
    case WM_SIZE:
        OnSize();
        result = 0;
        return TRUE;
    case WM_SETCURSOR:
        // Over a gap the cursor is over the splitter itself.
        if (reinterpret_cast<HWND>(wParam) != m_hwnd) return FALSE;
        ::SetCursor(::LoadCursorW(nullptr, IDC_SIZENS));
        result = 0;
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL CSplitterWnd::OnCommand(UINT wParam, LPARAM lParam) {
    ::SendMessageW(::GetParent(m_hwnd), WM_COMMAND, wParam, lParam);
    return TRUE;
}

BOOL CSplitterWnd::OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) {
    result = ::SendMessageW(::GetParent(m_hwnd), WM_NOTIFY, id, nmhdr);
    return TRUE;
}

}  // namespace Velkan
