#include "FrameBench.h"

#include <commctrl.h>

#include "velkan/app/App.h"
#include "velkan/frame/FrameWndEx.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/SvgImage.h"

using namespace Velkan;

namespace Bench {

namespace {

const wchar_t kSection[] = L"Bench Frame";

TBBUTTON Button(int image, int command) {
    TBBUTTON button = {};
    button.iBitmap = image;
    button.idCommand = command;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON;
    return button;
}

// The frame under test: a rebar of two toolbars, a status bar with three
// parts in right-justify mode, and a view.
class BenchFrame : public CFrameWndEx {
public:
    BenchFrame(CSvgImage& svg, CBitmapBundle& bundle)
        : CFrameWndEx(L"VelkanBenchFrame", 0, 0, kSection), m_svg(svg), m_bundle(bundle) {}

    void OnCreate() override {
        CFrameWndEx::OnCreate();
        TBBUTTON buttons[16];
        for (int i = 0; i < 16; ++i) buttons[i] = Button(i, 100 + i);
        m_first.Create(this, m_svg, buttons, 16, 16);
        AddToolbar(m_first, FALSE);
        m_second.Create(this, m_bundle, buttons, 8, 16);
        AddToolbar(m_second, FALSE);
        const int edges[] = {200, 300, 400};
        GetStatusBar().SetParts(3, edges);
        GetStatusBar().SetRightJustifyMode(TRUE, 200);
        m_view.CreateEx(0, L"VlkWnd", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, this, nullptr);
        SetView(&m_view);
    }

private:
    CSvgImage& m_svg;
    CBitmapBundle& m_bundle;
    CToolbar m_first, m_second;
    CWnd m_view;
};

// The same window made with plain Win32.
struct PlainFrame {
    HWND frame = nullptr, rebar = nullptr, status = nullptr, view = nullptr;
    HWND toolbars[2] = {nullptr, nullptr};
    HIMAGELIST lists[2] = {nullptr, nullptr};

    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<PlainFrame*>(::GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        if (msg == WM_SIZE && self != nullptr && self->view != nullptr) {
            self->Layout();
            return 0;
        }
        return ::DefWindowProcW(hwnd, msg, wParam, lParam);
    }

    void Layout() {
        RECT client;
        ::GetClientRect(frame, &client);
        ::SendMessageW(rebar, WM_SIZE, 0, 0);
        ::SendMessageW(status, WM_SIZE, 0, 0);
        // Right-justified parts, by hand.
        const int right = client.right - ::GetSystemMetrics(SM_CXHTHUMB);
        const int edges[] = {right - 200, right - 100, right};
        ::SendMessageW(status, SB_SETPARTS, 3, reinterpret_cast<LPARAM>(edges));
        RECT bar;
        ::GetWindowRect(status, &bar);
        const int top = static_cast<int>(::SendMessageW(rebar, RB_GETBARHEIGHT, 0, 0));
        ::SetWindowPos(view, nullptr, 0, top, client.right, client.bottom - top - (bar.bottom - bar.top),
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void Create(HBITMAP svgStrip, HBITMAP bundleStrip, int cx) {
        HINSTANCE instance = ::GetModuleHandleW(nullptr);
        WNDCLASSEXW wc = {};
        wc.cbSize = sizeof(wc);
        wc.lpfnWndProc = &PlainFrame::Proc;
        wc.hInstance = instance;
        wc.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        wc.lpszClassName = L"VelkanBenchPlainFrame";
        ::RegisterClassExW(&wc);
        frame = ::CreateWindowExW(0, wc.lpszClassName, L"plain", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, nullptr);
        rebar = ::CreateWindowExW(0x10080, REBARCLASSNAMEW, nullptr, 0x56800E41, 0, 0, 0, 0, frame, nullptr, instance,
                                  nullptr);
        REBARINFO info = {};
        info.cbSize = sizeof(info);
        ::SendMessageW(rebar, RB_SETBARINFO, 0, reinterpret_cast<LPARAM>(&info));
        TBBUTTON buttons[16];
        for (int i = 0; i < 16; ++i) buttons[i] = Button(i, 100 + i);
        const HBITMAP strips[2] = {svgStrip, bundleStrip};
        for (int t = 0; t < 2; ++t) {
            toolbars[t] = ::CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, 0x50000944, 0, 0, 0, 0, frame, nullptr,
                                            instance, nullptr);
            ::SendMessageW(toolbars[t], TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
            lists[t] = ::ImageList_Create(cx, cx, ILC_COLOR32 | ILC_MASK, 16, 5);
            ::ImageList_Add(lists[t], strips[t], nullptr);
            ::SendMessageW(toolbars[t], TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(lists[t]));
            ::SendMessageW(toolbars[t], TB_ADDBUTTONSW, t == 0 ? 16 : 8, reinterpret_cast<LPARAM>(buttons));
            SIZE size = {};
            ::SendMessageW(toolbars[t], TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
            REBARBANDINFOW band = {};
            band.cbSize = sizeof(band);
            band.fMask = RBBIM_STYLE | RBBIM_CHILD | RBBIM_CHILDSIZE;
            band.fStyle = RBBS_CHILDEDGE;
            band.hwndChild = toolbars[t];
            band.cxMinChild = static_cast<UINT>(size.cx);
            band.cyMinChild = static_cast<UINT>(size.cy);
            ::SendMessageW(rebar, RB_INSERTBANDW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&band));
        }
        status = ::CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, 0x54000103, 0, 0, 0, 0, frame, nullptr, instance,
                                   nullptr);
        view = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, frame, nullptr, instance,
                                 nullptr);
        ::SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        Layout();
    }

