/**
 * @file DeviceModule.cpp
 * The entry points of the sample device client, which simulates the printers of a file. The
 * environment variable JSW_DEVICE_FILE names the file; the first user's PcsInitialize reads it.
 */
#include "common/Files.h"
#include "samples/common/ModuleLock.h"
#include "samples/common/Report.h"
#include "samples/device/Devices.h"
#include <jsw/device.h>

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

JSW_DEVICE_ENTRY_POINTS(JSW_MODULE_DECLARE)
JSW_DEVICE_REQUIRE_ENTRY_POINTS

namespace {

using jsw::sample::Device;
using jsw::sample::DeviceKind;
using jsw::sample::Devices;

jsw::sample::ModuleLock stateLock;
std::shared_ptr<const Devices> currentDevices;  // null without users
unsigned users = 0;                             // calls of PcsInitialize minus PcsUninitialize
std::multiset<JswDeviceHandle> openPrinters;
JswDeviceClientId lastClientId = 0;

/** The status of work(devices); a running call keeps its devices alive. */
template <class Work>
JswDeviceStatus with(const Work& work) noexcept {
    try {
        std::shared_ptr<const Devices> devices;
        {
            const std::lock_guard lock(stateLock);
            devices = currentDevices;
        }
        return devices ? work(*devices) : ERROR_NOT_READY;
    } catch (...) {
        return ERROR_OUTOFMEMORY;
    }
}

/** The same for one interface: work(device). */
template <class Work>
JswDeviceStatus withDevice(DeviceKind kind, JswDeviceHandle handle, const Work& work) noexcept {
    return with([&](const Devices& devices) -> JswDeviceStatus {
        const Device* device = devices.find(kind, handle);
        return device == nullptr ? ERROR_INVALID_HANDLE : work(*device);
    });
}

/** Calls call(device) for the interfaces of a kind until the callback stops it. */
template <class Callback, class Call>
JswDeviceStatus enumerate(DeviceKind kind, Callback* callback, const Call& call) noexcept {
    if (callback == nullptr) return ERROR_INVALID_PARAMETER;
    return with([&](const Devices& devices) -> JswDeviceStatus {
        for (const Device& device : devices.all()) {
            if (device.kind == kind && call(device) == 0) break;
        }
        return ERROR_SUCCESS;
    });
}

constexpr size_t kMostBytes = size_t{1024} * 1024;  // of a device file

std::string deviceFilePath() {
    std::string path(GetEnvironmentVariableA("JSW_DEVICE_FILE", nullptr, 0), '\0');
    const auto size = static_cast<DWORD>(path.size());
    path.resize(GetEnvironmentVariableA("JSW_DEVICE_FILE", path.data(), size));
    return path;
}

std::unique_ptr<const Devices> loadDevices() {
    const std::string path = deviceFilePath();
    const std::optional<std::string> text = jsw::common::readStart(path, kMostBytes);
    if (!text) {
        jsw::sample::report("JSW_DEVICE_FILE (" + path + ") cannot be read");
        return nullptr;
    }
    try {
        return std::make_unique<Devices>(jsw::sample::readDeviceFile(*text));
    } catch (const jsw::sample::DeviceFileError& error) {
        jsw::sample::report(path + ": " + error.what());
        return nullptr;
    }
}

/** Copies what fits; returns the number of bytes. */
uint32_t copyOut(const std::vector<uint8_t>& bytes, uint8_t* buffer, uint32_t size) {
    const size_t copied = std::min<size_t>(bytes.size(), size);
    std::copy_n(bytes.begin(), copied, buffer);
    return static_cast<uint32_t>(copied);
}

bool isOpen(JswDeviceHandle printer) {
    const std::lock_guard lock(stateLock);
    return openPrinters.contains(printer);
}

JswDeviceStatus copyText(const std::string& text, char* buffer, uint32_t size, uint32_t* length) {
    if (buffer == nullptr || length == nullptr) return ERROR_INVALID_PARAMETER;
    if (text.size() >= size) return ERROR_INSUFFICIENT_BUFFER;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    *length = static_cast<uint32_t>(text.size());
    return ERROR_SUCCESS;
}

JswDeviceStatus getText(DeviceKind kind, JswDeviceHandle handle, const char* property, char* buffer,
                        uint32_t size, uint32_t* length) noexcept {
    return withDevice(kind, handle, [&](const Device& device) -> JswDeviceStatus {
        const std::string name = property == nullptr ? "" : property;
        if (name == JSW_DEVICE_PORT_PROPERTY) return copyText(device.port, buffer, size, length);
        if (name == JSW_DEVICE_TRANSPORT_PROPERTY) {
            return copyText(device.printer->transport, buffer, size, length);
        }
        return ERROR_NOT_SUPPORTED;
    });
}

}  // namespace

