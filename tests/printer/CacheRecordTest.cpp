#include "PublicLib/printer/CacheRecord.h"
#include "PublicLib/printer/PrinterCache.h"
#include "tests/support/FuzzSeeds.h"
#include "tests/support/HostTest.h"

#include <gtest/gtest.h>

#include <utility>

namespace jsw {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Builds a stream record by record.
class Stream {
  public:
    Stream& data(std::uint32_t id, const Bytes& data) {
        bytes_.push_back(static_cast<std::uint8_t>(id >> 8));
        bytes_.push_back(static_cast<std::uint8_t>(id));
        bytes_.push_back(static_cast<std::uint8_t>(data.size()));
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        return *this;
    }
    Stream& byte(std::uint32_t id, int value) {
        return data(id, {static_cast<std::uint8_t>(value)});
    }
    Stream& number(std::uint32_t id, std::uint32_t value) {
        return data(id,
                    {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
                     static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)});
    }
    Stream& numbers(std::initializer_list<std::pair<std::uint32_t, std::uint32_t>> values) {
        for (const auto& [id, value] : values) number(id, value);
        return *this;
    }
    const Bytes& bytes() const { return bytes_; }
    PrinterCacheValues parsed() const {
        CacheRecord record;
        record.parse(bytes_);
        return record.values();
    }

  private:
    Bytes bytes_{0xFF, 0xFF};
};

}  // namespace

TEST(CacheRecordTest, DerivesLevelAndDotsFromTheCartridgesKind) {
    struct Row {
        std::initializer_list<std::pair<std::uint32_t, std::uint32_t>> numbers;
        char type;
        std::uint32_t capacity, level, remaining;
    };
    constexpr std::uint32_t kMax = 0xFFFFFFFF;
    const Row rows[] = {
        {{{1044, 1000}, {1024, 333}}, '0', 1000, 66, 667},
        {{{1044, 1000}, {1024, 1001}}, '0', 1000, 0, 0},  // used beyond its capacity
        {{{1044, 0}, {1024, 10}}, '0', 0, 0, 0},
        {{{1045, 1000}, {1047, 1000}}, '0', 0, 0, 0},  // others' capacities
        {{{1044, kMax}}, '0', kMax, 100, kMax},
        {{{1044, kMax}, {1024, kMax}}, '0', kMax, 0, 0},
        // Magenta in per cent: 80 is less than 900 and 700.
        {{{1045, 1000}, {1025, 100}, {1026, 200}, {1027, 300}}, 'P', 1000, 70, 80},
        {{{1045, 1000}, {1025, 100}, {1026, 0}, {1027, 950}}, 'P', 1000, 5, 50},
        {{{1045, 50}}, 'P', 50, 100, 50},
        {{{1045, 1000}, {1026, 2000}}, 'P', 1000, 0, 0},
        {{{1045, 1}, {1025, kMax}, {1026, kMax}, {1027, kMax}}, 'P', 1, 0, 0},
        {{{1047, 200}, {1028, 10}, {1029, 20}, {1030, 30}}, 'p', 200, 85, 170},
        {{{1047, 200}, {1028, 10}, {1029, 201}}, 'p', 200, 0, 0},
        {{{1044, 1000}, {1045, 1000}, {1047, 1000}}, ' ', 0, 0, 0},
        {{{1044, 1000}, {1045, 1000}, {1047, 1000}}, 'A', 0, 0, 0},
    };
    for (const Row& row : rows) {
        for (const std::uint32_t typeId : {272U, 288U}) {
            const auto values = Stream().numbers(row.numbers).byte(typeId, row.type).parsed();
            const CartridgeValues& cartridge = values.cartridges[typeId == 272 ? 0 : 1];
            const auto line = &row - rows;
            EXPECT_EQ(cartridge.capacity, row.capacity) << line;
            EXPECT_EQ(cartridge.level, row.level) << line;
            EXPECT_EQ(cartridge.remainingDotCount, row.remaining) << line;
        }
    }
}

