#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

#include "FrameTestSupport.h"
#include "resource.h"
#include "velkan/frame/Rebar.h"
#include "velkan/frame/Toolbar.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/SvgImage.h"

using namespace Velkan;
using Testing::Dib;
using Testing::Drawn;
using Testing::Spy;

namespace {

// A hidden top-level window that counts the notifications its own
// OnNotify sees, that is, those no sender took through reflection.
class NotifySink : public CWnd {
public:
    using CWnd::OnNotify;
    BOOL OnNotify(UINT, LPARAM nmhdr, LRESULT&) override {
        if (reinterpret_cast<const NMHDR*>(nmhdr)->code == static_cast<UINT>(TTN_GETDISPINFOW)) ++unreflected;
        return FALSE;
    }
    int unreflected = 0;
};

TBBUTTON buttons[] = {{0, ID_HELP_AND_TIP, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
                      {1, ID_TIP_ONLY, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
                      {2, ID_TWO_LINE_FEEDS, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0}};
constexpr int kButtonCount = 3;

CSize Scaled(int cx, int cy, int dpi) { return CSize(::MulDiv(cx, dpi, 96), ::MulDiv(cy, dpi, 96)); }

REBARBANDINFOW BandInfo(const CRebar& rebar, int index, wchar_t* text = nullptr, UINT textSize = 0) {
    REBARBANDINFOW band = {};
    band.cbSize = sizeof(band);
    band.fMask = RBBIM_STYLE | RBBIM_CHILD | RBBIM_CHILDSIZE | (text != nullptr ? RBBIM_TEXT : 0);
    band.lpText = text;
    band.cch = textSize;
    EXPECT_TRUE(rebar.GetBandInfo(index, band)) << index;
    return band;
}

HWND LastChild(HWND parent) { return ::GetWindow(::GetWindow(parent, GW_CHILD), GW_HWNDLAST); }

constexpr UINT kBandMask = RBBIM_STYLE | RBBIM_CHILD | RBBIM_CHILDSIZE;

}  // namespace

TEST(Toolbar, CreateSetsUpTheControlWithItsImagesAndButtons) {
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    if (const char* dpi = std::getenv("VELKAN_TEST_DPI")) {
        ASSERT_EQ(std::atoi(dpi), parent.GetDpi());
    }
    Spy spy({TB_BUTTONSTRUCTSIZE, TB_SETEXTENDEDSTYLE, TB_SETIMAGELIST, TB_ADDBUTTONSW});
    CBitmapBundle bundle({IDB_STRIP16, IDB_STRIP32});
    CToolbar toolbar;
    ASSERT_NE(nullptr, toolbar.Create(&parent, bundle, buttons, kButtonCount, 16));

    const Spy::Created created = spy.CreationOf(toolbar);
    EXPECT_EQ(L"ToolbarWindow32", created.className);
    EXPECT_EQ(0x50000944u, created.style);
    EXPECT_EQ(parent.GetHwnd(), ::GetParent(toolbar));
    // In this order: the structure size and extended styles, the image list,
    // then the buttons.
    const std::vector<Spy::Sent> sent = spy.SentTo(toolbar);
    ASSERT_EQ(4u, sent.size());
    EXPECT_EQ(static_cast<UINT>(TB_BUTTONSTRUCTSIZE), sent[0].msg);
    EXPECT_EQ(sizeof(TBBUTTON), sent[0].wParam);
    EXPECT_EQ(static_cast<UINT>(TB_SETEXTENDEDSTYLE), sent[1].msg);
    EXPECT_EQ(static_cast<LPARAM>(TBSTYLE_EX_DRAWDDARROWS), sent[1].lParam);
    EXPECT_EQ(static_cast<UINT>(TB_SETIMAGELIST), sent[2].msg);
    EXPECT_EQ(reinterpret_cast<LPARAM>(toolbar.GetOwnImageList().GetHimageList()), sent[2].lParam);
    EXPECT_EQ(static_cast<UINT>(TB_ADDBUTTONSW), sent[3].msg);
    EXPECT_EQ(static_cast<WPARAM>(kButtonCount), sent[3].wParam);

    EXPECT_EQ(kButtonCount, toolbar.GetButtonCount());
    EXPECT_NE(0u, toolbar.SendMessageW(TB_GETEXTENDEDSTYLE) & TBSTYLE_EX_DRAWDDARROWS);
}

TEST(Toolbar, ImageListsAreBuiltAtTheParentDpiFromEverySource) {
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    const int dpi = parent.GetDpi();
    const HINSTANCE instance = ::GetModuleHandleW(nullptr);
    struct Built { const char* source; CToolbar& toolbar; int count; CSize icon; };

    CToolbar fromBundle, fromSvg, fromBitmap, fromPng;
    CBitmapBundle bundle({IDB_STRIP16, IDB_STRIP32});
    ASSERT_NE(nullptr, fromBundle.Create(&parent, bundle, buttons, kButtonCount, 16));
    // Five cells of 16 x 12.
    CSvgImage svg("<svg xmlns='http://www.w3.org/2000/svg' width='80' height='12'>"
                  "<rect x='0' y='0' width='80' height='12' fill='#204080'/></svg>",
                  RGB(0, 0, 0));
    ASSERT_NE(nullptr, fromSvg.Create(&parent, svg, buttons, kButtonCount, 16, instance));
    ASSERT_NE(nullptr, fromBitmap.Create(&parent, IDB_STRIP16, buttons, kButtonCount, instance, 16));
    ASSERT_NE(nullptr, fromPng.Create(&parent, IDB_STRIP20_PNG, L"PNG", buttons, kButtonCount, instance, 20));

    for (const Built& b : {Built{"bundle", fromBundle, 4, Scaled(16, 16, dpi)},
                           Built{"SVG", fromSvg, 5, Scaled(16, 12, dpi)},
                           Built{"bitmap", fromBitmap, 4, Scaled(16, 16, dpi)},
                           Built{"PNG", fromPng, 3, Scaled(20, 20, dpi)}}) {
        const CImageList& own = b.toolbar.GetOwnImageList();
        EXPECT_EQ(own.GetHimageList(), b.toolbar.GetImageList()) << b.source;
        EXPECT_EQ(b.count, own.GetImageCount()) << b.source;
        EXPECT_EQ(b.icon, own.GetIconSize()) << b.source;
    }
}

TEST(Toolbar, AddMaskedButtonImageNeedsAListAndFitsImagesToTheIconSize) {
    const COLORREF magenta = RGB(255, 0, 255);
    Dib opaque(16, 16, [](int, int) { return 0xFF3060C0u; });
    CToolbar notCreated;
    EXPECT_EQ(-1, notCreated.AddMaskedButtonImage(opaque.bitmap, magenta));

    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    CBitmapBundle bundle({IDB_STRIP16});
    CToolbar toolbar;
    ASSERT_NE(nullptr, toolbar.Create(&parent, bundle, buttons, kButtonCount, 16));
    const HIMAGELIST list = toolbar.GetImageList();
    const CSize icon = toolbar.GetOwnImageList().GetIconSize();
    EXPECT_EQ(-1, toolbar.AddMaskedButtonImage(static_cast<HBITMAP>(nullptr), magenta));
    EXPECT_EQ(4, ::ImageList_GetImageCount(list));

    // Already icon-sized: added as it is, translucent pixels included.
    Dib exact(icon.cx, icon.cy, [](int x, int y) {
        return (static_cast<uint32_t>(0x30 + 8 * x) << 24) | ((x + y) % 2 ? 0xC02060u : 0x2070C0u);
    });
    EXPECT_EQ(4, toolbar.AddMaskedButtonImage(exact.bitmap, magenta));
    HIMAGELIST asIs = ::ImageList_Create(icon.cx, icon.cy, ILC_COLOR32 | ILC_MASK, 1, 0);
    ASSERT_EQ(0, ::ImageList_Add(asIs, exact.bitmap, nullptr));
    EXPECT_EQ(Drawn(asIs, 0), Drawn(list, 4));
    ::ImageList_Destroy(asIs);

    // Three icons wide and half as high, or half as large: one image each,
    // stretched over the whole cell.
    Dib wide(icon.cx * 3, icon.cy / 2, [](int, int) { return 0xFF10A040u; });
    EXPECT_EQ(5, toolbar.AddMaskedButtonImage(wide.bitmap, magenta));
    Dib small(icon.cx / 2, icon.cy / 2, [](int, int) { return 0xFFA04010u; });
    EXPECT_EQ(6, toolbar.AddMaskedButtonImage(small.bitmap, magenta));
    EXPECT_EQ(7, ::ImageList_GetImageCount(list));
    EXPECT_EQ(icon, toolbar.GetOwnImageList().GetIconSize());
    for (uint32_t pixel : Drawn(list, 5)) ASSERT_EQ(0x10A040u, pixel);
    for (uint32_t pixel : Drawn(list, 6)) ASSERT_EQ(0xA04010u, pixel);
}

TEST(Toolbar, TooltipIsTheHelpStringAfterItsFirstLineFeed) {
    EXPECT_EQ(L"Tip", CToolbar::GetTooltipStringFromHelpString(L"Help\nTip"));
    EXPECT_EQ(L"Tip", CToolbar::GetTooltipStringFromHelpString(L"\nTip"));
    EXPECT_EQ(L"Tip\nmore", CToolbar::GetTooltipStringFromHelpString(L"Help\nTip\nmore"));
    EXPECT_EQ(L"Just a tip", CToolbar::GetTooltipStringFromHelpString(L"Just a tip"));

    CToolbar toolbar;
    EXPECT_EQ(L"Open", toolbar.GetTooltipString(ID_HELP_AND_TIP));
    EXPECT_EQ(L"Save", toolbar.GetTooltipString(ID_TIP_ONLY));
    EXPECT_EQ(L"Print\nnow", toolbar.GetTooltipString(ID_TWO_LINE_FEEDS));
    const CString empty = toolbar.GetTooltipString(ID_EMPTY_TIP);
    EXPECT_FALSE(empty.IsNull());
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_TRUE(toolbar.GetTooltipString(ID_NO_STRING).IsNull());
}

TEST(Toolbar, AnnouncedTooltipGetsItsTextThroughReflection) {
    NotifySink parent;
    ASSERT_NE(nullptr, parent.Create());
    CBitmapBundle bundle({IDB_STRIP16});
    CToolbar toolbar;
    ASSERT_NE(nullptr, toolbar.Create(&parent, bundle, buttons, kButtonCount, 16));
    // Announced the way the control announces its own.
    HWND tooltip = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                                     parent, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(nullptr, tooltip);

    // The text buffer filled with '#', then asked for through the parent.
    auto ask = [&](UINT id, NMTTDISPINFOW& info) {
        info = NMTTDISPINFOW{};
        info.hdr = NMHDR{tooltip, id, static_cast<UINT>(TTN_GETDISPINFOW)};
        std::wmemset(info.szText, L'#', 80);
        parent.unreflected = 0;
        ::SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&info));
    };
    NMTTDISPINFOW info;
    ask(ID_HELP_AND_TIP, info);
    EXPECT_EQ(1, parent.unreflected) << "reflected before the tooltip was announced";
    EXPECT_EQ(L'#', info.szText[0]);

