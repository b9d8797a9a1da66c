// The exported functions: guard and one call each. What they do is in DriverApi.cpp.

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/BasicLogger.h"
#include "jsw/Controller.h"
#include "jsw/DriverApi.h"
#include "jsw/jsw.h"

#include <exception>

namespace {

using jsw::DriverApi;

void logFailure(const char* function, const std::string& reason) noexcept {
    try {
        jsw::logLine(jsw::component::kJsw, jsw::kLogError, "ERROR - ", function, ": ", reason);
    } catch (...) {  // NOLINT(bugprone-empty-catch): no memory to say so
    }
}

/// Runs an exported function's work. No exception reaches the driver.
template <class Result, class Work>
Result guarded(const char* function, Result onFailure, const Work& work) noexcept {
    try {
        return work();
    } catch (const jsw::Exception& error) {
        logFailure(function, error.text());
    } catch (const std::exception& error) {
        logFailure(function, error.what());
    } catch (...) {
        logFailure(function, "unknown exception");
    }
    return onFailure;
}

std::string textOf(const char* text) {
    return text == nullptr ? "" : text;
}

/// A driver that knows nothing of the ink passes null.
InkInfo recordOf(const InkInfo* inkInfo) {
    if (inkInfo != nullptr) return *inkInfo;
    constexpr std::int32_t kNotKnown = -1;
    InkInfo unknown{};
    for (std::int32_t& percent : unknown.InkPercent) percent = kNotKnown;
    return unknown;
}

}  // namespace

extern "C" {

uint8_t JSWInit(const char* friendlyName, const char* jobname, uint32_t jobType,
                uint32_t currentPage, uint32_t totalPages, uint32_t currentCopy,
                uint32_t totalCopies, const InkInfo* inkInfo, uint32_t portType,
                uint32_t secondsRemaining, JswStatusCallback statusCallback) {
    return guarded("JSWInit", uint8_t{0}, [&] {
        const jsw::Job job{textOf(friendlyName), textOf(jobname),   jobType,
                           currentPage,          totalPages,        currentCopy,
                           totalCopies,          recordOf(inkInfo), portType,
                           secondsRemaining};
        return uint8_t{DriverApi::instance().init(job, statusCallback)};
    });
}

void JSWTerminate(void) {
    guarded("JSWTerminate", 0, [] {
        DriverApi::instance().terminate();
        return 0;
    });
}

void JSWUpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4,
                   uint32_t value5, void* data) {
    guarded("JSWUpdateInfo", 0, [&] {
        DriverApi::instance().updateInfo(value1, value2, value3, value4, value5, data);
        return 0;
    });
}

void JSWDisplayPrompt(uint32_t promptType, uint32_t totalPages) {
    guarded("JSWDisplayPrompt", 0, [&] {
        DriverApi::instance().displayPrompt(promptType, totalPages);
        return 0;
    });
}

uint32_t JSWPostDlgMsg(void* message) {
    return guarded("JSWPostDlgMsg", 1U, [&] {
        DriverApi::instance().postDlgMsg(message);
        return 1U;
    });
}

/// Exported as JSWGetAPIVersion too.
uint32_t JSWFilterDllMsg(void* /*value1*/, void* /*value2*/, void* /*value3*/) {
    return 1;
}

void* JSWGetWindowHwnd(void) {
    return nullptr;
}

}  // extern "C"
