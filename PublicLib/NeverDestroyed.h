#pragma once

#include <utility>

namespace jsw {

/// Contains a process-wide object that is never destroyed. The library stays loaded until the
/// process exits; then, under the loader lock, a destructor must not call other modules.
template <class T>
class NeverDestroyed {
  public:
    template <class... Args>
    explicit NeverDestroyed(Args&&... args) : object_(std::forward<Args>(args)...) {}
    ~NeverDestroyed() {}  // NOLINT(modernize-use-equals-default): that would be deleted
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& operator*() { return object_; }
    T* operator->() { return &object_; }

  private:
    union {
        T object_;
    };
};

}  // namespace jsw
