#pragma once

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/PathString.h"
#include "velkan/core/String.h"

namespace Velkan {

class CMenu;

/// The most recently used files, most recent first, kept in a section of
/// the application's registry settings and shown as numbered menu items.
/// Used slots come first; empty slots are null.
class VELKAN_API CRecentFileList {
public:
    /// An empty list of capacity slots kept in section, whose menu items
    /// show paths abbreviated to maxDisplayLength. valueFormat takes the
    /// 1-based slot number (`File%d`).
    CRecentFileList(const wchar_t* section, const wchar_t* valueFormat, int capacity, UINT maxDisplayLength);
    /// Copies are independent lists.
    ///@{
    CRecentFileList(const CRecentFileList&) = default;
    CRecentFileList& operator=(const CRecentFileList&) = default;
    ///@}
    virtual ~CRecentFileList();  ///< Does not save.

    int GetCapacity() const { return static_cast<int>(m_slots.size()); }  ///< The number of slots.
    /// The number of used slots at the front.
    int GetCount() const;
    /// The path in slot index (null when empty). No range check.
    CPathString GetFilePath(int index) const { return CPathString(m_slots[static_cast<size_t>(index)]); }

    /// Puts a path at the front; an equal path (ignoring case) moves up, else
    /// the oldest is dropped.
    void Add(const wchar_t* path);
    void Clear();  ///< Empties every slot.
    void Remove(int index);  ///< Removes a slot; the later ones move up.
    /// Removes the first equal path (ignoring case) among the used slots.
    void Remove(const wchar_t* path);
    /// Drops paths that are not files; TRUE when any was dropped.
    int RemoveNonexistantFiles();

    /// Reads the list from the registry. Stops at the first value that
    /// cannot be read.
    void Load();
    /// Writes the list to the registry. Replaces the section; stops at the
    /// first empty slot.
    void Save() const;
    /// Shows the list as the items firstId, firstId + 1, ... labelled
    /// `&1 path` ... `&0 path`; an empty list shows the item's first text,
    /// disabled.
    void UpdateMenu(CMenu& menu, UINT firstId);

private:
    UINT m_maxDisplayLength;
    CString m_section;
    CString m_valueFormat;
    CString m_placeholder;
    std::vector<CString> m_slots;
};

}  // namespace Velkan
