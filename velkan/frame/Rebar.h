#pragma once

#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>

#include "velkan/app/Wnd.h"
#include "velkan/frame/Toolbar.h"

namespace Velkan {

/// A rebar that hosts toolbars and other windows as bands.
class VELKAN_API CRebar : public CWnd {
public:
    /// The value is kept; the rebar's operations do not read it.
    explicit CRebar(int bands = 1) : m_bands(bands) {}

    /// Creates the control and sets its bar info; null on failure.
    HWND Create(CWnd* parent = nullptr) override;
    void PreCreate(CREATESTRUCTW& cs) override;  ///< The rebar's styles.
    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< Names the rebar class.

    /// The child becomes a band sized to its window, moved to the bottom of
    /// the z-order; index -1 appends.
    BOOL Insert(CWnd& child, const wchar_t* text, BOOL newRow, BOOL noGripper, int index = -1);
    /// A band as large as the toolbar's full size; without a gripper the
    /// toolbar is indented by 4 pixels instead.
    BOOL InsertToolbar(CToolbar& toolbar, BOOL newRow, BOOL noGripper, int index = -1);
    /// The width below which a band would be cut; 0 without bands.
    int GetMinWidth() const;
    int GetBandsArgument() const { return m_bands; }  ///< The constructor's argument.

    /// The rebar message of the matching name (RB_*); the rectangles and
    /// margins are empty on failure.
    ///@{
    int GetBandCount() const { return static_cast<int>(SendMessageW(RB_GETBANDCOUNT)); }
    BOOL GetBandInfo(int band, REBARBANDINFOW& info) const { return static_cast<BOOL>(SendMessageW(RB_GETBANDINFOW, static_cast<WPARAM>(band), reinterpret_cast<LPARAM>(&info))); }
    BOOL SetBandInfo(int band, REBARBANDINFOW& info) const { return static_cast<BOOL>(SendMessageW(RB_SETBANDINFOW, static_cast<WPARAM>(band), reinterpret_cast<LPARAM>(&info))); }
    BOOL InsertBand(REBARBANDINFOW& info, int index) const { return static_cast<BOOL>(SendMessageW(RB_INSERTBANDW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&info))); }
    BOOL SetBarInfo(REBARINFO& info) const { return static_cast<BOOL>(SendMessageW(RB_SETBARINFO, 0, reinterpret_cast<LPARAM>(&info))); }
    UINT GetBarHeight() const { return static_cast<UINT>(SendMessageW(RB_GETBARHEIGHT)); }
    CRect GetBandRect(int band) const;
    CRect GetBandBorders(int band) const;
    MARGINS GetBandMargins() const;
    BOOL ShowBand(int band, BOOL show) const { return static_cast<BOOL>(SendMessageW(RB_SHOWBAND, static_cast<WPARAM>(band), show)); }
    BOOL HideBand(int band) const { return ShowBand(band, FALSE); }  ///< ShowBand(band, FALSE).
    ///@}

private:
    int m_bands;
};

}  // namespace Velkan
