#include "PublicLib/printer/PrinterCache.h"

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/CacheRecord.h"

namespace jsw {

namespace {

class CacheTrace final : public CacheObserver {
  public:
    void onConversion(const char* name, const char* note) const override {
        MethodTrace trace(component::kJsw, "PrinterCache::", name);
        if (note != nullptr) trace.add(note);
    }
    void onPartNumber(unsigned cartridge, const PartNumber& partNumber) const override {
        if (partNumber.error != 0) {
            logLine(component::kJsw, kLogError, "WARNING: ultoa conversion of cartridge ",
                    cartridge, " part number failed.ultoaRC=", partNumber.error);
        }
        logLine(component::kJsw, kLogDetail, "Part number of Cartridge", cartridge, "=",
                partNumber.text);
    }
};

template <class... Parts>
void dump(const Parts&... parts) {
    logLine(component::kJsw, kLogDetail, parts...);
}

void dumpFields(const PrinterCacheValues& values, const InkNumbers& ink) {
    if (!isLogEnabled(component::kJsw, kLogDetail)) return;
    dump("deviceSerialNumber_=", values.deviceSerialNumber);
    for (unsigned i = 1; i <= 2; ++i) {
        const CartridgeValues& cartridge = values.cartridges[i - 1];
        dump("inkCartridge", i, "Type_=", static_cast<std::uint32_t>(cartridge.type));
        dump("Cartridge", i, " serial number=", cartridge.serialNumber);
        dump("Cartridge", i, " Authenticity=", cartridge.authenticity);
        dump("Life of Cartridge", i, "=", cartridge.programType);
    }
    for (const InkNumber& number : kInkNumbers) dump(number.label, ink.*number.field);
    const auto& [first, second] = values.cartridges;
    dump("isModemAvailable_=", values.modemAvailable);
    dump("isModemCableReversed_=", values.modemCableReversed);
    dump("cartridgeCount_=", values.cartridgeCount);
    dump("cartridge1Capacity_=", first.capacity);
    dump("cartridge2Capacity_=", second.capacity);
    dump("cart1RemainingDotCount_=", first.remainingDotCount);
    dump("cart2RemainingDotCount_=", second.remainingDotCount);
    dump("inkCartridge1Level_=", first.level);
    dump("inkCartridge2Level_=", second.level);
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
    const CacheTrace observer;
    CacheRecord record(&observer);
    record.parse({buffer, length});
    dumpFields(record.values(), record.ink());
    setValues(record.values());
}

}  // namespace jsw
