#pragma once

#include <string>

namespace jsw {

/// Full name of the settings file that the first run installs. Needs Localize.
std::string settingsFilePath();

/// Gives this host program its settings when it has none yet: creates its store and copies the
/// settings file beside the host's executable into the registry. Needs Localize and the log.
///
/// True when there was a store already, or it has been installed completely. False with
/// GetLastError() ERROR_INTERNAL_ERROR when the installation failed; what could be installed is
/// then there all the same.
bool installStoreIfMissing();

}  // namespace jsw
