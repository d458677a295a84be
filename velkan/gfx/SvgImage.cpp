#include "velkan/gfx/SvgImage.h"

#include <malloc.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

// The parser and rasteriser are compiled into this file only.
#define NANOSVG_IMPLEMENTATION
#define NANOSVGRAST_IMPLEMENTATION
#include <nanosvg.h>

namespace {

// The rasteriser strokes the last piece of a dashed line from point fields
// it never computed, so its output would depend on whatever its buffers
// held. Its memory is zeroed when it grows and cleared before each render
// (ClearRasterizerPoints), which makes those reads the same every time.
void* ZeroedRealloc(void* block, size_t size) {
    const size_t old = block != nullptr ? _msize(block) : 0;
    void* grown = std::realloc(block, size);
    if (grown != nullptr && size > old) std::memset(static_cast<char*>(grown) + old, 0, size - old);
    return grown;
}

void* ZeroedMalloc(size_t size) {
    return std::calloc(1, size);
}

}  // namespace

#define malloc(size) ZeroedMalloc(size)
#define realloc(block, size) ZeroedRealloc(block, size)
#include <nanosvgrast.h>
#undef malloc
#undef realloc

#include "velkan/app/App.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/File.h"
#include "velkan/core/Resource.h"
#include "velkan/gfx/detail/PixelSwap.h"
#include "velkan/gfx/detail/SvgFarStrokes.h"

namespace Velkan {

void CSvgImage::ImageDeleter::operator()(NSVGimage* image) const {
    nsvgDelete(image);
}

void CSvgImage::RasterizerDeleter::operator()(NSVGrasterizer* rasterizer) const {
    nsvgDeleteRasterizer(rasterizer);
}

CSvgImage::CSvgImage() : m_rasterizer(nsvgCreateRasterizer()) {
    if (!m_rasterizer) throw CRuntimeException("Failed to create SVG rasterizer.");
}

CSvgImage::CSvgImage(const char* svg, COLORREF colour) : CSvgImage() {
    m_currentColour = colour;
    if (svg == nullptr || !SetSvg(svg, static_cast<UINT>(std::strlen(svg))))
        throw CRuntimeException("Failed to parse SVG data.");
}

CSvgImage::CSvgImage(UINT id, HINSTANCE instance, COLORREF colour) : CSvgImage() {
    m_currentColour = colour;
    if (!LoadFromResource(id, instance)) throw CResourceNotFoundException(id);
}

CSvgImage::CSvgImage(UINT id, const wchar_t* type, HINSTANCE instance, COLORREF colour) : CSvgImage() {
    m_currentColour = colour;
    if (!LoadFromResource(id, type, instance)) throw CResourceNotFoundException(id);
}

CSvgImage::~CSvgImage() = default;

void CSvgImage::Reset() {
    m_image.reset();
}

namespace {

// The parser reads each transform function's arguments into a local array
// and uses the array whether or not the text filled it: "skewX", "matrix(1 0
// 0)" or "rotate(30 4)" would turn stack garbage into geometry, so the same
// document would render differently from call to call. Each function in a
// list is checked here with the parser's own argument reader.
bool TransformListIsComplete(const std::string& list) {
    struct Function {
        const char* name;
        size_t length;
        int maxArgs;
        unsigned counts;  // bit n set: n arguments are enough
    };
    static const Function functions[] = {
        {"matrix", 6, 6, 1u << 6},          {"translate", 9, 2, (1u << 1) | (1u << 2)},
        {"scale", 5, 2, (1u << 1) | (1u << 2)}, {"rotate", 6, 3, (1u << 1) | (1u << 3)},
        {"skewX", 5, 1, 1u << 1},           {"skewY", 5, 1, 1u << 1},
    };
    const char* str = list.c_str();
    while (*str != '\0') {
        const Function* match = nullptr;
        for (const Function& function : functions) {
            if (std::strncmp(str, function.name, function.length) == 0) match = &function;
        }
        if (match == nullptr) {
            ++str;
            continue;
        }
        float args[6];
        int count = 0;
        const int length = nsvg__parseTransformArgs(str, args, match->maxArgs, &count);
        if (length == 1) return false;  // no "(" or ")": nothing was read
        if (length == 0) {              // too many arguments: the parser skips it
            ++str;
            continue;
        }
        if ((match->counts & (1u << count)) == 0) return false;
        str += length;
    }
    return true;
}

// Every "transform" and "gradientTransform" value in the text, as attribute
// (name="value") or style property (name: value).
bool TransformsAreComplete(const std::string& text) {
    for (size_t at = text.find("ransform"); at != std::string::npos; at = text.find("ransform", at + 1)) {
        if (at == 0 || (text[at - 1] != 't' && text[at - 1] != 'T')) continue;
        size_t next = at + 8;
        while (next < text.size() && std::isspace(static_cast<unsigned char>(text[next]))) ++next;
        if (next >= text.size() || (text[next] != '=' && text[next] != ':')) continue;
        const bool property = text[next] == ':';
        ++next;
        while (next < text.size() && std::isspace(static_cast<unsigned char>(text[next]))) ++next;
        std::string stops = property ? ";\"'" : "";
        if (!property) {
            if (next >= text.size() || (text[next] != '"' && text[next] != '\'')) continue;
            stops = text[next++];
        }
        const size_t end = std::min(text.find_first_of(stops, next), text.size());
        if (!TransformListIsComplete(text.substr(next, end - next))) return false;
    }
    return true;
}

bool AllFinite(const float* values, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (!std::isfinite(values[i])) return false;
    }
    return true;
}

bool PaintIsFinite(const NSVGpaint& paint) {
    if (paint.type != NSVG_PAINT_LINEAR_GRADIENT && paint.type != NSVG_PAINT_RADIAL_GRADIENT) return true;
    const NSVGgradient* gradient = paint.gradient;
    if (!AllFinite(gradient->xform, 6) || !std::isfinite(gradient->fx) || !std::isfinite(gradient->fy)) return false;
    for (int i = 0; i < gradient->nstops; ++i) {
        if (!std::isfinite(gradient->stops[i].offset)) return false;
    }
    return true;
}

// An overflowing number ("1e39") or a product of infinities leaves NaN or
// infinity in the parsed image; the rasteriser has no defined result for
// them, so such a document is not valid.
bool ImageIsFinite(const NSVGimage& image) {
    if (!std::isfinite(image.width) || !std::isfinite(image.height)) return false;
    for (const NSVGshape* shape = image.shapes; shape != nullptr; shape = shape->next) {
        if (!std::isfinite(shape->opacity) || !std::isfinite(shape->strokeWidth) ||
            !std::isfinite(shape->strokeDashOffset) || !std::isfinite(shape->miterLimit) ||
            !AllFinite(shape->strokeDashArray, static_cast<size_t>(shape->strokeDashCount)) ||
            !AllFinite(shape->bounds, 4) || !AllFinite(shape->xform, 6) ||
            !PaintIsFinite(shape->fill) || !PaintIsFinite(shape->stroke)) {
            return false;
        }
        for (const NSVGpath* path = shape->paths; path != nullptr; path = path->next) {
            if (!AllFinite(path->pts, static_cast<size_t>(path->npts) * 2) || !AllFinite(path->bounds, 4)) return false;
        }
    }
    return true;
}

}  // namespace

