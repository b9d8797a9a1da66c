#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace jsw::ctl {

/// Adds the argument HOST.exe, which must be given, to a command.
void addHostArgument(CLI::App& command, std::string& host);

/// Makes a program the one whose names and settings the library's parts work on (see Localize).
/// @param host  its executable, in full or relative to the current folder; only the name counts for
///              the settings, so that those of a program that is gone can be removed
/// Throws BadUse for a folder and for a name that cannot be a file's.
void nameHost(const std::string& host);

/// The same for a program that must be there; throws BadUse when it is not.
void nameExistingHost(const std::string& host);

/// Where the host's store lies, below HKEY_LOCAL_MACHINE and without a final backslash.
std::string storePath();

/// The same as people write it: "HKLM\Software\...".
std::string storeName();

/// A path in full, from the current folder.
std::string inFull(const std::string& path);

/// What Windows says of an error: "error 5, Access is denied".
std::string errorText(unsigned long code);

}  // namespace jsw::ctl
