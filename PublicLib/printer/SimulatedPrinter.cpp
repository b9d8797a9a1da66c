#include "PublicLib/printer/SimulatedPrinter.h"

#include "PublicLib/logging/MethodTrace.h"

#include <windows.h>

namespace jsw {

namespace {

PrinterCacheValues simulatedValues() {
    PrinterCacheValues values;
    values.cartridgeCount = 2;
    values.cartridges = {{{.type = CartridgeType::color,
                           .level = 90,
                           .authenticity = 1,
                           .programType = 1,
                           .serialNumber = 1,
                           .partNumber = "00"},
                          {.type = CartridgeType::black,
                           .level = 10,
                           .authenticity = 2,
                           .programType = 1,
                           .serialNumber = 2,
                           .partNumber = "00"}}};
    values.modemAvailable = true;
    values.blackCartridgeClass = 2;
    values.colorCartridgeClass = 2;
    values.photoCartridgeClass = 2;
    values.deviceSerialNumber = "99Z000000000001";
    return values;
}

}  // namespace

SimulatedPrinterCache::SimulatedPrinterCache()
    : ValuesPrinterCache("SimulatedPrinterCache", simulatedValues()) {
}

SimulatedPrinter::SimulatedPrinter(const std::string& friendlyName) : NullPrinter(friendlyName) {
    MethodTrace trace(component::kJsw,
                      "SimulatedPrinter::SimulatedPrinter(friendlyName=", friendlyName, "):");
    fields() = {.prtHandle = 8195,
                .hidHandle = 8395,
                .scannerHandle = 8595,
                .prt = true,
                .scanner = true,
                .hid = true,
                .network = kLocalTransport,
                .port = "USB003",
                .friendlyName = friendlyName,
                .printHeadClass = 2};
}

bool SimulatedPrinter::init() {
    MethodTrace trace(component::kJsw, "SimulatedPrinter::init()");
    return true;
}

std::uint32_t SimulatedPrinter::print(const std::string& fileName) {
    MethodTrace trace(component::kJsw, "SimulatedPrinter::print(fileName=):");
    trace.add(fileName);
    return ERROR_SUCCESS;
}

IPrinterCache& SimulatedPrinter::getCache() {
    MethodTrace trace(component::kJsw, "SimulatedPrinter::getCache():");
    return cache_;
}

std::uint32_t SimulatedPrinter::ping() {
    MethodTrace trace(component::kJsw, "SimulatedPrinter::ping():");
    return ERROR_SUCCESS;
}

}  // namespace jsw
