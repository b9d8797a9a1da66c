#pragma once

#include "PublicLib/locks/Mutex.h"
#include "jsw/settings/RegistryKey.h"

#include <optional>
#include <string>

namespace jsw {

/// Full path of the settings file that the first run installs. Needs Localize.
std::string settingsFilePath();

/// Whether this host's first run is in progress or was interrupted. Needs Localize.
bool isFirstRunPending();

/// Installs this host program's settings if it has none yet. Needs Localize and the log.
///
/// A first run lasts until this object is destroyed, so that its owner can complete the
/// installation. One process at a time performs it. Others wait for its end, then find a store and
/// install nothing, unless a mark says that the process was killed; then they install everything
/// again. The mark lies beside the stores: it is written before the store is created and removed
/// when the store is complete.
class FirstRun {
  public:
    FirstRun() = default;
    ~FirstRun();
    FirstRun(const FirstRun&) = delete;
    FirstRun& operator=(const FirstRun&) = delete;

    /// Creates the store and copies the settings file beside the host's executable into the
    /// registry, unless there is a store.
    ///
    /// True if a store exists or has been installed completely. Otherwise false with GetLastError()
    /// ERROR_INTERNAL_ERROR, and a line in the log; the values that could be installed remain. A
    /// store that may exist but cannot be opened is a failure, too, and is left unchanged.
    bool installStoreIfMissing();

  private:
    [[nodiscard]] bool install(const std::string& store);

    std::optional<Mutex> lock_;
    std::optional<RegistryKey> marks_;  // contains this first run's mark
};

}  // namespace jsw
