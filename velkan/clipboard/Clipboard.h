#pragma once

#include <windows.h>
#include <objidl.h>  // GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out
#include <gdiplus.h>

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWnd;

// The system clipboard for one open-to-close use: opened for an owner
// window, it takes and gives Unicode text, a private block of bytes
// (format 512, a 4-byte length before the bytes) and bitmaps, and is
// closed when the object goes out of scope. Nothing throws.
class VELKAN_API CWindowsClipboard {
public:
    static constexpr UINT PrivateFormat = CF_PRIVATEFIRST;

    // Empties the clipboard too when asked and it opened.
    CWindowsClipboard(CWnd& owner, BOOL empty);
    CWindowsClipboard() = default;
    // Copies close the clipboard too when they die (kept as is).
    CWindowsClipboard(const CWindowsClipboard&) = default;
    CWindowsClipboard& operator=(const CWindowsClipboard&) = default;
    virtual ~CWindowsClipboard();

    BOOL OpenClipboard(CWnd& owner);
    BOOL CloseClipboard();
    BOOL EmptyClipboard() const { return ::EmptyClipboard(); }
    BOOL IsOpen() const { return m_open; }

    static BOOL IsClipboardFormatAvailable(UINT format) { return ::IsClipboardFormatAvailable(format); }
    HANDLE GetClipboardData(UINT format) const { return ::GetClipboardData(format); }
    BOOL SetClipboardData(UINT format, HANDLE data) const { return ::SetClipboardData(format, data) != nullptr; }

    // A null string when not open or without text.
    CString GetClipboardText() const;
    // A text with bare line feeds (and no CR LF) gets CR LF line ends.
    // Empty text succeeds and places nothing.
    BOOL SetClipboardString(const CString& text) const;
    // The payload of the private block, or nothing.
    const std::vector<unsigned char>& GetBinaryClipboardData();
    // Zero bytes succeed and place nothing.
    BOOL SetBinaryClipboardData(const void* data, unsigned long length) const;
    // As a bitmap compatible with the screen (CF_BITMAP).
    BOOL SetClipboardBitmap(Gdiplus::Bitmap& bitmap) const;

private:
    BOOL m_open = FALSE;
    std::vector<unsigned char> m_data;
};

}  // namespace Velkan
