#include "MenuLooks.h"

#include <cwchar>

const wchar_t* MenuLooks::Name(Look look) {
    switch (look) {
    case Classic:
        return L"classic";
    case Themed:
        return L"themed";
    default:
        return L"visual";
    }
}

bool MenuLooks::Parse(const wchar_t* text, Look& look) {
    for (Look candidate : {Classic, Themed, VisualStyle}) {
        if (std::wcscmp(text, Name(candidate)) == 0) {
            look = candidate;
            return true;
        }
    }
    return false;
}

Velkan::ICoolMenuItemRenderer& MenuLooks::Current() {
    switch (m_look) {
    case Classic:
        return m_classic;
    case Themed:
        return m_themed;
    default:
        return m_visualStyle;
    }
}
