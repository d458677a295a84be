#include <gtest/gtest.h>

#include <windows.h>
#include <gdiplus.h>

#include <string>
#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/clipboard/Clipboard.h"

using namespace Velkan;

namespace {

// A hidden owner window for the clipboard.
struct Owner {
    Owner() { wnd.CreateEx(0, L"VlkWnd", L"clipboard owner", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr); }
    ~Owner() { wnd.Destroy(); }
    CWnd wnd;
};

// What the clipboard holds as Unicode text, read with the plain API.
std::wstring PlainText() {
    std::wstring text = L"(none)";
    if (!::OpenClipboard(nullptr)) return L"(not opened)";
    if (HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(::GlobalLock(data));
        ::GlobalUnlock(data);
    }
    ::CloseClipboard();
    return text;
}

}  // namespace

TEST(Clipboard, TextGetsCrLfLineEndsOnlyWhenItHasNone) {
    Owner owner;
    {
        CWindowsClipboard clipboard(owner.wnd, TRUE);
        ASSERT_TRUE(clipboard.IsOpen());
        EXPECT_TRUE(clipboard.SetClipboardString(CString(L"a\nb")));
    }
    EXPECT_EQ(L"a\r\nb", PlainText());
    {
        CWindowsClipboard clipboard(owner.wnd, TRUE);
        EXPECT_TRUE(clipboard.SetClipboardString(CString(L"a\r\nb\nc")));
        EXPECT_STREQ(L"a\r\nb\nc", clipboard.GetClipboardText());
    }
    EXPECT_EQ(L"a\r\nb\nc", PlainText());
    {
        // Empty text succeeds and leaves what was there.
        CWindowsClipboard clipboard(owner.wnd, FALSE);
        EXPECT_TRUE(clipboard.SetClipboardString(CString(L"")));
        EXPECT_TRUE(clipboard.SetClipboardString(CString()));
    }
    EXPECT_EQ(L"a\r\nb\nc", PlainText());

    // Closed, nothing is read or written.
    CWindowsClipboard closed;
    EXPECT_FALSE(closed.IsOpen());
    EXPECT_TRUE(closed.GetClipboardText().IsNull());
    EXPECT_FALSE(closed.SetClipboardString(CString(L"x")));
    CWindowsClipboard reopened;
    ASSERT_TRUE(reopened.OpenClipboard(owner.wnd));
    EXPECT_TRUE(reopened.CloseClipboard());
    EXPECT_TRUE(reopened.GetClipboardText().IsNull());
}

TEST(Clipboard, PrivateBytesCarryTheirLength) {
    Owner owner;
    const unsigned char bytes[] = {1, 2, 3};
    {
        CWindowsClipboard clipboard(owner.wnd, TRUE);
        // Nothing to place: success, and no block.
        EXPECT_TRUE(clipboard.SetBinaryClipboardData(bytes, 0));
        EXPECT_FALSE(CWindowsClipboard::IsClipboardFormatAvailable(CWindowsClipboard::PrivateFormat));
        EXPECT_TRUE(clipboard.SetBinaryClipboardData(bytes, 3));
        HANDLE block = clipboard.GetClipboardData(CWindowsClipboard::PrivateFormat);
        ASSERT_NE(nullptr, block);
        EXPECT_EQ(7u, ::GlobalSize(block));
        const auto* raw = static_cast<const unsigned char*>(::GlobalLock(block));
        EXPECT_EQ((std::vector<unsigned char>{3, 0, 0, 0, 1, 2, 3}), std::vector<unsigned char>(raw, raw + 7));
        ::GlobalUnlock(block);
    }
    {
        CWindowsClipboard clipboard(owner.wnd, FALSE);
        EXPECT_EQ((std::vector<unsigned char>{1, 2, 3}), clipboard.GetBinaryClipboardData());
    }
    CWindowsClipboard closed;
    EXPECT_FALSE(closed.SetBinaryClipboardData(bytes, 3));
}

TEST(Clipboard, BitmapsArePlacedAsDeviceDependentBitmaps) {
    Owner owner;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    {
        Gdiplus::Bitmap picture(6, 4, PixelFormat32bppARGB);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 6; ++x) picture.SetPixel(x, y, Gdiplus::Color(255, 200, 30, 60));
        CWindowsClipboard closed;
        EXPECT_FALSE(closed.SetClipboardBitmap(picture));
        CWindowsClipboard clipboard(owner.wnd, TRUE);
        EXPECT_TRUE(clipboard.SetClipboardBitmap(picture));
        HBITMAP placed = static_cast<HBITMAP>(clipboard.GetClipboardData(CF_BITMAP));
        ASSERT_NE(nullptr, placed);
        BITMAP info = {};
        ASSERT_EQ(static_cast<int>(sizeof(info)), ::GetObjectW(placed, sizeof(info), &info));
        EXPECT_EQ(6, info.bmWidth);
        EXPECT_EQ(4, info.bmHeight);
        HDC dc = ::CreateCompatibleDC(nullptr);
        HGDIOBJ old = ::SelectObject(dc, placed);
        EXPECT_EQ(RGB(200, 30, 60), ::GetPixel(dc, 3, 2));
        ::SelectObject(dc, old);
        ::DeleteDC(dc);
    }
    Gdiplus::GdiplusShutdown(token);
}