JswDeviceStatus PcsInitialize() {
    try {
        const std::lock_guard lock(stateLock);
        if (users == 0) currentDevices = loadDevices();
        if (!currentDevices) {
            SetLastError(ERROR_FILE_NOT_FOUND);
            return ERROR_FILE_NOT_FOUND;
        }
        ++users;
        return ERROR_SUCCESS;
    } catch (...) {
        SetLastError(ERROR_OUTOFMEMORY);
        return ERROR_OUTOFMEMORY;
    }
}

JswDeviceStatus PcsUninitialize() {
    const std::lock_guard lock(stateLock);
    if (users > 0 && --users == 0) {
        currentDevices.reset();
        openPrinters.clear();
    }
    return ERROR_SUCCESS;
}

JswDeviceStatus PcsGetClientId(JswDeviceClientId* client, const char* /*server*/) {
    if (client == nullptr) return ERROR_INVALID_PARAMETER;
    const std::lock_guard lock(stateLock);
    *client = ++lastClientId;
    return ERROR_SUCCESS;
}

JswDeviceStatus PcsEnumWindowsPrinters(JswDeviceClientId client, const char* /*transports*/,
                                       const char* /*reserved*/,
                                       JswDevicePrinterCallback callback) {
    return enumerate(DeviceKind::printer, callback, [&](const Device& device) {
        return callback(client, device.handle, device.printer->name.c_str(), device.port.c_str());
    });
}

JswDeviceStatus PcsEnumHids(JswDeviceClientId client, const char* /*transports*/,
                            const char* /*reserved*/, JswDeviceCallback callback) {
    return enumerate(DeviceKind::hid, callback,
                     [&](const Device& device) { return callback(client, device.handle); });
}

JswDeviceStatus PcsEnumScanners(JswDeviceClientId client, const char* /*transports*/,
                                const char* /*reserved*/, JswDeviceCallback callback) {
    return enumerate(DeviceKind::scanner, callback,
                     [&](const Device& device) { return callback(client, device.handle); });
}

JswDeviceStatus PcsGetStringPrinter(JswDeviceClientId /*client*/, JswDeviceHandle device,
                                    const char* property, char* buffer, uint32_t size,
                                    uint32_t* length) {
    return getText(DeviceKind::printer, device, property, buffer, size, length);
}

JswDeviceStatus PcsGetStringHid(JswDeviceClientId /*client*/, JswDeviceHandle device,
                                const char* property, char* buffer, uint32_t size,
                                uint32_t* length) {
    return getText(DeviceKind::hid, device, property, buffer, size, length);
}

JswDeviceStatus PcsGetStringScanner(JswDeviceClientId /*client*/, JswDeviceHandle device,
                                    const char* property, char* buffer, uint32_t size,
                                    uint32_t* length) {
    return getText(DeviceKind::scanner, device, property, buffer, size, length);
}

JswDeviceStatus PcsGetCachePrinter(JswDeviceClientId /*client*/, JswDeviceHandle printer,
                                   uint8_t* buffer, uint32_t size, uint32_t* length) {
    return withDevice(DeviceKind::printer, printer, [&](const Device& device) -> JswDeviceStatus {
        const auto& cache = device.printer->cache;
        if (buffer == nullptr || length == nullptr) return ERROR_INVALID_PARAMETER;
        if (cache.empty()) return ERROR_FILE_NOT_FOUND;
        *length = copyOut(cache, buffer, size);
        return ERROR_SUCCESS;
    });
}

JswDeviceStatus PcsOpenPrinter(JswDeviceClientId /*client*/, JswDeviceHandle printer) {
    return withDevice(DeviceKind::printer, printer, [&](const Device&) -> JswDeviceStatus {
        const std::lock_guard lock(stateLock);
        openPrinters.insert(printer);
        return ERROR_SUCCESS;
    });
}

JswDeviceStatus PcsExchangeBidiPrinter(JswDeviceClientId /*client*/, JswDeviceHandle printer,
                                       const uint8_t* request, uint32_t requestLength,
                                       uint8_t* response, uint32_t responseSize,
                                       uint32_t* responseLength) {
    return withDevice(DeviceKind::printer, printer, [&](const Device& device) -> JswDeviceStatus {
        if (request == nullptr || response == nullptr || responseLength == nullptr) {
            return ERROR_INVALID_PARAMETER;
        }
        if (!isOpen(printer)) return ERROR_INVALID_HANDLE;
        const auto answer = jsw::sample::answerPacket(*device.printer, {request, requestLength});
        if (answer.empty()) return ERROR_NOT_SUPPORTED;
        copyOut(answer, response, responseSize);
        *responseLength = static_cast<uint32_t>(answer.size());
        return ERROR_SUCCESS;
    });
}

JswDeviceStatus PcsClosePrinter(JswDeviceClientId /*client*/, JswDeviceHandle printer) {
    const std::lock_guard lock(stateLock);
    const auto open = openPrinters.find(printer);
    if (open == openPrinters.end()) return ERROR_INVALID_HANDLE;
    openPrinters.erase(open);
    return ERROR_SUCCESS;
}
