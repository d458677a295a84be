#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/Brush.h"
#include "velkan/gfx/Font.h"

using namespace Velkan;

namespace {

bool Alive(HGDIOBJ h) { return ::GetObjectType(h) != 0; }
unsigned Temps() { return std::get<0>(CGdiObject::GetContextInfo()); }
unsigned Entries() { return std::get<1>(CGdiObject::GetContextInfo()); }

HFONT ForeignFont() {
    LOGFONTW lf = {};
    lf.lfHeight = -13;
    return ::CreateFontIndirectW(&lf);
}

}  // namespace

TEST(GdiObject, CopiesShareTheHandleAndTheLastOneDeletesIt) {
    HGDIOBJ h;
    {
        CBrush first(RGB(1, 2, 3));
        h = first.GetHandle();
        ASSERT_TRUE(Alive(h));
        {
            CBrush second(first);
            CBrush third;
            third = second;
            EXPECT_EQ(3, first.GetReferenceCount());
            EXPECT_EQ(h, third.GetHandle());
        }
        EXPECT_EQ(1, first.GetReferenceCount());
        EXPECT_TRUE(Alive(h));

        CBrush moved(std::move(first));
        EXPECT_EQ(0, first.GetReferenceCount());
        EXPECT_EQ(h, moved.GetHandle());
        EXPECT_TRUE(Alive(h));
    }
    EXPECT_FALSE(Alive(h));
}

TEST(GdiObject, AttachingAnOwnedHandleSharesOneRecord) {
    const unsigned entries = Entries();
    HGDIOBJ h;
    {
        CBrush owner(RGB(9, 9, 9));
        h = owner.GetHandle();
        CGdiObject other;
        other.Attach(h);
        EXPECT_EQ(2, owner.GetReferenceCount());
        EXPECT_EQ(2, other.GetReferenceCount());
        EXPECT_EQ(entries + 1, Entries());
    }
    EXPECT_FALSE(Alive(h));
    EXPECT_EQ(entries, Entries());

    // Re-attaching replaces the old handle, deleting it when it was the
    // last owner.
    CGdiObject holder(::CreateSolidBrush(RGB(4, 4, 4)));
    HGDIOBJ old = holder.GetHandle();
    holder.Attach(::CreateSolidBrush(RGB(5, 5, 5)));
    EXPECT_FALSE(Alive(old));
    EXPECT_TRUE(Alive(holder.GetHandle()));
}

TEST(GdiObject, DetachKeepsTheHandleAlive) {
    HGDIOBJ h;
    {
        CBrush brush(RGB(10, 20, 30));
        CBrush copy(brush);
        h = brush.Detach();
        EXPECT_EQ(nullptr, brush.GetHandle());
        EXPECT_EQ(nullptr, copy.GetHandle());  // the shared record gave it up
    }
    EXPECT_TRUE(Alive(h));
    ::DeleteObject(h);
}

TEST(GdiObject, ForeignHandlesGetTemporariesThatNeverDeleteThem) {
    EXPECT_EQ(nullptr, CFont::FromHfont(nullptr));
    EXPECT_EQ(nullptr, CBitmap::FromHbitmap(nullptr));
    EXPECT_EQ(0u, Temps());

    HFONT foreign = ForeignFont();
    CFont* first = CFont::FromHfont(foreign);
    CFont* second = CFont::FromHfont(foreign);
    ASSERT_NE(nullptr, first);
    EXPECT_NE(first, second);  // the table is not changed by temporaries
    EXPECT_TRUE(first->IsTempGdiObj());
    EXPECT_EQ(foreign, first->GetHfont());
    EXPECT_EQ(2u, Temps());
    CGdiObject::CleanUpTempObjects();
    EXPECT_EQ(0u, Temps());
    EXPECT_TRUE(Alive(foreign));

    // A permanent wrapper is always the answer for its handle; a wrapper
    // of another kind is not a font.
    CFont font(foreign);
    EXPECT_EQ(&font, CFont::FromHfont(foreign));
    CBrush brush(RGB(0, 0, 0));
    EXPECT_EQ(nullptr, CFont::FromHfont(reinterpret_cast<HFONT>(brush.GetHandle())));

    // Temporaries are not in the table: attaching their handle makes a
    // new owner, and the temporary stays non-owning.
    HFONT other = ForeignFont();
    CFont* temp = CFont::FromHfont(other);
    {
        CFont owner(other);
        EXPECT_FALSE(owner.IsTempGdiObj());
        EXPECT_TRUE(temp->IsTempGdiObj());
        EXPECT_EQ(&owner, CFont::FromHfont(other));
    }
    CGdiObject::CleanUpTempObjects();
    EXPECT_FALSE(Alive(other));
}

