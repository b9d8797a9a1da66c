#pragma once

#include <windows.h>

namespace jsw {

/// Work whose frame on the stack has a say in structured exceptions that come from inside it: those
/// of the system, such as an access violation, and the C++ exceptions of another compiler. Neither
/// runs the destructors of frames that it passes.
class FramedCall {
  public:
    virtual void run() = 0;
    /// Whether the exception ends here, before anybody further out is asked.
    virtual bool endsHere(const EXCEPTION_RECORD& exception) = 0;
    /// Somebody further out is going to handle the exception and the frames in between are being
    /// taken away. Whether that is stopped here, so that runInFrame() returns after all.
    virtual bool stopsHere(const EXCEPTION_RECORD& exception) = 0;

  protected:
    ~FramedCall() = default;
};

/// Runs the call in a frame of its own. False when an exception ended, or was stopped, there. This
/// compiler's own C++ exceptions pass as if the frame were not there.
bool runInFrame(FramedCall& call);

}  // namespace jsw
