#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <tuple>

#include "velkan/core/Export.h"

namespace Velkan {

template <typename Key, typename Object> class ObjectContext;

/// The owner record of one GDI handle, shared by every wrapper copy. The
/// last owner deletes the handle, unless the record was made for a foreign
/// handle (temporary).
struct ObjectRef {
    /// A record of h; temp records never delete it.
    explicit ObjectRef(HGDIOBJ h = nullptr, bool temp = false) : handle(h), temporary(temp) {}
    /// Deletes the handle unless the record is temporary.
    ~ObjectRef() {
        if (handle != nullptr && !temporary) ::DeleteObject(handle);
    }
    /// Not copyable: wrappers share the record itself.
    ///@{
    ObjectRef(const ObjectRef&) = delete;
    ObjectRef& operator=(const ObjectRef&) = delete;
    ///@}

    HGDIOBJ handle;  ///< The handle, or null.
    bool temporary;  ///< Made for a foreign handle: never deleted.
};

/// A GDI object shared by reference count: copies share the handle, which
/// is deleted when the last copy goes. Detach is the only way to keep a
/// handle beyond its owners.
class VELKAN_API CGdiObject {
public:
    using Context = ObjectContext<HGDIOBJ, CGdiObject>;  ///< The handle table's type.
    /// Makes a temporary wrapper of the right class for FromHGDIObject.
    using Factory = std::function<std::shared_ptr<CGdiObject>(HGDIOBJ)>;

    CGdiObject();  ///< No handle.
    explicit CGdiObject(HGDIOBJ handle);  ///< Attach(handle).
    /// Copies share the handle; moves take it over, table entry included.
    ///@{
    CGdiObject(const CGdiObject& other);
    CGdiObject(CGdiObject&& other) noexcept;
    CGdiObject& operator=(const CGdiObject& other);
    CGdiObject& operator=(CGdiObject&& other) noexcept;
    ///@}
    virtual ~CGdiObject();  ///< Drops this owner; the last one deletes the handle.

    /// Takes ownership of handle; a handle another wrapper owns is shared
    /// with that wrapper instead.
    void Attach(HGDIOBJ handle);
    /// Gives the handle up: it is no longer deleted by any owner.
    HGDIOBJ Detach();
    HGDIOBJ GetHandle() const { return m_ref ? m_ref->handle : nullptr; }  ///< The handle, or null.
    operator HGDIOBJ() const { return GetHandle(); }  ///< The handle, or null.
    /// GetObject of the handle.
    int GetObjectW(int size, void* buffer) const { return ::GetObjectW(GetHandle(), size, buffer); }
    /// The number of wrappers sharing the handle.
    long GetReferenceCount() const { return m_ref ? m_ref.use_count() : 0; }
    /// A temporary wrapper of a foreign handle.
    bool IsTempGdiObj() const { return m_ref && m_ref->temporary; }

    /// Deletes the calling thread's temporary wrappers (not their handles).
    static void CleanUpTempObjects();
    /// (temporary wrappers of the calling fiber, registered handles)
    static std::tuple<unsigned, unsigned> GetContextInfo();

protected:
    /// The permanent wrapper of handle, or a temporary one that factory
    /// makes; temporaries never delete their handle.
    static CGdiObject* FromHGDIObject(HGDIOBJ handle, const Factory& factory);
    static Context& GetContext();  ///< The process-wide handle table of GDI objects.

private:
    void Unregister();
    static void ResetContext();

    std::shared_ptr<ObjectRef> m_ref;
};

}  // namespace Velkan
