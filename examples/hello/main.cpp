// A first Velkan program: the application object, a frame window titled
// from the string resources, and the message loop.
//
//   hello.exe          shows the window until it is closed
//   hello.exe --close  closes it as soon as it is shown (for scripted runs)
#include <cstring>

#include "velkan/Velkan.h"

using namespace Velkan;

class HelloFrame : public CFrameWndEx {
public:
    HelloFrame(LPCWSTR title, bool closeWhenShown) : CFrameWndEx(title), m_closeWhenShown(closeWhenShown) {}

    void OnShowWindow(BOOL show, UINT status) override {
        CFrameWndEx::OnShowWindow(show, status);
        if (show && m_closeWhenShown) PostMessageW(WM_CLOSE);
    }

private:
    bool m_closeWhenShown;
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int showCommand) {
    // Reads VELKAN_IDS_APP_TITLE and VELKAN_IDS_COMPANY from hello.rc.
    CApp app;
    CResourceString title(VELKAN_IDS_APP_TITLE);
    HelloFrame frame(title, std::strcmp(commandLine, "--close") == 0);
    if (frame.Create() == nullptr) return 1;
    frame.ShowWindow(showCommand);
    frame.UpdateWindow();
    // Until the frame is closed: it ends the loop when it is destroyed.
    app.RunLoop(frame);
    return 0;
}
