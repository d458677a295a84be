#include "velkan/dialog/FileDialogs.h"
#include "velkan/app/ResourceIds.h"

#include <shlobj.h>

#include <cstring>

#include "velkan/app/Wnd.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"

namespace Velkan {

VELKAN_X86_SIZE(OPENFILENAMEW, 88);

namespace {

constexpr DWORD kOpenFlags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
constexpr DWORD kSaveFlags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
constexpr HRESULT kCancelled = static_cast<HRESULT>(0x800704C7);

HWND OwnerOf(CWnd* parent) {
    return parent != nullptr ? parent->GetHwnd() : nullptr;
}

}  // namespace

// ---------------------------------------------------------------------------
// Filters

CPathFilterBuilder::CPathFilterBuilder(const wchar_t* description, const wchar_t* pattern) {
    Add(description, pattern);
}

CPathFilterBuilder::CPathFilterBuilder(UINT descriptionId, const wchar_t* pattern, HINSTANCE instance) {
    Add(descriptionId, pattern, instance);
}

CPathFilterBuilder& CPathFilterBuilder::Add(const wchar_t* description, const wchar_t* pattern) {
    m_entries.push_back(Entry{CString(description), CString(pattern)});
    return *this;
}

CPathFilterBuilder& CPathFilterBuilder::Add(UINT descriptionId, const wchar_t* pattern, HINSTANCE instance) {
    return Add(CResourceString(descriptionId, instance), pattern);
}

CPathFilterBuilder& CPathFilterBuilder::Add(const CPathFilterBuilder& other) {
    // A copy first: other may be this builder.
    const std::vector<Entry> entries = other.m_entries;
    m_entries.insert(m_entries.end(), entries.begin(), entries.end());
    return *this;
}

CPathFilterBuilder& CPathFilterBuilder::Add(const std::vector<wchar_t>& filter) {
    const size_t size = filter.size();
    size_t at = 0;
    // One NUL-terminated text from at, within the vector; false when the
    // vector ends before the NUL.
    auto read = [&](CString& text) {
        const size_t start = at;
        while (at < size && filter[at] != L'\0') ++at;
        if (at >= size) return false;
        text = CString(filter.data() + start, static_cast<int>(at - start));
        ++at;
        return true;
    };
    while (at < size) {
        CString description, pattern;
        if (!read(description) || description.IsEmpty()) break;
        if (!read(pattern) || pattern.IsEmpty()) break;
        m_entries.push_back(Entry{description, pattern});
    }
    return *this;
}

CPathFilterBuilder& CPathFilterBuilder::Clear() {
    m_entries.clear();
    return *this;
}

std::vector<wchar_t> CPathFilterBuilder::Build() const {
    std::vector<wchar_t> filter;
    if (m_entries.empty()) return filter;
    size_t size = 1;
    for (const Entry& e : m_entries)
        size += static_cast<size_t>(e.description.GetLength()) + static_cast<size_t>(e.pattern.GetLength()) + 2;
    filter.reserve(size);
    for (const Entry& e : m_entries) {
        const wchar_t* d = e.description.GetString();
        const wchar_t* p = e.pattern.GetString();
        if (d != nullptr) filter.insert(filter.end(), d, d + e.description.GetLength());
        filter.push_back(L'\0');
        if (p != nullptr) filter.insert(filter.end(), p, p + e.pattern.GetLength());
        filter.push_back(L'\0');
    }
    filter.push_back(L'\0');
    return filter;
}

// ---------------------------------------------------------------------------
// The file dialogs

COpenFileName::COpenFileName() : OPENFILENAMEW() {
    lStructSize = sizeof(OPENFILENAMEW);
}

CAbstractFileDlg::CAbstractFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* initialFolder,
                                   HINSTANCE instance)
    : m_pathFilter(CPathFilterBuilder(filterDescriptionId, pattern, CResourceLoader::ResolveInstance(instance)).Build()) {
    if (initialFolder != nullptr) m_initialFolder = initialFolder;
}

CAbstractFileDlg::CAbstractFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* initialFolder)
    : m_pathFilter(CPathFilterBuilder(description, pattern).Build()) {
    if (initialFolder != nullptr) m_initialFolder = initialFolder;
}

CAbstractFileDlg::CAbstractFileDlg(const wchar_t* initialFolder) {
    if (initialFolder != nullptr) m_initialFolder = initialFolder;
}

void CAbstractFileDlg::ApplyOpenFileNameStructSettings() {
    m_ofn.lpstrFilter = m_pathFilter.empty() ? nullptr : m_pathFilter.data();
    m_ofn.lpstrInitialDir = m_initialFolder.IsNullOrEmpty() ? nullptr : m_initialFolder.GetString();
}

COpenFileDlg::COpenFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* initialFolder,
                           HINSTANCE instance)
    : CAbstractFileDlg(filterDescriptionId, pattern, initialFolder, instance) {
    m_ofn.Flags = kOpenFlags;
}

COpenFileDlg::COpenFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* initialFolder)
    : CAbstractFileDlg(description, pattern, initialFolder) {
    m_ofn.Flags = kOpenFlags;
}

COpenFileDlg::COpenFileDlg(const wchar_t* initialFolder) : CAbstractFileDlg(initialFolder) {
    m_ofn.Flags = kOpenFlags;
}

COpenFileDlg::COpenFileDlg() {
    m_ofn.Flags = kOpenFlags;
}

