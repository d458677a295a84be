// Winsock's header must come before the system headers the library's bring in.
#include <winsock2.h>

#include "LoopbackServer.h"

#include <string>

using namespace Velkan;

LoopbackServer::~LoopbackServer() {
    if (m_listener == INVALID_SOCKET) return;
    // Closing the socket ends the blocking accept, and with it the thread.
    ::closesocket(m_listener);
    if (m_thread.IsRunning()) m_thread.WaitUntilDone();
    ::WSACleanup();
}

BOOL LoopbackServer::Start() {
    WSADATA data;
    if (::WSAStartup(MAKEWORD(2, 2), &data) != 0) return FALSE;
    SOCKET listener = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int length = sizeof(address);
    if (listener == INVALID_SOCKET || ::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(listener, 4) != 0 || ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        if (listener != INVALID_SOCKET) ::closesocket(listener);
        ::WSACleanup();
        return FALSE;
    }
    m_listener = listener;
    m_port = ::ntohs(address.sin_port);
    return m_thread.Start(&LoopbackServer::Serve, this);
}

CString LoopbackServer::GetUrl() const {
    CString url;
    if (m_port != 0) url.Format(L"http://127.0.0.1:%d/", m_port);
    return url;
}

void LoopbackServer::Serve(void* self) {
    auto* server = static_cast<LoopbackServer*>(self);
    for (;;) {
        const SOCKET connection = ::accept(server->m_listener, nullptr, nullptr);
        if (connection == INVALID_SOCKET) return;
        server->Answer(connection);
        ::closesocket(connection);
    }
}

void LoopbackServer::Answer(UINT_PTR connection) const {
    // The request line and headers, up to the blank line.
    std::string request;
    char buffer[1024];
    while (request.find("\r\n\r\n") == std::string::npos && request.size() < 16384) {
        const int got = ::recv(connection, buffer, sizeof(buffer), 0);
        if (got <= 0) return;
        request.append(buffer, static_cast<size_t>(got));
    }
    const std::string line = request.substr(0, request.find("\r\n"));
    const std::string body = "Hello from the gallery's own server.\r\nYou asked: " + line + "\r\n";
    const std::string response = "HTTP/1.1 200 OK\r\n"
                                 "Content-Type: text/plain; charset=utf-8\r\n"
                                 "Content-Length: " + std::to_string(body.size()) + "\r\n"
                                 "Cache-Control: no-store\r\n"
                                 "X-Served-By: Velkan Gallery\r\n"
                                 "Connection: close\r\n\r\n" + body;
    ::send(connection, response.data(), static_cast<int>(response.size()), 0);
}
