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

// One request: an absolute URI, a method, headers and an optional body the
// caller keeps alive until the request is sent.
class VELKAN_API CHttpRequest {
public:
    CHttpRequest(const CUri& uri, const CString& method);
    CHttpRequest(const CHttpRequest&) = default;
    CHttpRequest(CHttpRequest&&) noexcept = default;
    CHttpRequest& operator=(const CHttpRequest&) = default;
    CHttpRequest& operator=(CHttpRequest&&) noexcept = default;

    void SetRequestUri(const CUri& uri) { m_uri = uri; }
    const CUri& GetRequestUri() const { return m_uri; }
    void SetMethod(const CString& method) { m_method = method; }
    const CString& GetMethod() const { return m_method; }
    // Names already present (in any letter case) keep their value.
    CHttpRequest& AddHeader(const CString& name, const CString& value);
    CHttpRequest& AddHeaders(const HttpHeaderSet& headers);
    const HttpHeaderSet& GetHeaders() const { return m_headers; }
    void SetBody(const void* data, unsigned long size);
    const void* GetBody() const { return m_body; }
    unsigned long GetBodySize() const { return m_bodySize; }

private:
    CUri m_uri;
    CString m_method;
    HttpHeaderSet m_headers;
    const void* m_body = nullptr;
    unsigned long m_bodySize = 0;
};

// A complete, buffered response. Moving it moves the body without a copy.
class VELKAN_API CHttpResponse {
public:
    CHttpResponse();
    CHttpResponse(CHttpResponse&&) noexcept = default;
    CHttpResponse& operator=(CHttpResponse&&) noexcept = default;
    CHttpResponse(const CHttpResponse&) = delete;
    CHttpResponse& operator=(const CHttpResponse&) = delete;

    int GetStatusCode() const { return m_statusCode; }
    const CString& GetStatusText() const { return m_statusText; }
    // 0 when the server sent no Content-Length.
    unsigned long GetContentLength() const { return m_contentLength; }
    const CString& GetContentType() const { return m_contentType; }
    const HttpHeaderSet& GetHeaders() const { return m_headers; }
    const unsigned char* GetBody() const { return m_body ? m_body->data() : nullptr; }
    size_t GetBodySize() const { return m_body ? m_body->size() : 0; }
    // The body decoded as UTF-8.
    CString ReadAsString() const;
    // 200 to 299.
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

// Synchronous HTTP and HTTPS over WinINet. Verbs take a URL glued to the
// base URL as written (base "/api" + "items" gives "/apiitems"). Transport
// failures throw CHttpRequestException; HTTP error statuses do not. Every
// exchange opens and closes its own handles.
class VELKAN_API CHttpClient {
public:
    CHttpClient();
    explicit CHttpClient(const CString& baseUrl);
    CHttpClient(const CHttpClient&) = default;
    CHttpClient(CHttpClient&&) noexcept = default;
    CHttpClient& operator=(const CHttpClient&) = default;
    CHttpClient& operator=(CHttpClient&&) noexcept = default;

    void SetBaseUrl(const CString& url);
    const CUri& GetBaseUri() const { return m_baseUri; }
    void SetUserAgent(const CString& userAgent) { m_userAgent = userAgent; }
    const CString& GetUserAgent() const { return m_userAgent; }
    // Larger responses fail with code 1344; exactly this size succeeds.
    void SetMaxResponseSize(unsigned int bytes) { m_maxResponseSize = bytes; }
    unsigned int GetMaxResponseSize() const { return m_maxResponseSize; }
    CHttpClient& AddDefaultHeader(const CString& name, const CString& value);

    CHttpResponse Get(const CString& url) const;
    CHttpResponse Delete(const CString& url) const;
    // Bodies are sent as UTF-8.
    CHttpResponse Post(const CString& url, const CString& contentType, const CString& body) const;
    CHttpResponse Put(const CString& url, const CString& contentType, const CString& body) const;
    CHttpResponse Patch(const CString& url, const CString& contentType, const CString& body) const;
    CHttpResponse PostAsJson(const CString& url, const CString& body) const;
    CHttpResponse PutAsJson(const CString& url, const CString& body) const;
    CHttpResponse PatchAsJson(const CString& url, const CString& body) const;

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
