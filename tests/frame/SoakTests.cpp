#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <vector>

#include "resource.h"
#include "velkan/frame/Rebar.h"
#include "velkan/frame/Toolbar.h"
#include "velkan/gfx/BitmapBundle.h"
#include "support/Soak.h"

using namespace Velkan;
using namespace Testing;

namespace {

TBBUTTON buttons[] = {{0, ID_HELP_AND_TIP, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
                      {1, ID_TIP_ONLY, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
                      {2, ID_TWO_LINE_FEEDS, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0}};

}  // namespace

// Small headrooms keep the run short (bars are slow to make under Wine).
// They hold what the first rounds keep for good (about 20 GDI objects) and
// the margin with little to spare, so one handle kept a round uses them up
// long before the last round.
TEST(Soak, ToolbarsAndRebarsGiveBackWhatTheyTake) {
    if (SoakedInAnotherRun()) GTEST_SKIP() << "soaked in the run at 96 DPI with visual styles on";
    const int rounds = 120;
    const auto gdi = FillGdiTable(120);
    const auto user = FillUserTable(80);
    CWnd parent;
    ASSERT_NE(nullptr, parent.Create());
    SoakWindows("toolbars in a rebar", rounds, [&] {
        // The artwork is loaded anew each round, from a bitmap bundle and
        // from a PNG that GDI+ decodes.
        CBitmapBundle bundle({IDB_STRIP16, IDB_STRIP32});
        CRebar rebar;
        CToolbar fromBitmaps, fromPng;
        if (rebar.Create(&parent) == nullptr || fromBitmaps.Create(&rebar, bundle, buttons, 3, 16) == nullptr ||
            fromPng.Create(&rebar, IDB_STRIP20_PNG, L"PNG", buttons, 2, nullptr, 20) == nullptr)
            return false;
        const bool built = rebar.InsertToolbar(fromBitmaps, FALSE, FALSE) && rebar.InsertToolbar(fromPng, TRUE, TRUE) &&
                           fromBitmaps.GetOwnImageList().GetImageCount() == 4 &&
                           fromPng.GetOwnImageList().GetImageCount() == 3;
        rebar.Destroy();
        return built && !fromBitmaps.IsWindow() && !fromPng.IsWindow();
    });
    parent.Destroy();
}
