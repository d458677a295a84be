#pragma once

#include "velkan/Velkan.h"

// A tiny HTTP server on 127.0.0.1 for the HTTP page and the tour, so that
// the client can be shown without the network. It answers every request
// with a short text and a few headers, one connection at a time, on a
// worker thread; it stops when destroyed.
class LoopbackServer {
public:
    LoopbackServer() = default;
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    // Starts listening on a free port; FALSE when sockets are not available.
    BOOL Start();
    // "http://127.0.0.1:PORT/", or empty before Start.
    Velkan::CString GetUrl() const;

private:
    static void Serve(void* self);
    void Answer(UINT_PTR connection) const;

    UINT_PTR m_listener = ~static_cast<UINT_PTR>(0);
    int m_port = 0;
    Velkan::CVlkThread m_thread;
};
