#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A progress bar ("msctls_progress32").
class VELKAN_API CProgressControl : public CControl {
public:
    CProgressControl() : CControl(PROGRESS_CLASSW) {}  ///< A wrapper without a window.

    /// PBM_SETRANGE32.
    /// The previous range.
    PBRANGE SetRange(int low, int high) const;
    PBRANGE GetRange() const;  ///< PBM_GETRANGE.
    /// The progress bar message of the matching name (PBM_*); OffsetPos is
    /// PBM_DELTAPOS. Each returns the previous position or step.
    ///@{
    int SetPos(int pos) const { return static_cast<int>(SendMessageW(PBM_SETPOS, static_cast<WPARAM>(pos))); }
    int GetPos() const { return static_cast<int>(SendMessageW(PBM_GETPOS)); }
    int OffsetPos(int delta) const { return static_cast<int>(SendMessageW(PBM_DELTAPOS, static_cast<WPARAM>(delta))); }
    int SetStep(int step) const { return static_cast<int>(SendMessageW(PBM_SETSTEP, static_cast<WPARAM>(step))); }
    int StepIt() const { return static_cast<int>(SendMessageW(PBM_STEPIT)); }
    ///@}
    /// PBM_SETMARQUEE.
    /// Needs the PBS_MARQUEE style.
    BOOL SetMarquee(BOOL on, UINT intervalMs = 30) const { return static_cast<BOOL>(SendMessageW(PBM_SETMARQUEE, static_cast<WPARAM>(on), static_cast<LPARAM>(intervalMs))); }
    /// PBM_SETSTATE with a PBST_* state; returns the previous state.
    int SetState(int state) const { return static_cast<int>(SendMessageW(PBM_SETSTATE, static_cast<WPARAM>(state))); }
    /// PBM_SETBARCOLOR; returns the previous colour.
    COLORREF SetBarColor(COLORREF colour) const { return static_cast<COLORREF>(SendMessageW(PBM_SETBARCOLOR, 0, static_cast<LPARAM>(colour))); }
};

}  // namespace Velkan
