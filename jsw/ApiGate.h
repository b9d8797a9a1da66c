#pragma once

#include "PublicLib/calls/NoWaiting.h"
#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Wait.h"

#include <atomic>

namespace jsw {

/// A re-entrant lock that lets one thread at a time into the library. An ordinary thread waits for
/// its turn and keeps serving the messages sent to its windows: the thread inside may send some. A
/// thread that must not wait (NoWaiting) gets in only if no other thread is inside.
class ApiGate {
  public:
    /// A thread's stay inside the library, for a scope; false if it was not let in.
    class Pass {
      public:
        explicit Pass(ApiGate& gate) : gate_(gate), isInside_(gate.enter()) {}
        ~Pass() {
            if (isInside_) gate_.leave();
        }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

        explicit operator bool() const { return isInside_; }

      private:
        ApiGate& gate_;
        const bool isInside_;
    };

  private:
    bool enter() {
        if (lock_.try_lock()) return true;
        if (NoWaiting::holdsHere()) return false;
        ++waiting_;
        while (!lock_.try_lock()) waitForTurn();
        --waiting_;
        return true;
    }
    void leave() {
        lock_.unlock();
        if (waiting_ > 0) SetEvent(left_.get());
    }
    /// leave() wakes one waiting thread, which wakes the next one when it leaves.
    void waitForTurn() {
        if (waitServingWindows(left_.get()) != WAIT_FAILED) return;
        lock_.lock();  // without the event, windows are not served
        lock_.unlock();
    }

    CriticalSection lock_;
    std::atomic<int> waiting_{0};
    KernelHandle left_{CreateEventA(nullptr, FALSE, FALSE, nullptr)};
};

}  // namespace jsw