    NMTOOLTIPSCREATED created = {};
    created.hdr = NMHDR{toolbar, static_cast<UINT_PTR>(toolbar.GetDlgCtrlID()), static_cast<UINT>(NM_TOOLTIPSCREATED)};
    created.hwndToolTips = tooltip;
    ::SendMessageW(parent, WM_NOTIFY, created.hdr.idFrom, reinterpret_cast<LPARAM>(&created));
    EXPECT_EQ(tooltip, toolbar.GetTooltipWnd().GetHwnd());
    EXPECT_EQ(&toolbar.GetTooltipWnd(), CWnd::FindByHandle(tooltip));
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(&CWnd::StaticWndProc), ::GetWindowLongPtrW(tooltip, GWLP_WNDPROC));

    // Found texts are taken (the reflection answers TRUE and the parent
    // never sees them); missing and empty ones go on to the parent.
    struct Case { UINT id; const wchar_t* text; };
    for (const Case& c : {Case{ID_HELP_AND_TIP, L"Open"}, Case{ID_TIP_ONLY, L"Save"},
                          Case{ID_TWO_LINE_FEEDS, L"Print\nnow"}, Case{ID_EMPTY_TIP, nullptr},
                          Case{ID_NO_STRING, nullptr}}) {
        ask(c.id, info);
        if (c.text != nullptr) {
            EXPECT_EQ(0, parent.unreflected) << c.id;
            EXPECT_STREQ(c.text, info.szText) << c.id;
        } else {
            EXPECT_EQ(1, parent.unreflected) << c.id;
            EXPECT_EQ(L'#', info.szText[0]) << c.id;
        }
    }

    // A long text is cut to the 79 characters that fit with the terminator.
    ask(ID_LONG_TIP, info);
    EXPECT_EQ(0, parent.unreflected);
    const std::wstring tip = toolbar.GetTooltipString(ID_LONG_TIP).GetString();
    ASSERT_GT(tip.size(), 79u);
    EXPECT_EQ(tip.substr(0, 79), std::wstring(info.szText, 79));
    EXPECT_EQ(L'\0', info.szText[79]);
}

