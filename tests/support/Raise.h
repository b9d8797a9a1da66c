#pragma once

#include "PublicLib/calls/SehFrame.h"

#include <windows.h>

#include <functional>
#include <vector>

namespace jsw::test {

/// Raises a structured exception like a C++ exception of another compiler.
inline void raiseForeignException() {
    const ULONG_PTR arguments[] = {0x19930520, 0, 0};
    RaiseException(0xE06D7363, EXCEPTION_NONCONTINUABLE, 3, arguments);
}

/// Reads an invalid address: not null, which a debug build checks for.
inline void fault() {
    const volatile int* volatile nowhere = reinterpret_cast<const int*>(8);
    static_cast<void>(*nowhere);
}

/// A host's guard around a call of an untrusted library: handles every structured exception of the
/// work.
class HostGuard : public SehFrame {
  public:
    /// How the host unwinds the frames in between.
    enum class Unwind {
        withRecord,    ///< as __except does
        withoutOne,    ///< as RtlUnwind(…, nullptr, …)
        consolidating  ///< as Microsoft's catch (...)
    };

    /// The exceptions that the host got, the last of which ended the work.
    /// @param whenAsked  called before the host decides
    static std::vector<EXCEPTION_RECORD> handle(
        const std::function<void()>& work, Unwind unwind = Unwind::withRecord,
        const std::function<void()>& whenAsked = [] {}) {
        HostGuard guard(work, unwind, whenAsked);
        jswRunInSehFrame(guard, &HostGuard::run, &guard);
        return guard.asked_;
    }
    /// The code of the exception that came out, or 0.
    static DWORD exceptionOf(const std::function<void()>& work) {
        const auto asked = handle(work);
        return asked.empty() ? 0 : asked.back().ExceptionCode;
    }

    bool catchNow(const EXCEPTION_RECORD& exception) override;

  private:
    HostGuard(const std::function<void()>& work, Unwind unwind,
              const std::function<void()>& whenAsked)
        : work_(work), whenAsked_(whenAsked), unwind_(unwind) {}
    static void run(void* guard);

    const std::function<void()>& work_;
    const std::function<void()>& whenAsked_;
    const Unwind unwind_;
    void* base_ = nullptr;  // of the stack frame at which unwinding ends
    std::vector<EXCEPTION_RECORD> asked_;
};

}  // namespace jsw::test
