#include "jsw/settings/macros/CartridgeTags.h"

#include "PublicLib/text/Text.h"

namespace jsw {

namespace {

constexpr CartridgeHolder kHolder1{
    &IPrinterCache::getInkCartridge1Type, &IPrinterCache::getInkCartridge1Level,
    &IPrinterCache::getCartridge1PartNumber, &IPrinterCache::getCartridge1ProgramType};
constexpr CartridgeHolder kHolder2{
    &IPrinterCache::getInkCartridge2Type, &IPrinterCache::getInkCartridge2Level,
    &IPrinterCache::getCartridge2PartNumber, &IPrinterCache::getCartridge2ProgramType};

/// The web pages have one code per kind. The size class is queried but does not refine the code,
/// see "Fixed interfaces" in docs/architecture.md.
std::string capacityCode(const IPrinterCache& cache, const CartridgeHolder& holder) {
    switch ((cache.*holder.type)()) {
        case CartridgeType::black:
            cache.getBlackCartridgeClass();
            return "30";
        case CartridgeType::photo:
            cache.getPhotoCartridgeClass();
            return "70";
        case CartridgeType::color:
            cache.getColorCartridgeClass();
            return "50";
        default:
            return "00";
    }
}

std::string inkLevel(const IPrinterCache& cache, const CartridgeHolder& holder) {
    if ((cache.*holder.type)() == CartridgeType::missing) return "101";
    return std::to_string((cache.*holder.inkLevel)());
}

std::string partNumber(const IPrinterCache& cache, const CartridgeHolder& holder) {
    return (cache.*holder.partNumber)();
}

std::string programType(const IPrinterCache& cache, const CartridgeHolder& holder) {
    return (cache.*holder.programType)() == 0 ? "00" : "01";
}

constexpr CartridgeTag kCartridgeTags[] = {
    {'C', "capacity", "00", capacityCode},
    {'L', "ink level", "101", inkLevel},
    {'P', "part number", "00", partNumber},
    {'T', "program type", "01", programType},
};

}  // namespace

const CartridgeTag* findCartridgeTag(std::string_view tagName) {
    const std::string_view letter = tagName.substr(0, 1);
    for (const CartridgeTag& tag : kCartridgeTags) {
        if (equalsIgnoringCase(letter, std::string_view(&tag.letter, 1))) return &tag;
    }
    return nullptr;
}

const CartridgeHolder* findCartridgeHolder(std::string_view tagName) {
    const std::string_view number = tagName.substr(tagName.empty() ? 0 : 1);
    if (number == "1") return &kHolder1;
    if (number == "2") return &kHolder2;
    return nullptr;
}

}  // namespace jsw
