#include <gtest/gtest.h>

#include <atomic>
#include <system_error>

#include "velkan/app/Thread.h"

using namespace Velkan;

namespace {

void Increment(void* counter) {
    ++*static_cast<std::atomic<int>*>(counter);
}

void WaitForGo(void* flag) {
    while (!static_cast<std::atomic<bool>*>(flag)->load()) CVlkThread::Sleep(1);
}

}  // namespace

TEST(VlkThread, RunsUntilJoinedEvenAfterTheFunctionReturned) {
    std::atomic<int> counter{0};
    CVlkThread thread;
    EXPECT_FALSE(thread.IsRunning());
    EXPECT_FALSE(thread.TimedWaitUntilDone(0));
    EXPECT_TRUE(thread.Start(&Increment, &counter));

    EXPECT_TRUE(thread.TimedWaitUntilDone(10000));
    EXPECT_EQ(1, counter.load());
    EXPECT_TRUE(thread.TimedWaitUntilDone(0));  // waiting does not join
    EXPECT_TRUE(thread.IsRunning());
    thread.WaitUntilDone();
    EXPECT_FALSE(thread.IsRunning());
    EXPECT_THROW(thread.WaitUntilDone(), std::system_error);
}

TEST(VlkThread, CopiesShareOneThread) {
    std::atomic<bool> go{false};
    CVlkThread original;
    CVlkThread copy(original);
    original.Start(&WaitForGo, &go);
    EXPECT_TRUE(copy.IsRunning());
    EXPECT_FALSE(copy.TimedWaitUntilDone(20));

    go = true;
    copy.WaitUntilDone();
    EXPECT_FALSE(original.IsRunning());
}

namespace {

struct PriorityProbe {
    std::atomic<bool> stop{false};
    std::atomic<int> observed{-100};
};

void ObservePriority(void* data) {
    auto* probe = static_cast<PriorityProbe*>(data);
    while (!probe->stop) {
        probe->observed = ::GetThreadPriority(::GetCurrentThread());
        CVlkThread::Sleep(1);
    }
}

// The priority the worker sees itself at, once it has settled.
int SeenPriority(PriorityProbe& probe, int expected) {
    for (int i = 0; i < 2000 && probe.observed != expected; ++i) CVlkThread::Sleep(1);
    return probe.observed;
}

}  // namespace

TEST(VlkThread, PrioritiesMapToBelowNormalHighestOrNormal) {
    PriorityProbe probe;
    CVlkThread thread;
    thread.Start(&ObservePriority, &probe);
    thread.SetPriority(CVlkThread::PriorityHigh);
    EXPECT_EQ(THREAD_PRIORITY_HIGHEST, SeenPriority(probe, THREAD_PRIORITY_HIGHEST));
    thread.SetPriority(CVlkThread::PriorityLow);
    EXPECT_EQ(THREAD_PRIORITY_BELOW_NORMAL, SeenPriority(probe, THREAD_PRIORITY_BELOW_NORMAL));
    thread.SetPriority(static_cast<CVlkThread::ThreadPriority>(7));
    EXPECT_EQ(THREAD_PRIORITY_NORMAL, SeenPriority(probe, THREAD_PRIORITY_NORMAL));
    probe.stop = true;
    thread.WaitUntilDone();
}

TEST(VlkThread, ManyThreadsStartAndJoin) {
    std::atomic<int> counter{0};
    CVlkThread threads[16];
    for (int round = 0; round < 20; ++round) {
        for (CVlkThread& t : threads) ASSERT_TRUE(t.Start(&Increment, &counter));
        for (CVlkThread& t : threads) t.WaitUntilDone();
    }
    EXPECT_EQ(16 * 20, counter.load());
}
