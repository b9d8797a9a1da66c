#include "jsw/settings/OfnSettings.h"

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <algorithm>
#include <mutex>

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

struct NameCache {
    CriticalSection lock;
    bool filled = false;
    std::string printerName;
    std::string originalName;
};

NameCache cache;

}  // namespace

std::string originalFriendlyName(const std::string& printerName) {
    {
        const std::lock_guard lock(cache.lock);
        if (cache.filled && cache.printerName == printerName) return cache.originalName;
    }
    // Without the lock: a printer on another machine may answer slowly.
    std::string originalName = readOriginalFriendlyName(printerName);
    const std::lock_guard lock(cache.lock);
    cache.printerName = printerName;
    cache.originalName = originalName;
    cache.filled = true;
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
