#pragma once

#include <cstdint>
#include <string>

namespace jsw {

/// The contents of a cartridge holder.
enum class CartridgeType : std::uint32_t {
    black = 0,
    photo = 1,
    color = 2,
    invalid = 3,
    missing = 4
};

/// A printer's cartridges and modem, read once from the printer. Immutable, so thread-safe.
/// Cartridges are numbered by their holder, from 1.
///
/// There is no virtual destructor: own an implementation through a std::shared_ptr made from its
/// concrete type, never through a std::unique_ptr<IPrinterCache>.
class IPrinterCache {
  public:
    /// How many of the two holders have a cartridge: 0 to 2.
    virtual std::uint32_t getCartridgeCount() const = 0;
    virtual CartridgeType getInkCartridge1Type() const = 0;
    virtual CartridgeType getInkCartridge2Type() const = 0;
    /// Ink left, in per cent of the capacity: 0 to 100.
    virtual std::uint32_t getInkCartridge1Level() const = 0;
    virtual std::uint32_t getInkCartridge2Level() const = 0;
    virtual bool isModemCableReversed() const = 0;
    virtual bool isModemAvailable() const = 0;
    /// 1 to 4 as the printer reports; 5: another value; 0: not reported.
    virtual std::uint32_t getCartridge1Authenticity() const = 0;
    virtual std::uint32_t getCartridge2Authenticity() const = 0;
    /// The programme under which a cartridge was sold: 0 or 1; 2: unknown.
    virtual std::uint32_t getCartridge1ProgramType() const = 0;
    virtual std::uint32_t getCartridge2ProgramType() const = 0;
    /// Size class of the cartridge of that kind: 0 to 2; 3: no such cartridge.
    virtual std::uint32_t getBlackCartridgeClass() const = 0;
    virtual std::uint32_t getColorCartridgeClass() const = 0;
    virtual std::uint32_t getPhotoCartridgeClass() const = 0;
    virtual std::uint32_t getCartridge1SerialNumber() const = 0;
    virtual std::uint32_t getCartridge2SerialNumber() const = 0;
    /// In base 36, digits and lower-case letters.
    virtual std::string getCartridge1PartNumber() const = 0;
    virtual std::string getCartridge2PartNumber() const = 0;
    virtual std::string getDeviceSerialNumber() const = 0;
    /// In dots.
    virtual std::uint32_t getCartridge1Capacity() const = 0;
    virtual std::uint32_t getCartridge2Capacity() const = 0;
    virtual std::uint32_t getCart1RemainingDotCount() const = 0;
    virtual std::uint32_t getCart2RemainingDotCount() const = 0;

  protected:
    IPrinterCache() = default;
    IPrinterCache(const IPrinterCache&) = default;
    IPrinterCache& operator=(const IPrinterCache&) = default;
    ~IPrinterCache() = default;
};

}  // namespace jsw
