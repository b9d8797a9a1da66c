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

/// Followed by the local id. The name is global to all sessions, like the store: a service may
/// print a job.
constexpr char kLockName[] = "Global\\QNSETUP_";

/// The mark is a value of the key that contains the stores.
std::string marksPath() {
    return Localize::getInstance()->getJswRoot() + "Local";
}
std::string markName() {
    return Localize::getInstance()->localId() + setting::kInstallationPending;
}

/// Throws if a store may exist but cannot be opened: it must not be overwritten.
bool isInstallationDue(const std::string& store) {
    // Look for the store first: its mark is written before it is created.
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
    // Read-only: an account may use its store without having all rights to the key above it.
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
        // Ignores the switches: without a store there are none, and the error would be lost.
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
    // The log caches its switches for a while; now there are settings to read.
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
