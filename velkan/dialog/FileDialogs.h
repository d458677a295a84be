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

/// Builds the filter string of the common file dialogs: for each entry its
/// description, a NUL, its pattern, a NUL; then one more NUL. No entries
/// build an empty string (not even the final NUL).
class VELKAN_API CPathFilterBuilder {
public:
    CPathFilterBuilder() = default;  ///< No entries.
    /// One entry, with its description as text or as a string id of
    /// instance (the application's for null).
    ///@{
    CPathFilterBuilder(const wchar_t* description, const wchar_t* pattern);
    CPathFilterBuilder(UINT descriptionId, const wchar_t* pattern, HINSTANCE instance = nullptr);
    ///@}
    virtual ~CPathFilterBuilder() = default;  ///< Nothing to release.

    /// Adds an entry after the others; a missing description string
    /// throws CResourceNotFoundException.
    ///@{
    CPathFilterBuilder& Add(const wchar_t* description, const wchar_t* pattern);
    CPathFilterBuilder& Add(UINT descriptionId, const wchar_t* pattern, HINSTANCE instance = nullptr);
    ///@}
    /// Adds the entries of other, which may be this builder.
    CPathFilterBuilder& Add(const CPathFilterBuilder& other);
    /// Reads a built string back into entries; stops at an empty description
    /// or a missing pattern.
    CPathFilterBuilder& Add(const std::vector<wchar_t>& filter);
    CPathFilterBuilder& Clear();  ///< Removes every entry.
    BOOL IsEmpty() const { return m_entries.empty(); }  ///< No entries.
    size_t GetCount() const { return m_entries.size(); }  ///< The number of entries.
    std::vector<wchar_t> Build() const;  ///< The filter string, as the class notes describe it.

private:
    struct Entry {
        CString description;
        CString pattern;
    };
    std::vector<Entry> m_entries;
};

/// The OPENFILENAMEW record, zero-filled apart from its size.
class VELKAN_API COpenFileName : public OPENFILENAMEW {
public:
    COpenFileName();  ///< Zero-filled, lStructSize set.
    /// GetOpenFileName with this record.
    BOOL GetOpenFileNameW() { return ::GetOpenFileNameW(this); }
    /// GetSaveFileName with this record.
    BOOL GetSaveFileNameW() { return ::GetSaveFileNameW(this); }
};

/// What the open and save dialogs share: the record, the initial folder and
/// the filter. Cancel and failure alike make Show return FALSE.
class VELKAN_API CAbstractFileDlg {
public:
    virtual ~CAbstractFileDlg() = default;  ///< Nothing to release.
    /// Puts the filter and the initial folder into the record; every Show
    /// calls it first.
    virtual void ApplyOpenFileNameStructSettings();

    /// The filter string, as CPathFilterBuilder::Build makes it.
    void SetPathFilter(const std::vector<wchar_t>& filter) { m_pathFilter = filter; }
    /// See SetPathFilter.
    const std::vector<wchar_t>& GetPathFilter() const { return m_pathFilter; }
    /// The selected filter entry, 1-based; after Show, the filter the user
    /// picked.
    ///@{
    void SetFilterIndex(DWORD index) { m_ofn.nFilterIndex = index; }
    DWORD GetFilterIndex() const { return m_ofn.nFilterIndex; }
    ///@}
    /// The folder the dialog opens in; null or empty for the system's choice.
    void SetInitialFolder(const wchar_t* folder) { m_initialFolder = folder; }
    /// The record, for settings of one's own.
    COpenFileName& GetOpenFileNameStruct() { return m_ofn; }

protected:
    /// A dialog with a one-entry filter (its description as a string id or
    /// a text) and an initial folder; or with the initial folder only; or
    /// with nothing set.
    ///@{
    CAbstractFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* initialFolder,
                     HINSTANCE instance);
    CAbstractFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* initialFolder);
    explicit CAbstractFileDlg(const wchar_t* initialFolder);
    CAbstractFileDlg() = default;
    ///@}

    COpenFileName m_ofn;  ///< The record.
    CPathString m_initialFolder;  ///< The initial folder.
    std::vector<wchar_t> m_pathFilter;  ///< The filter string.
};

