#include "velkan/net/Uri.h"

#include <stdexcept>

namespace Velkan {

namespace {

// The URL grammar is the expression
//   ([^:/?#]+):\/\/([^:/?#]+)(?::([0-9]+))?(\/[^?#]*)?(?:\?([^#]*))?(?:#(.*))?
// matched against the whole text. Its groups never compete for a
// character (each stops where the next one's marker begins), so one pass
// from left to right, with no backtracking, finds the same six groups in
// constant stack and linear time, however long the text. A regex engine
// recurses per character and overflows the stack on long texts.

bool IsDelimiter(wchar_t c) {
    return c == L':' || c == L'/' || c == L'?' || c == L'#';
}

// What "." does not match in ECMAScript.
bool IsLineTerminator(wchar_t c) {
    return c == L'\n' || c == L'\r' || c == 0x2028 || c == 0x2029;
}

CString Part(const wchar_t* begin, const wchar_t* end) {
    return CString(begin, static_cast<int>(end - begin));
}

[[noreturn]] void Invalid() {
    throw std::invalid_argument("Invalid Uri");
}

}  // namespace

CUri CUri::Parse(const wchar_t* text) {
    if (text == nullptr) Invalid();
    const wchar_t* p = text;

    const wchar_t* scheme = p;
    while (*p != L'\0' && !IsDelimiter(*p)) ++p;
    if (p == scheme || p[0] != L':' || p[1] != L'/' || p[2] != L'/') Invalid();
    CUri uri;
    uri.m_scheme = Part(scheme, p);
    p += 3;

    const wchar_t* host = p;
    while (*p != L'\0' && !IsDelimiter(*p)) ++p;
    if (p == host) Invalid();
    uri.m_host = Part(host, p);

    const wchar_t* port = p;
    if (*p == L':') {
        port = ++p;
        // Decimal digits only: not the digits of other scripts.
        while (*p >= L'0' && *p <= L'9') ++p;
        if (p == port) Invalid();
    }
    uri.m_port = Part(port, p);

    const wchar_t* path = p;
    if (*p == L'/') {
        while (*p != L'\0' && *p != L'?' && *p != L'#') ++p;
    }
    uri.m_path = Part(path, p);

    const wchar_t* query = p;
    if (*p == L'?') {
        query = ++p;
        while (*p != L'\0' && *p != L'#') ++p;
    }
    uri.m_query = Part(query, p);

    const wchar_t* fragment = p;
    if (*p == L'#') {
        fragment = ++p;
        while (*p != L'\0' && !IsLineTerminator(*p)) ++p;
    }
    uri.m_fragment = Part(fragment, p);

    // Anything left over (a second port, a line break in the fragment, ...)
    // means the whole text does not match.
    if (*p != L'\0') Invalid();
    return uri;
}

CString CUri::GetPathAndQuery() const {
    CString target(m_path.IsNull() ? CString(L"") : m_path);
    if (m_query.GetLength() > 0) target.Append(L'?').Append(m_query);
    return target;
}

}  // namespace Velkan
