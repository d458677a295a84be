#include "velkan/dialog/MessageBox.h"

#include "velkan/app/Wnd.h"
#include "velkan/core/Resource.h"

namespace Velkan {

int CMessageBox::ShowV(CWnd* parent, const wchar_t* format, const wchar_t* caption, UINT type, va_list args) {
    CString text;
    text.FormatV(format, args);
    return ::MessageBoxW(parent != nullptr ? parent->GetHwnd() : nullptr, text, caption, type);
}

int CMessageBox::Show(HINSTANCE instance, CWnd* parent, UINT formatId, UINT captionId, UINT type, ...) {
    const CResourceString format(formatId, instance);
    const CResourceString caption(captionId, instance);
    va_list args;
    va_start(args, type);
    const int result = ShowV(parent, format, caption, type, args);
    va_end(args);
    return result;
}

int CMessageBox::Show(HINSTANCE instance, CWnd* parent, const wchar_t* format, UINT captionId, UINT type, ...) {
    const CResourceString caption(captionId, instance);
    va_list args;
    va_start(args, type);
    const int result = ShowV(parent, format, caption, type, args);
    va_end(args);
    return result;
}

int CMessageBox::Show(CWnd* parent, UINT formatId, UINT captionId, UINT type, ...) {
    const CResourceString format(formatId);
    const CResourceString caption(captionId);
    va_list args;
    va_start(args, type);
    const int result = ShowV(parent, format, caption, type, args);
    va_end(args);
    return result;
}

int CMessageBox::Show(CWnd* parent, const wchar_t* format, UINT captionId, UINT type, ...) {
    const CResourceString caption(captionId);
    va_list args;
    va_start(args, type);
    const int result = ShowV(parent, format, caption, type, args);
    va_end(args);
    return result;
}

int CMessageBox::Show(CWnd* parent, const wchar_t* format, const wchar_t* caption, UINT type, ...) {
    va_list args;
    va_start(args, type);
    const int result = ShowV(parent, format, caption, type, args);
    va_end(args);
    return result;
}

}  // namespace Velkan
