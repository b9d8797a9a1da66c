#include "tests/support/Raise.h"

extern "C" char jswSehFrameCaught;  // where jswRunInSehFrame continues

namespace jsw::test {

namespace {

/// Called by the system after unwinding; returns where to continue.
void* CALLBACK consolidate(EXCEPTION_RECORD* /*record*/) {
    return &jswSehFrameCaught;
}

}  // namespace

void HostGuard::run(void* guard) {
    CONTEXT context;
    RtlCaptureContext(&context);
    DWORD64 image = 0;
    DWORD64 frame = 0;
    void* handlerData = nullptr;
    auto* const function = RtlLookupFunctionEntry(context.Rip, &image, nullptr);
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, image, context.Rip, function, &context, &handlerData,
                     &frame, nullptr);
    auto& self = *static_cast<HostGuard*>(guard);
    self.base_ = reinterpret_cast<void*>(context.Rsp);  // of the caller, jswRunInSehFrame
    self.work_();
}

bool HostGuard::catchNow(const EXCEPTION_RECORD& exception) {
    asked_.push_back(exception);
    whenAsked_();
    if (unwind_ == Unwind::withRecord) return true;
    EXCEPTION_RECORD record{};
    record.ExceptionCode = 0x80000029;  // STATUS_UNWIND_CONSOLIDATE
    record.NumberParameters = 1;
    record.ExceptionInformation[0] = reinterpret_cast<ULONG_PTR>(&consolidate);
    CONTEXT context;
    RtlUnwindEx(base_, &jswSehFrameCaught, unwind_ == Unwind::consolidating ? &record : nullptr,
                nullptr, &context, nullptr);
    return false;
}

}  // namespace jsw::test
