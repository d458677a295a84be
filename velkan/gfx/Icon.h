#pragma once

#include <windows.h>

#include <memory>
#include <tuple>

#include "velkan/core/Export.h"

namespace Velkan {

template <typename Key, typename Object> class ObjectContext;
namespace Detail {
template <typename Handle, typename Object, typename Record> struct SharedHandles;
}

// The two bitmaps of an ICONINFO, deleted with this object.
class VELKAN_API CIconInfo : public ICONINFO {
public:
    CIconInfo() : ICONINFO() {}
    CIconInfo(CIconInfo&& other) noexcept;
    CIconInfo& operator=(CIconInfo&& other) noexcept;
    CIconInfo(const CIconInfo&) = delete;
    CIconInfo& operator=(const CIconInfo&) = delete;
    ~CIconInfo();
};

// An icon shared by reference count: copies share the HICON, which is
// destroyed when the last owner goes (never for temporary wrappers).
class VELKAN_API CIcon {
public:
    using Context = ObjectContext<HICON, CIcon>;
    enum IconSize { Small = 0, Large = 1 };

    CIcon();
    explicit CIcon(HICON icon);
    // The loading constructors throw CResourceNotFoundException.
    CIcon(UINT id, int cx, int cy, HINSTANCE instance);
    CIcon(UINT id, IconSize size, HINSTANCE instance);
    CIcon(const CIcon& other);
    CIcon& operator=(const CIcon& other);
    virtual ~CIcon();

    // Null when the resource is missing.
    HICON LoadIconResource(UINT id, int cx, int cy, HINSTANCE instance);
    HICON LoadLargeIconResource(UINT id, HINSTANCE instance);
    HICON LoadSmallIconResource(UINT id, HINSTANCE instance);

    void Attach(HICON icon);
    HICON Detach();
    // Unregisters and empties this object; destroys the icon only when this
    // was its last owner.
    HICON Delete();
    HICON GetHicon() const { return m_ref ? m_ref->handle : nullptr; }
    operator HICON() const { return GetHicon(); }
    long GetReferenceCount() const { return m_ref ? m_ref.use_count() : 0; }
    bool IsTempObj() const { return m_ref && m_ref->temporary; }
    CIconInfo GetIconInfo() const;

    static CIcon* FromHicon(HICON icon);
    static void CleanUpTempObjects();
    // (temporary wrappers of the calling fiber, registered icons)
    static std::tuple<unsigned, unsigned> GetContextInfo();

private:
    struct Record {
        explicit Record(HICON h = nullptr, bool temp = false) : handle(h), temporary(temp) {}
        ~Record() {
            if (handle != nullptr && !temporary) ::DestroyIcon(handle);
        }
        HICON handle;
        bool temporary;
    };

    using Rules = Detail::SharedHandles<HICON, CIcon, Record>;

    static Context& GetContext();
    static void ResetContext();
    void Unregister();

    std::shared_ptr<Record> m_ref;
};

}  // namespace Velkan
