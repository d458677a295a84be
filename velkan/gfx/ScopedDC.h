#pragma once

#include "velkan/gfx/DC.h"

namespace Velkan {

class CWnd;

// Device contexts held for one scope. Each saves the DC's state when it is
// acquired and restores it before releasing, so objects selected meanwhile
// need not be selected back.

// GetDC of a window, or of the screen for a null window.
class VELKAN_API CClientDC : public CDC {
public:
    explicit CClientDC(const CWnd* wnd);
    ~CClientDC() override;

protected:
    HWND m_hwnd;
    int m_saved;
};

// The screen.
class VELKAN_API CDesktopDC : public CClientDC {
public:
    CDesktopDC();
};

// GetWindowDC: the whole window, frame included.
class VELKAN_API CWindowDC : public CDC {
public:
    explicit CWindowDC(const CWnd* wnd);
    ~CWindowDC() override;

private:
    HWND m_hwnd;
    int m_saved;
};

// BeginPaint / EndPaint, for WM_PAINT.
class VELKAN_API CPaintDC : public CDC {
public:
    explicit CPaintDC(const CWnd& wnd);
    ~CPaintDC() override;
    const PAINTSTRUCT& GetPaintStruct() const { return m_paint; }

private:
    HWND m_hwnd;
    PAINTSTRUCT m_paint;
    int m_saved;
};

// A memory DC compatible with another DC (null: the screen).
class VELKAN_API CMemDC : public CDC {
public:
    explicit CMemDC(HDC compatibleWith);
    ~CMemDC() override;

private:
    int m_saved;
};

}  // namespace Velkan
