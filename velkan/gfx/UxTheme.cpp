#include "velkan/gfx/UxTheme.h"

#include <vssym32.h>

#include <mutex>
#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/core/detail/StructSize.h"

namespace Velkan {

namespace {

using OpenThemeDataExProc = HTHEME(WINAPI*)(HWND, LPCWSTR, DWORD);
using OpenThemeDataForDpiProc = HTHEME(WINAPI*)(HWND, LPCWSTR, UINT);

HMODULE UxThemeModule() {
    static HMODULE module = ::LoadLibraryW(L"uxtheme.dll");
    return module;
}

// OpenThemeDataEx has been exported by ordinal only on some systems.
OpenThemeDataExProc OpenThemeDataEx() {
    static OpenThemeDataExProc proc = reinterpret_cast<OpenThemeDataExProc>(
        reinterpret_cast<void*>(::GetProcAddress(UxThemeModule(), MAKEINTRESOURCEA(61))));
    return proc;
}

// Looked up once per process; null on systems before Windows 10 1703.
OpenThemeDataForDpiProc OpenThemeDataForDpiEntry() {
    static OpenThemeDataForDpiProc proc = nullptr;
    static std::once_flag once;
    std::call_once(once, [] {
        HMODULE module = ::GetModuleHandleW(L"uxtheme.dll");
        if (module == nullptr) module = UxThemeModule();
        proc = reinterpret_cast<OpenThemeDataForDpiProc>(
            reinterpret_cast<void*>(::GetProcAddress(module, "OpenThemeDataForDpi")));
    });
    return proc;
}

struct DumpedPart {
    const wchar_t* name;
    int part;
    int state;
};

const std::vector<DumpedPart>& DumpedParts() {
    static const std::vector<DumpedPart> parts = {
        {L"MENU_POPUPITEM", 14, 0},
        {L"MENU_POPUPGUTTER", 13, 0},
        {L"MENU_POPUPCHECK::MC_CHECKMARKNORMAL", 11, 1},
        {L"MENU_POPUPCHECK::MC_BULLETNORMAL", 11, 3},
        {L"MENU_POPUPCHECKBACKGROUND", 12, 0},
        {L"MENU_POPUPSUBMENU", 16, 0},
        {L"MENU_POPUPSEPARATOR", 15, 0},
    };
    return parts;
}

}  // namespace

VELKAN_X86_SIZE(NONCLIENTMETRICSW, 504);

CUxTheme::CUxTheme(const wchar_t* classList, DWORD flags) : m_classList(classList), m_flags(flags) {}

CUxTheme::~CUxTheme() {
    CloseThemeData();
}

HTHEME CUxTheme::OpenThemeData(const CWnd& wnd) {
    CloseThemeData();
    if (OpenThemeDataExProc open = OpenThemeDataEx())
        m_theme = open(wnd.GetHwnd(), m_classList, m_flags);
    return m_theme;
}

HTHEME CUxTheme::OpenThemeDataForDpi(const CWnd& wnd, UINT dpi) {
    OpenThemeDataForDpiProc open = OpenThemeDataForDpiEntry();
    if (open == nullptr) return OpenThemeData(wnd);
    CloseThemeData();
    m_theme = open(wnd.GetHwnd(), m_classList, dpi);
    return m_theme;
}

BOOL CUxTheme::IsAppThemed() {
    return ::IsAppThemed();
}

BOOL CUxTheme::IsThemeActive() {
    return ::IsThemeActive();
}

BOOL CUxTheme::HasOpenThemeDataForDpi() {
    return OpenThemeDataForDpiEntry() != nullptr;
}

void CUxTheme::CloseThemeData() {
    if (m_theme != nullptr) ::CloseThemeData(m_theme);
    m_theme = nullptr;
}

HRESULT CUxTheme::DrawThemeBackground(HDC hdc, int part, int state, const RECT& rect, const RECT* clip) const {
    return ::DrawThemeBackground(m_theme, hdc, part, state, &rect, clip);
}

HRESULT CUxTheme::DrawThemeBackgroundEx(HDC hdc, int part, int state, const RECT& rect, const RECT* clip) const {
    DTBGOPTS options = {sizeof(options), 0, {0, 0, 0, 0}};
    if (clip != nullptr) {
        options.dwFlags = DTBG_CLIPRECT;
        options.rcClip = *clip;
    }
    return ::DrawThemeBackgroundEx(m_theme, hdc, part, state, &rect, &options);
}

HRESULT CUxTheme::DrawThemeEdge(HDC hdc, int part, int state, const RECT& rect, UINT edge, UINT flags,
                                RECT& content) const {
    return ::DrawThemeEdge(m_theme, hdc, part, state, &rect, edge, flags, &content);
}

HRESULT CUxTheme::DrawThemeIcon(HDC hdc, int part, int state, const RECT& rect, HIMAGELIST list, int index) const {
    return ::DrawThemeIcon(m_theme, hdc, part, state, &rect, list, index);
}

HRESULT CUxTheme::DrawThemeText(HDC hdc, const wchar_t* text, int part, int state, const RECT& rect,
                                DWORD flags) const {
    return ::DrawThemeText(m_theme, hdc, part, state, text, -1, flags, 0, &rect);
}

HRESULT CUxTheme::DrawThemeTextEx(HDC hdc, const wchar_t* text, int part, int state, const RECT& rect, DWORD flags,
                                  DWORD flags2) const {
    return ::DrawThemeText(m_theme, hdc, part, state, text, -1, flags, flags2, &rect);
}

HRESULT CUxTheme::GetThemeColor(int part, int state, int prop, COLORREF& colour) const {
    return ::GetThemeColor(m_theme, part, state, prop, &colour);
}

HRESULT CUxTheme::GetThemeFont(HDC hdc, int part, int state, int prop, LOGFONTW& font) const {
    return ::GetThemeFont(m_theme, hdc, part, state, prop, &font);
}

HRESULT CUxTheme::GetThemeInt(int part, int state, int prop, int& value) const {
    return ::GetThemeInt(m_theme, part, state, prop, &value);
}

HRESULT CUxTheme::GetThemeMargins(HDC hdc, int part, int state, int prop, const RECT* rect,
                                  MARGINS& margins) const {
    return ::GetThemeMargins(m_theme, hdc, part, state, prop, const_cast<RECT*>(rect), &margins);
}

HRESULT CUxTheme::GetThemePartSize(HDC hdc, int part, int state, const RECT* rect, THEMESIZE kind,
                                   SIZE& size) const {
    return ::GetThemePartSize(m_theme, hdc, part, state, const_cast<RECT*>(rect), kind, &size);
}

HRESULT CUxTheme::GetThemeRect(int part, int state, int prop, RECT& rect) const {
    return ::GetThemeRect(m_theme, part, state, prop, &rect);
}

HRESULT CUxTheme::GetThemeSysFont(int id, LOGFONTW& font) const {
    return ::GetThemeSysFont(m_theme, id, &font);
}

int CUxTheme::GetThemeSysSize(int id) const {
    return ::GetThemeSysSize(m_theme, id);
}

HRESULT CUxTheme::GetThemeTextExtent(HDC hdc, int part, int state, const wchar_t* text, int count, DWORD flags,
                                     const RECT* bound, CRect& extent) const {
    return ::GetThemeTextExtent(m_theme, hdc, part, state, text, count, flags, bound, &extent);
}

HRESULT CUxTheme::GetThemeTextMetrics(HDC hdc, int part, int state, TEXTMETRICW& metrics) const {
    return ::GetThemeTextMetrics(m_theme, hdc, part, state, &metrics);
}

HRESULT CUxTheme::DrawThemeParentBackground(HWND hwnd, HDC hdc, const RECT* rect) {
    return ::DrawThemeParentBackground(hwnd, hdc, const_cast<RECT*>(rect));
}

HRESULT CUxTheme::DrawThemeParentBackgroundEx(HWND hwnd, HDC hdc, DWORD flags, const RECT* rect) {
    return ::DrawThemeParentBackgroundEx(hwnd, hdc, flags, rect);
}

CString CUxTheme::DumpThemeMetrics() {
    CString report;
    report.Format(L"Dumping theme metrics for class list, %s:\n", static_cast<const wchar_t*>(m_classList));
    for (const DumpedPart& part : DumpedParts()) {
        report.AppendFormat(L"%s:\n", part.name);
        MARGINS margins = {};
        HRESULT hr = GetThemeMargins(nullptr, part.part, part.state, TMT_CONTENTMARGINS, nullptr, margins);
        if (FAILED(hr))
            report.AppendFormat(L"\tFailed to get TMT_CONTENTMARGINS: hr=0x%08X\n", static_cast<unsigned>(hr));
        else
            report.AppendFormat(L"\tTMT_CONTENTMARGINS: left=%d, right=%d, top=%d, bottom=%d\n", margins.cxLeftWidth,
                                margins.cxRightWidth, margins.cyTopHeight, margins.cyBottomHeight);
        SIZE size = {};
        hr = GetThemePartSize(nullptr, part.part, part.state, nullptr, TS_TRUE, size);
        if (FAILED(hr))
            report.AppendFormat(L"\tFailed to get part size: hr=0x%08X\n", static_cast<unsigned>(hr));
        else
            report.AppendFormat(L"\tPart size: width=%d, height=%d\n", static_cast<int>(size.cx),
                                static_cast<int>(size.cy));
    }
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    report.Append(L"Menu Font:\n");
    report.AppendFormat(L"\tFont: %s, height=%d (via SPI_GETNONCLIENTMETRICS)\n", metrics.lfMenuFont.lfFaceName,
                        static_cast<int>(metrics.lfMenuFont.lfHeight));
    report.AppendFormat(L"\tItem Height: %d\n", GetThemeSysSize(SM_CYMENUSIZE));
    return report;
}

}  // namespace Velkan
