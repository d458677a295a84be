#pragma once

#include "GalleryPage.h"
#include "LoopbackServer.h"

// The HTTP client: fetches the URL typed in, on a worker thread, and shows
// the status, the headers and the start of the body. The URL starts as the
// gallery's own loopback server.
class HttpPage : public GalleryPage {
public:
    HttpPage();
    ~HttpPage() override;
    void PrepareForTour() override { Fetch(); }
    bool IsBusy() const override { return m_worker.IsRunning() != FALSE; }

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void Layout(const Velkan::CRect& content) override;

private:
    void Fetch();
    static void FetchOnWorker(void* self);

    LoopbackServer m_server;
    Velkan::CEditControl m_url;
    Velkan::CButton m_fetch;
    Velkan::CEditControl m_output;
    Velkan::CVlkThread m_worker;
    Velkan::CString m_request;  // read by the worker while it runs
};

// Worker threads and notifications: a CVlkThread does its steps and posts
// each to this page, which moves its progress bar and posts a notification
// that the frame shows in its status bar.
class ThreadsPage : public GalleryPage {
public:
    static constexpr const wchar_t* ProgressNotification = L"GalleryWorkProgress";

    ThreadsPage();
    ~ThreadsPage() override;
    void PrepareForTour() override { StartWork(); }
    bool IsBusy() const override { return m_running; }

protected:
    void OnCreate() override;
    BOOL OnCommand(UINT wParam, LPARAM lParam) override;
    BOOL WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void Layout(const Velkan::CRect& content) override;

private:
    void StartWork();
    static void Work(void* self);

    Velkan::CButton m_start;
    Velkan::CProgressControl m_progress;
    Velkan::CEditControl m_output;
    Velkan::CVlkThread m_worker;
    bool m_running = false;
};
