#include "PublicLib/printer/RealPrinter.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/printer/DeviceEnumerator.h"
#include "PublicLib/printer/DiscoveredDevices.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/PrinterCache.h"
#include "jsw/settings/Settings.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <vector>

namespace jsw {

namespace {

constexpr std::int32_t kGoOn = 1;
constexpr std::size_t kCacheSize = 4096;

/// The file name of the device client; nothing when it cannot be told. An empty setting is taken as
/// it is: a printer shared from elsewhere needs no client, and for others none can be loaded.
std::optional<std::string> pcsClientName() {
    std::string name;
    if (Settings().read(setting::kPcsClient, name)) return name;
    logLine(component::kJsw, kLogError,
            "Error - settings.getStringValue(keyName=", setting::kPcsClient.key,
            ", valueName=", setting::kPcsClient.name, ", rc=false.");
    const std::string localId = Localize::getInstance()->localId();
    if (localId.empty()) {
        logLine(component::kJsw, kLogError, "Localization returned an empty id.");
        return std::nullopt;
    }
    return localId + "Comc.dll";
}

/// A text property of a device, and the client's status when it did not give it.
struct TextProperty {
    PcsStatus status;
    std::string text{};
};

using GetString = PcsStatus (PcsClient::*)(JSW_PCS_PARAMS_STRING);

TextProperty readProperty(PcsClient& client, GetString getString, PcsHandle handle,
                          const char* property) {
    std::array<char, 1024> buffer{};
    std::uint32_t length = 0;
    const PcsStatus status = (client.*getString)(
        handle, property, buffer.data(), static_cast<std::uint32_t>(buffer.size()), &length);
    if (status != ERROR_SUCCESS) return {status};
    const auto end = std::find(buffer.begin(), buffer.end(), '\0');
    return {status, std::string(buffer.begin(), end)};
}

/// What tells the search for a HID interface from that for a scanner.
struct InterfaceKind {
    GetString getString;
    const char* emptyList;
    const char* notFound;
    const char* queryFailed;  // null: a failed query is passed over silently
};

const InterfaceKind kHid{&PcsClient::getStringHid,
                         "Empty HidHandles List. Matching Hid handle not found.",
                         "Matching hid handle not found.", nullptr};
const InterfaceKind kScanner{
    &PcsClient::getStringScanner, "Empty ScannerHandles List. Matching scanner handle not found.",
    "Matching scanner handle not found.", "getPcsClient()->getStringScanner rc="};

/// The first interface on the port; 0 when there is none.
PcsHandle findOnPort(PcsClient& client, const InterfaceKind& kind,
                     const std::vector<PcsHandle>& handles, const std::string& port,
                     MethodTrace& trace) {
    if (handles.empty()) {
        trace.add(kind.emptyList);
        return 0;
    }
    for (const PcsHandle handle : handles) {
        const TextProperty found =
            readProperty(client, kind.getString, handle, JSW_DEVICE_PORT_PROPERTY);
        if (found.status != ERROR_SUCCESS) {
            if (kind.queryFailed != nullptr) trace.add(kind.queryFailed, found.status);
        } else if (found.text == port) {
            trace.add("Found matching port name =", port);
            return handle;
        }
    }
    trace.add(kind.notFound);
    return 0;
}

std::shared_ptr<IPrinterCache> makeNullCache() {
    try {
        return std::make_shared<NullPrinterCache>();
    } catch (const std::bad_alloc&) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to allocate memory for NullPrinterCache!");
        throw Exception("No memory", 8, "RealPrinter", 404);
    }
}

}  // namespace

RealPrinter::RealPrinter(const std::string& friendlyName) : NullPrinter(friendlyName) {
    MethodTrace trace(component::kJsw, "RealPrinter::RealPrinter(friendlyName=", friendlyName,
                      "):");
}

RealPrinter::~RealPrinter() {
    MethodTrace trace(component::kJsw, "RealPrinter::~RealPrinter():");
    trace.add("destroying PrinterCache.");
    cache_.reset();
}