    void Destroy() {
        ::DestroyWindow(frame);
        for (HIMAGELIST list : lists) ::ImageList_Destroy(list);
    }
};

void DropQuit() {
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
}

}  // namespace

void RunFrameBenchmarks(Suite& suite) {
    CApp app;
    CSvgImage svg(1012, nullptr, RGB(30, 90, 200));
    CBitmapBundle bundle({1010, 1011});
    // The plain window gets strips already made for the screen's DPI.
    const int cx = ::MulDiv(16, CWnd::GetDesktopWindow()->GetDpi(), 96);
    CBitmap svgStrip = svg.Render(static_cast<float>(cx) / 16.0f);
    CBitmap bundleStrip = svgStrip;

    suite.Compare(
        "Frame start-up with two toolbars, status bar and view vs plain Win32",
        [&] {
            BenchFrame frame(svg, bundle);
            frame.Create();
            frame.ShowWindow(SW_SHOWNORMAL);
            frame.UpdateWindow();
            frame.Destroy();
            DropQuit();
            return static_cast<size_t>(frame.IsRebarVisible());
        },
        [&] {
            PlainFrame plain;
            plain.Create(svgStrip.GetHbitmap(), bundleStrip.GetHbitmap(), cx);
            ::ShowWindow(plain.frame, SW_SHOWNORMAL);
            ::UpdateWindow(plain.frame);
            plain.Destroy();
            return static_cast<size_t>(plain.view != nullptr);
        });

    BenchFrame frame(svg, bundle);
    frame.Create();
    frame.ShowWindow(SW_SHOWNORMAL);
    PlainFrame plain;
    plain.Create(svgStrip.GetHbitmap(), bundleStrip.GetHbitmap(), cx);
    ::ShowWindow(plain.frame, SW_SHOWNORMAL);
    auto resize = [](HWND hwnd) {
        size_t sum = 0;
        for (int i = 0; i < 20; ++i) {
            ::SetWindowPos(hwnd, nullptr, 0, 0, 600 + (i % 2) * 120, 400 + (i % 2) * 80,
                           SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            sum += static_cast<size_t>(i);
        }
        return sum;
    };
    suite.Compare("Frame resize pass, right-justified status bar vs by hand", [&] { return resize(frame); },
                  [&] { return resize(plain.frame); });
    frame.Destroy();
    DropQuit();
    plain.Destroy();
    theAppPtr->RegDeleteSection(kSection);
}

}  // namespace Bench
