#pragma once

#include "PublicLib/printer/ValuesPrinterCache.h"

#include <cstddef>
#include <cstdint>

namespace jsw {

/// The cache of a real printer, parsed once from the printer's byte stream. Traces the parser's
/// conversions.
class PrinterCache final : public ValuesPrinterCache {
  public:
    /// @param buffer  may be null: then every value is "not reported"
    /// @param length  bytes in the buffer
    PrinterCache(const std::uint8_t* buffer, std::size_t length);

  private:
    void initialize(const std::uint8_t* buffer, std::size_t length);
};

}  // namespace jsw
