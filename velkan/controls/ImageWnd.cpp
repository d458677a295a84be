#include "velkan/controls/ImageWnd.h"

#include "velkan/gfx/DC.h"

namespace Velkan {

HWND CImageWnd::Create(CWnd& parent, UINT id, const RECT& rect, DWORD style) {
    WNDCLASSEXW& wc = GetWndClassTemplate();
    PreRegisterWndClass(wc);
    RegisterWndClass(wc);
    return CreateEx(0, wc.lpszClassName, nullptr, WS_CHILD | WS_VISIBLE | style, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, &parent,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)));
}

void CImageWnd::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = L"VlkImageWnd";
    wc.style = CS_HREDRAW | CS_VREDRAW;
    wc.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
}

void CImageWnd::SetBitmap(const CBitmap& bitmap) {
    m_bitmap = bitmap;
    InvalidateRect();
}

void CImageWnd::SetFitMode(FitMode mode) {
    m_fitMode = mode;
    InvalidateRect();
}

void CImageWnd::SetBackgroundColor(COLORREF colour) {
    m_background = colour;
    InvalidateRect();
}

CRect CImageWnd::GetImageRect(const CSize& client) const {
    const CSize image = m_bitmap.GetSize();
    if (image.cx <= 0 || image.cy <= 0) return CRect(0, 0, 0, 0);
    LONG cx = image.cx, cy = image.cy;
    switch (m_fitMode) {
    case FitNone:
        return CRect(0, 0, cx, cy);
    case FitInside:
    case FitFill: {
        // Compare the aspect ratios without division: client.cx / cx against
        // client.cy / cy.
        const bool widthDecides = (static_cast<long long>(client.cx) * cy < static_cast<long long>(client.cy) * cx) ==
                                  (m_fitMode == FitInside);
        if (widthDecides) {
            cy = ::MulDiv(image.cy, client.cx, image.cx);
            cx = client.cx;
        } else {
            cx = ::MulDiv(image.cx, client.cy, image.cy);
            cy = client.cy;
        }
        break;
    }
    case FitCentre:
        break;
    }
    const LONG x = (client.cx - cx) / 2, y = (client.cy - cy) / 2;
    return CRect(x, y, x + cx, y + cy);
}

BOOL CImageWnd::OnEraseBkgnd(CDC&) {
    // OnPaint fills what the image leaves.
    return TRUE;
}

void CImageWnd::OnPaint(CDC& dc) {
    const CRect client = GetClientRect();
    const COLORREF background = m_background != 0xFFFFFFFF ? m_background : ::GetSysColor(COLOR_WINDOW);
    HBRUSH brush = ::CreateSolidBrush(background);
    dc.FillRect(client, brush);
    ::DeleteObject(brush);
    if (m_bitmap.GetHbitmap() == nullptr) return;
    const CRect target = GetImageRect(client.Size());
    const CSize image = m_bitmap.GetSize();
    if (target.Width() == image.cx && target.Height() == image.cy)
        dc.DrawBitmap(m_bitmap.GetHbitmap(), target.left, target.top);
    else
        dc.StretchBitmap(m_bitmap.GetHbitmap(), target);
}

}  // namespace Velkan
