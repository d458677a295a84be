#include "velkan/menu/CoolMenuMgr.h"

#include <cstdint>
#include <cstring>
#include <cwctype>

#include "velkan/core/Exceptions.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"
#include "velkan/frame/Toolbar.h"
#include "velkan/gfx/Bitmap.h"

namespace Velkan {

// The record keeps its field order on x86-64, where the item data widens.
VELKAN_X86_SIZE(CCoolMenuMgr::ItemRecord, 272);

namespace {

constexpr size_t kInitialBuckets = 8;
constexpr UINT kTextUnits = sizeof(CCoolMenuMgr::ItemRecord::text) / sizeof(wchar_t);

MENUITEMINFOW ItemInfo(UINT mask) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = mask;
    return info;
}

}  // namespace

CCoolMenuMgr::CCoolMenuMgr()
    : m_imageList(ILC_COLOR32 | ILC_MASK), m_menus(EmptyMenuSet()),
      m_builtInRenderer(std::make_unique<CCoolMenuItemUxThemedRenderer>()) {
    m_renderer = m_builtInRenderer.get();
    m_commandImages.max_load_factor(1.0f);
    m_commandImages.rehash(kInitialBuckets);
}

CCoolMenuMgr::CCoolMenuMgr(ICoolMenuItemRenderer& renderer)
    : m_imageList(ILC_COLOR32 | ILC_MASK), m_menus(EmptyMenuSet()), m_renderer(&renderer) {
    m_commandImages.max_load_factor(1.0f);
    m_commandImages.rehash(kInitialBuckets);
}

CCoolMenuMgr::~CCoolMenuMgr() = default;

std::unordered_set<HMENU> CCoolMenuMgr::EmptyMenuSet() {
    std::unordered_set<HMENU> menus;
    menus.max_load_factor(1.0f);
    menus.rehash(kInitialBuckets);
    return menus;
}

// ---------------------------------------------------------------------------
// Records

CCoolMenuMgr::ItemRecord* CCoolMenuMgr::NewRecord() {
    auto record = std::make_unique<ItemRecord>();
    *record = ItemRecord{};
    record->magic = RecordMagic;
    m_records.push_back(std::move(record));
    return m_records.back().get();
}

CCoolMenuMgr::ItemRecord* CCoolMenuMgr::AsWritableRecord(ULONG_PTR data) {
    auto* record = reinterpret_cast<ItemRecord*>(data);
    if (record == nullptr || ::IsBadReadPtr(record, sizeof(ItemRecord))) return nullptr;
    return record->magic == RecordMagic ? record : nullptr;
}

const CCoolMenuMgr::ItemRecord* CCoolMenuMgr::AsRecord(ULONG_PTR data) {
    return AsWritableRecord(data);
}

int CCoolMenuMgr::GetCommandImage(UINT commandId) const {
    auto it = m_commandImages.find(commandId);
    return it != m_commandImages.end() ? it->second : -1;
}

// ---------------------------------------------------------------------------
// The filter

BOOL CCoolMenuMgr::WndMsgFilterProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (msg) {
    case WM_CREATE:
    case WM_SETTINGCHANGE:
        if (CWnd* wnd = CWnd::FromHwnd(hwnd)) OnSettingChange(*wnd);
        return FALSE;
    case WM_DRAWITEM: {
        auto* draw = reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
        if (draw == nullptr || draw->CtlType != ODT_MENU) return FALSE;
        result = OnDrawItem(*CWnd::FromHwnd(hwnd), draw);
        return result != 0;
    }
    case WM_MEASUREITEM: {
        auto* measure = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        if (measure == nullptr || measure->CtlType != ODT_MENU) return FALSE;
        result = OnMeasureItem(*CWnd::FromHwnd(hwnd), measure);
        return result != 0;
    }
    case WM_INITMENUPOPUP:
        OnInitMenuPopup(reinterpret_cast<HMENU>(wParam), HIWORD(lParam));
        return FALSE;
    case WM_MENUSELECT:
        OnMenuSelect(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HMENU>(lParam));
        return FALSE;
    case WM_MENUCHAR: {
        HMENU menu = reinterpret_cast<HMENU>(lParam);
        if (!::IsMenu(menu)) return FALSE;
        result = OnMenuChar(menu, static_cast<wchar_t>(LOWORD(wParam)), HIWORD(wParam));
        return result != 0;
    }
    case WM_ENTERMENULOOP:
        m_inMenuLoop = TRUE;
        return FALSE;
    case WM_EXITMENULOOP:
        m_inMenuLoop = FALSE;
        return FALSE;
    default:
        return FALSE;
    }
}

void CCoolMenuMgr::OnSettingChange(CWnd& wnd) {
    m_renderer->OnSettingChange(wnd);
}

