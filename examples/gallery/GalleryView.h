#pragma once

#include "velkan/Velkan.h"

// The upper pane of the gallery: a showcase of what the library draws at
// the window's DPI (text, swatches, SVG icons normal and greyed).
class GalleryView : public Velkan::CWnd {
public:
    HWND Create(Velkan::CWnd* parent) override;

protected:
    void OnCreate() override;
    void OnPaint(Velkan::CDC& dc) override;
    BOOL OnEraseBkgnd(Velkan::CDC& dc) override { return TRUE; }

private:
    Velkan::CImageList m_icons;
};

// The palette's view: the swatches, one per row, with their names.
class SwatchView : public Velkan::CWnd {
public:
    HWND Create(Velkan::CWnd* parent) override;

protected:
    void OnPaint(Velkan::CDC& dc) override;
};
