#include "PublicLib/calls/SehFrame.h"

// MinGW has no __try: the stack frame's function and its unwind data are written out.

// Where that function keeps the SehFrame: above the base of its stack frame, behind the 32 bytes
// that belong to the function it calls.
#define JSW_SEH_FRAME_OFFSET 32
#define JSW_TEXT_OF(number) #number
#define JSW_ASM(number) JSW_TEXT_OF(number)

namespace {

constexpr DWORD kUnwinding = 0x02 | 0x04;  // EXCEPTION_UNWINDING, EXCEPTION_EXIT_UNWIND
constexpr DWORD kTargetUnwind = 0x20;      // the unwinding ends at this frame

/// This compiler's C++ exceptions, which its own handlers catch.
bool isOfThisCompiler(DWORD code) {
    return (code & 0x00FFFFFF) == 0x00474343;
}

}  // namespace

extern "C" {

/// Where jswRunInSehFrame continues after it has caught an exception.
extern char jswSehFrameCaught;  // NOLINT(*-avoid-non-const-global-variables): a place in the code

/// The language-specific handler of jswRunInSehFrame, called by the system in both passes.
__attribute__((used)) EXCEPTION_DISPOSITION jswHandleException(EXCEPTION_RECORD* exception,
                                                               void* base, CONTEXT* /*context*/,
                                                               DISPATCHER_CONTEXT* /*dispatcher*/) {
    const DWORD flags = exception->ExceptionFlags;
    if (isOfThisCompiler(exception->ExceptionCode) || (flags & kTargetUnwind) != 0)
        return ExceptionContinueSearch;
    jsw::SehFrame& frame =
        **reinterpret_cast<jsw::SehFrame**>(static_cast<char*>(base) + JSW_SEH_FRAME_OFFSET);
    CONTEXT context;  // our own: the dispatcher's belongs to the current pass
    if ((flags & kUnwinding) == 0) {
        if (frame.catchNow(*exception))
            RtlUnwindEx(base, &jswSehFrameCaught, exception, nullptr, &context, nullptr);
    } else if (frame.catchOnUnwind()) {
        // Without the current unwinding's record: it may demand a callback in its target frame, as
        // Microsoft's catch (...) does (STATUS_UNWIND_CONSOLIDATE).
        RtlUnwindEx(base, &jswSehFrameCaught, nullptr, nullptr, &context, nullptr);
    }
    return ExceptionContinueSearch;
}

}  // extern "C"

asm(R"(
	.text
	.globl jswRunInSehFrame
	.globl jswSehFrameCaught
	.def jswRunInSehFrame; .scl 2; .type 32; .endef
	.seh_proc jswRunInSehFrame
jswRunInSehFrame:
	subq $56, %rsp
	.seh_stackalloc 56
	.seh_handler jswHandleException, @unwind, @except
	.seh_endprologue
	movq %rcx, )" JSW_ASM(JSW_SEH_FRAME_OFFSET) R"((%rsp)
	movq %r8, %rcx
	call *%rdx
	nop  # a call right before the epilogue would count as part of it, without a handler
jswSehFrameCaught:
	addq $56, %rsp
	ret
	.seh_endproc
)");
