#pragma once

#include <windows.h>

namespace jsw {

/// A lock of this process that the thread holding it may take again. Take it with a
/// std::lock_guard.
class CriticalSection {
  public:
    CriticalSection() { InitializeCriticalSection(&section_); }
    ~CriticalSection() { DeleteCriticalSection(&section_); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void lock() { EnterCriticalSection(&section_); }
    /// Answers at once; true when the lock was taken.
    bool try_lock() { return TryEnterCriticalSection(&section_) != FALSE; }
    void unlock() { LeaveCriticalSection(&section_); }

  private:
    CRITICAL_SECTION section_;
};

}  // namespace jsw
