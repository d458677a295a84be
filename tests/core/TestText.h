#pragma once

#include <ostream>
#include <string>

#include "velkan/core/String.h"

// Lets GoogleTest print CString values in failure messages.
namespace Velkan {
inline void PrintTo(const CString& s, std::ostream* os) {
    if (s.IsNull()) {
        *os << "<null>";
    } else {
        *os << '"' << static_cast<std::string>(s) << '"';
    }
}
}  // namespace Velkan

namespace Testing {
// The text of a string for comparisons, "<null>" for the null string.
inline std::wstring W(const Velkan::CString& s) {
    return s.IsNull() ? std::wstring(L"<null>") : std::wstring(s.GetString(), static_cast<size_t>(s.GetLength()));
}
}  // namespace Testing
