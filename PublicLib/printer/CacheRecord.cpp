#include "PublicLib/printer/CacheRecord.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace jsw {

namespace {

constexpr std::size_t kHeaderSize = 2;
constexpr std::size_t kRecordHeaderSize = 3;  // id and length
constexpr std::size_t kNumberSize = 4;

constexpr std::uint32_t kDeviceSerialNumber = 0x0016;
constexpr std::uint32_t kModemState = 0x0515;
constexpr std::uint32_t kModemPresent = 0x0523;

// The records of each cartridge lie in a block of their own.
constexpr std::uint32_t kCartridge1Block = 0x0110;
constexpr std::uint32_t kCartridge2Block = 0x0120;
enum CartridgeField : std::uint32_t {
    kTypeField = 0x0,
    kSerialNumberField = 0x3,
    kAuthenticityField = 0x7,
    kPartNumberField = 0x8,
    kProgramTypeField = 0xA,
    kCartridgeFields = 0x10,
};

/// Truncates; what is below zero is none left. The values come from 32-bit capacities and so fit.
std::uint32_t toCount(double value) {
    return value > 0 ? static_cast<std::uint32_t>(value) : 0;
}

/// Which cartridge, 1 or 2, a record belongs to; 0 when it belongs to none.
unsigned cartridgeOf(std::uint32_t id) {
    const std::uint32_t block = id - id % kCartridgeFields;
    if (block == kCartridge1Block) return 1;
    return block == kCartridge2Block ? 2 : 0;
}

double percentLeft(double capacity, double dots) {
    return (capacity - dots) * 100 / capacity;
}

}  // namespace

const std::array<InkNumber, 10> kInkNumbers{
    {{0x0400, "blackDotCount=", &InkNumbers::blackDots},
     {0x0401, "cyanDotCount=", &InkNumbers::cyanDots},
     {0x0402, "magentaDotCount=", &InkNumbers::magentaDots},
     {0x0403, "yellowDotCount=", &InkNumbers::yellowDots},
     {0x0404, "photoColor1BlackDotCount=", &InkNumbers::photoBlackDots},
     {0x0405, "photoColor2CyanDotCount=", &InkNumbers::photoCyanDots},
     {0x0406, "photocolor3MagentaDotCount=", &InkNumbers::photoMagentaDots},
     {0x0414, "blackCartridgeCapacity=", &InkNumbers::blackCapacity},
     {0x0415, "colorCartridgeCapacity=", &InkNumbers::colorCapacity},
     {0x0417, "photoCartridgeCapacity=", &InkNumbers::photoCapacity}}};

const char* cartridgeTypeName(CartridgeType type) {
    switch (type) {
        case CartridgeType::black:
            return "CARTRIDGETYPE_BLACK";
        case CartridgeType::photo:
            return "CARTRIDGETYPE_PHOTO";
        case CartridgeType::color:
            return "CARTRIDGETYPE_COLOR";
        case CartridgeType::missing:
            return "CARTRIDGETYPE_MISSING";
        case CartridgeType::invalid:
            break;
    }
    return "CARTRIDGETYPE_INVALID";
}

PartNumber toPartNumber(std::uint32_t value) {
    std::array<char, 34> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value, 36);
    if (error != std::errc{}) return {"00", static_cast<int>(error)};
    return {std::string(text.data(), end), 0};
}

void CacheRecord::parse(std::span<const std::uint8_t> stream) {
    std::size_t position = kHeaderSize;
    while (position < stream.size() && stream.size() - position >= kRecordHeaderSize) {
        const auto record = stream.subspan(position);
        const std::uint32_t id = record[0] * 256U + record[1];
        const std::uint8_t length = record[2];
        takeRecord(id, length, record.subspan(kRecordHeaderSize));
        position += kRecordHeaderSize + length;
    }
    values_.cartridgeCount = 0;
    for (CartridgeValues& cartridge : values_.cartridges) {
        if (cartridge.type != CartridgeType::missing) ++values_.cartridgeCount;
        cartridge.capacity = getTotalDotCount(cartridge.type, capacityOf(cartridge.type));
        cartridge.remainingDotCount = getRemainingDotCount(cartridge.type);
        cartridge.level = getInkCartridgeLevel(cartridge.type);
    }
}

/// @param rest  from the record's data to the end of the stream. A number or byte has the width of
///              its field whatever the length says, which only leads to the next record.
void CacheRecord::takeRecord(std::uint32_t id, std::uint8_t length,
                             std::span<const std::uint8_t> rest) {
    if (id == kDeviceSerialNumber) {
        if (length > rest.size()) return;
        values_.deviceSerialNumber.assign(rest.begin(), rest.begin() + length);
        return;
    }
    if (!rest.empty()) takeByte(id, rest[0]);
    if (rest.size() >= kNumberSize) takeNumber(id, rest.data());
}

void CacheRecord::takeByte(std::uint32_t id, std::uint8_t byte) {
    if (id == kModemState && byte <= 1) {
        values_.modemAvailable = true;
        if (byte == 1) values_.modemCableReversed = true;
    }
    if (id == kModemPresent && byte == 1) values_.modemAvailable = true;
    if (const unsigned cartridge = cartridgeOf(id); cartridge != 0) {
        takeCartridgeByte(id % kCartridgeFields, values_.cartridges[cartridge - 1], byte);
    }
}

