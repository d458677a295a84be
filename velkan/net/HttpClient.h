#pragma once

#include <windows.h>
#include <wininet.h>

#include <memory>
#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"
#include "velkan/core/Win32Error.h"
#include "velkan/net/HttpHeader.h"
#include "velkan/net/Uri.h"

namespace Velkan {

/// One request: an absolute URI, a method, headers and an optional body the
/// caller keeps alive until the request is sent.
class VELKAN_API CHttpRequest {
public:
    CHttpRequest(const CUri& uri, const CString& method);  ///< A request without headers or body.
    /// Copies share the caller's body.
    ///@{
    CHttpRequest(const CHttpRequest&) = default;
    CHttpRequest(CHttpRequest&&) noexcept = default;
    CHttpRequest& operator=(const CHttpRequest&) = default;
    CHttpRequest& operator=(CHttpRequest&&) noexcept = default;
    ///@}

    void SetRequestUri(const CUri& uri) { m_uri = uri; }  ///< The absolute URI.
    const CUri& GetRequestUri() const { return m_uri; }  ///< See SetRequestUri.
    void SetMethod(const CString& method) { m_method = method; }  ///< The method, such as "GET".
    const CString& GetMethod() const { return m_method; }  ///< See SetMethod.
    /// Adds a header, or each header of a set. Names already present (in
    /// any letter case) keep their value.
    ///@{
    CHttpRequest& AddHeader(const CString& name, const CString& value);
    CHttpRequest& AddHeaders(const HttpHeaderSet& headers);
    ///@}
    const HttpHeaderSet& GetHeaders() const { return m_headers; }  ///< The headers.
    /// The body, kept as a pointer: the caller keeps it alive.
    void SetBody(const void* data, unsigned long size);
    const void* GetBody() const { return m_body; }  ///< The body, or null.
    unsigned long GetBodySize() const { return m_bodySize; }  ///< The body's size in bytes.

private:
    CUri m_uri;
    CString m_method;
    HttpHeaderSet m_headers;
    const void* m_body = nullptr;
    unsigned long m_bodySize = 0;
};

/// A complete, buffered response. Moving it moves the body without a copy.
class VELKAN_API CHttpResponse {
public:
    CHttpResponse();  ///< An empty response, status -1.
    /// Moves take the body over.
    ///@{
    CHttpResponse(CHttpResponse&&) noexcept = default;
    CHttpResponse& operator=(CHttpResponse&&) noexcept = default;
    ///@}
    /// Not copyable.
    ///@{
    CHttpResponse(const CHttpResponse&) = delete;
    CHttpResponse& operator=(const CHttpResponse&) = delete;
    ///@}

    /// The HTTP status, or -1 when it could not be read.
    int GetStatusCode() const { return m_statusCode; }
    const CString& GetStatusText() const { return m_statusText; }  ///< The status line's text.
    /// The Content-Length header. 0 when the server sent no Content-Length.
    unsigned long GetContentLength() const { return m_contentLength; }
    const CString& GetContentType() const { return m_contentType; }  ///< The Content-Type header.
    const HttpHeaderSet& GetHeaders() const { return m_headers; }  ///< The response headers.
    /// The body's bytes.
    const unsigned char* GetBody() const { return m_body ? m_body->data() : nullptr; }
    /// The body's size in bytes.
    size_t GetBodySize() const { return m_body ? m_body->size() : 0; }
    /// The body decoded as UTF-8; empty, not null, when it does not decode.
    CString ReadAsString() const;
    /// The status is 200 to 299.
    bool Succeeded() const { return m_statusCode >= 200 && m_statusCode <= 299; }

private:
    friend class CHttpClient;

    int m_statusCode = -1;
    CString m_statusText;
    unsigned long m_contentLength = 0;
    CString m_contentType;
    HttpHeaderSet m_headers;
    std::unique_ptr<std::vector<unsigned char>> m_body;
};

/// Synchronous HTTP and HTTPS over WinINet. Verbs take a URL glued to the
/// base URL as written (base "/api" + "items" gives "/apiitems"). Transport
/// failures throw CHttpRequestException; HTTP error statuses do not. Every
/// exchange opens and closes its own handles.
class VELKAN_API CHttpClient {
public:
    CHttpClient();  ///< No base URL; user agent "velkan/1.0"; responses up to 10 MiB.
    explicit CHttpClient(const CString& baseUrl);  ///< With a base URL (see SetBaseUrl).
    /// Copies share nothing: each exchange has its own handles.
    ///@{
    CHttpClient(const CHttpClient&) = default;
    CHttpClient(CHttpClient&&) noexcept = default;
    CHttpClient& operator=(const CHttpClient&) = default;
    CHttpClient& operator=(CHttpClient&&) noexcept = default;
    ///@}

    /// The base URL, parsed; throws std::invalid_argument when it is not
    /// absolute.
    void SetBaseUrl(const CString& url);
    const CUri& GetBaseUri() const { return m_baseUri; }  ///< See SetBaseUrl.
    /// The User-Agent of new exchanges.
    void SetUserAgent(const CString& userAgent) { m_userAgent = userAgent; }
    const CString& GetUserAgent() const { return m_userAgent; }  ///< See SetUserAgent.
    /// The largest body accepted, in bytes. Larger responses fail with
    /// code 1344; exactly this size succeeds.
    void SetMaxResponseSize(unsigned int bytes) { m_maxResponseSize = bytes; }
    /// See SetMaxResponseSize.
    unsigned int GetMaxResponseSize() const { return m_maxResponseSize; }
    /// A header every request gets; the first value given for a name stays.
    CHttpClient& AddDefaultHeader(const CString& name, const CString& value);

    /// GET or DELETE of the base URL followed by url.
    ///@{
    CHttpResponse Get(const CString& url) const;
    CHttpResponse Delete(const CString& url) const;
    ///@}
    /// POST, PUT or PATCH of a body with its Content-Type (a default
    /// Content-Type header wins), or as "application/json". Bodies are sent
    /// as UTF-8.
    ///@{
    CHttpResponse Post(const CString& url, const CString& contentType, const CString& body) const;
    CHttpResponse Put(const CString& url, const CString& contentType, const CString& body) const;
    CHttpResponse Patch(const CString& url, const CString& contentType, const CString& body) const;
    CHttpResponse PostAsJson(const CString& url, const CString& body) const;
    CHttpResponse PutAsJson(const CString& url, const CString& body) const;
    CHttpResponse PatchAsJson(const CString& url, const CString& body) const;
    ///@}

    /// Sends a request as it is and reads the whole response.
    CHttpResponse SendRequest(CHttpRequest request) const;

private:
    CHttpRequest CreateHttpRequest(const CString& url, const CString& method) const;
    CHttpResponse SendWithBody(const CString& url, const CString& method, const CString& contentType,
                               const CString& body) const;
    CUri MakeAbsoluteUri(const CString& url) const;
    static CString GetHeadersAsString(const HttpHeaderSet& headers);
    static bool QueryInfo(HINTERNET request, DWORD infoLevel, CString& out);
    static int QueryStatusCode(HINTERNET request);
    static unsigned long QueryContentLength(HINTERNET request);
    CWin32Error QueryResponseError() const;

    CUri m_baseUri;
    CString m_userAgent;
    unsigned int m_readChunkSize;
    unsigned int m_maxResponseSize;
    HttpHeaderSet m_defaultHeaders;
};

}  // namespace Velkan
