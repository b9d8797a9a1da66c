#pragma once

#include <utility>

namespace jsw {

/// Holds a process-wide object that is never destroyed: the library stays loaded until the process
/// ends, and at that moment, under the loader's lock, a destructor must not call into other modules
/// any more.
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