BOOL CSvgImage::SetSvg(const char* svg) {
    return svg != nullptr && SetSvg(svg, static_cast<UINT>(std::strlen(svg)));
}

BOOL CSvgImage::SetSvg(const char* svg, UINT length) {
    Reset();
    if (svg == nullptr) return FALSE;
    std::string text(svg, length);
    if (m_currentColour != 0xFFFFFFFF) {
        const std::string keyword = "currentColor", colour = ColorRefToHexString(m_currentColour);
        for (size_t at = text.find(keyword); at != std::string::npos; at = text.find(keyword, at + colour.size())) {
            text.replace(at, keyword.size(), colour);
        }
    }
    if (!TransformsAreComplete(text)) return FALSE;
    // The parser edits the text it reads, so it gets its own copy.
    m_image.reset(nsvgParse(&text[0], "px", 96.0f));
    if (m_image && !ImageIsFinite(*m_image)) Reset();
    if (m_image) Detail::ShortenFarDashedStrokes(*m_image);
    return IsValid();
}

BOOL CSvgImage::LoadFromResource(UINT id, HINSTANCE instance) {
    return LoadFromResource(id, L"SVG", instance);
}

BOOL CSvgImage::LoadFromResource(UINT id, const wchar_t* type, HINSTANCE instance) {
    Reset();
    try {
        CResourceData data = CResourceLoader::LoadData(id, type, instance);
        return SetSvg(static_cast<const char*>(data.GetData()), data.GetSize());
    } catch (const CResourceNotFoundException&) {
        return FALSE;
    }
}

