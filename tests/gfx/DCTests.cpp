#include <gtest/gtest.h>

#include <cstdlib>

#include "Dib.h"
#include "velkan/app/Wnd.h"
#include "velkan/gfx/Brush.h"
#include "velkan/gfx/Font.h"
#include "velkan/gfx/ScopedDC.h"

using namespace Velkan;
using Testing::Canvas;
using Testing::Dib;

namespace {

const uint32_t kRgb = 0x00FFFFFF;

// A window whose class keeps one DC for good, so that state changes made
// through a scoped DC would still be visible after it is released.
class OwnDcWnd : public CWnd {
protected:
    void PreRegisterWndClass(WNDCLASSEXW& wc) override {
        wc.lpszClassName = L"VelkanTestOwnDc";
        wc.style = CS_OWNDC;
    }
    void PreCreate(CREATESTRUCTW& cs) override {
        cs.style = WS_POPUP;
        cs.cx = 60;
        cs.cy = 40;
    }
};

bool Near(uint32_t a, uint32_t b, int tolerance) {
    for (int shift = 0; shift < 32; shift += 8) {
        int ca = (a >> shift) & 0xFF, cb = (b >> shift) & 0xFF;
        if (std::abs(ca - cb) > tolerance) return false;
    }
    return true;
}

}  // namespace

TEST(DC, FromHdcGivesThePermanentWrapperOrAFreshTemporary) {
    EXPECT_EQ(nullptr, CDC::FromHdc(nullptr));
    HDC foreign = ::CreateCompatibleDC(nullptr);
    CDC* first = CDC::FromHdc(foreign);
    CDC* second = CDC::FromHdc(foreign);
    EXPECT_NE(first, second);
    EXPECT_EQ(foreign, first->GetHdc());
    EXPECT_EQ(2u, std::get<0>(CDC::GetContextInfo()));
    CDC::CleanUpTempObjects();
    EXPECT_EQ(0u, std::get<0>(CDC::GetContextInfo()));
    EXPECT_NE(0, ::GetObjectType(foreign));  // a temporary never releases its DC
    ::DeleteDC(foreign);

    const unsigned entries = std::get<1>(CDC::GetContextInfo());
    {
        CMemDC memory(nullptr);
        EXPECT_EQ(&memory, CDC::FromHdc(memory));
        EXPECT_EQ(entries + 1, std::get<1>(CDC::GetContextInfo()));
    }
    EXPECT_EQ(entries, std::get<1>(CDC::GetContextInfo()));
}

TEST(DC, ScopedDcsRestoreWhatWasSelectedMeanwhile) {
    OwnDcWnd wnd;
    ASSERT_NE(nullptr, wnd.Create());
    HDC own = ::GetDC(wnd);
    ::ReleaseDC(wnd, own);
    HGDIOBJ fontBefore = ::GetCurrentObject(own, OBJ_FONT);
    HGDIOBJ brushBefore = ::GetCurrentObject(own, OBJ_BRUSH);
    const COLORREF colourBefore = ::GetTextColor(own);

    CFont font;
    font.CreatePointFont(20, CFont::FIXED_FONT_FAMILY);
    CBrush brush(RGB(200, 0, 0));
    {
        CClientDC dc(&wnd);
        ASSERT_EQ(own, dc.GetHdc());
        EXPECT_EQ(&dc, CDC::FromHdc(own));
        dc.SelectObject(font);
        dc.SelectObject(brush);
        dc.SetTextColor(RGB(1, 2, 3));
        EXPECT_EQ(font.GetHandle(), ::GetCurrentObject(own, OBJ_FONT));
    }
    EXPECT_EQ(fontBefore, ::GetCurrentObject(own, OBJ_FONT));
    EXPECT_EQ(brushBefore, ::GetCurrentObject(own, OBJ_BRUSH));
    EXPECT_EQ(colourBefore, ::GetTextColor(own));
    {
        CWindowDC dc(&wnd);
        dc.SetTextColor(RGB(4, 5, 6));
    }
    EXPECT_EQ(colourBefore, ::GetTextColor(own));
}

TEST(DC, DrawBitmapCopiesAtTheBitmapsSizeOrCrops) {
    Dib source(4, 3, 32, 0xFF00FF00);
    source.Set(3, 2, 0xFFFF0000);
    Canvas canvas(10, 10);
    CDC& dc = *CDC::FromHdc(canvas.dc);
    EXPECT_TRUE(dc.DrawBitmap(source.bitmap, 2, 2));
    EXPECT_EQ(0x00FF00u, canvas.At(2, 2) & kRgb);
    EXPECT_EQ(0xFF0000u, canvas.At(5, 4) & kRgb);
    EXPECT_EQ(0u, canvas.At(6, 4) & kRgb);
    EXPECT_EQ(0u, canvas.At(5, 5) & kRgb);

    Canvas cropped(10, 10);
    CDC::FromHdc(cropped.dc)->DrawBitmap(source.bitmap, 0, 0, 2, 2);
    EXPECT_EQ(0x00FF00u, cropped.At(1, 1) & kRgb);
    EXPECT_EQ(0u, cropped.At(2, 1) & kRgb);
    EXPECT_EQ(0u, cropped.At(1, 2) & kRgb);
    CDC::CleanUpTempObjects();
}

