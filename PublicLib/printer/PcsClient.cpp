#include "PublicLib/printer/PcsClient.h"

#include "PublicLib/logging/Guard.h"
#include "PublicLib/printer/ServerName.h"

#include <mutex>

namespace jsw {

/// Holds the references taken here while the handle is open. Allocates the handle's record first,
/// so that recording an opened handle cannot fail.
PcsStatus PcsClient::open(const char* operation, PcsHandle handle, PcsDevice device) {
    MethodTrace trace(component::kJsw, "PcsClient::", operation, ": ");
    OpenHandles opened;
    if (!runGuarded(component::kJsw, "PcsClient::open", [&] {
            opened.emplace(handle, OpenHandle{0, 1, device});
        })) {
        return trace.returning<PcsStatus>(ERROR_NOT_ENOUGH_MEMORY);
    }
    JswDeviceClientId& clientId = opened.begin()->second.clientId;
    PcsStatus status = acquireForCall(clientId, GivesUp::library);
    if (status != ERROR_SUCCESS) return trace.returning(status);
    const EntryPoint entryPoint = find(operation);
    status = callLibrary(operation, entryPoint, clientId, handle);
    if (entryPoint == nullptr) {
        // HID interfaces and scanners keep the client id: "Fixed interfaces" in
        // docs/architecture.md.
        if (device != PcsDevice::hid && device != PcsDevice::scanner) releaseClientId();
        releaseLibrary();
    } else if (status == ERROR_SUCCESS) {
        const std::lock_guard lock(handleMapLock_);
        openHandles_.merge(opened);
        if (!opened.empty()) ++openHandles_.find(handle)->second.openCount;
    } else {
        release();
    }
    return trace.returning(status);
}

/// Releases what the open took, whatever the library returns. If several threads close one open,
/// one of them releases it. If the library cannot close, the handle's record stays.
PcsStatus PcsClient::closing(const char* operation, PcsHandle handle) {
    MethodTrace trace(component::kJsw, "PcsClient::", operation, ": ");
    const auto clientId = clientIdOf(handle);
    if (!clientId) return trace.returning(kHandleNotOpen);
    const EntryPoint entryPoint = find(operation);
    const PcsStatus status = callLibrary(operation, entryPoint, *clientId, handle);
    if (entryPoint == nullptr || forget(handle)) release();
    return trace.returning(status);
}

PcsStatus PcsClient::acquire() {
    MethodTrace trace(component::kJsw, "PcsClient::acquire: ");
    PcsStatus status = acquireLibrary();
    if (status != ERROR_SUCCESS) return trace.returning(status);
    JswDeviceClientId clientId = 0;
    status = acquireClientId(clientId);
    if (status != ERROR_SUCCESS) releaseLibrary();
    return trace.returning(status);
}

PcsStatus PcsClient::release() {
    MethodTrace trace(component::kJsw, "PcsClient::release: ");
    releaseClientId();
    releaseLibrary();
    return trace.returning<PcsStatus>(ERROR_SUCCESS);
}

PcsStatus PcsClient::checkServerName() {
    MethodTrace trace(component::kJsw, "PcsClient::checkServerName: ");
    PcsStatus status = ERROR_NOT_ENOUGH_MEMORY;
    runGuarded(component::kJsw, "PcsClient::checkServerName",
               [&] { status = findServer(serverName_); });
    return trace.returning(status);
}

PcsStatus PcsClient::closeAllPrinters() {
    MethodTrace trace(component::kJsw, "PcsClient::closeAllPrinters: ");
    return trace.returning(closeAll(PcsDevice::printer));
}

PcsStatus PcsClient::closeAllHids() {
    MethodTrace trace(component::kJsw, "PcsClient::closeAllHids: ");
    return trace.returning(closeAll(PcsDevice::hid));
}

}  // namespace jsw
