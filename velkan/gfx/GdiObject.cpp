#include "velkan/gfx/GdiObject.h"

#include "velkan/core/ObjectContext.h"

namespace Velkan {

CGdiObject::CGdiObject() : m_ref(std::make_shared<ObjectRef>()) {}

CGdiObject::CGdiObject(HGDIOBJ handle) : CGdiObject() {
    Attach(handle);
}

CGdiObject::CGdiObject(const CGdiObject& other) : m_ref(other.m_ref) {}

CGdiObject::CGdiObject(CGdiObject&& other) noexcept : m_ref(std::move(other.m_ref)) {
    // The table must not keep pointing at the moved-from wrapper.
    if (HGDIOBJ handle = GetHandle()) {
        if (GetContext().Find(handle) == &other) GetContext().Insert(handle, this);
    }
}

CGdiObject& CGdiObject::operator=(const CGdiObject& other) {
    if (this != &other && m_ref != other.m_ref) {
        Unregister();
        m_ref = other.m_ref;
    }
    return *this;
}

CGdiObject& CGdiObject::operator=(CGdiObject&& other) noexcept {
    if (this == &other) return *this;
    Unregister();
    m_ref = std::move(other.m_ref);
    if (HGDIOBJ handle = GetHandle()) {
        if (GetContext().Find(handle) == &other) GetContext().Insert(handle, this);
    }
    return *this;
}

CGdiObject::~CGdiObject() {
    Unregister();
}

void CGdiObject::Unregister() {
    if (HGDIOBJ handle = GetHandle()) GetContext().Erase(handle, this);
}

void CGdiObject::Attach(HGDIOBJ handle) {
    Unregister();
    if (handle != nullptr) {
        if (CGdiObject* owner = GetContext().Find(handle)) {
            // Another wrapper owns it: share that owner's record, which
            // now owns the handle even if it was made for a foreign one.
            if (owner != this) m_ref = owner->m_ref;
            m_ref->temporary = false;
            return;
        }
    }
    m_ref = std::make_shared<ObjectRef>(handle);
    if (handle != nullptr) GetContext().Insert(handle, this);
}

HGDIOBJ CGdiObject::Detach() {
    Unregister();
    HGDIOBJ handle = nullptr;
    if (m_ref) {
        handle = m_ref->handle;
        m_ref->handle = nullptr;
    }
    m_ref = std::make_shared<ObjectRef>();
    return handle;
}

CGdiObject::Context& CGdiObject::GetContext() {
    static Context context;
    return context;
}

CGdiObject* CGdiObject::FromHGDIObject(HGDIOBJ handle, const Factory& factory) {
    if (handle == nullptr) return nullptr;
    if (CGdiObject* found = GetContext().Find(handle)) return found;
    std::shared_ptr<CGdiObject> wrapper = factory(handle);
    if (!wrapper) return nullptr;
    wrapper->m_ref = std::make_shared<ObjectRef>(handle, true);
    return GetContext().AddTempObject(std::move(wrapper));
}

void CGdiObject::CleanUpTempObjects() {
    GetContext().CleanUpTempObjects();
}

void CGdiObject::ResetContext() {
    GetContext().Reset();
}

std::tuple<unsigned, unsigned> CGdiObject::GetContextInfo() {
    return GetContext().GetInfo();
}

}  // namespace Velkan