bool RealPrinter::init() {
    bool found = false;
    runGuarded(component::kJsw, "RealPrinter::init", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::init()");
        const auto dllName = pcsClientName();
        if (!dllName) return;
        setPcsClientDllName(*dllName);
        const bool usable = queryDeviceInfo();
        trace.setResult(usable);
        found = usable;
    });
    return found;
}

std::uint32_t RealPrinter::print(const std::string& /*fileName*/) {
    MethodTrace trace(component::kJsw, "RealPrinter::print: ");
    return ERROR_SUCCESS;
}

bool RealPrinter::queryDeviceInfo() {
    MethodTrace trace(component::kJsw, "RealPrinter::queryDeviceInfo: ");
    std::unique_ptr<PcsClient> client;
    const DiscoveredDevices::Discovery discovery;  // ends, and with it what was found, first
    if (isSharedFromElsewhere(trace)) {
        trace.add("true");
        return true;
    }
    client = makeClient(true);
    if (!client || !findPrinter(*client, trace)) {
        trace.add("false");
        return false;
    }
    readTransport(*client, trace);
    findHid(*client, trace);
    findScanner(*client, trace);
    return true;
}

/// Such a printer is reached through the other computer only; no client is loaded.
bool RealPrinter::isSharedFromElsewhere(MethodTrace& trace) {
    const DeviceEnumerator spooler;
    const std::string& friendlyName = fields().friendlyName;
    if (!spooler.isUncPortName(friendlyName)) return false;
    trace.add("Printer is a peer-to-peer. Cannot communicate with Scanner.");
    setPort(spooler.getPortName(friendlyName));
    setPrt(true);
    return true;
}

bool RealPrinter::findPrinter(PcsClient& client, MethodTrace& trace) {
    client.enumWindowsPrinters(JSW_DEVICE_ALL_TRANSPORTS, "", enumPrtCallback);
    if (processPrinters() == 0) {
        trace.add("PCS printer enumeration failed.");
        return false;
    }
    setPrt(true);
    return true;
}

void RealPrinter::readTransport(PcsClient& client, MethodTrace& trace) {
    const TextProperty transport = readProperty(client, &PcsClient::getStringPrinter,
                                                getPrtHandle(), JSW_DEVICE_TRANSPORT_PROPERTY);
    if (transport.status != ERROR_SUCCESS) return;
    trace.add("pcsClient::getStringPrinter rc=", transport.status);
    const bool local =
        transport.text == JSW_DEVICE_LOCAL_USB || transport.text == JSW_DEVICE_LOCAL_PARALLEL;
    setNetwork(local ? kLocalTransport : kNetworkTransport);
    trace.add("Connection Type - ", fields().network);
}

void RealPrinter::findHid(PcsClient& client, MethodTrace& trace) {
    client.enumHids(JSW_DEVICE_ALL_TRANSPORTS, "", enumHidCallback);
    const PcsHandle handle = processHidList(client);
    setHidHandle(handle);
    if (handle != 0) {
        setHid(true);
    } else {
        trace.add("PCS hid enumeration failed.");
    }
}

void RealPrinter::findScanner(PcsClient& client, MethodTrace& trace) {
    client.enumScanners(JSW_DEVICE_ALL_TRANSPORTS, "", enumScanCallback);
    const PcsHandle handle = processScannerList(client);
    setScannerHandle(handle);
    if (handle != 0) {
        setScanner(true);
    } else {
        trace.add("PCS scanner enumeration failed.");
    }
}

std::int32_t RealPrinter::processPrinters() {
    MethodTrace trace(component::kJsw, "RealPrinter::processPrinters()");
    const DiscoveredPrinter printer =
        DiscoveredDevices::instance().findPrinter(fields().friendlyName);
    setPrtHandle(printer.handle);
    setPort(printer.handle != 0 ? printer.port : "");
    trace.setResult(printer.handle);
    return printer.handle;
}