TEST(Rebar, CreateMakesAnEmptyBarWithDefaultBarInfo) {
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    Spy spy({RB_SETBARINFO});
    CRebar rebar;
    ASSERT_NE(nullptr, rebar.Create(&parent));

    const Spy::Created created = spy.CreationOf(rebar);
    EXPECT_EQ(L"ReBarWindow32", created.className);
    EXPECT_EQ(0x56800E41u, created.style);
    EXPECT_EQ(0x10080u, created.exStyle);
    const std::vector<Spy::Sent> sent = spy.SentTo(rebar);
    ASSERT_EQ(1u, sent.size());
    EXPECT_EQ(sizeof(REBARINFO), sent[0].barInfoSize);

    EXPECT_EQ(0, rebar.GetBandCount());
    EXPECT_EQ(0, rebar.GetMinWidth());
}

TEST(Rebar, InsertMakesAChildBandAndSendsTheChildToTheBottom) {
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    CRebar rebar;
    ASSERT_NE(nullptr, rebar.Create(&parent));
    // The rebar takes each band's child as its own and puts it on top.
    CWnd first, second;
    ASSERT_NE(nullptr, first.CreateEx(0, L"Static", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 60, 20, &parent, nullptr));
    ASSERT_NE(nullptr, second.CreateEx(0, L"Static", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 90, 24, &parent, nullptr));
    const CSize firstSize = first.GetWindowSize(), secondSize = second.GetWindowSize();
    Spy spy({RB_INSERTBANDW});

    ASSERT_TRUE(rebar.Insert(first, L"First", FALSE, FALSE));
    EXPECT_EQ(first.GetHwnd(), LastChild(rebar));
    ASSERT_TRUE(rebar.Insert(second, nullptr, TRUE, TRUE, 0));
    EXPECT_EQ(second.GetHwnd(), LastChild(rebar));

    const std::vector<Spy::Sent> sent = spy.SentTo(rebar);
    ASSERT_EQ(2u, sent.size());
    EXPECT_EQ(kBandMask | RBBIM_TEXT, sent[0].band.fMask);
    EXPECT_EQ(static_cast<WPARAM>(-1), sent[0].wParam);
    EXPECT_EQ(kBandMask, sent[1].band.fMask);
    EXPECT_EQ(0u, sent[1].wParam);

    wchar_t text[32] = {};
    const REBARBANDINFOW withText = BandInfo(rebar, 1, text, 32);
    EXPECT_EQ(first.GetHwnd(), withText.hwndChild);
    EXPECT_EQ(static_cast<UINT>(RBBS_CHILDEDGE), withText.fStyle);
    EXPECT_EQ(CSize(firstSize.cx, firstSize.cy), CSize(withText.cxMinChild, withText.cyMinChild));
    EXPECT_STREQ(L"First", text);
    const REBARBANDINFOW onNewRow = BandInfo(rebar, 0);
    EXPECT_EQ(second.GetHwnd(), onNewRow.hwndChild);
    EXPECT_EQ(static_cast<UINT>(RBBS_CHILDEDGE | RBBS_NOGRIPPER | RBBS_BREAK), onNewRow.fStyle);
    EXPECT_EQ(CSize(secondSize.cx, secondSize.cy), CSize(onNewRow.cxMinChild, onNewRow.cyMinChild));
}

