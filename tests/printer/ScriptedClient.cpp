// A device client controlled by the test program. Built three times: with everything that the tests
// call, without client ids, and only with initialisation.
#include "tests/printer/ClientScript.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

using jsw::test::ClientScript;
using jsw::test::ScriptedDevice;

#define EXPORTED extern "C" __declspec(dllexport) JswDeviceStatus

namespace {

/// Windows' environment, not the C library's, of which this module has its own copy.
ClientScript& script() {
    char address[32]{};
    GetEnvironmentVariableA(jsw::test::kScriptVariable, address, sizeof address);
    return *reinterpret_cast<ClientScript*>(std::strtoull(address, nullptr, 16));  // NOLINT
}

void shared(const char* name) {
    if (script().onShared != nullptr) script().onShared(name);
}

}  // namespace

EXPORTED PcsInitialize() {
    shared("PcsInitialize");
    if (script().initializeStatus != 0) {
        SetLastError(script().initializeError);
    } else {
        ++script().initialized;
    }
    return script().initializeStatus;
}

EXPORTED PcsUninitialize() {
    --script().initialized;
    if (script().onCall != nullptr) script().onCall("PcsUninitialize");
    return 0;
}

#ifndef WITHOUT_CLIENT_ID
EXPORTED PcsGetClientId(JswDeviceClientId* client, const char* /*server*/) {
    shared("PcsGetClientId");
    *client = 77;
    ++script().clientIdsGiven;
    return script().clientIdStatus;
}
#endif

#ifndef WITHOUT_FUNCTIONS
namespace {

JswDeviceStatus getText(const std::vector<ScriptedDevice>& devices, JswDeviceHandle handle,
                        char* buffer, uint32_t size, uint32_t* length) {
    for (const ScriptedDevice& device : devices) {
        if (device.handle != handle) continue;
        *length = static_cast<uint32_t>(std::min<size_t>(std::strlen(device.port), size));
        std::copy_n(device.port, *length, buffer);  // unterminated when it fills the buffer
        return device.textStatus;
    }
    return ERROR_INVALID_HANDLE;
}

void copyOut(const std::vector<uint8_t>& bytes, uint8_t* buffer, uint32_t size) {
    std::copy_n(bytes.begin(), std::min<size_t>(size, bytes.size()), buffer);
}

template <class... Words>
JswDeviceStatus keep(Words... words) {
    script().words = {static_cast<std::uintptr_t>(words)...};
    return script().callStatus;
}

JswDeviceStatus open(JswDeviceStatus status) {
    if (status == 0) ++script().opened;
    return status;
}

JswDeviceStatus close(const char* name) {
    if (script().onCall != nullptr) script().onCall(name);
    --script().opened;
    return script().callStatus;
}

}  // namespace

EXPORTED PcsEnumWindowsPrinters(JswDeviceClientId client, const char*, const char*,
                                JswDevicePrinterCallback callback) {
    for (const ScriptedDevice& device : script().printers) {
        callback(client, device.handle, device.name, device.port);
    }
    return script().callStatus;
}
EXPORTED PcsEnumHids(JswDeviceClientId client, const char*, const char*,
                     JswDeviceCallback callback) {
    for (const ScriptedDevice& device : script().hids) callback(client, device.handle);
    return script().callStatus;
}
EXPORTED PcsEnumScanners(JswDeviceClientId client, const char*, const char*,
                         JswDeviceCallback callback) {
    for (const ScriptedDevice& device : script().scanners) callback(client, device.handle);
    return script().callStatus;
}
EXPORTED PcsGetStringPrinter(JswDeviceClientId, JswDeviceHandle, const char*, char* buffer,
                             uint32_t, uint32_t* length) {
    *length = static_cast<uint32_t>(script().transport.size());
    std::copy_n(script().transport.data(), *length, buffer);
    return script().transportStatus;
}
EXPORTED PcsGetStringHid(JswDeviceClientId, JswDeviceHandle handle, const char*, char* buffer,
                         uint32_t size, uint32_t* length) {
    return getText(script().hids, handle, buffer, size, length);
}
EXPORTED PcsGetStringScanner(JswDeviceClientId, JswDeviceHandle handle, const char*, char* buffer,
                             uint32_t size, uint32_t* length) {
    return getText(script().scanners, handle, buffer, size, length);
}
EXPORTED PcsGetCachePrinter(JswDeviceClientId, JswDeviceHandle, uint8_t* buffer, uint32_t size,
                            uint32_t* length) {
    ++script().cacheReads;
    shared("PcsGetCachePrinter");
    copyOut(script().cache, buffer, size);
    *length = script().cacheLength;
    return script().cacheStatus;
}
EXPORTED PcsExchangeBidiPrinter(JswDeviceClientId, JswDeviceHandle, const uint8_t* request,
                                uint32_t requestLength, uint8_t* response, uint32_t size,
                                uint32_t* length) {
    shared("PcsExchangeBidiPrinter");
    ++script().exchanges;
    script().requestLength = requestLength;
    std::copy_n(request, std::min<size_t>(requestLength, 16), script().request.begin());
    copyOut(script().response, response, size);
    *length = static_cast<uint32_t>(script().response.size());
    return script().exchangeStatus;
}

// One of each kind of open and close, and one of each family that passes words through.
#define OPENS(device)                                              \
    EXPORTED PcsOpen##device(JswDeviceClientId, JswDeviceHandle) { \
        return open(script().openStatus);                          \
    }
#define CLOSES(device)                                              \
    EXPORTED PcsClose##device(JswDeviceClientId, JswDeviceHandle) { \
        return close("PcsClose" #device);                           \
    }
OPENS(Printer)
CLOSES(Printer)
OPENS(Hid)
CLOSES(Hid)
OPENS(Scanner)
CLOSES(Scanner)
OPENS(CardReader)
EXPORTED PcsGetHostInfo(uintptr_t client, uintptr_t a, uintptr_t b, uintptr_t c, uintptr_t d,
                        uintptr_t e, uintptr_t f) {
    if (script().onCall != nullptr) script().onCall("PcsGetHostInfo");
    return keep(client, a, b, c, d, e, f);
}
EXPORTED PcsWritePrinter(uintptr_t client, uintptr_t handle, uintptr_t a, uintptr_t b) {
    return keep(client, handle, a, b);
}
EXPORTED PcsAddTransport(uintptr_t a, uintptr_t b) {
    return keep(a, b);
}
EXPORTED PcsInstall(uintptr_t a) {
    return keep(a);
}
#endif
