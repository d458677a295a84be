#include "velkan/core/Resource.h"

#include "velkan/app/App.h"
#include "velkan/core/Exceptions.h"

namespace Velkan {

HINSTANCE CResourceLoader::GetDefaultInstance() {
    // Without an application object, the executable's own module.
    return theAppPtr != nullptr ? theAppPtr->GetInstance() : GetModuleHandleW(nullptr);
}

CResourceData CResourceLoader::LoadData(LPCWSTR name, LPCWSTR type, HINSTANCE instance) {
    instance = ResolveInstance(instance);
    HRSRC info = FindResourceW(instance, name, type);
    HGLOBAL handle = info != nullptr ? LoadResource(instance, info) : nullptr;
    const void* data = handle != nullptr ? LockResource(handle) : nullptr;
    if (data == nullptr) throw CResourceNotFoundException(name);
    return CResourceData(data, SizeofResource(instance, info));
}

BOOL CResourceLoader::TryLoadText(UINT id, CString& text, HINSTANCE instance) {
    instance = ResolveInstance(instance);
    // Strings are stored in blocks of sixteen counted (not terminated)
    // entries; block n + 1 holds the ids 16n to 16n + 15.
    HRSRC info = FindResourceW(instance, MAKEINTRESOURCEW((id >> 4) + 1), MAKEINTRESOURCEW(6));
    HGLOBAL handle = info != nullptr ? LoadResource(instance, info) : nullptr;
    const WCHAR* p = handle != nullptr ? static_cast<const WCHAR*>(LockResource(handle)) : nullptr;
    if (p == nullptr) return FALSE;
    const WCHAR* end = p + SizeofResource(instance, info) / sizeof(WCHAR);
    for (UINT index = id & 15; index > 0 && p < end; --index) p += 1 + *p;
    if (p >= end || *p == 0 || p + 1 + *p > end) return FALSE;
    text.SetString(p + 1, *p);
    return text.IsNull() ? FALSE : TRUE;
}

CString CResourceLoader::LoadText(UINT id, HINSTANCE instance) {
    CString text;
    if (!TryLoadText(id, text, instance)) throw CResourceNotFoundException(id);
    return text;
}

CResourceString::CResourceString(UINT id, HINSTANCE instance) {
    if (!CResourceLoader::TryLoadText(id, *this, instance)) throw CResourceNotFoundException(id);
}

}  // namespace Velkan
