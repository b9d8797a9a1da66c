#include "PublicLib/printer/ValuesPrinterCache.h"

namespace jsw {

namespace {

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

NullPrinterCache::NullPrinterCache() : ValuesPrinterCache("NullPrinterCache", nullValues()) {
}

}  // namespace jsw
