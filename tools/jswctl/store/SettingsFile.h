#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace jsw::ctl {

/// One value of a settings file, and the registry's value.
struct FileEntry {
    std::string section;
    std::string name;
    std::string value;                  ///< with its type, as in the file
    std::optional<std::string> stored;  ///< in the same form; nothing: not in the registry

    /// Whether the registry has another value, or none.
    bool isNews() const { return stored != value; }
    /// Whether the value has a type; one without is not installed.
    bool hasType() const;
};

/// A parsed settings file.
struct SettingsFile {
    std::string path;
    bool exists = false;
    bool parsed = false;
    std::vector<std::string> sections;
    std::vector<FileEntry> entries;

    /// The number of values that an installation stores.
    std::size_t installable() const;
    /// Whether a section is this key or below it; otherwise the keys are another program's.
    bool reaches(const std::string& key) const;
};

SettingsFile readSettingsFile(const std::string& path);

/// Writes a value of the file. Throws Win32Exception on failure.
void writeEntry(const FileEntry& entry);

/// Whether a path is a key or is below it, in any letter case.
bool isBelow(const std::string& path, const std::string& key);

/// Whether an existing value belongs to the machine: values of the window, the history and the
/// updates. A newer settings file does not change it.
/// @param store           the host's store, without a trailing backslash
/// @param modulesUpdated  an update has named other modules; likewise the data
bool isMachinesOwn(const FileEntry& entry, const std::string& store, bool modulesUpdated,
                   bool dataUpdated);

}  // namespace jsw::ctl
