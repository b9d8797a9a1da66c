// How RealPrinter finds its device among those that the client knows.

#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/DeviceEnumerator.h"
#include "PublicLib/printer/DeviceProperty.h"
#include "PublicLib/printer/DiscoveredDevices.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/RealPrinter.h"

#include <windows.h>

namespace jsw {

namespace {

constexpr std::int32_t kGoOn = 1;

}  // namespace

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
    sharedFromElsewhere_ = spooler.isUncPortName(friendlyName);
    if (!sharedFromElsewhere_) return false;
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

std::int32_t RealPrinter::enumPrtCallback(JswDeviceClientId clientId, JswDeviceHandle handle,
                                          const char* friendlyName, const char* port) {
    EntryGuard::run(component::kJsw, "RealPrinter::enumPrtCallback", [&] {
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
    EntryGuard::run(component::kJsw, "RealPrinter::enumHidCallback", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::enumHidCallback(clientId=", clientId,
                          ", handle=", handle, "): ");
        DiscoveredDevices::instance().addHid(handle);
    });
    return kGoOn;
}

std::int32_t RealPrinter::enumScanCallback(JswDeviceClientId clientId, JswDeviceHandle handle) {
    EntryGuard::run(component::kJsw, "RealPrinter::enumScanCallback", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::enumScanCallback(clientId=", clientId,
                          ", handle=", handle, "): ");
        DiscoveredDevices::instance().addScanner(handle);
    });
    return kGoOn;
}

}  // namespace jsw