/// The open dialog, single or multiple selection.
/// The files must exist.
class VELKAN_API COpenFileDlg : public CAbstractFileDlg {
public:
    static constexpr DWORD BufferSize = 8192;  ///< Units for the selected names.

    /// The open dialog with a one-entry filter and an initial folder, with
    /// the initial folder only, or with nothing set.
    ///@{
    COpenFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* initialFolder = nullptr,
                 HINSTANCE instance = nullptr);
    COpenFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* initialFolder = nullptr);
    explicit COpenFileDlg(const wchar_t* initialFolder);
    COpenFileDlg();
    ///@}

    /// OFN_ALLOWMULTISELECT.
    void AllowMultipleSelection() { m_ofn.Flags |= OFN_ALLOWMULTISELECT; }
    /// See AllowMultipleSelection.
    BOOL IsMultipleSelectionAllowed() const { return (m_ofn.Flags & OFN_ALLOWMULTISELECT) != 0; }
    /// The name the dialog starts with.
    void SetSuggestedFileName(const wchar_t* name) { m_suggestedFileName = name; }
    /// Runs the dialog over parent (may be null).
    /// FALSE for cancel and failure; the selection then stays as it was.
    BOOL Show(CWnd* parent);
    /// The full paths of the selection, after a successful Show.
    const std::vector<CPathString>& GetSelectedFiles() const { return m_selectedFiles; }
    /// The first selected file; only after a successful Show.
    CPathString GetFileName() const { return m_selectedFiles.front(); }

private:
    CString m_suggestedFileName;
    std::vector<CPathString> m_selectedFiles;
};

/// The save dialog, with overwrite prompt.
class VELKAN_API CSaveFileDlg : public CAbstractFileDlg {
public:
    /// The save dialog with a one-entry filter, the extension added to names
    /// without one, and an initial folder.
    ///@{
    CSaveFileDlg(UINT filterDescriptionId, const wchar_t* pattern, const wchar_t* defaultExtension,
                 const wchar_t* initialFolder = nullptr, HINSTANCE instance = nullptr);
    CSaveFileDlg(const wchar_t* description, const wchar_t* pattern, const wchar_t* defaultExtension,
                 const wchar_t* initialFolder = nullptr);
    ///@}
    /// The default extension and the initial folder.
    CSaveFileDlg(const wchar_t* defaultExtension, const wchar_t* initialFolder);
    CSaveFileDlg();  ///< Nothing set.

    /// The name the dialog starts with.
    void SetSuggestedFileName(const wchar_t* name) { m_fileName = name; }
    /// Runs the dialog over parent (may be null); FALSE for cancel and
    /// failure.
    BOOL Show(CWnd* parent);
    /// The chosen path after a successful Show.
    const CString& GetFileName() const { return m_fileName; }

private:
    CString m_fileName;
    CString m_defaultExtension;
};

/// A folder picker over the shell's file-open dialog in folder mode. Cancel
/// is FALSE; failures throw CHResultException.
class VELKAN_API CBrowseFolderDlg {
public:
    /// Creates the shell dialog, titled with the instance's string
    /// VELKAN_IDS_APP_TITLE; throws CHResultException when it cannot be
    /// created.
    explicit CBrowseFolderDlg(HINSTANCE instance = nullptr);
    /// Not copyable.
    ///@{
    CBrowseFolderDlg(const CBrowseFolderDlg&) = delete;
    CBrowseFolderDlg& operator=(const CBrowseFolderDlg&) = delete;
    ///@}
    virtual ~CBrowseFolderDlg();  ///< Releases the shell dialog.

    /// The title, as a string id of the instance or a text.
    ///@{
    CBrowseFolderDlg& WithTitle(UINT id);
    CBrowseFolderDlg& WithTitle(const wchar_t* title);
    ///@}
    /// The folder the dialog opens in.
    /// A path that cannot be parsed is ignored.
    CBrowseFolderDlg& WithInitialFolder(const wchar_t* path);
    BOOL Show(CWnd& parent);  ///< Runs the dialog; FALSE for cancel.
    /// The chosen folder after a successful Show; throws otherwise.
    CPathString GetSelectedFolder() const;
    /// The shell dialog, for settings of one's own.
    IFileOpenDialog* GetDialog() const { return m_dialog; }

private:
    HINSTANCE m_instance;
    IFileOpenDialog* m_dialog = nullptr;
};

}  // namespace Velkan
