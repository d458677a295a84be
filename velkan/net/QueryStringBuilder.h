#pragma once

#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"
#include "velkan/net/HttpHeader.h"

namespace Velkan {

/// Builds `a=1&b=x%20y` from name and value pairs in the order added
/// (duplicates kept). Names are written as given; values are encoded unit by
/// unit: `%` and at least two upper-case hex digits of each UTF-16 unit
/// that is not a letter, digit or one of `-_.~` (so U+20AC is `%20AC`, not
/// its UTF-8 bytes).
class VELKAN_API CQueryStringBuilder {
public:
    /// An empty builder, copied and moved as a value.
    ///@{
    CQueryStringBuilder() = default;
    CQueryStringBuilder(const CQueryStringBuilder&) = default;
    CQueryStringBuilder(CQueryStringBuilder&&) noexcept = default;
    CQueryStringBuilder& operator=(const CQueryStringBuilder&) = default;
    CQueryStringBuilder& operator=(CQueryStringBuilder&&) noexcept = default;
    ~CQueryStringBuilder() = default;
    ///@}

    /// Adds a pair after the others.
    CQueryStringBuilder& WithParam(const CString& name, const CString& value);
    /// The query string. Without a leading "?".
    CString Build() const;

private:
    static CString EscapeDataString(const CString& value);

    std::vector<HttpHeader> m_params;
};

}  // namespace Velkan
