#include "velkan/gfx/ScopedDC.h"

#include "velkan/app/Wnd.h"

namespace Velkan {

namespace {

HWND HandleOf(const CWnd* wnd) {
    return wnd != nullptr ? wnd->GetHwnd() : nullptr;
}

}  // namespace

CClientDC::CClientDC(const CWnd* wnd) : CDC(nullptr), m_hwnd(HandleOf(wnd)) {
    m_hdc = ::GetDC(m_hwnd);
    m_saved = ::SaveDC(m_hdc);
    Register();
}

CClientDC::~CClientDC() {
    ::RestoreDC(m_hdc, m_saved);
    ::ReleaseDC(m_hwnd, m_hdc);
}

CDesktopDC::CDesktopDC() : CClientDC(nullptr) {}

CWindowDC::CWindowDC(const CWnd* wnd) : CDC(nullptr), m_hwnd(HandleOf(wnd)) {
    m_hdc = ::GetWindowDC(m_hwnd);
    m_saved = ::SaveDC(m_hdc);
    Register();
}

CWindowDC::~CWindowDC() {
    ::RestoreDC(m_hdc, m_saved);
    ::ReleaseDC(m_hwnd, m_hdc);
}

CPaintDC::CPaintDC(const CWnd& wnd) : CDC(nullptr), m_hwnd(wnd.GetHwnd()), m_paint() {
    m_hdc = ::BeginPaint(m_hwnd, &m_paint);
    m_saved = ::SaveDC(m_hdc);
    Register();
}

CPaintDC::~CPaintDC() {
    ::RestoreDC(m_hdc, m_saved);
    ::EndPaint(m_hwnd, &m_paint);
}

CMemDC::CMemDC(HDC compatibleWith) : CDC(::CreateCompatibleDC(compatibleWith)) {
    m_saved = ::SaveDC(m_hdc);
    Register();
}

CMemDC::~CMemDC() {
    ::RestoreDC(m_hdc, m_saved);
    ::DeleteDC(m_hdc);
}

}  // namespace Velkan
