#pragma once

#include "PublicLib/locks/Mutex.h"

#include <string>

namespace jsw {

/// A named mutex, open to every account, that is waited for without a time limit. Take it with a
/// std::lock_guard.
class InterProcessLock {
  public:
    /// Throws Win32Exception when the mutex cannot be created.
    explicit InterProcessLock(std::string name);

    /// Throws Win32Exception when the lock has no name or waiting fails.
    void lock();
    void unlock();

  private:
    std::string name_;
    Mutex mutex_;
};

}  // namespace jsw
