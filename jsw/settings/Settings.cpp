#include "jsw/settings/Settings.h"

#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"

#include <shlobj.h>

#include <vector>

namespace jsw {

Settings::Settings()
    : BasicSettings(Localize::getInstance()->getJswRoot(), Localize::getInstance()->localId()) {
}

bool Settings::isValid() const {
    return keyExists(getKeyPath(false));
}

std::optional<bool> Settings::isUpdateCheckOn() const {
    std::uint32_t enabled = setting::kCheckForUpdates.defaultValue;
    if (readOrWriteDefault(setting::kCheckForUpdates, enabled) == Read::refused) return {};
    return enabled != 0;
}

bool Settings::isUpdated(const setting::Number& flag) const {
    std::uint32_t state = 0;
    return readOrWriteDefault(flag, state) == Read::found &&
           state == static_cast<std::uint32_t>(UpdateFlag::updated);
}

bool Settings::setFlag(const setting::Number& flag, UpdateFlag state) const {
    std::uint32_t current = 0;
    if (readOrWriteDefault(flag, current) == Read::refused) return false;
    if (current == static_cast<std::uint32_t>(UpdateFlag::doNotChange)) return true;
    return write(flag, static_cast<std::uint32_t>(state));
}

std::string Settings::dataUpdatesFolder() const {
    const std::string common = specialFolder(CSIDL_COMMON_APPDATA);
    if (common.empty()) return {};  // the path would name the root of a drive
    std::string directory = setting::kDataUpdatesDirectory.defaultValue;
    readOrWriteDefault(setting::kDataUpdatesDirectory, directory);
    return joinPath(joinPath(common, directory), textOf(setting::kDriverName));
}

void provideSettings() {
    static constexpr SettingReader kReader{[] { return Settings().rootExists(); },
                                           [](const setting::Number& number, std::uint32_t& value) {
                                               return Settings().read(number, value) == Read::found;
                                           },
                                           [](const setting::Text& text, std::string& value) {
                                               return Settings().read(text, value) == Read::found;
                                           }};
    setSettingReader(kReader);
}

bool Settings::removeStore() const {
    std::uint32_t deleteAll = setting::kDeleteStoreOnUninstall.defaultValue;
    read(setting::kDeleteStoreOnUninstall, deleteAll);
    return orLastError([&] {
        RegistryKey::recurseDeleteKey(getKeyPath(false), HKEY_LOCAL_MACHINE);
        std::vector<std::string> others;
        RegistryKey(root() + "Local\\", false).getChildrenNames(others, kMaxNames);
        if (others.empty() && deleteAll != 0) {
            RegistryKey::recurseDeleteKey(Localize::getInstance()->getProductLineRoot(),
                                          HKEY_LOCAL_MACHINE);
        }
        return true;
    });
}

}  // namespace jsw
