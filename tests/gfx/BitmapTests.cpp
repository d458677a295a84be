#include <gtest/gtest.h>

#include <cstdlib>

#include "Dib.h"
#include "velkan/core/Exceptions.h"
#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/Icon.h"

using namespace Velkan;

namespace {

enum { kStrip16 = 1001, kStrip32 = 1002, kPal8 = 1003, kRgb24 = 1004, kAlpha32 = 1005, kColours = 1006, kIcon = 1008 };

// Pixel (x, y) of any bitmap as 0xAARRGGBB, read through a 32-bit copy.
uint32_t PixelOf(HBITMAP bitmap, int x, int y) {
    BITMAP info = {};
    ::GetObjectW(bitmap, sizeof(info), &info);
    std::vector<uint32_t> pixels(static_cast<size_t>(info.bmWidth) * info.bmHeight);
    BITMAPINFO header = {};
    header.bmiHeader = {sizeof(BITMAPINFOHEADER), info.bmWidth, -info.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    HDC screen = ::GetDC(nullptr);
    ::GetDIBits(screen, bitmap, 0, static_cast<UINT>(info.bmHeight), pixels.data(), &header, DIB_RGB_COLORS);
    ::ReleaseDC(nullptr, screen);
    return pixels[static_cast<size_t>(y) * info.bmWidth + x];
}

bool Near(uint32_t a, uint32_t b, int tolerance = 2) {
    for (int shift = 0; shift < 32; shift += 8) {
        if (std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF)) > tolerance)
            return false;
    }
    return true;
}

}  // namespace

TEST(BitmapLoading, ResourcesAndDpiSizes) {
    CBitmap plain(kStrip16, nullptr);
    EXPECT_EQ(CSize(64, 16), plain.GetSize());
    EXPECT_EQ(CSize(96, 24), CBitmap(kStrip16, 144, nullptr).GetSize());
    EXPECT_EQ(CSize(80, 20), CBitmap(kStrip16, 120, nullptr).GetSize());
    EXPECT_EQ(CSize(128, 32), CBitmap(kStrip16, 192, nullptr).GetSize());
    CBitmap same(kStrip16, 96, nullptr);  // stretched even at 96
    EXPECT_EQ(CSize(64, 16), same.GetSize());
    EXPECT_TRUE(same.HasAlpha());

    CBitmap png(kColours, L"PNG", nullptr);
    EXPECT_EQ(CSize(4, 1), png.GetSize());
    EXPECT_TRUE(png.HasAlpha());
    EXPECT_EQ(0xFFFF0000u, PixelOf(png, 0, 0));
    EXPECT_EQ(0xFF0000FFu, PixelOf(png, 2, 0));
    EXPECT_EQ(CSize(8, 2), CBitmap(kColours, L"PNG", 192, nullptr).GetSize());

    EXPECT_THROW(CBitmap(9999, nullptr), CResourceNotFoundException);
    EXPECT_THROW(CBitmap(9999, L"PNG", nullptr), CResourceNotFoundException);
    EXPECT_THROW(CBitmap(9999, 144, nullptr), CResourceNotFoundException);
    CBitmap quiet;
    EXPECT_EQ(nullptr, quiet.LoadBitmapResource(9999, nullptr));
    EXPECT_EQ(nullptr, quiet.LoadImageResource(9999, L"PNG", nullptr));
    EXPECT_THROW(Gdiplus::BitmapEx(9999, L"PNG", nullptr), CResourceNotFoundException);
    Gdiplus::BitmapEx decoded(kColours, L"PNG", nullptr);
    EXPECT_EQ(CSize(4, 1), decoded.GetSize());
}

TEST(BitmapDerived, ScalingKeepsAlphaOnlyWhereThereWasAlpha) {
    Testing::Dib fifteen(15, 15, 32, 0xFF102030);
    CBitmap source(fifteen.bitmap);
    EXPECT_EQ(CSize(23, 23), source.GetScaled(1.5f).GetSize());
    source.Detach();

    CBitmap alpha(kAlpha32, nullptr);
    ASSERT_TRUE(alpha.HasAlpha());
    CBitmap stretched = alpha.GetStretched(32, 32, TRUE);
    EXPECT_TRUE(Near(0xFFFF0000u, PixelOf(stretched, 4, 4)));
    EXPECT_TRUE(Near(0x8000FF00u, PixelOf(stretched, 28, 4))) << std::hex << PixelOf(stretched, 28, 4);

    CBitmap opaque = CBitmap(kRgb24, nullptr).GetStretched(8, 8, FALSE);
    EXPECT_EQ(0xFFFF00FFu, PixelOf(opaque, 0, 0));  // 24-bit art comes out opaque
}

