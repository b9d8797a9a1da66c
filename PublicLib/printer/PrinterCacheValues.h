#pragma once

#include "PublicLib/printer/IPrinterCache.h"

#include <array>
#include <cstdint>
#include <string>

namespace jsw {

/// A printer cache's values for one cartridge.
struct CartridgeValues {
    CartridgeType type = CartridgeType::missing;
    std::uint32_t level = 0;  // per cent
    std::uint32_t authenticity = 0;
    std::uint32_t programType = 0;
    std::uint32_t serialNumber = 0;
    std::string partNumber{};
    std::uint32_t capacity = 0;           // dots
    std::uint32_t remainingDotCount = 0;  // dots
};

/// All values of a printer cache. The initial values mean "not reported".
struct PrinterCacheValues {
    std::uint32_t cartridgeCount = 0;
    std::array<CartridgeValues, 2> cartridges{};
    bool modemCableReversed = false;
    bool modemAvailable = false;
    std::uint32_t blackCartridgeClass = 3;
    std::uint32_t colorCartridgeClass = 3;
    std::uint32_t photoCartridgeClass = 3;
    std::string deviceSerialNumber{};
};

}  // namespace jsw
