#include "PublicLib/printer/DeviceEnumerator.h"

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/PrinterSettings.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <cstddef>

namespace jsw {

namespace {

constexpr DWORD kPrinterKinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
constexpr DWORD kInfoLevel = 2;
constexpr int kMaxTries = 4;  // printers may be added while the buffer grows

/// A buffer that begins with `count` records of the spooler; they point into the rest of the
/// buffer.
struct SpoolerAnswer {
    std::vector<std::byte> buffer;
    DWORD count = 0;
};

SpoolerAnswer askSpooler() {
    SpoolerAnswer answer;
    DWORD error = ERROR_SUCCESS;
    for (int i = 0; i < kMaxTries; ++i) {
        DWORD needed = 0;
        const auto size = static_cast<DWORD>(answer.buffer.size());
        auto* const buffer = reinterpret_cast<BYTE*>(answer.buffer.data());
        if (EnumPrintersA(kPrinterKinds, nullptr, kInfoLevel, buffer, size, &needed,
                          &answer.count)) {
            return answer;
        }
        error = GetLastError();
        if (error != ERROR_INSUFFICIENT_BUFFER) break;
        answer.buffer.resize(needed);
    }
    logLine(component::kJsw, kLogError, "ERROR - EnumPrinters failed with rc =", error);
    return {};
}

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

std::vector<SpoolerPrinter> spoolerPrinters() {
    const SpoolerAnswer answer = askSpooler();
    const auto* const records = reinterpret_cast<const PRINTER_INFO_2A*>(answer.buffer.data());
    std::vector<SpoolerPrinter> printers;
    for (DWORD i = 0; i < answer.count; ++i) {
        const PRINTER_INFO_2A& record = records[i];
        printers.push_back(
            {textOf(record.pPrinterName), textOf(record.pDriverName), textOf(record.pPortName)});
    }
    return printers;
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