BOOL COpenFileDlg::Show(CWnd* parent) {
    ApplyOpenFileNameStructSettings();
    std::vector<wchar_t> buffer(BufferSize, L'\0');
    if (!m_suggestedFileName.IsNullOrEmpty())
        ::lstrcpynW(buffer.data(), m_suggestedFileName.GetString(), static_cast<int>(BufferSize));
    m_ofn.hwndOwner = OwnerOf(parent);
    m_ofn.lpstrFile = buffer.data();
    m_ofn.nMaxFile = BufferSize;
    const BOOL chosen = m_ofn.GetOpenFileNameW();
    m_ofn.lpstrFile = nullptr;
    if (!chosen) return FALSE;

    m_selectedFiles.clear();
    if (IsMultipleSelectionAllowed()) {
        // The folder, then the names one after the other, each ended by a
        // NUL, the last by two; one file comes as a whole path instead.
        const size_t offset = m_ofn.nFileOffset;
        const CPathString folder(CString(buffer.data(), static_cast<int>(offset)));
        for (size_t at = offset; at < buffer.size() && buffer[at] != L'\0';) {
            const wchar_t* name = buffer.data() + at;
            const size_t length = std::wcslen(name);
            CPathString path(folder);
            path.AppendPath(name);
            m_selectedFiles.push_back(path);
            at += length + 1;
        }
    } else {
        m_selectedFiles.push_back(CPathString(buffer.data()));
    }
    return TRUE;
}

CSaveFileDlg::CSaveFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* defaultExtension,
                           const wchar_t* initialFolder, HINSTANCE instance)
    : CAbstractFileDlg(filterDescriptionId, pattern, initialFolder, instance), m_defaultExtension(defaultExtension) {
    m_ofn.Flags = kSaveFlags;
}

CSaveFileDlg::CSaveFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* defaultExtension,
                           const wchar_t* initialFolder)
    : CAbstractFileDlg(description, pattern, initialFolder), m_defaultExtension(defaultExtension) {
    m_ofn.Flags = kSaveFlags;
}

CSaveFileDlg::CSaveFileDlg(const wchar_t* defaultExtension, const wchar_t* initialFolder)
    : CAbstractFileDlg(initialFolder), m_defaultExtension(defaultExtension) {
    m_ofn.Flags = kSaveFlags;
}

CSaveFileDlg::CSaveFileDlg() {
    m_ofn.Flags = kSaveFlags;
}

BOOL CSaveFileDlg::Show(CWnd* parent) {
    ApplyOpenFileNameStructSettings();
    if (m_fileName.IsNull()) m_fileName = L"";
    // Locked at MAX_PATH: the current text is the suggested name.
    wchar_t* buffer = m_fileName.LockBuffer(MAX_PATH);
    if (buffer == nullptr) return FALSE;
    m_ofn.lpstrFile = buffer;
    m_ofn.nMaxFile = MAX_PATH;
    m_ofn.hwndOwner = OwnerOf(parent);
    m_ofn.lpstrDefExt = m_defaultExtension.GetString();
    const BOOL chosen = m_ofn.GetSaveFileNameW();
    m_ofn.lpstrFile = nullptr;
    m_fileName.UnlockBuffer();
    return chosen;
}

// ---------------------------------------------------------------------------
// The folder picker

CBrowseFolderDlg::CBrowseFolderDlg(HINSTANCE instance) : m_instance(CResourceLoader::ResolveInstance(instance)) {
    const HRESULT hr = ::CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                                          reinterpret_cast<void**>(&m_dialog));
    if (FAILED(hr)) throw CHResultException(hr, "Failed to create CLSID_FileOpenDialog instance.");
    FILEOPENDIALOGOPTIONS options = 0;
    m_dialog->GetOptions(&options);
    m_dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM);
    m_dialog->SetTitle(CResourceString(VELKAN_IDS_APP_TITLE, m_instance));
}

CBrowseFolderDlg::~CBrowseFolderDlg() {
    if (m_dialog != nullptr) m_dialog->Release();
}

CBrowseFolderDlg& CBrowseFolderDlg::WithTitle(UINT id) {
    return WithTitle(CResourceString(id, m_instance));
}

CBrowseFolderDlg& CBrowseFolderDlg::WithTitle(const wchar_t* title) {
    m_dialog->SetTitle(title);
    return *this;
}

CBrowseFolderDlg& CBrowseFolderDlg::WithInitialFolder(const wchar_t* path) {
    IShellItem* item = nullptr;
    if (path != nullptr &&
        SUCCEEDED(::SHCreateItemFromParsingName(path, nullptr, IID_IShellItem, reinterpret_cast<void**>(&item)))) {
        m_dialog->SetFolder(item);
        item->Release();
    }
    return *this;
}

BOOL CBrowseFolderDlg::Show(CWnd& parent) {
    const HRESULT hr = m_dialog->Show(parent.GetHwnd());
    if (SUCCEEDED(hr)) return TRUE;
    if (hr == kCancelled) return FALSE;
    throw CHResultException(hr, "browse_folder_failed");
}

CPathString CBrowseFolderDlg::GetSelectedFolder() const {
    IShellItem* item = nullptr;
    HRESULT hr = m_dialog->GetResult(&item);
    if (FAILED(hr)) throw CHResultException(hr, "get_selected_folder_failed");
    wchar_t* name = nullptr;
    hr = item->GetDisplayName(SIGDN_FILESYSPATH, &name);
    item->Release();
    if (FAILED(hr)) throw CHResultException(hr, "get_selected_folder_failed");
    CPathString folder(name);
    ::CoTaskMemFree(name);
    return folder;
}

}  // namespace Velkan
