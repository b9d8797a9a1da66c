#pragma once

#include "PublicLib/printer/IPrinterCache.h"

#include <string>
#include <string_view>

namespace jsw {

/// The printer cache's queries about the cartridge in one of the two holders.
struct CartridgeHolder {
    CartridgeType (IPrinterCache::*type)() const;
    std::uint32_t (IPrinterCache::*inkLevel)() const;
    std::string (IPrinterCache::*partNumber)() const;
    std::uint32_t (IPrinterCache::*programType)() const;
};

/// A family of tags about cartridges: a letter followed by the number of the holder, "L1".
struct CartridgeTag {
    char letter;
    std::string_view topic;     ///< its name in the log
    std::string_view fallback;  ///< value if the rest of the name is not a holder
    std::string (*value)(const IPrinterCache& cache, const CartridgeHolder& holder);
};

/// The family of a tag name, by its first letter in either case; null if there is none.
const CartridgeTag* findCartridgeTag(std::string_view tagName);

/// The holder in a tag name of such a family; null unless the letter is followed by exactly "1" or
/// "2".
const CartridgeHolder* findCartridgeHolder(std::string_view tagName);

}  // namespace jsw
