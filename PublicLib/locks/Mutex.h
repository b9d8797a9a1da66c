#pragma once

#include "PublicLib/win/Handles.h"

#include <cstdint>
#include <string>

namespace jsw {

/// A Windows mutex, shared with every process that opens the same name. Only the thread that holds
/// the mutex accesses the object's state.
class Mutex {
  public:
    /// @param name                empty for an unnamed mutex
    /// @param withEveryoneAccess  processes of every account may open it (null access list)
    /// Throws Win32Exception if the mutex cannot be created.
    Mutex(bool initialOwner, const std::string& name, bool withEveryoneAccess);
    /// Releases the mutex if this object still holds it.
    ~Mutex();
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    /// Waits at most timeoutMilliseconds (INFINITE: no timeout); false after the timeout. A mutex
    /// whose owner died without releasing it counts as acquired. Not re-entrant: do not call it on
    /// the thread that holds the mutex.
    bool acquire(std::uint32_t timeoutMilliseconds);
    void release();

  private:
    KernelHandle handle_;
    bool isHeld_ = false;  // accessed only by the thread that holds the mutex
};

}  // namespace jsw
