#pragma once

#include "velkan/gfx/GdiObject.h"

namespace Velkan {

class VELKAN_API CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF colour);   // solid
    explicit CBrush(HBITMAP pattern);   // pattern
    explicit CBrush(HBRUSH brush);      // attach
    CBrush(const CBrush&) = default;
    CBrush(CBrush&&) noexcept = default;
    CBrush& operator=(const CBrush&) = default;
    CBrush& operator=(CBrush&&) noexcept = default;
    ~CBrush() override;

    HBRUSH CreateSolidBrush(COLORREF colour);
    HBRUSH CreatePatternBrush(HBITMAP pattern);
    HBRUSH GetHbrush() const { return static_cast<HBRUSH>(GetHandle()); }
    operator HBRUSH() const { return GetHbrush(); }
};

}  // namespace Velkan
