#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <mutex>

namespace jsw {

/// A value that is accessible only under its lock.
template <class T>
class Locked {
  public:
    /// Runs work(value) under the lock and returns its result, by value.
    template <class Work>
    auto use(const Work& work) {
        const std::lock_guard lock(lock_);
        return work(value_);
    }

  private:
    CriticalSection lock_;
    T value_;
};

}  // namespace jsw
