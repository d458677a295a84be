#pragma once

#include "velkan/gfx/GdiObject.h"

namespace Velkan {

/// A GDI font, shared by reference count as CGdiObject says.
class VELKAN_API CFont : public CGdiObject {
public:
    static const wchar_t* const SANS_FONT_FAMILY;   ///< "Segoe UI"
    static const wchar_t* const FIXED_FONT_FAMILY;  ///< "Courier New"

    CFont() = default;  ///< No font.
    explicit CFont(HFONT font);  ///< Takes ownership of font, as Attach does.
    explicit CFont(LOGFONTW& logFont);  ///< A new font from logFont.
    /// Copies share the font.
    ///@{
    CFont(const CFont&) = default;
    CFont(CFont&&) noexcept = default;
    CFont& operator=(const CFont&) = default;
    CFont& operator=(CFont&&) noexcept = default;
    ///@}
    ~CFont() override;  ///< Drops this owner.

    /// Makes a new font from logFont and owns it in place of the current one.
    HFONT CreateFontIndirectW(LOGFONTW& logFont);
    /// A font of a size in whole points for a DC (null: the screen).
    HFONT CreatePointFont(int points, const wchar_t* face, HDC hdc = nullptr, BOOL bold = FALSE,
                          BOOL italic = FALSE, BOOL underline = FALSE, BOOL strikeOut = FALSE);
    /// CreateFontIndirect with a size in points: lfHeight holds whole
    /// points, converted for the DC (null: the screen).
    HFONT CreatePointFontIndirect(const LOGFONTW& logFont, HDC hdc = nullptr);
    LOGFONTW GetLogFont() const;  ///< The font's LOGFONT.
    HFONT GetHfont() const { return static_cast<HFONT>(GetHandle()); }  ///< The font, or null.
    operator HFONT() const { return GetHfont(); }  ///< The font, or null.

    /// The permanent wrapper of font, or a temporary one. Null when the
    /// handle's registered wrapper is not a font.
    static CFont* FromHfont(HFONT font);
};

}  // namespace Velkan
