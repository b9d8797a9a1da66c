#pragma once

#include "jsw/settings/BasicSettings.h"
#include "jsw/settings/SettingNames.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jsw {

/// State of one of the updater's two flags.
enum class UpdateFlag : std::uint32_t { none = 0, updated = 1, doNotChange = 2 };

/// The store of this host program. Needs Localize; otherwise construction cannot fail.
class Settings : public BasicSettings {
  public:
    Settings();

    /// Whether there is a local store. Checked at each call, so that construction needs no access
    /// to the registry.
    bool isValid() const;

    /// Whether updates are checked for and used. On by default, and the default is written.
    /// Nothing, with GetLastError() set, if a value may exist but cannot be read.
    std::optional<bool> isUpdateCheckOn() const;
    /// True only if the flag is "updated"; a missing flag is written as "none".
    bool isUpdated(const setting::Number& flag) const;
    /// Writes the state unless the flag is "do not change". Fails if the flag cannot be read,
    /// because it might be that.
    [[nodiscard]] bool setFlag(const setting::Number& flag, UpdateFlag state) const;

    /// The updater's folder for new billboard data; empty if the shell does not know the folder
    /// above it.
    std::string dataUpdatesFolder() const;

    /// Removes the local store. If it was the last one and "DeleteStoreOnUninstall" is not 0,
    /// removes everything of the product line.
    [[nodiscard]] bool removeStore() const;
};

/// Lets the parts of PublicLib read this store (SettingReader.h). Call it before the log is
/// created.
void provideSettings();

}  // namespace jsw
