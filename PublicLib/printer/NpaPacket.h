#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace jsw {

/// Command packets of the printer's bidirectional channel: a start byte 0xA5, the big-endian number
/// of bytes that follow, a flag byte, command, sub-command and data.
namespace npa {

inline constexpr std::size_t kFlagByte = 3;
inline constexpr std::size_t kPrintHeadClassByte = 9;

/// A loopback: the printer echoes the two data bytes.
inline constexpr std::array<std::uint8_t, 8> kLoopbackRequest{0xA5, 0x00, 0x05, 0x50,
                                                              0x03, 0x04, 0x31, 0x32};

/// The question for the print head class: a packet of 9 bytes, handed over with a request length of
/// 13, the rest zero. A fixed interface.
inline constexpr std::array<std::uint8_t, 13> kPrintHeadClassRequest{0xA5, 0x00, 0x06, 0x50, 0xE0,
                                                                     0x8F, 0x14, 0x03, 0x00};

/// A byte that a response must have, and what is logged, followed by the byte received, when it
/// does not.
struct ExpectedByte {
    std::size_t offset;
    std::uint8_t value;
    const char* message;
};

extern const std::array<ExpectedByte, 4> kLoopbackResponse;
extern const std::array<ExpectedByte, 5> kPrintHeadClassResponse;

/// The first byte that is not as expected, or null. The response must reach to the last offset.
const ExpectedByte* findMismatch(std::span<const std::uint8_t> response,
                                 std::span<const ExpectedByte> expected);

}  // namespace npa

}  // namespace jsw
