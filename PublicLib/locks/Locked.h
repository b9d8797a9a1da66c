#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <mutex>

namespace jsw {

/// A value together with its lock: it is reached under the lock and in no other way.
template <class T>
class Locked {
  public:
    /// Runs work(value) under the lock and hands on what it answers, by value.
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
