#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <tuple>

#include "velkan/core/Export.h"

namespace Velkan {

template <typename Key, typename Object> class ObjectContext;

// The owner record of one GDI handle, shared by every wrapper copy. The
// last owner deletes the handle, unless the record was made for a foreign
// handle (temporary).
struct ObjectRef {
    explicit ObjectRef(HGDIOBJ h = nullptr, bool temp = false) : handle(h), temporary(temp) {}
    ~ObjectRef() {
        if (handle != nullptr && !temporary) ::DeleteObject(handle);
    }
    ObjectRef(const ObjectRef&) = delete;
    ObjectRef& operator=(const ObjectRef&) = delete;

    HGDIOBJ handle;
    bool temporary;
};

// A GDI object shared by reference count: copies share the handle, which
// is deleted when the last copy goes. Detach is the only way to keep a
// handle beyond its owners.
class VELKAN_API CGdiObject {
public:
    using Context = ObjectContext<HGDIOBJ, CGdiObject>;
    using Factory = std::function<std::shared_ptr<CGdiObject>(HGDIOBJ)>;

    CGdiObject();
    explicit CGdiObject(HGDIOBJ handle);
    CGdiObject(const CGdiObject& other);
    CGdiObject(CGdiObject&& other) noexcept;
    CGdiObject& operator=(const CGdiObject& other);
    CGdiObject& operator=(CGdiObject&& other) noexcept;
    virtual ~CGdiObject();

    // Takes ownership of handle; a handle another wrapper owns is shared
    // with that wrapper instead.
    void Attach(HGDIOBJ handle);
    // Gives the handle up: it is no longer deleted by any owner.
    HGDIOBJ Detach();
    HGDIOBJ GetHandle() const { return m_ref ? m_ref->handle : nullptr; }
    operator HGDIOBJ() const { return GetHandle(); }
    int GetObjectW(int size, void* buffer) const { return ::GetObjectW(GetHandle(), size, buffer); }
    long GetReferenceCount() const { return m_ref ? m_ref.use_count() : 0; }
    bool IsTempGdiObj() const { return m_ref && m_ref->temporary; }

    static void CleanUpTempObjects();
    // (temporary wrappers of the calling fiber, registered handles)
    static std::tuple<unsigned, unsigned> GetContextInfo();

protected:
    // The permanent wrapper of handle, or a temporary one that factory
    // makes; temporaries never delete their handle.
    static CGdiObject* FromHGDIObject(HGDIOBJ handle, const Factory& factory);
    static Context& GetContext();

private:
    void Unregister();
    static void ResetContext();

    std::shared_ptr<ObjectRef> m_ref;
};

}  // namespace Velkan
