#include "PublicLib/calls/EntryGuard.h"

#include <algorithm>

namespace jsw {

namespace {

/// Allocated once: the library is never unloaded. If that fails, no thread counts as being inside,
/// and a structured exception unwinds the library's frames.
const DWORD currentGuard = TlsAlloc();

bool isSame(const EXCEPTION_RECORD& one, const EXCEPTION_RECORD& other) {
    const ULONG_PTR* const parameters = one.ExceptionInformation;
    return one.ExceptionCode == other.ExceptionCode &&
           one.NumberParameters == other.NumberParameters &&
           std::equal(parameters, parameters + one.NumberParameters, other.ExceptionInformation);
}

}  // namespace

EntryGuard::EntryGuard()
    : outer_(current()), mustNotWait_(outer_ != nullptr && outer_->mustNotWait_) {
    TlsSetValue(currentGuard, this);
}

EntryGuard* EntryGuard::current() {
    return static_cast<EntryGuard*>(TlsGetValue(currentGuard));
}

bool EntryGuard::note(const EXCEPTION_RECORD& exception) {
    std::optional<EXCEPTION_RECORD>& known = current()->exception_;
    const bool isNew = !known || !isSame(*known, exception);
    known = exception_ = exception;
    return isNew;
}

/// The library's frames, including this one, are unwound without their destructors.
bool EntryGuard::catchOnUnwind() {
    leave();
    return false;
}

void EntryGuard::leave() {
    TlsSetValue(currentGuard, outer_);
}

void EntryGuard::reraiseToHost() const {
    if (!mustReraise_) return;
    if (outer_ != nullptr) outer_->exception_ = exception_;  // known there already
    RaiseException(exception_->ExceptionCode, exception_->ExceptionFlags & EXCEPTION_NONCONTINUABLE,
                   exception_->NumberParameters, exception_->ExceptionInformation);
}

}  // namespace jsw
