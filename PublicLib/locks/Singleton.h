#pragma once

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/locks/CriticalSection.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace jsw {

/// False from the teardown of the process's objects until they are built again. An object requested
/// in between is created for its caller and is not stored.
inline constinit std::atomic<bool> singletonsStay{true};

/// Holds a process-wide object. Callers share ownership, so that a thread that still uses the
/// object when it is destroyed finishes safely; the last holder runs the destructor.
template <class T>
class Singleton {
  public:
    /// The object; if there is none, create() makes it under the lock.
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

    /// The object, or null.
    std::shared_ptr<T> existing() const { return object_.load(); }

    /// Calls announce() and releases the object, under the lock; does nothing without one. Does not
    /// wait for another thread that is creating an object, which may call a module.
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

/// The one Singleton of each class; only the class's own .cpp uses it.
template <class T>
inline NeverDestroyed<Singleton<T>> singleton;

}  // namespace jsw
