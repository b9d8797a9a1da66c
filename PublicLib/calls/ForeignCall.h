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

/// A call of foreign code: a module's entry point, the driver's callback, or a system function that
/// runs foreign code. See callForeign().
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

/// Calls foreign code. No exception reaches the caller: C++ exceptions are caught and logged here;
/// other structured exceptions are logged before they are handled, and the entry guard re-raises
/// them. The answer is empty unless the end is CallEnd::returned; then GetLastError() is that of
/// the call.
///
/// @param name  of the function, for the log
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

/// Calls an entry point of a module. If it raises, the answer is empty, and the print job goes on.
template <class Function, class... Args>
auto callEntry(const LoggerComponent& component, const char* name, Function* entry,
               const Args&... args) -> decltype(entry(args...)) {
    CallEnd end{};
    return callForeign(
        component, name, [&] { return entry(args...); }, end);
}

}  // namespace jsw
