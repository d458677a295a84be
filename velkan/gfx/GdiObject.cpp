#include "velkan/gfx/GdiObject.h"

#include "velkan/core/ObjectContext.h"
#include "velkan/core/detail/SharedHandle.h"

namespace Velkan {

namespace {

using Rules = Detail::SharedHandles<HGDIOBJ, CGdiObject, ObjectRef>;

}  // namespace

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
    Rules::Unregister(GetContext(), this, m_ref);
}

void CGdiObject::Attach(HGDIOBJ handle) {
    Rules::Attach(GetContext(), this, m_ref, handle, [](CGdiObject& owner) -> std::shared_ptr<ObjectRef>& { return owner.m_ref; });
}

HGDIOBJ CGdiObject::Detach() {
    return Rules::Detach(GetContext(), this, m_ref);
}

CGdiObject::Context& CGdiObject::GetContext() {
    static Context context;
    return context;
}

CGdiObject* CGdiObject::FromHGDIObject(HGDIOBJ handle, const Factory& factory) {
    return Rules::FromHandle(GetContext(), handle, [&] { return factory(handle); },
                             [](CGdiObject& wrapper) -> std::shared_ptr<ObjectRef>& { return wrapper.m_ref; });
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
