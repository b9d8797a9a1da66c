#pragma once

#include "PublicLib/calls/EntryGuard.h"

namespace jsw {

/// While one lives, its thread must not wait for another thread of this library: that one may be
/// inside a module which in turn waits for this thread. The driver's status callback and the rules
/// thread run so. Lives inside an EntryGuard.
class NoWaiting {
  public:
    NoWaiting();
    ~NoWaiting();
    NoWaiting(const NoWaiting&) = delete;
    NoWaiting& operator=(const NoWaiting&) = delete;

    /// Whether this thread is inside the life of one, however many guards further out.
    static bool holdsHere();

  private:
    EntryGuard* const guard_;
    const bool before_;
};

}  // namespace jsw
