#include "velkan/gfx/Font.h"

#include "velkan/gfx/ScopedDC.h"

namespace Velkan {

const wchar_t* const CFont::SANS_FONT_FAMILY = L"Segoe UI";
const wchar_t* const CFont::FIXED_FONT_FAMILY = L"Courier New";

CFont::CFont(HFONT font) : CGdiObject(font) {}

CFont::CFont(LOGFONTW& logFont) {
    CreateFontIndirectW(logFont);
}

CFont::~CFont() = default;

HFONT CFont::CreateFontIndirectW(LOGFONTW& logFont) {
    Attach(::CreateFontIndirectW(&logFont));
    return GetHfont();
}

HFONT CFont::CreatePointFont(int points, const wchar_t* face, HDC hdc, BOOL bold, BOOL italic, BOOL underline,
                             BOOL strikeOut) {
    LOGFONTW lf = {};
    lf.lfHeight = points;
    lf.lfCharSet = DEFAULT_CHARSET;
    if (face != nullptr) ::lstrcpynW(lf.lfFaceName, face, LF_FACESIZE);
    lf.lfWeight = bold ? FW_BOLD : 0;
    lf.lfItalic = italic ? 1 : 0;
    lf.lfUnderline = underline ? 1 : 0;
    lf.lfStrikeOut = strikeOut ? 1 : 0;
    return CreatePointFontIndirect(lf, hdc);
}

HFONT CFont::CreatePointFontIndirect(const LOGFONTW& logFont, HDC hdc) {
    LOGFONTW lf = logFont;
    int logPixelsY;
    if (hdc != nullptr) {
        logPixelsY = ::GetDeviceCaps(hdc, LOGPIXELSY);
    } else {
        CDesktopDC screen;
        logPixelsY = screen.GetDeviceCaps(LOGPIXELSY);
    }
    // Whole points to pixels; MulDiv rounds (9 pt at 96 DPI is 12 px).
    lf.lfHeight = -::MulDiv(lf.lfHeight, logPixelsY, 72);
    Attach(::CreateFontIndirectW(&lf));
    return GetHfont();
}

LOGFONTW CFont::GetLogFont() const {
    LOGFONTW lf = {};
    GetObjectW(sizeof(lf), &lf);
    return lf;
}

CFont* CFont::FromHfont(HFONT font) {
    CGdiObject* wrapper =
        FromHGDIObject(font, [](HGDIOBJ) -> std::shared_ptr<CGdiObject> { return std::make_shared<CFont>(); });
    return dynamic_cast<CFont*>(wrapper);
}

}  // namespace Velkan
