// Which of the discovered devices are RealPrinter's: the printer by its name, the others by its
// port.

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/DeviceProperty.h"
#include "PublicLib/printer/DiscoveredDevices.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/RealPrinter.h"

#include <windows.h>

#include <vector>

namespace jsw {

namespace {

/// What tells the search for a HID interface from that for a scanner.
struct InterfaceKind {
    PcsGetString getString;
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

}  // namespace

std::int32_t RealPrinter::processPrinters() {
    MethodTrace trace(component::kJsw, "RealPrinter::processPrinters()");
    const DiscoveredPrinter printer =
        DiscoveredDevices::instance().findPrinter(fields().friendlyName);
    setPrtHandle(printer.handle);
    setPort(printer.handle != 0 ? printer.port : "");
    return trace.returning(printer.handle);
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

}  // namespace jsw
