#include "PublicLib/printer/DeviceEnumerator.h"
#include "PublicLib/printer/RealPrinter.h"
#include "jsw/settings/RegistryKey.h"
#include "tests/printer/ClientTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/SpoolerPrinter.h"

namespace jsw {

class SpoolerTest : public test::ClientTest {
  protected:
    /// Puts a printer of the spooler on another port than the one it was installed on.
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

    const std::string driver = all.printers()[0].driver;
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
