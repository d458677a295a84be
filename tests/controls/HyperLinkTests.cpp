#include <gtest/gtest.h>

#include <vector>

#include "ControlsTestSupport.h"
#include "velkan/controls/HyperLink.h"

using namespace Velkan;
using Testing::Capture;
using Testing::Parent;

namespace {

constexpr UINT kLinkId = 21;

// A link of the registered class, as a dialog template would make it.
HWND CreateLink(const Parent& parent) {
    static const BOOL registered = CHyperLink::RegisterWindowClass(::GetModuleHandleW(nullptr));
    EXPECT_TRUE(registered);
    return ::CreateWindowExW(0, L"VlkHyperLink", L"Visit the link", WS_CHILD | WS_VISIBLE, 10, 10, 300, 60, parent,
                             reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kLinkId)), ::GetModuleHandleW(nullptr), nullptr);
}

CHyperLink* Object(HWND link) {
    return reinterpret_cast<CHyperLink*>(::GetWindowLongPtrW(link, GWLP_USERDATA));
}

// What the object slot holds once WM_NCCREATE and WM_NCDESTROY are handled.
std::vector<std::pair<UINT, LONG_PTR>>* g_slots = nullptr;

LRESULT CALLBACK WatchSlot(int code, WPARAM wParam, LPARAM lParam) {
    const auto* call = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    wchar_t name[32] = {};
    ::GetClassNameW(call->hwnd, name, 32);
    if (code == HC_ACTION && g_slots != nullptr && (call->message == WM_NCCREATE || call->message == WM_NCDESTROY) &&
        ::lstrcmpW(name, L"VlkHyperLink") == 0)
        g_slots->push_back({call->message, ::GetWindowLongPtrW(call->hwnd, GWLP_USERDATA)});
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

// A font of about 24 points at the screen's DPI: big enough for solid strokes.
HFONT LargeFont() {
    HDC screen = ::GetDC(nullptr);
    const int height = -::MulDiv(24, ::GetDeviceCaps(screen, LOGPIXELSY), 72);
    ::ReleaseDC(nullptr, screen);
    return ::CreateFontW(height, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, NONANTIALIASED_QUALITY, 0, L"Tahoma");
}

uint32_t HotColour() {
    const COLORREF hot = ::GetSysColor(COLOR_HOTLIGHT);
    return Testing::Rgb(hot != 0 ? hot : 0x00FF0000);
}

// The pixels along the four edges.
std::vector<uint32_t> Border(const Capture& image) {
    std::vector<uint32_t> border;
    for (int x = 0; x < image.width; ++x) border.insert(border.end(), {image.At(x, 0), image.At(x, image.height - 1)});
    for (int y = 0; y < image.height; ++y) border.insert(border.end(), {image.At(0, y), image.At(image.width - 1, y)});
    return border;
}

}  // namespace

TEST(HyperLink, ClassHasTheHandCursorAndTheObjectLivesFromNcCreateToNcDestroy) {
    Parent parent;
    std::vector<std::pair<UINT, LONG_PTR>> slots;
    g_slots = &slots;
    HHOOK hook = ::SetWindowsHookExW(WH_CALLWNDPROCRET, &WatchSlot, nullptr, ::GetCurrentThreadId());
    HWND link = CreateLink(parent);
    CHyperLink* object = Object(link);
    const bool tied = object != nullptr && object->GetHwnd() == link;
    ::DestroyWindow(link);
    ::UnhookWindowsHookEx(hook);
    g_slots = nullptr;
    EXPECT_TRUE(tied);
    const std::vector<std::pair<UINT, LONG_PTR>> expected = {{WM_NCCREATE, slots.at(0).second}, {WM_NCDESTROY, 0}};
    EXPECT_NE(0, slots.at(0).second);
    EXPECT_EQ(expected, slots);
    WNDCLASSEXW wc = {};
    wc.cbSize = sizeof(wc);
    ASSERT_TRUE(::GetClassInfoExW(::GetModuleHandleW(nullptr), L"VlkHyperLink", &wc));
    EXPECT_EQ(::LoadCursorW(nullptr, IDC_HAND), wc.hCursor);
}

