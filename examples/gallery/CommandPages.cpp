#include "CommandPages.h"

#include "resource.h"

using namespace Velkan;

void CommandPage::OnCreate() {
    for (const Entry& entry : m_entries) {
        m_buttons.push_back(std::make_unique<CButton>());
        MakeButton(*m_buttons.back(), entry.command, entry.label, entry.style);
    }
}

void CommandPage::CheckChoice(UINT command) {
    for (size_t i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].style == BS_AUTORADIOBUTTON)
            m_buttons[i]->SetCheck(m_entries[i].command == command ? BST_CHECKED : BST_UNCHECKED);
    }
}

void CommandPage::Layout(const CRect& content) {
    int y = content.top;
    for (auto& button : m_buttons) {
        button->SetWindowPos(ZOrderTop, content.left, y, ButtonWidth(), RowHeight(), SWP_NOZORDER);
        y += RowHeight() + Gap();
    }
}

void CommandPage::PaintContent(CDC& dc, const CRect& content) {
    int y = content.top;
    for (const Entry& entry : m_entries) {
        CRect line(content.left + ButtonWidth() + 2 * Gap(), y, content.right, y + RowHeight());
        ::DrawTextW(dc, entry.about, -1, &line, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
        y += RowHeight() + Gap();
    }
}

CommandPage* MakeMenusPage() {
    return new CommandPage(
        L"Menus", L"menus", L"Owner-drawn menus with command images, in three looks switched at run time.",
        {{ID_LOOK_CLASSIC, L"&Classic", L"Flat colours from the system, as before visual styles.", BS_AUTORADIOBUTTON},
         {ID_LOOK_THEMED, L"&Themed", L"The classic drawing in the colours of the active theme.", BS_AUTORADIOBUTTON},
         {ID_LOOK_VISUAL, L"&Visual style", L"The visual style's own menu parts, where styles are on.",
          BS_AUTORADIOBUTTON},
         {ID_VIEW_POPUP, L"Show a &pop-up menu", L"The View menu as a context menu, in the chosen look.",
          BS_PUSHBUTTON}});
}

CommandPage* MakeDialogsPage() {
    return new CommandPage(
        L"Dialogs", L"dialogs", L"Template and task dialogs, message boxes, sheets, wizards and pickers.",
        {{ID_HELP_ABOUT, L"&Template dialog", L"CDialog from a dialog template: the About box.", BS_PUSHBUTTON},
         {ID_DIALOG_TASK, L"Tas&k dialog", L"CTaskDialog with a progress bar fed by its timer.", BS_PUSHBUTTON},
         {ID_DIALOG_SHOWIF, L"S&how-if dialog", L"CShowIfDlg: untick its box and it stays away.", BS_PUSHBUTTON},
         {ID_DIALOG_MESSAGE, L"&Message box", L"CMessageBox with a formatted text.", BS_PUSHBUTTON},
         {ID_DIALOG_SHEET, L"&Property sheet", L"CPropertySheet with two pages.", BS_PUSHBUTTON},
         {ID_DIALOG_WIZARD, L"&Wizard", L"CWizardSheet with a watermark and a header page.", BS_PUSHBUTTON},
         {ID_DIALOG_OPEN, L"&Open files", L"COpenFileDlg with filters and several files.", BS_PUSHBUTTON},
         {ID_DIALOG_SAVE, L"&Save as", L"CSaveFileDlg with a suggested name.", BS_PUSHBUTTON},
         {ID_DIALOG_FOLDER, L"Pick a &folder", L"CBrowseFolderDlg.", BS_PUSHBUTTON}});
}
