#include "PublicLib/calls/ForeignCall.h"

#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string>

namespace jsw {

namespace {

constexpr DWORD kCppExceptionOfMicrosoft = 0xE06D7363;

std::string hex(std::uintptr_t number) {
    std::array<char, 2 * sizeof number> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number, 16).ptr;
    return "0x" + std::string(digits.begin(), end);
}

/// "jswv.dll+0x1234"; the bare address if it is in no module.
std::string placeOf(const void* address) {
    const auto number = reinterpret_cast<std::uintptr_t>(address);
    HMODULE module = nullptr;
    if (GetModuleHandleExA(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            static_cast<const char*>(address), &module) == FALSE)
        return hex(number);
    return concat(fileNamePart(moduleFileName(module)), "+",
                  hex(number - reinterpret_cast<std::uintptr_t>(module)));
}

}  // namespace

ForeignCall::ForeignCall(const LoggerComponent& component, const char* name)
    : component_(component), name_(name), guard_(EntryGuard::current()) {
    if (guard_ != nullptr && guard_->mustReraise_) end_ = CallEnd::skipped;
}

CallEnd ForeignCall::finish() const {
    if (end_ == CallEnd::raised)
        logLine(component_, kLogError, "ERROR - the module raised an exception in ", name_);
    return end_;
}

bool ForeignCall::catchNow(const EXCEPTION_RECORD& exception) {
    if (exception.ExceptionCode == kCppExceptionOfMicrosoft) {
        end_ = CallEnd::raised;
        return true;
    }
    const DWORD lastError = GetLastError();  // a handler may resume the code
    const bool isNew = guard_ == nullptr || guard_->note(exception);
    if (isNew && exception.ExceptionCode != EXCEPTION_STACK_OVERFLOW) logFault(exception);
    SetLastError(lastError);
    return false;
}

/// An unwinding without a search, as by longjmp(), leaves nothing to re-raise.
bool ForeignCall::catchOnUnwind() {
    if (guard_ == nullptr || !guard_->exception_) return false;
    guard_->mustReraise_ = true;
    end_ = CallEnd::faulted;
    return true;
}

/// Logs before the fault is handled, so that the line exists even if the process dies. If logging
/// itself faults, for example because the heap is corrupt, the line is lost.
void ForeignCall::logFault(const EXCEPTION_RECORD& exception) const {
    struct : SehFrame {
        bool catchNow(const EXCEPTION_RECORD& /*another*/) override { return true; }
    } attempt;
    auto report = [&] {
        withoutRaising([&] {
            logLine(component_, kLogError, "ERROR - the module raised exception ",
                    hex(exception.ExceptionCode), " at ", placeOf(exception.ExceptionAddress),
                    " in ", name_);
        });
    };
    jswRunInSehFrame(
        attempt, [](void* work) { (*static_cast<decltype(report)*>(work))(); }, &report);
}

}  // namespace jsw
