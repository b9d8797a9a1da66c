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
    auto& self = *static_cast<HostGuard*>(guard);
    self.base_ = __builtin_dwarf_cfa();
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
