#include "GfxBench.h"

#include <cstring>
#include <memory>
#include <vector>

#include "velkan/app/App.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/gfx/detail/PixelSwap.h"

using namespace Velkan;

namespace Bench {

void RunGfxBenchmarks(Suite& suite) {
    CApp app;  // GDI+
    const int side = 1024, rounds = 20;
    std::vector<unsigned char> pixels(side * side * 4, 0x5A), copy(pixels.size());
    auto swap = [&](void (*fn)(void*, int, int, int)) {
        return [&, fn] {
            for (int i = 0; i < rounds; ++i) fn(pixels.data(), side, side, side * 4);
            return static_cast<size_t>(pixels[0]);
        };
    };
    auto memcopy = [&] {
        for (int i = 0; i < rounds; ++i) std::memcpy(copy.data(), pixels.data(), pixels.size());
        return static_cast<size_t>(copy[0]);
    };
    suite.Compare("Swap 1024^2 shuffle vs memcpy", swap(&Detail::SwapRedBlueShuffle), memcopy);
    suite.Compare("Swap 1024^2 lanes vs memcpy", swap(&Detail::SwapRedBlueLanes), memcopy);
    suite.Compare("Swap 1024^2 scalar vs memcpy", swap(&Detail::SwapRedBlueScalar), memcopy);
    suite.Compare("Swap shuffle vs scalar", swap(&Detail::SwapRedBlueShuffle), swap(&Detail::SwapRedBlueScalar));
    suite.Compare("Swap lanes vs scalar", swap(&Detail::SwapRedBlueLanes), swap(&Detail::SwapRedBlueScalar));

    CSvgImage strip(1007, nullptr, RGB(30, 90, 200));
    suite.Compare(
        "SVG strip render 2x vs 1x", [&] { return static_cast<size_t>(strip.Render(2.0f).GetSize().cx); },
        [&] { return static_cast<size_t>(strip.Render(1.0f).GetSize().cx); });

    CBitmapBundle bundle({1001, 1002});
    suite.Compare(
        "ImageList from bundle 144 vs 96",
        [&] {
            CImageList list;
            return static_cast<size_t>(list.Create(bundle, 144, 16, 0) != nullptr);
        },
        [&] {
            CImageList list;
            return static_cast<size_t>(list.Create(bundle, 96, 16, 0) != nullptr);
        });
}

}  // namespace Bench
