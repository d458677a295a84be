#include "velkan/net/Uri.h"

#include <regex>
#include <stdexcept>

namespace Velkan {

namespace {

// Built once per process; the static's initialisation is thread-safe and
// the expression is only read afterwards.
const std::wregex& UriExpression() {
    static const std::wregex expression(
        L"([^:/?#]+):\\/\\/([^:/?#]+)(?::(\\d+))?(\\/[^?#]*)?(?:\\?([^#]*))?(?:#(.*))?",
        std::regex_constants::ECMAScript);
    return expression;
}

CString Group(const std::wcmatch& match, size_t index) {
    if (!match[index].matched) return CString(L"");
    return CString(match[index].first, static_cast<int>(match[index].length()));
}

}  // namespace

CUri CUri::Parse(const wchar_t* text) {
    std::wcmatch match;
    if (text == nullptr || !std::regex_match(text, match, UriExpression())) throw std::invalid_argument("Invalid Uri");
    CUri uri;
    uri.m_scheme = Group(match, 1);
    uri.m_host = Group(match, 2);
    uri.m_port = Group(match, 3);
    uri.m_path = Group(match, 4);
    uri.m_query = Group(match, 5);
    uri.m_fragment = Group(match, 6);
    return uri;
}

CString CUri::GetPathAndQuery() const {
    CString target(m_path.IsNull() ? CString(L"") : m_path);
    if (m_query.GetLength() > 0) target.Append(L'?').Append(m_query);
    return target;
}

}  // namespace Velkan
