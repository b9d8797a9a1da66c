#include "jsw/FirstRun.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/ini/SettingsInstaller.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/SettingNames.h"

#include <windows.h>

#include <cstdint>

namespace jsw {

namespace {

bool isMissing(std::uint32_t error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

/// Raises for a store that may be there but cannot be opened: nothing must be written over it.
bool isInstallationDue(const std::string& store) {
    try {
        std::uint32_t pending = 0;
        const setting::Number& value = setting::kInstallationPending;
        return RegistryKey(store, false).getValue(value.name, pending) && pending != 0;
    } catch (const Win32Exception& error) {
        if (isMissing(static_cast<std::uint32_t>(error.code()))) return true;
        throw;
    }
}

bool mayExist(const std::string& file) {
    return GetFileAttributesA(file.c_str()) != INVALID_FILE_ATTRIBUTES ||
           !isMissing(GetLastError());
}

/// A file that is there but was not read to its end, such as one that another program had locked,
/// is tried again by the next job.
void notePending(RegistryKey& store, bool pending) {
    const char* const name = setting::kInstallationPending.name;
    std::uint32_t before = 0;
    if (pending) {
        store.setValue(name, std::uint32_t{1});
    } else if (store.getValue(name, before)) {
        store.deleteValue(name);
    }
}

/// The log goes by what it last read for a while; now there are settings to read.
void recheckLog() {
    if (const auto logger = BasicLogger::existing()) logger->recheckStore();
}

bool installStore(const std::string& path) {
    RegistryKey store(path, true);
    recheckLog();
    const std::string file = settingsFilePath();
    SettingsInstaller installer(file);
    const bool installed = installer.installSettings();
    recheckLog();
    if (!installed) {
        logLine(component::kJsw, kLogError, "ERROR - unable to install all settings of ", file);
    }
    notePending(store, !installer.isThrough() && mayExist(file));
    return installed;
}

}  // namespace

std::string settingsFilePath() {
    const auto names = Localize::getInstance();
    return concat(folderPart(names->modulePath()), names->settingsFileName());
}

bool installStoreIfMissing() {
    try {
        const std::string store = Localize::getInstance()->getRegistryPath(StoreKind::local);
        if (!isInstallationDue(store) || installStore(store)) return true;
    } catch (const Exception& error) {
        // Asks no switch: without a store there are none, and nobody would hear of it.
        writeLogLine(component::kJsw, kLogError, concat("ERROR - ", error.text()));
    }
    SetLastError(ERROR_INTERNAL_ERROR);
    return false;
}

}  // namespace jsw
