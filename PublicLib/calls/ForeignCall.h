#pragma once

#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/logging/LoggerComponent.h"

#include <type_traits>
#include <utility>

namespace jsw {

/// How a call of foreign code ended.
enum class CallEnd {
    returned,
    raised,   ///< it raised a C++ exception of any compiler
    faulted,  ///< it raised another structured exception; the entry guard re-raises it
    skipped,  ///< not called: the entry guard already has an exception to re-raise
};

/// The stack frame around a call of foreign code. See callForeign().
class ForeignCall final : public SehFrame {
  public:
    ForeignCall(const LoggerComponent& component, const char* name);
    ForeignCall(const ForeignCall&) = delete;
    ForeignCall& operator=(const ForeignCall&) = delete;

    bool mayStart() const { return end_ != CallEnd::skipped; }
    void noteCppException() { end_ = CallEnd::raised; }
    CallEnd finish() const;

  private:
    bool catchNow(const EXCEPTION_RECORD& exception) override;
    bool catchOnUnwind() override;
    void logFault(const EXCEPTION_RECORD& exception) const;

    const LoggerComponent& component_;
    const char* const name_;
    EntryGuard* const guard_;  // null on a thread that is not inside the library
    CallEnd end_ = CallEnd::returned;
};

/// Calls foreign code: a module's entry point, the driver's callback, or a system function that
/// runs foreign code. No exception reaches the caller: C++ exceptions are caught and logged here;
/// other structured exceptions are logged before they are handled, and the entry guard re-raises
/// them. The answer is empty unless the end is CallEnd::returned; then GetLastError() is that of
/// the call.
///
/// @param name  of the function, for the log
template <class Call>
auto callForeign(const LoggerComponent& component, const char* name, const Call& call, CallEnd& end)
    -> decltype(call()) {
    using Answer = decltype(call());
    struct Attempt {
        const Call& call;
        ForeignCall frame;
        std::conditional_t<std::is_void_v<Answer>, char, Answer> answer{};

        static void run(void* argument) {
            auto& attempt = *static_cast<Attempt*>(argument);
            try {
                if constexpr (std::is_void_v<Answer>) {
                    attempt.call();
                } else {
                    attempt.answer = attempt.call();
                }
            } catch (...) {
                attempt.frame.noteCppException();
            }
        }
    } attempt{call, {component, name}};
    if (attempt.frame.mayStart()) jswRunInSehFrame(attempt.frame, &Attempt::run, &attempt);
    end = attempt.frame.finish();
    return static_cast<Answer>(std::move(attempt.answer));
}

}  // namespace jsw
