#pragma once

#include <windows.h>
#include <commctrl.h>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/ImageList.h"

namespace Velkan {

class CBitmapBundle;
class CSvgImage;

/// A common-controls toolbar whose images come from a DPI bitmap bundle, an
/// SVG strip or a bitmap resource, built once at the parent's DPI when the
/// toolbar is created. Tooltips are the second line of each command's string
/// resource (`status-bar help\ntooltip`); a string without a line feed is
/// its own tooltip.
class VELKAN_API CToolbar : public CWnd {
public:
    /// The toolbar's tooltip control, tied to it when the control reports it
    /// (NM_TOOLTIPSCREATED reflected to the toolbar).
    class VELKAN_API CToolbarTooltip : public CWnd {
    public:
        /// The tooltip of toolbar.
        explicit CToolbarTooltip(CToolbar& toolbar) : m_toolbar(toolbar) {}
        /// TTN_GETDISPINFO: the toolbar's HandleOnTtnGetDispInfo.
        BOOL OnNotifyReflect(UINT id, LPARAM nmhdr, LRESULT& result) override;

    private:
        CToolbar& m_toolbar;
    };

    /// A toolbar whose strings and images come from instance. A null
    /// instance means the application's.
    explicit CToolbar(HINSTANCE instance = nullptr);

    /// Creates the toolbar with its buttons and their images from a bitmap
    /// bundle, an SVG strip, a bitmap resource or an image resource of a type
    /// GDI+ decodes. cx is one button image's width at 96 DPI. Null when the
    /// window could not be created.
    ///@{
    HWND Create(CWnd* parent, CBitmapBundle& images, TBBUTTON* buttons, int count, int cx);
    HWND Create(CWnd* parent, CSvgImage& images, TBBUTTON* buttons, int count, int cx, HINSTANCE instance = nullptr);
    HWND Create(CWnd* parent, UINT bitmapId, TBBUTTON* buttons, int count, HINSTANCE instance, int cx);
    HWND Create(CWnd* parent, UINT imageId, const wchar_t* type, TBBUTTON* buttons, int count, HINSTANCE instance,
                int cx);
    ///@}
    using CWnd::Create;  ///< CWnd's Create, from the templates.

    /// Adds a button image: a bitmap, or a bitmap or image resource, its mask
    /// colour made transparent. The new image's index, or -1 without an
    /// image list or bitmap. The
    /// masked copy is stretched only when its size differs from the icons'.
    ///@{
    int AddMaskedButtonImage(HBITMAP bitmap, COLORREF mask);
    int AddMaskedButtonImage(UINT bitmapId, COLORREF mask, HINSTANCE instance = nullptr);
    int AddMaskedButtonImage(UINT id, const wchar_t* type, COLORREF mask, HINSTANCE instance = nullptr);
    ///@}

    /// The tooltip of command id from its string; null without one.
    virtual CString GetTooltipString(UINT id) const;
    /// Fills a TTN_GETDISPINFO request (79 characters at most); FALSE without a
    /// tooltip.
    virtual BOOL HandleOnTtnGetDispInfo(UINT id, LPARAM nmhdr) const;
    /// NM_TOOLTIPSCREATED ties the tooltip control.
    BOOL OnNotifyReflect(UINT id, LPARAM nmhdr, LRESULT& result) override;
    void PreCreate(CREATESTRUCTW& cs) override;  ///< The toolbar's styles.
    void PreRegisterWndClass(WNDCLASSEXW& wc) override;  ///< Names the toolbar class.

    /// The text after the first line feed, or all of it without one.
    static CString GetTooltipStringFromHelpString(const CString& help);

    /// The module of the strings and images.
    HINSTANCE GetResourceInstance() const { return m_instance; }
    CToolbarTooltip& GetTooltipWnd() { return m_tooltip; }  ///< The tooltip wrapper.
    /// The image list the toolbar made.
    const CImageList& GetOwnImageList() const { return m_imageList; }

    CSize GetButtonSize() const;  ///< TB_GETBUTTONSIZE.
    /// The toolbar message of the matching name (TB_*).
    ///@{
    BOOL AddBitmap(TBADDBITMAP* bitmap, int count) const { return static_cast<BOOL>(SendMessageW(TB_ADDBITMAP, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(bitmap))); }
    BOOL AddButtons(TBBUTTON* buttons, int count) const { return static_cast<BOOL>(SendMessageW(TB_ADDBUTTONSW, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(buttons))); }
    void AutoSize() const { SendMessageW(TB_AUTOSIZE); }
    BOOL CheckButton(UINT id, BOOL check) const { return static_cast<BOOL>(SendMessageW(TB_CHECKBUTTON, id, MAKELPARAM(check, 0))); }
    BOOL EnableButton(UINT id, BOOL enable) const { return static_cast<BOOL>(SendMessageW(TB_ENABLEBUTTON, id, MAKELPARAM(enable, 0))); }
    BOOL GetButton(int index, TBBUTTON& button) const { return static_cast<BOOL>(SendMessageW(TB_GETBUTTON, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&button))); }
    int GetButtonCount() const { return static_cast<int>(SendMessageW(TB_BUTTONCOUNT)); }
    CRect GetButtonRect(UINT id) const;  ///< TB_GETRECT of command id.
    CRect GetItemRect(int index) const;  ///< TB_GETITEMRECT of button index.
    CSize GetMaxSize() const;  ///< TB_GETMAXSIZE: the size of all buttons.
    HIMAGELIST GetImageList() const { return reinterpret_cast<HIMAGELIST>(SendMessageW(TB_GETIMAGELIST)); }
    HIMAGELIST SetImageList(HIMAGELIST list, int index = 0) const { return reinterpret_cast<HIMAGELIST>(SendMessageW(TB_SETIMAGELIST, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(list))); }
    /// The tooltip control, through FromHwnd.
    CWnd* GetTooltips() const { return FromHwnd(GetTooltipsHwnd()); }
    HWND GetTooltipsHwnd() const { return reinterpret_cast<HWND>(SendMessageW(TB_GETTOOLTIPS)); }
    BOOL IsButtonChecked(int id) const { return static_cast<BOOL>(SendMessageW(TB_ISBUTTONCHECKED, static_cast<WPARAM>(id))); }
    BOOL PressButton(int id, BOOL press) const { return static_cast<BOOL>(SendMessageW(TB_PRESSBUTTON, static_cast<WPARAM>(id), MAKELPARAM(press, 0))); }
    void SetButtonStructSize(int size) const { SendMessageW(TB_BUTTONSTRUCTSIZE, static_cast<WPARAM>(size)); }
    DWORD SetExtendedStyles(WORD styles) const { return static_cast<DWORD>(SendMessageW(TB_SETEXTENDEDSTYLE, 0, styles)); }
    BOOL SetIndent(int indent) const { return static_cast<BOOL>(SendMessageW(TB_SETINDENT, static_cast<WPARAM>(indent))); }
    ///@}

private:
    // The steps after the image list is known.
    HWND CreateWithImages(TBBUTTON* buttons, int count);
    int ParentDpi(CWnd* parent) const;

    HINSTANCE m_instance;
    CImageList m_imageList;
    CToolbarTooltip m_tooltip;
};

}  // namespace Velkan