TEST(CacheRecordTest, TellsTypeAndClassOfEveryTypeByte) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const auto values = Stream().byte(272, byte).parsed();
        const std::map<int, CartridgeType> types{{0x2, CartridgeType::missing},
                                                 {0x3, CartridgeType::black},
                                                 {0x5, CartridgeType::color},
                                                 {0x7, CartridgeType::photo}};
        const auto type = types.find(byte >> 4);
        const auto expected = type == types.end() ? CartridgeType::invalid : type->second;
        EXPECT_EQ(values.cartridges[0].type, expected) << byte;
        EXPECT_EQ(values.cartridgeCount, expected == CartridgeType::missing ? 0U : 1U) << byte;
        const auto classFrom = [byte](const char* letters) {
            const char* const letter = byte != 0 ? std::strchr(letters, byte) : nullptr;
            return letter != nullptr ? static_cast<std::uint32_t>(letter - letters) : 3U;
        };
        EXPECT_EQ(values.blackCartridgeClass, classFrom("012")) << byte;
        EXPECT_EQ(values.colorCartridgeClass, classFrom("PQR")) << byte;
        EXPECT_EQ(values.photoCartridgeClass, classFrom("pqr")) << byte;
    }
}

TEST(CacheRecordTest, TakesEachValueOfItsOwnCartridge) {
    const auto values = Stream()
                            .data(22, {'9', '9', 0, 'Z'})
                            .byte(272, 'Q')
                            .number(275, 0x01020304)
                            .byte(279, 4)
                            .number(280, 35)
                            .byte(282, 1)
                            .data(999, Bytes(255, 'x'))
                            .number(291, 0xFFFFFFFF)
                            .byte(295, 6)
                            .number(296, 0xFFFFFFFF)
                            .byte(298, 9)
                            .parsed();
    EXPECT_EQ(values.deviceSerialNumber, std::string("99\0Z", 4));
    EXPECT_EQ(values.cartridgeCount, 1U);
    const auto& [first, second] = values.cartridges;
    EXPECT_EQ(first.serialNumber, 0x01020304U);
    EXPECT_EQ(first.authenticity, 4U);
    EXPECT_EQ(first.partNumber, "z");
    EXPECT_EQ(first.programType, 1U);
    EXPECT_EQ(second.type, CartridgeType::missing);
    EXPECT_EQ(second.serialNumber, 0xFFFFFFFFU);
    EXPECT_EQ(second.authenticity, 5U);
    EXPECT_EQ(second.partNumber, "1z141z3");
    EXPECT_EQ(second.programType, 2U);
}

TEST(CacheRecordTest, TellsWhatIsKnownFromWhatIsNotInEveryByte) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const auto values = Stream().byte(279, byte).byte(298, byte).parsed();
        const auto expected = static_cast<std::uint32_t>(byte);
        EXPECT_EQ(values.cartridges[0].authenticity, byte >= 1 && byte <= 4 ? expected : 5U);
        EXPECT_EQ(values.cartridges[1].programType, byte <= 1 ? expected : 2U);
    }
}

TEST(CacheRecordTest, TellsTheModemFromTwoRecords) {
    struct Row {
        std::uint32_t id;
        int byte;
        bool available, reversed;
    };
    for (const Row& row :
         {Row{1301, 0, true, false}, Row{1301, 1, true, true}, Row{1301, 2, false, false},
          Row{1315, 0, false, false}, Row{1315, 1, true, false}, Row{1315, 2, false, false}}) {
        const auto values = Stream().byte(row.id, row.byte).parsed();
        EXPECT_EQ(values.modemAvailable, row.available) << row.id << ": " << row.byte;
        EXPECT_EQ(values.modemCableReversed, row.reversed) << row.id << ": " << row.byte;
    }
}

