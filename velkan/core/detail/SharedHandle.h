#pragma once

#include <memory>

#include "velkan/core/ObjectContext.h"

namespace Velkan {
namespace Detail {

// The owner-record rules of the reference-counted handle families (GDI
// objects, icons). A wrapper holds a shared record {handle, temporary};
// the last record owner releases the handle unless the record is temporary.
// Permanent wrappers are registered in the family's context; temporary
// ones (made for foreign handles) live in the calling fiber's list.
//
// RefOf(object) gives access to a wrapper's record pointer, so these rules
// can reach the record of the wrapper that already owns a handle.
template <typename Handle, typename Object, typename Record>
struct SharedHandles {
    using Context = ObjectContext<Handle, Object>;
    using Ref = std::shared_ptr<Record>;

    static void Unregister(Context& context, Object* self, const Ref& ref) {
        if (ref && ref->handle != nullptr) context.Erase(ref->handle, self);
    }

    // A handle another wrapper owns is shared with it, and its record
    // becomes owning; any other handle gets a record of its own.
    template <typename RefOf>
    static void Attach(Context& context, Object* self, Ref& ref, Handle handle, RefOf refOf) {
        Unregister(context, self, ref);
        if (handle != nullptr) {
            if (Object* owner = context.Find(handle)) {
                if (owner != self) ref = refOf(*owner);
                ref->temporary = false;
                return;
            }
        }
        ref = std::make_shared<Record>(handle);
        if (handle != nullptr) context.Insert(handle, self);
    }

    // The handle leaves every owner sharing the record; this wrapper gets a
    // fresh empty record.
    static Handle Detach(Context& context, Object* self, Ref& ref) {
        Unregister(context, self, ref);
        Handle handle = ref ? ref->handle : nullptr;
        if (ref) ref->handle = nullptr;
        ref = std::make_shared<Record>();
        return handle;
    }

    // The permanent wrapper of handle, or a new temporary one from make(),
    // given a record that never releases the handle.
    template <typename Make, typename RefOf>
    static Object* FromHandle(Context& context, Handle handle, Make make, RefOf refOf) {
        if (handle == nullptr) return nullptr;
        if (Object* found = context.Find(handle)) return found;
        std::shared_ptr<Object> wrapper = make();
        if (!wrapper) return nullptr;
        refOf(*wrapper) = std::make_shared<Record>(handle, true);
        return context.AddTempObject(std::move(wrapper));
    }
};

}  // namespace Detail
}  // namespace Velkan
