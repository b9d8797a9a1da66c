#pragma once

#include "PublicLib/calls/FramedCall.h"

#include <windows.h>

#include <functional>
#include <utility>

namespace jsw::test {

/// Raises what a C++ exception of another compiler looks like to the system.
inline void raiseForeignException() {
    const ULONG_PTR arguments[] = {0x19930520, 0, 0};
    RaiseException(0xE06D7363, EXCEPTION_NONCONTINUABLE, 3, arguments);
}

/// Reads what is not there.
inline void fault() {
    const volatile int* volatile nowhere = nullptr;
    static_cast<void>(*nowhere);
}

/// What a host has around a call of a library that it does not trust: handles whatever structured
/// exception comes out of the work.
class HostGuard : public FramedCall {
  public:
    explicit HostGuard(std::function<void()> work) : work_(std::move(work)) {}

    /// The exception that came out; its code is 0 when none did.
    static EXCEPTION_RECORD recordOf(const std::function<void()>& work) {
        HostGuard guard(work);
        runInFrame(guard);
        return guard.record_;
    }
    static DWORD exceptionOf(const std::function<void()>& work) {
        return recordOf(work).ExceptionCode;
    }

    void run() override { work_(); }
    bool endsHere(const EXCEPTION_RECORD& exception) override {
        record_ = exception;
        return true;
    }
    bool stopsHere(const EXCEPTION_RECORD& /*exception*/) override { return false; }

  private:
    std::function<void()> work_;
    EXCEPTION_RECORD record_{};
};

}  // namespace jsw::test
