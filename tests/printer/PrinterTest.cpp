#include "PublicLib/printer/Printer.h"
#include "PublicLib/printer/SimulatedPrinter.h"
#include "tests/printer/ClientTest.h"

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

}  // namespace jsw
