#pragma once

#include <windows.h>
#include <uxtheme.h>

#include "velkan/core/Export.h"
#include "velkan/core/Geometry.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWnd;

/// One visual-styles theme handle for one class list ("Menu", ...), with the
/// drawing and metric functions of uxtheme forwarded with the handle filled
/// in. Every open closes the previous handle first; a failed open leaves the
/// object closed. Failures come back as HRESULTs or null handles.
class VELKAN_API CUxTheme {
public:
    /// Closed; classList and flags serve the opens.
    CUxTheme(const wchar_t* classList, DWORD flags = 0);
    /// Not copyable: the object owns its handle.
    ///@{
    CUxTheme(const CUxTheme&) = delete;
    CUxTheme& operator=(const CUxTheme&) = delete;
    ///@}
    virtual ~CUxTheme();  ///< CloseThemeData.

    /// Opens with the stored flags (uxtheme's OpenThemeDataEx).
    HTHEME OpenThemeData(const CWnd& wnd);
    /// At dpi where the system has OpenThemeDataForDpi, else as OpenThemeData.
    HTHEME OpenThemeDataForDpi(const CWnd& wnd, UINT dpi);
    void CloseThemeData();  ///< Closes the handle, if any.

    HTHEME GetTheme() const { return m_theme; }  ///< The handle, or null.
    operator HTHEME() const { return m_theme; }  ///< The handle, or null.
    BOOL IsValid() const { return m_theme != nullptr; }  ///< A handle is open.
    const CString& GetClassList() const { return m_classList; }  ///< The class list.
    DWORD GetFlags() const { return m_flags; }  ///< The flags of OpenThemeData.

    /// The uxtheme function of the same name.
    ///@{
    static BOOL IsAppThemed();
    static BOOL IsThemeActive();
    ///@}
    /// TRUE where the system offers OpenThemeDataForDpi.
    static BOOL HasOpenThemeDataForDpi();

    /// The uxtheme function of the same name with this theme's handle
    /// (DrawThemeBackgroundEx takes its clip rectangle through DTBGOPTS).
    ///@{
    HRESULT DrawThemeBackground(HDC hdc, int part, int state, const RECT& rect, const RECT* clip) const;
    HRESULT DrawThemeBackgroundEx(HDC hdc, int part, int state, const RECT& rect, const RECT* clip) const;
    HRESULT DrawThemeEdge(HDC hdc, int part, int state, const RECT& rect, UINT edge, UINT flags, RECT& content) const;
    HRESULT DrawThemeIcon(HDC hdc, int part, int state, const RECT& rect, HIMAGELIST list, int index) const;
    HRESULT DrawThemeText(HDC hdc, const wchar_t* text, int part, int state, const RECT& rect, DWORD flags) const;
    HRESULT DrawThemeTextEx(HDC hdc, const wchar_t* text, int part, int state, const RECT& rect, DWORD flags,
                            DWORD flags2) const;
    HRESULT GetThemeColor(int part, int state, int prop, COLORREF& colour) const;
    HRESULT GetThemeFont(HDC hdc, int part, int state, int prop, LOGFONTW& font) const;
    HRESULT GetThemeInt(int part, int state, int prop, int& value) const;
    HRESULT GetThemeMargins(HDC hdc, int part, int state, int prop, const RECT* rect, MARGINS& margins) const;
    HRESULT GetThemePartSize(HDC hdc, int part, int state, const RECT* rect, THEMESIZE kind, SIZE& size) const;
    HRESULT GetThemeRect(int part, int state, int prop, RECT& rect) const;
    HRESULT GetThemeSysFont(int id, LOGFONTW& font) const;
    int GetThemeSysSize(int id) const;
    HRESULT GetThemeTextExtent(HDC hdc, int part, int state, const wchar_t* text, int count, DWORD flags,
                               const RECT* bound, CRect& extent) const;
    HRESULT GetThemeTextMetrics(HDC hdc, int part, int state, TEXTMETRICW& metrics) const;
    static HRESULT DrawThemeParentBackground(HWND hwnd, HDC hdc, const RECT* rect);
    static HRESULT DrawThemeParentBackgroundEx(HWND hwnd, HDC hdc, DWORD flags, const RECT* rect);
    ///@}

    /// A text report of the menu parts' margins and sizes, the menu font and
    /// the item height, for diagnosis.
    CString DumpThemeMetrics();

private:
    HTHEME m_theme = nullptr;
    CString m_classList;
    DWORD m_flags;
};

}  // namespace Velkan
