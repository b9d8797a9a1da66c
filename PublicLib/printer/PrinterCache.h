#pragma once

#include "PublicLib/printer/ValuesPrinterCache.h"

#include <cstddef>
#include <cstdint>

namespace jsw {

/// The cache of a real printer, parsed once from the byte stream that the printer gave. Shows the
/// parser's conversions in the trace.
class PrinterCache final : public ValuesPrinterCache {
  public:
    /// @param buffer  may be null: every answer is then that of a printer that told nothing
    /// @param length  bytes in the buffer
    PrinterCache(const std::uint8_t* buffer, std::size_t length);

  private:
    void initialize(const std::uint8_t* buffer, std::size_t length);
};

}  // namespace jsw