TEST(Rebar, InsertToolbarSizesTheBandToTheToolbarAndIndentsItWithoutGripper) {
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    CRebar rebar;
    ASSERT_NE(nullptr, rebar.Create(&parent));
    CBitmapBundle bundle({IDB_STRIP16});
    CToolbar gripped, indented;
    ASSERT_NE(nullptr, gripped.Create(&rebar, bundle, buttons, 3, 16));
    ASSERT_NE(nullptr, indented.Create(&rebar, bundle, buttons, 2, 16));
    gripped.SetWindowStyle(gripped.GetWindowStyle() & ~CCS_NORESIZE);
    const DWORD grippedStyle = gripped.GetWindowStyle(), indentedStyle = indented.GetWindowStyle();
    const CSize grippedSize = gripped.GetMaxSize(), indentedSize = indented.GetMaxSize();
    ASSERT_NE(grippedSize, indentedSize);
    Spy spy({RB_INSERTBANDW, TB_SETINDENT});

    ASSERT_TRUE(rebar.InsertToolbar(gripped, FALSE, FALSE));
    EXPECT_EQ(grippedStyle | CCS_NORESIZE, gripped.GetWindowStyle());
    EXPECT_TRUE(spy.SentTo(gripped).empty());
    ASSERT_TRUE(rebar.InsertToolbar(indented, TRUE, TRUE, 0));
    EXPECT_EQ(indentedStyle, indented.GetWindowStyle());
    // Wine's toolbar does not show the indent in its button rectangles.
    const std::vector<Spy::Sent> indents = spy.SentTo(indented);
    ASSERT_EQ(1u, indents.size());
    EXPECT_EQ(static_cast<UINT>(TB_SETINDENT), indents[0].msg);
    EXPECT_EQ(4u, indents[0].wParam);
    // Left where the rebar put it: not sent to the bottom.
    EXPECT_NE(indented.GetHwnd(), LastChild(rebar));

    const std::vector<Spy::Sent> sent = spy.SentTo(rebar);
    ASSERT_EQ(2u, sent.size());
    EXPECT_EQ(kBandMask, sent[0].band.fMask);
    EXPECT_EQ(kBandMask, sent[1].band.fMask);
    EXPECT_EQ(0u, sent[1].wParam);
    const REBARBANDINFOW first = BandInfo(rebar, 0), second = BandInfo(rebar, 1);
    EXPECT_EQ(indented.GetHwnd(), first.hwndChild);
    EXPECT_EQ(static_cast<UINT>(RBBS_CHILDEDGE | RBBS_NOGRIPPER | RBBS_BREAK), first.fStyle);
    EXPECT_EQ(indentedSize, CSize(first.cxMinChild, first.cyMinChild));
    EXPECT_EQ(gripped.GetHwnd(), second.hwndChild);
    EXPECT_EQ(static_cast<UINT>(RBBS_CHILDEDGE), second.fStyle);
    EXPECT_EQ(grippedSize, CSize(second.cxMinChild, second.cyMinChild));
}

