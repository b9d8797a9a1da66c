#pragma once

#include "PublicLib/printer/IPrinterCache.h"

#include <string>
#include <string_view>

namespace jsw {

/// What a printer cache is asked about the cartridge in one of the two holders.
struct CartridgeHolder {
    CartridgeType (IPrinterCache::*type)() const;
    std::uint32_t (IPrinterCache::*inkLevel)() const;
    std::string (IPrinterCache::*partNumber)() const;
    std::uint32_t (IPrinterCache::*programType)() const;
};

/// A family of tags about cartridges: a letter followed by the number of the holder, "L1".
struct CartridgeTag {
    char letter;
    std::string_view topic;     ///< as the log calls it
    std::string_view fallback;  ///< value when the rest of the name is no holder
    std::string (*value)(const IPrinterCache& cache, const CartridgeHolder& holder);
};

/// The family of a tag name, told by its first letter in either case; null when there is none.
const CartridgeTag* findCartridgeTag(std::string_view tagName);

/// The holder that a tag name of such a family means; null unless the letter is followed by exactly
/// "1" or "2".
const CartridgeHolder* findCartridgeHolder(std::string_view tagName);

}  // namespace jsw
