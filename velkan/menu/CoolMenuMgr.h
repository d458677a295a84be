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

// Gives a window's menus a custom look with command images. Registered as
// a message filter of the window: while a menu is open, every item of each
// popup becomes owner-drawn and carries a record of what it was; a renderer
// measures and draws the items; keyboard mnemonics are answered here (the
// system cannot see the texts of owner-drawn items); and every item gets
// its type, text and data back when the menu closes. System menus are left
// alone, and so are items that someone else draws.
class VELKAN_API CCoolMenuMgr : public IWndMsgFilter {
public:
    // What a converted item carries in its item data.
    struct ItemRecord {
        DWORD magic;         // "jsn0"
        ULONG_PTR itemData;  // the item's own data
        int imageIndex;      // in the manager's image list, -1 for none
        UINT type;           // the item's own MFT_* flags
        wchar_t text[128];
    };
    static constexpr DWORD RecordMagic = 0x306E736A;

    // Draws with a built-in visual-style renderer.
    CCoolMenuMgr();
    // Draws with renderer, which the caller keeps alive.
    explicit CCoolMenuMgr(ICoolMenuItemRenderer& renderer);
    CCoolMenuMgr(const CCoolMenuMgr&) = delete;
    CCoolMenuMgr& operator=(const CCoolMenuMgr&) = delete;
    virtual ~CCoolMenuMgr();

    void Enable(BOOL enable) { m_enabled = enable; }
    BOOL IsEnabled() const { return m_enabled; }
    // Imports the toolbar's button images; the first toolbar to register a
    // command keeps its image.
    void AddToolbar(const CToolbar& toolbar);
    // TRUE when the image was added and the command newly mapped. Needs a
    // toolbar added before (for the image size).
    BOOL AddMaskedMenuButton(HBITMAP bitmap, COLORREF mask, UINT commandId);
    BOOL AddMaskedMenuButton(UINT bitmapId, COLORREF mask, UINT commandId, HINSTANCE instance = nullptr);
    BOOL AddMaskedMenuButton(UINT id, const wchar_t* type, COLORREF mask, UINT commandId, HINSTANCE instance = nullptr);

    BOOL WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    ICoolMenuItemRenderer& GetRenderer() { return *m_renderer; }
    CImageList& GetImageList() { return m_imageList; }
    BOOL IsInMenuLoop() const { return m_inMenuLoop; }
    // -1 when the command has no image.
    int GetCommandImage(UINT commandId) const;
    // The record behind a menu item's data, or null for anything else.
    static const ItemRecord* AsRecord(ULONG_PTR data);

protected:
    BOOL AddMenu(HMENU menu);
    BOOL IsMenuPresent(HMENU menu) const;
    void ConvertMenu(HMENU menu, BOOL convertText, BOOL systemMenu);
    void UnconvertMenu(HMENU menu);
    void UnconvertAllMenus();
    void OnInitMenuPopup(HMENU menu, BOOL systemMenu);
    LRESULT OnMeasureItem(CWnd& wnd, MEASUREITEMSTRUCT* measure);
    LRESULT OnDrawItem(CWnd& wnd, DRAWITEMSTRUCT* draw);
    LRESULT OnMenuChar(HMENU menu, wchar_t ch, WORD flags);
    void OnMenuSelect(WORD item, WORD flags, HMENU menu);
    void OnSettingChange(CWnd& wnd);

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
