#pragma once

#include "PublicLib/printer/NullPrinter.h"
#include "PublicLib/printer/ValuesPrinterCache.h"

namespace jsw {

/// The cache of the built-in simulated printer: a nearly full colour cartridge and a nearly empty
/// black one, without capacities.
class SimulatedPrinterCache final : public ValuesPrinterCache {
  public:
    SimulatedPrinterCache();
};

/// A printer with made-up values, so that everything can run without a device.
class SimulatedPrinter final : public NullPrinter {
  public:
    /// The friendly name of this printer, in any letter case.
    static constexpr char kReservedName[] = "SimulatedPrinter";

    explicit SimulatedPrinter(const std::string& friendlyName);

    [[nodiscard]] bool init() override;
    std::uint32_t print(const std::string& fileName) override;
    IPrinterCache& getCache() override;
    std::uint32_t ping() override;

  private:
    SimulatedPrinterCache cache_;
};

}  // namespace jsw
