#pragma once

#include <memory>
#include <vector>

#include "GalleryPage.h"

// A page of buttons that run the frame's commands, each with a line about
// what it shows.
class CommandPage : public GalleryPage {
public:
    struct Entry {
        UINT command;
        const wchar_t* label;
        const wchar_t* about;
        DWORD style;  // BS_PUSHBUTTON, or BS_AUTORADIOBUTTON for a choice
    };

    CommandPage(const wchar_t* title, const wchar_t* slug, const wchar_t* summary, std::vector<Entry> entries)
        : GalleryPage(title, slug, summary), m_entries(std::move(entries)) {}
    // Ticks the choice with this command.
    void CheckChoice(UINT command);

protected:
    void OnCreate() override;
    void Layout(const Velkan::CRect& content) override;
    void PaintContent(Velkan::CDC& dc, const Velkan::CRect& content) override;

private:
    int ButtonWidth() const { return MulDivDpi(170); }

    std::vector<Entry> m_entries;
    std::vector<std::unique_ptr<Velkan::CButton>> m_buttons;
};

// The three menu looks, chosen here or from the View menu, and a pop-up
// menu drawn in the chosen look.
CommandPage* MakeMenusPage();
// Every kind of dialog the library makes.
CommandPage* MakeDialogsPage();
