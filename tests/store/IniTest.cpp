#include "PublicLib/errors/Exception.h"
#include "PublicLib/ini/IniReader.h"
#include "PublicLib/ini/SettingsInstaller.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "tests/support/FuzzSeeds.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace jsw {

using namespace ::testing;

TEST(IniTextTest, TypedValues) {
    constexpr struct {
        const char* value;
        bool hasType;
        IniValueType type;
        const char* text;
    } rows[] = {
        {"dword:10", true, IniValueType::dword, "10"},
        {"string:a:b", true, IniValueType::string, "a:b"},
        {"string:", true, IniValueType::string, ""},
        {"Dword:1", true, IniValueType::unknown, "1"},
        {" dword:1", true, IniValueType::unknown, "1"},
        {":text", false, IniValueType::unknown, ""},
        {"no type", false, IniValueType::unknown, ""},
        {"", false, IniValueType::unknown, ""},
    };
    for (const auto& row : rows) {
        const IniTypedValue parts = splitTypedValue(row.value);
        EXPECT_EQ(parts.hasType, row.hasType) << row.value;
        EXPECT_EQ(parts.type, row.type) << row.value;
        EXPECT_EQ(parts.text, row.text) << row.value;
    }
}

TEST(IniTextTest, NameListsEndAtTheEmptyNameOrTheEndOfTheBuffer) {
    using namespace std::string_view_literals;
    EXPECT_THAT(splitNameList("one\0two\0\0ignored\0"sv), ElementsAre("one", "two"));
    EXPECT_THAT(splitNameList("one\0cut o"sv), ElementsAre("one", "cut o"));
    EXPECT_THAT(splitNameList("\0one\0"sv), IsEmpty());
    EXPECT_THAT(splitNameList(""sv), IsEmpty());
}

TEST(IniTextTest, NumbersAreTheLeadingOnesWithinThirtyTwoBits) {
    constexpr std::pair<const char*, std::uint32_t> rows[] = {{"10", 10},
                                                              {"-1x", 0xFFFFFFFF},
                                                              {" 7 8", 7},
                                                              {"010", 10},
                                                              {"0x10", 0},
                                                              {"abc", 0},
                                                              {"2147483647", 0x7FFFFFFF},
                                                              {"2147483648", 0x7FFFFFFF},
                                                              {"-2147483649", 0x80000000},
                                                              {"99999999999999999999", 0x7FFFFFFF},
                                                              {"", 0}};
    for (const auto& [text, number] : rows) EXPECT_EQ(leadingNumber(text), number) << text;
}

TEST(IniTextTest, ReadsNothingBeyondTheFuzzersSeeds) {
    EXPECT_GT(test::replaySeeds(JSW_FUZZ_CORPUS "/settings"), 5);
}

class IniTest : public test::HostTest {
  protected:
    /// The registry's value as text; "(none)" if it is missing.
    static std::string text(const std::string& path, const std::string& name) {
        std::string value = "(none)";
        try {
            RegistryKey(path, false).getValue(name, value);
        } catch (const Exception&) {
            return "(none)";
        }
        return value;
    }

    static std::uint32_t number(const std::string& path, const std::string& name) {
        std::uint32_t value = 4711;
        RegistryKey(path, false).getValue(name, value);
        return value;
    }
};

TEST_F(IniTest, ReadsSectionsAndPairsInFileOrder) {
    const std::string content =
        "; comment\r\n[Zebra]\r\nb=string:2\r\na = dword:1\r\n"
        "[Empty]\r\n[Ant\\Sub key]\r\nlast=string:no line end";
    startLog();
    IniReader reader(folder_.write("settings.loc", content));
    ASSERT_TRUE(reader.build());
    EXPECT_TRUE(hasLine(concat("IniReader::build():Size of the file=", content.size())));
    EXPECT_TRUE(hasLine(concat("IniReader::buildSectionsData(bufferSize=", content.size(),
                               "):Could not retrieve key-value pairs for section=Empty")));
    EXPECT_THAT(reader.sections(), ElementsAre("Zebra", "Empty", "Ant\\Sub key"));
    IniPairs pairs;
    reader.getSectionData("Zebra", pairs);
    EXPECT_THAT(pairs, ElementsAre(Pair("b", "string:2"), Pair("a", "dword:1")));
    reader.getSectionData("Ant\\Sub key", pairs);
    EXPECT_THAT(pairs, ElementsAre(Pair("last", "string:no line end")));
    for (const char* none : {"Empty", "Unknown", ""}) {
        reader.getSectionData(none, pairs);
        EXPECT_THAT(pairs, IsEmpty()) << none;
    }
}

