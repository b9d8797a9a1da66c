#pragma once

#include "PublicLib/calls/EntryGuard.h"

namespace jsw {

/// During its lifetime this thread must not wait for another thread of the library, which may be
/// inside a module that waits for this thread. Used for the driver's status callback and the rules
/// thread, always inside an EntryGuard.
class NoWaiting {
  public:
    NoWaiting();
    ~NoWaiting();
    NoWaiting(const NoWaiting&) = delete;
    NoWaiting& operator=(const NoWaiting&) = delete;

    /// Whether this thread has one, in any of its guards.
    static bool holdsHere();

  private:
    EntryGuard* const guard_;
    const bool before_;
};

}  // namespace jsw
