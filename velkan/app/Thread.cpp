#include "velkan/app/Thread.h"

#include <pthread.h>

#include <chrono>

#include "velkan/app/detail/Unhandled.h"

namespace Velkan {

CVlkThread::CVlkThread() : m_thread(std::make_shared<std::thread>()) {}

CVlkThread::~CVlkThread() = default;

BOOL CVlkThread::Start(void (*function)(void*), void* argument) {
    // An exception out of the work would end the process at the thread's
    // entry: it is reported instead, and the thread ends.
    *m_thread = std::thread([function, argument] {
        Detail::Guarded(
            [&] {
                function(argument);
                return 0;
            },
            [] { return 0; });
    });
    return m_thread->joinable();
}

BOOL CVlkThread::IsRunning() const {
    return m_thread->get_id() != std::thread::id();
}

void CVlkThread::WaitUntilDone() {
    m_thread->join();
}

HANDLE CVlkThread::GetThreadHandle() const {
    // winpthreads' native handle is its own; the Windows handle is behind it.
    return reinterpret_cast<HANDLE>(pthread_gethandle(m_thread->native_handle()));
}

BOOL CVlkThread::TimedWaitUntilDone(DWORD milliseconds) {
    if (!IsRunning()) return FALSE;
    return ::WaitForSingleObject(GetThreadHandle(), milliseconds) == WAIT_OBJECT_0;
}

void CVlkThread::SetPriority(ThreadPriority priority) {
    if (!IsRunning()) return;
    int value = THREAD_PRIORITY_NORMAL;
    if (priority == PriorityLow) value = THREAD_PRIORITY_BELOW_NORMAL;
    if (priority == PriorityHigh) value = THREAD_PRIORITY_HIGHEST;
    ::SetThreadPriority(GetThreadHandle(), value);
}

void CVlkThread::Sleep(DWORD milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace Velkan