BOOL CSvgImage::LoadFromFile(const wchar_t* path) {
    Reset();
    long status = 0;
    std::vector<unsigned char> content = CFile::ReadFileContents(path, status);
    if (status < 0 || content.empty()) return FALSE;
    return SetSvg(reinterpret_cast<const char*>(content.data()), static_cast<UINT>(content.size()));
}

BOOL CSvgImage::IsValid() const {
    return m_image && m_image->shapes != nullptr;
}

CSize CSvgImage::GetSize() const {
    if (!IsValid()) return CSize(0, 0);
    return CSize(static_cast<LONG>(std::ceil(m_image->width)), static_cast<LONG>(std::ceil(m_image->height)));
}

std::string CSvgImage::ColorRefToHexString(COLORREF colour) {
    char text[8];
    std::snprintf(text, sizeof(text), "#%02x%02x%02x", static_cast<unsigned>(colour & 0xFF),
                  static_cast<unsigned>((colour >> 8) & 0xFF), static_cast<unsigned>((colour >> 16) & 0xFF));
    return text;
}

void CSvgImage::ABGRtoARGB(void* bits, int width, int height, int stride) {
    if (theAppPtr != nullptr && theAppPtr->IsSSSE3Cpu()) {
        Detail::SwapRedBlueShuffle(bits, width, height, stride);
    } else {
        Detail::SwapRedBlueLanes(bits, width, height, stride);
    }
}

namespace {

// The pixel size of a render, or false when it cannot be made: not finite,
// empty, or more than 2^24 pixels (4096 x 4096, 64 MiB). Past that the
// rasteriser needs seconds, and past 2^29 pixels the byte count no longer
// fits the 32-bit sizes of the graphics libraries, which then hand the
// rasteriser a buffer smaller than the image.
const double kMaxRenderPixels = 16777216.0;

bool RenderSize(float width, float height, float scale, int& cx, int& cy) {
    const double w = std::ceil(static_cast<double>(width) * scale);
    const double h = std::ceil(static_cast<double>(height) * scale);
    if (!std::isfinite(w) || !std::isfinite(h) || w < 1.0 || h < 1.0) return false;
    if (w * h > kMaxRenderPixels) return false;
    cx = static_cast<int>(w);
    cy = static_cast<int>(h);
    return true;
}

// The rasteriser's cost grows with the square of the edges of one shape that
// share scanlines, and its buffers grow without a check: a dashed line far
// longer than the image, or a path of tens of thousands of zig-zags, takes
// seconds to minutes or writes through a failed allocation. These are upper
// estimates of the edges it would build, so that such a render is refused
// before it starts. Ordinary icons and drawings stay far below the limits.
const double kMaxEdgesPerShape = 12000.0;
// A dash's few edges span only the stroke's width, so dashes cost less each.
const double kMaxDashesPerShape = 10000.0;
const double kMaxEdgesPerImage = 1000000.0;

double ControlPolygonLength(const float* p) {
    return std::hypot(p[2] - p[0], p[3] - p[1]) + std::hypot(p[4] - p[2], p[5] - p[3]) +
           std::hypot(p[6] - p[4], p[7] - p[5]);
}

// The points the rasteriser's flattener makes of one cubic: the same
// flatness test and depth limit, counted instead of stored, and given up
// once past the limit.
void CountFlattenedPoints(float x1, float y1, float x2, float y2, float x3, float y3, float x4, float y4, int level,
                          double& count) {
    if (level > 10 || count > kMaxEdgesPerShape) return;
    const float dx = x4 - x1, dy = y4 - y1;
    const float d2 = std::fabs((x2 - x4) * dy - (y2 - y4) * dx);
    const float d3 = std::fabs((x3 - x4) * dy - (y3 - y4) * dx);
    if ((d2 + d3) * (d2 + d3) < 0.25f * (dx * dx + dy * dy)) {
        count += 1.0;
        return;
    }
    const float x12 = (x1 + x2) * 0.5f, y12 = (y1 + y2) * 0.5f, x23 = (x2 + x3) * 0.5f, y23 = (y2 + y3) * 0.5f;
    const float x34 = (x3 + x4) * 0.5f, y34 = (y3 + y4) * 0.5f;
    const float x123 = (x12 + x23) * 0.5f, y123 = (y12 + y23) * 0.5f, x234 = (x23 + x34) * 0.5f,
                y234 = (y23 + y34) * 0.5f;
    const float x1234 = (x123 + x234) * 0.5f, y1234 = (y123 + y234) * 0.5f;
    CountFlattenedPoints(x1, y1, x12, y12, x123, y123, x1234, y1234, level + 1, count);
    CountFlattenedPoints(x1234, y1234, x234, y234, x34, y34, x4, y4, level + 1, count);
}

bool RenderWorkIsBounded(const NSVGimage& image, float scale) {
    double total = 0.0;
    for (const NSVGshape* shape = image.shapes; shape != nullptr; shape = shape->next) {
        if ((shape->flags & NSVG_FLAGS_VISIBLE) == 0) continue;
        double points = 0.0, length = 0.0;
        for (const NSVGpath* path = shape->paths; path != nullptr; path = path->next) {
            points += 2.0;  // the start, and the point that closes the path
            for (int i = 0; i + 3 < path->npts; i += 3) {
                const float* p = &path->pts[i * 2];
                CountFlattenedPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], 0, points);
                length += ControlPolygonLength(p) * scale;
            }
        }
        const double fill = shape->fill.type != NSVG_PAINT_NONE ? points : 0.0;
        double stroke = 0.0;
        if (shape->stroke.type != NSVG_PAINT_NONE && shape->strokeWidth * scale > 0.0f) {
            // Each point gives two edges and a join; round joins and caps a few more.
            stroke = points * (shape->strokeLineJoin == NSVG_JOIN_ROUND ? 8.0 : 2.0);
            if (shape->strokeDashCount > 0) {
                double period = 0.0;
                for (int i = 0; i < shape->strokeDashCount; ++i) period += shape->strokeDashArray[i];
                period *= scale;
                const double dashes = (period > 0.0 ? length / period : length) * shape->strokeDashCount;
                if (!(dashes <= kMaxDashesPerShape)) return false;
                stroke += dashes * (shape->strokeLineCap == NSVG_CAP_ROUND ? 24.0 : 6.0);
            } else if (!(stroke <= kMaxEdgesPerShape)) {
                return false;
            }
        }
        if (!(fill <= kMaxEdgesPerShape)) return false;
        total += fill + stroke;
        if (total > kMaxEdgesPerImage) return false;
    }
    return true;
}