TEST_F(IniTest, FirstOfTwoEqualKeysCounts) {
    const std::string file =
        folder_.write("twice.loc", "[S]\r\nk=string:first\r\nk=string:second\r\n[S]\r\nx=dword:1");
    IniReader reader(file);
    ASSERT_TRUE(reader.build());
    IniPairs pairs;
    reader.getSectionData("S", pairs);
    EXPECT_THAT(pairs, ElementsAre(Pair("k", "string:first"), Pair("k", "string:first")));
}

TEST_F(IniTest, MissingFileIsLoggedAndLeavesNothing) {
    startLog();
    IniReader reader(folder_.file("none.loc"));
    EXPECT_FALSE(reader.build());
    EXPECT_THAT(reader.sections(), IsEmpty());
    EXPECT_TRUE(hasLine("IniReader::build():Could not open the settings file.errorCode =2"));
    IniPairs pairs{{"old", "old"}};
    reader.getSectionData("Any", pairs);
    EXPECT_THAT(pairs, IsEmpty());
    EXPECT_TRUE(logContains("Unsuccessful parsing settings file. returning empty key-value pairs"));
}

TEST_F(IniTest, MalformedFilesAreHarmless) {
    std::string binary(4096, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i) binary[i] = static_cast<char>(i * 37 + i / 256);
    const std::string hugeLine = "[S]\r\nkey=string:" + std::string(1 << 20, 'x');
    const std::pair<const char*, std::string> files[] = {
        {"empty", ""},
        {"one byte", "["},
        {"no section", "key=value\r\n"},
        {"open bracket", "[Section\r\nkey=string:value"},
        {"nameless section", "[]\r\nkey=string:value"},
        {"shortest section", "[s]"},
        {"no keys", "[s]\r\n=\r\n=value\r\n\r\n"},
        {"binary", binary},
        {"null bytes", std::string("[s]\r\nk\0ey=string:v\0alue\r\n", 25)},
        {"wide text", std::string("\xFF\xFE[\0s\0]\0\n\0k\0=\0v\0", 16)},
        {"huge line", hugeLine},
        {"huge section", "[" + std::string(1 << 20, 's') + "]\r\nkey=string:value"},
    };
    startLog();
    for (const auto& [name, content] : files) {
        BasicLogger::existing()->deleteLog();
        const std::string file = folder_.write("bad.loc", content);
        IniReader reader(file);
        const bool built = reader.build();
        EXPECT_EQ(SettingsInstaller(file).installSettings() && !built, false) << name;
        EXPECT_TRUE(content.size() >= 3 || !built) << name;
        for (const std::string& method : {concat("SettingsInstaller(fileName=", file, "):"),
                                          std::string("installSettings():")}) {
            const std::string line = "Settings file could not be parsed properly.";
            EXPECT_EQ(hasLine(concat("SettingsInstaller::", method, line)), !built) << name;
        }
        for (const std::string& section : reader.sections()) {
            IniPairs pairs;
            reader.getSectionData(section, pairs);
            for (const auto& [key, value] : pairs) EXPECT_LE(value.size(), content.size()) << name;
        }
    }
    EXPECT_FALSE(IniReader(folder_.path()).build());  // a folder
    EXPECT_FALSE(IniReader("").build());
    EXPECT_FALSE(IniReader(std::string(40000, 'n')).build());
}

TEST_F(IniTest, LongValuesArriveWhole) {
    const std::string longText(70000, 'x');
    IniReader reader(folder_.write("long.loc", "[S]\nkey=string:" + longText));
    ASSERT_TRUE(reader.build());
    IniPairs pairs;
    reader.getSectionData("S", pairs);
    EXPECT_THAT(pairs, ElementsAre(Pair("key", "string:" + longText)));
}

TEST_F(IniTest, AFileTooLargeForABufferIsNotRead) {
    startLog();
    const std::string large = folder_.write("large.loc", "[Section]\r\nkey=string:value");
    std::filesystem::resize_file(large, (std::uintmax_t{1} << 32) + 100);  // a sparse file
    EXPECT_FALSE(IniReader(large).build());
    EXPECT_TRUE(hasLine(concat("IniReader::build():Could not open the settings file.errorCode =",
                               ERROR_FILE_TOO_LARGE)));
}

/// As if another program wrote the file at the same time.
TEST_F(IniTest, WhatVanishesWhileAFileIsReadIsLeftOut) {
    startLog();
    const std::string file = folder_.write("s.loc", "[Bare]\na=dword:1\n[S]\nb=dword:1\nc=dword:1");
    const auto read = test::replaceImport<decltype(GetPrivateProfileStringA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetPrivateProfileStringA",
        [](auto original, const char* section, const char* key, auto... rest) -> DWORD {
            if (key == nullptr && *section == 'B') return 1;  // a name without letters
            if (key == nullptr || *key != 'b') return original(section, key, rest...);
            SetLastError(ERROR_FILE_NOT_FOUND);
            return 0;
        });
    IniReader reader(file);
    EXPECT_TRUE(reader.build());
    IniPairs pairs;
    reader.getSectionData("S", pairs);
    EXPECT_THAT(pairs, ElementsAre(Pair("c", "dword:1")));
    EXPECT_TRUE(logContains("No key-value pairs found for section='Bare'"));
    EXPECT_TRUE(logContains("Could not retrieve value for key='b' under section=S"));
}

