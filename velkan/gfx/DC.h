#pragma once

#include <windows.h>

#include <tuple>

#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/core/String.h"

namespace Velkan {

template <typename Key, typename Object> class ObjectContext;

/// A device context: thin forwards to GDI that return GDI's result, plus
/// bitmap drawing. A plain CDC never releases its HDC; the scoped kinds
/// (ScopedDC.h) acquire and release theirs. FromHdc gives the permanent
/// wrapper of a DC, or a temporary one that lives until CleanUpTempObjects.
class VELKAN_API CDC {
public:
    using Context = ObjectContext<HDC, CDC>;  ///< The handle table's type.

    /// Lets the handle table make plain wrappers; not for general use.
    class PrivateToken {};
    /// A plain wrapper of hdc; see PrivateToken.
    CDC(HDC hdc, const PrivateToken&) : m_hdc(hdc) {}
    /// Not copyable.
    ///@{
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    ///@}
    virtual ~CDC();  ///< Unregisters the wrapper; releases nothing.

    /// The permanent wrapper of hdc, or a temporary plain one owned by the
    /// calling thread until CleanUpTempObjects; null for null.
    static CDC* FromHdc(HDC hdc);
    static void CleanUpTempObjects();  ///< Deletes the calling thread's temporary wrappers.
    /// (temporary wrappers of the calling fiber, registered DCs)
    static std::tuple<unsigned, unsigned> GetContextInfo();

    HDC GetHdc() const { return m_hdc; }  ///< The DC.
    operator HDC() const { return m_hdc; }  ///< The DC.
    BOOL IsValidDc() const { return m_hdc != nullptr; }  ///< The DC is not null.

