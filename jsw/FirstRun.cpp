#include "jsw/FirstRun.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/ini/SettingsInstaller.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/SettingNames.h"

#include <windows.h>

#include <cstdint>
#include <utility>

namespace jsw {

namespace {

/// Followed by the local id. All sessions share the name, as they share the store: a job may be
/// printed by a service.
constexpr char kLockName[] = "Global\\QNSETUP_";

/// Where the mark lies: a value of the key that holds the stores.
std::string marksPath() {
    return Localize::getInstance()->getJswRoot() + "Local";
}
std::string markName() {
    return Localize::getInstance()->localId() + setting::kInstallationPending;
}

/// Raises for a store that may be there but cannot be opened: nothing must be written over it.
bool isInstallationDue(const std::string& store) {
    // The store first: one that is there had its mark before.
    if (RegistryKey::openExisting(store)) return isFirstRunPending();
    const DWORD error = GetLastError();
    if (readOutcome(error) == Read::missing) return true;
    throw Win32Exception("unable to open the store " + store, error);
}

}  // namespace

std::string settingsFilePath() {
    const auto names = Localize::getInstance();
    return concat(folderPart(names->modulePath()), names->settingsFileName());
}

bool isFirstRunPending() {
    // For reading: who may use his store need not have all rights to the key above it.
    return RegGetValueA(HKEY_LOCAL_MACHINE, marksPath().c_str(), markName().c_str(), RRF_RT_ANY,
                        nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

bool FirstRun::installStoreIfMissing() {
    try {
        const auto names = Localize::getInstance();
        const std::string store = names->getRegistryPath(StoreKind::local);
        if (!isInstallationDue(store)) return true;
        lock_.emplace(false, kLockName + names->localId(), true);
        lock_->acquire(INFINITE);
        if (!isInstallationDue(store) || install(store)) return true;
    } catch (const Exception& error) {
        // Asks no switch: without a store there are none, and nobody would hear of it.
        writeLogLine(component::kJsw, kLogError, concat("ERROR - ", error.text()));
    }
    SetLastError(ERROR_INTERNAL_ERROR);
    return false;
}

bool FirstRun::install(const std::string& store) {
    RegistryKey marks(marksPath(), true);
    marks.setValue(markName(), std::uint32_t{1});
    marks_.emplace(std::move(marks));
    const RegistryKey created(store, true);
    const std::string file = settingsFilePath();
    const bool installed = SettingsInstaller(file).installSettings();
    // The log goes by what it last read for a while; now there are settings to read.
    if (const auto logger = BasicLogger::existing()) logger->recheckStore();
    if (!installed) {
        logLine(component::kJsw, kLogError, "ERROR - unable to install all settings of ", file);
    }
    return installed;
}

FirstRun::~FirstRun() {
    if (!marks_) return;
    runGuarded(component::kJsw, "FirstRun::~FirstRun", [this] { marks_->deleteValue(markName()); });
}

}  // namespace jsw
