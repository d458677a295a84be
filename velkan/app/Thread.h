#pragma once

#include <windows.h>

#include <memory>
#include <thread>

#include "velkan/core/Export.h"

namespace Velkan {

/// A handle to one worker thread running function(argument). Copies share
/// the thread. There is no cancellation and no detaching: the owner must
/// WaitUntilDone before the last copy goes or before Start runs again, or
/// the process ends (the standard rule for a joinable thread).
class VELKAN_API CVlkThread {
public:
    /// The thread priorities SetPriority offers.
    enum ThreadPriority {
        PriorityLow = 0,     ///< THREAD_PRIORITY_BELOW_NORMAL
        PriorityNormal = 1,  ///< THREAD_PRIORITY_NORMAL
        PriorityHigh = 2     ///< THREAD_PRIORITY_HIGHEST
    };

    CVlkThread();  ///< No thread yet.
    /// Copies share the thread.
    ///@{
    CVlkThread(const CVlkThread& other) = default;
    CVlkThread& operator=(const CVlkThread& other) = default;
    ///@}
    virtual ~CVlkThread();  ///< Does not join: see the class notes.

    /// Starts function(argument) on a new thread. An exception out of the
    /// function is traced and handed to the application's
    /// OnUnhandledException, and ends the thread, not the process. TRUE when
    /// the new thread is joinable.
    BOOL Start(void (*function)(void*), void* argument);
    /// TRUE from Start until WaitUntilDone, even after the function returns.
    BOOL IsRunning() const;
    /// Joins; throws std::system_error for an empty thread or a self-join.
    void WaitUntilDone();
    /// TRUE when the thread has ended within the time. Does not join.
    BOOL TimedWaitUntilDone(DWORD milliseconds);
    /// Below normal, highest, or normal for any other value. Does nothing
    /// without a thread.
    void SetPriority(ThreadPriority priority);

    /// Suspends the calling thread.
    static void Sleep(DWORD milliseconds);

private:
    HANDLE GetThreadHandle() const;

    std::shared_ptr<std::thread> m_thread;
};

}  // namespace Velkan
