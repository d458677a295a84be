#pragma once

#include <windows.h>
#include <objidl.h>  // GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out
#include <gdiplus.h>

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWnd;

/// The system clipboard for one open-to-close use: opened for an owner
/// window, it takes and gives Unicode text, a private block of bytes
/// (format 512, a 4-byte length before the bytes) and bitmaps, and is
/// closed when the object goes out of scope. Nothing throws.
class VELKAN_API CWindowsClipboard {
public:
    /// The format of the private block (512).
    static constexpr UINT PrivateFormat = CF_PRIVATEFIRST;

    /// Opens the clipboard for owner. Empties the clipboard too when asked
    /// and it opened.
    CWindowsClipboard(CWnd& owner, BOOL empty);
    CWindowsClipboard() = default;  ///< Closed; OpenClipboard opens it.
    /// Copies close the clipboard too when they die (kept as is).
    ///@{
    CWindowsClipboard(const CWindowsClipboard&) = default;
    CWindowsClipboard& operator=(const CWindowsClipboard&) = default;
    ///@}
    virtual ~CWindowsClipboard();  ///< Closes the clipboard when this object opened it.

    BOOL OpenClipboard(CWnd& owner);  ///< Opens the clipboard for owner; TRUE when it opened.
    BOOL CloseClipboard();  ///< Closes the clipboard.
    BOOL EmptyClipboard() const { return ::EmptyClipboard(); }  ///< EmptyClipboard.
    BOOL IsOpen() const { return m_open; }  ///< This object has the clipboard open.

    /// The Win32 clipboard function of the same name.
    ///@{
    static BOOL IsClipboardFormatAvailable(UINT format) { return ::IsClipboardFormatAvailable(format); }
    HANDLE GetClipboardData(UINT format) const { return ::GetClipboardData(format); }
    BOOL SetClipboardData(UINT format, HANDLE data) const { return ::SetClipboardData(format, data) != nullptr; }
    ///@}

    /// The Unicode text. A null string when not open or without text.
    CString GetClipboardText() const;
    /// Places Unicode text. A text with bare line feeds (and no CR LF) gets
    /// CR LF line ends.
    /// Empty text succeeds and places nothing.
    BOOL SetClipboardString(const CString& text) const;
    /// The payload of the private block, or nothing.
    const std::vector<unsigned char>& GetBinaryClipboardData();
    /// Places the private block. Zero bytes succeed and place nothing.
    BOOL SetBinaryClipboardData(const void* data, unsigned long length) const;
    /// Places a GDI+ bitmap as a bitmap compatible with the screen
    /// (CF_BITMAP).
    BOOL SetClipboardBitmap(Gdiplus::Bitmap& bitmap) const;

private:
    BOOL m_open = FALSE;
    std::vector<unsigned char> m_data;
};

}  // namespace Velkan
