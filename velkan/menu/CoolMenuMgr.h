#pragma once

#include <windows.h>

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "velkan/app/Wnd.h"
#include "velkan/gfx/ImageList.h"
#include "velkan/menu/CoolMenuItemUxThemedRenderer.h"

namespace Velkan {

class CToolbar;

/// Gives a window's menus a custom look with command images. Registered as
/// a message filter of the window: while a menu is open, every item of each
/// popup becomes owner-drawn and carries a record of what it was; a renderer
/// measures and draws the items; keyboard mnemonics are answered here (the
/// system cannot see the texts of owner-drawn items); and every item gets
/// its type, text and data back when the menu closes. System menus are left
/// alone, and so are items that someone else draws.
class VELKAN_API CCoolMenuMgr : public IWndMsgFilter {
public:
    /// What a converted item carries in its item data.
    struct ItemRecord {
        DWORD magic;         ///< RecordMagic, "jsn0"
        ULONG_PTR itemData;  ///< the item's own data
        int imageIndex;      ///< in the manager's image list, -1 for none
        UINT type;           ///< the item's own MFT_* flags
        wchar_t text[128];  ///< the item's own text
    };
    static constexpr DWORD RecordMagic = 0x306E736A;  ///< Marks an ItemRecord.

    /// Draws with a built-in visual-style renderer.
    CCoolMenuMgr();
    /// Draws with renderer, which the caller keeps alive.
    explicit CCoolMenuMgr(ICoolMenuItemRenderer& renderer);
    /// Not copyable.
    ///@{
    CCoolMenuMgr(const CCoolMenuMgr&) = delete;
    CCoolMenuMgr& operator=(const CCoolMenuMgr&) = delete;
    ///@}
    virtual ~CCoolMenuMgr();  ///< Frees the records; converted items must have been restored.

    /// Whether menus opened from now on are converted.
    void Enable(BOOL enable) { m_enabled = enable; }
    BOOL IsEnabled() const { return m_enabled; }  ///< See Enable.
    /// Imports the toolbar's button images; the first toolbar to register a
    /// command keeps its image.
    void AddToolbar(const CToolbar& toolbar);
    /// Adds a command image: a bitmap, or a bitmap or image resource, its
    /// mask colour made transparent and stretched to the icon size. TRUE
    /// when the image was added and the command newly mapped.
    ///@{ Needs a
    /// toolbar added before (for the image size).
    BOOL AddMaskedMenuButton(HBITMAP bitmap, COLORREF mask, UINT commandId);
    BOOL AddMaskedMenuButton(UINT bitmapId, COLORREF mask, UINT commandId, HINSTANCE instance = nullptr);
    BOOL AddMaskedMenuButton(UINT id, const wchar_t* type, COLORREF mask, UINT commandId, HINSTANCE instance = nullptr);
    ///@}

    /// The window's menu messages: the menu loop, WM_INITMENUPOPUP,
    /// WM_MEASUREITEM, WM_DRAWITEM, WM_MENUCHAR, WM_MENUSELECT and setting
    /// changes.
    BOOL WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    ICoolMenuItemRenderer& GetRenderer() { return *m_renderer; }  ///< The renderer in use.
    CImageList& GetImageList() { return m_imageList; }  ///< The command images.
    BOOL IsInMenuLoop() const { return m_inMenuLoop; }  ///< A menu of the window is open.
    /// The image index of a command. -1 when the command has no image.
    int GetCommandImage(UINT commandId) const;
    /// The record behind a menu item's data, or null for anything else.
    static const ItemRecord* AsRecord(ULONG_PTR data);

protected:
    BOOL AddMenu(HMENU menu);  ///< Remembers a menu for restoring; FALSE when it was already there.
    BOOL IsMenuPresent(HMENU menu) const;  ///< The menu is remembered.
    /// Makes the items of a pop-up owner-drawn, each with its record; a system
    /// menu is left alone.
    void ConvertMenu(HMENU menu, BOOL convertText, BOOL systemMenu);
    void UnconvertMenu(HMENU menu);  ///< Gives the items their type, text and data back.
    void UnconvertAllMenus();  ///< UnconvertMenu on every remembered menu, then forgets them.
    /// Converts a pop-up the first time it opens in the loop.
    void OnInitMenuPopup(HMENU menu, BOOL systemMenu);
    /// The renderer's measure of a converted item; 0 for others.
    LRESULT OnMeasureItem(CWnd& wnd, MEASUREITEMSTRUCT* measure);
    /// The renderer's drawing of a converted item; 0 for others.
    LRESULT OnDrawItem(CWnd& wnd, DRAWITEMSTRUCT* draw);
    /// Finds the items whose mnemonic is ch: MNC_EXECUTE for one, MNC_SELECT of
    /// the next for several, 0 for none.
    LRESULT OnMenuChar(HMENU menu, wchar_t ch, WORD flags);
    /// Restores every item when the menu closes.
    void OnMenuSelect(WORD item, WORD flags, HMENU menu);
    void OnSettingChange(CWnd& wnd);  ///< The renderer's OnSettingChange.

private:
    // Imports the images of (command, image index) pairs in one strip of
    // the same icon size; FALSE when the list's bitmaps cannot be read.
    BOOL AddImagesAsStrip(const CImageList& list, const std::vector<std::pair<UINT, int>>& imports);
    // Imports one image through an icon, for lists of another icon size.
    void AddImageAsIcon(const CImageList& list, UINT id, int image);
    ItemRecord* NewRecord();
    static ItemRecord* AsWritableRecord(ULONG_PTR data);
    static std::unordered_set<HMENU> EmptyMenuSet();

    BOOL m_enabled = TRUE;
    BOOL m_inMenuLoop = FALSE;
    CImageList m_imageList;
    std::vector<std::unique_ptr<ItemRecord>> m_records;
    std::unordered_map<UINT, int> m_commandImages;
    std::unordered_set<HMENU> m_menus;
    ICoolMenuItemRenderer* m_renderer;
    std::unique_ptr<CCoolMenuItemUxThemedRenderer> m_builtInRenderer;
};

}  // namespace Velkan
