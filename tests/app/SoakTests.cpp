#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/Brush.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/Font.h"
#include "support/Soak.h"

using namespace Velkan;
using namespace Testing;

namespace {

// Paints with a brush and a font of its own, made for every paint as
// application windows usually do; a paint counts only when all of it
// worked.
class PaintingWnd : public CWnd {
public:
    int paints = 0;

protected:
    void PreCreate(CREATESTRUCTW& cs) override {
        cs.x = cs.y = 10;
        cs.cx = 160;
        cs.cy = 90;
    }
    void OnPaint(CDC& dc) override {
        CBrush brush;
        CFont font;
        if (brush.CreateSolidBrush(RGB(40, 90, 160)) == nullptr || font.CreatePointFont(90, L"Tahoma") == nullptr)
            return;
        HGDIOBJ old = dc.SelectObject(font);
        const bool drawn = dc.FillRect(GetClientRect(), brush) && dc.TextOutW(2, 2, L"soak", 4);
        dc.SelectObject(old);
        paints += drawn ? 1 : 0;
    }
};

}  // namespace

// Small headrooms keep the run short (windows are slow under Wine). They
// hold what the first rounds keep for good (about 30 GDI objects of fonts
// and theme parts) and the margin with little to spare, so one handle
// kept a round uses them up long before the last round.
TEST(Soak, WindowsGiveBackWhatTheyTake) {
    const int rounds = 100;
    const auto gdi = FillGdiTable(120);
    const auto user = FillUserTable(80);
    SoakWindows("windows", rounds, [] {
        PaintingWnd top, child;
        if (top.Create() == nullptr || child.Create(&top) == nullptr) return false;
        top.ShowWindow(SW_SHOWNOACTIVATE);
        top.UpdateWindow();
        const bool painted = top.paints > 0 && child.paints > 0;
        top.Destroy();
        return painted && !child.IsWindow();
    });
}
