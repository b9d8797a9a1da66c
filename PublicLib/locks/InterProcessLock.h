#pragma once

#include "PublicLib/locks/Mutex.h"

#include <string>

namespace jsw {

/// A named mutex, open to every account, that is waited for without a time limit. Take it with a
/// Hold.
class InterProcessLock {
  public:
    /// Throws Win32Exception when the mutex cannot be created.
    explicit InterProcessLock(std::string name);

    /// Throws Win32Exception when the lock has no name or waiting fails.
    void lock();
    /// Throws Win32Exception when the mutex cannot be released.
    void unlock();

    /// Holds a lock for a scope. That it cannot be given back is no reason to fail what was done
    /// under it: an attached debugger is told, and the mutex goes to the next one who waits when
    /// this thread ends.
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
    std::string name_;
    Mutex mutex_;
};

}  // namespace jsw
