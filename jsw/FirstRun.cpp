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
        RegistryKey(names.getRegistryPath(StoreKind::local), true);
    } catch (const Exception& error) {
        logLine(component::kJsw, kLogError, "ERROR - ", error.text());
        return false;
    }
    // The log does without a store for a while once it has found none.
    if (BasicLogger* logger = BasicLogger::existing()) logger->recheckStore();
    return true;
}

bool installStore(const Localize& names) {
    if (!createLocalStore(names)) return false;
    const std::string file = concat(folderPart(names.modulePath()), names.settingsFileName());
    if (SettingsInstaller(file).installSettings()) return true;
    logLine(component::kJsw, kLogError, "ERROR - unable to install all settings of ", file);
    return false;
}

}  // namespace

bool installStoreIfMissing() {
    if (Settings().isValid()) return true;
    if (installStore(*Localize::getInstance())) return true;
    SetLastError(ERROR_INTERNAL_ERROR);
    return false;
}

}  // namespace jsw
