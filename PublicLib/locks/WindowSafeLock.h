#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Wait.h"

#include <atomic>

namespace jsw {

/// A lock of this process that the thread holding it may take again. A thread that waits for it
/// goes on serving the messages sent to its windows, so the holder may send it some.
class WindowSafeLock {
  public:
    void lock() {
        if (section_.try_lock()) return;
        ++waiting_;
        while (!section_.try_lock()) waitForRelease();
        --waiting_;
    }
    /// Answers at once; true when the lock was taken.
    bool try_lock() { return section_.try_lock(); }
    void unlock() {
        section_.unlock();
        if (waiting_ > 0) SetEvent(released_.get());
    }

  private:
    /// One waiting thread is woken at a time; it wakes the next one when it has had its turn.
    void waitForRelease() {
        if (waitServingWindows(released_.get()) != WAIT_FAILED) return;
        section_.lock();  // there is no event: windows are not served then
        section_.unlock();
    }

    CriticalSection section_;
    std::atomic<int> waiting_{0};
    KernelHandle released_{CreateEventA(nullptr, FALSE, FALSE, nullptr)};
};

}  // namespace jsw
