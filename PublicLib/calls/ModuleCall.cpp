#include "PublicLib/calls/ModuleCall.h"

#include "PublicLib/calls/FramedCall.h"
#include "PublicLib/calls/Visit.h"
#include "PublicLib/logging/BasicLogger.h"

namespace jsw {

namespace {

constexpr DWORD kCppExceptionOfMicrosoft = 0xE06D7363;

class Call : public FramedCall {
  public:
    explicit Call(const OutsideCode& code) : code_(code) {}

    /// What stopped the call, when something did.
    CallEnd end() const { return end_; }

    void run() override { code_.run(); }
    bool endsHere(const EXCEPTION_RECORD& exception) override {
        return exception.ExceptionCode == kCppExceptionOfMicrosoft;
    }
    bool stopsHere(const EXCEPTION_RECORD& exception) override {
        if (!Visit::keepException(exception)) return false;
        end_ = CallEnd::faulted;
        return true;
    }

  private:
    const OutsideCode& code_;
    CallEnd end_ = CallEnd::raised;
};

CallEnd run(const OutsideCode& code) {
    Call call(code);
    try {
        return runInFrame(call) ? CallEnd::returned : call.end();
    } catch (...) {
        return CallEnd::raised;
    }
}

}  // namespace

CallEnd callOut(const LoggerComponent& component, const char* name, const OutsideCode& code) {
    if (Visit::hasException()) return CallEnd::skipped;
    const CallEnd end = run(code);
    if (end == CallEnd::raised) {
        logLine(component, kLogError, "ERROR - the module raised an exception in ", name);
    } else if (end == CallEnd::faulted) {
        logLine(component, kLogError, "ERROR - the module ended in a system exception in ", name);
    }
    return end;
}

}  // namespace jsw