TEST(Rebar, MinWidthIsTheWidestBandWithItsBorders) {
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    CRebar rebar;
    ASSERT_NE(nullptr, rebar.Create(&parent));
    CWnd narrow, widest, middle;
    for (auto [child, cx] : {std::pair<CWnd*, int>{&narrow, 40}, {&widest, 150}, {&middle, 70}})
        ASSERT_NE(nullptr, child->CreateEx(0, L"Static", nullptr, WS_CHILD, 0, 0, cx, 20, &rebar, nullptr));
    ASSERT_TRUE(rebar.Insert(narrow, nullptr, FALSE, TRUE));
    ASSERT_TRUE(rebar.Insert(widest, L"Widest", FALSE, FALSE));
    ASSERT_TRUE(rebar.Insert(middle, L"Middle", TRUE, FALSE));

    // From what the control reports; margins it does not report are zero.
    MARGINS margins = {0, 0, 0, 0};
    rebar.SendMessageW(RB_GETBANDMARGINS, 0, reinterpret_cast<LPARAM>(&margins));
    int expected = 0;
    for (int i = 0; i < 3; ++i) {
        RECT borders = {};
        rebar.SendMessageW(RB_GETBANDBORDERS, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&borders));
        const int width = margins.cxLeftWidth + margins.cxRightWidth + static_cast<int>(BandInfo(rebar, i).cxMinChild) +
                          2 * std::abs(static_cast<int>(borders.right - borders.left));
        expected = width > expected ? width : expected;
    }
    EXPECT_GT(expected, 150);
    EXPECT_EQ(expected, rebar.GetMinWidth());
}
