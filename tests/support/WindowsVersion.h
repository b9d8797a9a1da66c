#pragma once

#include "jsw/settings/RegistryKey.h"

#include <windows.h>

#include <string>

namespace jsw::test {

/// The version of Windows that Wine reports to a program of this name, during the object's
/// lifetime.
class WindowsVersion {
  public:
    /// @param program  file name of the executable
    /// @param version  Wine's name of the version, such as "winxp"
    WindowsVersion(const std::string& program, const std::string& version)
        : key_("Software\\Wine\\AppDefaults\\" + program) {
        RegistryKey(key_, true, HKEY_CURRENT_USER).setValue("Version", version);
    }
    ~WindowsVersion() { RegDeleteKeyA(HKEY_CURRENT_USER, key_.c_str()); }
    WindowsVersion(const WindowsVersion&) = delete;
    WindowsVersion& operator=(const WindowsVersion&) = delete;

  private:
    std::string key_;
};

}  // namespace jsw::test
