#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include <jsw/device.h>

#include <map>
#include <string>
#include <vector>

namespace jsw {

struct DiscoveredPrinter {
    JswDeviceHandle handle = 0;
    std::string port{};
};

/// What the device client has enumerated. One per process, because the client's callbacks carry no
/// context; any thread may use it, and one discovery at a time does.
class DiscoveredDevices {
  public:
    static DiscoveredDevices& instance();

    /// Makes the thread the one that discovers, with nothing found yet, for as long as it lives.
    class Discovery {
      public:
        Discovery();
        ~Discovery();
        Discovery(const Discovery&) = delete;
        Discovery& operator=(const Discovery&) = delete;
    };

    /// The last printer added under a name counts.
    void addPrinter(const std::string& friendlyName, const DiscoveredPrinter& printer);
    void addHid(JswDeviceHandle handle);
    void addScanner(JswDeviceHandle handle);

    /// Exact match, letter case included; handle 0 when there is none.
    DiscoveredPrinter findPrinter(const std::string& friendlyName) const;
    /// In the order of their enumeration.
    std::vector<JswDeviceHandle> hids() const;
    std::vector<JswDeviceHandle> scanners() const;

  private:
    void clear();

    CriticalSection discoveryLock_;
    mutable CriticalSection lock_;  // what follows
    std::map<std::string, DiscoveredPrinter> printers_;
    std::vector<JswDeviceHandle> hids_;
    std::vector<JswDeviceHandle> scanners_;
};

}  // namespace jsw
