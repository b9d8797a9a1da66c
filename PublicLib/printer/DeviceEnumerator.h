#pragma once

#include <string>
#include <vector>

namespace jsw {

/// A printer of the local spooler.
struct SpoolerPrinter {
    std::string name;
    std::string driver;
    std::string port;
};

/// The local spooler's printers at the time of construction: those of the driver in the setting
/// "DriverName", or all if it is not set. None if the spooler does not answer.
class DeviceEnumerator {
  public:
    DeviceEnumerator();

    const std::vector<SpoolerPrinter>& printers() const { return printers_; }

    /// Like the spooler, ignores letter case in names.
    /// The printer's port; empty if there is no such printer.
    std::string getPortName(const std::string& friendlyName) const;
    /// Whether the printer is shared from another computer: its port begins with two backslashes.
    bool isUncPortName(const std::string& friendlyName) const;

  private:
    std::vector<SpoolerPrinter> printers_;
};

}  // namespace jsw
