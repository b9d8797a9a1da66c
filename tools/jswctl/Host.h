#pragma once

#include <string>

namespace jsw::ctl {

class Command;

/// Adds the required argument HOST.exe to a command.
void addHostArgument(Command& command, std::string& host);

/// Makes the library's parts use a program's names and settings (see Localize).
/// @param host  its executable, full path or relative to the current folder; only the name matters
///              for the settings, so that those of a deleted program can be removed
/// Throws BadUse for a folder and for an invalid file name.
void nameHost(const std::string& host);

/// The same for a program that must exist; throws BadUse if it does not.
void nameExistingHost(const std::string& host);

/// The path of the host's store below HKEY_LOCAL_MACHINE, without a trailing backslash.
std::string storePath();

/// The same for people: "HKLM\Software\...".
std::string storeName();

/// The full path, from the current folder.
std::string inFull(const std::string& path);

/// Windows' text for an error: "error 5, Access is denied".
std::string errorText(unsigned long code);

}  // namespace jsw::ctl
