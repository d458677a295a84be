#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "velkan/core/Exceptions.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/gfx/detail/PixelSwap.h"
#include "support/Fuzz.h"

using namespace Velkan;

namespace {

const char kSquare[] =
    "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
    "<rect x='0' y='0' width='16' height='16' fill='currentColor'/></svg>";
// The menu renderers' built-in check mark and bullet, as they store them.
#define MENU_ICON(shape)                                                                               \
    "\n<svg xmlns=\"http://www.w3.org/2000/svg\" xml:space=\"preserve\" "                              \
    "style=\"fill:currentColor;fill-rule:evenodd;clip-rule:evenodd;stroke-linejoin:round;"            \
    "stroke-miterlimit:2\" viewBox=\"0 0 16 16\">" shape "</svg>\n  "
const char kCheck[] = MENU_ICON("<path d=\"m4 6.547 2.5 2.559L11 4.5v2.894L6.5 12 4 9.441z\"/>");
const char kBullet[] = MENU_ICON("<circle cx=\"24\" cy=\"8\" r=\"3\" transform=\"translate(-16)\"/>");

// What the protected helpers do, reachable for the tests.
struct SvgProbe : CSvgImage {
    using CSvgImage::ABGRtoARGB;
    using CSvgImage::ColorRefToHexString;
};

uint32_t Pixel(const CBitmap& bitmap, int x, int y) {
    DIBSECTION section = {};
    bitmap.GetDIBSection(&section);
    const auto* row = static_cast<const uint8_t*>(section.dsBm.bmBits) + y * section.dsBm.bmWidthBytes;
    return reinterpret_cast<const uint32_t*>(row)[x];
}

}  // namespace

TEST(Svg, CurrentColorIsReplacedWhenTheDocumentIsParsed) {
    EXPECT_EQ("#ff8000", SvgProbe::ColorRefToHexString(RGB(255, 128, 0)));
    CSvgImage orange(kSquare, RGB(255, 128, 0));
    ASSERT_TRUE(orange.IsValid());
    EXPECT_EQ(CSize(16, 16), orange.GetSize());
    CBitmap bitmap = orange.Render(1.0f);
    EXPECT_EQ(0xFFFF8000u, Pixel(bitmap, 8, 8));  // B, G, R, A in memory

    // A later colour waits for the next parse.
    orange.SetCurrentColor(RGB(0, 0, 255));
    EXPECT_EQ(0xFFFF8000u, Pixel(orange.Render(1.0f), 8, 8));
    orange.SetSvg(kSquare);
    EXPECT_EQ(0xFF0000FFu, Pixel(orange.Render(1.0f), 8, 8));

    std::unique_ptr<Gdiplus::Bitmap> ex = orange.RenderEx(2.0f);
    ASSERT_TRUE(ex);
    Gdiplus::Color colour;
    ex->GetPixel(16, 16, &colour);
    EXPECT_EQ(0xFF0000FFu, colour.GetValue());
}

TEST(Svg, MenuIconsRenderAtAnyScaleInTheTint) {
    for (const char* document : {kCheck, kBullet}) {
        for (float scale : {1.0f, 1.25f, 1.5f, 2.0f}) {
            CSvgImage icon(document, RGB(0, 160, 0));
            ASSERT_EQ(CSize(16, 16), icon.GetSize());
            CBitmap bitmap = icon.Render(scale);
            const CSize size = bitmap.GetSize();
            EXPECT_EQ(static_cast<LONG>(std::ceil(16 * scale)), size.cx) << scale;
            int tinted = 0, other = 0;
            for (int y = 0; y < size.cy; ++y) {
                for (int x = 0; x < size.cx; ++x) {
                    const uint32_t p = Pixel(bitmap, x, y);
                    if ((p >> 24) != 0xFF) continue;  // edges are partly covered
                    (p == 0xFF00A000u ? tinted : other)++;
                }
            }
            EXPECT_GE(tinted, static_cast<int>(5 * scale * scale)) << scale;
            EXPECT_EQ(0, other) << scale;
            // The bullet sits in the middle once translated back.
            if (document == kBullet) {
                EXPECT_EQ(0xFF00A000u, Pixel(bitmap, size.cx / 2, size.cy / 2)) << scale;
            }
        }
    }
}

