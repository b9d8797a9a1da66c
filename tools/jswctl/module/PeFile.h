#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace jsw::ctl {

/// What a Windows executable file says of itself.
struct PeFile {
    std::string problem;  ///< why it is none, or is damaged; empty when all could be read
    std::uint16_t machine = 0;
    bool isDll = false;
    std::vector<std::string> exports;  ///< exported names, in the file's order
    std::vector<std::string> imports;  ///< file names of the libraries it needs to be loaded
};

inline constexpr std::uint16_t kMachineX64 = 0x8664;
inline constexpr std::uint16_t kMachineX86 = 0x014C;

/// Reads a file's headers, exports and imports. Believes nothing: whatever points outside the bytes
/// ends up as the problem. Never throws but for want of memory.
PeFile readPeFile(std::span<const char> bytes);

}  // namespace jsw::ctl
