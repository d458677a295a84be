#pragma once

#include <windows.h>
#include <objidl.h>  // GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out
#include <gdiplus.h>

#include <memory>
#include <string>

#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/gfx/Bitmap.h"

struct NSVGimage;
struct NSVGrasterizer;

namespace Velkan {

/// One parsed SVG document, rendered to 32-bit bitmaps at any scale. With a
/// current colour set, "currentColor" in the text becomes that colour when
/// the document is parsed, so a monochrome icon can follow a theme.
class VELKAN_API CSvgImage {
public:
    /// No document yet. Throws CRuntimeException "Failed to create SVG
    /// rasterizer.".
    CSvgImage();
    /// The document svg, parsed with the current colour colour (0xFFFFFFFF:
    /// none). Throws CRuntimeException "Failed to parse SVG data." for a
    /// document without a shape.
    CSvgImage(const char* svg, COLORREF colour);
    /// A document resource of type "SVG" or the given type, parsed with the
    /// current colour colour. Throw CResourceNotFoundException when missing
    /// or not parseable.
    ///@{
    CSvgImage(UINT id, HINSTANCE instance, COLORREF colour);
    CSvgImage(UINT id, const wchar_t* type, HINSTANCE instance, COLORREF colour);
    ///@}
    /// Not copyable.
    ///@{
    CSvgImage(const CSvgImage&) = delete;
    CSvgImage& operator=(const CSvgImage&) = delete;
    ///@}
    virtual ~CSvgImage();  ///< Frees the document and the rasterizer.

    /// Parses a document (whole, or length bytes of it), replacing the
    /// current one. TRUE when the document has at least one shape.
    ///@{
    BOOL SetSvg(const char* svg);
    BOOL SetSvg(const char* svg, UINT length);
    ///@}
    /// SetSvg.
    CSvgImage& operator=(const char* svg) {
        SetSvg(svg);
        return *this;
    }
    /// Parses a document resource, of type "SVG" or the given type; FALSE
    /// when it is missing or has no shape.
    ///@{
    BOOL LoadFromResource(UINT id, HINSTANCE instance);
    BOOL LoadFromResource(UINT id, const wchar_t* type, HINSTANCE instance);
    ///@}
    /// Parses a document file; FALSE when it cannot be read or has no shape.
    BOOL LoadFromFile(const wchar_t* path);

    BOOL IsValid() const;  ///< A document with at least one shape is loaded.
    /// The document's size in pixels, rounded up; (0, 0) when not valid.
    CSize GetSize() const;
    /// The colour that replaces "currentColor" (0xFFFFFFFF: none). Applies
    /// at the next parse, not to the loaded document.
    void SetCurrentColor(COLORREF colour) { m_currentColour = colour; }
    COLORREF GetCurrentColor() const { return m_currentColour; }  ///< See SetCurrentColor.

    /// Renders at scale, as a 32-bit DIB section or a GDI+ bitmap of
    /// ceil(size x scale); an empty bitmap (or null) when not valid.
    ///@{
    CBitmap Render(float scale) const;
    std::unique_ptr<Gdiplus::Bitmap> RenderEx(float scale) const;
    ///@}

protected:
    void Reset();  ///< Drops the document.
    /// "#rrggbb", lower case.
    static std::string ColorRefToHexString(COLORREF colour);
    /// R, G, B, A bytes to B, G, R, A in place.
    static void ABGRtoARGB(void* bits, int width, int height, int stride);

private:
    struct ImageDeleter { void operator()(NSVGimage* image) const; };
    struct RasterizerDeleter { void operator()(NSVGrasterizer* rasterizer) const; };

    std::unique_ptr<NSVGimage, ImageDeleter> m_image;
    std::unique_ptr<NSVGrasterizer, RasterizerDeleter> m_rasterizer;
    COLORREF m_currentColour = 0xFFFFFFFF;
};

}  // namespace Velkan
