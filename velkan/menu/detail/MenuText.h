#pragma once

#include <string>

namespace Velkan {
namespace Detail {

// An item text as the renderers measure it: each tab (between label and
// accelerator) counts as the two letters "MM".
inline std::wstring TabsAsMM(const wchar_t* text) {
    std::wstring measured;
    for (const wchar_t* p = text != nullptr ? text : L""; *p != L'\0'; ++p) {
        if (*p == L'\t')
            measured += L"MM";
        else
            measured += *p;
    }
    return measured;
}

// The label before the first tab and the accelerator after it (empty
// without a tab).
inline void SplitMenuText(const wchar_t* text, std::wstring& label, std::wstring& accelerator) {
    const std::wstring all = text != nullptr ? text : L"";
    const size_t tab = all.find(L'\t');
    label = all.substr(0, tab);
    accelerator = tab == std::wstring::npos ? std::wstring() : all.substr(tab + 1);
}

}  // namespace Detail
}  // namespace Velkan
