#pragma once

#include <windows.h>

namespace jsw {

/// A stack frame that handles structured exceptions from inside it: those of the system, such as an
/// access violation, and C++ exceptions of other compilers. Neither runs the destructors of this
/// compiler's frames on its way. This compiler's own C++ exceptions pass unnoticed.
///
/// The system handles an exception in two passes over the stack, from the innermost frame outwards:
/// it searches for a frame that catches the exception, then unwinds the frames inside that one.
class SehFrame {
  public:
    /// During the search. True catches the exception before outer frames see it.
    virtual bool catchNow(const EXCEPTION_RECORD& /*exception*/) { return false; }
    /// During unwinding to an outer frame or by longjmp(). True stops it here.
    virtual bool catchOnUnwind() { return false; }

  protected:
    ~SehFrame() = default;
};

/// Runs work(argument) in such a stack frame. Returns when work returns or the frame has caught an
/// exception.
extern "C" void jswRunInSehFrame(SehFrame& frame, void (*work)(void* argument), void* argument);

}  // namespace jsw