void CCoolMenuMgr::OnInitMenuPopup(HMENU menu, BOOL systemMenu) {
    if (!m_inMenuLoop || !m_enabled) return;
    if (AddMenu(menu)) ConvertMenu(menu, TRUE, systemMenu);
}

void CCoolMenuMgr::OnMenuSelect(WORD, WORD flags, HMENU menu) {
    // The menu closed.
    if (flags == 0xFFFF && menu == nullptr) UnconvertAllMenus();
}

BOOL CCoolMenuMgr::AddMenu(HMENU menu) {
    return m_menus.insert(menu).second;
}

BOOL CCoolMenuMgr::IsMenuPresent(HMENU menu) const {
    return m_menus.count(menu) != 0;
}

// ---------------------------------------------------------------------------
// Conversion

void CCoolMenuMgr::ConvertMenu(HMENU menu, BOOL convertText, BOOL systemMenu) {
    if (systemMenu) return;
    const int count = ::GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const UINT pos = static_cast<UINT>(i);
        // No buffer: cch comes back as the text's length.
        MENUITEMINFOW info = ItemInfo(MIIM_ID | MIIM_TYPE | MIIM_DATA);
        if (!::GetMenuItemInfoW(menu, pos, TRUE, &info)) continue;
        if (info.fType & MFT_BITMAP) continue;
        if (info.fType & MFT_SEPARATOR) {
            ItemRecord* record = NewRecord();
            record->type = info.fType;
            MENUITEMINFOW set = ItemInfo(MIIM_DATA | MIIM_TYPE);
            set.fType = MFT_OWNERDRAW;
            set.dwItemData = reinterpret_cast<ULONG_PTR>(record);
            ::SetMenuItemInfoW(menu, pos, TRUE, &set);
            continue;
        }
        if (!convertText || info.cch == 0 || (info.fType & MFT_OWNERDRAW)) continue;

        if (ItemRecord* record = AsWritableRecord(info.dwItemData)) {
            // Left from an earlier conversion: only the text is read again.
            MENUITEMINFOW text = ItemInfo(MIIM_TYPE);
            text.dwTypeData = record->text;
            text.cch = kTextUnits;
            ::GetMenuItemInfoW(menu, pos, TRUE, &text);
            text.fType |= MFT_OWNERDRAW;
            ::SetMenuItemInfoW(menu, pos, TRUE, &text);
            continue;
        }
        ItemRecord* record = NewRecord();
        // The text is read with the record's room in characters, so a text
        // longer than 127 characters is cut rather than overrun the record.
        MENUITEMINFOW text = ItemInfo(MIIM_TYPE);
        text.dwTypeData = record->text;
        text.cch = kTextUnits;
        ::GetMenuItemInfoW(menu, pos, TRUE, &text);
        record->type = info.fType;
        record->imageIndex = GetCommandImage(info.wID);
        record->itemData = info.dwItemData;
        MENUITEMINFOW set = ItemInfo(MIIM_DATA | MIIM_TYPE);
        set.fType = info.fType | MFT_OWNERDRAW;
        set.cch = 0;
        set.dwItemData = reinterpret_cast<ULONG_PTR>(record);
        ::SetMenuItemInfoW(menu, pos, TRUE, &set);
    }
}

void CCoolMenuMgr::UnconvertMenu(HMENU menu) {
    const int count = ::GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const UINT pos = static_cast<UINT>(i);
        MENUITEMINFOW info = ItemInfo(MIIM_TYPE | MIIM_DATA);
        if (!::GetMenuItemInfoW(menu, pos, TRUE, &info)) continue;
        if ((info.fType & MFT_OWNERDRAW) == 0) continue;
        ItemRecord* record = AsWritableRecord(info.dwItemData);
        if (record == nullptr) continue;
        MENUITEMINFOW set = ItemInfo(MIIM_TYPE | MIIM_DATA);
        set.fType = record->type;
        set.dwTypeData = record->text;
        set.cch = static_cast<UINT>(::lstrlenW(record->text));
        set.dwItemData = record->itemData;
        ::SetMenuItemInfoW(menu, pos, TRUE, &set);
    }
}

void CCoolMenuMgr::UnconvertAllMenus() {
    for (HMENU menu : m_menus) UnconvertMenu(menu);
    m_menus = EmptyMenuSet();
}

// ---------------------------------------------------------------------------
// Measuring, drawing and mnemonics

LRESULT CCoolMenuMgr::OnMeasureItem(CWnd& wnd, MEASUREITEMSTRUCT* measure) {
    const ItemRecord* record = AsRecord(measure->itemData);
    if (record == nullptr) return 0;
    ICoolMenuItemRenderer::CoolMenuItemMeasureStruct item = {&wnd, record->type, record->text, record->imageIndex,
                                                             &m_imageList, measure};
    return m_renderer->MeasureMenuItem(item);
}

