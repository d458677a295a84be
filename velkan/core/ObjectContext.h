#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <tuple>
#include <vector>

#include "velkan/core/Exceptions.h"

namespace Velkan {

/// The tie between raw handles and the wrapper objects of one handle family
/// (windows, device contexts, GDI objects, ...).
///
/// Permanent wrappers are registered in a process-wide map guarded by a
/// mutex that is held only for a look-up, insert or erase. Temporary
/// wrappers, made on demand for handles that have no permanent wrapper, are
/// owned by a per-fiber list that lives in a fiber-local-storage slot; the
/// slot's callback destroys the list when the fiber or thread ends.
///
/// Key is the handle type; keys are ordered through their integer value.
template <typename Key, typename Object>
class ObjectContext {
public:
    /// The temporary wrappers of one fiber.
    using TempList = std::vector<std::shared_ptr<Object>>;

    /// Allocates the fiber-local-storage slot; throws CRuntimeException when
    /// none is left.
    ObjectContext() {
        m_flsIndex = ::FlsAlloc(&ObjectContext::DeleteTempList);
        if (m_flsIndex == FLS_OUT_OF_INDEXES)
            throw CRuntimeException("Failed to allocate FLS index for ObjectContext");
    }

    /// Runs at process exit: FlsFree hands every fiber's list to the
    /// callback while the map is still alive for the wrappers' destructors.
    ~ObjectContext() { ::FlsFree(m_flsIndex); }

    ObjectContext(const ObjectContext&) = delete;             ///< Not copyable.
    ObjectContext& operator=(const ObjectContext&) = delete;  ///< Not copyable.

    /// The permanent wrapper registered for key, or null.
    Object* Find(Key key) {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto it = m_map.find(ToInt(key));
        return it != m_map.end() ? it->second : nullptr;
    }

    /// Registers object for key, replacing any earlier entry.
    void Insert(Key key, Object* object) {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_map[ToInt(key)] = object;
    }

    /// Removes the entry for key, but only when it belongs to owner, so that
    /// a wrapper never unregisters a handle that another wrapper has taken.
    void Erase(Key key, const Object* owner) {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto it = m_map.find(ToInt(key));
        if (it != m_map.end() && it->second == owner) m_map.erase(it);
    }

    /// Hands a temporary wrapper to the calling fiber's list and returns it.
    Object* AddTempObject(std::shared_ptr<Object> object) {
        Object* raw = object.get();
        GetTempList(true)->push_back(std::move(object));
        return raw;
    }

    /// Deletes the calling fiber's temporary wrappers. The list is swapped
    /// out first, so wrappers whose destructors touch the context see a
    /// consistent state.
    void CleanUpTempObjects() {
        TempList* list = GetTempList(false);
        if (list == nullptr) return;
        TempList doomed;
        doomed.swap(*list);
    }

    /// Forgets everything: the calling fiber's temporaries, then every entry.
    void Reset() {
        CleanUpTempObjects();
        std::lock_guard<std::mutex> lock(m_mutex);
        m_map.clear();
    }

    /// (temporary wrappers of the calling fiber, entries in the map)
    std::tuple<unsigned, unsigned> GetInfo() {
        TempList* list = GetTempList(false);
        unsigned temps = list != nullptr ? static_cast<unsigned>(list->size()) : 0;
        std::lock_guard<std::mutex> lock(m_mutex);
        return std::make_tuple(temps, static_cast<unsigned>(m_map.size()));
    }

private:
    static std::uintptr_t ToInt(Key key) { return (std::uintptr_t)(key); }

    TempList* GetTempList(bool create) {
        auto* list = static_cast<TempList*>(::FlsGetValue(m_flsIndex));
        if (list == nullptr && create) {
            list = new TempList();
            ::FlsSetValue(m_flsIndex, list);
        }
        return list;
    }

    static void WINAPI DeleteTempList(void* data) { delete static_cast<TempList*>(data); }

    std::mutex m_mutex;
    std::map<std::uintptr_t, Object*> m_map;
    DWORD m_flsIndex = FLS_OUT_OF_INDEXES;
};

}  // namespace Velkan