TEST(CacheRecordTest, TakesOnlyValuesThatLieInsideTheStream) {
    const Bytes whole = Stream().byte(272, '0').number(1044, 1000).data(22, {'a', 'b'}).bytes();
    // The first length at which each value is taken.
    constexpr std::size_t kType = 2 + 4, kCapacity = kType + 7, kSerial = kCapacity + 5;
    ASSERT_EQ(whole.size(), kSerial);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        CacheRecord record;
        record.parse(std::span(whole).first(length));
        EXPECT_EQ(record.values().cartridgeCount, length >= kType ? 1U : 0U) << length;
        EXPECT_EQ(record.values().cartridges[0].capacity, length >= kCapacity ? 1000U : 0U);
        EXPECT_EQ(record.values().deviceSerialNumber, length >= kSerial ? "ab" : "");
    }
    // A length beyond the end affects only what is there.
    CacheRecord record;
    record.parse(Bytes{0, 0, 0x01, 0x10, 200, '0', 0, 22, 1, 'x'});
    EXPECT_EQ(record.values().cartridges[0].type, CartridgeType::black);
    EXPECT_EQ(record.values().deviceSerialNumber, "");
    record.parse({});
    EXPECT_EQ(record.values().cartridgeCount, 1U);  // counted again
}

TEST(CacheRecordTest, SurvivesEverySeedOfTheFuzzerAtEveryLength) {
    EXPECT_GT(test::replaySeeds(JSW_CACHE_SEEDS), 25);
}

using PrinterCacheTest = test::HostTest;

TEST_F(PrinterCacheTest, AnswersFromTheRecordAndDumpsIt) {
    startLog();
    const Bytes stream = Stream()
                             .data(22, {'S', 'N'})
                             .byte(272, 'q')
                             .byte(288, 'R')
                             .number(296, 36)
                             .number(1045, 1000)
                             .number(1026, 200)
                             .number(1047, 10)
                             .number(1030, 5)
                             .byte(1301, 1)
                             .bytes();
    const PrinterCache cache(stream.data(), stream.size());
    EXPECT_EQ(cache.getDeviceSerialNumber(), "SN");
    EXPECT_EQ(cache.getCartridgeCount(), 2U);
    EXPECT_EQ(cache.getInkCartridge1Type(), CartridgeType::photo);
    EXPECT_EQ(cache.getInkCartridge2Type(), CartridgeType::color);
    EXPECT_EQ(cache.getInkCartridge1Level(), 50U);
    EXPECT_EQ(cache.getInkCartridge2Level(), 80U);
    EXPECT_EQ(cache.getCartridge1Capacity(), 10U);
    EXPECT_EQ(cache.getCartridge2Capacity(), 1000U);
    EXPECT_EQ(cache.getCart1RemainingDotCount(), 5U);
    EXPECT_EQ(cache.getCart2RemainingDotCount(), 80U);
    EXPECT_EQ(cache.getCartridge2PartNumber(), "10");
    EXPECT_EQ(cache.getPhotoCartridgeClass(), 1U);
    EXPECT_EQ(cache.getColorCartridgeClass(), 2U);
    EXPECT_EQ(cache.getBlackCartridgeClass(), 3U);
    EXPECT_TRUE(cache.isModemAvailable());
    EXPECT_TRUE(cache.isModemCableReversed());
    for (const char* line :
         {"deviceSerialNumber_=SN", "inkCartridge1Type_=1", "Life of Cartridge2=0",
          "Part number of Cartridge2=10", "photocolor3MagentaDotCount=5",
          "colorCartridgeCapacity=1000", "isModemAvailable_=true", "cart2RemainingDotCount_=80",
          "inkCartridge1Level_=50", "PrinterCache::getCartridgeTypeCARTRIDGETYPE_COLOR"}) {
        EXPECT_TRUE(hasLine(line)) << line;
    }
}

TEST_F(PrinterCacheTest, HasNothingWithoutAStream) {
    startLog();
    const PrinterCache cache(nullptr, 4096);
    EXPECT_EQ(cache.getInkCartridge1Type(), CartridgeType::missing);
    EXPECT_EQ(cache.getCartridge1Authenticity(), 0U);
    EXPECT_EQ(CacheRecord().getUnsignedLongValue(nullptr), 0U);
    EXPECT_TRUE(logContains("cache byte stream passed in == NULL, not initializing"));
}

}  // namespace jsw
