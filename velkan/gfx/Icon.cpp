#include "velkan/gfx/Icon.h"

#include "velkan/core/Exceptions.h"
#include "velkan/core/ObjectContext.h"
#include "velkan/core/detail/SharedHandle.h"
#include "velkan/core/Resource.h"

namespace Velkan {

CIconInfo::CIconInfo(CIconInfo&& other) noexcept : ICONINFO(other) {
    other.hbmMask = nullptr;
    other.hbmColor = nullptr;
}

CIconInfo& CIconInfo::operator=(CIconInfo&& other) noexcept {
    if (this != &other) {
        this->~CIconInfo();
        static_cast<ICONINFO&>(*this) = other;
        other.hbmMask = nullptr;
        other.hbmColor = nullptr;
    }
    return *this;
}

CIconInfo::~CIconInfo() {
    if (hbmMask != nullptr) ::DeleteObject(hbmMask);
    if (hbmColor != nullptr) ::DeleteObject(hbmColor);
    hbmMask = hbmColor = nullptr;
}

CIcon::CIcon() : m_ref(std::make_shared<Record>()) {}

CIcon::CIcon(HICON icon) : CIcon() {
    Attach(icon);
}

CIcon::CIcon(UINT id, int cx, int cy, HINSTANCE instance) : CIcon() {
    if (LoadIconResource(id, cx, cy, instance) == nullptr) throw CResourceNotFoundException(id);
}

CIcon::CIcon(UINT id, IconSize size, HINSTANCE instance) : CIcon() {
    HICON icon = size == Small ? LoadSmallIconResource(id, instance) : LoadLargeIconResource(id, instance);
    if (icon == nullptr) throw CResourceNotFoundException(id);
}

CIcon::CIcon(const CIcon& other) : m_ref(other.m_ref) {}

CIcon& CIcon::operator=(const CIcon& other) {
    if (this != &other && m_ref != other.m_ref) {
        Unregister();
        m_ref = other.m_ref;
    }
    return *this;
}

CIcon::~CIcon() {
    Unregister();
}

HICON CIcon::LoadIconResource(UINT id, int cx, int cy, HINSTANCE instance) {
    HANDLE icon = ::LoadImageW(CResourceLoader::ResolveInstance(instance), MAKEINTRESOURCEW(id), IMAGE_ICON, cx, cy,
                               LR_CREATEDIBSECTION);
    if (icon == nullptr) return nullptr;
    Attach(static_cast<HICON>(icon));
    return GetHicon();
}

HICON CIcon::LoadLargeIconResource(UINT id, HINSTANCE instance) {
    return LoadIconResource(id, ::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON), instance);
}

HICON CIcon::LoadSmallIconResource(UINT id, HINSTANCE instance) {
    return LoadIconResource(id, ::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON), instance);
}

void CIcon::Unregister() {
    Rules::Unregister(GetContext(), this, m_ref);
}

void CIcon::Attach(HICON icon) {
    Rules::Attach(GetContext(), this, m_ref, icon, [](CIcon& owner) -> std::shared_ptr<Record>& { return owner.m_ref; });
}

HICON CIcon::Detach() {
    return Rules::Detach(GetContext(), this, m_ref);
}

HICON CIcon::Delete() {
    Unregister();
    HICON icon = GetHicon();
    // Letting go of the record destroys the icon only when this was its last
    // owner and the record is not temporary.
    m_ref = std::make_shared<Record>();
    return icon;
}

CIconInfo CIcon::GetIconInfo() const {
    CIconInfo info;
    ::GetIconInfo(GetHicon(), &info);
    return info;
}

CIcon::Context& CIcon::GetContext() {
    static Context context;
    return context;
}

CIcon* CIcon::FromHicon(HICON icon) {
    return Rules::FromHandle(GetContext(), icon, [] { return std::make_shared<CIcon>(); },
                             [](CIcon& wrapper) -> std::shared_ptr<Record>& { return wrapper.m_ref; });
}

void CIcon::CleanUpTempObjects() {
    GetContext().CleanUpTempObjects();
}

void CIcon::ResetContext() {
    GetContext().Reset();
}

std::tuple<unsigned, unsigned> CIcon::GetContextInfo() {
    return GetContext().GetInfo();
}

}  // namespace Velkan
