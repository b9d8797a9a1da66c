#pragma once

#include "PublicLib/calls/NoWaiting.h"
#include "PublicLib/locks/WindowSafeLock.h"

namespace jsw {

/// Lets one thread at a time into the library, as often as it comes. An ordinary thread waits for
/// its turn and serves the messages sent to its windows meanwhile; one that must not wait
/// (NoWaiting) gets in only when nobody else is inside.
class ApiGate {
  public:
    /// A thread's stay inside, for a scope; false when it was not let in.
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
