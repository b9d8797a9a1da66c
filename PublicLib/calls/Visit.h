#pragma once

#include "PublicLib/logging/Guard.h"

#include <windows.h>

#include <cstddef>

namespace jsw {

/// One visit of a thread to the library: a call of an exported function, of a callback that a
/// module was given, or the run of a thread of the library's own.
///
/// A structured exception that comes out of a module, such as an access violation, is the host's to
/// handle or to die of. When the host handles it, the frames of the library must not just vanish:
/// their locks would stay held. So the exception is stopped at the call of the module (callOut()),
/// the visit goes on without calling any module again until the library has been left in order, and
/// then the exception is sent on to the host.
class Visit {
  public:
    /// Runs work as a visit; what it throws goes no further than the log. Does not return when
    /// there is an exception to send on.
    template <class Work>
    static void run(const LoggerComponent& component, const char* where, const Work& work) {
        struct GuardedWork : Body {
            const LoggerComponent& component;
            const char* where;
            const Work& work;
            GuardedWork(const LoggerComponent& c, const char* place, const Work& todo)
                : component(c), where(place), work(todo) {}
            void run() const override { runGuarded(component, where, work); }
        };
        make(GuardedWork(component, where, work));
    }

    /// Whether this thread is on a visit that has an exception to send on.
    static bool hasException();

    /// Keeps the exception for the end of this thread's visit; false when it is on none.
    static bool keepException(const EXCEPTION_RECORD& exception);

    /// Room for what the C++ run-time library notes of the exceptions of this thread's visit, zero
    /// at first; null when it is on none.
    static void* runtimeState();

    static constexpr std::size_t kRuntimeStateSize = 16;

  private:
    struct Body {
        virtual void run() const = 0;

      protected:
        ~Body() = default;
    };

    static void make(const Body& body);
};

}  // namespace jsw
