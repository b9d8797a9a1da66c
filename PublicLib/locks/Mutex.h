#pragma once

#include "PublicLib/win/Handles.h"

#include <cstdint>
#include <string>

namespace jsw {

/// A Windows mutex, shared with every process that opens the same name. The object's own state is
/// touched only by the thread that holds the mutex.
class Mutex {
  public:
    /// @param name                empty for an unnamed mutex
    /// @param withEveryoneAccess  lets processes of every account open it (a null access list)
    /// Throws Win32Exception when the mutex cannot be had.
    Mutex(bool initialOwner, const std::string& name, bool withEveryoneAccess);
    /// Releases the mutex if this object still holds it.
    ~Mutex();
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    /// Waits up to timeoutMilliseconds (INFINITE: for ever); false when the time is over. A mutex
    /// whose owner died without releasing it counts as acquired. Not for the thread that holds it
    /// already.
    bool acquire(std::uint32_t timeoutMilliseconds);
    void release();

  private:
    KernelHandle handle_;
    bool isHeld_ = false;  // of the thread that has the mutex
};

}  // namespace jsw
