#pragma once

#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/logging/LoggerComponent.h"

#include <type_traits>
#include <utility>

namespace jsw {

/// How a call of foreign code ended.
enum class CallEnd {
    returned,
    raised,   ///< a C++ exception, of whatever compiler, came out of it
    faulted,  ///< another structured exception did; the entry guard raises it again for the host
    skipped,  ///< was not called: the entry guard has a structured exception to raise again already
};

/// A call of code that is not the library's: an entry point of a module, the driver's callback, a
/// function of the system that runs others' code. See callForeign().
class ForeignCall : public SehFrame {
  public:
    ForeignCall(const ForeignCall&) = delete;
    ForeignCall& operator=(const ForeignCall&) = delete;

    bool mayStart() const { return end_ != CallEnd::skipped; }
    CallEnd finish() const;

  protected:
    ForeignCall(const LoggerComponent& component, const char* name);
    ~ForeignCall() = default;

    void noteCppException() { end_ = CallEnd::raised; }

  private:
    bool catchNow(const EXCEPTION_RECORD& exception) override;
    bool catchOnUnwind() override;
    void logFault(const EXCEPTION_RECORD& exception) const;

    const LoggerComponent& component_;
    const char* const name_;
    EntryGuard* const guard_;  // null on a thread that is not inside the library
    CallEnd end_ = CallEnd::returned;
};

/// Calls code that is not the library's. Nothing that it raises reaches the caller: C++ exceptions
/// end here, with a line in the log; other structured exceptions are logged before anybody handles
/// them, and raised again by the entry guard. The answer is empty for anything but
/// CallEnd::returned, after which GetLastError() is that of the call.
///
/// @param name  what is called, for the log
template <class Call>
auto callForeign(const LoggerComponent& component, const char* name, const Call& call, CallEnd& end)
    -> decltype(call()) {
    using Answer = decltype(call());
    struct Frame final : ForeignCall {
        const Call& call;
        std::conditional_t<std::is_void_v<Answer>, char, Answer> answer{};
        Frame(const LoggerComponent& c, const char* n, const Call& function)
            : ForeignCall(c, n), call(function) {}
        static void runCall(SehFrame& frame) {
            auto& self = static_cast<Frame&>(frame);
            try {
                if constexpr (std::is_void_v<Answer>) {
                    self.call();
                } else {
                    self.answer = self.call();
                }
            } catch (...) {
                self.noteCppException();
            }
        }
    } frame(component, name, call);
    if (frame.mayStart()) jswRunInSehFrame(frame, &Frame::runCall);
    end = frame.finish();
    return static_cast<Answer>(std::move(frame.answer));
}

/// Calls an entry point of a module. One that raises gets the empty answer, so that the print job
/// never sees it.
template <class Function, class... Args>
auto callEntry(const LoggerComponent& component, const char* name, Function* entry,
               const Args&... args) -> decltype(entry(args...)) {
    CallEnd end{};
    return callForeign(
        component, name, [&] { return entry(args...); }, end);
}

}  // namespace jsw
