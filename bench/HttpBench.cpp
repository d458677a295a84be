#include <winsock2.h>

#include "HttpBench.h"

#include <windows.h>
#include <wininet.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "velkan/net/HttpClient.h"
#include "velkan/net/Uri.h"

using namespace Velkan;

namespace Bench {

namespace {

const size_t kBigBody = 10u << 20;

// A one-thread HTTP/1.1 server: "/big" answers 10 MiB, anything else two
// bytes; every response closes its connection.
class LoopbackServer {
public:
    LoopbackServer() : m_body(kBigBody, 'b') {
        WSADATA data;
        ::WSAStartup(MAKEWORD(2, 2), &data);
        m_listener = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(m_listener, reinterpret_cast<sockaddr*>(&address), sizeof(address));
        ::listen(m_listener, 64);
        int length = sizeof(address);
        ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length);
        m_port = ntohs(address.sin_port);
        m_thread = std::thread([this] { Serve(); });
    }
    ~LoopbackServer() {
        m_stop = true;
        ::closesocket(m_listener);
        m_thread.join();
        ::WSACleanup();
    }
    int Port() const { return m_port; }

private:
    void Serve() {
        while (!m_stop) {
            SOCKET client = ::accept(m_listener, nullptr, nullptr);
            if (client == INVALID_SOCKET) break;
            std::string request;
            char buffer[4096];
            while (request.find("\r\n\r\n") == std::string::npos) {
                int got = ::recv(client, buffer, sizeof(buffer), 0);
                if (got <= 0) break;
                request.append(buffer, static_cast<size_t>(got));
            }
            const bool big = request.compare(0, 9, "GET /big ") == 0;
            const size_t size = big ? m_body.size() : 2;
            std::string head = "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\nContent-Length: " +
                               std::to_string(size) + "\r\nConnection: close\r\n\r\n";
            ::send(client, head.data(), static_cast<int>(head.size()), 0);
            for (size_t sent = 0; sent < size;) {
                int n = ::send(client, m_body.data() + sent, static_cast<int>(std::min<size_t>(size - sent, 65536)), 0);
                if (n <= 0) break;
                sent += static_cast<size_t>(n);
            }
            ::shutdown(client, SD_SEND);
            ::closesocket(client);
        }
    }

    std::string m_body;
    SOCKET m_listener;
    int m_port = 0;
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

// The same exchange with WinINet directly, for the baseline.
size_t PlainGet(int port, const wchar_t* path) {
    HINTERNET root = ::InternetOpenW(L"bench", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    HINTERNET connection = ::InternetConnectW(root, L"127.0.0.1", static_cast<INTERNET_PORT>(port), nullptr, nullptr,
                                              INTERNET_SERVICE_HTTP, 0, 0);
    HINTERNET request = ::HttpOpenRequestW(connection, L"GET", path, nullptr, nullptr, nullptr,
                                           INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_COOKIES |
                                               INTERNET_FLAG_PRAGMA_NOCACHE,
                                           0);
    size_t total = 0;
    if (::HttpSendRequestW(request, nullptr, 0, nullptr, 0)) {
        std::vector<unsigned char> body;
        char chunk[4096];
        DWORD read = 0;
        while (::InternetReadFile(request, chunk, sizeof(chunk), &read) && read > 0) body.insert(body.end(), chunk, chunk + read);
        total = body.size();
    }
    ::InternetCloseHandle(request);
    ::InternetCloseHandle(connection);
    ::InternetCloseHandle(root);
    return total;
}

}  // namespace

void RunHttpBenchmarks(Suite& suite) {
    LoopbackServer server;
    const int port = server.Port();
    CHttpClient client(CString::FormatS(L"http://127.0.0.1:%d", port));
    client.SetMaxResponseSize(kBigBody);

    suite.Compare(
        "HTTP GET 10 MiB", [&] { return client.Get(L"/big").GetBodySize(); },
        [&] { return PlainGet(port, L"/big"); });
    suite.Compare(
        "HTTP 200 small GETs",
        [&] {
            size_t total = 0;
            for (int i = 0; i < 200; ++i) total += client.Get(L"/small").GetBodySize();
            return total;
        },
        [&] {
            size_t total = 0;
            for (int i = 0; i < 200; ++i) total += PlainGet(port, L"/small");
            return total;
        });
    suite.Compare(
        "CUri::Parse x10000 (vs copy)",
        [] {
            size_t total = 0;
            for (int i = 0; i < 10000; ++i)
                total += static_cast<size_t>(CUri::Parse(L"https://example.test:8443/api/items?id=42#top").GetPath().GetLength());
            return total;
        },
        [] {
            // A copy of the same text: the floor any parse pays.
            size_t total = 0;
            for (int i = 0; i < 10000; ++i) total += std::wstring(L"https://example.test:8443/api/items?id=42#top").size();
            return total;
        });
}

}  // namespace Bench
