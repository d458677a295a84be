#include "WorkPages.h"

#include "resource.h"

using namespace Velkan;

namespace {

// Posted by the workers to their page: the work is done (HTTP), or one more
// step is (threads; wParam is the step).
const UINT kWorkDone = WM_APP + 1;
const UINT kWorkStep = WM_APP + 2;
const int kSteps = 20;

}  // namespace

HttpPage::HttpPage()
    : GalleryPage(L"HTTP client", L"http",
                  L"CHttpClient fetches a URL on a worker thread; the status, headers and body come back here.") {}

HttpPage::~HttpPage() {
    if (m_worker.IsRunning()) m_worker.WaitUntilDone();
}

void HttpPage::OnCreate() {
    m_server.Start();
    CString url = m_server.GetUrl();
    url += L"hello?from=gallery";
    MakeEdit(m_url, IDC_PAGE_INPUT, url);
    MakeButton(m_fetch, IDC_PAGE_ACTION, L"&Fetch");
    MakeOutput(m_output, IDC_PAGE_OUTPUT);
    m_output.SetWindowTextW(L"Type a URL and press Fetch. The address above is the gallery's own loopback server.");
}

void HttpPage::Fetch() {
    if (m_worker.IsRunning()) return;
    m_request = m_url.GetWindowTextW();
    m_fetch.EnableWindow(FALSE);
    m_output.SetWindowTextW(L"Fetching...");
    m_worker.Start(&HttpPage::FetchOnWorker, this);
}

void HttpPage::FetchOnWorker(void* self) {
    auto* page = static_cast<HttpPage*>(self);
    CString text;
    try {
        // The client takes the server as its base and the rest per request.
        const CUri uri = CUri::Parse(page->m_request);
        CString base(uri.GetScheme());
        base.Append(L"://").Append(uri.GetHost());
        if (!uri.GetPort().IsNullOrEmpty()) base.Append(L':').Append(uri.GetPort());
        CHttpClient client(base);
        const CHttpResponse response = client.Get(uri.GetPathAndQuery());
        text.Format(L"Status: %d %s\r\nContent type: %s\r\nContent length: %lu\r\n\r\nHeaders:\r\n",
                    response.GetStatusCode(), response.GetStatusText().GetString(),
                    response.GetContentType().GetString(), response.GetContentLength());
        for (const HttpHeader& header : response.GetHeaders())
            text.AppendFormat(L"  %s: %s\r\n", header.name.GetString(), header.value.GetString());
        text += L"\r\nBody:\r\n";
        const CString body = response.ReadAsString();
        text.Append(body.GetString(), body.GetLength() > 2000 ? 2000 : body.GetLength());
    } catch (const std::exception& e) {
        text.Format(L"The request failed: %hs", e.what());
    }
    // The page reads it once this thread has ended.
    page->m_request = text;
    ::PostMessageW(page->GetHwnd(), kWorkDone, 0, 0);
}

BOOL HttpPage::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) != IDC_PAGE_ACTION) return GalleryPage::OnCommand(wParam, lParam);
    Fetch();
    return TRUE;
}

BOOL HttpPage::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg != kWorkDone) return GalleryPage::WndProc(msg, wParam, lParam, result);
    m_worker.WaitUntilDone();
    m_output.SetWindowTextW(m_request);
    m_fetch.EnableWindow(TRUE);
    result = 0;
    return TRUE;
}

void HttpPage::Layout(const CRect& content) {
    LayoutTopRow(content, {{&m_url, 0, 2}, {&m_fetch, 90, 0}}, m_output);
}

ThreadsPage::ThreadsPage()
    : GalleryPage(L"Threads and notifications", L"threads",
                  L"A CVlkThread works in steps; each step moves the bar and posts a notification to the frame.") {}

ThreadsPage::~ThreadsPage() {
    if (m_worker.IsRunning()) m_worker.WaitUntilDone();
}

void ThreadsPage::OnCreate() {
    MakeButton(m_start, IDC_PAGE_ACTION, L"&Start the work");
    m_progress.Create(*this, IDC_PROGRESS, CRect(0, 0, 10, 10));
    m_progress.SetRange(0, kSteps);
    MakeOutput(m_output, IDC_PAGE_OUTPUT);
}

void ThreadsPage::StartWork() {
    if (m_running) return;
    if (m_worker.IsRunning()) m_worker.WaitUntilDone();
    m_running = true;
    m_start.EnableWindow(FALSE);
    m_progress.SetPos(0);
    m_output.SetWindowTextW(L"Started a worker thread.\r\n");
    m_worker.Start(&ThreadsPage::Work, this);
}

void ThreadsPage::Work(void* self) {
    const HWND page = static_cast<ThreadsPage*>(self)->GetHwnd();
    for (int step = 1; step <= kSteps; ++step) {
        CVlkThread::Sleep(40);
        // Windows belong to the thread that made them: the worker only posts.
        ::PostMessageW(page, kWorkStep, static_cast<WPARAM>(step), static_cast<LPARAM>(::GetCurrentThreadId()));
    }
}

BOOL ThreadsPage::OnCommand(UINT wParam, LPARAM lParam) {
    if (LOWORD(wParam) != IDC_PAGE_ACTION) return GalleryPage::OnCommand(wParam, lParam);
    StartWork();
    return TRUE;
}

BOOL ThreadsPage::WndProc(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (msg != kWorkStep) return GalleryPage::WndProc(msg, wParam, lParam, result);
    const int step = static_cast<int>(wParam);
    m_progress.SetPos(step);
    // Observers hear of it on this, the user-interface thread.
    PostNotification(ProgressNotification, static_cast<DWORD_PTR>(step * 100 / kSteps));
    if (step % 5 == 0) {
        CString line;
        line.Format(L"Step %d of %d, from thread %lu.\r\n", step, kSteps, static_cast<unsigned long>(lParam));
        m_output.AppendText(line);
    }
    if (step == kSteps) {
        m_worker.WaitUntilDone();
        m_running = false;
        m_start.EnableWindow(TRUE);
        m_output.AppendText(L"Done; the thread has been joined.\r\n");
    }
    result = 0;
    return TRUE;
}

void ThreadsPage::Layout(const CRect& content) {
    LayoutTopRow(content, {{&m_start, 140, 0}, {&m_progress, 0, 5}}, m_output);
}