TEST(HyperLink, ClickMessagesSendOneNmClickToTheParent) {
    Parent parent(true);
    HWND link = CreateLink(parent);
    ASSERT_NE(nullptr, link);
    const auto clicksAfter = [&](UINT msg, WPARAM wParam) {
        parent.notifications.clear();
        ::SendMessageW(link, msg, wParam, 0);
        for (const NMHDR& header : parent.notifications) {
            EXPECT_EQ(link, header.hwndFrom);
            EXPECT_EQ(kLinkId, header.idFrom);
        }
        int clicks = 0;
        for (const NMHDR& header : parent.notifications) clicks += header.code == static_cast<UINT>(NM_CLICK);
        return clicks;
    };
    EXPECT_NE(link, ::GetFocus());
    EXPECT_EQ(1, clicksAfter(WM_LBUTTONDOWN, MK_LBUTTON));
    EXPECT_EQ(link, ::GetFocus());
    EXPECT_EQ(1, clicksAfter(WM_LBUTTONDOWN, MK_LBUTTON));  // already focused
    EXPECT_EQ(1, clicksAfter(BM_CLICK, 0));
    EXPECT_EQ(0, clicksAfter(WM_KEYDOWN, VK_SPACE));
    EXPECT_EQ(1, clicksAfter(WM_KEYUP, VK_SPACE));
    EXPECT_EQ(0, clicksAfter(WM_KEYUP, VK_RETURN));
    EXPECT_EQ(DLGC_BUTTON, ::SendMessageW(link, WM_GETDLGCODE, 0, 0));
}

TEST(HyperLink, SetFontKeepsTheFontAndMakesAnUnderlinedCopy) {
    Parent parent;
    HWND link = CreateLink(parent);
    ASSERT_NE(nullptr, link);
    HFONT font = LargeFont();
    ::SendMessageW(link, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    EXPECT_EQ(reinterpret_cast<LRESULT>(font), ::SendMessageW(link, WM_GETFONT, 0, 0));
    HFONT underline = Object(link)->GetUnderlineFont();
    ASSERT_NE(nullptr, underline);
    LOGFONTW original = {}, copy = {};
    ::GetObjectW(font, sizeof(original), &original);
    ::GetObjectW(underline, sizeof(copy), &copy);
    EXPECT_TRUE(copy.lfUnderline);
    EXPECT_EQ(original.lfHeight, copy.lfHeight);
    EXPECT_EQ(original.lfWeight, copy.lfWeight);
    EXPECT_STREQ(original.lfFaceName, copy.lfFaceName);

    // A new font replaces the copy, which is deleted; none clears both.
    ::SendMessageW(link, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    EXPECT_EQ(0u, ::GetObjectType(underline));
    ::SendMessageW(link, WM_SETFONT, 0, FALSE);
    EXPECT_EQ(0, ::SendMessageW(link, WM_GETFONT, 0, 0));
    EXPECT_EQ(nullptr, Object(link)->GetUnderlineFont());
    EXPECT_NE(0u, ::GetObjectType(font));  // the caller's font stays the caller's
    ::DestroyWindow(link);
    ::DeleteObject(font);
}

TEST(HyperLink, PaintsHotTextInTheHotLightColourAndAFocusRectangle) {
    Parent parent(true);
    HWND link = CreateLink(parent);
    ASSERT_NE(nullptr, link);
    HFONT font = LargeFont();
    ::SendMessageW(link, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    const uint32_t hot = HotColour();
    const uint32_t face = Testing::Rgb(::GetSysColor(COLOR_BTNFACE));

    const Capture idle(link);
    EXPECT_EQ(0, idle.Count(hot));
    EXPECT_LT(idle.Count(face), idle.width * idle.height) << "no text drawn";

    ::SendMessageW(link, WM_SETCURSOR, reinterpret_cast<WPARAM>(link), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_TRUE(Object(link)->IsHot());
    const Capture hotImage(link);
    EXPECT_GT(hotImage.Count(hot), 0);

    ::SendMessageW(link, WM_MOUSELEAVE, 0, 0);
    EXPECT_FALSE(Object(link)->IsHot());
    EXPECT_EQ(0, Capture(link).Count(hot));

    // The focus rectangle runs along the edges.
    ::SetFocus(link);
    ASSERT_EQ(link, ::GetFocus());
    const Capture focused(link);
    EXPECT_NE(Border(idle), Border(focused));
    ::SetFocus(parent);
    EXPECT_EQ(Border(idle), Border(Capture(link)));
    ::DestroyWindow(link);
    ::DeleteObject(font);
}