std::int32_t RealPrinter::processHidList(PcsClient& client) {
    MethodTrace trace(component::kJsw, "RealPrinter::processHidList():");
    return findOnPort(client, kHid, DiscoveredDevices::instance().hids(), fields().port, trace);
}

std::int32_t RealPrinter::processScannerList(PcsClient& client) {
    MethodTrace trace(component::kJsw, "RealPrinter::processScannerList():");
    return findOnPort(client, kScanner, DiscoveredDevices::instance().scanners(), fields().port,
                      trace);
}

std::int32_t RealPrinter::enumPrtCallback(JswDeviceClientId clientId, JswDeviceHandle handle,
                                          const char* friendlyName, const char* port) {
    runGuarded(component::kJsw, "RealPrinter::enumPrtCallback", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::enumPrtCallback(clientId=", clientId,
                          ", handle=", handle, ", friendlyName = ", friendlyName, ", port = ", port,
                          "): ");
        if (friendlyName == nullptr) return;
        DiscoveredDevices::instance().addPrinter(friendlyName,
                                                 {handle, port != nullptr ? port : ""});
    });
    return kGoOn;
}

std::int32_t RealPrinter::enumHidCallback(JswDeviceClientId clientId, JswDeviceHandle handle) {
    runGuarded(component::kJsw, "RealPrinter::enumHidCallback", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::enumHidCallback(clientId=", clientId,
                          ", handle=", handle, "): ");
        DiscoveredDevices::instance().addHid(handle);
    });
    return kGoOn;
}

std::int32_t RealPrinter::enumScanCallback(JswDeviceClientId clientId, JswDeviceHandle handle) {
    runGuarded(component::kJsw, "RealPrinter::enumScanCallback", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::enumScanCallback(clientId=", clientId,
                          ", handle=", handle, "): ");
        DiscoveredDevices::instance().addScanner(handle);
    });
    return kGoOn;
}

IPrinterCache& RealPrinter::getCache() {
    MethodTrace trace(component::kJsw, "RealPrinter::getCache: ");
    const std::lock_guard lock(cacheLock_);
    if (!cache_) {
        cache_ = readCache(trace);
        trace.add("PrinterCache");
    }
    return *cache_;
}

/// Never null.
std::shared_ptr<IPrinterCache> RealPrinter::readCache(MethodTrace& trace) const {
    std::vector<std::uint8_t> stream;
    try {
        stream.resize(kCacheSize);
    } catch (const std::bad_alloc&) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to allocate memory for cache, using NullPrinterCache!");
        return makeNullCache();
    }
    const PcsStatus status = fetchCache(stream);
    if (status != ERROR_SUCCESS) {
        trace.add("pcsClient->getCachePrinter rc=", status);
        trace.add("Using NullPrinterCache");
        return makeNullCache();
    }
    try {
        return std::make_shared<PrinterCache>(stream.data(), stream.size());
    } catch (const std::exception&) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to create PrinterCache, using NullPrinterCache!!!");
        return makeNullCache();
    }
}

/// Fills the buffer and cuts it to what was read.
JswDeviceStatus RealPrinter::fetchCache(std::vector<std::uint8_t>& stream) const {
    const auto client = makeClient(true);
    if (!client) return ERROR_NOT_ENOUGH_MEMORY;
    std::uint32_t length = 0;
    const auto size = static_cast<std::uint32_t>(stream.size());
    const PcsStatus status =
        client->getCachePrinter(fields().prtHandle, stream.data(), size, &length);
    stream.resize(std::min(length, size));
    return status;
}

std::unique_ptr<PcsClient> RealPrinter::makeClient(bool keepLoaded) const {
    try {
        return std::make_unique<PcsClient>(fields().pcsClientDllName, "", keepLoaded);
    } catch (const std::exception&) {
        logLine(component::kJsw, kLogError, "ERROR - unable to load / create pcsClient.");
        return nullptr;
    }
}

}  // namespace jsw
