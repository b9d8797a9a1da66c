#pragma once

#include "jsw/settings/BasicSettings.h"
#include "jsw/settings/SettingNames.h"

#include <string>

namespace jsw {

/// The store of one printer. The store has the friendly name with which the printer was installed,
/// so a renamed printer keeps it.
class OfnSettings : public BasicSettings {
  public:
    /// @param printerName  the printer's present name in the spooler; empty: no printer
    explicit OfnSettings(const std::string& printerName);

    /// The path of a printer's store below HKEY_LOCAL_MACHINE.
    static std::string printerStorePath(const std::string& printerName);
};

/// The friendly name with which a printer was installed (printer data "OriginalFriendlyName");
/// empty if unavailable. The answer for the last name is cached.
std::string originalFriendlyName(const std::string& printerName);

}  // namespace jsw
