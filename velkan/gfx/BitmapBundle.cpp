#include "velkan/gfx/BitmapBundle.h"

#include <cstdlib>

#include "velkan/core/Exceptions.h"
#include "velkan/core/Resource.h"

namespace Velkan {

const int CBitmapBundle::RESOLUTION_COUNT = 3;

CBitmapBundle::CBitmapBundle(std::initializer_list<UINT> ids, HINSTANCE instance)
    : CBitmapBundle(nullptr, ids, instance) {}

CBitmapBundle::CBitmapBundle(const wchar_t* type, std::initializer_list<UINT> ids, HINSTANCE instance)
    : m_instance(CResourceLoader::ResolveInstance(instance)),
      m_type(type != nullptr ? type : L""),
      m_cache(std::make_shared<std::array<CBitmap, 3>>()) {
    int slot = 0;
    for (UINT id : ids) {
        if (slot < RESOLUTION_COUNT) m_ids[slot++] = id;
    }
}

CBitmapBundle::~CBitmapBundle() = default;

int CBitmapBundle::GetBestScaleFactorForDpi(int dpi) const {
    int wanted = (dpi + 72) / 96 - 1;
    wanted = wanted < 0 ? 0 : (wanted > 2 ? 2 : wanted);
    int best = -1;
    for (int slot = 0; slot < RESOLUTION_COUNT; ++slot) {
        if (m_ids[slot] == 0) continue;
        if (best < 0 || std::abs(slot - wanted) < std::abs(best - wanted)) best = slot;
    }
    if (best < 0) throw CResourceNotFoundException(0u, "BitmapBundle: No bitmap resources available");
    return best + 1;
}

const CBitmap& CBitmapBundle::Load(int slot) const {
    CBitmap& cached = (*m_cache)[static_cast<size_t>(slot)];
    if (!cached.IsValid()) {
        cached = m_type.empty() ? CBitmap(m_ids[slot], m_instance)
                                       : CBitmap(m_ids[slot], m_type.c_str(), m_instance);
    }
    return cached;
}

const CBitmap& CBitmapBundle::GetSourceBitmapForDpi(int dpi) const {
    return Load(GetBestScaleFactorForDpi(dpi) - 1);
}

CBitmap CBitmapBundle::GetBitmapForDpi(int dpi) {
    const int scale = GetBestScaleFactorForDpi(dpi);
    const CBitmap& source = GetSourceBitmapForDpi(dpi);
    const CSize size = source.GetSize();
    const int cx = size.cx * dpi / (scale * 96), cy = size.cy * dpi / (scale * 96);
    if (cx == size.cx && cy == size.cy) return source;
    return source.GetStretched(cx, cy, TRUE);
}

CSize CBitmapBundle::GetNominalSize() {
    for (int slot = 0; slot < RESOLUTION_COUNT; ++slot) {
        const CBitmap& cached = (*m_cache)[static_cast<size_t>(slot)];
        if (cached.IsValid()) {
            const CSize size = cached.GetSize();
            return CSize(size.cx / (slot + 1), size.cy / (slot + 1));
        }
    }
    for (int slot = 0; slot < RESOLUTION_COUNT; ++slot) {
        if (m_ids[slot] != 0) {
            const CSize size = Load(slot).GetSize();
            return CSize(size.cx / (slot + 1), size.cy / (slot + 1));
        }
    }
    return CSize(0, 0);
}

}  // namespace Velkan
