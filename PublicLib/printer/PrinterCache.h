#pragma once

#include "PublicLib/printer/CacheRecord.h"
#include "PublicLib/printer/ValuesPrinterCache.h"

#include <cstddef>
#include <cstdint>

namespace jsw {

/// The cache of a real printer, parsed once from the byte stream that the printer gave. Shows the
/// parser's conversions in the trace.
class PrinterCache final : public ValuesPrinterCache, private CacheRecord {
  public:
    /// @param buffer  may be null: every answer is then that of a printer that told nothing
    /// @param length  bytes in the buffer
    PrinterCache(const std::uint8_t* buffer, std::size_t length);

    CartridgeType getCartridgeType(std::uint8_t typeByte) const override;
    std::uint32_t getUnsignedLongValue(const std::uint8_t* bytes) const override;
    std::uint32_t getInkCartridgeLevel(CartridgeType kind) const override;
    std::uint32_t getTotalDotCount(CartridgeType kind, std::uint32_t capacity) const override;
    std::uint32_t getRemainingDotCount(CartridgeType kind) const override;

  private:
    void onPartNumber(unsigned cartridge, const PartNumber& partNumber) override;
    void initialize(const std::uint8_t* buffer, std::size_t length);
    void logFields() const;
    void logDots() const;
    void logDerived() const;
};

}  // namespace jsw
