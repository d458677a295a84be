#pragma once

// Watching windows and reading images in the frame tests.

#include <windows.h>
#include <commctrl.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Testing {

// Watches the calling thread's windows through hooks while it lives: the
// class and styles each window was created with, and the messages of
// interest sent to them (for RB_SETBARINFO and RB_INSERTBANDW, what their
// structures said). One at a time.
class Spy {
public:
    struct Created { HWND hwnd; std::wstring className; DWORD style, exStyle; };
    struct Sent { HWND hwnd; UINT msg; WPARAM wParam; LPARAM lParam; UINT barInfoSize; REBARBANDINFOW band; };

    explicit Spy(std::vector<UINT> messages) : m_messages(std::move(messages)) {
        s_spy = this;
        m_cbt = ::SetWindowsHookExW(WH_CBT, &Cbt, nullptr, ::GetCurrentThreadId());
        m_call = ::SetWindowsHookExW(WH_CALLWNDPROC, &Call, nullptr, ::GetCurrentThreadId());
    }
    ~Spy() {
        ::UnhookWindowsHookEx(m_call);
        ::UnhookWindowsHookEx(m_cbt);
        s_spy = nullptr;
    }
    Spy(const Spy&) = delete;
    Spy& operator=(const Spy&) = delete;

    Created CreationOf(HWND hwnd) const {
        for (const Created& c : m_created)
            if (c.hwnd == hwnd) return c;
        return Created{nullptr, L"", 0, 0};
    }
    std::vector<Sent> SentTo(HWND hwnd) const {
        std::vector<Sent> sent;
        for (const Sent& s : m_sent)
            if (s.hwnd == hwnd) sent.push_back(s);
        return sent;
    }

private:
    static LRESULT CALLBACK Cbt(int code, WPARAM wParam, LPARAM lParam) {
        if (code == HCBT_CREATEWND && s_spy != nullptr) {
            const CREATESTRUCTW* cs = reinterpret_cast<CBT_CREATEWNDW*>(lParam)->lpcs;
            const bool named = !IS_INTRESOURCE(cs->lpszClass);
            s_spy->m_created.push_back(Created{reinterpret_cast<HWND>(wParam), named ? cs->lpszClass : L"",
                                               static_cast<DWORD>(cs->style), cs->dwExStyle});
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static LRESULT CALLBACK Call(int code, WPARAM wParam, LPARAM lParam) {
        const auto* cwp = reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code == HC_ACTION && s_spy != nullptr) {
            for (UINT msg : s_spy->m_messages) {
                if (msg != cwp->message) continue;
                Sent sent = {cwp->hwnd, cwp->message, cwp->wParam, cwp->lParam, 0, {}};
                // What the pointers point at lives only as long as the call.
                if (msg == RB_SETBARINFO) sent.barInfoSize = reinterpret_cast<const REBARINFO*>(cwp->lParam)->cbSize;
                if (msg == RB_INSERTBANDW) sent.band = *reinterpret_cast<const REBARBANDINFOW*>(cwp->lParam);
                s_spy->m_sent.push_back(sent);
            }
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    inline static Spy* s_spy = nullptr;
    std::vector<UINT> m_messages;
    std::vector<Created> m_created;
    std::vector<Sent> m_sent;
    HHOOK m_cbt = nullptr, m_call = nullptr;
};

// A 32-bit top-down DIB section, each pixel from colour(x, y) as 0xAARRGGBB.
struct Dib {
    template <typename Colour>
    Dib(int w, int h, Colour colour) : width(w), height(h) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), w, -h, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* pixels = nullptr;
        bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
        bits = static_cast<uint32_t*>(pixels);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) bits[y * w + x] = colour(x, y);
    }
    ~Dib() { ::DeleteObject(bitmap); }
    Dib(const Dib&) = delete;
    Dib& operator=(const Dib&) = delete;

    int width, height;
    HBITMAP bitmap = nullptr;
    uint32_t* bits = nullptr;
};

// One image of a list drawn over white, icon-sized, as 0xRRGGBB.
inline std::vector<uint32_t> Drawn(HIMAGELIST list, int index) {
    int cx = 0, cy = 0;
    ::ImageList_GetIconSize(list, &cx, &cy);
    Dib canvas(cx, cy, [](int, int) { return 0xFFFFFFFFu; });
    HDC dc = ::CreateCompatibleDC(nullptr);
    HGDIOBJ old = ::SelectObject(dc, canvas.bitmap);
    ::ImageList_Draw(list, index, dc, 0, 0, ILD_NORMAL);
    ::SelectObject(dc, old);
    ::DeleteDC(dc);
    std::vector<uint32_t> pixels(canvas.bits, canvas.bits + cx * cy);
    for (uint32_t& pixel : pixels) pixel &= 0xFFFFFFu;
    return pixels;
}

}  // namespace Testing
