#pragma once

#include "PublicLib/locks/Mutex.h"
#include "jsw/settings/RegistryKey.h"

#include <optional>
#include <string>

namespace jsw {

/// Full name of the settings file that the first run installs. Needs Localize.
std::string settingsFilePath();

/// Whether this host's first run is going on, or was cut off. Needs Localize.
bool isFirstRunPending();

/// Gives this host program its settings when it has none yet. Needs Localize and the log.
///
/// A first run lasts until this object goes, so that its owner may complete what was installed. One
/// process at a time has it. Others wait for its end and find a store then, into which nothing is
/// installed any more; only one that finds the mark of a first run whose process was killed does it
/// all over again. The mark lies beside the stores: it is there before the store, and goes when the
/// store is complete.
class FirstRun {
  public:
    FirstRun() = default;
    ~FirstRun();
    FirstRun(const FirstRun&) = delete;
    FirstRun& operator=(const FirstRun&) = delete;

    /// Creates the store and copies the settings file beside the host's executable into the
    /// registry, unless there is a store.
    ///
    /// True when there was one, or it has been installed completely. False with GetLastError()
    /// ERROR_INTERNAL_ERROR, and logged, when the installation failed; what could be installed is
    /// then there all the same. A store that may be there but cannot be opened is a failure, too,
    /// and is left as it is.
    bool installStoreIfMissing();

  private:
    bool install(const std::string& store);

    std::optional<Mutex> lock_;
    std::optional<RegistryKey> marks_;  // with that of this first run
};

}  // namespace jsw
