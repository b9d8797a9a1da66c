#pragma once

#include <cstdint>
#include <string>

namespace jsw {

/// Whether a server's printers can be queried: 0 without a name or for this computer, with or
/// without two leading backslashes and in any letter case; otherwise the network's Win32 error
/// number for a print resource of that name.
[[nodiscard]] std::uint32_t findServer(const std::string& serverName);

}  // namespace jsw
