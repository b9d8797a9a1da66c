#pragma once

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/IPrinterCache.h"
#include "PublicLib/printer/PrinterCacheValues.h"

#include <utility>

namespace jsw {

/// The queries of IPrinterCache, each with its value.
#define JSW_CACHE_ANSWERS(X)                                                     \
    X(std::uint32_t, getCartridgeCount, cartridgeCount)                          \
    X(CartridgeType, getInkCartridge1Type, cartridges[0].type)                   \
    X(CartridgeType, getInkCartridge2Type, cartridges[1].type)                   \
    X(std::uint32_t, getInkCartridge1Level, cartridges[0].level)                 \
    X(std::uint32_t, getInkCartridge2Level, cartridges[1].level)                 \
    X(bool, isModemCableReversed, modemCableReversed)                            \
    X(bool, isModemAvailable, modemAvailable)                                    \
    X(std::uint32_t, getCartridge1Authenticity, cartridges[0].authenticity)      \
    X(std::uint32_t, getCartridge2Authenticity, cartridges[1].authenticity)      \
    X(std::uint32_t, getCartridge1ProgramType, cartridges[0].programType)        \
    X(std::uint32_t, getCartridge2ProgramType, cartridges[1].programType)        \
    X(std::uint32_t, getBlackCartridgeClass, blackCartridgeClass)                \
    X(std::uint32_t, getColorCartridgeClass, colorCartridgeClass)                \
    X(std::uint32_t, getPhotoCartridgeClass, photoCartridgeClass)                \
    X(std::uint32_t, getCartridge1SerialNumber, cartridges[0].serialNumber)      \
    X(std::uint32_t, getCartridge2SerialNumber, cartridges[1].serialNumber)      \
    X(std::string, getCartridge1PartNumber, cartridges[0].partNumber)            \
    X(std::string, getCartridge2PartNumber, cartridges[1].partNumber)            \
    X(std::string, getDeviceSerialNumber, deviceSerialNumber)                    \
    X(std::uint32_t, getCartridge1Capacity, cartridges[0].capacity)              \
    X(std::uint32_t, getCartridge2Capacity, cartridges[1].capacity)              \
    X(std::uint32_t, getCart1RemainingDotCount, cartridges[0].remainingDotCount) \
    X(std::uint32_t, getCart2RemainingDotCount, cartridges[1].remainingDotCount)

/// A printer cache that returns fixed values. Traces every query under its class's name.
class ValuesPrinterCache : public IPrinterCache {
  public:
#define JSW_CACHE_ANSWER(Type, question, value)            \
    Type question() const override {                       \
        return traced("::" #question ": ", values_.value); \
    }
    JSW_CACHE_ANSWERS(JSW_CACHE_ANSWER)
#undef JSW_CACHE_ANSWER

  protected:
    /// @param className  a literal
    ValuesPrinterCache(const char* className, PrinterCacheValues values);
    ~ValuesPrinterCache() = default;

    void setValues(PrinterCacheValues values) {
        values_ = std::move(values);
    }

  private:
    template <class Value>
    Value traced(const char* question, const Value& value) const {
        MethodTrace trace(component::kJsw, className_, question);
        return trace.returning(value);
    }

    const char* className_;
    PrinterCacheValues values_;
};

#undef JSW_CACHE_ANSWERS

/// The cache of a printer that cannot be read: each value is the code for "unusable".
class NullPrinterCache final : public ValuesPrinterCache {
  public:
    NullPrinterCache();
};

}  // namespace jsw
