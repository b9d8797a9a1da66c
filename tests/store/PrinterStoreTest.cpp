#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/RegistryKey.h"
#include "tests/support/HostTest.h"
#include "tests/support/SpoolerPrinter.h"

#include <string>

namespace jsw {

namespace {
constexpr char kRoot[] = "Software\\QuillonInkjet\\IjPrtSettings\\";
}

class PrinterStoreTest : public test::HostTest {};

TEST_F(PrinterStoreTest, StoreIsNamedAfterTheNameAtInstallation) {
    test::SpoolerPrinter printer("JSW renamed");
    printer.setOriginalName("JSW original");
    RegistryKey(std::string(kRoot) + "JSW original\\GUI\\JSW", true)
        .setValue("Job Progress Minimized", std::uint32_t{5});

    EXPECT_EQ(OfnSettings::printerStorePath("JSW renamed"), std::string(kRoot) + "JSW original");
    std::uint32_t value = 0;
    EXPECT_EQ(OfnSettings("JSW renamed").read(setting::kJobProgressMinimized, value), Read::found);
    EXPECT_EQ(value, 5u);

    printer.setOriginalName("changed");
    EXPECT_EQ(originalFriendlyName("JSW renamed"), "JSW original") << "the last name is remembered";
    EXPECT_EQ(originalFriendlyName(""), "");
    EXPECT_EQ(originalFriendlyName("JSW renamed"), "changed");
}

TEST_F(PrinterStoreTest, PrintersWithoutAnOriginalNameHaveANamelessStore) {
    EXPECT_EQ(OfnSettings::printerStorePath(""), kRoot);
    EXPECT_EQ(OfnSettings::printerStorePath("No such printer"), kRoot);
    test::SpoolerPrinter printer("JSW plain");
    EXPECT_EQ(OfnSettings::printerStorePath("JSW plain"), kRoot);
    originalFriendlyName("");
    printer.setOriginalName(REG_DWORD, "1234");
    EXPECT_EQ(OfnSettings::printerStorePath("JSW plain"), kRoot);
}

TEST_F(PrinterStoreTest, ReadingNeverMakesAPrinterStore) {
    const OfnSettings settings("No such printer");
    std::uint32_t value = 7;
    std::string text = "old";
    EXPECT_EQ(settings.read(setting::kShowProcessWindow, value), Read::missing);
    EXPECT_EQ(settings.readOrWriteDefault(setting::kCompleteToPrint, value), Read::missing);
    EXPECT_EQ(settings.read(setting::kRetailerId, text), Read::missing);
    EXPECT_EQ(value, 7u);
    EXPECT_EQ(text, "old");
    EXPECT_FALSE(settings.rootExists());
}

}  // namespace jsw
