#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace jsw::ctl {

/// Contents of a Windows executable file.
struct PeFile {
    std::string problem;  ///< why it is not one, or is damaged; or empty
    std::uint16_t machine = 0;
    bool isDll = false;
    std::vector<std::string> exports;  ///< exported names, in the file's order
    std::vector<std::string> imports;  ///< file names of the libraries it needs to be loaded
};

inline constexpr std::uint16_t kMachineX64 = 0x8664;
inline constexpr std::uint16_t kMachineX86 = 0x014C;

/// Reads a file's headers, exports and imports. Trusts nothing: a reference outside the bytes is
/// reported as the problem. Throws only if memory is exhausted.
PeFile readPeFile(std::span<const char> bytes);

}  // namespace jsw::ctl
