#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Command packets of the printer's bidirectional channel: a start byte 0xA5, the big-endian number
/// of bytes that follow, a flag byte, command, sub-command and data.
namespace jsw::npa {

inline constexpr std::size_t kFlagByte = 3;
inline constexpr std::size_t kPrintHeadClassByte = 9;

/// A loopback: the printer echoes the two data bytes.
inline constexpr std::array<std::uint8_t, 8> kLoopbackRequest{0xA5, 0x00, 0x05, 0x50,
                                                              0x03, 0x04, 0x31, 0x32};

/// The query for the print head class: a packet of 9 bytes, sent with a request length of 13, the
/// rest zero; see "Fixed interfaces" in docs/architecture.md.
inline constexpr std::array<std::uint8_t, 13> kPrintHeadClassRequest{0xA5, 0x00, 0x06, 0x50, 0xE0,
                                                                     0x8F, 0x14, 0x03, 0x00};

/// A byte that a response must have, and the log text, followed by the received byte, if it
/// differs.
struct ExpectedByte {
    std::size_t offset;
    std::uint8_t value;
    const char* message;
};

inline constexpr std::array<ExpectedByte, 4> kLoopbackResponse{{
    {4, 0x03, "NPA response - cmd byte does not match expected resp. byte="},
    {5, 0x04, "NPA response - sub cmd byte does not match expected resp. byte="},
    {6, 0x31, "NPA rsp - data byte1 does not match source="},
    {7, 0x32, "NPA rsp - data byte2 does not match source="},
}};

/// The response's function byte is 0x20, the request's 0x14.
inline constexpr std::array<ExpectedByte, 5> kPrintHeadClassResponse{{
    {4, 0xE0, "NPA response - cmd does not match expected, = "},
    {5, 0x8F, "NPA response - sub cmd does not match expected, = "},
    {6, 0x20, "NPA rsp - Function does not match source= "},
    {7, 0x03, "NPA rsp - Sub Function does not match source= "},
    {8, 0x00, "NPA rsp - Sub Function query does not match source= "},
}};

}  // namespace jsw::npa
