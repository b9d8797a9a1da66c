#pragma once

#include "PublicLib/ini/IniReader.h"

#include <memory>
#include <string>

namespace jsw {

/// Copies a settings file into the registry. Each section's name is a path below
/// HKEY_LOCAL_MACHINE; its keys are value names with typed values ("string:", "dword:"). Never
/// throws: a value that cannot be installed is logged, and the others are installed.
class SettingsInstaller {
  public:
    /// Reads the file.
    explicit SettingsInstaller(const std::string& fileName);

    /// True if every value of the file has been written.
    [[nodiscard]] bool installSettings();

  private:
    std::unique_ptr<IniReader> reader_;  // null when the file was not parsed
};

}  // namespace jsw
