#include <cstdlib>

#include "velkan/core/detail/StructSize.h"
#include "velkan/frame/Rebar.h"

namespace Velkan {

VELKAN_X86_SIZE(REBARBANDINFOW, 100);
VELKAN_X86_SIZE(REBARINFO, 12);

namespace {

// WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_BORDER |
// RBS_FIXEDORDER | RBS_BANDBORDERS | RBS_VARHEIGHT | CCS_NODIVIDER | CCS_TOP.
constexpr DWORD kRebarStyle = 0x56800E41;
// WS_EX_CONTROLPARENT | WS_EX_TOOLWINDOW.
constexpr DWORD kRebarExStyle = 0x10080;

}  // namespace

void CRebar::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = REBARCLASSNAMEW;
}

void CRebar::PreCreate(CREATESTRUCTW& cs) {
    cs.style = static_cast<LONG>(kRebarStyle);
    cs.dwExStyle = kRebarExStyle;
}

HWND CRebar::Create(CWnd* parent) {
    if (CWnd::Create(parent) == nullptr) return nullptr;
    REBARINFO info = {};
    info.cbSize = sizeof(info);
    SetBarInfo(info);
    return m_hwnd;
}

BOOL CRebar::Insert(CWnd& child, const wchar_t* text, BOOL newRow, BOOL noGripper, int index) {
    REBARBANDINFOW band = {};
    band.cbSize = sizeof(band);
    band.fMask = RBBIM_STYLE | RBBIM_CHILD | RBBIM_CHILDSIZE;
    if (text != nullptr) {
        band.fMask |= RBBIM_TEXT;
        band.lpText = const_cast<wchar_t*>(text);
    }
    band.hwndChild = child.GetHwnd();
    const CSize size = child.GetWindowSize();
    band.cxMinChild = static_cast<UINT>(size.cx);
    band.cyMinChild = static_cast<UINT>(size.cy);
    band.fStyle = RBBS_CHILDEDGE | (noGripper ? RBBS_NOGRIPPER : 0) | (newRow ? RBBS_BREAK : 0);
    if (!InsertBand(band, index)) return FALSE;
    ::SetWindowPos(child.GetHwnd(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOREDRAW);
    return TRUE;
}

BOOL CRebar::InsertToolbar(CToolbar& toolbar, BOOL newRow, BOOL noGripper, int index) {
    const DWORD style = toolbar.GetWindowStyle();
    if ((style & CCS_NORESIZE) == 0) toolbar.SetWindowStyle(style | CCS_NORESIZE);
    const CSize size = toolbar.GetMaxSize();
    REBARBANDINFOW band = {};
    band.cbSize = sizeof(band);
    band.fMask = RBBIM_STYLE | RBBIM_CHILD | RBBIM_CHILDSIZE;
    band.hwndChild = toolbar.GetHwnd();
    band.cxMinChild = static_cast<UINT>(size.cx);
    band.cyMinChild = static_cast<UINT>(size.cy);
    band.fStyle = RBBS_CHILDEDGE;
    if (noGripper) {
        band.fStyle |= RBBS_NOGRIPPER;
        // Makes up for the missing gripper.
        toolbar.SetIndent(4);
    }
    if (newRow) band.fStyle |= RBBS_BREAK;
    return InsertBand(band, index);
}

int CRebar::GetMinWidth() const {
    const int count = GetBandCount();
    const MARGINS margins = GetBandMargins();
    int width = 0;
    for (int i = 0; i < count; ++i) {
        REBARBANDINFOW band = {};
        band.cbSize = sizeof(band);
        band.fMask = RBBIM_CHILDSIZE | RBBIM_SIZE;
        GetBandInfo(i, band);
        const CRect borders = GetBandBorders(i);
        // Kept as designed: twice the difference of the right and left
        // borders, not their sum.
        const int bandWidth = margins.cxLeftWidth + margins.cxRightWidth + static_cast<int>(band.cxMinChild) +
                              2 * std::abs(static_cast<int>(borders.right - borders.left));
        if (bandWidth > width) width = bandWidth;
    }
    return width;
}

CRect CRebar::GetBandRect(int band) const {
    CRect rect(0, 0, 0, 0);
    SendMessageW(RB_GETRECT, static_cast<WPARAM>(band), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

CRect CRebar::GetBandBorders(int band) const {
    CRect rect(0, 0, 0, 0);
    SendMessageW(RB_GETBANDBORDERS, static_cast<WPARAM>(band), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

MARGINS CRebar::GetBandMargins() const {
    // Zeroed first: some rebars leave it untouched.
    MARGINS margins = {0, 0, 0, 0};
    SendMessageW(RB_GETBANDMARGINS, 0, reinterpret_cast<LPARAM>(&margins));
    return margins;
}

}  // namespace Velkan
