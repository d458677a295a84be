#include "MenuBench.h"

#include <memory>
#include <string>

#include "velkan/app/App.h"
#include "velkan/app/Wnd.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/gfx/SvgImage.h"
#include "velkan/menu/CoolMenuItemUxThemedRenderer.h"
#include "velkan/menu/CoolMenuMgr.h"
#include "velkan/menu/Menu.h"

using namespace Velkan;

namespace Bench {

namespace {

// Ends the menu as soon as its loop has nothing left to do: by then the
// pop-up has been measured, shown and painted.
class EndMenuWhenIdle : public IWndMsgFilter {
public:
    int menus = 0;
    BOOL WndMsgFilterProc(HWND, UINT msg, WPARAM wParam, LPARAM, LRESULT& result) override {
        if (msg != WM_ENTERIDLE || wParam != MSGF_MENU) return FALSE;
        ++menus;
        ::EndMenu();
        result = 0;
        return TRUE;
    }
};

// A menu owner, with or without the manager, and the 30-item pop-up.
struct MenuOwner {
    explicit MenuOwner(CCoolMenuMgr* manager) {
        if (manager != nullptr) wnd.AddWndMsgFilter(*manager);
        wnd.AddWndMsgFilter(ender);
        wnd.CreateEx(0, L"VlkWnd", L"bench", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr);
        popup.CreatePopupMenu();
        for (UINT i = 0; i < 30; ++i) {
            if (i % 10 == 9) {
                popup.AppendMenuW(MF_SEPARATOR, 0, nullptr);
                continue;
            }
            const std::wstring text = L"&Command " + std::to_wstring(i) + L"\tCtrl+" + std::to_wstring(i % 10);
            popup.AppendMenuW(MF_STRING | (i % 7 == 3 ? MF_CHECKED : 0u) | (i % 11 == 5 ? MF_GRAYED : 0u), 100 + i,
                              text.c_str());
        }
    }
    ~MenuOwner() { wnd.Destroy(); }

    size_t Open(int times) {
        for (int i = 0; i < times; ++i) popup.TrackPopupMenu(TPM_LEFTALIGN | TPM_RETURNCMD, 10, 10, wnd);
        return static_cast<size_t>(ender.menus);
    }

    CWnd wnd;
    EndMenuWhenIdle ender;
    CMenu popup;
};

}  // namespace

void RunMenuBenchmarks(Suite& suite) {
    CApp app;  // GDI+ and the common controls
    const int times = 5;

    MenuOwner system(nullptr);
    CCoolMenuItemRenderer classic;
    CCoolMenuItemThemedRenderer themed;
    CCoolMenuItemUxThemedRenderer visualStyle;
    struct Look {
        const char* name;
        ICoolMenuItemRenderer& renderer;
    };
    const Look looks[] = {{"classic", classic}, {"themed", themed}, {"visual-style", visualStyle}};
    for (const Look& look : looks) {
        CCoolMenuMgr manager(look.renderer);
        MenuOwner owned(&manager);
        suite.Compare(std::string("Open a 30-item pop-up, ") + look.name + " look vs the system's",
                      [&] { return owned.Open(times); }, [&] { return system.Open(times); });
    }

    // A 16-button toolbar's images at 96 and 144 DPI, against adding a strip
    // that is already the right size.
    CBitmapBundle bundle({1010, 1011});
    CSvgImage svg(1012, nullptr, RGB(30, 90, 200));
    for (int dpi : {96, 144}) {
        const int cx = ::MulDiv(16, dpi, 96);
        HBITMAP ready = ::CreateBitmap(16 * cx, cx, 1, 32, nullptr);
        auto baseline = [&] {
            HIMAGELIST list = ::ImageList_Create(cx, cx, ILC_COLOR32 | ILC_MASK, 16, 5);
            const int added = ::ImageList_Add(list, ready, nullptr);
            ::ImageList_Destroy(list);
            return static_cast<size_t>(added + 1);
        };
        const std::string at = " at " + std::to_string(dpi) + " DPI vs a ready strip";
        suite.Compare("Toolbar images from a bundle" + at,
                      [&] {
                          CImageList list;
                          list.Create(bundle, dpi, 16, 5);
                          return static_cast<size_t>(list.GetImageCount());
                      },
                      baseline);
        suite.Compare("Toolbar images from an SVG strip" + at,
                      [&] {
                          CImageList list;
                          list.Create(svg, dpi, 16, 5);
                          return static_cast<size_t>(list.GetImageCount());
                      },
                      baseline);
        ::DeleteObject(ready);
    }
}

}  // namespace Bench
