#pragma once

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// An absolute URL split into scheme, host, port, path, query and fragment,
/// as written: no decoding, no normalisation, no default port. A parsed URI
/// has all six parts non-null, empty where the URL has none.
class VELKAN_API CUri {
public:
    /// An empty URI (all parts null), copied and moved as a value.
    ///@{
    CUri() = default;
    CUri(const CUri&) = default;
    CUri(CUri&&) noexcept = default;
    CUri& operator=(const CUri&) = default;
    CUri& operator=(CUri&&) noexcept = default;
    ~CUri() = default;
    ///@}

    /// Splits text into its parts. Throws std::invalid_argument("Invalid
    /// Uri") unless the whole text is
    /// `scheme://host[:digits][/path][?query][#fragment]`.
    static CUri Parse(const wchar_t* text);

    /// The part of that name, without its separator; empty where the URL has
    /// none.
    ///@{
    const CString& GetScheme() const { return m_scheme; }
    const CString& GetHost() const { return m_host; }
    const CString& GetPort() const { return m_port; }
    const CString& GetPath() const { return m_path; }
    const CString& GetQuery() const { return m_query; }
    const CString& GetFragment() const { return m_fragment; }
    ///@}
    /// The request target: path, then "?" and the query when there is one.
    CString GetPathAndQuery() const;

private:
    CString m_scheme;
    CString m_host;
    CString m_port;
    CString m_path;
    CString m_query;
    CString m_fragment;
};

}  // namespace Velkan
