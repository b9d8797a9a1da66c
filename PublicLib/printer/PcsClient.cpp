#include "PublicLib/printer/PcsClient.h"

#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/ServerName.h"
#include "PublicLib/win/LoadLibrary.h"

#include <windows.h>

#include <optional>
#include <utility>

namespace jsw {

namespace {

constexpr PcsStatus kHandleNotOpen = ERROR_INVALID_FUNCTION;

/// Traces an operation and its status. Where memory is short the trace is, too: the operation goes
/// on, so that what it holds is given up in any case.
class CallTrace {
  public:
    explicit CallTrace(const char* operation) {
        runGuarded(component::kJsw, operation,
                   [&] { trace_.emplace(component::kJsw, "PcsClient::", operation, ": "); });
    }
    PcsStatus done(PcsStatus status) {
        runGuarded(component::kJsw, "PcsClient", [&] {
            if (trace_) trace_->setResult(static_cast<std::int32_t>(status));
        });
        return status;
    }

  private:
    std::optional<MethodTrace> trace_;
};

}  // namespace

PcsStatus PcsClient::callOnce(const char* operation, const Call& call, GivesUp onClientIdFailure) {
    CallTrace trace(operation);
    JswDeviceClientId clientId = 0;
    PcsStatus status = acquireForCall(clientId, onClientIdFailure);
    if (status != ERROR_SUCCESS) return trace.done(status);
    const EntryPoint entryPoint = find(operation);
    status = entryPoint != nullptr ? callLibrary(operation, call, entryPoint, clientId)
                                   : ERROR_PROC_NOT_FOUND;
    release();
    return trace.done(status);
}

/// The references taken here are kept while the handle is open. The handle's record is made before
/// anything is taken, so that a handle that was opened cannot fail to be remembered.
PcsStatus PcsClient::open(const char* operation, PcsHandle handle, PcsDevice device,
                          const Call& call) {
    CallTrace trace(operation);
    OpenHandles::node_type record = makeRecord(handle, device);
    if (!record) return trace.done(ERROR_NOT_ENOUGH_MEMORY);
    JswDeviceClientId& clientId = record.mapped().clientId;
    PcsStatus status = acquireForCall(clientId, GivesUp::library);
    if (status != ERROR_SUCCESS) return trace.done(status);
    const EntryPoint entryPoint = find(operation);
    if (entryPoint == nullptr) {
        releaseUnopened(device);
        return trace.done(ERROR_PROC_NOT_FOUND);
    }
    status = callLibrary(operation, call, entryPoint, clientId);
    if (status == ERROR_SUCCESS) {
        remember(std::move(record));
    } else {
        release();
    }
    return trace.done(status);
}

PcsStatus PcsClient::callByHandle(const char* operation, PcsHandle handle, const Call& call) {
    CallTrace trace(operation);
    const auto clientId = clientIdOf(handle);
    if (!clientId) return trace.done(kHandleNotOpen);
    const EntryPoint entryPoint = find(operation);
    return trace.done(entryPoint != nullptr ? callLibrary(operation, call, entryPoint, *clientId)
                                            : ERROR_PROC_NOT_FOUND);
}

/// Gives up what the open took, whatever the library says; of several threads that close one open,
/// one gives it up. With a library that cannot close, the handle's record stays: callers rely on
/// getting that answer again, not that of a handle that was never open.
PcsStatus PcsClient::close(const char* operation, PcsHandle handle) {
    CallTrace trace(operation);
    const auto clientId = clientIdOf(handle);
    if (!clientId) return trace.done(kHandleNotOpen);
    const EntryPoint entryPoint = find(operation);
    if (entryPoint == nullptr) {
        release();
        return trace.done(ERROR_PROC_NOT_FOUND);
    }
    const auto call = withClientId(handle);
    const PcsStatus status = callLibrary(operation, std::cref(call), entryPoint, *clientId);
    if (forget(handle)) release();
    return trace.done(status);
}

PcsStatus PcsClient::callService(const char* operation, const Call& call) {
    CallTrace trace(operation);
    if (acquireLibrary() != ERROR_SUCCESS) return trace.done(ERROR_MOD_NOT_FOUND);
    const EntryPoint entryPoint = find(operation);
    const PcsStatus status =
        entryPoint != nullptr ? callLibrary(operation, call, entryPoint) : ERROR_PROC_NOT_FOUND;
    releaseLibrary();
    return trace.done(status);
}

/// Loads the library for this call alone and does not initialise it.
PcsStatus PcsClient::callInstall(const char* operation, const Call& call) {
    CallTrace trace(operation);
    const ModuleHandle library = loadLibraryQuietly(dllName_);
    if (!library) return trace.done(GetLastError());
    const EntryPoint entryPoint = findIn(library.get(), operation);
    return trace.done(entryPoint != nullptr ? callLibrary(operation, call, entryPoint)
                                            : ERROR_PROC_NOT_FOUND);
}

PcsStatus PcsClient::acquire() {
    CallTrace trace("acquire");
    PcsStatus status = acquireLibrary();
    if (status != ERROR_SUCCESS) return trace.done(status);
    JswDeviceClientId clientId = 0;
    status = acquireClientId(clientId);
    if (status != ERROR_SUCCESS) releaseLibrary();
    return trace.done(status);
}

PcsStatus PcsClient::release() {
    CallTrace trace("release");
    releaseClientId();
    releaseLibrary();
    return trace.done(ERROR_SUCCESS);
}

PcsStatus PcsClient::checkServerName() {
    CallTrace trace("checkServerName");
    PcsStatus status = ERROR_NOT_ENOUGH_MEMORY;
    runGuarded(component::kJsw, "PcsClient::checkServerName",
               [&] { status = findServer(serverName_); });
    return trace.done(status);
}

PcsStatus PcsClient::closeAllPrinters() {
    CallTrace trace("closeAllPrinters");
    return trace.done(closeAll(PcsDevice::printer));
}

PcsStatus PcsClient::closeAllHids() {
    CallTrace trace("closeAllHids");
    return trace.done(closeAll(PcsDevice::hid));
}

}  // namespace jsw
