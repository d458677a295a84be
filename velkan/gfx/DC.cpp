#include "velkan/gfx/DC.h"

#include <memory>

#include "velkan/core/ObjectContext.h"
#include "velkan/gfx/Bitmap.h"

namespace Velkan {

namespace {

// Straight "source over" with per-pixel alpha: the source must be 32-bit
// and premultiplied.
const BLENDFUNCTION kPixelAlpha = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};

}  // namespace

CDC::~CDC() {
    if (m_hdc != nullptr) GetContext().Erase(m_hdc, this);
}

CDC::Context& CDC::GetContext() {
    static Context context;
    return context;
}

void CDC::Register() {
    if (m_hdc != nullptr) GetContext().Insert(m_hdc, this);
}

CDC* CDC::FromHdc(HDC hdc) {
    if (hdc == nullptr) return nullptr;
    if (CDC* found = GetContext().Find(hdc)) return found;
    return GetContext().AddTempObject(std::make_shared<CDC>(hdc, PrivateToken()));
}

void CDC::CleanUpTempObjects() {
    GetContext().CleanUpTempObjects();
}

void CDC::ResetContext() {
    GetContext().Reset();
}

std::tuple<unsigned, unsigned> CDC::GetContextInfo() {
    return GetContext().GetInfo();
}

CSize CDC::GetTextExtentPoint32W(const wchar_t* text, int count) const {
    CSize size;
    ::GetTextExtentPoint32W(m_hdc, text, count, &size);
    return size;
}

BOOL CDC::DrawStateW(const wchar_t* text, int count, int x, int y, int cx, int cy, COLORREF colour,
                     UINT flags) const {
    COLORREF old = ::SetTextColor(m_hdc, colour);
    BOOL ok = ::DrawStateW(m_hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(text), static_cast<WPARAM>(count), x, y,
                           cx, cy, DST_TEXT | flags);
    ::SetTextColor(m_hdc, old);
    return ok;
}

BOOL CDC::AlphaBlend(int x, int y, int cx, int cy, HDC source, int xs, int ys, int cxs, int cys,
                     BLENDFUNCTION blend) {
    return ::AlphaBlend(m_hdc, x, y, cx, cy, source, xs, ys, cxs, cys, blend);
}

BOOL CDC::DrawBitmap(HBITMAP bitmap, int x, int y, int cx, int cy) {
    if (bitmap == nullptr) return FALSE;
    BITMAP info = {};
    ::GetObjectW(bitmap, sizeof(info), &info);
    if (cx == 0) cx = info.bmWidth;
    if (cy == 0) cy = info.bmHeight;
    HDC memory = ::CreateCompatibleDC(m_hdc);
    int saved = ::SaveDC(memory);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    BOOL ok = ::BitBlt(m_hdc, x, y, cx, cy, memory, 0, 0, SRCCOPY);
    ::SelectObject(memory, old);
    ::RestoreDC(memory, saved);
    ::DeleteDC(memory);
    return ok;
}

BOOL CDC::AlphaBlendBitmap(HBITMAP bitmap, int x, int y, int cx, int cy) {
    if (bitmap == nullptr) return FALSE;
    BITMAP info = {};
    ::GetObjectW(bitmap, sizeof(info), &info);
    if (cx == 0) cx = info.bmWidth;
    if (cy == 0) cy = info.bmHeight;
    // The memory DC never leaves this function, so it is deleted here: left
    // alone it would leak one GDI handle per call, and the menu renderers
    // draw every check mark through this (a process gets 10,000 handles).
    HDC memory = ::CreateCompatibleDC(m_hdc);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    BOOL ok = ::AlphaBlend(m_hdc, x, y, cx, cy, memory, 0, 0, info.bmWidth, info.bmHeight, kPixelAlpha);
    ::SelectObject(memory, old);
    ::DeleteDC(memory);
    return ok;
}

BOOL CDC::StretchBitmap(HBITMAP bitmap, const RECT& dest) {
    CBitmap* wrapper = CBitmap::FromHbitmap(bitmap);
    if (wrapper == nullptr) return FALSE;
    BITMAP info = {};
    wrapper->GetBitmap(&info);
    const int cx = dest.right - dest.left, cy = dest.bottom - dest.top;
    HDC memory = ::CreateCompatibleDC(m_hdc);
    int saved = ::SaveDC(memory);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    BOOL ok;
    if (wrapper->HasAlpha()) {
        ok = ::AlphaBlend(m_hdc, dest.left, dest.top, cx, cy, memory, 0, 0, info.bmWidth, info.bmHeight, kPixelAlpha);
    } else {
        int oldMode = ::SetStretchBltMode(m_hdc, HALFTONE);
        ok = ::StretchBlt(m_hdc, dest.left, dest.top, cx, cy, memory, 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
        ::SetStretchBltMode(m_hdc, oldMode);
    }
    ::SelectObject(memory, old);
    ::RestoreDC(memory, saved);
    ::DeleteDC(memory);
    return ok;
}

BOOL CDC::FrameRect(const RECT& r, HBRUSH brush, int w) {
    const RECT strips[4] = {
        {r.left, r.top, r.right, r.top + w},                // top
        {r.left, r.bottom - w, r.right, r.bottom},          // bottom
        {r.left, r.top + w, r.left + w, r.bottom - w},      // left
        {r.right - w, r.top + w, r.right, r.bottom - w},    // right
    };
    BOOL ok = TRUE;
    // Outlined, not filled: intended, and visible with widths of 3 or more.
    for (const RECT& strip : strips) ok = (::FrameRect(m_hdc, &strip, brush) != 0) && ok;
    return ok;
}

}  // namespace Velkan
