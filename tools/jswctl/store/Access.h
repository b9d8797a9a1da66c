#pragma once

#include <string>
#include <vector>

namespace jsw::ctl {

/// The first key of a path below HKEY_LOCAL_MACHINE that does not exist; empty if all exist.
std::string firstMissingKey(const std::string& path);

/// Gives a key and everything below it the access list that all users' jobs need: all rights for
/// everyone. Throws Win32Exception on failure. Skips a missing key.
void openToEveryone(const std::string& path);

/// The key and those below it that an ordinary user cannot open with all rights, as jobs do.
std::vector<std::string> closedKeys(const std::string& path);

}  // namespace jsw::ctl
