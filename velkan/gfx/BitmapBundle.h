#pragma once

#include <windows.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <string>

#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/gfx/Bitmap.h"

namespace Velkan {

/// One image drawn at 100 %, 200 % and 300 % as separate resources (an id of
/// 0 means not drawn). Hands out the artwork closest to a DPI, loaded once
/// and shared by copies, scaled to the exact size.
class VELKAN_API CBitmapBundle {
public:
    static const int RESOLUTION_COUNT;  ///< 3

    /// BITMAP resources, ids for 100 %, 200 %, 300 % in that order.
    CBitmapBundle(std::initializer_list<UINT> ids, HINSTANCE instance = nullptr);
    /// Image resources of a type GDI+ decodes, such as "PNG".
    CBitmapBundle(const wchar_t* type, std::initializer_list<UINT> ids, HINSTANCE instance = nullptr);
    /// Copies share the loaded bitmaps.
    ///@{
    CBitmapBundle(const CBitmapBundle&) = default;
    CBitmapBundle& operator=(const CBitmapBundle&) = default;
    ///@}
    virtual ~CBitmapBundle();  ///< Drops this copy's share of the bitmaps.

    HINSTANCE GetInstance() const { return m_instance; }  ///< The module of the resources.
    /// The artwork for dpi: 1, 2 or 3. 120 DPI takes the 200 % artwork (scaled
    /// down); ties go to the smaller scale. Throws when the bundle has no ids.
    int GetBestScaleFactorForDpi(int dpi) const;
    /// The artwork for dpi, unscaled; loaded on first use.
    const CBitmap& GetSourceBitmapForDpi(int dpi) const;
    /// The artwork of scale 1, 2 or 3 if loaded, else an empty bitmap.
    const CBitmap& GetCachedBitmapForScaleFactor(int scale) const { return (*m_cache)[scale - 1]; }
    /// The image for dpi, at size x dpi / 96, truncated.
    CBitmap GetBitmapForDpi(int dpi);
    /// The size at 96 DPI; (0, 0) without ids.
    CSize GetNominalSize();

private:
    const CBitmap& Load(int slot) const;

    HINSTANCE m_instance;
    std::wstring m_type;
    UINT m_ids[3] = {0, 0, 0};
    // Shared by copies, so what one copy loads the others see.
    std::shared_ptr<std::array<CBitmap, 3>> m_cache;
};

}  // namespace Velkan
