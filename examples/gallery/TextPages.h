#pragma once

#include "GalleryPage.h"

// Strings and paths: what CString and CPathString make of a path the user
// types, updated as it changes.
class StringsPage : public GalleryPage {
public:
    StringsPage();

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    void Layout(const Velkan::CRect& content) override;

private:
    void Update();

    Velkan::CEditControl m_input;
    Velkan::CEditControl m_output;
};

// Files and MD5: the size and digest of a file the user picks (the
// gallery's own program to begin with).
class FilesPage : public GalleryPage {
public:
    FilesPage();
    void PrepareForTour() override;
    // Shows the file's size and digest.
    void Hash(const wchar_t* path);

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    void Layout(const Velkan::CRect& content) override;

private:
    Velkan::CButton m_pick;
    Velkan::CEditControl m_output;
};

// The clipboard: text put on it and read back through CWindowsClipboard.
class ClipboardPage : public GalleryPage {
public:
    ClipboardPage();
    void PrepareForTour() override;

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    void Layout(const Velkan::CRect& content) override;

private:
    void Copy();
    void Paste();

    Velkan::CEditControl m_text;
    Velkan::CButton m_copy;
    Velkan::CButton m_paste;
    Velkan::CEditControl m_output;
};
