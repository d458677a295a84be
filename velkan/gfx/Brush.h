#pragma once

#include "velkan/gfx/GdiObject.h"

namespace Velkan {

/// A GDI brush, shared by reference count as CGdiObject says.
class VELKAN_API CBrush : public CGdiObject {
public:
    CBrush() = default;  ///< No brush.
    explicit CBrush(COLORREF colour);   ///< A new solid brush.
    explicit CBrush(HBITMAP pattern);   ///< A new pattern brush.
    explicit CBrush(HBRUSH brush);      ///< Takes ownership of brush, as Attach does.
    /// Copies share the brush.
    ///@{
    CBrush(const CBrush&) = default;
    CBrush(CBrush&&) noexcept = default;
    CBrush& operator=(const CBrush&) = default;
    CBrush& operator=(CBrush&&) noexcept = default;
    ///@}
    ~CBrush() override;  ///< Drops this owner.

    /// Makes a new brush and owns it in place of the current one.
    ///@{
    HBRUSH CreateSolidBrush(COLORREF colour);
    HBRUSH CreatePatternBrush(HBITMAP pattern);
    ///@}
    HBRUSH GetHbrush() const { return static_cast<HBRUSH>(GetHandle()); }  ///< The brush, or null.
    operator HBRUSH() const { return GetHbrush(); }  ///< The brush, or null.
};

}  // namespace Velkan