void CacheRecord::takeCartridgeByte(std::uint32_t field, CartridgeValues& cartridge,
                                    std::uint8_t byte) {
    switch (field) {
        case kTypeField:
            cartridge.type = getCartridgeType(byte);
            takeCartridgeClass(byte);
            break;
        case kAuthenticityField:
            cartridge.authenticity = byte >= 1 && byte <= 4 ? byte : 5;
            break;
        case kProgramTypeField:
            cartridge.programType = std::min<std::uint32_t>(byte, 2);
            break;
        default:
            break;
    }
}

void CacheRecord::takeCartridgeClass(std::uint8_t typeByte) {
    const auto takeFrom = [typeByte](std::uint8_t first, std::uint32_t& cartridgeClass) {
        if (typeByte >= first && typeByte <= first + 2) cartridgeClass = typeByte - first + 0U;
    };
    takeFrom('0', values_.blackCartridgeClass);
    takeFrom('P', values_.colorCartridgeClass);
    takeFrom('p', values_.photoCartridgeClass);
}

void CacheRecord::takeNumber(std::uint32_t id, const std::uint8_t* bytes) {
    if (id >= kInkNumbers.front().id && id <= kInkNumbers.back().id) {
        const auto number = std::ranges::find(kInkNumbers, id, &InkNumber::id);
        if (number != kInkNumbers.end()) ink_.*number->field = getUnsignedLongValue(bytes);
    }
    const unsigned cartridge = cartridgeOf(id);
    if (cartridge == 0) return;
    if (id % kCartridgeFields == kSerialNumberField) {
        values_.cartridges[cartridge - 1].serialNumber = getUnsignedLongValue(bytes);
    } else if (id % kCartridgeFields == kPartNumberField) {
        takePartNumber(cartridge, getUnsignedLongValue(bytes));
    }
}

void CacheRecord::takePartNumber(unsigned cartridge, std::uint32_t value) {
    const PartNumber partNumber = toPartNumber(value);
    values_.cartridges[cartridge - 1].partNumber = partNumber.text;
    if (observer_ != nullptr) observer_->onPartNumber(cartridge, partNumber);
}

void CacheRecord::tell(const char* conversion, const char* note) const {
    if (observer_ != nullptr) observer_->onConversion(conversion, note);
}

std::uint32_t CacheRecord::capacityOf(CartridgeType kind) const {
    switch (kind) {
        case CartridgeType::black:
            return ink_.blackCapacity;
        case CartridgeType::color:
            return ink_.colorCapacity;
        case CartridgeType::photo:
            return ink_.photoCapacity;
        default:
            return 0;
    }
}

/// The dots fired of that ink in a cartridge of this kind of which most were fired.
std::uint32_t CacheRecord::mostDots(CartridgeType kind) const {
    switch (kind) {
        case CartridgeType::black:
            return ink_.blackDots;
        case CartridgeType::color:
            return std::max({ink_.cyanDots, ink_.magentaDots, ink_.yellowDots});
        default:
            return std::max({ink_.photoBlackDots, ink_.photoCyanDots, ink_.photoMagentaDots});
    }
}

CartridgeType CacheRecord::getCartridgeType(std::uint8_t typeByte) const {
    const CartridgeType type = [typeByte] {
        switch (typeByte & 0xF0) {
            case 0x20:
                return CartridgeType::missing;
            case 0x30:
                return CartridgeType::black;
            case 0x50:
                return CartridgeType::color;
            case 0x70:
                return CartridgeType::photo;
            default:
                return CartridgeType::invalid;
        }
    }();
    tell("getCartridgeType", cartridgeTypeName(type));
    return type;
}

std::uint32_t CacheRecord::getUnsignedLongValue(const std::uint8_t* bytes) const {
    constexpr char kNoBytes[] = "The byte stream passed in is NULL, defaulting value to 0";
    tell("getUnsignedLongValue", bytes == nullptr ? kNoBytes : nullptr);
    std::uint32_t value = 0;
    for (std::size_t i = 0; bytes != nullptr && i < kNumberSize; ++i) value = value << 8 | bytes[i];
    return value;
}

std::uint32_t CacheRecord::getTotalDotCount(CartridgeType kind, std::uint32_t capacity) const {
    tell("getTotalDotCount");
    return kind == CartridgeType::invalid || kind == CartridgeType::missing ? 0 : capacity;
}

std::uint32_t CacheRecord::getInkCartridgeLevel(CartridgeType kind) const {
    tell("getInkCartridgeLevel");
    const double capacity = capacityOf(kind);
    return capacity <= 0 ? 0 : toCount(percentLeft(capacity, mostDots(kind)));
}

std::uint32_t CacheRecord::getRemainingDotCount(CartridgeType kind) const {
    tell("getRemainingDotCount");
    const double capacity = capacityOf(kind);
    if (capacity <= 0) return 0;
    if (kind != CartridgeType::color) return toCount(capacity - mostDots(kind));
    // Magenta counts in per cent, unlike the other two: a fixed interface (docs/architecture.md).
    return toCount(std::min({capacity - ink_.cyanDots, percentLeft(capacity, ink_.magentaDots),
                             capacity - ink_.yellowDots}));
}

}  // namespace jsw
