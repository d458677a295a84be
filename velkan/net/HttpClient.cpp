#include "velkan/net/HttpClient.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "velkan/core/Exceptions.h"

namespace Velkan {

namespace {

const unsigned long kSizeCapError = 1344;
const char kSizeCapMessage[] = "Content length exceeded maximum configured";

// Closes a WinINet handle on every path out of an exchange.
class InternetHandle {
public:
    explicit InternetHandle(HINTERNET handle) : m_handle(handle) {}
    ~InternetHandle() {
        if (m_handle != nullptr) ::InternetCloseHandle(m_handle);
    }
    InternetHandle(const InternetHandle&) = delete;
    InternetHandle& operator=(const InternetHandle&) = delete;
    HINTERNET Get() const { return m_handle; }

private:
    HINTERNET m_handle;
};

[[noreturn]] void ThrowLastError() {
    throw CHttpRequestException(CWin32Error());
}

// Calls query with a one-unit buffer first and again with the size the
// system asks for when it reports ERROR_INSUFFICIENT_BUFFER.
template <typename Query>
bool QueryGrowing(std::vector<wchar_t>& buffer, Query query) {
    buffer.assign(1, L'\0');
    DWORD bytes = sizeof(wchar_t);
    if (query(buffer.data(), bytes)) return true;
    if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER) return false;
    buffer.assign(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
    return query(buffer.data(), bytes);
}

}  // namespace

// ---------------------------------------------------------------------------
// Request and response

CHttpRequest::CHttpRequest(const CUri& uri, const CString& method) : m_uri(uri), m_method(method) {}

CHttpRequest& CHttpRequest::AddHeader(const CString& name, const CString& value) {
    m_headers.insert(HttpHeader{name, value});
    return *this;
}

CHttpRequest& CHttpRequest::AddHeaders(const HttpHeaderSet& headers) {
    m_headers.insert(headers.begin(), headers.end());
    return *this;
}

void CHttpRequest::SetBody(const void* data, unsigned long size) {
    m_body = data;
    m_bodySize = size;
}

CHttpResponse::CHttpResponse() : m_body(std::make_unique<std::vector<unsigned char>>()) {}

CString CHttpResponse::ReadAsString() const {
    CString text;
    text.SetFromUtf8String(reinterpret_cast<const char*>(GetBody()), static_cast<int>(GetBodySize()));
    if (text.IsNull()) text = L"";
    return text;
}

// ---------------------------------------------------------------------------
// Client configuration and verbs

CHttpClient::CHttpClient()
    : m_userAgent(L"velkan/1.0"), m_readChunkSize(4096), m_maxResponseSize(0xA00000) {}

CHttpClient::CHttpClient(const CString& baseUrl) : CHttpClient() {
    SetBaseUrl(baseUrl);
}

void CHttpClient::SetBaseUrl(const CString& url) {
    m_baseUri = CUri::Parse(url.GetString());
}

CHttpClient& CHttpClient::AddDefaultHeader(const CString& name, const CString& value) {
    m_defaultHeaders.insert(HttpHeader{name, value});
    return *this;
}

CUri CHttpClient::MakeAbsoluteUri(const CString& url) const {
    CString text(m_baseUri.GetScheme());
    text.Append(L"://").Append(m_baseUri.GetHost());
    if (!m_baseUri.GetPort().IsNullOrEmpty()) text.Append(L':').Append(m_baseUri.GetPort());
    if (!m_baseUri.GetPath().IsNullOrEmpty()) text.Append(m_baseUri.GetPath());
    // Glued as written: no separator is added or removed.
    text.Append(url);
    return CUri::Parse(text.GetString());
}

CHttpRequest CHttpClient::CreateHttpRequest(const CString& url, const CString& method) const {
    CHttpRequest request(MakeAbsoluteUri(url), method);
    request.AddHeaders(m_defaultHeaders);
    return request;
}

CHttpResponse CHttpClient::Get(const CString& url) const {
    return SendRequest(CreateHttpRequest(url, L"GET"));
}

CHttpResponse CHttpClient::Delete(const CString& url) const {
    return SendRequest(CreateHttpRequest(url, L"DELETE"));
}

CHttpResponse CHttpClient::SendWithBody(const CString& url, const CString& method, const CString& contentType,
                                        const CString& body) const {
    CHttpRequest request = CreateHttpRequest(url, method);
    // After the defaults: a default Content-Type wins.
    request.AddHeader(L"Content-Type", contentType);
    const char* utf8 = body.GetUtf8String();
    request.SetBody(utf8, utf8 != nullptr ? static_cast<unsigned long>(std::strlen(utf8)) : 0);
    return SendRequest(request);
}

CHttpResponse CHttpClient::Post(const CString& url, const CString& contentType, const CString& body) const {
    return SendWithBody(url, L"POST", contentType, body);
}

CHttpResponse CHttpClient::Put(const CString& url, const CString& contentType, const CString& body) const {
    return SendWithBody(url, L"PUT", contentType, body);
}

CHttpResponse CHttpClient::Patch(const CString& url, const CString& contentType, const CString& body) const {
    return SendWithBody(url, L"PATCH", contentType, body);
}

CHttpResponse CHttpClient::PostAsJson(const CString& url, const CString& body) const {
    return Post(url, L"application/json", body);
}

CHttpResponse CHttpClient::PutAsJson(const CString& url, const CString& body) const {
    return Put(url, L"application/json", body);
}

CHttpResponse CHttpClient::PatchAsJson(const CString& url, const CString& body) const {
    return Patch(url, L"application/json", body);
}

// ---------------------------------------------------------------------------
// The exchange

CString CHttpClient::GetHeadersAsString(const HttpHeaderSet& headers) {
    CString block(L"");
    for (const HttpHeader& header : headers) {
        if (!block.IsEmpty()) block.Append(L"\r\n");
        block.Append(header.ToString());
    }
    return block;
}

bool CHttpClient::QueryInfo(HINTERNET request, DWORD infoLevel, CString& out) {
    std::vector<wchar_t> buffer;
    const bool ok = QueryGrowing(buffer, [&](wchar_t* data, DWORD& bytes) {
        return ::HttpQueryInfoW(request, infoLevel, data, &bytes, nullptr) != FALSE;
    });
    if (!ok) {
        out.SetNull();
        return false;
    }
    out = buffer.data();
    return true;
}

int CHttpClient::QueryStatusCode(HINTERNET request) {
    CString text;
    return QueryInfo(request, HTTP_QUERY_STATUS_CODE, text) ? _wtoi(text.GetString()) : -1;
}

unsigned long CHttpClient::QueryContentLength(HINTERNET request) {
    CString text;
    return QueryInfo(request, HTTP_QUERY_CONTENT_LENGTH, text) ? static_cast<unsigned long>(_wtoi(text.GetString())) : 0;
}

CWin32Error CHttpClient::QueryResponseError() const {
    std::vector<wchar_t> buffer;
    DWORD code = 0;
    const bool ok = QueryGrowing(buffer, [&](wchar_t* data, DWORD& bytes) {
        DWORD units = bytes / sizeof(wchar_t);
        BOOL result = ::InternetGetLastResponseInfoW(&code, data, &units);
        bytes = units * sizeof(wchar_t);
        return result != FALSE;
    });
    if (!ok) return CWin32Error(::GetLastError(), nullptr);
    CString text(buffer.data());
    return CWin32Error(code, text.Trim().GetString());
}

CHttpResponse CHttpClient::SendRequest(CHttpRequest request) const {
    CHttpResponse response;
    InternetHandle root(::InternetOpenW(m_userAgent.GetString(), INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    if (root.Get() == nullptr) ThrowLastError();

    const CUri& uri = request.GetRequestUri();
    const bool secure = uri.GetScheme() == L"https";  // case-sensitive on purpose
    INTERNET_PORT port;
    if (uri.GetPort().IsNullOrEmpty()) {
        port = secure ? INTERNET_DEFAULT_HTTPS_PORT : INTERNET_DEFAULT_HTTP_PORT;
    } else {
        port = static_cast<INTERNET_PORT>(_wtoi(uri.GetPort().GetString()));
    }
    // Not tested here: a failed connection fails the request below.
    InternetHandle connection(::InternetConnectW(root.Get(), uri.GetHost().GetString(), port, nullptr, nullptr,
                                                 INTERNET_SERVICE_HTTP, 0, 0));

    DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_COOKIES |
                  INTERNET_FLAG_PRAGMA_NOCACHE;
    if (secure) flags |= INTERNET_FLAG_SECURE;
    const CString target = uri.GetPathAndQuery();
    InternetHandle handle(::HttpOpenRequestW(connection.Get(), request.GetMethod().GetString(), target.GetString(),
                                             nullptr, nullptr, nullptr, flags, 0));
    if (handle.Get() == nullptr) ThrowLastError();

    const CString headers = GetHeadersAsString(request.GetHeaders());
    const bool noHeaders = headers.IsNullOrEmpty();
    if (!::HttpSendRequestW(handle.Get(), noHeaders ? nullptr : headers.GetString(),
                            noHeaders ? 0 : static_cast<DWORD>(headers.GetLength()),
                            const_cast<void*>(request.GetBody()), request.GetBodySize())) {
        ThrowLastError();
    }

    response.m_statusCode = QueryStatusCode(handle.Get());
    response.m_contentLength = QueryContentLength(handle.Get());
    QueryInfo(handle.Get(), HTTP_QUERY_STATUS_TEXT, response.m_statusText);
    QueryInfo(handle.Get(), HTTP_QUERY_CONTENT_TYPE, response.m_contentType);
    if (response.m_contentLength > m_maxResponseSize) throw CHttpRequestException(kSizeCapError, kSizeCapMessage);
    response.m_body->reserve(response.m_contentLength);

    CString raw;
    if (QueryInfo(handle.Get(), HTTP_QUERY_RAW_HEADERS_CRLF, raw)) {
        const std::vector<CString> lines = raw.Split(L"\r\n");
        // The first line is the status line; the block ends at an empty one.
        for (size_t i = 1; i < lines.size() && !lines[i].IsEmpty(); ++i) {
            const int colon = lines[i].IndexOf(L": ");
            if (colon < 0) continue;
            CString name = lines[i].Substring(0, colon);
            CString value = lines[i].Substring(colon + 1);
            response.m_headers.insert(HttpHeader{name.Trim(), value.Trim()});
        }
    }

    std::vector<unsigned char> chunk(m_readChunkSize, 0);
    for (;;) {
        DWORD read = 0;
        if (!::InternetReadFile(handle.Get(), chunk.data(), m_readChunkSize, &read) || read == 0) break;
        response.m_body->insert(response.m_body->end(), chunk.data(), chunk.data() + read);
        // Checked after the append: a body of exactly the cap is fine.
        if (response.m_body->size() > m_maxResponseSize) throw CHttpRequestException(kSizeCapError, kSizeCapMessage);
    }

    const CWin32Error error = QueryResponseError();
    if (error.GetErrorCode() != 0) throw CHttpRequestException(error);
    return response;
}

}  // namespace Velkan
