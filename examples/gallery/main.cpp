// Velkan Gallery: a host application made of the library's classes.
//
//   velkan_gallery.exe                    shows the window until it is closed
//   velkan_gallery.exe --screenshot FILE  shows it, saves it as PNG and exits
//       [--open-menu N]                   ... with drop-down N (0-based) open
//       [--menu-look classic|themed|visual]  menus in one of the three looks
//       [--open-dialog sheet|wizard|open|save|folder|message|task]
//                                         ... with that dialog up
#include <cstdio>
#include <cwchar>
#include <cwctype>

#include "GalleryFrame.h"
#include "resource.h"

using namespace Velkan;

int wmain(int argc, wchar_t** argv) {
    const wchar_t* screenshot = nullptr;
    int openMenu = -1;
    MenuLooks::Look look = MenuLooks::VisualStyle;
    UINT openDialog = 0;
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::wcscmp(argv[i], L"--screenshot") == 0) screenshot = argv[i + 1];
        if (std::wcscmp(argv[i], L"--open-menu") == 0) openMenu = std::wcstol(argv[i + 1], nullptr, 10);
        if (std::wcscmp(argv[i], L"--open-dialog") == 0) {
            const struct {
                const wchar_t* name;
                UINT command;
            } dialogs[] = {{L"sheet", ID_DIALOG_SHEET},   {L"wizard", ID_DIALOG_WIZARD},   {L"open", ID_DIALOG_OPEN},
                           {L"save", ID_DIALOG_SAVE},     {L"folder", ID_DIALOG_FOLDER},   {L"message", ID_DIALOG_MESSAGE},
                           {L"task", ID_DIALOG_TASK}};
            for (const auto& dialog : dialogs) {
                if (std::wcscmp(argv[i + 1], dialog.name) == 0) openDialog = dialog.command;
            }
            if (openDialog == 0) {
                std::printf("unknown dialog: %ls\n", argv[i + 1]);
                return 2;
            }
        }
        if (std::wcscmp(argv[i], L"--menu-look") == 0 && !MenuLooks::Parse(argv[i + 1], look)) {
            std::printf("unknown menu look: %ls (classic, themed or visual)\n", argv[i + 1]);
            return 2;
        }
    }

    CApp app;
    if (app.AlreadyRunning()) {
        CResourceString message(IDS_ALREADY_RUNNING);
        if (screenshot != nullptr) {
            std::printf("%s\n", message.GetUtf8String());
        } else {
            ::MessageBoxW(nullptr, message.GetString(), CResourceString(IDS_TITLE).GetString(), MB_ICONINFORMATION);
        }
        return 0;
    }

    GalleryFrame window;
    if (screenshot != nullptr) window.SetScreenshotPath(screenshot);
    window.SetOpenMenu(openMenu);
    window.SetMenuLook(look);
    window.SetOpenDialog(openDialog);
    CHyperLink::RegisterWindowClass(::GetModuleHandleW(nullptr));
    if (window.Create() == nullptr) {
        std::printf("the gallery window could not be created\n");
        return 1;
    }
    window.ShowWindow(SW_SHOWNORMAL);
    window.UpdateWindow();
    app.RunLoop(window);

    if (screenshot != nullptr) {
        std::printf(window.ScreenshotSaved() ? "screenshot saved: %ls\n" : "screenshot failed: %ls\n", screenshot);
        return window.ScreenshotSaved() ? 0 : 1;
    }
    return 0;
}
