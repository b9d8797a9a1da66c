#pragma once

#include "PublicLib/printer/PrinterCacheValues.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace jsw {

/// Dots that the printer has fired, by ink, and dots that a full cartridge of each kind can fire.
struct InkNumbers {
    std::uint32_t blackDots = 0;
    std::uint32_t cyanDots = 0;
    std::uint32_t magentaDots = 0;
    std::uint32_t yellowDots = 0;
    std::uint32_t photoBlackDots = 0;
    std::uint32_t photoCyanDots = 0;
    std::uint32_t photoMagentaDots = 0;
    std::uint32_t blackCapacity = 0;
    std::uint32_t colorCapacity = 0;
    std::uint32_t photoCapacity = 0;
};

/// One of these numbers: the id of its record and its name in the log.
struct InkNumber {
    std::uint32_t id;
    const char* label;
    std::uint32_t InkNumbers::*field;
};

/// All of them, by their ids.
extern const std::array<InkNumber, 10> kInkNumbers;

/// A part number as text.
struct PartNumber {
    std::string text;
    int error;  // of the conversion; if not 0, the text is "00"
};

/// Observes a CacheRecord. These functions do nothing.
class CacheObserver {
  public:
    /// @param name  of the conversion, such as "getCartridgeType"
    /// @param note  a note about it, or null
    virtual void onConversion(const char* /*name*/, const char* /*note*/) const {}
    /// @param cartridge  1 or 2
    virtual void onPartNumber(unsigned /*cartridge*/, const PartNumber& /*partNumber*/) const {}

  protected:
    ~CacheObserver() = default;
};

/// The byte stream with a printer's state: a header of 2 bytes, then records of a big-endian 16-bit
/// id, an 8-bit length and that many bytes. Needs no Windows, so that the parser can be fuzzed
/// natively.
class CacheRecord {
  public:
    /// @param observer  may be null
    explicit CacheRecord(const CacheObserver* observer = nullptr) : observer_(observer) {}

    /// Reads the stream's records and computes the values that follow from them. Never fails:
    /// unknown ids and values that are not completely inside the stream are skipped.
    void parse(std::span<const std::uint8_t> stream);

    const PrinterCacheValues& values() const { return values_; }
    const InkNumbers& ink() const { return ink_; }

    // The conversions, which the observer gets.

    /// From the high half of a cartridge's type byte.
    CartridgeType getCartridgeType(std::uint8_t typeByte) const;
    /// Four bytes, most significant first; 0 for a null pointer.
    std::uint32_t getUnsignedLongValue(const std::uint8_t* bytes) const;
    /// Ink left in a cartridge of this kind, in per cent; 0 if it is used beyond its capacity.
    std::uint32_t getInkCartridgeLevel(CartridgeType kind) const;
    /// The given capacity for kinds that contain ink, otherwise 0.
    std::uint32_t getTotalDotCount(CartridgeType kind, std::uint32_t capacity) const;
    /// Dots left in a cartridge of this kind; 0 if it is used beyond its capacity.
    std::uint32_t getRemainingDotCount(CartridgeType kind) const;

  private:
    void takeRecord(std::uint32_t id, std::uint8_t length, std::span<const std::uint8_t> rest);
    void takeModem(std::uint32_t id, std::uint8_t byte);
    void takeInk(std::uint32_t id, const std::uint8_t* bytes);
    void takeByte(CartridgeValues& cartridge, std::uint32_t field, std::uint8_t byte);
    void takeCartridgeClass(std::uint8_t typeByte);
    void takeNumber(CartridgeValues& cartridge, std::uint32_t field, const std::uint8_t* bytes);
    std::uint32_t capacityOf(CartridgeType kind) const;
    std::uint32_t mostDots(CartridgeType kind) const;
    void tell(const char* conversion, const char* note = nullptr) const;

    PrinterCacheValues values_;
    InkNumbers ink_;
    const CacheObserver* observer_;
};

}  // namespace jsw
