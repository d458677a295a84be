#include "support/ModalDriver.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>

namespace Testing {

namespace {

std::map<UINT_PTR, ThreadTimer*>& Timers() {
    static std::map<UINT_PTR, ThreadTimer*> timers;
    return timers;
}

}  // namespace

// ---------------------------------------------------------------------------
// Timers

ThreadTimer::ThreadTimer(UINT intervalMs, std::function<void()> tick) : m_tick(std::move(tick)) {
    m_id = ::SetTimer(nullptr, 0, intervalMs, &ThreadTimer::Proc);
    Timers()[m_id] = this;
}

ThreadTimer::~ThreadTimer() {
    ::KillTimer(nullptr, m_id);
    Timers().erase(m_id);
}

void CALLBACK ThreadTimer::Proc(HWND, UINT, UINT_PTR id, DWORD) {
    auto it = Timers().find(id);
    if (it != Timers().end()) it->second->m_tick();
}

Script::Script(std::vector<std::function<bool()>> steps, UINT intervalMs)
    : m_steps(std::move(steps)), m_timer(intervalMs, [this] {
          // A step may enter a nested loop that ticks again: run each once.
          if (Finished()) return;
          const size_t step = m_next;
          m_next = m_steps.size() + 1;
          const bool done = m_steps[step]();
          m_next = done ? step + 1 : step;
      }) {}

Watchdog::Watchdog(UINT timeoutMs)
    : m_timer(timeoutMs, [this] {
          m_fired = true;
          for (HWND dialog : ThreadDialogs()) ::EndDialog(dialog, IDABORT);
      }) {}

Watchdog::~Watchdog() {
    EXPECT_FALSE(m_fired) << "a modal loop did not end by itself; the watchdog ended it";
}

// ---------------------------------------------------------------------------
// Finding windows

namespace {

BOOL CALLBACK CollectDialog(HWND hwnd, LPARAM list) {
    wchar_t name[16] = {};
    ::GetClassNameW(hwnd, name, 16);
    if (std::wcscmp(name, L"#32770") == 0) reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
    return TRUE;
}

struct DescendantQuery {
    const wchar_t* className;
    const wchar_t* text;
    HWND found;
};

BOOL CALLBACK MatchDescendant(HWND hwnd, LPARAM data) {
    auto* q = reinterpret_cast<DescendantQuery*>(data);
    wchar_t name[64] = {};
    ::GetClassNameW(hwnd, name, 64);
    if (q->className != nullptr && ::lstrcmpiW(name, q->className) != 0) return TRUE;
    if (q->text != nullptr && WindowText(hwnd) != q->text) return TRUE;
    q->found = hwnd;
    return FALSE;
}

}  // namespace

std::vector<HWND> ThreadDialogs() {
    std::vector<HWND> dialogs;
    ::EnumThreadWindows(::GetCurrentThreadId(), &CollectDialog, reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

HWND FindThreadDialog(const wchar_t* title) {
    for (HWND dialog : ThreadDialogs()) {
        if (title == nullptr || WindowText(dialog) == title) return dialog;
    }
    return nullptr;
}

std::wstring WindowText(HWND hwnd) {
    wchar_t text[512] = {};
    ::GetWindowTextW(hwnd, text, 512);
    return text;
}

HWND FindDescendant(HWND parent, const wchar_t* className, const wchar_t* text) {
    DescendantQuery query = {className, text, nullptr};
    ::EnumChildWindows(parent, &MatchDescendant, reinterpret_cast<LPARAM>(&query));
    return query.found;
}

void Pump() {
    MSG msg;
    for (int i = 0; i < 1000 && ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE); ++i) {
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
    }
}

}  // namespace Testing
