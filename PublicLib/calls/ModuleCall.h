#pragma once

#include "PublicLib/logging/LoggerComponent.h"

#include <type_traits>

namespace jsw {

/// How a call out of the library came to its end.
enum class CallEnd {
    returned,
    raised,   ///< a C++ exception, of whatever compiler, came out of it
    faulted,  ///< another structured exception did; the visit sends it on to the host
    skipped,  ///< was not called: the visit has a structured exception to send on already
};

/// Code that is not the library's: an entry point of a module, the driver's callback.
class OutsideCode {
  public:
    virtual void run() const = 0;

  protected:
    ~OutsideCode() = default;
};

/// Runs code that is not the library's. Nothing that it raises reaches the caller: C++ exceptions
/// end here, with a line in the log, other structured exceptions are kept for the end of the visit
/// (see Visit).
///
/// @param name  what is called, for the log
CallEnd callOut(const LoggerComponent& component, const char* name, const OutsideCode& code);

/// The same for a function object; the answer is empty for anything but CallEnd::returned.
template <class Call>
auto callOut(const LoggerComponent& component, const char* name, const Call& call, CallEnd& end)
    -> decltype(call()) {
    using Answer = decltype(call());
    if constexpr (std::is_void_v<Answer>) {
        struct Code : OutsideCode {
            const Call& call;
            explicit Code(const Call& function) : call(function) {}
            void run() const override { call(); }
        };
        end = callOut(component, name, Code(call));
    } else {
        struct Code : OutsideCode {
            const Call& call;
            Answer& answer;
            Code(const Call& function, Answer& result) : call(function), answer(result) {}
            void run() const override { answer = call(); }
        };
        Answer answer{};
        end = callOut(component, name, Code(call, answer));
        return answer;
    }
}

/// Calls an entry point of a module. One that raises gets the empty answer, so that the print job
/// never sees it.
template <class Function, class... Args>
auto callEntry(const LoggerComponent& component, const char* name, Function* entry,
               const Args&... args) -> decltype(entry(args...)) {
    CallEnd end{};
    return callOut(
        component, name, [&] { return entry(args...); }, end);
}

}  // namespace jsw
