#include "jsw/settings/OfnSettings.h"

#include "PublicLib/locks/Locked.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <algorithm>
#include <optional>

namespace jsw {

namespace {

std::string readOriginalFriendlyName(std::string printerName) {
    if (printerName.empty()) return {};
    PrinterHandle printer;
    if (OpenPrinterA(printerName.data(), printer.put(), nullptr) == FALSE) return {};

    std::string valueName = "OriginalFriendlyName";
    DWORD needed = 0;
    DWORD type = REG_NONE;
    GetPrinterDataA(printer.get(), valueName.data(), &type, nullptr, 0, &needed);
    if (needed == 0) return {};
    std::string value(needed, '\0');
    const DWORD error = GetPrinterDataA(printer.get(), valueName.data(), &type,
                                        reinterpret_cast<BYTE*>(value.data()), needed, &needed);
    if (error != ERROR_SUCCESS || type != REG_SZ) return {};
    value.resize(std::min(value.size(), static_cast<std::size_t>(needed)));
    return value.substr(0, value.find('\0'));
}

struct KnownPrinter {
    std::string name;
    std::string originalName;
};
/// The last one asked for; at first the one without a name, which has no original one either.
Locked<KnownPrinter> lastPrinter;

}  // namespace

std::string originalFriendlyName(const std::string& printerName) {
    const auto known = lastPrinter.use([&](const KnownPrinter& last) {
        return last.name == printerName ? std::optional(last.originalName) : std::nullopt;
    });
    if (known) return *known;
    // Without the lock: a printer on another machine may answer slowly.
    std::string originalName = readOriginalFriendlyName(printerName);
    lastPrinter.use([&](KnownPrinter& last) { last = {printerName, originalName}; });
    return originalName;
}

std::string OfnSettings::printerStorePath(const std::string& printerName) {
    return Localize::getInstance()->getProductLineRoot() + "\\IjPrtSettings\\" +
           originalFriendlyName(printerName);
}

OfnSettings::OfnSettings(const std::string& printerName)
    : BasicSettings(printerStorePath(printerName), "") {
}

}  // namespace jsw
