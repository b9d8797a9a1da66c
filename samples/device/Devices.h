#pragma once

#include "samples/device/DeviceFile.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace jsw::sample {

enum class DeviceKind { printer, hid, scanner };

/** An interface of a printer; its handle is never 0. */
struct Device {
    int32_t handle;
    DeviceKind kind;
    std::string port;
    const DevicePrinter* printer;
};

/** The described printers with a handle for each interface. Immutable. */
class Devices {
  public:
    explicit Devices(std::vector<DevicePrinter> printers);
    Devices(const Devices&) = delete;
    Devices& operator=(const Devices&) = delete;

    [[nodiscard]] const std::vector<Device>& all() const { return devices_; }
    /** Null if no interface of that kind has the handle. */
    [[nodiscard]] const Device* find(DeviceKind kind, int32_t handle) const;

  private:
    void add(DeviceKind kind, const std::string& port, const DevicePrinter& printer);

    std::vector<DevicePrinter> printers_;
    std::vector<Device> devices_;
};

/**
 * The printer's response to a command packet: the echo of a loopback, or the print head class if
 * the printer has one; otherwise empty.
 */
std::vector<uint8_t> answerPacket(const DevicePrinter& printer, std::span<const uint8_t> request);

}  // namespace jsw::sample
