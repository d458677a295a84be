#pragma once

#include "GalleryPage.h"

// Everyday controls made of library wrappers. The list sorts on header
// clicks through this page as its delegate and has check boxes; the link
// reports clicks to the status text.
class ControlsPanel : public GalleryPage, public Velkan::IListViewDelegate {
public:
    ControlsPanel();

    int CompareItems(Velkan::CListView& list, LPARAM item1, LPARAM item2, int column, BOOL ascending) override;
    // The text the panel wants shown in the status bar, or empty.
    const Velkan::CString& GetMessageText() const { return m_message; }

protected:
    void OnCreate() override;
    BOOL OnNotify(UINT id, LPARAM nmhdr, LRESULT& result) override;
    using CWnd::OnNotify;
    void Layout(const Velkan::CRect& content) override;

private:

    Velkan::CListView m_list;
    Velkan::CTreeView m_tree;
    HWND m_link = nullptr;
    Velkan::CProgressControl m_progress;
    Velkan::CEditControl m_edit;
    Velkan::CComboBox m_combo;
    Velkan::CString m_message;
};
