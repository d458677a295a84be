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

/// The two bitmaps of an ICONINFO, deleted with this object.
class VELKAN_API CIconInfo : public ICONINFO {
public:
    CIconInfo() : ICONINFO() {}  ///< Zero-filled.
    /// Moves take the bitmaps over.
    ///@{
    CIconInfo(CIconInfo&& other) noexcept;
    CIconInfo& operator=(CIconInfo&& other) noexcept;
    ///@}
    /// Not copyable.
    ///@{
    CIconInfo(const CIconInfo&) = delete;
    CIconInfo& operator=(const CIconInfo&) = delete;
    ///@}
    ~CIconInfo();  ///< Deletes the two bitmaps.
};

/// An icon shared by reference count: copies share the HICON, which is
/// destroyed when the last owner goes (never for temporary wrappers).
class VELKAN_API CIcon {
public:
    using Context = ObjectContext<HICON, CIcon>;  ///< The handle table's type.
    /// The system's small (SM_CXSMICON) or large (SM_CXICON) icon size.
    enum IconSize { Small = 0, Large = 1 };

    CIcon();  ///< No icon.
    explicit CIcon(HICON icon);  ///< Takes ownership of icon, as Attach does.
    /// An icon resource at a size in pixels or at a system size. The
    /// loading constructors throw CResourceNotFoundException.
    ///@{
    CIcon(UINT id, int cx, int cy, HINSTANCE instance);
    CIcon(UINT id, IconSize size, HINSTANCE instance);
    ///@}
    /// Copies share the icon.
    ///@{
    CIcon(const CIcon& other);
    CIcon& operator=(const CIcon& other);
    ///@}
    virtual ~CIcon();  ///< Drops this owner; the last one destroys the icon.

    /// Loads an icon resource at a size in pixels, or at the system's large
    /// or small size, and owns it. Null when the resource is missing.
    ///@{
    HICON LoadIconResource(UINT id, int cx, int cy, HINSTANCE instance);
    HICON LoadLargeIconResource(UINT id, HINSTANCE instance);
    HICON LoadSmallIconResource(UINT id, HINSTANCE instance);
    ///@}

    /// Takes ownership of icon; an icon another wrapper owns is shared with it.
    void Attach(HICON icon);
    HICON Detach();  ///< Gives the icon up: no owner destroys it any more.
    /// Unregisters and empties this object; destroys the icon only when this
    /// was its last owner.
    HICON Delete();
    HICON GetHicon() const { return m_ref ? m_ref->handle : nullptr; }  ///< The icon, or null.
    operator HICON() const { return GetHicon(); }  ///< The icon, or null.
    /// The number of wrappers sharing the icon.
    long GetReferenceCount() const { return m_ref ? m_ref.use_count() : 0; }
    /// A temporary wrapper of a foreign icon.
    bool IsTempObj() const { return m_ref && m_ref->temporary; }
    CIconInfo GetIconInfo() const;  ///< GetIconInfo, with bitmaps deleted by the result.

    /// The permanent wrapper of icon, or a temporary one owned by the calling
    /// thread.
    static CIcon* FromHicon(HICON icon);
    /// Deletes the calling thread's temporary wrappers (not their icons).
    static void CleanUpTempObjects();
    /// (temporary wrappers of the calling fiber, registered icons)
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
