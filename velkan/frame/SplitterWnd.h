#pragma once

#include <vector>

#include "velkan/app/Wnd.h"

namespace Velkan {

// Stacks pane windows from top to bottom, each the full client width, 4
// pixels apart, within per-pane minimum and maximum heights, laid out again
// on every resize. The panes' commands and notifications go on to the
// splitter's parent, as if the panes were its children. The gaps show the
// vertical-resize cursor; there is no dragging.
class VELKAN_API CSplitterWnd : public CWnd {
public:
    struct Pane {
        const CWnd* window;  // not owned; may be null
        int minHeight;
        int maxHeight;
        int height;  // from the last layout
    };

    CSplitterWnd() = default;

    // The new pane's index; lays out at once when the window exists.
    int AddPane(const CWnd* pane, int minHeight, int maxHeight);
    const std::vector<Pane>& GetPanes() const { return m_panes; }

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    using CWnd::OnNotify;

protected:
    void OnSize();

private:
    void LayoutPanes();

    std::vector<Pane> m_panes;
};

}  // namespace Velkan