TEST(GdiObject, AThreadsTemporariesEndWithIt) {
    HFONT foreign = ForeignFont();
    unsigned inThread = 0;
    std::thread([&] {
        CFont::FromHfont(foreign);
        CBitmap::FromHbitmap(::CreateBitmap(1, 1, 1, 1, nullptr));
        inThread = Temps();
    }).join();
    EXPECT_EQ(2u, inThread);
    EXPECT_EQ(0u, Temps());
    EXPECT_TRUE(Alive(foreign));
    ::DeleteObject(foreign);
}

// The DPI the harness set for this run of the tests (96 or 144).
int ExpectedDpi() {
    wchar_t text[8] = {};
    return ::GetEnvironmentVariableW(L"VELKAN_TEST_DPI", text, 8) ? _wtoi(text) : 96;
}

TEST(Font, PointSizesBecomePixelHeightsForTheDc) {
    HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    ASSERT_EQ(ExpectedDpi(), dpi);

    CFont font;
    ASSERT_NE(nullptr, font.CreatePointFont(9, CFont::SANS_FONT_FAMILY, nullptr, TRUE, TRUE, FALSE, TRUE));
    LOGFONTW lf = font.GetLogFont();
    EXPECT_EQ(dpi == 96 ? -12 : -18, lf.lfHeight);  // 9 pt, rounded by MulDiv
    EXPECT_STREQ(L"Segoe UI", lf.lfFaceName);
    EXPECT_EQ(FW_BOLD, lf.lfWeight);
    EXPECT_EQ(1, lf.lfItalic);
    EXPECT_EQ(0, lf.lfUnderline);
    EXPECT_EQ(1, lf.lfStrikeOut);
    EXPECT_EQ(DEFAULT_CHARSET, lf.lfCharSet);

    // The face name is cut to 31 characters and a terminator.
    CFont longName;
    longName.CreatePointFont(10, L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghij");
    EXPECT_EQ(31u, std::wcslen(longName.GetLogFont().lfFaceName));
    EXPECT_EQ(-::MulDiv(10, dpi, 72), longName.GetLogFont().lfHeight);

    // An explicit DC decides, whatever the screen says.
    HDC printerLike = ::CreateCompatibleDC(nullptr);
    CFont fromDc;
    fromDc.CreatePointFont(12, CFont::FIXED_FONT_FAMILY, printerLike);
    EXPECT_EQ(-::MulDiv(12, ::GetDeviceCaps(printerLike, LOGPIXELSY), 72), fromDc.GetLogFont().lfHeight);
    ::DeleteDC(printerLike);
}

TEST(Bitmap, QueriesTellDibsFromPaletteAndDeviceBitmaps) {
    CBitmap empty;
    EXPECT_FALSE(empty.IsValid());
    EXPECT_EQ(CSize(0, 0), empty.GetSize());

    CBitmap mono(7, 5, 1, 1, nullptr);
    EXPECT_EQ(CSize(7, 5), mono.GetSize());
    EXPECT_TRUE(mono.HasPalette());
    EXPECT_FALSE(mono.HasAlpha());

    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 4, -3, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    CBitmap dib(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    EXPECT_TRUE(dib.HasAlpha());
    EXPECT_FALSE(dib.HasPalette());
    EXPECT_EQ(&dib, CBitmap::FromHbitmap(dib));

    info.bmiHeader.biBitCount = 24;
    CBitmap rgb(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    EXPECT_FALSE(rgb.HasAlpha());
}