LRESULT CCoolMenuMgr::OnDrawItem(CWnd& wnd, DRAWITEMSTRUCT* draw) {
    const ItemRecord* record = AsRecord(draw->itemData);
    if (record == nullptr) return 0;
    ICoolMenuItemRenderer::CoolMenuItemDrawStruct item = {&wnd, record->type, record->text, record->imageIndex,
                                                          &m_imageList, draw};
    return m_renderer->DrawMenuItem(item);
}

LRESULT CCoolMenuMgr::OnMenuChar(HMENU menu, wchar_t ch, WORD) {
    const int count = ::GetMenuItemCount(menu);
    if (count <= 0) return 0;
    UINT highlighted = 0xFFFF;
    std::vector<UINT> matches;
    const wint_t key = std::towupper(ch);
    for (int i = 0; i < count; ++i) {
        const UINT pos = static_cast<UINT>(i);
        MENUITEMINFOW info = ItemInfo(MIIM_STATE | MIIM_TYPE | MIIM_DATA);
        if (!::GetMenuItemInfoW(menu, pos, TRUE, &info)) continue;
        if (info.fState & MFS_HILITE) highlighted = pos;
        if ((info.fType & MFT_OWNERDRAW) == 0) continue;
        const ItemRecord* record = AsRecord(info.dwItemData);
        if (record == nullptr) continue;
        for (const wchar_t* p = record->text; *p != L'\0' && p[1] != L'\0'; ++p) {
            if (*p != L'&') continue;
            if (std::towupper(p[1]) == key) matches.push_back(pos);
            break;
        }
    }
    if (matches.empty()) return 0;
    if (matches.size() == 1) return MAKELRESULT(matches.front(), MNC_EXECUTE);
    // Repeated presses cycle through the matching items.
    for (UINT pos : matches) {
        if (pos > highlighted) return MAKELRESULT(pos, MNC_SELECT);
    }
    return MAKELRESULT(matches.front(), MNC_SELECT);
}

// ---------------------------------------------------------------------------
// Images

void CCoolMenuMgr::AddToolbar(const CToolbar& toolbar) {
    CImageList* list = CImageList::FromHimageList(toolbar.GetImageList());
    if (list == nullptr) return;
    if (!m_imageList.IsValid()) {
        const CSize icon = list->GetIconSize();
        m_imageList.Attach(::ImageList_Create(icon.cx, icon.cy, ILC_COLOR32 | ILC_MASK, 0, 10));
    }
    // The commands to import, in button order; the first toolbar to
    // register a command keeps its image.
    std::vector<std::pair<UINT, int>> imports;
    const int count = toolbar.GetButtonCount();
    for (int i = 0; i < count; ++i) {
        TBBUTTON button = {};
        if (!toolbar.GetButton(i, button)) continue;
        const UINT id = static_cast<UINT>(button.idCommand);
        if (id == 0 || m_commandImages.count(id) != 0) continue;
        bool listed = false;
        for (const auto& import : imports) listed = listed || import.first == id;
        if (!listed) imports.emplace_back(id, button.iBitmap);
    }
    if (imports.empty()) return;
    if (list->GetIconSize() == m_imageList.GetIconSize() && AddImagesAsStrip(*list, imports)) return;
    for (const auto& import : imports) AddImageAsIcon(*list, import.first, import.second);
}

