#include "velkan/controls/Control.h"

namespace Velkan {

HWND CControl::Create(CWnd& parent, UINT id, const RECT& rect, DWORD style, DWORD exStyle) {
    return CreateEx(exStyle, m_className, nullptr, WS_CHILD | WS_VISIBLE | style, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, &parent,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)));
}

void CControl::PreRegisterWndClass(WNDCLASSEXW& wc) {
    wc.lpszClassName = m_className;
}

}  // namespace Velkan
