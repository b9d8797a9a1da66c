#include "PublicLib/printer/DeviceEnumerator.h"

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/PrinterSettings.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <cstddef>
#include <span>

namespace jsw {

namespace {

constexpr DWORD kPrinterKinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
constexpr DWORD kInfoLevel = 2;
constexpr int kMaxTries = 4;  // printers may be added while the buffer grows

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

std::vector<SpoolerPrinter> spoolerPrinters() {
    std::vector<std::byte> buffer;  // begins with records, which point into the rest of it
    DWORD error = ERROR_SUCCESS;
    for (int i = 0; i < kMaxTries; ++i) {
        DWORD needed = 0;
        DWORD count = 0;
        const auto size = static_cast<DWORD>(buffer.size());
        if (EnumPrintersA(kPrinterKinds, nullptr, kInfoLevel,
                          reinterpret_cast<BYTE*>(buffer.data()), size, &needed, &count)) {
            const auto* const records = reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data());
            std::vector<SpoolerPrinter> printers;
            for (const PRINTER_INFO_2A& record : std::span(records, count)) {
                printers.push_back({textOf(record.pPrinterName), textOf(record.pDriverName),
                                    textOf(record.pPortName)});
            }
            return printers;
        }
        error = GetLastError();
        if (error != ERROR_INSUFFICIENT_BUFFER) break;
        buffer.resize(needed);
    }
    logLine(component::kJsw, kLogError, "ERROR - EnumPrinters failed with rc =", error);
    return {};
}

}  // namespace

DeviceEnumerator::DeviceEnumerator() {
    MethodTrace trace(component::kJsw, "DeviceEnumerator::DeviceEnumerator: ");
    printers_ = spoolerPrinters();
    std::string driver;
    settingReader().readText(setting::kDriverName, driver);
    if (!driver.empty()) {
        std::erase_if(printers_, [&](const SpoolerPrinter& printer) {
            return !equalsIgnoringCase(printer.driver, driver);
        });
    }
    for (const SpoolerPrinter& printer : printers_) {
        trace.add("printer=", printer.name, ", driver=", printer.driver, ", port=", printer.port);
    }
}

std::string DeviceEnumerator::getPortName(const std::string& friendlyName) const {
    MethodTrace trace(component::kJsw, "DeviceEnumerator::getPortName: ");
    const auto printer = std::ranges::find_if(printers_, [&](const SpoolerPrinter& candidate) {
        return equalsIgnoringCase(candidate.name, friendlyName);
    });
    return trace.returning(printer != printers_.end() ? printer->port : std::string());
}

bool DeviceEnumerator::isUncPortName(const std::string& friendlyName) const {
    MethodTrace trace(component::kJsw, "DeviceEnumerator::isUncPortName: ");
    return trace.returning(getPortName(friendlyName).starts_with("\\\\"));
}

}  // namespace jsw