    /// The GDI function of the same name, on this DC.
    ///@{
    int SaveDC() const { return ::SaveDC(m_hdc); }
    BOOL RestoreDC(int saved) const { return ::RestoreDC(m_hdc, saved); }
    HGDIOBJ SelectObject(HGDIOBJ object) const { return ::SelectObject(m_hdc, object); }
    int SelectClipRgn(HRGN region) const { return ::SelectClipRgn(m_hdc, region); }
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hdc, index); }
    int SetBkMode(int mode) const { return ::SetBkMode(m_hdc, mode); }
    int GetBkMode() const { return ::GetBkMode(m_hdc); }
    COLORREF SetBkColor(COLORREF colour) const { return ::SetBkColor(m_hdc, colour); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hdc); }
    COLORREF SetTextColor(COLORREF colour) const { return ::SetTextColor(m_hdc, colour); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hdc); }
    int SetStretchBltMode(int mode) const { return ::SetStretchBltMode(m_hdc, mode); }
    BOOL GetTextMetricsW(TEXTMETRICW* metrics) const { return ::GetTextMetricsW(m_hdc, metrics); }
    BOOL GetTextExtentPoint32W(const wchar_t* text, int count, SIZE* size) const {
        return ::GetTextExtentPoint32W(m_hdc, text, count, size);
    }
    /// The size of count units of text.
    CSize GetTextExtentPoint32W(const wchar_t* text, int count) const;
    /// The size of the text.
    CSize GetTextExtentPoint32W(const CString& text) const { return GetTextExtentPoint32W(text.GetString(), text.GetLength()); }
    BOOL TextOutW(int x, int y, const wchar_t* text, int count) const { return ::TextOutW(m_hdc, x, y, text, count); }
    BOOL TextOutW(int x, int y, const CString& text) const { return ::TextOutW(m_hdc, x, y, text.GetString(), text.GetLength()); }
    BOOL ExtTextOutW(int x, int y, UINT options, const RECT* rect, const wchar_t* text, UINT count, const int* dx) const {
        return ::ExtTextOutW(m_hdc, x, y, options, rect, text, count, dx);
    }
    BOOL ExtTextOutW(int x, int y, UINT options, const RECT* rect, const CString& text, const int* dx) const {
        return ::ExtTextOutW(m_hdc, x, y, options, rect, text.GetString(), static_cast<UINT>(text.GetLength()), dx);
    }
    int DrawTextW(const wchar_t* text, int count, RECT& rect, UINT format) const {
        return ::DrawTextW(m_hdc, text, count, &rect, format);
    }
    BOOL DrawEdge(RECT& rect, UINT edge, UINT flags) const { return ::DrawEdge(m_hdc, &rect, edge, flags); }
    BOOL DrawIconEx(int x, int y, HICON icon, int cx, int cy, UINT step, HBRUSH flickerFree, UINT flags) const {
        return ::DrawIconEx(m_hdc, x, y, icon, cx, cy, step, flickerFree, flags);
    }
    BOOL DrawStateW(HBRUSH brush, DRAWSTATEPROC callback, LPARAM data, WPARAM wData, int x, int y, int cx, int cy,
                    UINT flags) const {
        return ::DrawStateW(m_hdc, brush, callback, data, wData, x, y, cx, cy, flags);
    }
    ///@}
    /// Text in a colour, for example greyed (DSS_DISABLED).
    BOOL DrawStateW(const wchar_t* text, int count, int x, int y, int cx, int cy, COLORREF colour, UINT flags) const;
    /// The GDI function of the same name, on this DC.
    ///@{
    BOOL Ellipse(int left, int top, int right, int bottom) const { return ::Ellipse(m_hdc, left, top, right, bottom); }
    int FillRect(const RECT& rect, HBRUSH brush) const { return ::FillRect(m_hdc, &rect, brush); }
    BOOL FillRgn(HRGN region, HBRUSH brush) const { return ::FillRgn(m_hdc, region, brush); }
    int FrameRect(const RECT& rect, HBRUSH brush) const { return ::FrameRect(m_hdc, &rect, brush); }
    BOOL PatBlt(int x, int y, int cx, int cy, DWORD rop) const { return ::PatBlt(m_hdc, x, y, cx, cy, rop); }
    BOOL BitBlt(int x, int y, int cx, int cy, HDC source, int xs, int ys, DWORD rop) const {
        return ::BitBlt(m_hdc, x, y, cx, cy, source, xs, ys, rop);
    }
    BOOL StretchBlt(int x, int y, int cx, int cy, HDC source, int xs, int ys, int cxs, int cys, DWORD rop) {
        return ::StretchBlt(m_hdc, x, y, cx, cy, source, xs, ys, cxs, cys, rop);
    }
    BOOL AlphaBlend(int x, int y, int cx, int cy, HDC source, int xs, int ys, int cxs, int cys, BLENDFUNCTION blend);
    int GetDIBits(HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
        return ::GetDIBits(m_hdc, bitmap, start, lines, bits, info, usage);
    }
    ///@}

    /// Copies the bitmap unscaled; a zero cx or cy means the bitmap's own.
    BOOL DrawBitmap(HBITMAP bitmap, int x, int y, int cx = 0, int cy = 0);
    /// Blends a 32-bit premultiplied bitmap, scaled to cx x cy.
    BOOL AlphaBlendBitmap(HBITMAP bitmap, int x, int y, int cx = 0, int cy = 0);
    /// Blends bitmaps with alpha; stretches others with HALFTONE.
    BOOL StretchBitmap(HBITMAP bitmap, const RECT& dest);
    /// A border of the given width, outlined strip by strip: widths of 3 and
    /// more leave the middle of each strip unpainted.
    BOOL FrameRect(const RECT& rect, HBRUSH brush, int width);

protected:
    /// A wrapper of hdc for the scoped kinds; Register makes it permanent.
    explicit CDC(HDC hdc) : m_hdc(hdc) {}
    static Context& GetContext();  ///< The process-wide handle table of DCs.
    /// Makes this wrapper the one FromHdc returns for its DC.
    void Register();

    HDC m_hdc;  ///< The DC.

private:
    static void ResetContext();
};

}  // namespace Velkan
