#pragma once

#include <string>

namespace jsw {

/// Full name of the settings file that the first run installs. Needs Localize.
std::string settingsFilePath();

/// Gives this host program its settings when it has none yet: creates its store and copies the
/// settings file beside the host's executable into the registry. Needs Localize and the log.
///
/// True when there was a store already, or it has been installed completely. False with
/// GetLastError() ERROR_INTERNAL_ERROR, and logged, when the installation failed; what could be
/// installed is then there all the same, and a file that could not be read is tried again at the
/// next call. A store that may be there but cannot be opened is a failure, too, and is left as it
/// is.
bool installStoreIfMissing();

}  // namespace jsw
