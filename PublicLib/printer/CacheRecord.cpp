#include "PublicLib/printer/CacheRecord.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <system_error>

namespace jsw {

namespace {

constexpr std::size_t kHeaderSize = 2;
constexpr std::size_t kRecordHeaderSize = 3;  // id and length
constexpr std::size_t kNumberSize = 4;

constexpr std::uint32_t kDeviceSerialNumber = 0x0016;
constexpr std::uint32_t kModemState = 0x0515;
constexpr std::uint32_t kModemPresent = 0x0523;

// Each cartridge has its own block of record ids, the second after the first.
constexpr std::uint32_t kCartridgeBlocks = 0x0110;
enum CartridgeField : std::uint32_t {
    kTypeField = 0x0,
    kSerialNumberField = 0x3,
    kAuthenticityField = 0x7,
    kPartNumberField = 0x8,
    kProgramTypeField = 0xA,
    kCartridgeFields = 0x10,
};

/// Truncates; values below zero give 0. The values fit, because they come from 32-bit capacities.
std::uint32_t toCount(double value) {
    return value > 0 ? static_cast<std::uint32_t>(value) : 0;
}

/// The meaning of a type byte's high half.
struct TypeCode {
    int highHalf;
    CartridgeType type;
    const char* name;  ///< in the log
};
constexpr TypeCode kTypeCodes[] = {
    {0x2, CartridgeType::missing, "CARTRIDGETYPE_MISSING"},
    {0x3, CartridgeType::black, "CARTRIDGETYPE_BLACK"},
    {0x5, CartridgeType::color, "CARTRIDGETYPE_COLOR"},
    {0x7, CartridgeType::photo, "CARTRIDGETYPE_PHOTO"},
};
constexpr TypeCode kInvalidType{-1, CartridgeType::invalid, "CARTRIDGETYPE_INVALID"};

/// In base 36, with lower-case letters.
PartNumber toPartNumber(std::uint32_t value) {
    std::array<char, 34> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value, 36);
    if (error != std::errc{}) return {"00", static_cast<int>(error)};
    return {std::string(text.data(), end), 0};
}

double percentLeft(double capacity, double dots) {
    return (capacity - dots) * 100 / capacity;
}

}  // namespace

constexpr std::array<InkNumber, 10> kInkNumbers{
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

/// The fields by their id's distance from the first; null where no number has the id.
constexpr auto kInkFields = [] {
    std::array<std::uint32_t InkNumbers::*, kInkNumbers.back().id - kInkNumbers.front().id + 1>
        all{};
    for (const InkNumber& number : kInkNumbers) {
        all[number.id - kInkNumbers.front().id] = number.field;
    }
    return all;
}();

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

/// @param rest  from the record's data to the end of the stream. A number or byte has its field's
///              width; the length only leads to the next record.
void CacheRecord::takeRecord(std::uint32_t id, std::uint8_t length,
                             std::span<const std::uint8_t> rest) {
    if (id == kDeviceSerialNumber) {
        if (length <= rest.size())
            values_.deviceSerialNumber.assign(rest.begin(), rest.begin() + length);
        return;
    }
    const std::uint32_t block = (id - kCartridgeBlocks) / kCartridgeFields;
    if (id >= kCartridgeBlocks && block < values_.cartridges.size()) {
        CartridgeValues& cartridge = values_.cartridges[block];
        if (!rest.empty()) takeByte(cartridge, id % kCartridgeFields, rest[0]);
        if (rest.size() >= kNumberSize) takeNumber(cartridge, id % kCartridgeFields, rest.data());
    } else {
        if (!rest.empty()) takeModem(id, rest[0]);
        if (rest.size() >= kNumberSize) takeInk(id, rest.data());
    }
}

void CacheRecord::takeModem(std::uint32_t id, std::uint8_t byte) {
    if (id == kModemState && byte <= 1) {
        values_.modemAvailable = true;
        if (byte == 1) values_.modemCableReversed = true;
    }
    if (id == kModemPresent && byte == 1) values_.modemAvailable = true;
}

void CacheRecord::takeInk(std::uint32_t id, const std::uint8_t* bytes) {
    const std::uint32_t place = id - kInkNumbers.front().id;  // huge for the ids before
    if (place < kInkFields.size() && kInkFields[place] != nullptr) {
        ink_.*kInkFields[place] = getUnsignedLongValue(bytes);
    }
}

void CacheRecord::takeByte(CartridgeValues& cartridge, std::uint32_t field, std::uint8_t byte) {
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

void CacheRecord::takeNumber(CartridgeValues& cartridge, std::uint32_t field,
                             const std::uint8_t* bytes) {
    if (field == kSerialNumberField) {
        cartridge.serialNumber = getUnsignedLongValue(bytes);
    } else if (field == kPartNumberField) {
        const PartNumber partNumber = toPartNumber(getUnsignedLongValue(bytes));
        cartridge.partNumber = partNumber.text;
        if (observer_ != nullptr) {
            observer_->onPartNumber(&cartridge == &values_.cartridges[0] ? 1 : 2, partNumber);
        }
    }
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

/// The largest number of fired dots among the inks of a cartridge of this kind.
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
    const auto* known = std::ranges::find(kTypeCodes, typeByte >> 4, &TypeCode::highHalf);
    const TypeCode& code = known != std::end(kTypeCodes) ? *known : kInvalidType;
    tell("getCartridgeType", code.name);
    return code.type;
}

std::uint32_t CacheRecord::getUnsignedLongValue(const std::uint8_t* bytes) const {
    static constexpr char kNoBytes[] = "The byte stream passed in is NULL, defaulting value to 0";
    tell("getUnsignedLongValue", bytes == nullptr ? kNoBytes : nullptr);
    if (bytes == nullptr) return 0;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < kNumberSize; ++i) value = value << 8 | bytes[i];
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
    // Magenta in per cent, unlike the other two: see "Fixed interfaces" in docs/architecture.md.
    return toCount(std::min({capacity - ink_.cyanDots, percentLeft(capacity, ink_.magentaDots),
                             capacity - ink_.yellowDots}));
}

}  // namespace jsw
