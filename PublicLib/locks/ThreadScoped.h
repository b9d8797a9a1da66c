#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <windows.h>

#include <mutex>

namespace jsw {

/// What the scopes that threads are in at this moment hold, found by the thread it belongs to. Does
/// the work of a thread_local where that will not do: it takes no memory, so it cannot fail, and no
/// index of thread-local storage, of which a process has few and a library that is loaded and freed
/// again and again must lose none.
template <class T>
class ThreadScoped {
  public:
    /// Lives on the stack of its thread. Scopes of one thread end in the opposite order.
    class Scope {
      public:
        explicit Scope(ThreadScoped& all, T initial = T())
            : value(initial), all_(all), threadId_(GetCurrentThreadId()) {
            const std::lock_guard lock(all_.lock_);
            next_ = all_.first_;
            all_.first_ = this;
        }
        ~Scope() { leave(); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

        /// Ends the scope early; for frames that go without their destructors.
        void leave() {
            const std::lock_guard lock(all_.lock_);
            Scope** link = &all_.first_;
            while (*link != nullptr && *link != this) link = &(*link)->next_;
            if (*link == this) *link = next_;
        }

        T value;

      private:
        friend class ThreadScoped;
        ThreadScoped& all_;
        const DWORD threadId_;
        Scope* next_ = nullptr;
    };

    /// The value of the innermost scope that this thread is in, or null.
    T* innermost() {
        const DWORD thread = GetCurrentThreadId();
        const std::lock_guard lock(lock_);
        Scope* scope = first_;
        while (scope != nullptr && scope->threadId_ != thread) scope = scope->next_;
        return scope != nullptr ? &scope->value : nullptr;
    }

  private:
    CriticalSection lock_;
    Scope* first_ = nullptr;
};

}  // namespace jsw
