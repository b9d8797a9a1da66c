#include "PublicLib/printer/PcsClient.h"

#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/ServerName.h"
#include "PublicLib/win/LoadLibrary.h"

#include <windows.h>

#include <utility>

namespace jsw {

namespace {

constexpr PcsStatus kHandleNotOpen = ERROR_INVALID_FUNCTION;

/// Traces an operation and its status.
class CallTrace : public MethodTrace {
  public:
    explicit CallTrace(const char* operation)
        : MethodTrace(component::kJsw, "PcsClient::", operation, ": ") {}
};

}  // namespace

PcsStatus PcsClient::callOnce(const char* operation, const Call& call, GivesUp onClientIdFailure) {
    CallTrace trace(operation);
    JswDeviceClientId clientId = 0;
    PcsStatus status = acquireForCall(clientId, onClientIdFailure);
    if (status != ERROR_SUCCESS) return trace.returning(status);
    status = callLibrary(operation, call, find(operation), clientId);
    release();
    return trace.returning(status);
}

/// The references taken here are kept while the handle is open. The handle's record is made before
/// anything is taken, so that a handle that was opened cannot fail to be remembered.
PcsStatus PcsClient::open(const char* operation, PcsHandle handle, PcsDevice device,
                          const Call& call) {
    CallTrace trace(operation);
    OpenHandles::node_type record = makeRecord(handle, device);
    if (!record) return trace.returning<PcsStatus>(ERROR_NOT_ENOUGH_MEMORY);
    JswDeviceClientId& clientId = record.mapped().clientId;
    PcsStatus status = acquireForCall(clientId, GivesUp::library);
    if (status != ERROR_SUCCESS) return trace.returning(status);
    const EntryPoint entryPoint = find(operation);
    status = callLibrary(operation, call, entryPoint, clientId);
    if (entryPoint == nullptr) {
        releaseUnopened(device);
    } else if (status == ERROR_SUCCESS) {
        remember(std::move(record));
    } else {
        release();
    }
    return trace.returning(status);
}

PcsStatus PcsClient::callByHandle(const char* operation, PcsHandle handle, const Call& call) {
    CallTrace trace(operation);
    const auto clientId = clientIdOf(handle);
    if (!clientId) return trace.returning(kHandleNotOpen);
    return trace.returning(callLibrary(operation, call, find(operation), *clientId));
}

/// Gives up what the open took, whatever the library says; of several threads that close one open,
/// one gives it up. With a library that cannot close, the handle's record stays.
PcsStatus PcsClient::close(const char* operation, PcsHandle handle) {
    CallTrace trace(operation);
    const auto clientId = clientIdOf(handle);
    if (!clientId) return trace.returning(kHandleNotOpen);
    const EntryPoint entryPoint = find(operation);
    const PcsStatus status = callLibrary(operation, withClientId(handle), entryPoint, *clientId);
    if (entryPoint == nullptr || forget(handle)) release();
    return trace.returning(status);
}

PcsStatus PcsClient::callService(const char* operation, const Call& call) {
    CallTrace trace(operation);
    if (acquireLibrary() != ERROR_SUCCESS) return trace.returning<PcsStatus>(ERROR_MOD_NOT_FOUND);
    const PcsStatus status = callLibrary(operation, call, find(operation));
    releaseLibrary();
    return trace.returning(status);
}

/// Loads the library for this call alone and does not initialise it.
PcsStatus PcsClient::callInstall(const char* operation, const Call& call) {
    CallTrace trace(operation);
    const ModuleHandle library = loadLibraryQuietly(dllName_);
    if (!library) return trace.returning<PcsStatus>(GetLastError());
    return trace.returning(callLibrary(operation, call, findIn(library.get(), operation)));
}

PcsStatus PcsClient::acquire() {
    CallTrace trace("acquire");
    PcsStatus status = acquireLibrary();
    if (status != ERROR_SUCCESS) return trace.returning(status);
    JswDeviceClientId clientId = 0;
    status = acquireClientId(clientId);
    if (status != ERROR_SUCCESS) releaseLibrary();
    return trace.returning(status);
}

PcsStatus PcsClient::release() {
    CallTrace trace("release");
    releaseClientId();
    releaseLibrary();
    return trace.returning<PcsStatus>(ERROR_SUCCESS);
}

PcsStatus PcsClient::checkServerName() {
    CallTrace trace("checkServerName");
    PcsStatus status = ERROR_NOT_ENOUGH_MEMORY;
    runGuarded(component::kJsw, "PcsClient::checkServerName",
               [&] { status = findServer(serverName_); });
    return trace.returning(status);
}

PcsStatus PcsClient::closeAllPrinters() {
    CallTrace trace("closeAllPrinters");
    return trace.returning(closeAll(PcsDevice::printer));
}

PcsStatus PcsClient::closeAllHids() {
    CallTrace trace("closeAllHids");
    return trace.returning(closeAll(PcsDevice::hid));
}

}  // namespace jsw
