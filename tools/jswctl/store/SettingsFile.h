#pragma once

#include <optional>
#include <string>
#include <vector>

namespace jsw::ctl {

/// One value of a settings file, and what the registry has in its place.
struct FileEntry {
    std::string section;
    std::string name;
    std::string value;                  ///< with its type, as the file says it
    std::optional<std::string> stored;  ///< in the same words; nothing: not in the registry

    /// Whether the registry has another value, or none.
    bool isNews() const { return stored != value; }
};

/// A settings file taken apart.
struct SettingsFile {
    std::string path;
    bool exists = false;
    bool parsed = false;
    std::vector<std::string> sections;
    std::vector<FileEntry> entries;
};

SettingsFile readSettingsFile(const std::string& path);

/// Writes a value of the file; its key, when it is made for it, is open to everyone. Throws
/// Win32Exception when that fails.
void writeEntry(const FileEntry& entry);

/// Whether a path is a key or lies below it, letter case aside.
bool isBelow(const std::string& path, const std::string& key);

/// Whether a value is the machine's own once it is there: what the window, the history and the
/// updates keep in it. A newer settings file leaves it as it is.
/// @param store           the host's store, without a final backslash
/// @param modulesUpdated  an update has named other modules; likewise the data
bool isMachinesOwn(const FileEntry& entry, const std::string& store, bool modulesUpdated,
                   bool dataUpdated);

}  // namespace jsw::ctl