TEST(Svg, InvalidDocumentsGiveFalseOrTheStatedException) {
    CSvgImage svg;
    EXPECT_FALSE(svg.SetSvg("<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'/>"));
    EXPECT_EQ(CSize(0, 0), svg.GetSize());
    EXPECT_FALSE(svg.Render(1.0f).IsValid());
    EXPECT_FALSE(svg.RenderEx(1.0f));
    EXPECT_FALSE(svg.SetSvg(""));
    EXPECT_FALSE(svg.LoadFromFile(L"C:\\no\\such.svg"));
    EXPECT_FALSE(svg.LoadFromResource(9999, nullptr));
    try {
        CSvgImage bad("not svg at all", RGB(0, 0, 0));
        FAIL() << "no exception";
    } catch (const CRuntimeException& e) {
        EXPECT_STREQ("Failed to parse SVG data.", e.what());
    }
    EXPECT_THROW(CSvgImage(9999, nullptr, RGB(0, 0, 0)), CResourceNotFoundException);

    // Thousands of mutations of real documents: never a crash or a hang, and
    // what renders renders the same twice.
    const Testing::FuzzRun run = Testing::FuzzSettings("SVG mutations", 3000);
    std::mt19937 random(run.seed);
    const std::string seeds[] = {
        kCheck, kBullet,
        "<svg xmlns='http://www.w3.org/2000/svg' width='12' height='12'><g transform='rotate(30 6 6) skewX(10)'>"
        "<path d='M1 1 C4 9 8 -3 11 11' stroke='#000' stroke-width='1.5' stroke-dasharray='2 1' fill='none'/>"
        "</g></svg>",
        "<svg xmlns='http://www.w3.org/2000/svg' width='12' height='12'><defs><linearGradient id='g' "
        "gradientTransform='scale(0.5)'><stop offset='0' stop-color='#f00'/><stop offset='1'/></linearGradient>"
        "</defs><rect width='12' height='12' rx='3' fill='url(#g)' stroke='#00f' stroke-linejoin='round'/></svg>",
    };
    const char alphabet[] = "<>/='\"0123456789.-e+ MLZmlzCcQqAa#(),";
    for (int round = 0; round < run.rounds; ++round) {
        std::string text = seeds[random() % 4];
        for (int i = 0, edits = 1 + random() % 8; i < edits; ++i) {
            const size_t at = random() % text.size();
            switch (random() % 3) {
            case 0: text[at] = alphabet[random() % (sizeof(alphabet) - 1)]; break;
            case 1: text.erase(at, 1 + random() % 4); break;
            default: text.insert(at, std::string(1 + random() % 3, alphabet[random() % (sizeof(alphabet) - 1)]));
            }
            if (text.empty()) text = "<";
        }
        if (!svg.SetSvg(text.c_str(), static_cast<UINT>(text.size()))) continue;
        const CBitmap once = svg.Render(1.0f), twice = svg.Render(1.0f);
        svg.Render(1.5f);
        svg.Render(2.0f);
        if (!once.IsValid()) continue;
        DIBSECTION first = {}, second = {};
        once.GetDIBSection(&first);
        twice.GetDIBSection(&second);
        ASSERT_EQ(0, std::memcmp(first.dsBm.bmBits, second.dsBm.bmBits,
                                 static_cast<size_t>(first.dsBm.bmWidthBytes) * first.dsBm.bmHeight))
            << "seed " << run.seed << ", round " << round << ": " << text;
    }
    // Sizes no bitmap can hold give an empty result, not a short buffer.
    ASSERT_TRUE(svg.SetSvg("<svg width='1e30' height='1e30'><rect width='1e30' height='1e30'/></svg>"));
    EXPECT_FALSE(svg.Render(1.0f).IsValid());
    EXPECT_FALSE(svg.RenderEx(1.0f));
    ASSERT_TRUE(svg.SetSvg("<svg width='32768' height='32768'><rect width='1' height='1'/></svg>"));
    EXPECT_FALSE(svg.Render(1.0f).IsValid());  // 4 GiB of pixels
    EXPECT_FALSE(svg.RenderEx(0.5f + 0.5f));
    ASSERT_TRUE(svg.SetSvg("<svg width='16384' height='1024'><rect width='1' height='1'/></svg>"));
    EXPECT_EQ(CSize(16384, 1024), svg.Render(1.0f).GetSize());
    EXPECT_FALSE(svg.RenderEx(1.01f));  // past 2^24 pixels
    ASSERT_TRUE(svg.SetSvg("<svg width='16' height='16'><rect width='16' height='16'/></svg>"));
    EXPECT_FALSE(svg.Render(std::nanf("")).IsValid());
    EXPECT_FALSE(svg.Render(HUGE_VALF).IsValid());
    EXPECT_FALSE(svg.Render(-1.0f).IsValid());
    EXPECT_FALSE(svg.RenderEx(0.0f));
    EXPECT_EQ(CSize(4, 4), svg.Render(0.25f).GetSize());
    std::string deep;
    for (int i = 0; i < 2000; ++i) deep += "<g>";
    svg.SetSvg((deep + "<rect width='1' height='1'/>").c_str());
}

