#include "jsw/FirstRun.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/ini/SettingsInstaller.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"

#include <windows.h>

namespace jsw {

namespace {

bool createLocalStore(const Localize& names) {
    try {
        const RegistryKey key(names.getRegistryPath(StoreKind::local), true);
    } catch (const Exception& error) {
        // Asks no switch: without a store there are none, and nobody would hear of it.
        writeLogLine(component::kJsw, kLogError, concat("ERROR - ", error.text()));
        return false;
    }
    return true;
}

/// The log goes by what it last read for a while; now there are settings to read.
void recheckLog() {
    if (const auto logger = BasicLogger::existing()) logger->recheckStore();
}

bool installStore(const Localize& names) {
    if (!createLocalStore(names)) return false;
    recheckLog();
    const std::string file = settingsFilePath();
    const bool installed = SettingsInstaller(file).installSettings();
    recheckLog();
    if (installed) return true;
    logLine(component::kJsw, kLogError, "ERROR - unable to install all settings of ", file);
    return false;
}

}  // namespace

std::string settingsFilePath() {
    const auto names = Localize::getInstance();
    return concat(folderPart(names->modulePath()), names->settingsFileName());
}

bool installStoreIfMissing() {
    if (Settings().isValid()) return true;
    if (installStore(*Localize::getInstance())) return true;
    SetLastError(ERROR_INTERNAL_ERROR);
    return false;
}

}  // namespace jsw
