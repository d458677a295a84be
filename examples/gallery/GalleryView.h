#pragma once

#include "GalleryPage.h"

// Bitmaps, bundles, icons and SVG images drawn at the window's DPI: the
// SVG strip rendered sharp for this DPI, normal and greyed; the bundle's
// artwork picked for this DPI; an icon made from the strip; swatches.
class GraphicsPage : public GalleryPage {
public:
    GraphicsPage();

protected:
    void OnCreate() override;
    void PaintContent(Velkan::CDC& dc, const Velkan::CRect& content) override;

private:
    Velkan::CImageList m_svgIcons;
    Velkan::CImageList m_bundleIcons;
    Velkan::CIcon m_icon;
    int m_bundleScale = 1;
};

// The palette's view: the swatches, one per row, with their names.
class SwatchView : public Velkan::CWnd {
public:
    HWND Create(Velkan::CWnd* parent) override;

protected:
    void OnPaint(Velkan::CDC& dc) override;

private:
    Velkan::CFont m_font;
};
