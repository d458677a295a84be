#pragma once

#include "velkan/controls/Control.h"

namespace Velkan {

/// A single- or multi-line edit control ("Edit").
class VELKAN_API CEditControl : public CControl {
public:
    CEditControl() : CControl(WC_EDITW) {}  ///< A wrapper without a window.

    /// The edit message of the matching name (EM_*, or WM_CUT, WM_COPY,
    /// WM_PASTE and WM_CLEAR).
    ///@{
    void SetLimitText(int chars) const { SendMessageW(EM_LIMITTEXT, static_cast<WPARAM>(chars)); }
    int GetLimitText() const { return static_cast<int>(SendMessageW(EM_GETLIMITTEXT)); }
    void GetSel(int& start, int& end) const;  ///< EM_GETSEL.
    /// EM_SETSEL, then EM_SCROLLCARET unless noScroll.
    void SetSel(int start, int end, BOOL noScroll = FALSE) const;
    void SelectAll() const { SetSel(0, -1); }  ///< Selects the whole text.
    void ReplaceSel(const wchar_t* text, BOOL canUndo = TRUE) const { SendMessageW(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text)); }
    /// Puts text at the end and scrolls to it.
    void AppendText(const wchar_t* text) const;
    BOOL SetReadOnly(BOOL readOnly) const { return static_cast<BOOL>(SendMessageW(EM_SETREADONLY, static_cast<WPARAM>(readOnly))); }
    /// The control has ES_READONLY.
    BOOL IsReadOnly() const { return (GetWindowStyle() & ES_READONLY) != 0; }
    BOOL GetModify() const { return static_cast<BOOL>(SendMessageW(EM_GETMODIFY)); }
    void SetModify(BOOL modified) const { SendMessageW(EM_SETMODIFY, static_cast<WPARAM>(modified)); }
    int GetLineCount() const { return static_cast<int>(SendMessageW(EM_GETLINECOUNT)); }
    int LineIndex(int line) const { return static_cast<int>(SendMessageW(EM_LINEINDEX, static_cast<WPARAM>(line))); }
    int LineLength(int charIndex) const { return static_cast<int>(SendMessageW(EM_LINELENGTH, static_cast<WPARAM>(charIndex))); }
    /// The text of one line (0-based), without its line break.
    CString GetLine(int line) const;
    BOOL Undo() const { return static_cast<BOOL>(SendMessageW(EM_UNDO)); }
    BOOL CanUndo() const { return static_cast<BOOL>(SendMessageW(EM_CANUNDO)); }
    void SetPasswordChar(wchar_t ch) const { SendMessageW(EM_SETPASSWORDCHAR, ch); }
    BOOL SetCueBanner(const wchar_t* text, BOOL showWhenFocused = FALSE) const { return static_cast<BOOL>(SendMessageW(EM_SETCUEBANNER, static_cast<WPARAM>(showWhenFocused), reinterpret_cast<LPARAM>(text))); }
    void Cut() const { SendMessageW(WM_CUT); }
    void Copy() const { SendMessageW(WM_COPY); }
    void Paste() const { SendMessageW(WM_PASTE); }
    void Clear() const { SendMessageW(WM_CLEAR); }
    ///@}
};

}  // namespace Velkan
