// Velkan Gallery: a host application made of the library's classes.
//
//   velkan_gallery.exe                    shows the window until it is closed
//   velkan_gallery.exe --screenshot FILE  shows it, saves it as PNG and exits
//   velkan_gallery.exe --tour DIR         walks every page, menu look and
//       [--brief]                         dialog, saves each as DIR\NN-*.png,
//                                         and exits (brief: one of each kind)
//   [--menu-look classic|themed|visual]   menus in one of the three looks
#include <cstdio>
#include <cwchar>

#include "GalleryFrame.h"
#include "resource.h"

using namespace Velkan;

namespace {

// A second instance hands over to the first: its window comes to the front.
void ActivateFirstInstance() {
    HWND first = ::FindWindowW(L"Velkan Gallery", nullptr);
    if (first == nullptr) return;
    if (::IsIconic(first)) ::ShowWindow(first, SW_RESTORE);
    ::SetForegroundWindow(::GetLastActivePopup(first));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const wchar_t* screenshot = nullptr;
    const wchar_t* tour = nullptr;
    bool brief = false;
    MenuLooks::Look look = MenuLooks::VisualStyle;
    for (int i = 1; i < argc; ++i) {
        const bool hasValue = i + 1 < argc;
        if (std::wcscmp(argv[i], L"--brief") == 0) brief = true;
        if (!hasValue) continue;
        if (std::wcscmp(argv[i], L"--screenshot") == 0) screenshot = argv[i + 1];
        if (std::wcscmp(argv[i], L"--tour") == 0) tour = argv[i + 1];
        if (std::wcscmp(argv[i], L"--menu-look") == 0 && !MenuLooks::Parse(argv[i + 1], look)) {
            std::printf("unknown menu look: %ls (classic, themed or visual)\n", argv[i + 1]);
            return 2;
        }
    }
    const bool unattended = screenshot != nullptr || tour != nullptr;

    CApp app;
    if (app.AlreadyRunning() && !unattended) {
        ActivateFirstInstance();
        return 0;
    }

    GalleryFrame window(tour != nullptr);
    if (screenshot != nullptr) window.SetScreenshotPath(screenshot);
    if (tour != nullptr) {
        ::CreateDirectoryW(tour, nullptr);
        window.SetTour(tour, brief);
    }
    window.SetMenuLook(look);
    CHyperLink::RegisterWindowClass(::GetModuleHandleW(nullptr));
    if (window.Create() == nullptr) {
        std::printf("the gallery window could not be created\n");
        return 1;
    }
    window.ShowWindow(SW_SHOWNORMAL);
    window.UpdateWindow();
    app.RunLoop(window);

    if (!unattended) return 0;
    if (tour != nullptr) std::printf("tour: %d screenshot(s) saved in %ls\n", window.GetShotsSaved(), tour);
    if (screenshot != nullptr && !window.ShotFailed()) std::printf("screenshot saved: %ls\n", screenshot);
    return window.ShotFailed() || window.GetShotsSaved() == 0 ? 1 : 0;
}
