#pragma once

#include <windows.h>

#include <cstdarg>

#include "velkan/core/Export.h"

namespace Velkan {

class CWnd;

// The system message box with a formatted text. Every text goes through
// the formatter, so a percent sign in a plain message must be doubled.
// String ids are loaded from the given instance, or from the
// application's where none is given. The results are MessageBoxW's: IDOK,
// IDCANCEL, IDYES, ..., or 0 when the box could not be shown.
class VELKAN_API CMessageBox {
public:
    static int Show(HINSTANCE instance, CWnd* parent, UINT formatId, UINT captionId, UINT type, ...);
    static int Show(HINSTANCE instance, CWnd* parent, const wchar_t* format, UINT captionId, UINT type, ...);
    static int Show(CWnd* parent, UINT formatId, UINT captionId, UINT type, ...);
    static int Show(CWnd* parent, const wchar_t* format, UINT captionId, UINT type, ...);
    static int Show(CWnd* parent, const wchar_t* format, const wchar_t* caption, UINT type, ...);
    static int ShowV(CWnd* parent, const wchar_t* format, const wchar_t* caption, UINT type, va_list args);

    CMessageBox& operator=(const CMessageBox&) { return *this; }
    CMessageBox& operator=(CMessageBox&&) { return *this; }
};

}  // namespace Velkan
