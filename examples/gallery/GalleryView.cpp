#include "GalleryView.h"

#include "resource.h"

using namespace Velkan;

namespace {

struct Swatch {
    const wchar_t* name;
    COLORREF colour;
};

const Swatch kSwatches[] = {{L"Alizarin", RGB(231, 76, 60)},   {L"Sunflower", RGB(241, 196, 15)},
                            {L"Emerald", RGB(46, 204, 113)},   {L"Peter River", RGB(52, 152, 219)},
                            {L"Amethyst", RGB(155, 89, 182)}};

void FillSolid(HDC dc, const RECT& rect, COLORREF colour) {
    HBRUSH brush = ::CreateSolidBrush(colour);
    ::FillRect(dc, &rect, brush);
    ::DeleteObject(brush);
}

HFONT MakeFont(const CWnd& wnd, int points, bool bold) {
    LOGFONTW lf = {};
    lf.lfHeight = -wnd.MulDivDpi(points * 96 / 72);
    lf.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    lf.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(lf.lfFaceName, L"Segoe UI", LF_FACESIZE);
    return ::CreateFontIndirectW(&lf);
}

}  // namespace

HWND GalleryView::Create(CWnd* parent) {
    return CreateEx(0, L"VlkWnd", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr);
}

void GalleryView::OnCreate() {
    // Icons drawn once as SVG, made sharp for this window's DPI.
    CSvgImage strip(IDS_ICON_STRIP, nullptr, RGB(255, 196, 40));
    m_icons.Create(strip, GetDpi(), 24, 0);
}

void GalleryView::OnPaint(CDC& dc) {
    const CRect client = GetClientRect();
    // A banded background in the library's blue.
    const int bands = 16;
    for (int i = 0; i < bands; ++i) {
        CRect band(client.left, client.top + client.Height() * i / bands, client.right,
                   client.top + client.Height() * (i + 1) / bands);
        FillSolid(dc, band, RGB(20 + i * 4, 60 + i * 6, 120 + i * 7));
    }

    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, RGB(255, 255, 255));
    HFONT titleFont = MakeFont(*this, 20, true);
    HGDIOBJ oldFont = ::SelectObject(dc, titleFont);
    CRect title(MulDivDpi(20), MulDivDpi(8), client.right - MulDivDpi(20), MulDivDpi(52));
    ::DrawTextW(dc, CResourceString(IDS_TITLE).GetString(), -1, &title, DT_LEFT | DT_SINGLELINE | DT_VCENTER);

    HFONT bodyFont = MakeFont(*this, 9, false);
    ::SelectObject(dc, bodyFont);
    CString lines(L"");
    lines.AppendFormat(L"Window DPI: %d\r\n", GetDpi());
    lines.AppendFormat(L"First run: %s\r\n", theAppPtr->IsFirstRun() ? L"yes" : L"no");
    lines.AppendFormat(L"Visual styles: %s", CUxTheme::IsThemeActive() ? L"on" : L"off");
    CRect body(title.left, title.bottom, title.right, title.bottom + MulDivDpi(56));
    ::DrawTextW(dc, lines.GetString(), -1, &body, DT_LEFT | DT_WORDBREAK);

    // A row of swatches, then the SVG icon strip, normal and greyed.
    const int size = MulDivDpi(40), gap = MulDivDpi(10);
    int x = title.left;
    const int y = body.bottom + MulDivDpi(6);
    for (const Swatch& swatch : kSwatches) {
        FillSolid(dc, CRect(x, y, x + size, y + size), swatch.colour);
        x += size + gap;
    }
    const CSize icon = m_icons.GetIconSize();
    const int iconsTop = y + size + MulDivDpi(12);
    for (int i = 0; i < m_icons.GetImageCount(); ++i) {
        m_icons.Draw(i, dc, title.left + i * (icon.cx + gap), iconsTop, ILD_TRANSPARENT);
        m_icons.DrawGrayscale(i, dc, title.left + (i + 5) * (icon.cx + gap), iconsTop, ILD_TRANSPARENT);
    }
    ::SelectObject(dc, oldFont);
    ::DeleteObject(titleFont);
    ::DeleteObject(bodyFont);
}

HWND SwatchView::Create(CWnd* parent) {
    return CreateEx(0, L"VlkWnd", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr);
}

void SwatchView::OnPaint(CDC& dc) {
    const CRect client = GetClientRect();
    FillSolid(dc, client, ::GetSysColor(COLOR_WINDOW));
    HFONT font = MakeFont(*this, 9, false);
    HGDIOBJ old = ::SelectObject(dc, font);
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    const int row = MulDivDpi(32), pad = MulDivDpi(6);
    int y = pad;
    for (const Swatch& swatch : kSwatches) {
        FillSolid(dc, CRect(pad, y, pad + row - pad, y + row - pad), swatch.colour);
        CRect label(pad + row, y, client.right - pad, y + row - pad);
        ::DrawTextW(dc, swatch.name, -1, &label, DT_LEFT | DT_SINGLELINE | DT_VCENTER);
        y += row;
    }
    ::SelectObject(dc, old);
    ::DeleteObject(font);
}
