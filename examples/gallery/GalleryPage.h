#pragma once

#include <initializer_list>

#include "velkan/Velkan.h"

// One page of the gallery's view: a heading with a line about what it
// shows, then its live examples. Buttons with the frame's command ids
// (40000 and up) pass their clicks on to the frame, so a page can offer
// what the menus offer.
class GalleryPage : public Velkan::CWnd {
public:
    GalleryPage(const wchar_t* title, const wchar_t* slug, const wchar_t* summary)
        : m_title(title), m_slug(slug), m_summary(summary) {}

    HWND Create(Velkan::CWnd* parent) override;
    const wchar_t* GetTitle() const { return m_title; }
    // The page's name in screenshot files.
    const wchar_t* GetSlug() const { return m_slug; }
    // Puts the page into a state worth a picture: the tour calls it before
    // it takes one.
    virtual void PrepareForTour() {}
    // TRUE while work the page started (a fetch, a worker) is still going.
    virtual bool IsBusy() const { return false; }

protected:
    void OnPaint(Velkan::CDC& dc) override;
    BOOL OnEraseBkgnd(Velkan::CDC&) override { return TRUE; }
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // The area below the heading.
    Velkan::CRect ContentRect() const;
    virtual void Layout(const Velkan::CRect& content) { (void)content; }
    virtual void PaintContent(Velkan::CDC& dc, const Velkan::CRect& content) { (void)dc, (void)content; }

    // The page's control font, made for its DPI.
    HFONT UiFont();
    HFONT HeadingFont();
    void MakeButton(Velkan::CButton& button, UINT id, const wchar_t* text, DWORD style = BS_PUSHBUTTON);
    // A multi-line, read-only edit control for a page's results.
    void MakeOutput(Velkan::CEditControl& edit, UINT id);
    void MakeEdit(Velkan::CEditControl& edit, UINT id, const wchar_t* text);
    // A row of controls at the top of the content, and an output below it
    // that takes the rest. Widths are at 96 DPI; 0 takes what the others
    // leave. inset trims a control's top and bottom (edits and bars are
    // lower than buttons).
    struct Cell {
        Velkan::CWnd* wnd;
        int width;
        int inset;
    };
    void LayoutTopRow(const Velkan::CRect& content, std::initializer_list<Cell> row, Velkan::CWnd& output);
    // One row of a layout: its height, and the gap between rows.
    int RowHeight() const { return MulDivDpi(26); }
    int Gap() const { return MulDivDpi(8); }

private:
    const wchar_t* m_title;
    const wchar_t* m_slug;
    const wchar_t* m_summary;
    Velkan::CFont m_uiFont;
    Velkan::CFont m_headingFont;
};

// The gallery's view: the list of pages on the left, the chosen page on
// the right.
class PageHost : public Velkan::CWnd {
public:
    HWND Create(Velkan::CWnd* parent) override;
    // Before Create.
    void AddPage(GalleryPage& page) { m_pages.push_back(&page); }
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    GalleryPage& GetPage(int index) const { return *m_pages[static_cast<size_t>(index)]; }
    int GetCurrentPage() const { return m_current; }
    void ShowPage(int index);

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void Layout();

    std::vector<GalleryPage*> m_pages;
    Velkan::CListBox m_list;
    Velkan::CFont m_font;
    int m_current = -1;
};
