#include "PublicLib/printer/ValuesPrinterCache.h"

#include "PublicLib/logging/MethodTrace.h"

namespace jsw {

namespace {

std::int32_t traced(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}
std::int32_t traced(CartridgeType value) {
    return static_cast<std::int32_t>(value);
}
const std::string& traced(const std::string& value) {
    return value;
}

PrinterCacheValues nullValues() {
    PrinterCacheValues values;
    values.cartridges.fill(
        {.type = CartridgeType::invalid, .authenticity = 5, .programType = 2, .partNumber = "00"});
    values.cartridges[0].serialNumber = 1;
    values.cartridges[1].serialNumber = 2;
    values.deviceSerialNumber = "0000000";
    return values;
}

}  // namespace

ValuesPrinterCache::ValuesPrinterCache(const char* className, PrinterCacheValues values)
    : className_(className), values_(std::move(values)) {
}

#define JSW_CACHE_ANSWER(Type, question, value)                              \
    Type ValuesPrinterCache::question() const {                              \
        MethodTrace trace(component::kJsw, className_, "::" #question ": "); \
        trace.setResult(traced(value));                                      \
        return value;                                                        \
    }

JSW_CACHE_ANSWER(std::uint32_t, getCartridgeCount, values_.cartridgeCount)
JSW_CACHE_ANSWER(CartridgeType, getInkCartridge1Type, values_.cartridges[0].type)
JSW_CACHE_ANSWER(CartridgeType, getInkCartridge2Type, values_.cartridges[1].type)
JSW_CACHE_ANSWER(std::uint32_t, getInkCartridge1Level, values_.cartridges[0].level)
JSW_CACHE_ANSWER(std::uint32_t, getInkCartridge2Level, values_.cartridges[1].level)
JSW_CACHE_ANSWER(bool, isModemCableReversed, values_.modemCableReversed)
JSW_CACHE_ANSWER(bool, isModemAvailable, values_.modemAvailable)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge1Authenticity, values_.cartridges[0].authenticity)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge2Authenticity, values_.cartridges[1].authenticity)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge1ProgramType, values_.cartridges[0].programType)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge2ProgramType, values_.cartridges[1].programType)
JSW_CACHE_ANSWER(std::uint32_t, getBlackCartridgeClass, values_.blackCartridgeClass)
JSW_CACHE_ANSWER(std::uint32_t, getColorCartridgeClass, values_.colorCartridgeClass)
JSW_CACHE_ANSWER(std::uint32_t, getPhotoCartridgeClass, values_.photoCartridgeClass)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge1SerialNumber, values_.cartridges[0].serialNumber)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge2SerialNumber, values_.cartridges[1].serialNumber)
JSW_CACHE_ANSWER(std::string, getCartridge1PartNumber, values_.cartridges[0].partNumber)
JSW_CACHE_ANSWER(std::string, getCartridge2PartNumber, values_.cartridges[1].partNumber)
JSW_CACHE_ANSWER(std::string, getDeviceSerialNumber, values_.deviceSerialNumber)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge1Capacity, values_.cartridges[0].capacity)
JSW_CACHE_ANSWER(std::uint32_t, getCartridge2Capacity, values_.cartridges[1].capacity)
JSW_CACHE_ANSWER(std::uint32_t, getCart1RemainingDotCount, values_.cartridges[0].remainingDotCount)
JSW_CACHE_ANSWER(std::uint32_t, getCart2RemainingDotCount, values_.cartridges[1].remainingDotCount)

#undef JSW_CACHE_ANSWER

NullPrinterCache::NullPrinterCache() : ValuesPrinterCache("NullPrinterCache", nullValues()) {
}

}  // namespace jsw
