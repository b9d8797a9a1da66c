#include "PublicLib/calls/FramedCall.h"

#ifdef _MSC_VER

namespace jsw {

namespace {

int ask(FramedCall& call, const EXCEPTION_RECORD& exception, EXCEPTION_RECORD& last) {
    last = exception;
    return call.endsHere(exception) ? EXCEPTION_EXECUTE_HANDLER : EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

#pragma warning(disable : 4532)  // to return from __finally is to stop the exception
bool runInFrame(FramedCall& call) {
    EXCEPTION_RECORD last{};
    __try {
        __try {
            call.run();
        } __finally {
            if (AbnormalTermination() && last.ExceptionCode != 0 && !call.endsHere(last) &&
                call.stopsHere(last)) {
                return false;
            }
        }
    } __except (ask(call, *(GetExceptionInformation())->ExceptionRecord, last)) {
        return false;
    }
    return true;
}

}  // namespace jsw

#else

// MinGW has no __try: the frame's function and its unwind data are written out.

namespace {

constexpr DWORD kUnwinding = 0x02 | 0x04;  // frames are being taken away, for a handler or an exit
constexpr DWORD kIsTarget = 0x20;          // this frame is the one that stays

/// The exceptions that this compiler's run-time library raises and handles, by their code.
bool isOfThisCompiler(DWORD code) {
    return (code & 0x00FFFFFF) == 0x00474343;
}

}  // namespace

extern "C" {

/// Calls jswRunCall; true when that returns. The call lies 32 bytes above the frame's base, where
/// jswHandleException finds it.
bool jswRunInFrame(jsw::FramedCall* call);

/// Where jswRunInFrame goes on when an exception was stopped: it returns false.
extern char jswFrameStopped;  // NOLINT(*-avoid-non-const-global-variables): a place in the code

__attribute__((used)) void jswRunCall(jsw::FramedCall* call) {
    call->run();
}

/// The frame's handler: the system asks it twice, first who handles the exception and then, when
/// somebody does, while the frames below that one are taken away.
__attribute__((used)) EXCEPTION_DISPOSITION jswHandleException(EXCEPTION_RECORD* exception,
                                                               void* frame, CONTEXT* /*context*/,
                                                               DISPATCHER_CONTEXT* /*dispatcher*/) {
    if (isOfThisCompiler(exception->ExceptionCode) || (exception->ExceptionFlags & kIsTarget) != 0)
        return ExceptionContinueSearch;
    jsw::FramedCall& call = **reinterpret_cast<jsw::FramedCall**>(static_cast<char*>(frame) + 32);
    const bool isUnwinding = (exception->ExceptionFlags & kUnwinding) != 0;
    if (isUnwinding ? call.stopsHere(*exception) : call.endsHere(*exception)) {
        // A context of its own: that of the dispatcher belongs to the unwinding under way.
        CONTEXT context;
        RtlUnwindEx(frame, &jswFrameStopped, exception, nullptr, &context, nullptr);
    }
    return ExceptionContinueSearch;
}

}  // extern "C"

asm(R"(
	.text
	.globl jswRunInFrame
	.globl jswFrameStopped
	.def jswRunInFrame; .scl 2; .type 32; .endef
	.seh_proc jswRunInFrame
jswRunInFrame:
	subq $56, %rsp
	.seh_stackalloc 56
	.seh_handler jswHandleException, @unwind, @except
	.seh_endprologue
	movq %rcx, 32(%rsp)
	call jswRunCall
	movl $1, %eax
	jmp 0f
jswFrameStopped:
	xorl %eax, %eax
0:
	addq $56, %rsp
	ret
	.seh_endproc
)");

namespace jsw {

bool runInFrame(FramedCall& call) {
    return jswRunInFrame(&call);
}

}  // namespace jsw

#endif
