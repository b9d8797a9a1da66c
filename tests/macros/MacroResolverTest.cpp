#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/printer/Printer.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "jsw/settings/macros/MacroResolver.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/SpoolerPrinter.h"

#include <windows.h>

#include <fstream>
#include <gmock/gmock.h>
#include <memory>
#include <new>
#include <utility>

namespace jsw {

class MacroResolverTest : public test::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        usePrinter("");
    }
    void TearDown() override {
        originalFriendlyName("");  // resets the cached printer
        HostTest::TearDown();
    }

    void usePrinter(const std::string& friendlyName) {
        printer_ = std::make_shared<Printer>(friendlyName);
    }

    /// Writes a value of the printer store of a printer with that original name.
    static void writePrinterStore(const std::string& originalName, const std::string& name,
                                  const std::string& value) {
        RegistryKey(
            Localize::getInstance()->getProductLineRoot() + "\\IjPrtSettings\\" + originalName,
            true)
            .setValue(name, value);
    }

    std::string replace(const std::string& text) const {
        return MacroResolver(printer_).replaceMacros(text);
    }

    std::shared_ptr<Printer> printer_;
};

/// The retailer file of this host program, during the object's lifetime.
class RetailerFile {
  public:
    explicit RetailerFile(const std::string& content) {
        const std::string folder = OsVersion::instance().versionedPrinterDriverFolder();
        CreateDirectoryA(folder.c_str(), nullptr);
        path_ = joinPath(folder, Localize::getInstance()->localId() + "rtlr.ini");
        std::ofstream(path_, std::ios::binary) << content;
    }
    ~RetailerFile() { DeleteFileA(path_.c_str()); }

  private:
    std::string path_;
};

TEST_F(MacroResolverTest, EveryTagHasItsValue) {
    const Settings settings;
    settings.write(setting::kBaseUrl, "http://www.example.com");
    settings.write(setting::kManufacturerName, "Quillon");
    settings.write(setting::kPrinterCode, "Q2000");
    writePrinterStore("", "SerialNumber", "0123");
    writePrinterStore("", "RetailerID", "42");
    usePrinter("SimulatedPrinter");
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    const auto system = test::replaceImport<decltype(GetSystemDefaultLangID)>(
        imports, "GetSystemDefaultLangID", []() -> LANGID { return 0x0C07; });
    const auto user = test::replaceImport<decltype(GetUserDefaultLangID)>(
        imports, "GetUserDefaultLangID", []() -> LANGID { return 0x040A; });

    const std::pair<const char*, std::string> cases[] = {
        {"BaseUrl", "http://www.example.com"},
        {"OemCode", "Quillon"},
        {"PrinterCode", "Q2000"},
        {"printercode", "Q2000"},
        {"OSCODE", "3"},  // of Windows 7 and everything newer
        {"PSI", "0123"},
        {"psi", "0123"},
        {"PartnerCode", "&partner=42"},
        {"C1", "50"},
        {"C2", "30"},
        {"L1", "90"},
        {"l2", "10"},
        {"P1", "00"},
        {"P2", "00"},
        {"T1", "01"},
        {"t2", "01"},
        {"CountryCode", "00000C07"},
        {"languagecode", "4"},
        {"Unknown", "_^Unknown^_"},
        {"", "_^^_"},
        {" BaseUrl", "_^ BaseUrl^_"},
    };
    for (const auto& [name, value] : cases) {
        const std::string tag = std::string("_^") + name + "^_";
        EXPECT_EQ(replace("a=" + tag + "&b"), "a=" + value + "&b");
        EXPECT_EQ(MacroResolver(printer_).resolveTag("", name), name);
    }
}

