#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::sample {

/** A printer of the device file (format: docs/device-client.md). */
struct DevicePrinter {
    std::string name;  ///< its name in the spooler
    std::string port;
    std::string transport;
    std::vector<std::string> hids;      ///< ports of its HID interfaces
    std::vector<std::string> scanners;  ///< ports of its scanner interfaces
    std::optional<uint8_t> printHeadClass;
    std::vector<uint8_t> cache;  ///< the cache record; empty: it cannot be read
};

/** A mistake in a device file: "line 7: ...". */
class DeviceFileError : public std::runtime_error {
  public:
    DeviceFileError(int line, const std::string& what)
        : std::runtime_error("line " + std::to_string(line) + ": " + what) {}
};

/** Reads the text of a device file; throws DeviceFileError at the first invalid line. */
std::vector<DevicePrinter> readDeviceFile(std::string_view text);

}  // namespace jsw::sample
