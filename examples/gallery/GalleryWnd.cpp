#include "GalleryWnd.h"

#include "resource.h"
#include "Screenshot.h"
#include "velkan/gfx/DC.h"

using namespace Velkan;

namespace {

const wchar_t kSection[] = L"Window";
const wchar_t kPlacement[] = L"Placement";
const UINT_PTR kScreenshotTimer = 1;

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

void GalleryWnd::PreCreate(CREATESTRUCTW& cs) {
    m_title = CResourceString(IDS_TITLE);
    cs.lpszName = m_title.GetString();
    cs.style = WS_OVERLAPPEDWINDOW;
    // The last position, when it is still on a screen; else a default size.
    CRect saved;
    if (theAppPtr->RegQueryRect(kSection, kPlacement, saved) && !IsOffScreen(saved)) {
        cs.x = saved.left;
        cs.y = saved.top;
        cs.cx = saved.Width();
        cs.cy = saved.Height();
    } else {
        cs.x = 80;
        cs.y = 60;
        cs.cx = 640;
        cs.cy = 420;
    }
}

void GalleryWnd::OnCreate() {
    // Icons drawn once as SVG, made sharp for this window's DPI.
    CSvgImage strip(IDS_ICON_STRIP, nullptr, RGB(255, 196, 40));
    m_icons.Create(strip, GetDpi(), 24, 0);
    if (!m_screenshotPath.IsNullOrEmpty()) SetTimer(kScreenshotTimer, 500);
}

void GalleryWnd::OnDestroy() {
    if (!IsIconic() && !IsZoomed()) theAppPtr->RegWriteRect(kSection, kPlacement, GetWindowRect());
}

void GalleryWnd::OnNcDestroy() {
    ::PostQuitMessage(0);
}

BOOL GalleryWnd::WndProc(UINT msg, WPARAM wParam, LPARAM, LRESULT& result) {
    if (msg == WM_TIMER && wParam == kScreenshotTimer) {
        KillTimer(kScreenshotTimer);
        m_screenshotSaved = SaveWindowPng(GetHwnd(), m_screenshotPath.GetString());
        DestroyWindow();
        result = 0;
        return TRUE;
    }
    return FALSE;
}

void GalleryWnd::OnPaint(CDC& dc) {
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
    HFONT titleFont = MakeFont(*this, 24, true);
    HGDIOBJ oldFont = ::SelectObject(dc, titleFont);
    CRect title(MulDivDpi(24), MulDivDpi(20), client.right - MulDivDpi(24), MulDivDpi(80));
    ::DrawTextW(dc, m_title.GetString(), -1, &title, DT_LEFT | DT_SINGLELINE | DT_VCENTER);

    HFONT bodyFont = MakeFont(*this, 10, false);
    ::SelectObject(dc, bodyFont);
    CString lines(L"");
    lines.AppendFormat(L"Window DPI: %d\r\n", GetDpi());
    lines.AppendFormat(L"First run: %s\r\n", theAppPtr->IsFirstRun() ? L"yes" : L"no");
    lines.AppendFormat(L"Common controls 6: %s\r\n", theAppPtr->IsCommCtrlsV6() ? L"yes" : L"no (or not reported)");
    lines.AppendFormat(L"Position is saved in HKCU\\Software\\%s\\%s\\%s", theAppPtr->GetRegistryCompanyKey(),
                       theAppPtr->GetRegistryAppKey(), kSection);
    CRect body(title.left, title.bottom + MulDivDpi(8), title.right, title.bottom + MulDivDpi(120));
    ::DrawTextW(dc, lines.GetString(), -1, &body, DT_LEFT | DT_WORDBREAK);

    // A row of swatches.
    const COLORREF swatches[] = {RGB(231, 76, 60), RGB(241, 196, 15), RGB(46, 204, 113), RGB(52, 152, 219),
                                 RGB(155, 89, 182)};
    const int size = MulDivDpi(48), gap = MulDivDpi(12);
    int x = title.left;
    const int y = body.bottom + MulDivDpi(12);
    for (COLORREF colour : swatches) {
        FillSolid(dc, CRect(x, y, x + size, y + size), colour);
        x += size + gap;
    }

    // The SVG icon strip, through an image list made for this DPI, and
    // the same strip greyed.
    const CSize icon = m_icons.GetIconSize();
    const int iconsTop = y + size + MulDivDpi(16);
    for (int i = 0; i < m_icons.GetImageCount(); ++i) {
        m_icons.Draw(i, dc, title.left + i * (icon.cx + gap), iconsTop, ILD_TRANSPARENT);
        m_icons.DrawGrayscale(i, dc, title.left + (i + 5) * (icon.cx + gap), iconsTop, ILD_TRANSPARENT);
    }

    ::SelectObject(dc, oldFont);
    ::DeleteObject(titleFont);
    ::DeleteObject(bodyFont);
}
