#pragma once

#include <windows.h>

#include <memory>
#include <tuple>
#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

class CWnd;
template <typename Key, typename Object> class ObjectContext;

/// Owns an HMENU and offers the Win32 menu calls as members; byPos selects
/// MF_BYPOSITION, otherwise items are addressed by command. Every member
/// returns the Win32 result.
///
/// The wrapper destroys its menu (when it still is one) on DestroyMenu, on
/// Attach of another handle and on destruction. Wrappers from FromHmenu are
/// temporary and never destroy their menu. Sub-menu wrappers handed out by
/// GetSubMenu belong to their parent wrapper.
class VELKAN_API CMenu {
public:
    using Context = ObjectContext<HMENU, CMenu>;  ///< The handle table's type.

    CMenu();  ///< No menu.
    explicit CMenu(HMENU menu);  ///< Owns menu, as Attach does.
    /// Loads a menu resource, as Load does. A missing resource leaves the
    /// object empty.
    CMenu(UINT id, HINSTANCE instance);
    /// Not copyable: a menu has one owner.
    ///@{
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;
    ///@}
    virtual ~CMenu();  ///< DestroyMenu.

    /// Loads a menu resource and owns it; FALSE when it is missing.
    BOOL Load(UINT id, HINSTANCE instance = nullptr);
    /// Makes a new menu bar or pop-up menu and owns it.
    ///@{
    HMENU CreateMenu();
    HMENU CreatePopupMenu();
    ///@}
    void Attach(HMENU menu);  ///< Destroys the current menu and owns menu.
    HMENU Detach();  ///< Gives the menu up without destroying it.
    /// Destroys an owned menu and empties the wrapper; TRUE when a menu was
    /// destroyed.
    BOOL DestroyMenu();
    HMENU GetHmenu() const { return m_menu; }  ///< The menu, or null.
    operator HMENU() const { return m_menu; }  ///< The menu, or null.
    BOOL IsMenu() const { return ::IsMenu(m_menu); }  ///< The handle is a live menu.
    /// A temporary or sub-menu wrapper, which never destroys its menu.
    BOOL IsTempMenu() const { return m_notOwned; }

    /// The owner of menu, or a temporary wrapper owned by the calling thread.
    static CMenu* FromHmenu(HMENU menu);
    static void CleanUpTempObjects();  ///< Deletes the calling thread's temporary wrappers.

    /// The wrapper of the sub-menu at position, or null. The same wrapper
    /// for the same sub-menu; kept until this one dies.
    CMenu* GetSubMenu(int position);

    /// The Win32 menu function of the same name, on this menu.
    ///@{
    BOOL AppendMenuW(UINT flags, UINT_PTR id, const wchar_t* text) { return ::AppendMenuW(m_menu, flags, id, text); }
    /// Appends a text item with command id.
    BOOL AppendMenuItem(UINT id, const wchar_t* text) { return ::AppendMenuW(m_menu, MF_STRING, id, text); }
    BOOL InsertMenuW(UINT pos, UINT flags, UINT_PTR id, const wchar_t* text) { return ::InsertMenuW(m_menu, pos, flags, id, text); }
    /// Inserts a text item with command id before the item pos.
    BOOL InsertMenuItemW(UINT id, const wchar_t* text, int pos, BOOL byPos);
    BOOL InsertSeparator(int pos, BOOL byPos);  ///< Inserts a separator before the item pos.
    BOOL ModifyMenuW(UINT pos, UINT flags, UINT_PTR id, const wchar_t* text) { return ::ModifyMenuW(m_menu, pos, flags, id, text); }
    /// Changes an item's text. The item value also becomes the item's
    /// command id: by position, the
    /// item's id becomes its position.
    BOOL SetMenuString(UINT item, const wchar_t* text, BOOL byPos);
    /// SetMenuString.
    BOOL ModifyMenuItem(UINT item, const wchar_t* text, BOOL byPos) { return SetMenuString(item, text, byPos); }
    BOOL DeleteMenu(UINT item, UINT flags) { return ::DeleteMenu(m_menu, item, flags); }
    DWORD CheckMenuItem(UINT item, UINT check) { return ::CheckMenuItem(m_menu, item, check); }
    BOOL EnableMenuItem(UINT item, UINT enable) { return ::EnableMenuItem(m_menu, item, enable); }
    BOOL CheckMenuRadioItem(UINT first, UINT last, UINT check, UINT flags) { return ::CheckMenuRadioItem(m_menu, first, last, check, flags); }
    /// Checks or unchecks an item; the previous state as CheckMenuItem returns
    /// it.
    DWORD SetCheck(UINT item, BOOL check, BOOL byPos);
    /// Enables or greys an item; the previous state as EnableMenuItem returns
    /// it.
    BOOL SetEnabled(UINT item, BOOL enable, BOOL byPos);
    BOOL SetRadioCheck(UINT first, UINT last, UINT check, BOOL byPos);  ///< CheckMenuRadioItem.
    BOOL IsChecked(UINT item, BOOL byPos) const;  ///< The item has MF_CHECKED.
    BOOL IsDisabled(UINT item, BOOL byPos) const;  ///< The item has MF_GRAYED or MF_DISABLED.
    /// Not IsDisabled.
    BOOL IsEnabled(UINT item, BOOL byPos) const { return !IsDisabled(item, byPos); }
    UINT GetMenuState(UINT item, UINT flags) const { return ::GetMenuState(m_menu, item, flags); }
    int GetMenuItemCount() const { return ::GetMenuItemCount(m_menu); }
    UINT GetMenuItemID(int pos) const { return ::GetMenuItemID(m_menu, pos); }
    BOOL GetMenuItemInfoW(UINT item, MENUITEMINFOW* info, BOOL byPos) const { return ::GetMenuItemInfoW(m_menu, item, byPos, info); }
    BOOL SetMenuItemInfoW(UINT item, MENUITEMINFOW* info, BOOL byPos) { return ::SetMenuItemInfoW(m_menu, item, byPos, info); }
    /// The item's application value (dwItemData).
    ULONG_PTR GetMenuItemData(UINT item, BOOL byPos) const;
    /// Sets the item's application value (dwItemData).
    BOOL SetMenuItemData(UINT item, ULONG_PTR data, BOOL byPos);
    int GetMenuStringW(UINT item, wchar_t* buffer, int size, UINT flags) const { return ::GetMenuStringW(m_menu, item, buffer, size, flags); }
    /// The item's text. At most 127 characters.
    CString GetMenuStringW(UINT item, UINT flags) const;
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd& owner);
    BOOL TrackPopupMenuEx(UINT flags, int x, int y, CWnd& owner, const RECT* exclude = nullptr);
    ///@}

private:
    static Context& GetContext();
    // (temporary wrappers of the calling fiber, registered menus)
    static std::tuple<unsigned, unsigned> GetContextInfo();
    static void ResetContext();
    // Unregisters and empties this wrapper without destroying the menu.
    void ResetCMenu();
    void Register(HMENU menu);

    HMENU m_menu = nullptr;
    BOOL m_notOwned = FALSE;
    std::vector<std::unique_ptr<CMenu>> m_subMenus;
};

}  // namespace Velkan
