#pragma once

#include "velkan/gfx/GdiObject.h"

namespace Velkan {

class VELKAN_API CFont : public CGdiObject {
public:
    static const wchar_t* const SANS_FONT_FAMILY;   // "Segoe UI"
    static const wchar_t* const FIXED_FONT_FAMILY;  // "Courier New"

    CFont() = default;
    explicit CFont(HFONT font);
    explicit CFont(LOGFONTW& logFont);
    CFont(const CFont&) = default;
    CFont(CFont&&) noexcept = default;
    CFont& operator=(const CFont&) = default;
    CFont& operator=(CFont&&) noexcept = default;
    ~CFont() override;

    HFONT CreateFontIndirectW(LOGFONTW& logFont);
    // A font of a size in whole points for a DC (null: the screen).
    HFONT CreatePointFont(int points, const wchar_t* face, HDC hdc = nullptr, BOOL bold = FALSE,
                          BOOL italic = FALSE, BOOL underline = FALSE, BOOL strikeOut = FALSE);
    // lfHeight holds whole points.
    HFONT CreatePointFontIndirect(const LOGFONTW& logFont, HDC hdc = nullptr);
    LOGFONTW GetLogFont() const;
    HFONT GetHfont() const { return static_cast<HFONT>(GetHandle()); }
    operator HFONT() const { return GetHfont(); }

    // Null when the handle's registered wrapper is not a font.
    static CFont* FromHfont(HFONT font);
};

}  // namespace Velkan
