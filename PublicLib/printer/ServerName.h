#pragma once

#include <cstdint>
#include <string>

namespace jsw {

/// Whether a server can be asked for its printers: 0 for no name and for this computer, with or
/// without two leading backslashes and in any letter case, else what the network says of a print
/// resource of that name (a Win32 error number).
std::uint32_t findServer(const std::string& serverName);

}  // namespace jsw
