#include "PublicLib/printer/DeviceEnumerator.h"
#include "PublicLib/printer/Printer.h"
#include "PublicLib/printer/RealPrinter.h"
#include "PublicLib/printer/SimulatedPrinter.h"
#include "jsw/settings/RegistryKey.h"
#include "tests/printer/ClientTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/SpoolerPrinter.h"

#include <gmock/gmock.h>

namespace jsw {

class PrinterTest : public test::ClientTest {
  protected:
    void TearDown() override {
        Printer::destroy();
        ClientTest::TearDown();
    }
};

TEST_F(PrinterTest, FallsBackToAPrinterThatAnswersNothing) {
    startLog();
    for (const char* name : {"", "no such printer", "\x80\xFF\x01\\?"}) {
        Printer printer(name);
        EXPECT_EQ(printer.getFriendlyName(), "");
        const IPrinterCache& cache = printer.getCache();
        EXPECT_EQ(cache.getDeviceSerialNumber(), "0000000");
        EXPECT_EQ(cache.getInkCartridge2Type(), CartridgeType::invalid);
        EXPECT_EQ(cache.getCartridge1Authenticity(), 5U);
        EXPECT_EQ(cache.getCartridge2ProgramType(), 2U);
        EXPECT_EQ(cache.getBlackCartridgeClass(), 3U);
        EXPECT_EQ(cache.getCartridge1SerialNumber(), 1U);
        EXPECT_EQ(cache.getCartridge2SerialNumber(), 2U);
        EXPECT_EQ(cache.getCartridge1PartNumber(), "00");
    }
    const auto lines = logLines();
    EXPECT_THAT(lines, ::testing::IsSupersetOf(
                           {"Error - friendlyName len <= 0.",
                            "Printer::initialize(friendlyName =): Invalid friendly name. "
                            "Switching to NullPrinter"}));
    NullPrinter printer("x");
    EXPECT_EQ(printer.ping(), 55U);
    EXPECT_EQ(printer.print("file"), 55U);
    EXPECT_EQ(printer.getPrintHeadType(), -1);
    printer.setPrintHeadClass(7);
    EXPECT_EQ(printer.getPrintHeadType(), 7);
    EXPECT_TRUE(logContains("+NullPrinter::setPrintHeadClass(printHeadClass = 7):"));
}

TEST_F(PrinterTest, SimulatesAPrinterUnderTheReservedName) {
    Printer printer("sIMULATEDpRINTER");
    EXPECT_EQ(printer.getFriendlyName(), "sIMULATEDpRINTER");
    const IPrinterCache& cache = printer.getCache();
    EXPECT_EQ(cache.getInkCartridge1Level(), 90U);
    EXPECT_EQ(cache.getInkCartridge2Level(), 10U);
    EXPECT_EQ(cache.getInkCartridge1Type(), CartridgeType::color);
    EXPECT_EQ(cache.getCartridge2Authenticity(), 2U);
    EXPECT_EQ(cache.getPhotoCartridgeClass(), 2U);
    EXPECT_EQ(cache.getDeviceSerialNumber(), "99Z000000000001");
    EXPECT_TRUE(cache.isModemAvailable());
    SimulatedPrinter simulated("SimulatedPrinter");
    EXPECT_TRUE(simulated.init());
    EXPECT_EQ(simulated.ping(), 0U);
    EXPECT_EQ(simulated.print("file"), 0U);
    EXPECT_EQ(simulated.getPrintHeadType(), 2);
    EXPECT_EQ(simulated.getPort(), "USB003");
    EXPECT_FALSE(isLoaded(kClient));
}

TEST_F(PrinterTest, StaysTheFirstUntilItIsDestroyed) {
    startLog();
    Printer::destroy();
    EXPECT_FALSE(hasLine("Printer::destroy: destroying Printer."));
    const auto first = Printer::instance("SimulatedPrinter");
    EXPECT_EQ(Printer::instance("another"), first);
    Printer::destroy();
    EXPECT_EQ(first->getFriendlyName(), "SimulatedPrinter");  // while it is held
    EXPECT_NE(Printer::instance(""), first);
    for (const char* line : {"Printer::instance(friendlyName=SimulatedPrinter):creating Printer.",
                             "Printer::destroy: destroying Printer."}) {
        EXPECT_TRUE(hasLine(line)) << line;
    }
}

class SpoolerTest : public test::ClientTest {
  protected:
    /// Moves a printer of the spooler to another port.
    static void setPort(const std::string& printer, const std::string& port) {
        RegistryKey("SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" + printer, false)
            .setValue("Port", port);
    }
};

TEST_F(SpoolerTest, ListsTheSpoolersPrinters) {
    EXPECT_TRUE(DeviceEnumerator().printers().empty());
    const test::SpoolerPrinter local("Local Ink");
    const test::SpoolerPrinter shared("Shared Ink");
    setPort("Shared Ink", "\\\\server\\ink");

    DWORD kinds = 0;
    const auto list = test::replaceImport<decltype(EnumPrintersA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "EnumPrintersA",
        [&](auto original, DWORD flags, char* name, DWORD level, BYTE* buffer, DWORD size,
            DWORD* needed, DWORD* count) {
            kinds = name == nullptr ? flags : 0;
            return original(flags, name, level, buffer, size, needed, count);
        });
    const DeviceEnumerator all;
    EXPECT_EQ(kinds, DWORD{PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS});
    EXPECT_EQ(all.printers().size(), 2U);
    EXPECT_EQ(all.getPortName("Local Ink"), "LPT1:");
    EXPECT_EQ(all.getPortName("SHARED INK"), "\\\\server\\ink");
    EXPECT_TRUE(all.isUncPortName("Shared Ink"));
    EXPECT_FALSE(all.isUncPortName("Local Ink"));
    EXPECT_FALSE(all.isUncPortName("absent"));
    EXPECT_EQ(all.getPortName(""), "");

    std::string driver = all.printers()[0].driver;
    CharUpperA(driver.data());
    EXPECT_NE(driver, all.printers()[0].driver);
    Settings().write(setting::kDriverName, driver);
    EXPECT_EQ(DeviceEnumerator().printers().size(), 2U);
    Settings().write(setting::kDriverName, "another driver");
    EXPECT_TRUE(DeviceEnumerator().printers().empty());
}

TEST_F(SpoolerTest, AListThatGrowsFasterThanItsBufferIsGivenUpWithALine) {
    startLog();
    const auto grow = test::replaceImport<decltype(EnumPrintersA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "EnumPrintersA",
        [](DWORD, char*, DWORD, BYTE*, DWORD size, DWORD* needed, DWORD*) -> BOOL {
            *needed = size + 1;
            SetLastError(ERROR_INSUFFICIENT_BUFFER);
            return FALSE;
        });
    EXPECT_TRUE(DeviceEnumerator().printers().empty());
    EXPECT_TRUE(hasLine("ERROR - EnumPrinters failed with rc =122"));
}

TEST_F(SpoolerTest, ASharedPrinterIsKnownWithoutTheClient) {
    startLog();
    const test::SpoolerPrinter shared("Shared Ink");
    for (const char* port : {"\\\\server\\ink", "\\server", "LPT1:"}) {
        setPort("Shared Ink", port);
        RealPrinter printer("Shared Ink");
        const bool unc = std::string(port).starts_with("\\\\");
        useClient(unc ? "" : kClient);
        EXPECT_EQ(printer.init(), unc) << port;  // the client knows no printers
        EXPECT_EQ(script_.clientIdsGiven > 0, !unc) << port;
        EXPECT_EQ(printer.getPort(), unc ? port : "");
        EXPECT_EQ(printer.getPrtHandle(), 0);
        EXPECT_EQ(printer.ping(), 6U);
    }
    useClient(kClient);
    script_.clientIdsGiven = 0;
    setPort("Shared Ink", "\\\\server\\ink");
    RealPrinter printer("Shared Ink");
    ASSERT_TRUE(printer.init());
    EXPECT_EQ(printer.getCache().getDeviceSerialNumber(), "0000000");
    EXPECT_EQ(script_.cacheReads, 0);
    EXPECT_EQ(script_.clientIdsGiven, 0);
    EXPECT_TRUE(hasLine("RealPrinter::getCache: Using NullPrinterCache"));
    EXPECT_TRUE(logContains("Printer is a peer-to-peer. Cannot communicate with Scanner."));
    EXPECT_TRUE(hasLine("+NullPrinter::setPrt(value=true):"));
}

}  // namespace jsw