TEST(DC, AlphaBlendBitmapBlendsPremultipliedPixelsAndScales) {
    // Half-transparent blue, premultiplied, over white.
    Dib source(2, 2, 32, 0x80000080);
    Canvas canvas(8, 8, 0xFFFFFFFF);
    CDC& dc = *CDC::FromHdc(canvas.dc);
    EXPECT_TRUE(dc.AlphaBlendBitmap(source.bitmap, 0, 0, 4, 4));
    EXPECT_TRUE(Near(canvas.At(3, 3) & kRgb, 0x7F7FFF, 2)) << std::hex << canvas.At(3, 3);
    EXPECT_EQ(0xFFFFFFu, canvas.At(4, 4) & kRgb);

    // The call leaves no memory DC behind. Wine reports no GDI object
    // counts (GetGuiResources is 0), but it reuses the slot of the handle
    // freed last: a DC made after the call takes the slot the call's own
    // DC had, which a leaked DC would still hold.
    HDC probe = ::CreateCompatibleDC(nullptr);
    const WORD slot = LOWORD(reinterpret_cast<UINT_PTR>(probe));
    ::DeleteDC(probe);
    dc.AlphaBlendBitmap(source.bitmap, 0, 0);
    probe = ::CreateCompatibleDC(nullptr);
    EXPECT_EQ(slot, LOWORD(reinterpret_cast<UINT_PTR>(probe)));
    ::DeleteDC(probe);
    EXPECT_FALSE(dc.AlphaBlendBitmap(nullptr, 0, 0));
    EXPECT_FALSE(dc.DrawBitmap(nullptr, 0, 0));
    EXPECT_FALSE(dc.StretchBitmap(nullptr, RECT{0, 0, 4, 4}));
    CDC::CleanUpTempObjects();
}

TEST(DC, StretchBitmapBlendsAlphaBitmapsAndStretchesOthers) {
    // Fully transparent 32-bit pixels leave the canvas as it was; a plain
    // stretch would have painted them black.
    Dib transparent(2, 2, 32, 0x00000000);
    transparent.Set(0, 0, 0xFF0000FF);
    Canvas canvas(6, 6, 0xFFFFFFFF);
    CDC& dc = *CDC::FromHdc(canvas.dc);
    EXPECT_TRUE(dc.StretchBitmap(transparent.bitmap, RECT{0, 0, 6, 6}));
    EXPECT_EQ(0x0000FFu, canvas.At(0, 0) & kRgb);
    EXPECT_EQ(0xFFFFFFu, canvas.At(5, 5) & kRgb);

    Dib opaque(2, 2, 24, 0xFF0000);
    Canvas second(6, 6, 0xFFFFFFFF);
    EXPECT_TRUE(CDC::FromHdc(second.dc)->StretchBitmap(opaque.bitmap, RECT{0, 0, 6, 6}));
    EXPECT_EQ(0xFF0000u, second.At(0, 0) & kRgb);
    EXPECT_EQ(0xFF0000u, second.At(5, 5) & kRgb);
    CDC::CleanUpTempObjects();
    CGdiObject::CleanUpTempObjects();
}

TEST(DC, WideFrameRectOutlinesEachStrip) {
    CBrush black(RGB(0, 0, 0));
    for (int width : {1, 2, 4}) {
        Canvas canvas(20, 20, 0xFFFFFFFF);
        EXPECT_TRUE(CDC::FromHdc(canvas.dc)->FrameRect(RECT{0, 0, 20, 20}, black, width)) << width;
        for (int row = 0; row < width; ++row) {
            // Solid for widths 1 and 2; with 4 the strip's inner rows stay.
            const bool outline = row == 0 || row == width - 1;
            EXPECT_EQ(outline ? 0u : 0xFFFFFFu, canvas.At(8, row) & kRgb) << width << " row " << row;
            EXPECT_EQ(outline ? 0u : 0xFFFFFFu, canvas.At(8, 19 - row) & kRgb) << width << " row " << row;
            EXPECT_EQ(outline ? 0u : 0xFFFFFFu, canvas.At(row, 8) & kRgb) << width << " col " << row;
            EXPECT_EQ(outline ? 0u : 0xFFFFFFu, canvas.At(19 - row, 8) & kRgb) << width << " col " << row;
        }
        EXPECT_EQ(0xFFFFFFu, canvas.At(10, width) & kRgb) << width;
    }
    CDC::CleanUpTempObjects();
}
