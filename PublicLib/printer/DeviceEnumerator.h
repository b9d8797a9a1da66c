#pragma once

#include <string>
#include <vector>

namespace jsw {

/// A printer that the local spooler knows.
struct SpoolerPrinter {
    std::string name;
    std::string driver;
    std::string port;
};

/// The printers of the local spooler at the time it was made: those of the driver that the setting
/// "DriverName" gives, or all of them when it is not set. A spooler that does not answer has none.
class DeviceEnumerator {
  public:
    DeviceEnumerator();

    const std::vector<SpoolerPrinter>& printers() const { return printers_; }

    /// Names of printers are compared as the spooler does, without regard to letter case.
    /// The printer's port; empty when there is no such printer.
    std::string getPortName(const std::string& friendlyName) const;
    /// Whether the printer is shared from another computer: its port begins with two backslashes.
    bool isUncPortName(const std::string& friendlyName) const;

  private:
    std::vector<SpoolerPrinter> printers_;
};

}  // namespace jsw
