// sources: PublicLib/printer/CacheRecord.cpp
// corpus: cache
//
// Treats any byte stream as a printer's cache record. The parsed values must be in the ranges that
// billboards rely on.
#include "PublicLib/printer/CacheRecord.h"

#include <cstdlib>

namespace {

bool isInRange(const jsw::CartridgeValues& cartridge) {
    return cartridge.level <= 100 && cartridge.remainingDotCount <= cartridge.capacity &&
           cartridge.authenticity <= 5 && cartridge.programType <= 2 &&
           cartridge.partNumber.size() <= 7;  // 2^32 - 1 is 1z141z3
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    jsw::CacheRecord record;
    record.parse({data, size});
    const jsw::PrinterCacheValues& values = record.values();
    const bool inRange = values.cartridgeCount <= 2 && values.blackCartridgeClass <= 3 &&
                         values.colorCartridgeClass <= 3 && values.photoCartridgeClass <= 3 &&
                         values.deviceSerialNumber.size() <= 255 &&
                         isInRange(values.cartridges[0]) && isInRange(values.cartridges[1]);
    if (!inRange) std::abort();
    return 0;
}
