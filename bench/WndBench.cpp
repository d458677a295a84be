#include "WndBench.h"

#include <memory>
#include <string>
#include <vector>

#include "velkan/app/Wnd.h"

using Velkan::CWnd;
using Velkan::IWndMsgFilter;

namespace Bench {

namespace {

const UINT WM_BENCH = WM_APP + 1;
const int kMessages = 100000;

LRESULT CALLBACK PlainProc(HWND hwnd, UINT msg, WPARAM w, LPARAM l) {
    if (msg == WM_BENCH) return static_cast<LRESULT>(w + 1);
    return ::DefWindowProcW(hwnd, msg, w, l);
}

HWND CreatePlainWindow() {
    static const ATOM atom = [] {
        WNDCLASSEXW wc = {};
        wc.cbSize = sizeof(wc);
        wc.lpfnWndProc = &PlainProc;
        wc.hInstance = ::GetModuleHandleW(nullptr);
        wc.lpszClassName = L"VelkanBenchPlain";
        return ::RegisterClassExW(&wc);
    }();
    (void)atom;
    return ::CreateWindowExW(0, L"VelkanBenchPlain", L"", WS_POPUP, 0, 0, 10, 10, HWND_MESSAGE, nullptr,
                             ::GetModuleHandleW(nullptr), nullptr);
}

class BenchWnd : public CWnd {
protected:
    BOOL WndProc(UINT msg, WPARAM w, LPARAM, LRESULT& result) override {
        if (msg != WM_BENCH) return FALSE;
        result = static_cast<LRESULT>(w + 1);
        return TRUE;
    }
};

struct PassFilter : IWndMsgFilter {
    BOOL WndMsgFilterProc(HWND, UINT, WPARAM, LPARAM, LRESULT&) override { return FALSE; }
};

size_t SendMany(HWND hwnd) {
    size_t sum = 0;
    for (int i = 0; i < kMessages; ++i) sum += static_cast<size_t>(::SendMessageW(hwnd, WM_BENCH, i & 7, 0));
    return sum;
}

void CompareRouting(Suite& suite, int filters) {
    HWND plain = CreatePlainWindow();
    BenchWnd wnd;
    wnd.CreateEx(0, L"VlkWnd", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr);
    PassFilter filter[5];
    for (int i = 0; i < filters; ++i) wnd.AddWndMsgFilter(filter[i]);
    suite.Compare("SendMessage, " + std::to_string(filters) + " extra filters",
                  [&] { return SendMany(wnd.GetHwnd()); }, [&] { return SendMany(plain); });
    ::DestroyWindow(plain);
}

void CompareLookup(Suite& suite, int windows) {
    std::vector<std::unique_ptr<CWnd>> objects;
    std::vector<HWND> handles;
    for (int i = 0; i < windows; ++i) {
        auto wnd = std::make_unique<CWnd>();
        HWND hwnd = wnd->CreateEx(0, L"VlkWnd", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr);
        ::SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(wnd.get()));
        handles.push_back(hwnd);
        objects.push_back(std::move(wnd));
    }
    const int lookups = 200000;
    suite.Compare(
        "FromHwnd, " + std::to_string(windows) + " windows",
        [&] {
            size_t hits = 0;
            for (int i = 0; i < lookups; ++i) hits += CWnd::FromHwnd(handles[static_cast<size_t>(i) % handles.size()]) != nullptr;
            return hits;
        },
        [&] {
            size_t hits = 0;
            for (int i = 0; i < lookups; ++i)
                hits += ::GetWindowLongPtrW(handles[static_cast<size_t>(i) % handles.size()], GWLP_USERDATA) != 0;
            return hits;
        });
}

}  // namespace

void RunWndBenchmarks(Suite& suite) {
    CompareRouting(suite, 0);
    CompareRouting(suite, 1);
    CompareRouting(suite, 5);
    CompareLookup(suite, 10);
    CompareLookup(suite, 1000);
    CompareLookup(suite, 10000);
}

}  // namespace Bench
