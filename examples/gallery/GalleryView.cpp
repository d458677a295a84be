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
    CBrush brush;
    brush.CreateSolidBrush(colour);
    ::FillRect(dc, &rect, brush);
}

// A caption above a row of examples.
int Caption(HDC dc, const CRect& content, int y, int height, const wchar_t* text) {
    CRect line(content.left, y, content.right, y + height);
    ::DrawTextW(dc, text, -1, &line, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    return line.bottom;
}

}  // namespace

GraphicsPage::GraphicsPage()
    : GalleryPage(L"Graphics", L"graphics",
                  L"Bitmaps, bundles, icons and SVG images, drawn for this window's DPI.") {}

void GraphicsPage::OnCreate() {
    // Drawn once as SVG, sharp at this DPI: no scaling afterwards.
    CSvgImage strip(IDS_ICON_STRIP, nullptr, RGB(230, 150, 20));
    m_svgIcons.Create(strip, GetDpi(), 24, 0);
    // The bundle's artwork for this DPI: 100 % or 200 %, scaled the rest of the way.
    CBitmapBundle looks({IDB_TOOLBAR24, IDB_TOOLBAR48});
    m_bundleScale = looks.GetBestScaleFactorForDpi(GetDpi());
    m_bundleIcons.Create(looks, GetDpi(), 24, 0);
    m_icon.Attach(m_svgIcons.ExtractIconW(2));
}

void GraphicsPage::PaintContent(CDC& dc, const CRect& content) {
    const int line = MulDivDpi(22), gap = MulDivDpi(10);
    CString facts;
    facts.Format(L"Window DPI %d (scale %.2f), visual styles %s, first run: %s", GetDpi(), GetDpiScaleFactor(),
                 CUxTheme::IsThemeActive() ? L"on" : L"off", theAppPtr->IsFirstRun() ? L"yes" : L"no");
    int y = Caption(dc, content, content.top, line, facts);

    y = Caption(dc, content, y + gap, line, L"SVG strip rendered at this DPI, then greyed:");
    const CSize icon = m_svgIcons.GetIconSize();
    for (int i = 0; i < m_svgIcons.GetImageCount(); ++i) {
        m_svgIcons.Draw(i, dc, content.left + i * (icon.cx + gap), y + gap / 2, ILD_TRANSPARENT);
        m_svgIcons.DrawGrayscale(i, dc, content.left + (i + 5) * (icon.cx + gap), y + gap / 2, ILD_TRANSPARENT);
    }
    y += icon.cy + gap;

    CString bundle;
    bundle.Format(L"Bitmap bundle, the %d00 %% artwork picked for %d DPI:", m_bundleScale, GetDpi());
    y = Caption(dc, content, y + gap, line, bundle);
    const CSize cell = m_bundleIcons.GetIconSize();
    for (int i = 0; i < m_bundleIcons.GetImageCount(); ++i)
        m_bundleIcons.Draw(i, dc, content.left + i * (cell.cx + gap), y + gap / 2, ILD_TRANSPARENT);
    y += cell.cy + gap;

    y = Caption(dc, content, y + gap, line, L"An icon made from the strip, and GDI swatches:");
    ::DrawIconEx(dc, content.left, y + gap / 2, m_icon.GetHicon(), icon.cx, icon.cy, 0, nullptr, DI_NORMAL);
    const int size = MulDivDpi(32);
    int x = content.left + icon.cx + 2 * gap;
    for (const Swatch& swatch : kSwatches) {
        FillSolid(dc, CRect(x, y + gap / 2, x + size, y + gap / 2 + size), swatch.colour);
        x += size + gap;
    }
}

HWND SwatchView::Create(CWnd* parent) {
    return CreateEx(0, L"VlkWnd", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr);
}

void SwatchView::OnPaint(CDC& dc) {
    const CRect client = GetClientRect();
    FillSolid(dc, client, ::GetSysColor(COLOR_WINDOW));
    if (m_font.GetHfont() == nullptr) {
        LOGFONTW lf = {};
        lf.lfHeight = -::MulDiv(9, GetDpi(), 72);
        lf.lfCharSet = DEFAULT_CHARSET;
        ::lstrcpynW(lf.lfFaceName, L"Tahoma", LF_FACESIZE);
        m_font.CreateFontIndirectW(lf);
    }
    HGDIOBJ old = ::SelectObject(dc, m_font);
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
}
