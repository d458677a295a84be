#include "velkan/net/QueryStringBuilder.h"

namespace Velkan {

CString HttpHeader::ToString() const {
    // The name goes through the ANSI code page, as header names are ASCII.
    CString text(name.GetCString());
    text.Append(L": ").Append(value);
    return text;
}

CQueryStringBuilder& CQueryStringBuilder::WithParam(const CString& name, const CString& value) {
    m_params.push_back(HttpHeader{name, value});
    return *this;
}

CString CQueryStringBuilder::Build() const {
    CString query(L"");
    for (const HttpHeader& param : m_params) {
        if (!query.IsEmpty()) query.Append(L'&');
        if (param.value.IsNullOrEmpty()) {
            query.AppendFormat(L"%s=", param.name.GetString());
        } else {
            query.AppendFormat(L"%s=%s", param.name.GetString(), EscapeDataString(param.value).GetString());
        }
    }
    return query;
}

CString CQueryStringBuilder::EscapeDataString(const CString& value) {
    CString escaped(L"");
    static const wchar_t kHex[] = L"0123456789ABCDEF";
    for (wchar_t unit : value) {
        const bool alnum = (unit >= L'0' && unit <= L'9') || (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
        if (alnum || unit == L'-' || unit == L'_' || unit == L'.' || unit == L'~') {
            escaped.Append(unit);
        } else if (unit <= 0xFF) {
            const wchar_t code[3] = {L'%', kHex[unit >> 4], kHex[unit & 0xF]};
            escaped.Append(code, 3);
        } else {
            // Wider units keep all their digits: "%20AC", "%E9" stays two.
            escaped.AppendFormat(L"%%%02X", static_cast<unsigned>(unit));
        }
    }
    return escaped;
}

}  // namespace Velkan
