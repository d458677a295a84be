#pragma once

#include <windows.h>
#include <commdlg.h>
#include <shobjidl.h>

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/PathString.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWnd;

// Builds the filter string of the common file dialogs: for each entry its
// description, a NUL, its pattern, a NUL; then one more NUL. No entries
// build an empty string (not even the final NUL).
class VELKAN_API CPathFilterBuilder {
public:
    CPathFilterBuilder() = default;
    CPathFilterBuilder(const wchar_t* description, const wchar_t* pattern);
    CPathFilterBuilder(UINT descriptionId, const wchar_t* pattern, HINSTANCE instance = nullptr);
    virtual ~CPathFilterBuilder() = default;

    CPathFilterBuilder& Add(const wchar_t* description, const wchar_t* pattern);
    CPathFilterBuilder& Add(UINT descriptionId, const wchar_t* pattern, HINSTANCE instance = nullptr);
    CPathFilterBuilder& Add(const CPathFilterBuilder& other);
    // Reads a built string back into entries; stops at an empty description
    // or a missing pattern.
    CPathFilterBuilder& Add(const std::vector<wchar_t>& filter);
    CPathFilterBuilder& Clear();
    BOOL IsEmpty() const { return m_entries.empty(); }
    size_t GetCount() const { return m_entries.size(); }
    std::vector<wchar_t> Build() const;

private:
    struct Entry {
        CString description;
        CString pattern;
    };
    std::vector<Entry> m_entries;
};

// The OPENFILENAMEW record, zero-filled apart from its size.
class VELKAN_API COpenFileName : public OPENFILENAMEW {
public:
    COpenFileName();
    BOOL GetOpenFileNameW() { return ::GetOpenFileNameW(this); }
    BOOL GetSaveFileNameW() { return ::GetSaveFileNameW(this); }
};

// What the open and save dialogs share: the record, the initial folder and
// the filter. Cancel and failure alike make Show return FALSE.
class VELKAN_API CAbstractFileDlg {
public:
    virtual ~CAbstractFileDlg() = default;
    // Puts the filter and the initial folder into the record; every Show
    // calls it first.
    virtual void ApplyOpenFileNameStructSettings();

    void SetPathFilter(const std::vector<wchar_t>& filter) { m_pathFilter = filter; }
    const std::vector<wchar_t>& GetPathFilter() const { return m_pathFilter; }
    // 1-based; after Show, the filter the user picked.
    void SetFilterIndex(DWORD index) { m_ofn.nFilterIndex = index; }
    DWORD GetFilterIndex() const { return m_ofn.nFilterIndex; }
    void SetInitialFolder(const wchar_t* folder) { m_initialFolder = folder; }
    COpenFileName& GetOpenFileNameStruct() { return m_ofn; }

protected:
    CAbstractFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* initialFolder,
                     HINSTANCE instance);
    CAbstractFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* initialFolder);
    explicit CAbstractFileDlg(const wchar_t* initialFolder);
    CAbstractFileDlg() = default;

    COpenFileName m_ofn;
    CPathString m_initialFolder;
    std::vector<wchar_t> m_pathFilter;
};

// The open dialog, single or multiple selection.
class VELKAN_API COpenFileDlg : public CAbstractFileDlg {
public:
    static constexpr DWORD BufferSize = 8192;

    COpenFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* initialFolder = nullptr,
                 HINSTANCE instance = nullptr);
    COpenFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* initialFolder = nullptr);
    explicit COpenFileDlg(const wchar_t* initialFolder);
    COpenFileDlg();

    void AllowMultipleSelection() { m_ofn.Flags |= OFN_ALLOWMULTISELECT; }
    BOOL IsMultipleSelectionAllowed() const { return (m_ofn.Flags & OFN_ALLOWMULTISELECT) != 0; }
    void SetSuggestedFileName(const wchar_t* name) { m_suggestedFileName = name; }
    // FALSE for cancel and failure; the selection then stays as it was.
    BOOL Show(CWnd* parent);
    const std::vector<CPathString>& GetSelectedFiles() const { return m_selectedFiles; }
    // The first selected file; only after a successful Show.
    CPathString GetFileName() const { return m_selectedFiles.front(); }

private:
    CString m_suggestedFileName;
    std::vector<CPathString> m_selectedFiles;
};

// The save dialog, with overwrite prompt.
class VELKAN_API CSaveFileDlg : public CAbstractFileDlg {
public:
    CSaveFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* defaultExtension,
                 const wchar_t* initialFolder = nullptr, HINSTANCE instance = nullptr);
    CSaveFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* defaultExtension,
                 const wchar_t* initialFolder = nullptr);
    // The default extension and the initial folder.
    CSaveFileDlg(const wchar_t* defaultExtension, const wchar_t* initialFolder);
    CSaveFileDlg();

    void SetSuggestedFileName(const wchar_t* name) { m_fileName = name; }
    BOOL Show(CWnd* parent);
    // The chosen path after a successful Show.
    const CString& GetFileName() const { return m_fileName; }

private:
    CString m_fileName;
    CString m_defaultExtension;
};

// A folder picker over the shell's file-open dialog in folder mode. Cancel
// is FALSE; failures throw CHResultException.
class VELKAN_API CBrowseFolderDlg {
public:
    explicit CBrowseFolderDlg(HINSTANCE instance = nullptr);
    CBrowseFolderDlg(const CBrowseFolderDlg&) = delete;
    CBrowseFolderDlg& operator=(const CBrowseFolderDlg&) = delete;
    virtual ~CBrowseFolderDlg();

    CBrowseFolderDlg& WithTitle(UINT id);
    CBrowseFolderDlg& WithTitle(const wchar_t* title);
    // A path that cannot be parsed is ignored.
    CBrowseFolderDlg& WithInitialFolder(const wchar_t* path);
    BOOL Show(CWnd& parent);
    CPathString GetSelectedFolder() const;
    IFileOpenDialog* GetDialog() const { return m_dialog; }

private:
    HINSTANCE m_instance;
    IFileOpenDialog* m_dialog = nullptr;
};

}  // namespace Velkan
