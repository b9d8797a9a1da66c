#pragma once

#include "PublicLib/ScopedValue.h"
#include "PublicLib/calls/EntryGuard.h"

namespace jsw {

/// During its lifetime this thread must not wait for another thread of the library, which may be
/// inside a module that waits for this thread. Used for the driver's status callback and the rules
/// thread, always inside an EntryGuard.
class NoWaiting {
  public:
    NoWaiting() : flag_(guard_ != nullptr ? guard_->mustNotWait_ : noGuards_, true) {}

    /// Whether this thread has one, in any of its guards.
    static bool holdsHere() {
        const EntryGuard* guard = EntryGuard::current();
        return guard != nullptr && guard->mustNotWait_;
    }

  private:
    EntryGuard* const guard_ = EntryGuard::current();
    bool noGuards_ = false;
    const ScopedValue<bool> flag_;
};

}  // namespace jsw
