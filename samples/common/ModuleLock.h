/**
 * @file ModuleLock.h
 * A lock for modules that are loaded and freed for each job. The C++ library's own mutex and
 * threads may leak process resources when the module is freed.
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
