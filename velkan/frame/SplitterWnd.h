#pragma once

#include <vector>

#include "velkan/app/Wnd.h"

namespace Velkan {

/// Stacks pane windows from top to bottom, each the full client width, 4
/// pixels apart, within per-pane minimum and maximum heights, laid out again
/// on every resize. The panes' commands and notifications go on to the
/// splitter's parent, as if the panes were its children. The gaps show the
/// vertical-resize cursor; there is no dragging.
class VELKAN_API CSplitterWnd : public CWnd {
public:
    /// One pane and its height limits.
    struct Pane {
        const CWnd* window;  ///< not owned; may be null
        int minHeight;  ///< the least height
        int maxHeight;  ///< the greatest height, except for the last pane
        int height;  ///< from the last layout
    };

    CSplitterWnd() = default;  ///< No panes; Create makes the window.

    /// Adds a pane below the others and returns the new pane's index; lays
    /// out at once when the window exists.
    int AddPane(const CWnd* pane, int minHeight, int maxHeight);
    const std::vector<Pane>& GetPanes() const { return m_panes; }  ///< The panes, top to bottom.

    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< The "VlkSplitterWnd" class.
    /// WM_SIZE lays out; WM_SETCURSOR over a gap shows the resize cursor.
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;  ///< Sends the command on to the parent.
    /// Sends the notification on to the parent, with its result.
    BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    using CWnd::OnNotify;  ///< CWnd's notification-center OnNotify.

protected:
    void OnSize();  ///< Lays the panes out again.

private:
    void LayoutPanes();

    std::vector<Pane> m_panes;
};

}  // namespace Velkan
