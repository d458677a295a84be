#pragma once

#include <windows.h>

#include <memory>
#include <thread>

#include "velkan/core/Export.h"

namespace Velkan {

// A handle to one worker thread running function(argument). Copies share
// the thread. There is no cancellation and no detaching: the owner must
// WaitUntilDone before the last copy goes or before Start runs again, or
// the process ends (the standard rule for a joinable thread).
class VELKAN_API CVlkThread {
public:
    enum ThreadPriority { PriorityLow = 0, PriorityNormal = 1, PriorityHigh = 2 };

    CVlkThread();
    CVlkThread(const CVlkThread& other) = default;
    CVlkThread& operator=(const CVlkThread& other) = default;
    virtual ~CVlkThread();

    // TRUE when the new thread is joinable.
    BOOL Start(void (*function)(void*), void* argument);
    // TRUE from Start until WaitUntilDone, even after the function returns.
    BOOL IsRunning() const;
    // Joins; throws std::system_error for an empty thread or a self-join.
    void WaitUntilDone();
    // TRUE when the thread has ended within the time. Does not join.
    BOOL TimedWaitUntilDone(DWORD milliseconds);
    // Below normal, highest, or normal for any other value.
    void SetPriority(ThreadPriority priority);

    static void Sleep(DWORD milliseconds);

private:
    HANDLE GetThreadHandle() const;

    std::shared_ptr<std::thread> m_thread;
};

}  // namespace Velkan
