#pragma once

#include <richedit.h>

#include "velkan/controls/Control.h"

namespace Velkan {

/// A rich edit control ("RICHEDIT50W" of msftedit.dll, loaded on first use).
class VELKAN_API CRichEdit : public CControl {
public:
    CRichEdit();  ///< A wrapper without a window.

    /// Loads the control's DLL before creating; null when it is missing.
    HWND Create(CWnd& parent, UINT id, const RECT& rect, DWORD style = 0, DWORD exStyle = 0);
    using CControl::Create;  ///< CControl's Create.
    /// TRUE once the control's DLL is loaded in the process.
    static BOOL LoadLibrary();

    void SetSel(LONG start, LONG end) const;  ///< EM_EXSETSEL.
    void GetSel(LONG& start, LONG& end) const;  ///< EM_EXGETSEL.
    /// The rich edit message of the matching name (EM_*).
    ///@{
    void ReplaceSel(const wchar_t* text, BOOL canUndo = TRUE) const { SendMessageW(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text)); }
    void SetReadOnly(BOOL readOnly) const { SendMessageW(EM_SETREADONLY, static_cast<WPARAM>(readOnly)); }
    COLORREF SetBackgroundColor(COLORREF colour) const { return static_cast<COLORREF>(SendMessageW(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(colour))); }
    DWORD SetEventMask(DWORD mask) const { return static_cast<DWORD>(SendMessageW(EM_SETEVENTMASK, 0, static_cast<LPARAM>(mask))); }
    ///@}
    /// Character format of the selection (SCF_SELECTION) or all (SCF_ALL).
    /// EM_SETCHARFORMAT and EM_GETCHARFORMAT; cbSize is filled in.
    ///@{
    BOOL SetCharFormat(CHARFORMAT2W& format, DWORD which = SCF_SELECTION) const;
    DWORD GetCharFormat(CHARFORMAT2W& format, DWORD which = SCF_SELECTION) const;
    ///@}
    /// The number of characters (GTL_DEFAULT with the NUMCHARS rule).
    int GetTextLength() const;
    /// EM_AUTOURLDETECT.
    void SetAutoUrlDetect(BOOL on) const { SendMessageW(EM_AUTOURLDETECT, static_cast<WPARAM>(on)); }
};

}  // namespace Velkan
