#include "velkan/frame/Toolbar.h"

#include <cwchar>

#include "velkan/app/App.h"
#include "velkan/core/Resource.h"
#include "velkan/core/detail/StructSize.h"
#include "velkan/gfx/Bitmap.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/SvgImage.h"

namespace Velkan {

VELKAN_X86_SIZE(TBBUTTON, 20);

namespace {

// WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NODIVIDER |
// CCS_NORESIZE.
constexpr DWORD kToolbarStyle = 0x50000944;

}  // namespace

CToolbar::CToolbar(HINSTANCE instance)
    : m_instance(CResourceLoader::ResolveInstance(instance)), m_imageList(ILC_COLOR32 | ILC_MASK), m_tooltip(*this) {}

void CToolbar::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = TOOLBARCLASSNAMEW;
}

void CToolbar::PreCreate(CREATESTRUCTW& cs) {
    cs.style = static_cast<LONG>(kToolbarStyle);
}

int CToolbar::ParentDpi(CWnd* parent) const {
    return parent != nullptr ? parent->GetDpi() : CWnd::GetDesktopWindow()->GetDpi();
}

HWND CToolbar::CreateWithImages(TBBUTTON* buttons, int count) {
    SetImageList(m_imageList.GetHimageList());
    AddButtons(buttons, count);
    return m_hwnd;
}

HWND CToolbar::Create(CWnd* parent, CBitmapBundle& images, TBBUTTON* buttons, int count, int cx) {
    m_instance = images.GetInstance();
    if (CWnd::Create(parent) == nullptr) return nullptr;
    SetButtonStructSize(sizeof(TBBUTTON));
    SetExtendedStyles(TBSTYLE_EX_DRAWDDARROWS);
    m_imageList.Create(images, ParentDpi(parent), cx, 5);
    return CreateWithImages(buttons, count);
}

HWND CToolbar::Create(CWnd* parent, CSvgImage& images, TBBUTTON* buttons, int count, int cx, HINSTANCE instance) {
    m_instance = CResourceLoader::ResolveInstance(instance);
    if (CWnd::Create(parent) == nullptr) return nullptr;
    SetButtonStructSize(sizeof(TBBUTTON));
    SetExtendedStyles(TBSTYLE_EX_DRAWDDARROWS);
    m_imageList.Create(images, ParentDpi(parent), cx, 5);
    return CreateWithImages(buttons, count);
}

HWND CToolbar::Create(CWnd* parent, UINT bitmapId, TBBUTTON* buttons, int count, HINSTANCE instance, int cx) {
    CBitmapBundle bundle({bitmapId}, instance);
    return Create(parent, bundle, buttons, count, cx);
}

HWND CToolbar::Create(CWnd* parent, UINT imageId, const wchar_t* type, TBBUTTON* buttons, int count,
                      HINSTANCE instance, int cx) {
    CBitmapBundle bundle(type, {imageId}, instance);
    return Create(parent, bundle, buttons, count, cx);
}

int CToolbar::AddMaskedButtonImage(HBITMAP bitmap, COLORREF mask) {
    CImageList* list = CImageList::FromHimageList(GetImageList());
    if (bitmap == nullptr || list == nullptr) return -1;
    CBitmap masked = CBitmap::FromHbitmap(bitmap)->GetMasked(mask);
    const CSize icon = list->GetIconSize();
    if (masked.GetSize() == icon) return list->Add(masked.GetHbitmap(), nullptr);
    CBitmap stretched = masked.GetStretched(icon.cx, icon.cy, TRUE);
    return list->Add(stretched.GetHbitmap(), nullptr);
}

int CToolbar::AddMaskedButtonImage(UINT bitmapId, COLORREF mask, HINSTANCE instance) {
    CBitmap bitmap(bitmapId, CResourceLoader::ResolveInstance(instance));
    return AddMaskedButtonImage(bitmap.GetHbitmap(), mask);
}

int CToolbar::AddMaskedButtonImage(UINT id, const wchar_t* type, COLORREF mask, HINSTANCE instance) {
    CBitmap bitmap(id, type, CResourceLoader::ResolveInstance(instance));
    return AddMaskedButtonImage(bitmap.GetHbitmap(), mask);
}

CString CToolbar::GetTooltipStringFromHelpString(const CString& help) {
    const wchar_t* text = help.GetString();
    if (text == nullptr) return help;
    const wchar_t* lineFeed = std::wcschr(text, L'\n');
    return lineFeed != nullptr ? CString(lineFeed + 1) : help;
}

CString CToolbar::GetTooltipString(UINT id) const {
    CString text;
    if (!CResourceLoader::TryLoadText(id, text, m_instance)) return CString();
    return GetTooltipStringFromHelpString(text);
}

BOOL CToolbar::HandleOnTtnGetDispInfo(UINT, LPARAM nmhdr) const {
    auto* info = reinterpret_cast<NMTTDISPINFOW*>(nmhdr);
    const CString text = GetTooltipString(static_cast<UINT>(info->hdr.idFrom));
    if (text.IsNull() || text.IsEmpty()) return FALSE;
    // At most 79 characters and the terminator fit the control's buffer.
    const size_t room = sizeof(info->szText) / sizeof(info->szText[0]);
    std::wcsncpy(info->szText, text.GetString(), room - 1);
    info->szText[room - 1] = L'\0';
    return TRUE;
}

BOOL CToolbar::OnNotifyReflect(UINT, LPARAM nmhdr, LRESULT&) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header != nullptr && header->code == static_cast<UINT>(NM_TOOLTIPSCREATED)) {
        m_tooltip.SubclassWnd(reinterpret_cast<const NMTOOLTIPSCREATED*>(nmhdr)->hwndToolTips);
    }
    return FALSE;
}

BOOL CToolbar::CToolbarTooltip::OnNotifyReflect(UINT id, LPARAM nmhdr, LRESULT&) {
    const auto* header = reinterpret_cast<const NMHDR*>(nmhdr);
    if (header == nullptr || header->code != static_cast<UINT>(TTN_GETDISPINFOW)) return FALSE;
    return m_toolbar.HandleOnTtnGetDispInfo(id, nmhdr);
}

CSize CToolbar::GetButtonSize() const {
    const LRESULT size = SendMessageW(TB_GETBUTTONSIZE);
    return CSize(LOWORD(size), HIWORD(size));
}

CRect CToolbar::GetButtonRect(UINT id) const {
    CRect rect;
    SendMessageW(TB_GETRECT, id, reinterpret_cast<LPARAM>(&rect));
    return rect;
}

CRect CToolbar::GetItemRect(int index) const {
    CRect rect;
    SendMessageW(TB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

CSize CToolbar::GetMaxSize() const {
    CSize size;
    SendMessageW(TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    return size;
}

}  // namespace Velkan
