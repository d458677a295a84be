#pragma once

#include <windows.h>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// The bytes of one resource, as mapped by the module (no copy, no release).
class VELKAN_API CResourceData {
public:
    CResourceData() = default;  ///< No data, size 0.
    /// The size bytes at data.
    CResourceData(const void* data, DWORD size) : m_data(data), m_size(size) {}

    const void* GetData() const { return m_data; }  ///< The first byte.
    DWORD GetSize() const { return m_size; }        ///< The size in bytes.

private:
    const void* m_data = nullptr;
    DWORD m_size = 0;
};

/// Finds resources by id or name and type in a module. A null instance means
/// the application's instance. Missing resources throw
/// CResourceNotFoundException.
class VELKAN_API CResourceLoader {
public:
    /// The module whose resources are used when none is given: the
    /// application's instance, or the executable without an application
    /// object.
    static HINSTANCE GetDefaultInstance();
    /// instance, or the default one for null.
    static HINSTANCE ResolveInstance(HINSTANCE instance) {
        return instance != nullptr ? instance : GetDefaultInstance();
    }

    /// The bytes of a resource by name or id and type.
    ///@{
    static CResourceData LoadData(LPCWSTR name, LPCWSTR type, HINSTANCE instance = nullptr);
    static CResourceData LoadData(UINT id, LPCWSTR type, HINSTANCE instance = nullptr) {
        return LoadData(MAKEINTRESOURCEW(id), type, instance);
    }
    ///@}
    /// Sets text to the string table entry id. FALSE when the string table
    /// has no entry for id. An empty entry does not exist in a compiled
    /// string table, so found strings are non-empty.
    static BOOL TryLoadText(UINT id, CString& text, HINSTANCE instance = nullptr);
    /// The string table entry id; throws when it is missing.
    static CString LoadText(UINT id, HINSTANCE instance = nullptr);
};

/// A string resource as a CString; throws when the id is missing.
class VELKAN_API CResourceString : public CString {
public:
    /// Loads the string table entry id.
    explicit CResourceString(UINT id, HINSTANCE instance = nullptr);
};

}  // namespace Velkan
