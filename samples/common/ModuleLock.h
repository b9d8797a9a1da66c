/**
 * @file ModuleLock.h
 * The lock of a module that is loaded and freed for each job. What the C++ library's own mutex and
 * threads take of the process may stay taken when the module is freed.
 */
#pragma once

#include <windows.h>

namespace jsw::sample {

/** Take it with a std::lock_guard. */
class ModuleLock {
  public:
    ModuleLock() { InitializeCriticalSection(&section_); }
    ~ModuleLock() { DeleteCriticalSection(&section_); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;

    void lock() { EnterCriticalSection(&section_); }
    void unlock() { LeaveCriticalSection(&section_); }

  private:
    CRITICAL_SECTION section_;
};

}  // namespace jsw::sample
