#pragma once

#include "velkan/gfx/DC.h"

namespace Velkan {

class CWnd;

// Device contexts held for one scope. Each saves the DC's state when it is
// acquired and restores it before releasing, so objects selected meanwhile
// need not be selected back.

/// GetDC of a window, or of the screen for a null window.
class VELKAN_API CClientDC : public CDC {
public:
    explicit CClientDC(const CWnd* wnd);  ///< GetDC, and saves the state.
    ~CClientDC() override;  ///< Restores the state and releases the DC.

protected:
    HWND m_hwnd;  ///< The window, or null for the screen.
    int m_saved;  ///< The saved state.
};

/// The screen.
class VELKAN_API CDesktopDC : public CClientDC {
public:
    CDesktopDC();  ///< GetDC of the screen.
};

/// GetWindowDC: the whole window, frame included.
class VELKAN_API CWindowDC : public CDC {
public:
    explicit CWindowDC(const CWnd* wnd);  ///< GetWindowDC, and saves the state.
    ~CWindowDC() override;  ///< Restores the state and releases the DC.

private:
    HWND m_hwnd;
    int m_saved;
};

/// BeginPaint / EndPaint, for WM_PAINT.
class VELKAN_API CPaintDC : public CDC {
public:
    explicit CPaintDC(const CWnd& wnd);  ///< BeginPaint, and saves the state.
    ~CPaintDC() override;  ///< Restores the state and ends painting.
    const PAINTSTRUCT& GetPaintStruct() const { return m_paint; }  ///< What BeginPaint filled in.

private:
    HWND m_hwnd;
    PAINTSTRUCT m_paint;
    int m_saved;
};

/// A memory DC compatible with another DC (null: the screen).
class VELKAN_API CMemDC : public CDC {
public:
    explicit CMemDC(HDC compatibleWith);  ///< CreateCompatibleDC, and saves the state.
    ~CMemDC() override;  ///< Restores the state and deletes the DC.

private:
    int m_saved;
};

}  // namespace Velkan