TEST_F(MacroResolverTest, InvalidCartridgeTagsAreLoggedWithoutAskingThePrinter) {
    startLog();
    const struct {
        const char *name, *value, *topic;
    } cases[] = {
        {"C3", "00", "capacity"},      {"C", "00", "capacity"},
        {"Color", "00", "capacity"},   {"L3", "101", "ink level"},
        {"l12", "101", "ink level"},   {"P0", "00", "part number"},
        {"p 1", "00", "part number"},  {"Title", "01", "program type"},
        {"T20", "01", "program type"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(replace(std::string("_^") + test.name + "^_"), test.value);
        EXPECT_TRUE(
            hasLine(concat("WARNING: Cartridge ", test.topic, " tag '", test.name, "' not valid.")))
            << test.name;
    }
    EXPECT_FALSE(logContains("Printer::"));
}

TEST_F(MacroResolverTest, MissingSettingsGetTheirDefaultOrLeaveTheTag) {
    startLog();
    const std::string text = "_^BaseUrl^_|_^PrinterCode^_|_^OemCode^_";
    EXPECT_EQ(replace(text), "||_^OemCode^_");
    std::string written = "x";
    EXPECT_EQ(Settings().read(setting::kBaseUrl, written), Read::found);
    EXPECT_EQ(written, "");

    // A failure: the value is no text.
    for (const char* name : {"BaseUrl", "PrinterCode", "ManufacturerName"}) {
        Settings().setValue(setting::kSettingsKey, name, 1);
    }
    BasicLogger::existing()->deleteLog();
    EXPECT_EQ(replace(text), text);
    for (const char* name : {"BaseUrl", "PrinterCode", "ManufacturerName"}) {
        EXPECT_TRUE(hasLine(concat(
            "Error - settings.getStringValue(keyName=Settings\\, valueName=", name, ", rc=false.")))
            << name;
    }
}

TEST_F(MacroResolverTest, PartnerCodeComesFromTheRetailerFileOrThePrinterStore) {
    const struct {
        const char *file, *retailer, *value, *line;
    } cases[] = {
        {"[Skin]\r\nPartner1URL=shop7\r\n", "42", "&partner=shop7",
         "Partner code read from ini file."},
        {"[Skin]\r\nPartner1URL=\r\n", "42", "&partner=42", "Partner code read from registry."},
        {"[Other]\r\nPartner1URL=shop7\r\n", "", "", "No valid RetailerId in registry"},
    };
    startLog();
    usePrinter("SimulatedPrinter");
    for (const auto& test : cases) {
        const RetailerFile file(test.file);
        writePrinterStore("", "RetailerID", test.retailer);
        EXPECT_EQ(replace("x_^PartnerCode^_"), concat("x", test.value));
        EXPECT_TRUE(hasLine(concat("MacroResolver::getPartnerCode()", test.line))) << test.line;
    }
    EXPECT_TRUE(hasLine("MacroResolver::getPartnerCode()INI File path containing partner1URL=" +
                        OsVersion::instance().versionedPrinterDriverFolder()));
    EXPECT_TRUE(
        hasLine("MacroResolver::getPartnerCode()No Partner code read from ini file. retCode=0"));
}

TEST_F(MacroResolverTest, APartnerCodeMayHave259Characters) {
    const RetailerFile file("[Skin]\r\nPartner1URL=" + std::string(300, 'p'));
    EXPECT_EQ(replace("_^PartnerCode^_"), "&partner=" + std::string(259, 'p'));
}

TEST_F(MacroResolverTest, WithoutFileAndStoreThePartnerAndSerialNumberAreEmpty) {
    EXPECT_EQ(replace("x_^PartnerCode^__^PSI^_y"), "xy");
}

TEST_F(MacroResolverTest, ReadsTheStoreOfThePrinterUnderItsOriginalName) {
    test::SpoolerPrinter printer("SimulatedPrinter");
    printer.setOriginalName("Quillon 2000 (Copy 1)");
    writePrinterStore("Quillon 2000 (Copy 1)", "SerialNumber", "99Z1");
    writePrinterStore("Quillon 2000 (Copy 1)", "RetailerID", "77");
    writePrinterStore("", "SerialNumber", "wrong");
    usePrinter("SimulatedPrinter");
    EXPECT_EQ(replace("_^PSI^__^PartnerCode^_"), "99Z1&partner=77");
}

TEST_F(MacroResolverTest, ValuesThatLeadBackToThemselvesEndWithAWarning) {
    BasicLogger::createInstance(15);  // a warning is written even with the log off
    const Settings settings;
    settings.write(setting::kBaseUrl, "_^PrinterCode^_");
    settings.write(setting::kPrinterCode, "x_^BaseUrl^_");
    const std::string result = replace("a_^BaseUrl^_b_^L9^_");
    EXPECT_EQ(result.substr(0, 3), "axx");
    EXPECT_EQ(result.substr(result.size() - 7), "b_^L9^_");
    EXPECT_TRUE(logContains("WARNING: MacroResolver::replaceMacros: "));
}

TEST_F(MacroResolverTest, ATagWithoutMemoryGetsItsFallbackAndTheOthersTheirValues) {
    startLog();
    Settings().write(setting::kPrinterCode, "Q2000");
    const auto runOut = test::replaceImport<decltype(GetSystemDefaultLangID)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetSystemDefaultLangID",
        []() -> LANGID { throw std::bad_alloc(); });
    EXPECT_EQ(replace("_^CountryCode^_|_^PrinterCode^_"), "_^CountryCode^_|Q2000");
    EXPECT_TRUE(logContains("ERROR - MacroResolver::resolveTag: std::bad_alloc"));
}

TEST_F(MacroResolverTest, TracesTextsTagsAndResults) {
    startLog();
    usePrinter("SimulatedPrinter");
    BasicLogger::existing()->deleteLog();
    replace("a_^X^_");
    EXPECT_THAT(
        logLines(),
        ::testing::ElementsAre(
            "+MacroResolver::replaceMacros:",
            "MacroResolver::replaceMacros:    replaceMacros( str=a_^X^_):",
            "+MacroResolver::resolveTag:",
            "MacroResolver::resolveTag:    resolveTag( strTagText=_^X^_, strTag=X)",
            "-MacroResolver::resolveTag: rc=_^X^_", "-MacroResolver::replaceMacros: rc=a_^X^_"));
}

}  // namespace jsw
