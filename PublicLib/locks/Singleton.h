#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace jsw {

/// False from the moment the process's objects are torn down until they are built again. An object
/// that is asked for then is made for the one who asks and does not stay.
inline constinit std::atomic<bool> singletonsStay{true};

/// The place of a process-wide object. Whoever asks shares the object, so that a thread still
/// inside it when it is destroyed finishes safely; the last holder runs the destructor.
template <class T>
class Singleton {
  public:
    /// The object; create() makes it when there is none, under the lock.
    template <class Create>
    std::shared_ptr<T> instance(const Create& create) {
        if (auto object = object_.load()) return object;
        const std::lock_guard lock(lock_);
        auto object = object_.load();
        if (!object) {
            object = create();
            object_.store(object);
            if (!singletonsStay) object_.store(nullptr);
        }
        return object;
    }

    /// The object, or null when there is none.
    std::shared_ptr<T> existing() const { return object_.load(); }

    /// Calls announce() and lets go of the object, under the lock; does nothing without one. An
    /// object that another thread is making, which may take a module's time, is not waited for.
    template <class Announce>
    void destroy(const Announce& announce) {
        if (!object_.load()) return;
        const std::lock_guard lock(lock_);
        if (const auto object = object_.load()) {
            announce();
            object_.store(nullptr);
        }
    }

  private:
    CriticalSection lock_;
    std::atomic<std::shared_ptr<T>> object_;
};

}  // namespace jsw
