// How RealPrinter finds its device among the client's: the printer by its name, the other
// interfaces by its port.

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/locks/Locked.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/DeviceEnumerator.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/RealPrinter.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <map>

namespace jsw {

namespace {

constexpr std::int32_t kGoOn = 1;

struct DiscoveredPrinter {
    PcsHandle handle = 0;
    std::string port{};
};

/// The devices that the client has enumerated. One per process, because the client's callbacks have
/// no context argument; they may run on any thread.
struct Discovered {
    std::map<std::string, DiscoveredPrinter> printers{};  // by friendly name, letter case included
    std::vector<PcsHandle> hids{};
    std::vector<PcsHandle> scanners{};
};
NeverDestroyed<Locked<Discovered>> discovered;
NeverDestroyed<CriticalSection> discoveryLock;

/// During its lifetime its thread is the one that discovers; starts with nothing found.
class Discovery {
  public:
    Discovery() : lock_(*discoveryLock) { forget(); }
    ~Discovery() { forget(); }
    Discovery(const Discovery&) = delete;
    Discovery& operator=(const Discovery&) = delete;

  private:
    static void forget() {
        discovered->use([](Discovered& found) { found = {}; });
    }

    std::lock_guard<CriticalSection> lock_;
};

/// A text property of a device, or the client's error status.
struct TextProperty {
    PcsStatus status;
    std::string text{};
};

/// The client's function that returns text properties of one kind of device.
using GetString = PcsStatus (PcsClient::*)(JSW_PCS_PARAMS_STRING);

TextProperty readProperty(PcsClient& client, GetString getString, PcsHandle handle,
                          const char* property) {
    std::array<char, 1024> buffer{};
    std::uint32_t length = 0;
    const PcsStatus status = (client.*getString)(
        handle, property, buffer.data(), static_cast<std::uint32_t>(buffer.size()), &length);
    if (status != ERROR_SUCCESS) return {status};
    return {status, std::string(buffer.begin(), std::ranges::find(buffer, '\0'))};
}

/// The differences between searching a HID interface and a scanner.
struct InterfaceKind {
    std::vector<PcsHandle> Discovered::*list;
    GetString getString;
    const char* emptyList;
    const char* notFound;
    const char* queryFailed;  // null: a failed query is not logged
};
constexpr InterfaceKind kHid{&Discovered::hids, &PcsClient::getStringHid,
                             "Empty HidHandles List. Matching Hid handle not found.",
                             "Matching hid handle not found.", nullptr};
constexpr InterfaceKind kScanner{&Discovered::scanners, &PcsClient::getStringScanner,
                                 "Empty ScannerHandles List. Matching scanner handle not found.",
                                 "Matching scanner handle not found.",
                                 "getPcsClient()->getStringScanner rc="};

/// A callback of the client for an interface of this kind; its name is the one in the log.
std::int32_t noteInterface(const char* callback, const InterfaceKind& kind,
                           JswDeviceClientId clientId, PcsHandle handle) {
    EntryGuard::run(component::kJsw, callback, [&] {
        MethodTrace trace(component::kJsw, callback, "(clientId=", clientId, ", handle=", handle,
                          "): ");
        discovered->use([&](Discovered& found) { (found.*kind.list).push_back(handle); });
    });
    return kGoOn;
}

/// The first interface on the port; 0 if there is none.
PcsHandle findOnPort(PcsClient& client, const InterfaceKind& kind, const std::string& port,
                     MethodTrace& trace) {
    const auto handles = discovered->use([&](const Discovered& found) { return found.*kind.list; });
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
    trace.add(handles.empty() ? kind.emptyList : kind.notFound);
    return 0;
}

}  // namespace

bool RealPrinter::queryDeviceInfo() {
    MethodTrace trace(component::kJsw, "RealPrinter::queryDeviceInfo: ");
    std::unique_ptr<PcsClient> client;
    const Discovery discovery;  // destroyed first, with what was found
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
    findInterfaces(*client, trace);
    return true;
}

/// Such a printer can only be reached through the other computer; no client is loaded.
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

void RealPrinter::findInterfaces(PcsClient& client, MethodTrace& trace) {
    client.enumHids(JSW_DEVICE_ALL_TRANSPORTS, "", enumHidCallback);
    setHidHandle(processHidList(client));
    if (fields().hidHandle == 0) {
        trace.add("PCS hid enumeration failed.");
    } else {
        setHid(true);
    }
    client.enumScanners(JSW_DEVICE_ALL_TRANSPORTS, "", enumScanCallback);
    setScannerHandle(processScannerList(client));
    if (fields().scannerHandle == 0) {
        trace.add("PCS scanner enumeration failed.");
    } else {
        setScanner(true);
    }
}

std::int32_t RealPrinter::processPrinters() {
    MethodTrace trace(component::kJsw, "RealPrinter::processPrinters()");
    const DiscoveredPrinter printer = discovered->use([this](const Discovered& found) {
        const auto entry = found.printers.find(fields().friendlyName);
        return entry != found.printers.end() ? entry->second : DiscoveredPrinter{};
    });
    setPrtHandle(printer.handle);
    setPort(printer.handle != 0 ? printer.port : "");
    return trace.returning(printer.handle);
}

std::int32_t RealPrinter::processHidList(PcsClient& client) {
    MethodTrace trace(component::kJsw, "RealPrinter::processHidList():");
    return findOnPort(client, kHid, fields().port, trace);
}

std::int32_t RealPrinter::processScannerList(PcsClient& client) {
    MethodTrace trace(component::kJsw, "RealPrinter::processScannerList():");
    return findOnPort(client, kScanner, fields().port, trace);
}

std::int32_t RealPrinter::enumPrtCallback(JswDeviceClientId clientId, JswDeviceHandle handle,
                                          const char* friendlyName, const char* port) {
    EntryGuard::run(component::kJsw, "RealPrinter::enumPrtCallback", [&] {
        MethodTrace trace(component::kJsw, "RealPrinter::enumPrtCallback(clientId=", clientId,
                          ", handle=", handle, ", friendlyName = ", friendlyName, ", port = ", port,
                          "): ");
        if (friendlyName == nullptr) return;
        discovered->use([&](Discovered& found) {
            found.printers[friendlyName] = {handle, port != nullptr ? port : ""};
        });
    });
    return kGoOn;
}

std::int32_t RealPrinter::enumHidCallback(JswDeviceClientId clientId, JswDeviceHandle handle) {
    return noteInterface("RealPrinter::enumHidCallback", kHid, clientId, handle);
}

std::int32_t RealPrinter::enumScanCallback(JswDeviceClientId clientId, JswDeviceHandle handle) {
    return noteInterface("RealPrinter::enumScanCallback", kScanner, clientId, handle);
}

}  // namespace jsw
