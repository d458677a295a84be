#include "velkan/clipboard/Clipboard.h"

#include <cstdint>
#include <cstring>
#include <cwchar>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/Bitmap.h"

namespace Velkan {

CWindowsClipboard::CWindowsClipboard(CWnd& owner, BOOL empty) {
    m_open = ::OpenClipboard(owner.GetHwnd());
    if (m_open && empty) ::EmptyClipboard();
}

CWindowsClipboard::~CWindowsClipboard() {
    if (m_open) {
        m_open = FALSE;
        ::CloseClipboard();
    }
}

BOOL CWindowsClipboard::OpenClipboard(CWnd& owner) {
    m_open = ::OpenClipboard(owner.GetHwnd());
    return m_open;
}

BOOL CWindowsClipboard::CloseClipboard() {
    m_open = FALSE;
    return ::CloseClipboard();
}

CString CWindowsClipboard::GetClipboardText() const {
    if (!m_open) return CString();
    HANDLE data = ::GetClipboardData(CF_UNICODETEXT);
    if (data == nullptr) return CString();
    const auto* text = static_cast<const wchar_t*>(::GlobalLock(data));
    if (text == nullptr) return CString();
    // Bounded by the block: clipboard text need not be terminated.
    const size_t units = ::GlobalSize(data) / sizeof(wchar_t);
    size_t length = 0;
    while (length < units && text[length] != L'\0') ++length;
    CString copy(text, static_cast<int>(length));
    ::GlobalUnlock(data);
    return copy;
}

BOOL CWindowsClipboard::SetClipboardString(const CString& text) const {
    if (!m_open) return FALSE;
    if (text.IsNull() || text.IsEmpty()) return TRUE;
    CString placed(text);
    const wchar_t* all = text.GetString();
    if (std::wcsstr(all, L"\r\n") == nullptr && std::wcschr(all, L'\n') != nullptr) {
        placed = L"";
        for (const wchar_t* p = all; *p != L'\0'; ++p) {
            if (*p == L'\n') placed.Append(L'\r');
            placed.Append(*p);
        }
    }
    // A failed conversion left the copy null.
    if (placed.IsNull()) return FALSE;
    const size_t bytes = (static_cast<size_t>(placed.GetLength()) + 1) * sizeof(wchar_t);
    HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (block == nullptr) return FALSE;
    void* memory = ::GlobalLock(block);
    if (memory == nullptr) {
        ::GlobalFree(block);
        return FALSE;
    }
    std::memcpy(memory, placed.GetString(), bytes);
    ::GlobalUnlock(block);
    if (::SetClipboardData(CF_UNICODETEXT, block) == nullptr) {
        ::GlobalFree(block);
        return FALSE;
    }
    return TRUE;
}

const std::vector<unsigned char>& CWindowsClipboard::GetBinaryClipboardData() {
    m_data.clear();
    HANDLE data = ::GetClipboardData(PrivateFormat);
    if (data == nullptr) return m_data;
    const auto* bytes = static_cast<const unsigned char*>(::GlobalLock(data));
    if (bytes == nullptr) return m_data;
    const size_t size = ::GlobalSize(data);
    uint32_t length = 0;
    if (size >= sizeof(length)) {
        std::memcpy(&length, bytes, sizeof(length));
        // A length larger than the block is cut to what the block holds.
        const size_t available = size - sizeof(length);
        const size_t n = length <= available ? length : available;
        m_data.assign(bytes + sizeof(length), bytes + sizeof(length) + n);
    }
    ::GlobalUnlock(data);
    return m_data;
}

BOOL CWindowsClipboard::SetBinaryClipboardData(const void* data, unsigned long length) const {
    if (!m_open) return FALSE;
    if (length == 0) return TRUE;
    if (data == nullptr) return FALSE;
    HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, static_cast<size_t>(length) + sizeof(uint32_t));
    if (block == nullptr) return FALSE;
    auto* memory = static_cast<unsigned char*>(::GlobalLock(block));
    if (memory == nullptr) {
        ::GlobalFree(block);
        return FALSE;
    }
    const uint32_t size = static_cast<uint32_t>(length);
    std::memcpy(memory, &size, sizeof(size));
    std::memcpy(memory + sizeof(size), data, length);
    ::GlobalUnlock(block);
    if (::SetClipboardData(PrivateFormat, block) == nullptr) {
        ::GlobalFree(block);
        return FALSE;
    }
    return TRUE;
}

BOOL CWindowsClipboard::SetClipboardBitmap(Gdiplus::Bitmap& bitmap) const {
    if (!m_open) return FALSE;
    CBitmap source(bitmap);
    if (source.GetHbitmap() == nullptr) return FALSE;
    const CSize size = source.GetSize();
    HDC screen = ::GetDC(nullptr);
    const int saved = ::SaveDC(screen);
    // A device-dependent copy: the clipboard takes ownership of it.
    HBITMAP ddb = ::CreateCompatibleBitmap(screen, size.cx, size.cy);
    HDC from = ::CreateCompatibleDC(screen);
    HDC to = ::CreateCompatibleDC(screen);
    HGDIOBJ oldFrom = ::SelectObject(from, source.GetHbitmap());
    HGDIOBJ oldTo = ::SelectObject(to, ddb);
    ::BitBlt(to, 0, 0, size.cx, size.cy, from, 0, 0, SRCCOPY);
    ::SelectObject(from, oldFrom);
    ::SelectObject(to, oldTo);
    ::DeleteDC(from);
    ::DeleteDC(to);
    ::RestoreDC(screen, saved);
    ::ReleaseDC(nullptr, screen);
    if (ddb == nullptr) return FALSE;
    if (::SetClipboardData(CF_BITMAP, ddb) == nullptr) {
        ::DeleteObject(ddb);
        return FALSE;
    }
    return TRUE;
}

}  // namespace Velkan
