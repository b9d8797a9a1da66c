#pragma once

#include "jsw/settings/BasicSettings.h"
#include "jsw/settings/SettingNames.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jsw {

/// State of one of the two flags that the updater leaves.
enum class UpdateFlag : std::uint32_t { none = 0, updated = 1, doNotChange = 2 };

/// The store of this host program. Needs Localize to exist; making one never fails otherwise.
class Settings : public BasicSettings {
  public:
    Settings();

    /// Whether there is a local store. Found out at each question, so that making an object costs
    /// no access to the registry.
    bool isValid() const;

    /// Whether updates are looked for and taken into use. On when nothing says otherwise, which is
    /// then written; nothing, with the error in GetLastError(), when there may be a value that
    /// cannot be read.
    std::optional<bool> isUpdateCheckOn() const;
    /// True only when the flag is "updated"; a missing flag is written as "none".
    bool isDataUpdated() const;
    bool isCompleteSoftwareUpdated() const;
    /// Writes the state unless the flag says "do not change", or cannot be read and may say so,
    /// which is a failure.
    bool setFlag(const setting::Number& flag, UpdateFlag state) const;

    /// Folder into which the updater puts new billboard data; empty when the shell does not know
    /// the folder above it.
    std::string dataUpdatesFolder() const;

    /// Removes the local store and, when it was the last one and "DeleteStoreOnUninstall" says so,
    /// everything of the product line.
    bool removeStore() const;

  private:
    bool isUpdated(const setting::Number& flag) const;
};

/// Lets the parts of PublicLib read this store (SettingReader.h). To be called before the log is
/// made.
void provideSettings();

}  // namespace jsw
