// The exported functions: a guard and one call each. DriverApi.cpp has their steps.
//
// To add one, also declare and describe it in include/jsw/jsw.h, which drivers compile against, and
// name it in jsw.def: only names listed there are exported.

#include "PublicLib/calls/EntryGuard.h"
#include "jsw/Controller.h"
#include "jsw/DriverApi.h"
#include <jsw/jsw.h>

#include <string>

namespace {

using jsw::DriverApi;
using jsw::EntryGuard;
using jsw::component::kJsw;

std::string textOf(const char* text) {
    return text == nullptr ? "" : text;
}

/// For a driver that passes null because it does not know the ink levels.
constexpr InkInfo kUnknownInkInfo = JSW_INK_UNKNOWN;

}  // namespace

extern "C" {

uint8_t JSWInit(const char* friendlyName, const char* jobname, uint32_t jobType,
                uint32_t currentPage, uint32_t totalPages, uint32_t currentCopy,
                uint32_t totalCopies, const InkInfo* inkInfo, uint32_t portType,
                uint32_t secondsRemaining, JswStatusCallback statusCallback) {
    bool started = false;
    EntryGuard::run(kJsw, "JSWInit", [&] {
        // Copied before a lock is taken: reading the driver's memory may fault.
        const InkInfo ink = inkInfo != nullptr ? *inkInfo : kUnknownInkInfo;
        const InkInfo* record = inkInfo != nullptr ? inkInfo : &ink;
        const jsw::Job job{textOf(friendlyName), textOf(jobname), jobType, currentPage, totalPages,
                           currentCopy,          totalCopies,     record,  ink,         portType,
                           secondsRemaining};
        started = DriverApi::instance().init(job, statusCallback);
    });
    return started ? 1 : 0;
}

void JSWTerminate(void) {
    EntryGuard::run(kJsw, "JSWTerminate", [] { DriverApi::instance().terminate(); });
}

void JSWUpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4,
                   uint32_t value5, void* data) {
    EntryGuard::run(kJsw, "JSWUpdateInfo", [&] {
        DriverApi::instance().updateInfo(value1, value2, value3, value4, value5, data);
    });
}

void JSWDisplayPrompt(uint32_t promptType, uint32_t totalPages) {
    EntryGuard::run(kJsw, "JSWDisplayPrompt",
                    [&] { DriverApi::instance().displayPrompt(promptType, totalPages); });
}

uint32_t JSWPostDlgMsg(void* message) {
    EntryGuard::run(kJsw, "JSWPostDlgMsg", [&] { DriverApi::instance().postDlgMsg(message); });
    return 1;
}

/// Also exported as JSWGetAPIVersion.
uint32_t JSWFilterDllMsg(void* /*value1*/, void* /*value2*/, void* /*value3*/) {
    return 1;
}

void* JSWGetWindowHwnd(void) {
    return nullptr;
}

}  // extern "C"
