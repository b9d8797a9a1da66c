#pragma once

#include <windows.h>

namespace jsw {

/// A re-entrant lock within this process. Take it with a std::lock_guard.
class CriticalSection {
  public:
    CriticalSection() { InitializeCriticalSection(&section_); }
    ~CriticalSection() { DeleteCriticalSection(&section_); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void lock() { EnterCriticalSection(&section_); }
    /// Does not wait; true if the lock was taken.
    [[nodiscard]] bool try_lock() { return TryEnterCriticalSection(&section_) != FALSE; }
    void unlock() { LeaveCriticalSection(&section_); }

  private:
    CRITICAL_SECTION section_;
};

}  // namespace jsw
