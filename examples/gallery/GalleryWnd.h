#pragma once

#include "velkan/Velkan.h"

// The gallery's main window: remembers where it was, paints a showcase of
// what the library draws, and can save a screenshot of itself and close.
class GalleryWnd : public Velkan::CWnd {
public:
    // With a path, the window saves itself there once shown, then closes.
    void SetScreenshotPath(const wchar_t* path) { m_screenshotPath = path; }
    bool ScreenshotSaved() const { return m_screenshotSaved; }

protected:
    void PreCreate(CREATESTRUCTW& cs) override;
    void OnCreate() override;
    void OnDestroy() override;
    void OnNcDestroy() override;
    void OnPaint(Velkan::CDC& dc) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    Velkan::CString m_title;
    Velkan::CImageList m_icons;
    Velkan::CString m_screenshotPath;
    bool m_screenshotSaved = false;
};
