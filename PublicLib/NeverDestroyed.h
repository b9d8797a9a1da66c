#pragma once

#include <new>
#include <utility>

namespace jsw {

/// Holds a process-wide object that is not destroyed when the library is unloaded: at that moment,
/// under the loader's lock, its destructor must not call into other modules any more.
template <class T>
class NeverDestroyed {
  public:
    template <class... Args>
    explicit NeverDestroyed(Args&&... args) {
        ::new (static_cast<void*>(storage_)) T(std::forward<Args>(args)...);
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(storage_)); }
    T* operator->() { return &**this; }

  private:
    alignas(T) unsigned char storage_[sizeof(T)];
};

}  // namespace jsw
