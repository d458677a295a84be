#pragma once

#include "velkan/Velkan.h"

// The lower pane of the gallery: everyday controls made of library
// wrappers. The list sorts on header clicks through this panel as its
// delegate and has check boxes; the link reports clicks to the status text.
class ControlsPanel : public Velkan::CWnd, public Velkan::IListViewDelegate {
public:
    ControlsPanel() : m_list(this) {}

    HWND Create(Velkan::CWnd* parent) override;
    int CompareItems(Velkan::CListView& list, LPARAM item1, LPARAM item2, int column, BOOL ascending) override;
    // The text the panel wants shown in the status bar, or empty.
    const Velkan::CString& GetMessageText() const { return m_message; }

protected:
    void OnCreate() override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    using CWnd::OnNotify;

private:
    void Layout();

    Velkan::CListView m_list;
    Velkan::CTreeView m_tree;
    HWND m_link = nullptr;
    Velkan::CProgressControl m_progress;
    Velkan::CEditControl m_edit;
    Velkan::CComboBox m_combo;
    Velkan::CString m_message;
};