TEST(BitmapDerived, OnlyPaletteBitmapsAreMasked) {
    CBitmap palette(kPal8, nullptr);
    EXPECT_TRUE(palette.HasPalette());
    CBitmap masked = palette.GetMasked(RGB(255, 0, 255));
    EXPECT_EQ(0x00FFFFFFu, PixelOf(masked, 0, 0));
    EXPECT_EQ(0xFF808080u, PixelOf(masked, 3, 0));

    // Deliberate: a 24-bit bitmap is copied, magenta stays.
    CBitmap rgb(kRgb24, nullptr);
    EXPECT_FALSE(rgb.HasPalette());
    EXPECT_EQ(0xFFFF00FFu, PixelOf(rgb.GetMasked(RGB(255, 0, 255)), 0, 0));
}

TEST(BitmapDerived, GrayscaleIsTheLuminance) {
    CBitmap grey = CBitmap(kColours, L"PNG", nullptr).GetGrayscale();
    EXPECT_TRUE(Near(0xFF4C4C4Cu, PixelOf(grey, 0, 0))) << std::hex << PixelOf(grey, 0, 0);  // 0.299 x 255
    EXPECT_TRUE(Near(0xFF969696u, PixelOf(grey, 1, 0))) << std::hex << PixelOf(grey, 1, 0);  // 0.587 x 255
    EXPECT_TRUE(Near(0xFF1D1D1Du, PixelOf(grey, 2, 0))) << std::hex << PixelOf(grey, 2, 0);  // 0.114 x 255
    EXPECT_TRUE(Near(0xFFFFFFFFu, PixelOf(grey, 3, 0)));
}

TEST(BitmapDerived, IconsKeepTheirAlpha) {
    CIcon icon(kIcon, 16, 16, nullptr);
    CBitmap bitmap(icon);
    EXPECT_EQ(CSize(16, 16), bitmap.GetSize());
    EXPECT_EQ(0xFF0000FFu, PixelOf(bitmap, 3, 3));
    // The icon's alpha is kept; its colour arrives blended onto the zeroed
    // (black) bitmap, so red 255 at alpha 64 reads 64.
    EXPECT_TRUE(Near(0x40400000u, PixelOf(bitmap, 3, 12))) << std::hex << PixelOf(bitmap, 3, 12);
    EXPECT_THROW(CIcon(9999, CIcon::Small, nullptr), CResourceNotFoundException);
}

TEST(BitmapBundle, PicksTheClosestArtworkAndScalesIt) {
    CBitmapBundle single({kStrip16});
    for (int dpi : {96, 120, 144, 192, 240}) EXPECT_EQ(1, single.GetBestScaleFactorForDpi(dpi)) << dpi;
    EXPECT_EQ(CSize(96, 24), single.GetBitmapForDpi(144).GetSize());
    EXPECT_EQ(single.GetCachedBitmapForScaleFactor(1).GetHandle(), single.GetBitmapForDpi(96).GetHandle());

    CBitmapBundle pair({kStrip16, kStrip32});
    EXPECT_EQ(1, pair.GetBestScaleFactorForDpi(119));
    EXPECT_EQ(2, pair.GetBestScaleFactorForDpi(120));  // scaled down, not up
    EXPECT_EQ(2, pair.GetBestScaleFactorForDpi(240));
    EXPECT_EQ(CSize(80, 20), pair.GetBitmapForDpi(120).GetSize());
    EXPECT_EQ(CSize(64, 16), pair.GetBitmapForDpi(96).GetSize());
    EXPECT_EQ(CSize(120, 30), pair.GetBitmapForDpi(180).GetSize());

    CBitmapBundle gap({kStrip16, 0, kStrip32});
    EXPECT_EQ(1, gap.GetBestScaleFactorForDpi(144));  // a tie goes to the smaller
    EXPECT_EQ(3, gap.GetBestScaleFactorForDpi(240));

    CBitmapBundle doubleOnly({0, kStrip32});
    CBitmapBundle copy(doubleOnly);
    EXPECT_EQ(CSize(64, 16), doubleOnly.GetNominalSize());
    EXPECT_TRUE(copy.GetCachedBitmapForScaleFactor(2).IsValid());  // the cache is shared

    CBitmapBundle none({});
    EXPECT_EQ(CSize(0, 0), none.GetNominalSize());
    try {
        none.GetBitmapForDpi(96);
        FAIL() << "no exception";
    } catch (const CResourceNotFoundException& e) {
        EXPECT_STREQ("BitmapBundle: No bitmap resources available", e.what());
    }
    CBitmapBundle missing({4242});
    EXPECT_THROW(missing.GetBitmapForDpi(96), CResourceNotFoundException);
}
