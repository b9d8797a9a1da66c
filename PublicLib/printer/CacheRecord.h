#pragma once

#include "PublicLib/printer/PrinterCacheValues.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace jsw {

/// Dots that the printer has fired, by ink.
struct DotCounts {
    std::uint32_t black = 0;
    std::uint32_t cyan = 0;
    std::uint32_t magenta = 0;
    std::uint32_t yellow = 0;
    std::array<std::uint32_t, 3> photo{};  // black, cyan, magenta
};

/// Dots that a full cartridge of each kind can fire.
struct CartridgeCapacities {
    std::uint32_t black = 0;
    std::uint32_t color = 0;
    std::uint32_t photo = 0;
};

/// A part number as text.
struct PartNumber {
    std::string text;
    int error;  // of the conversion; 0 when it went well, otherwise the text is "00"
};

/// Writes a part number in base 36, with lower-case letters.
PartNumber toPartNumber(std::uint32_t value);

/// The name under which a cartridge type is logged.
const char* cartridgeTypeName(CartridgeType type);

/// The byte stream in which a printer tells its state: a header of 2 bytes, then records of a
/// big-endian 16-bit id, an 8-bit length and that many bytes. Needs no Windows, so that the parser
/// can be fuzzed natively; what wants to watch the conversions overrides them.
class CacheRecord {
  public:
    virtual ~CacheRecord() = default;

    /// Takes the stream's records and works out what follows from them. Never fails: unknown ids
    /// and values that do not lie wholly inside the stream are passed over.
    void parse(std::span<const std::uint8_t> stream);

    const PrinterCacheValues& values() const { return values_; }
    const DotCounts& dotCounts() const { return dots_; }
    const CartridgeCapacities& capacities() const { return capacities_; }

    /// From the high half of a cartridge's type byte.
    virtual CartridgeType getCartridgeType(std::uint8_t typeByte) const;
    /// Four bytes, most significant first; 0 for a null pointer.
    virtual std::uint32_t getUnsignedLongValue(const std::uint8_t* bytes) const;
    /// Ink left in a cartridge of this kind, in per cent; 0 when it is used beyond its capacity.
    virtual std::uint32_t getInkCartridgeLevel(CartridgeType kind) const;
    /// The capacity handed in, for the kinds that hold ink.
    virtual std::uint32_t getTotalDotCount(CartridgeType kind, std::uint32_t capacity) const;
    /// Dots left in a cartridge of this kind; 0 when it is used beyond its capacity.
    virtual std::uint32_t getRemainingDotCount(CartridgeType kind) const;

  protected:
    /// Told of each part number. Does nothing.
    /// @param cartridge  1 or 2
    virtual void onPartNumber(unsigned cartridge, const PartNumber& partNumber);

  private:
    void takeRecord(std::uint32_t id, std::uint8_t length, std::span<const std::uint8_t> rest);
    void takeText(std::uint8_t length, std::span<const std::uint8_t> rest);
    void takeByte(std::uint32_t id, std::uint8_t byte);
    void takeCartridgeByte(std::uint32_t field, CartridgeValues& cartridge, std::uint8_t byte);
    void takeCartridgeClass(std::uint8_t typeByte);
    void takeNumber(std::uint32_t id, const std::uint8_t* bytes);
    void takePartNumber(unsigned cartridge, std::uint32_t value);
    std::uint32_t* numberField(std::uint32_t id);
    void derive(CartridgeValues& cartridge) const;
    std::uint32_t capacityOf(CartridgeType kind) const;

    PrinterCacheValues values_;
    DotCounts dots_;
    CartridgeCapacities capacities_;
};

}  // namespace jsw
