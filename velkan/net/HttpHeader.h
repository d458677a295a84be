#pragma once

#include <set>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// One header (or query parameter): a name and a value.
struct VELKAN_API HttpHeader {
    CString name;  ///< The name.
    CString value;  ///< The value.

    /// "name: value"; the name is taken through the ANSI code page, so
    /// names are meant to be plain ASCII.
    CString ToString() const;
};

/// Orders names without regard to case: a set holds each name once, and the
/// first header inserted under a name keeps its value.
struct VELKAN_API HttpHeaderComparator {
    /// A's name sorts before b's, ignoring case.
    bool operator()(const HttpHeader& a, const HttpHeader& b) const { return a.name.Compare(b.name, true) < 0; }
};

/// Headers, each name once regardless of case.
using HttpHeaderSet = std::set<HttpHeader, HttpHeaderComparator>;

}  // namespace Velkan
