#include "PublicLib/printer/PcsClient.h"

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/ServerName.h"

#include <windows.h>

#include <utility>

namespace jsw {

namespace {

constexpr PcsStatus kHandleNotOpen = ERROR_INVALID_FUNCTION;

/// Traces an operation and its status.
class CallTrace {
  public:
    explicit CallTrace(const char* operation)
        : trace_(component::kJsw, "PcsClient::", operation, ": ") {}
    PcsStatus done(PcsStatus status) {
        trace_.setResult(static_cast<std::int32_t>(status));
        return status;
    }

  private:
    MethodTrace trace_;
};

}  // namespace

PcsStatus PcsClient::callOnce(const char* operation, const Call& call, GivesUp onClientIdFailure) {
    CallTrace trace(operation);
    JswDeviceClientId clientId = 0;
    PcsStatus status = acquireForCall(clientId, onClientIdFailure);
    if (status != ERROR_SUCCESS) return trace.done(status);
    const EntryPoint entryPoint = find(operation);
    status = entryPoint != nullptr ? call(entryPoint, clientId) : ERROR_PROC_NOT_FOUND;
    release();
    return trace.done(status);
}

/// The references taken here are kept while the handle is open.
PcsStatus PcsClient::open(const char* operation, PcsHandle handle, PcsDevice device,
                          const Call& call) {
    CallTrace trace(operation);
    JswDeviceClientId clientId = 0;
    PcsStatus status = acquireForCall(clientId, GivesUp::library);
    if (status != ERROR_SUCCESS) return trace.done(status);
    const EntryPoint entryPoint = find(operation);
    if (entryPoint == nullptr) {
        releaseUnopened(device);
        return trace.done(ERROR_PROC_NOT_FOUND);
    }
    status = call(entryPoint, clientId);
    if (status == ERROR_SUCCESS) {
        remember(handle, clientId, device);
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
    return trace.done(entryPoint != nullptr ? call(entryPoint, *clientId) : ERROR_PROC_NOT_FOUND);
}

/// Gives up what the open took, whatever the library says: a handle counts as open as long as its
/// references are held, no longer.
PcsStatus PcsClient::close(const char* operation, PcsHandle handle) {
    CallTrace trace(operation);
    const auto clientId = clientIdOf(handle);
    if (!clientId) return trace.done(kHandleNotOpen);
    const EntryPoint entryPoint = find(operation);
    const PcsStatus status =
        entryPoint != nullptr ? withClientId(handle)(entryPoint, *clientId) : ERROR_PROC_NOT_FOUND;
    forget(handle);
    release();
    return trace.done(status);
}

PcsStatus PcsClient::callService(const char* operation, const Call& call) {
    CallTrace trace(operation);
    if (acquireLibrary() != ERROR_SUCCESS) return trace.done(ERROR_MOD_NOT_FOUND);
    const EntryPoint entryPoint = find(operation);
    const PcsStatus status = entryPoint != nullptr ? call(entryPoint, 0) : ERROR_PROC_NOT_FOUND;
    releaseLibrary();
    return trace.done(status);
}

/// Works on a copy of the library's reference of its own, not initialised.
PcsStatus PcsClient::callInstall(const char* operation, const Call& call) {
    CallTrace trace(operation);
    const ModuleHandle library(LoadLibraryA(dllName_.c_str()));
    if (!library) return trace.done(GetLastError());
    const EntryPoint entryPoint = findIn(library.get(), operation);
    return trace.done(entryPoint != nullptr ? call(entryPoint, 0) : ERROR_PROC_NOT_FOUND);
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
    return trace.done(findServer(serverName_));
}

}  // namespace jsw
