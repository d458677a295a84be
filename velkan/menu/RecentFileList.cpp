#include "velkan/menu/RecentFileList.h"

#include "velkan/app/App.h"
#include "velkan/core/File.h"
#include "velkan/menu/Menu.h"

namespace Velkan {

namespace {

bool Used(const CString& slot) {
    return !slot.IsNull() && !slot.IsEmpty();
}

CString ValueName(const CString& format, int slot) {
    return CString::FormatS(format, slot);
}

// Ampersands in a path are shown, not taken as mnemonics.
CString DoubleAmpersands(const wchar_t* text) {
    CString doubled(L"");
    for (const wchar_t* p = text; p != nullptr && *p != L'\0'; ++p) {
        if (*p == L'&') doubled.Append(L'&');
        doubled.Append(*p);
    }
    return doubled;
}

}  // namespace

CRecentFileList::CRecentFileList(const wchar_t* section, const wchar_t* valueFormat, int capacity,
                                 UINT maxDisplayLength)
    : m_maxDisplayLength(maxDisplayLength), m_section(section), m_valueFormat(valueFormat),
      m_slots(static_cast<size_t>(capacity > 0 ? capacity : 0)) {}

CRecentFileList::~CRecentFileList() = default;

int CRecentFileList::GetCount() const {
    int count = 0;
    while (count < GetCapacity() && Used(m_slots[static_cast<size_t>(count)])) ++count;
    return count;
}

void CRecentFileList::Add(const wchar_t* path) {
    const int capacity = GetCapacity();
    if (capacity == 0) return;
    int k = capacity - 1;
    for (int i = 0; i < capacity - 1; ++i) {
        if (!m_slots[static_cast<size_t>(i)].IsNull() && m_slots[static_cast<size_t>(i)].EqualsIgnoreCase(path)) {
            k = i;
            break;
        }
    }
    for (int j = k; j >= 1; --j) m_slots[static_cast<size_t>(j)] = m_slots[static_cast<size_t>(j - 1)];
    m_slots[0] = path;
}

void CRecentFileList::Clear() {
    for (CString& slot : m_slots) slot.SetNull();
}

void CRecentFileList::Remove(int index) {
    const int capacity = GetCapacity();
    if (index < 0 || index >= capacity) return;
    for (int i = index; i < capacity - 1; ++i) m_slots[static_cast<size_t>(i)] = m_slots[static_cast<size_t>(i + 1)];
    m_slots[static_cast<size_t>(capacity - 1)].SetNull();
}

void CRecentFileList::Remove(const wchar_t* path) {
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        if (m_slots[static_cast<size_t>(i)].EqualsIgnoreCase(path)) {
            Remove(i);
            return;
        }
    }
}

int CRecentFileList::RemoveNonexistantFiles() {
    bool removed = false;
    for (int i = 0; i < GetCapacity();) {
        const CString& slot = m_slots[static_cast<size_t>(i)];
        if (Used(slot) && !CFile::Exists(slot)) {
            Remove(i);
            removed = true;
            continue;  // the next path moved into this slot
        }
        ++i;
    }
    return removed ? 1 : 0;
}

void CRecentFileList::Load() {
    Clear();
    if (theAppPtr == nullptr) return;
    for (int n = 1; n <= GetCapacity(); ++n) {
        CString value;
        if (theAppPtr->RegQueryString(m_section, ValueName(m_valueFormat, n), value, 2048) == 0) break;
        m_slots[static_cast<size_t>(n - 1)] = value;
    }
}

void CRecentFileList::Save() const {
    if (theAppPtr == nullptr) return;
    theAppPtr->RegDeleteSection(m_section);
    for (int n = 1; n <= GetCapacity(); ++n) {
        const CString& slot = m_slots[static_cast<size_t>(n - 1)];
        if (!Used(slot)) break;
        theAppPtr->RegWriteString(m_section, ValueName(m_valueFormat, n), slot);
    }
}

void CRecentFileList::UpdateMenu(CMenu& menu, UINT firstId) {
    if (m_placeholder.IsNull() || m_placeholder.IsEmpty()) m_placeholder = menu.GetMenuStringW(firstId, MF_BYCOMMAND);
    const int count = GetCount();
    if (count == 0) {
        // Kept: items after the first stay; only the first shows the
        // placeholder, disabled.
        menu.ModifyMenuW(firstId, MF_BYCOMMAND | MF_STRING, firstId, m_placeholder);
        menu.EnableMenuItem(firstId, MF_BYCOMMAND | MF_GRAYED);
        return;
    }
    const int items = menu.GetMenuItemCount();
    int position = items;
    for (int i = 0; i < items; ++i) {
        if (menu.GetMenuItemID(i) == firstId) {
            position = i;
            break;
        }
    }
    for (int i = 0; i < GetCapacity(); ++i) menu.DeleteMenu(firstId + static_cast<UINT>(i), MF_BYCOMMAND);
    for (int i = 0; i < count; ++i) {
        const CPathString path(m_slots[static_cast<size_t>(i)]);
        const CPathString shown = path.AbbreviatePath(static_cast<int>(m_maxDisplayLength));
        const CString label = CString::FormatS(L"&%d %s", (i + 1) % 10,
                                               static_cast<const wchar_t*>(DoubleAmpersands(shown)));
        menu.InsertMenuW(static_cast<UINT>(position + i), MF_BYPOSITION | MF_STRING, firstId + static_cast<UINT>(i),
                         label);
    }
}

}  // namespace Velkan
