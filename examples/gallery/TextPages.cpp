#include "TextPages.h"

#include "resource.h"

using namespace Velkan;

namespace {

// A label and a value, one line of a page's output.
void AddLine(CString& text, const wchar_t* label, const wchar_t* value) {
    text.AppendFormat(L"%s: %s\r\n", label, value != nullptr ? value : L"(null)");
}

}  // namespace

StringsPage::StringsPage()
    : GalleryPage(L"Strings and paths", L"strings",
                  L"CString formatting and splitting, and the parts of a path as CPathString sees them.") {}

void StringsPage::OnCreate() {
    MakeEdit(m_input, IDC_PAGE_INPUT, L"C:\\Users\\Public\\Documents\\Velkan\\reports\\2026\\summary.final.txt");
    MakeOutput(m_output, IDC_PAGE_OUTPUT);
    Update();
}

void StringsPage::Update() {
    const CPathString path(m_input.GetWindowTextW());
    CString text(L"");
    AddLine(text, L"Volume", path.GetVolume());
    AddLine(text, L"Directory", path.GetPath());
    AddLine(text, L"File name", path.GetFileName());
    AddLine(text, L"Extension", path.GetFileExtension());
    AddLine(text, L"Name without extension", path.GetFileNameWithoutExtension());
    AddLine(text, L"Abbreviated to 32", path.AbbreviatePath(32));
    text += L"\r\nSplit at separators:\r\n";
    int index = 0;
    for (const CString& part : path.Split(L'\\', true)) text.AppendFormat(L"  [%d] %s\r\n", index++, part.GetString());
    text += L"\r\nChopped one part at a time:\r\n";
    for (CPathString chopped = path; !chopped.IsNullOrEmpty(); chopped.ChopLastPathPart())
        text.AppendFormat(L"  %s\r\n", chopped.GetString());
    CString formatted;
    formatted.Format(L"%d parts, %.1f units each on average, upper case: %s", index,
                     index != 0 ? static_cast<double>(path.GetLength()) / index : 0.0,
                     path.GetFileName().ToUpper().GetString());
    text += L"\r\n";
    AddLine(text, L"Formatted", formatted);
    m_output.SetWindowTextW(text);
}

BOOL StringsPage::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) == IDC_PAGE_INPUT && HIWORD(wParam) == EN_CHANGE) {
        Update();
        return TRUE;
    }
    return GalleryPage::OnCommand(wParam, lParam);
}

void StringsPage::Layout(const CRect& content) {
    LayoutTopRow(content, {{&m_input, 0, 2}}, m_output);
}

FilesPage::FilesPage()
    : GalleryPage(L"Files and MD5", L"files", L"A file's size and MD5 digest, read through CFile and CMd5.") {}

void FilesPage::OnCreate() {
    MakeButton(m_pick, IDC_PAGE_ACTION, L"&Hash a file...");
    MakeOutput(m_output, IDC_PAGE_OUTPUT);
    m_output.SetWindowTextW(L"Pick a file to see its size and MD5 digest.");
}

void FilesPage::PrepareForTour() {
    wchar_t self[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, self, MAX_PATH);
    Hash(self);
}

void FilesPage::Hash(const wchar_t* path) {
    CString text(L"");
    AddLine(text, L"File", path);
    if (!CFile::Exists(path)) {
        AddLine(text, L"Result", L"the file does not exist");
    } else {
        CString size;
        size.Format(L"%lu bytes", CFile::GetSize(path));
        AddLine(text, L"Size", size);
        AddLine(text, L"MD5", CFile::Md5Hash(path));
        AddLine(text, L"MD5 of its name", CMd5(CPathString(path).GetFileName()).HexDigest());
    }
    m_output.SetWindowTextW(text);
}

BOOL FilesPage::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) != IDC_PAGE_ACTION) return GalleryPage::OnCommand(wParam, lParam);
    COpenFileDlg open(L"All files", L"*.*");
    if (open.Show(this)) Hash(open.GetFileName());
    return TRUE;
}

void FilesPage::Layout(const CRect& content) {
    LayoutTopRow(content, {{&m_pick, 140, 0}}, m_output);
}

ClipboardPage::ClipboardPage()
    : GalleryPage(L"Clipboard", L"clipboard", L"Text put on the clipboard and read back with CWindowsClipboard.") {}

void ClipboardPage::OnCreate() {
    MakeEdit(m_text, IDC_PAGE_INPUT, L"Copied from the Velkan Gallery");
    MakeButton(m_copy, IDC_PAGE_ACTION, L"&Copy");
    MakeButton(m_paste, IDC_PAGE_ACTION2, L"&Paste");
    MakeOutput(m_output, IDC_PAGE_OUTPUT);
}

void ClipboardPage::PrepareForTour() {
    Copy();
    Paste();
}

void ClipboardPage::Copy() {
    CWindowsClipboard clipboard(*this, TRUE);
    const BOOL placed = clipboard.SetClipboardString(m_text.GetWindowTextW());
    m_output.SetWindowTextW(placed ? L"Copied.\r\n" : L"The clipboard could not be opened.\r\n");
}

void ClipboardPage::Paste() {
    CWindowsClipboard clipboard(*this, FALSE);
    CString text;
    text.Format(L"Text available: %s\r\nUnicode text available: %s\r\n",
                CWindowsClipboard::IsClipboardFormatAvailable(CF_TEXT) ? L"yes" : L"no",
                CWindowsClipboard::IsClipboardFormatAvailable(CF_UNICODETEXT) ? L"yes" : L"no");
    AddLine(text, L"Read back", clipboard.GetClipboardText());
    m_output.AppendText(text);
}

BOOL ClipboardPage::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) == IDC_PAGE_ACTION) {
        Copy();
        return TRUE;
    }
    if (LOWORD(wParam) == IDC_PAGE_ACTION2) {
        Paste();
        return TRUE;
    }
    return GalleryPage::OnCommand(wParam, lParam);
}

void ClipboardPage::Layout(const CRect& content) {
    LayoutTopRow(content, {{&m_text, 0, 2}, {&m_copy, 90, 0}, {&m_paste, 90, 0}}, m_output);
}