BOOL CCoolMenuMgr::AddImagesAsStrip(const CImageList& list, const std::vector<std::pair<UINT, int>>& imports) {
    // One strip of images and one of masks, read cell by cell from the
    // toolbar's own bitmaps and added in one call: the same pictures the
    // toolbar's icons would give, without making an icon per button. The
    // list keeps its bitmaps selected in its own DCs, so they are read with
    // GetDIBits rather than blitted.
    const CSize icon = m_imageList.GetIconSize();
    const int n = static_cast<int>(imports.size());
    IMAGEINFO first = {};
    if (!::ImageList_GetImageInfo(list, imports.front().second, &first) || first.hbmImage == nullptr) return FALSE;
    BITMAP source = {};
    if (::GetObjectW(first.hbmImage, sizeof(source), &source) != sizeof(source)) return FALSE;

    // The whole source bitmap, top-down, as 32-bit pixels and as mask bits.
    const int width = source.bmWidth, height = source.bmHeight;
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    HDC screen = ::GetDC(nullptr);
    BOOL ok = ::GetDIBits(screen, first.hbmImage, 0, static_cast<UINT>(height), pixels.data(), &info,
                          DIB_RGB_COLORS) == height;
    std::vector<uint32_t> maskPixels;
    if (ok && first.hbmMask != nullptr) {
        maskPixels.resize(pixels.size());
        BITMAPINFO maskInfo = info;
        ok = ::GetDIBits(screen, first.hbmMask, 0, static_cast<UINT>(height), maskPixels.data(), &maskInfo,
                         DIB_RGB_COLORS) == height;
    }
    ::ReleaseDC(nullptr, screen);
    if (!ok) return FALSE;

    BITMAPINFO stripInfo = {};
    stripInfo.bmiHeader = {sizeof(BITMAPINFOHEADER), icon.cx * n, -icon.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* colourBits = nullptr;
    void* maskBits = nullptr;
    HBITMAP colours = ::CreateDIBSection(nullptr, &stripInfo, DIB_RGB_COLORS, &colourBits, nullptr, 0);
    HBITMAP masks = maskPixels.empty() ? nullptr
                                       : ::CreateDIBSection(nullptr, &stripInfo, DIB_RGB_COLORS, &maskBits, nullptr, 0);
    ok = colours != nullptr && (maskPixels.empty() || masks != nullptr);
    for (int i = 0; ok && i < n; ++i) {
        IMAGEINFO image = {};
        ok = ::ImageList_GetImageInfo(list, imports[static_cast<size_t>(i)].second, &image) &&
             image.hbmImage == first.hbmImage;
        if (!ok) break;
        for (int y = 0; y < icon.cy; ++y) {
            const size_t from = static_cast<size_t>(image.rcImage.top + y) * static_cast<size_t>(width) +
                                static_cast<size_t>(image.rcImage.left);
            const size_t to = static_cast<size_t>(y) * static_cast<size_t>(icon.cx * n) + static_cast<size_t>(i * icon.cx);
            std::memcpy(static_cast<uint32_t*>(colourBits) + to, pixels.data() + from,
                        static_cast<size_t>(icon.cx) * sizeof(uint32_t));
            if (masks != nullptr)
                std::memcpy(static_cast<uint32_t*>(maskBits) + to, maskPixels.data() + from,
                            static_cast<size_t>(icon.cx) * sizeof(uint32_t));
        }
    }
    int index = -1;
    if (ok) {
        ::GdiFlush();
        // A 32-bit mask is turned into a monochrome one by the list.
        index = m_imageList.Add(colours, masks);
    }
    if (colours != nullptr) ::DeleteObject(colours);
    if (masks != nullptr) ::DeleteObject(masks);
    if (index < 0) return FALSE;
    for (int i = 0; i < n; ++i) m_commandImages[imports[static_cast<size_t>(i)].first] = index + i;
    return TRUE;
}

void CCoolMenuMgr::AddImageAsIcon(const CImageList& list, UINT id, int image) {
    HICON icon = list.GetIcon(image, ILD_TRANSPARENT);
    if (icon == nullptr) return;
    ICONINFO info = {};
    if (::GetIconInfo(icon, &info)) {
        const int index = m_imageList.Add(info.hbmColor, info.hbmMask);
        if (index >= 0) m_commandImages[id] = index;
        if (info.hbmColor != nullptr) ::DeleteObject(info.hbmColor);
        if (info.hbmMask != nullptr) ::DeleteObject(info.hbmMask);
    }
    ::DestroyIcon(icon);
}

BOOL CCoolMenuMgr::AddMaskedMenuButton(HBITMAP bitmap, COLORREF mask, UINT commandId) {
    if (bitmap == nullptr || !m_imageList.IsValid()) return FALSE;
    CBitmap masked = CBitmap::FromHbitmap(bitmap)->GetMasked(mask);
    const CSize icon = m_imageList.GetIconSize();
    if (!(masked.GetSize() == icon)) masked = masked.GetStretched(icon.cx, icon.cy, TRUE);
    const int index = m_imageList.Add(masked.GetHbitmap(), nullptr);
    if (index < 0 || m_commandImages.count(commandId) != 0) return FALSE;
    m_commandImages[commandId] = index;
    return TRUE;
}

BOOL CCoolMenuMgr::AddMaskedMenuButton(UINT bitmapId, COLORREF mask, UINT commandId, HINSTANCE instance) {
    CBitmap bitmap(bitmapId, CResourceLoader::ResolveInstance(instance));
    if (bitmap.GetHbitmap() == nullptr) throw CResourceNotFoundException(bitmapId);
    return AddMaskedMenuButton(bitmap.GetHbitmap(), mask, commandId);
}

BOOL CCoolMenuMgr::AddMaskedMenuButton(UINT id, const wchar_t* type, COLORREF mask, UINT commandId,
                                       HINSTANCE instance) {
    CBitmap bitmap(id, type, CResourceLoader::ResolveInstance(instance));
    if (bitmap.GetHbitmap() == nullptr) throw CResourceNotFoundException(id);
    return AddMaskedMenuButton(bitmap.GetHbitmap(), mask, commandId);
}

}  // namespace Velkan
