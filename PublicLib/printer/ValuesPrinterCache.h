#pragma once

#include "PublicLib/printer/IPrinterCache.h"
#include "PublicLib/printer/PrinterCacheValues.h"

#include <utility>

namespace jsw {

/// A printer cache that answers from values. Traces every question under the name of its class.
class ValuesPrinterCache : public IPrinterCache {
  public:
    std::uint32_t getCartridgeCount() const override;
    CartridgeType getInkCartridge1Type() const override;
    CartridgeType getInkCartridge2Type() const override;
    std::uint32_t getInkCartridge1Level() const override;
    std::uint32_t getInkCartridge2Level() const override;
    bool isModemCableReversed() const override;
    bool isModemAvailable() const override;
    std::uint32_t getCartridge1Authenticity() const override;
    std::uint32_t getCartridge2Authenticity() const override;
    std::uint32_t getCartridge1ProgramType() const override;
    std::uint32_t getCartridge2ProgramType() const override;
    std::uint32_t getBlackCartridgeClass() const override;
    std::uint32_t getColorCartridgeClass() const override;
    std::uint32_t getPhotoCartridgeClass() const override;
    std::uint32_t getCartridge1SerialNumber() const override;
    std::uint32_t getCartridge2SerialNumber() const override;
    std::string getCartridge1PartNumber() const override;
    std::string getCartridge2PartNumber() const override;
    std::string getDeviceSerialNumber() const override;
    std::uint32_t getCartridge1Capacity() const override;
    std::uint32_t getCartridge2Capacity() const override;
    std::uint32_t getCart1RemainingDotCount() const override;
    std::uint32_t getCart2RemainingDotCount() const override;

  protected:
    /// @param className  a literal
    ValuesPrinterCache(const char* className, PrinterCacheValues values);
    ~ValuesPrinterCache() = default;

    void setValues(PrinterCacheValues values) { values_ = std::move(values); }

  private:
    const char* className_;
    PrinterCacheValues values_;
};

/// The cache of a printer that cannot be read: each answer is the code of an unusable value.
class NullPrinterCache final : public ValuesPrinterCache {
  public:
    NullPrinterCache();
};

}  // namespace jsw
