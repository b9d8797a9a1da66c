#pragma once

#include <new>
#include <utility>

namespace jsw {

/// Set while the library is being freed and its process goes on.
inline bool isLibraryFreed = false;

/// Holds a process-wide object that is not destroyed when the process ends: at that moment, under
/// the loader's lock, its destructor must not call into other modules any more. When the library is
/// freed before, which happens only while no job has ever run, the object goes with it.
template <class T>
class NeverDestroyed {
  public:
    template <class... Args>
    explicit NeverDestroyed(Args&&... args) {
        ::new (static_cast<void*>(storage_)) T(std::forward<Args>(args)...);
    }
    ~NeverDestroyed() {
        if (isLibraryFreed) (**this).~T();
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(storage_)); }
    T* operator->() { return &**this; }

  private:
    alignas(T) unsigned char storage_[sizeof(T)];
};

}  // namespace jsw
