#pragma once

#include "PublicLib/locks/Mutex.h"

#include <string>

namespace jsw {

/// A named mutex, accessible to every account. Waiting for it has no timeout. Take it with a Hold.
class InterProcessLock {
  public:
    /// Throws Win32Exception if the mutex cannot be created.
    explicit InterProcessLock(const std::string& name);

    /// Throws Win32Exception if the lock has no name or waiting fails.
    void lock();
    /// Throws Win32Exception if the mutex cannot be released.
    void unlock() { mutex_.release(); }

    /// Holds a lock for a scope. If it cannot be released, the work under it still succeeds: the
    /// debugger output says so, and the mutex becomes free when this thread ends.
    class Hold {
      public:
        explicit Hold(InterProcessLock& lock) : lock_(lock) { lock_.lock(); }
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        InterProcessLock& lock_;
    };

  private:
    const bool isNamed_;
    Mutex mutex_;
};

}  // namespace jsw
