#pragma once

#include "jsw/settings/BasicSettings.h"
#include "jsw/settings/SettingNames.h"

#include <string>

namespace jsw {

/// The store of one printer. A printer that is renamed keeps its store: the store is named after
/// the friendly name that the printer was installed with.
class OfnSettings : public BasicSettings {
  public:
    /// @param printerName  name by which the spooler knows the printer now; empty: no printer
    explicit OfnSettings(const std::string& printerName);

    /// Where a printer's store lies below HKEY_LOCAL_MACHINE.
    static std::string printerStorePath(const std::string& printerName);
};

/// The friendly name that a printer was installed with (printer data "OriginalFriendlyName");
/// empty when it cannot be had. The answer for the last name asked is remembered.
std::string originalFriendlyName(const std::string& printerName);

}  // namespace jsw
