#pragma once

#include "PublicLib/calls/NoWaiting.h"
#include "PublicLib/locks/WindowSafeLock.h"

namespace jsw {

/// A re-entrant lock that lets one thread at a time into the library. An ordinary thread waits for
/// its turn and keeps serving the messages sent to its windows. A thread that must not wait
/// (NoWaiting) gets in only if no other thread is inside.
class ApiGate {
  public:
    /// A thread's stay inside the library, for a scope; false if it was not let in.
    class Pass {
      public:
        explicit Pass(ApiGate& gate) : gate_(gate), isInside_(gate.enter()) {}
        ~Pass() {
            if (isInside_) gate_.lock_.unlock();
        }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

        explicit operator bool() const { return isInside_; }

      private:
        ApiGate& gate_;
        bool isInside_;
    };

  private:
    bool enter() {
        if (NoWaiting::holdsHere()) return lock_.try_lock();
        lock_.lock();
        return true;
    }

    WindowSafeLock lock_;
};

}  // namespace jsw