TEST_F(IniTest, InstallsTypedValues) {
    startLog();
    const std::string file = folder_.write(
        "good.loc",
        "[Software\\A\\Settings]\r\ntext=string:a:b \r\nquoted=string:\r\nten=dword:10"
        "\r\nletters=dword:abc\r\nminus=dword:-1 and more\r\nlarge=dword:99999999999"
        "\r\n[Software\\B]\r\nx=dword:007\r\n");
    EXPECT_TRUE(SettingsInstaller(file).installSettings());
    EXPECT_EQ(text("Software\\A\\Settings", "text"), "a:b");
    EXPECT_EQ(text("Software\\A\\Settings", "quoted"), "");
    EXPECT_EQ(number("Software\\A\\Settings", "ten"), 10u);
    EXPECT_EQ(number("Software\\A\\Settings", "letters"), 0u);
    EXPECT_EQ(number("Software\\A\\Settings", "minus"), 0xFFFFFFFFu);
    EXPECT_EQ(number("Software\\A\\Settings", "large"), 0x7FFFFFFFu);
    EXPECT_EQ(number("Software\\B", "x"), 7u);
    EXPECT_TRUE(
        hasLine("SettingsInstaller::installSettings():Return Code for writing "
                "sectionName='Software\\A\\Settings',key='ten',value='dword:10' is = 0"));
    EXPECT_TRUE(hasLine(
        "IniReader::getValueType(value=dword:10):Parsed value for value='dword:10' is ='10'"));
}

TEST_F(IniTest, InstallsWithAllRightsWhileOthersReadTheFile) {
    const std::string file = folder_.write("read.loc", "[Software\\F]\r\nx=dword:1\r\n");
    const KernelHandle reader(CreateFileA(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    std::string created;
    const auto create = test::replaceImport<decltype(RegCreateKeyExA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegCreateKeyExA",
        [&](auto original, HKEY hive, const char* path, DWORD reserved, char* keyClass,
            DWORD options, REGSAM rights, SECURITY_ATTRIBUTES* security, HKEY* key,
            DWORD* disposition) -> LSTATUS {
            created += concat(path, "|", options, "|", rights, "|", security == nullptr);
            return original(hive, path, reserved, keyClass, options, rights, security, key,
                            disposition);
        });
    EXPECT_TRUE(SettingsInstaller(file).installSettings());
    EXPECT_EQ(created, concat("Software\\F|0|", KEY_ALL_ACCESS, "|true"));
}

TEST_F(IniTest, SkippedPairsMakeTheResultFalseButTheRestIsInstalled) {
    constexpr std::pair<const char*, const char*> rows[] = {
        {"Name=",
         "Empty KeyValue pair found in Section='Software\\C' where key='Name' and value=''"},
        {"Name=Dword:1",
         "Could not retrieve the type information for value='Dword:1' skipping...."},
        {"Name=plain", "Could not find the type information for value=plain"},
        {"[Software\\Nothing]", "Empty Section found. Skipping.."},
        {"[\\Software\\\\]\r\nk=dword:1", "',key='k',value='dword:1' is = "},
    };
    startLog();
    for (const auto& [line, logged] : rows) {
        const std::string file = folder_.write(
            "some.loc",
            std::string("[Software\\C]\r\nfirst=dword:1\r\nlast=string:x\r\n") + line + "\r\n");
        EXPECT_FALSE(SettingsInstaller(file).installSettings()) << line;
        // Not only the last of a section, or of the file, counts.
        EXPECT_FALSE(
            SettingsInstaller(folder_.write("first.loc", concat("[Software\\D]\r\n", line,
                                                                "\r\nlast=string:x\r\n[Software\\E]"
                                                                "\r\nlast=string:x\r\n")))
                .installSettings())
            << line;
        EXPECT_TRUE(logContains(logged)) << line;
        EXPECT_EQ(text("Software\\C", "last"), "x") << line;
        EXPECT_EQ(text("Software\\C", "Name"), "(none)") << line;
        // A bad value does not prevent later ones from being written.
        const bool isPair = *line == 'N';
        EXPECT_EQ(text("Software\\D", "last"), isPair ? "x" : "(none)") << line;
        EXPECT_EQ(text("Software\\E", "last"), "x") << line;
        for (const char* section : {"Software\\C", "Software\\D", "Software\\E"}) {
            RegistryKey::recurseDeleteKey(section, HKEY_LOCAL_MACHINE);
        }
    }
}

}  // namespace jsw
