#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <vector>

#include "resource.h"
#include "velkan/dialog/Dialog.h"
#include "velkan/dialog/TaskDialog.h"
#include "support/ModalDriver.h"
#include "support/Soak.h"

using namespace Velkan;
using namespace Testing;

namespace {

// The owner of the modal dialogs. A modal loop tells its owner when it has
// shown the dialog and run out of messages: then the dialog is painted and
// closed, at once rather than on a timer tick.
class Owner : public CWnd {
public:
    std::function<void(HWND)> close;

protected:
    BOOL WndProc(UINT msg, WPARAM w, LPARAM l, LRESULT&) override {
        if (msg == WM_ENTERIDLE && w == MSGF_DIALOGBOX && ::IsWindowVisible(reinterpret_cast<HWND>(l))) {
            ::UpdateWindow(reinterpret_cast<HWND>(l));
            close(reinterpret_cast<HWND>(l));
        }
        return FALSE;
    }
};

// Lets the click close it, as its callback answers, and counts the
// notifications of its way out.
class ClosingTaskDialog : public CTaskDialog {
public:
    int clicks = 0, destroyed = 0;
    int OnButtonClicked(CTaskDialog&, int) override {
        ++clicks;
        return 0;
    }
    void OnDestroyed(CTaskDialog&) override { ++destroyed; }
};

}  // namespace

// Small headrooms keep the run short (dialogs are slow under Wine). They
// hold what the first rounds keep for good (about 80 GDI objects of fonts
// and theme parts, once a dialog has been shown) and the margin with little
// to spare, so one handle kept a round uses them up long before the last
// round. The modal rounds show and paint the template the modeless ones
// only make, and go first: what is kept for good is then kept before the
// others run.
TEST(Soak, DialogsGiveBackWhatTheyTake) {
    if (SoakedInAnotherRun()) GTEST_SKIP() << "soaked in the run at 96 DPI with visual styles on";
    const int rounds = 60;
    const auto gdi = FillGdiTable(150);
    const auto user = FillUserTable(80);
    Owner owner;
    ASSERT_NE(nullptr, owner.Create());
    owner.close = [](HWND dialog) { ::PostMessageW(::GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0); };
    SoakWindows("modal dialogs", rounds, [&] {
        Watchdog watchdog(3000);
        CDialog dialog(IDD_BASIC);
        return dialog.DoModal(&owner) == IDOK;
    });

    SoakWindows("modeless dialogs", rounds, [] {
        CDialog dialog(IDD_BASIC);
        if (dialog.CreateModeless() == nullptr) return false;
        dialog.SetBold(IDC_FIRST_LABEL);  // a font the dialog owns
        const bool built = dialog.GetBoldFont() != nullptr;
        dialog.Destroy();
        return built;
    });

    ClosingTaskDialog task;
    task.WithWindowTitle(L"Soak").WithContent(L"Closed from inside");
    task.WithCommonButtons(TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON);
    owner.close = [&](HWND) { task.ClickButton(IDOK); };
    SoakWindows("task dialogs", rounds, [&] {
        Watchdog watchdog(3000);
        const int clicks = task.clicks, destroyed = task.destroyed;
        return task.Show(&owner) == IDOK && task.clicks == clicks + 1 &&
               task.destroyed == destroyed + 1;
    });
    owner.Destroy();
}