TEST(Svg, TransformsWithMissingArgumentsOrNonFiniteNumbersMakeNoImage) {
    const auto document = [](const std::string& inner) {
        return "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>" + inner + "</svg>";
    };
    const std::string triangle = "<polygon points='1 1 15 1 8 15'/>";
    const auto group = [&](const std::string& attributes) {
        return document("<g " + attributes + ">" + triangle + "</g>");
    };
    CSvgImage svg;
    for (const char* transform : {"skewX", "skewY()", "matrix(1 0 0)", "rotate(30 4)", "translate()",
                                  "scale(2", "translate(1) skewX", "rotate"}) {
        EXPECT_FALSE(svg.SetSvg(group(std::string("transform='") + transform + "'").c_str())) << transform;
        EXPECT_FALSE(svg.SetSvg(group(std::string("style='fill:red; transform: ") + transform + "'").c_str()))
            << transform;
    }
    for (const char* number : {"1e39", "-1e39"}) {
        EXPECT_FALSE(svg.SetSvg(document(std::string("<path d='M1 1 L") + number + " 5' stroke='#000'/>").c_str()))
            << number;
        EXPECT_FALSE(svg.SetSvg(group(std::string("transform='scale(") + number + ")'").c_str())) << number;
    }

    // Complete transform lists keep working, and the word in other places is text.
    for (const char* transform : {"skewX(10)", "matrix(1 0 0 1 0 0)", "rotate(0 8 8)", "rotate(0)",
                                  "translate(0)", "translate(0,0) scale(1)", "scale(1 1)"}) {
        ASSERT_TRUE(svg.SetSvg(group(std::string("transform=\"") + transform + "\"").c_str())) << transform;
        EXPECT_EQ(0xFF000000u, Pixel(svg.Render(1.0f), 8, 4)) << transform;
    }
    EXPECT_TRUE(svg.SetSvg(document("<title>rotate scale skewX</title><g id='matrix'>" + triangle + "</g>").c_str()));

    // Renders are the same every time: a transformed triangle, and a dashed
    // curve whose last dash the rasteriser strokes from fields it never set.
    for (const std::string& text :
         {group("transform='skewX(20)'"),
          std::string("<svg xmlns='http://www.w3.org/2000/svg' width='12'><path d='M1 1 C4 9 8 -3 11 11' "
                      "stroke='#808080' stroke-width='1.5' stroke-dasharray='8 1' fill='none'/></svg>")}) {
        std::vector<uint32_t> reference;
        for (int round = 0; round < 100; ++round) {
            ASSERT_TRUE(svg.SetSvg(text.c_str()));
            const CBitmap bitmap = svg.Render(round % 2 == 0 ? 1.0f : 1.5f);
            std::vector<uint32_t> pixels;
            const CSize size = bitmap.GetSize();
            for (int y = 0; y < size.cy; ++y)
                for (int x = 0; x < size.cx; ++x) pixels.push_back(Pixel(bitmap, x, y));
            if (round < 2) {
                reference.insert(reference.end(), pixels.begin(), pixels.end());
                continue;
            }
            const size_t offset = round % 2 == 0 ? 0 : reference.size() - pixels.size();
            ASSERT_TRUE(std::equal(pixels.begin(), pixels.end(), reference.begin() + offset)) << round << text;
        }
    }
}

