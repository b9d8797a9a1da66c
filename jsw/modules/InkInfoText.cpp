#include "jsw/modules/InkInfoText.h"

#include "PublicLib/text/Text.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace jsw {

namespace {

enum class Kind { number, diagnostic, inkPercents };

struct Field {
    const char* label;
    std::size_t offset;
    Kind kind;
};

constexpr Field kFields[] = {
    {"iCart1AlignRequired=", offsetof(InkInfo, iCart1AlignRequired), Kind::number},
    {"iCart1Authenticity=", offsetof(InkInfo, iCart1Authenticity), Kind::number},
    {"iCart1PartNum=", offsetof(InkInfo, iCart1PartNum), Kind::number},
    {"iCart1PrintheadDiag=", offsetof(InkInfo, iCart1PrintheadDiag), Kind::diagnostic},
    {"iCart1PYG=", offsetof(InkInfo, iCart1PYG), Kind::number},
    {"iCart1UID=", offsetof(InkInfo, iCart1UID), Kind::number},
    {"iCart2AlignRequired=", offsetof(InkInfo, iCart2AlignRequired), Kind::number},
    {"iCart2Authenticity=", offsetof(InkInfo, iCart2Authenticity), Kind::number},
    {"iCart2PartNum=", offsetof(InkInfo, iCart2PartNum), Kind::number},
    {"iCart2PrintheadDiag=", offsetof(InkInfo, iCart2PrintheadDiag), Kind::diagnostic},
    {"iCart2PYG=", offsetof(InkInfo, iCart2PYG), Kind::number},
    {"iCart2UID=", offsetof(InkInfo, iCart2UID), Kind::number},
    {"iChangedCartCount1=", offsetof(InkInfo, iChangedCartCount1), Kind::number},
    {"iChangedCartCount2=", offsetof(InkInfo, iChangedCartCount2), Kind::number},
    {"iEstPagesRemaining=", offsetof(InkInfo, iEstPagesRemaining), Kind::number},
    {"iLogCartID1=", offsetof(InkInfo, iLogCartID1), Kind::number},
    {"iLogCartID2=", offsetof(InkInfo, iLogCartID2), Kind::number},
    {"InkPercent", offsetof(InkInfo, InkPercent), Kind::inkPercents},
    {"InkStyle=", offsetof(InkInfo, InkStyle), Kind::number},
    {"iPhysCartID1=", offsetof(InkInfo, iPhysCartID1), Kind::number},
    {"iPhysCartID2=", offsetof(InkInfo, iPhysCartID2), Kind::number},
};

/// The record is packed, so its numbers may be unaligned.
template <class Number>
Number numberAt(const InkInfo& inkInfo, std::size_t offset) {
    Number number{};
    std::memcpy(&number, reinterpret_cast<const char*>(&inkInfo) + offset, sizeof(number));
    return number;
}

/// The driver may omit the text's terminating zero byte.
std::string diagnosticAt(const InkInfo& inkInfo, std::size_t offset) {
    const char* text = reinterpret_cast<const char*>(&inkInfo) + offset;
    const void* end = std::memchr(text, 0, JSW_PRINTHEAD_DIAG_SIZE);
    const std::size_t length = end == nullptr
                                   ? JSW_PRINTHEAD_DIAG_SIZE
                                   : static_cast<std::size_t>(static_cast<const char*>(end) - text);
    return {text, length};
}

}  // namespace

std::vector<std::string> inkInfoLines(const InkInfo& inkInfo) {
    std::vector<std::string> lines;
    for (const Field& field : kFields) {
        switch (field.kind) {
            case Kind::number:
                lines.push_back(
                    concat(field.label, numberAt<std::uint32_t>(inkInfo, field.offset)));
                break;
            case Kind::diagnostic:
                lines.push_back(concat(field.label, diagnosticAt(inkInfo, field.offset)));
                break;
            case Kind::inkPercents:
                for (std::size_t slot = 0; slot < JSW_INK_SLOTS; ++slot) {
                    const auto percent =
                        numberAt<std::int32_t>(inkInfo, field.offset + slot * sizeof(std::int32_t));
                    lines.push_back(concat(field.label, slot + 1, "=", percent));
                }
                break;
        }
    }
    return lines;
}

}  // namespace jsw
