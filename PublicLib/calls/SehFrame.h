#pragma once

#include <windows.h>

namespace jsw {

/// A stack frame that is asked about structured exceptions from inside it: those of the system,
/// such as an access violation, and the C++ exceptions of another compiler. Neither runs the
/// destructors of this compiler's frames that it passes. This compiler's own C++ exceptions are not
/// asked about.
///
/// An exception is handled in two passes over the stack, from the inside out: the search for a
/// frame that handles it, then the unwinding of the frames below that one.
class SehFrame {
  public:
    /// In the search. True catches the exception before any frame further out is asked.
    virtual bool catchNow(const EXCEPTION_RECORD& exception) = 0;
    /// In the unwinding, for a frame further out or for longjmp(). True stops it.
    virtual bool catchOnUnwind() = 0;

  protected:
    ~SehFrame() = default;
};

/// Runs work(frame) in such a stack frame. Returns when the work does, or when the frame has caught
/// an exception.
extern "C" void jswRunInSehFrame(SehFrame& frame, void (*work)(SehFrame& frame));

}  // namespace jsw