// Documents that would keep the rasteriser busy for seconds, or make it write
// through a failed allocation, give an empty render; drawings of ordinary
// size still render.
TEST(Svg, RendersTooLargeForTheRasteriserAreRefused) {
    const auto line = [](const char* to, const char* extra) {
        return std::string("<svg xmlns='http://www.w3.org/2000/svg' width='6' height='6'><path d='M1 1 L") + to +
               " 5' stroke='#000' " + extra + "/></svg>";
    };
    const auto zigzag = [](int segments) {
        std::string path = "<svg xmlns='http://www.w3.org/2000/svg' width='64' height='64'><path d='M0 0";
        char point[32];
        for (int i = 0; i < segments; ++i) {
            std::snprintf(point, sizeof(point), " L%.3f %d", i * 64.0 / segments, (i % 2) * 64);
            path += point;
        }
        return path + "'/></svg>";
    };
    CSvgImage svg;
    struct Case {
        std::string document;
        float scale;
        bool renders;
    };
    const Case cases[] = {
        {line("4e8", "stroke-dasharray='5' stroke-linecap='round'"), 1.0f, true},
        {line("1e6", "stroke-dasharray='5 0.001'"), 2.0f, true},
        {"<svg xmlns='http://www.w3.org/2000/svg' width='6' height='6'><path d='M1 1 C1e6 1 1e6 5 1 5' "
         "stroke='#000' stroke-dasharray='1' fill='none'/></svg>", 1.0f, false},
        {line("1e7", ""), 1.0f, true},
        {line("500", "stroke-dasharray='5'"), 2.0f, true},
        {line("500", "stroke-dasharray='5' stroke-linecap='round'"), 2.0f, true},
        {zigzag(32000), 1.0f, false},
        {zigzag(16000), 1.0f, false},
        {zigzag(2000), 2.0f, true},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(svg.SetSvg(c.document.c_str())) << c.document.substr(0, 120);
        EXPECT_EQ(c.renders, static_cast<bool>(svg.Render(c.scale).IsValid())) << c.document.substr(0, 120);
        EXPECT_EQ(c.renders, static_cast<bool>(svg.RenderEx(c.scale))) << c.document.substr(0, 120);
    }
}

