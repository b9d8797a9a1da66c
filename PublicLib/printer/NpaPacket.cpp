#include "PublicLib/printer/NpaPacket.h"

namespace jsw::npa {

const std::array<ExpectedByte, 4> kLoopbackResponse{{
    {4, 0x03, "NPA response - cmd byte does not match expected resp. byte="},
    {5, 0x04, "NPA response - sub cmd byte does not match expected resp. byte="},
    {6, 0x31, "NPA rsp - data byte1 does not match source="},
    {7, 0x32, "NPA rsp - data byte2 does not match source="},
}};

// The function byte of the answer is 0x20, not the 0x14 of the question.
const std::array<ExpectedByte, 5> kPrintHeadClassResponse{{
    {4, 0xE0, "NPA response - cmd does not match expected, = "},
    {5, 0x8F, "NPA response - sub cmd does not match expected, = "},
    {6, 0x20, "NPA rsp - Function does not match source= "},
    {7, 0x03, "NPA rsp - Sub Function does not match source= "},
    {8, 0x00, "NPA rsp - Sub Function query does not match source= "},
}};

const ExpectedByte* findMismatch(std::span<const std::uint8_t> response,
                                 std::span<const ExpectedByte> expected) {
    for (const ExpectedByte& byte : expected) {
        if (response[byte.offset] != byte.value) return &byte;
    }
    return nullptr;
}

}  // namespace jsw::npa
