#include "PublicLib/printer/PrinterCache.h"

#include "PublicLib/logging/MethodTrace.h"

namespace jsw {

namespace {

template <class Value>
void dump(const char* label, const Value& value) {
    logLine(component::kJsw, kLogDetail, label, value);
}

}  // namespace

PrinterCache::PrinterCache(const std::uint8_t* buffer, std::size_t length)
    : ValuesPrinterCache("PrinterCache", {}) {
    MethodTrace trace(component::kJsw, "PrinterCache::PrinterCache");
    if (buffer == nullptr) {
        trace.add("cache byte stream passed in == NULL, not initializing");
        return;
    }
    initialize(buffer, length);
}

void PrinterCache::initialize(const std::uint8_t* buffer, std::size_t length) {
    MethodTrace trace(component::kJsw, "PrinterCache::initialize");
    parse({buffer, length});
    setValues(values());
    logFields();
}

void PrinterCache::onPartNumber(unsigned cartridge, const PartNumber& partNumber) {
    if (partNumber.error != 0) {
        logLine(component::kJsw, kLogError, "WARNING: ultoa conversion of cartridge ", cartridge,
                " part number failed.ultoaRC=", partNumber.error);
    }
    logLine(component::kJsw, kLogDetail, "Part number of Cartridge", cartridge, "=",
            partNumber.text);
}

void PrinterCache::logFields() const {
    if (!isLogEnabled(component::kJsw, kLogDetail)) return;
    dump("deviceSerialNumber_=", values().deviceSerialNumber);
    for (unsigned i = 1; i <= 2; ++i) {
        const CartridgeValues& cartridge = values().cartridges[i - 1];
        const auto dumpField = [i](const char* before, const char* after, std::uint32_t value) {
            logLine(component::kJsw, kLogDetail, before, i, after, value);
        };
        dumpField("inkCartridge", "Type_=", static_cast<std::uint32_t>(cartridge.type));
        dumpField("Cartridge", " serial number=", cartridge.serialNumber);
        dumpField("Cartridge", " Authenticity=", cartridge.authenticity);
        dumpField("Life of Cartridge", "=", cartridge.programType);
    }
    logDots();
    logDerived();
}

void PrinterCache::logDots() const {
    dump("blackDotCount=", dotCounts().black);
    dump("cyanDotCount=", dotCounts().cyan);
    dump("magentaDotCount=", dotCounts().magenta);
    dump("yellowDotCount=", dotCounts().yellow);
    dump("photoColor1BlackDotCount=", dotCounts().photo[0]);
    dump("photoColor2CyanDotCount=", dotCounts().photo[1]);
    dump("photocolor3MagentaDotCount=", dotCounts().photo[2]);
    dump("blackCartridgeCapacity=", capacities().black);
    dump("colorCartridgeCapacity=", capacities().color);
    dump("photoCartridgeCapacity=", capacities().photo);
}

void PrinterCache::logDerived() const {
    const auto& [first, second] = values().cartridges;
    dump("isModemAvailable_=", values().modemAvailable);
    dump("isModemCableReversed_=", values().modemCableReversed);
    dump("cartridgeCount_=", values().cartridgeCount);
    dump("cartridge1Capacity_=", first.capacity);
    dump("cartridge2Capacity_=", second.capacity);
    dump("cart1RemainingDotCount_=", first.remainingDotCount);
    dump("cart2RemainingDotCount_=", second.remainingDotCount);
    dump("inkCartridge1Level_=", first.level);
    dump("inkCartridge2Level_=", second.level);
}

CartridgeType PrinterCache::getCartridgeType(std::uint8_t typeByte) const {
    MethodTrace trace(component::kJsw, "PrinterCache::getCartridgeType");
    const CartridgeType type = CacheRecord::getCartridgeType(typeByte);
    trace.add(cartridgeTypeName(type));
    return type;
}

std::uint32_t PrinterCache::getUnsignedLongValue(const std::uint8_t* bytes) const {
    MethodTrace trace(component::kJsw, "PrinterCache::getUnsignedLongValue");
    if (bytes == nullptr) trace.add("The byte stream passed in is NULL, defaulting value to 0");
    return CacheRecord::getUnsignedLongValue(bytes);
}

std::uint32_t PrinterCache::getInkCartridgeLevel(CartridgeType kind) const {
    MethodTrace trace(component::kJsw, "PrinterCache::getInkCartridgeLevel");
    return CacheRecord::getInkCartridgeLevel(kind);
}

std::uint32_t PrinterCache::getTotalDotCount(CartridgeType kind, std::uint32_t capacity) const {
    MethodTrace trace(component::kJsw, "PrinterCache::getTotalDotCount");
    return CacheRecord::getTotalDotCount(kind, capacity);
}

std::uint32_t PrinterCache::getRemainingDotCount(CartridgeType kind) const {
    MethodTrace trace(component::kJsw, "PrinterCache::getRemainingDotCount");
    return CacheRecord::getRemainingDotCount(kind);
}

}  // namespace jsw
