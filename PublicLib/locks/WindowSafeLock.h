#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Wait.h"

#include <atomic>

namespace jsw {

/// A re-entrant lock within this process. A thread that waits for it keeps serving the messages
/// sent to its windows, so the holder may send it messages.
class WindowSafeLock {
  public:
    void lock() {
        if (section_.try_lock()) return;
        ++waiting_;
        while (!section_.try_lock()) waitForRelease();
        --waiting_;
    }
    /// Does not wait; true if the lock was taken.
    bool try_lock() { return section_.try_lock(); }
    void unlock() {
        section_.unlock();
        if (waiting_ > 0) SetEvent(released_.get());
    }

  private:
    /// One waiting thread is woken at a time; it wakes the next one after its turn.
    void waitForRelease() {
        if (waitServingWindows(released_.get()) != WAIT_FAILED) return;
        section_.lock();  // no event: windows are not served
        section_.unlock();
    }

    CriticalSection section_;
    std::atomic<int> waiting_{0};
    KernelHandle released_{CreateEventA(nullptr, FALSE, FALSE, nullptr)};
};

}  // namespace jsw
