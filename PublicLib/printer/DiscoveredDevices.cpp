#include "PublicLib/printer/DiscoveredDevices.h"

#include "PublicLib/NeverDestroyed.h"

#include <mutex>

namespace jsw {

DiscoveredDevices& DiscoveredDevices::instance() {
    static NeverDestroyed<DiscoveredDevices> devices;
    return *devices;
}

DiscoveredDevices::Discovery::Discovery() {
    instance().discoveryLock_.lock();
    instance().clear();
}

DiscoveredDevices::Discovery::~Discovery() {
    instance().clear();
    instance().discoveryLock_.unlock();
}

void DiscoveredDevices::addPrinter(const std::string& friendlyName,
                                   const DiscoveredPrinter& printer) {
    const std::lock_guard lock(lock_);
    printers_.insert_or_assign(friendlyName, printer);
}

void DiscoveredDevices::addHid(JswDeviceHandle handle) {
    const std::lock_guard lock(lock_);
    hids_.push_back(handle);
}

void DiscoveredDevices::addScanner(JswDeviceHandle handle) {
    const std::lock_guard lock(lock_);
    scanners_.push_back(handle);
}

DiscoveredPrinter DiscoveredDevices::findPrinter(const std::string& friendlyName) const {
    const std::lock_guard lock(lock_);
    const auto entry = printers_.find(friendlyName);
    return entry != printers_.end() ? entry->second : DiscoveredPrinter{};
}

std::vector<JswDeviceHandle> DiscoveredDevices::hids() const {
    const std::lock_guard lock(lock_);
    return hids_;
}

std::vector<JswDeviceHandle> DiscoveredDevices::scanners() const {
    const std::lock_guard lock(lock_);
    return scanners_;
}

void DiscoveredDevices::clear() {
    const std::lock_guard lock(lock_);
    printers_.clear();
    hids_.clear();
    scanners_.clear();
}

}  // namespace jsw
