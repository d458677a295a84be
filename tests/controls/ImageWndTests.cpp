#include <gtest/gtest.h>

#include <vector>

#include "ControlsTestSupport.h"
#include "velkan/controls/ImageWnd.h"

using namespace Velkan;
using Testing::Capture;
using Testing::Parent;

namespace {

constexpr uint32_t kRed = 0xFF0000, kGreen = 0x00FF00;

// A 40 x 20 bitmap of one opaque colour (0xRRGGBB).
CBitmap SolidBitmap(uint32_t rgb) {
    std::vector<uint32_t> bits(40 * 20, 0xFF000000u | rgb);
    return CBitmap(40, 20, 1, 32, bits.data());
}

}  // namespace

TEST(ImageWnd, ImageRectFollowsTheFitMode) {
    CImageWnd image;
    image.SetBitmap(SolidBitmap(kRed));
    const struct { CImageWnd::FitMode mode; CSize client; CRect expected; } cases[] = {
        {CImageWnd::FitNone, CSize(200, 200), CRect(0, 0, 40, 20)},
        {CImageWnd::FitNone, CSize(10, 10), CRect(0, 0, 40, 20)},
        {CImageWnd::FitInside, CSize(200, 200), CRect(0, 50, 200, 150)},
        {CImageWnd::FitInside, CSize(400, 100), CRect(100, 0, 300, 100)},
        {CImageWnd::FitInside, CSize(20, 100), CRect(0, 45, 20, 55)},
        {CImageWnd::FitFill, CSize(200, 200), CRect(-100, 0, 300, 200)},
        {CImageWnd::FitFill, CSize(400, 100), CRect(0, -50, 400, 150)},
        {CImageWnd::FitCentre, CSize(200, 100), CRect(80, 40, 120, 60)},
        {CImageWnd::FitCentre, CSize(20, 10), CRect(-10, -5, 30, 15)},
    };
    for (const auto& c : cases) {
        image.SetFitMode(c.mode);
        const CRect rect = image.GetImageRect(c.client);
        EXPECT_EQ(c.expected, rect) << "mode " << c.mode << " in " << c.client.cx << " x " << c.client.cy << ": "
                                    << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom;
    }
}

TEST(ImageWnd, PaintsTheBitmapInItsRectAndTheBackgroundAround) {
    Parent parent(true);
    CImageWnd image;
    ASSERT_NE(nullptr, image.Create(parent, 31, CRect(0, 0, 200, 150)));
    EXPECT_EQ(CString(L"VlkImageWnd"), image.GetClassNameW());
    image.SetBitmap(SolidBitmap(kRed));
    image.SetBackgroundColor(RGB(0, 255, 0));
    for (CImageWnd::FitMode mode : {CImageWnd::FitNone, CImageWnd::FitInside, CImageWnd::FitCentre}) {
        image.SetFitMode(mode);
        const Capture shown(image);
        ASSERT_EQ(200, shown.width);
        const CRect rect = image.GetImageRect(CSize(200, 150));
        int wrong = 0;
        for (int y = 0; y < shown.height; ++y)
            for (int x = 0; x < shown.width; ++x)
                wrong += shown.At(x, y) != (::PtInRect(&rect, POINT{x, y}) ? kRed : kGreen);
        EXPECT_EQ(0, wrong) << "mode " << mode;
    }
    image.SetFitMode(CImageWnd::FitFill);
    EXPECT_EQ(200 * 150, Capture(image).Count(kRed));
}
