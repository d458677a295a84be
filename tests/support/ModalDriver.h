#pragma once

// Driving modal loops from inside: timers of the calling thread run inside
// any modal loop the thread enters (dialogs, message boxes, task dialogs).

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace Testing {

// Calls tick every interval on the calling thread until destroyed.
class ThreadTimer {
public:
    ThreadTimer(UINT intervalMs, std::function<void()> tick);
    ~ThreadTimer();
    ThreadTimer(const ThreadTimer&) = delete;
    ThreadTimer& operator=(const ThreadTimer&) = delete;

private:
    static void CALLBACK Proc(HWND, UINT, UINT_PTR id, DWORD);
    UINT_PTR m_id = 0;
    std::function<void()> m_tick;
};

// Steps run in order, one attempt per tick; a step returns true when done.
class Script {
public:
    explicit Script(std::vector<std::function<bool()>> steps, UINT intervalMs = 15);
    bool Finished() const { return m_next >= m_steps.size(); }

private:
    std::vector<std::function<bool()>> m_steps;
    size_t m_next = 0;
    ThreadTimer m_timer;
};

// Ends every dialog of the calling thread (template dialogs, message boxes
// and task dialogs alike) and fails the test when a modal loop outlives
// its time, so that a broken dialog fails instead of hanging the run.
class Watchdog {
public:
    explicit Watchdog(UINT timeoutMs = 8000);
    ~Watchdog();
    bool Fired() const { return m_fired; }

private:
    bool m_fired = false;
    ThreadTimer m_timer;
};

// The dialog windows ("#32770") of the calling thread, top-level only.
std::vector<HWND> ThreadDialogs();
// The first one whose caption is title (any caption when null).
HWND FindThreadDialog(const wchar_t* title = nullptr);
// The first descendant of parent of the class (any when null) whose text
// is text (any when null).
HWND FindDescendant(HWND parent, const wchar_t* className, const wchar_t* text = nullptr);
std::wstring WindowText(HWND hwnd);
// Dispatches what is waiting in the calling thread's queue.
void Pump();

}  // namespace Testing
