// Construction and initialisation of RealPrinter.

#include "PublicLib/printer/RealPrinter.h"

#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/PrinterSettings.h"

#include <windows.h>

#include <exception>
#include <optional>

namespace jsw {

namespace {

/// The file name of the device client; nothing if it cannot be determined. An empty setting is used
/// unchanged: a printer shared from another computer needs no client, and for others none can be
/// loaded.
std::optional<std::string> pcsClientName() {
    std::string name;
    if (settingReader().readText(setting::kPcsClient, name)) return name;
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
        found = trace.returning(queryDeviceInfo());
    });
    return found;
}

std::uint32_t RealPrinter::print(const std::string& /*fileName*/) {
    MethodTrace trace(component::kJsw, "RealPrinter::print: ");
    return ERROR_SUCCESS;
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
