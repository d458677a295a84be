#pragma once

#include <windows.h>

#include <cstdarg>

#include "velkan/core/Export.h"

namespace Velkan {

class CWnd;

/// The system message box with a formatted text. Every text goes through
/// the formatter, so a percent sign in a plain message must be doubled.
/// String ids are loaded from the given instance, or from the
/// application's where none is given. The results are MessageBoxW's: IDOK,
/// IDCANCEL, IDYES, ..., or 0 when the box could not be shown.
class VELKAN_API CMessageBox {
public:
    /// Shows a message box of the given MB_ type with the format (a text or a
    /// string id) filled in from the arguments, and a caption (a text or a
    /// string id). A missing string throws CResourceNotFoundException.
    ///@{
    static int Show(HINSTANCE instance, CWnd* parent, UINT formatId, UINT captionId, UINT type, ...);
    static int Show(HINSTANCE instance, CWnd* parent, const wchar_t* format, UINT captionId, UINT type, ...);
    static int Show(CWnd* parent, UINT formatId, UINT captionId, UINT type, ...);
    static int Show(CWnd* parent, const wchar_t* format, UINT captionId, UINT type, ...);
    static int Show(CWnd* parent, const wchar_t* format, const wchar_t* caption, UINT type, ...);
    ///@}
    /// Show with a va_list.
    static int ShowV(CWnd* parent, const wchar_t* format, const wchar_t* caption, UINT type, va_list args);

    /// Nothing to assign: the class has no state.
    ///@{
    CMessageBox& operator=(const CMessageBox&) { return *this; }
    CMessageBox& operator=(CMessageBox&&) { return *this; }
    ///@}
};

}  // namespace Velkan