void ClearRasterizerPoints(NSVGrasterizer& rasterizer) {
    if (rasterizer.points != nullptr) std::memset(rasterizer.points, 0, sizeof(NSVGpoint) * rasterizer.cpoints);
    if (rasterizer.points2 != nullptr) std::memset(rasterizer.points2, 0, sizeof(NSVGpoint) * rasterizer.cpoints2);
}

}  // namespace

CBitmap CSvgImage::Render(float scale) const {
    if (!IsValid()) return CBitmap();
    int width = 0, height = 0;
    if (!RenderSize(m_image->width, m_image->height, scale, width, height)) return CBitmap();
    if (!RenderWorkIsBounded(*m_image, scale)) return CBitmap();
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    HBITMAP dib = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (dib == nullptr || bits == nullptr) {
        if (dib != nullptr) ::DeleteObject(dib);
        return CBitmap();
    }
    ClearRasterizerPoints(*m_rasterizer);
    nsvgRasterize(m_rasterizer.get(), m_image.get(), 0, 0, scale, static_cast<unsigned char*>(bits), width, height,
                  width * 4);
    ABGRtoARGB(bits, width, height, width * 4);
    ::GdiFlush();
    return CBitmap(dib);
}

std::unique_ptr<Gdiplus::Bitmap> CSvgImage::RenderEx(float scale) const {
    if (!IsValid()) return nullptr;
    int width = 0, height = 0;
    if (!RenderSize(m_image->width, m_image->height, scale, width, height)) return nullptr;
    if (!RenderWorkIsBounded(*m_image, scale)) return nullptr;
    auto bitmap = std::make_unique<Gdiplus::Bitmap>(width, height, PixelFormat32bppARGB);
    if (bitmap->GetLastStatus() != Gdiplus::Ok) return nullptr;
    Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data = {};
    if (bitmap->LockBits(&whole, Gdiplus::ImageLockModeWrite, PixelFormat32bppARGB, &data) != Gdiplus::Ok) return nullptr;
    ClearRasterizerPoints(*m_rasterizer);
    nsvgRasterize(m_rasterizer.get(), m_image.get(), 0, 0, scale, static_cast<unsigned char*>(data.Scan0), width, height,
                  data.Stride);
    ABGRtoARGB(data.Scan0, width, height, data.Stride);
    bitmap->UnlockBits(&data);
    return bitmap;
}

}  // namespace Velkan