// Dashed strokes that reach millions of units past the image are shortened
// out there: what can be seen is what a copy that stays near the image draws,
// dash for dash, and a fill keeps its winding.
TEST(Svg, FarDashedStrokesDrawWhatANearCopyDraws) {
    const auto document = [](const std::string& path, const char* paint) {
        return "<svg xmlns='http://www.w3.org/2000/svg' width='6' height='6'><path d='" + path + "' " + paint +
               "/></svg>";
    };
    const char* dashed = "stroke='#000' stroke-dasharray='2 1' fill='none'";
    struct Case {
        std::string distant, close;
    };
    const Case cases[] = {
        // Out along a line: the close copy stops on the same line.
        {document("M1 1 L4e8 5", "stroke='#000' stroke-dasharray='5' fill='none'"),
         document("M1 1 L1001 1.00001", "stroke='#000' stroke-dasharray='5' fill='none'")},
        // Out and back: lengths that differ by whole dash patterns.
        {document("M1 2 L3000021 2 L3000021 4 L1 4", dashed), document("M1 2 L21 2 L21 4 L1 4", dashed)},
        // The same, starting distant away.
        {document("M3000021 2 L1 2 L1 4", dashed), document("M21 2 L1 2 L1 4", dashed)},
        // Three quarters of a turn around the image and back: the fill under
        // an unseen dashed stroke is the fill of a smaller copy without one.
        // (The rasteriser's own fill is a little off at millions of units.)
        {document("M3 3 L3e6 3 L3 -3e6 L-3e6 3 L3 3e6 L4 4 Z",
                  "fill='#000' stroke='#000' stroke-opacity='0' stroke-dasharray='2'"),
         document("M3 3 L300 3 L3 -300 L-300 3 L3.9999013 300 L4 4 Z", "fill='#000' stroke='none'")},
    };
    for (const Case& c : cases) {
        CSvgImage distant, close;
        ASSERT_TRUE(distant.SetSvg(c.distant.c_str())) << c.distant;
        ASSERT_TRUE(close.SetSvg(c.close.c_str())) << c.close;
        for (float scale : {1.0f, 2.0f}) {
            const CBitmap distantBitmap = distant.Render(scale), closeBitmap = close.Render(scale);
            ASSERT_TRUE(distantBitmap.IsValid()) << c.distant;
            ASSERT_TRUE(closeBitmap.IsValid()) << c.close;
            int differences = 0, inked = 0;
            const CSize size = closeBitmap.GetSize();
            for (int y = 0; y < size.cy; ++y) {
                for (int x = 0; x < size.cx; ++x) {
                    const uint32_t a = Pixel(distantBitmap, x, y), b = Pixel(closeBitmap, x, y);
                    inked += (b >> 24) != 0;
                    for (int shift = 0; shift < 32; shift += 8) {
                        if (std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF)) > 2)
                            ++differences;
                    }
                }
            }
            EXPECT_GT(inked, 0) << c.close;
            EXPECT_EQ(0, differences) << c.distant << " at " << scale;
        }
    }
}

TEST(Svg, ResourcesAndImageLists) {
    CSvgImage strip(1007, nullptr, RGB(200, 0, 0));
    EXPECT_EQ(CSize(64, 16), strip.GetSize());
    struct Case { int dpi; int cell; };
    for (const Case& c : {Case{96, 16}, Case{120, 20}, Case{144, 24}, Case{192, 32}, Case{240, 40}}) {
        CImageList list;
        ASSERT_NE(nullptr, list.Create(strip, c.dpi, 16, 0)) << c.dpi;
        EXPECT_EQ(4, list.GetImageCount()) << c.dpi;
        EXPECT_EQ(CSize(c.cell, c.cell), list.GetIconSize()) << c.dpi;
    }
}

TEST(Svg, TheThreeChannelSwapsAgree) {
    std::mt19937 random(3);
    for (int width : {1, 3, 4, 5, 7, 8, 9, 13, 33}) {
        const int stride = width * 4 + 8;  // rows with a gap after them
        std::vector<uint8_t> original(static_cast<size_t>(stride) * 3);
        for (uint8_t& b : original) b = static_cast<uint8_t>(random());
        std::vector<uint8_t> shuffle = original, lanes = original, scalar = original, dispatched = original;
        Detail::SwapRedBlueShuffle(shuffle.data(), width, 3, stride);
        Detail::SwapRedBlueLanes(lanes.data(), width, 3, stride);
        Detail::SwapRedBlueScalar(scalar.data(), width, 3, stride);
        SvgProbe::ABGRtoARGB(dispatched.data(), width, 3, stride);
        EXPECT_EQ(scalar, shuffle) << width;
        EXPECT_EQ(scalar, lanes) << width;
        EXPECT_EQ(scalar, dispatched) << width;
        // Red and blue traded places; green, alpha and the gaps untouched.
        EXPECT_EQ(original[2], scalar[0]);
        EXPECT_EQ(original[0], scalar[2]);
        EXPECT_EQ(original[1], scalar[1]);
        EXPECT_EQ(original[3], scalar[3]);
        EXPECT_EQ(original[static_cast<size_t>(width) * 4], scalar[static_cast<size_t>(width) * 4]);
    }
}
