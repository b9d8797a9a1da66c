#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/printer/ValuesPrinterCache.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/macros/CartridgeTags.h"
#include "jsw/settings/macros/LanguageCodes.h"
#include "jsw/settings/macros/PageDirectUtilities.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HostTest.h"
#include "tests/support/WindowsVersion.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <map>

namespace jsw {

TEST(LanguageCodes, EveryLanguageIdHasItsCode) {
    std::map<std::uint16_t, std::uint32_t> expected{
        {0x040C, 1},  {0x080C, 1},  {0x0C0C, 1},  {0x100C, 1},  {0x140C, 1},  {0x0407, 2},
        {0x0807, 2},  {0x0C07, 2},  {0x1007, 2},  {0x1407, 2},  {0x0410, 3},  {0x0810, 3},
        {0x0406, 5},  {0x0414, 6},  {0x0413, 7},  {0x0813, 7},  {0x041D, 8},  {0x081D, 8},
        {0x040B, 9},  {0x0816, 10}, {0x0411, 12}, {0x0804, 13}, {0x1004, 13}, {0x0404, 14},
        {0x0C04, 14}, {0x1404, 14}, {0x0405, 15}, {0x0408, 16}, {0x040E, 17}, {0x040F, 18},
        {0x0412, 19}, {0x0812, 19}, {0x0415, 20}, {0x0416, 21}, {0x0419, 22}, {0x041B, 23},
        {0x041F, 24}, {0x042A, 25}, {0x0422, 26}, {0x041E, 27}, {0x0424, 29}, {0x081A, 30},
        {0x0C1A, 31}, {0x0418, 32}, {0x0427, 33}, {0x0426, 34}, {0x0421, 35}, {0x0438, 36},
        {0x0425, 37}, {0x041A, 38}, {0x0403, 39}, {0x0402, 40}, {0x0423, 41}, {0x042D, 42},
        {0x041C, 43}, {0x0436, 44}, {0x0814, 45}, {0x040D, 46}, {0x042F, 48}, {0x043E, 49},
    };
    for (std::uint32_t sub = 0; sub < 64; ++sub) {  // all of one primary language
        expected[static_cast<std::uint16_t>((sub << 10) | 0x0A)] = 4;
        if (sub >= 1 && sub <= 16) expected[static_cast<std::uint16_t>((sub << 10) | 0x01)] = 47;
    }
    expected[0x0C0A] = 28;

    for (std::uint32_t id = 0; id <= 0xFFFF; ++id) {
        const auto row = expected.find(static_cast<std::uint16_t>(id));
        const std::uint32_t code = row == expected.end() ? 0 : row->second;
        EXPECT_EQ(languageCode(static_cast<std::uint16_t>(id)), code) << std::hex << id;
    }
}

TEST(OsCodes, EverySystemHasItsCode) {
    const struct {
        OsClass os;
        bool is64Bit;
        const char *code, *note;
    } cases[] = {
        {OsClass::other, true, "3", ""},       {OsClass::windows95, false, "3", ""},
        {OsClass::nt4, false, "3", ""},        {OsClass::windows2000, false, "3", ""},
        {OsClass::xp, false, "5", ""},         {OsClass::xp, true, "5", ""},
        {OsClass::server2003, false, "5", ""}, {OsClass::server2003, true, "9", "is 64 bit XP"},
        {OsClass::vista, false, "10", ""},     {OsClass::vista, true, "11", "is 64 bit Vista"},
        {OsClass::windows7, true, "3", ""},
    };
    for (const auto& test : cases) {
        const OsCode code = osCode(test.os, test.is64Bit);
        EXPECT_EQ(code.code, test.code) << static_cast<int>(test.os);
        EXPECT_EQ(code.note, test.note) << static_cast<int>(test.os);
    }
}

/// Answers the code as its exit code.
const test::ChildRole askingHost("ask for the OS code", [](const std::string&) {
    const test::PrivateRegistry registry;
    Localize::createInstance(nullptr);
    test::HostTest::switchLogOn();
    BasicLogger::createInstance(15);
    return std::stoi(PageDirectUtilities::getOsCode());
});

using OsCodeTest = test::HostTest;

/// Run in a copy of this program with a host's name.
TEST_F(OsCodeTest, IsThatOfTheWindowsThatRuns) {
    const std::string name = "qlxpcode.exe";
    const std::string host = folder_.file(name);
    std::filesystem::copy_file(moduleFileName(nullptr), host);
    const test::WindowsVersion chosen(name, "winxp64");
    EXPECT_EQ(test::ChildProcess("ask for the OS code", "", host).wait(60000), 9U);
    const std::string log = std::string(folderPart(logPath())) + "qlxpJSW.log";
    EXPECT_THAT(test::readFile(log),
                ::testing::AllOf(::testing::HasSubstr("getOsCode()is 64 bit XP"),
                                 ::testing::HasSubstr("-PageDirectUtilities::getOsCode() rc=9")));
}

class CartridgeTags : public test::HostTest {
  protected:
    struct Cache : ValuesPrinterCache {
        explicit Cache(const PrinterCacheValues& values) : ValuesPrinterCache("Cache", values) {}
    };

    static std::string valueOf(const char* tagName, const PrinterCacheValues& values) {
        const Cache cache(values);
        return findCartridgeTag(tagName)->value(cache, *findCartridgeHolder(tagName));
    }
};

TEST_F(CartridgeTags, AnswerForEveryKindOfCartridgeInEitherHolder) {
    const struct {
        CartridgeType type;
        const char *capacity, *level;
        std::string question;  // that the capacity asks
    } cases[] = {
        {CartridgeType::black, "30", "42", "getBlackCartridgeClass"},
        {CartridgeType::photo, "70", "42", "getPhotoCartridgeClass"},
        {CartridgeType::color, "50", "42", "getColorCartridgeClass"},
        {CartridgeType::invalid, "00", "42", ""},
        {CartridgeType::missing, "00", "101", ""},
        {static_cast<CartridgeType>(5), "00", "42", ""},
    };
    startLog();
    const char* const names[][2] = {{"C1", "L1"}, {"c2", "l2"}};
    for (const std::size_t holder : {0U, 1U}) {
        for (const auto& test : cases) {
            PrinterCacheValues values;
            values.cartridges[holder] = {.type = test.type, .level = 42};
            values.cartridges[1 - holder] = {.type = CartridgeType::invalid, .level = 7};
            values.blackCartridgeClass = values.photoCartridgeClass = 1;
            BasicLogger::existing()->deleteLog();
            EXPECT_EQ(valueOf(names[holder][0], values), test.capacity);
            for (const auto& other : cases) {
                if (other.question.empty()) continue;
                EXPECT_EQ(logContains(other.question), other.question == test.question);
            }
            EXPECT_EQ(valueOf(names[holder][1], values), test.level);
        }
    }
}

TEST_F(CartridgeTags, AnswerWithPartNumberAndProgramType) {
    PrinterCacheValues values;
    values.cartridges[0] = {.programType = 0, .partNumber = "18c0034"};
    values.cartridges[1] = {.programType = 2, .partNumber = ""};
    EXPECT_EQ(valueOf("P1", values), "18c0034");
    EXPECT_EQ(valueOf("p2", values), "");
    EXPECT_EQ(valueOf("T1", values), "00");
    EXPECT_EQ(valueOf("t2", values), "01");
}

}  // namespace jsw
