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
