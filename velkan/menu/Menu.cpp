#include "velkan/menu/Menu.h"

#include "velkan/app/Wnd.h"
#include "velkan/core/ObjectContext.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"

namespace Velkan {

VELKAN_X86_SIZE(MENUITEMINFOW, 48);
VELKAN_X86_SIZE(TPMPARAMS, 20);

namespace {

UINT ByPos(BOOL byPos) {
    return byPos ? MF_BYPOSITION : MF_BYCOMMAND;
}

}  // namespace

CMenu::CMenu() = default;

CMenu::CMenu(HMENU menu) {
    Attach(menu);
}

CMenu::CMenu(UINT id, HINSTANCE instance) {
    Load(id, instance);
}

CMenu::~CMenu() {
    DestroyMenu();
}

CMenu::Context& CMenu::GetContext() {
    static Context context;
    return context;
}

std::tuple<unsigned, unsigned> CMenu::GetContextInfo() {
    return GetContext().GetInfo();
}

void CMenu::ResetContext() {
    GetContext().Reset();
}

void CMenu::Register(HMENU menu) {
    m_menu = menu;
    if (menu != nullptr) GetContext().Insert(menu, this);
}

void CMenu::ResetCMenu() {
    if (m_menu != nullptr) GetContext().Erase(m_menu, this);
    m_menu = nullptr;
    m_notOwned = FALSE;
}

BOOL CMenu::Load(UINT id, HINSTANCE instance) {
    HMENU menu = ::LoadMenuW(CResourceLoader::ResolveInstance(instance), MAKEINTRESOURCEW(id));
    if (menu == nullptr) return FALSE;
    Attach(menu);
    return TRUE;
}

HMENU CMenu::CreateMenu() {
    Register(::CreateMenu());
    return m_menu;
}

HMENU CMenu::CreatePopupMenu() {
    Register(::CreatePopupMenu());
    return m_menu;
}

void CMenu::Attach(HMENU menu) {
    if (menu == m_menu && menu != nullptr) return;
    DestroyMenu();
    Register(menu);
}

HMENU CMenu::Detach() {
    HMENU menu = m_menu;
    ResetCMenu();
    return menu;
}

BOOL CMenu::DestroyMenu() {
    BOOL destroyed = FALSE;
    if (m_menu != nullptr && !m_notOwned && ::IsMenu(m_menu)) destroyed = ::DestroyMenu(m_menu);
    ResetCMenu();
    // Windows destroyed the sub-menus with their parent: their wrappers
    // find the handles gone and only forget them.
    m_subMenus.clear();
    return destroyed;
}

CMenu* CMenu::FromHmenu(HMENU menu) {
    if (menu == nullptr) return nullptr;
    if (CMenu* found = GetContext().Find(menu)) return found;
    auto temp = std::make_shared<CMenu>();
    temp->m_menu = menu;
    temp->m_notOwned = TRUE;
    CMenu* raw = GetContext().AddTempObject(std::move(temp));
    GetContext().Insert(menu, raw);
    return raw;
}

void CMenu::CleanUpTempObjects() {
    GetContext().CleanUpTempObjects();
}

CMenu* CMenu::GetSubMenu(int position) {
    HMENU sub = ::GetSubMenu(m_menu, position);
    if (sub == nullptr) return nullptr;
    for (const auto& wrapper : m_subMenus) {
        if (wrapper->m_menu == sub) return wrapper.get();
    }
    // Held, not registered: the table keeps one wrapper per handle, and a
    // sub-menu's may be another's. Windows destroys a sub-menu with its
    // parent, so its wrapper never destroys it, not even when the parent
    // was detached and lives on.
    auto wrapper = std::make_unique<CMenu>();
    wrapper->m_menu = sub;
    wrapper->m_notOwned = TRUE;
    m_subMenus.push_back(std::move(wrapper));
    return m_subMenus.back().get();
}

BOOL CMenu::InsertMenuItemW(UINT id, const wchar_t* text, int pos, BOOL byPos) {
    return ::InsertMenuW(m_menu, static_cast<UINT>(pos), ByPos(byPos), id, text);
}

BOOL CMenu::InsertSeparator(int pos, BOOL byPos) {
    return ::InsertMenuW(m_menu, static_cast<UINT>(pos), MF_SEPARATOR | ByPos(byPos), 0, nullptr);
}

BOOL CMenu::SetMenuString(UINT item, const wchar_t* text, BOOL byPos) {
    return ::ModifyMenuW(m_menu, item, ByPos(byPos), item, text);
}

DWORD CMenu::SetCheck(UINT item, BOOL check, BOOL byPos) {
    return ::CheckMenuItem(m_menu, item, ByPos(byPos) | (check ? MF_CHECKED : 0));
}

BOOL CMenu::SetEnabled(UINT item, BOOL enable, BOOL byPos) {
    return ::EnableMenuItem(m_menu, item, ByPos(byPos) | (enable ? 0 : MF_GRAYED));
}

BOOL CMenu::SetRadioCheck(UINT first, UINT last, UINT check, BOOL byPos) {
    return ::CheckMenuRadioItem(m_menu, first, last, check, ByPos(byPos));
}

BOOL CMenu::IsChecked(UINT item, BOOL byPos) const {
    return (::GetMenuState(m_menu, item, ByPos(byPos)) & MF_CHECKED) != 0;
}

BOOL CMenu::IsDisabled(UINT item, BOOL byPos) const {
    return (::GetMenuState(m_menu, item, ByPos(byPos)) & (MF_GRAYED | MF_DISABLED)) != 0;
}

ULONG_PTR CMenu::GetMenuItemData(UINT item, BOOL byPos) const {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_DATA;
    ::GetMenuItemInfoW(m_menu, item, byPos, &info);
    return info.dwItemData;
}

BOOL CMenu::SetMenuItemData(UINT item, ULONG_PTR data, BOOL byPos) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_DATA;
    info.dwItemData = data;
    return ::SetMenuItemInfoW(m_menu, item, byPos, &info);
}

CString CMenu::GetMenuStringW(UINT item, UINT flags) const {
    wchar_t buffer[128] = {};
    ::GetMenuStringW(m_menu, item, buffer, 128, flags);
    return CString(buffer);
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd& owner) {
    return ::TrackPopupMenu(m_menu, flags, x, y, 0, owner.GetHwnd(), nullptr);
}

BOOL CMenu::TrackPopupMenuEx(UINT flags, int x, int y, CWnd& owner, const RECT* exclude) {
    TPMPARAMS params = {};
    params.cbSize = sizeof(params);
    if (exclude != nullptr) params.rcExclude = *exclude;
    return ::TrackPopupMenuEx(m_menu, flags, x, y, owner.GetHwnd(), exclude != nullptr ? &params : nullptr);
}

}  // namespace Velkan
