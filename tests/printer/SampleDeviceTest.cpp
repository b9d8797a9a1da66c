#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/Printer.h"
#include "PublicLib/printer/RealPrinter.h"
#include "samples/device/DeviceFile.h"
#include "tests/printer/ClientTest.h"
#include "tests/support/ProcessState.h"

namespace jsw {

class SampleDeviceTest : public test::ClientTest {
  protected:
    void SetUp() override {
        ClientTest::SetUp();
        useClient("comc.dll");
        describe(test::readFile(JSW_SAMPLE_DEVICE_FILE));
    }
    void TearDown() override {
        SetEnvironmentVariableA("JSW_DEVICE_FILE", nullptr);
        ClientTest::TearDown();
    }

    void describe(const std::string& devices) {
        const std::string path = folder_.write("device.txt", devices);
        SetEnvironmentVariableA("JSW_DEVICE_FILE", path.c_str());
    }
};

TEST_F(SampleDeviceTest, AnswersForTheSamplePrinter) {
    Printer printer("Quillon Sim 2000");
    EXPECT_EQ(printer.getFriendlyName(), "Quillon Sim 2000");
    const IPrinterCache& cache = printer.getCache();
    EXPECT_EQ(cache.getDeviceSerialNumber(), "99Q200000000042");
    EXPECT_EQ(cache.getCartridgeCount(), 2U);
    EXPECT_EQ(cache.getInkCartridge1Type(), CartridgeType::color);
    EXPECT_EQ(cache.getInkCartridge2Type(), CartridgeType::black);
    EXPECT_EQ(cache.getInkCartridge1Level(), 50U);
    EXPECT_EQ(cache.getInkCartridge2Level(), 12U);
    EXPECT_EQ(cache.getCartridge1PartNumber(), "1000z");
    EXPECT_EQ(cache.getCart1RemainingDotCount(), 65U);
    EXPECT_TRUE(cache.isModemAvailable());

    RealPrinter real("Quillon Sim 2000");
    ASSERT_TRUE(real.init());
    EXPECT_EQ(real.getPort(), "USB001");
    EXPECT_NE(real.getHidHandle(), 0);
    EXPECT_NE(real.getScannerHandle(), 0);
    EXPECT_EQ(real.ping(), 0U);
    EXPECT_EQ(real.getPrintHeadType(), 3);
    EXPECT_FALSE(isLoaded("comc.dll"));
}

TEST_F(SampleDeviceTest, LeavesNothingBehindWhenItIsFreed) {
    const auto useAndFree = [&](int times) {
        for (int i = 0; i < times; ++i) {
            if (i % 2 != 0) describe("port = A\n");  // its parser raises an exception internally
            PcsClient("comc.dll", "", false).cancelDiscovery();
        }
        EXPECT_FALSE(isLoaded("comc.dll"));
        return test::processState();
    };
    const test::ProcessState before = useAndFree(2);
    const test::ProcessState after = useAndFree(20);
    EXPECT_EQ(after.freeTlsIndexes, before.freeTlsIndexes);
    EXPECT_LT(after.heapBytes, before.heapBytes + 400);
}

TEST_F(SampleDeviceTest, SimulatesWhatAPrinterLacks) {
    describe("[One]\nport = A\nhid = B\n[Two]\r\nport=B\r\n");
    RealPrinter printer("Two");
    ASSERT_TRUE(printer.init());
    EXPECT_NE(printer.getHidHandle(), 0);
    EXPECT_EQ(printer.getScannerHandle(), 0);
    EXPECT_EQ(printer.getPrintHeadType(), -1);
    EXPECT_EQ(printer.getCache().getDeviceSerialNumber(), "0000000");
    describe("port = A\n");
    EXPECT_FALSE(printer.init());
    SetEnvironmentVariableA("JSW_DEVICE_FILE", "absent");
    EXPECT_FALSE(printer.init());
}

TEST_F(SampleDeviceTest, ServesSeveralUsersUntilTheLastIsGone) {
    PcsClient first("comc.dll", "", false);
    ASSERT_EQ(first.acquire(), 0U);
    {
        PcsClient second("comc.dll", "", false);
        EXPECT_EQ(second.acquire(), 0U);
    }
    const auto printerSeen = [](JswDeviceClientId, JswDeviceHandle, const char*, const char*) {
        return std::int32_t{1};
    };
    EXPECT_EQ(first.enumWindowsPrinters("ALL_TRANSPORT", "", printerSeen), 0U);
    EXPECT_EQ(first.enumWindowsPrinters("ALL_TRANSPORT", "", nullptr),
              static_cast<PcsStatus>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(first.enumHids("ALL_TRANSPORT", "", nullptr),
              static_cast<PcsStatus>(ERROR_INVALID_PARAMETER));
}

TEST(DeviceFileTest, NamesTheLineThatItCannotTake) {
    for (const char* line :
         {"colour = red", "printHeadClass = 256", "printHeadClass =", "record = 65536 byte 1",
          "record = 22", "record = 272 char QQ", "record = 279 byte -1",
          "record = 1024 number 4294967296", "record = 1024 number 1x", "record = 22 hex 00"}) {
        try {
            sample::readDeviceFile("# comment\n[Printer]\n\n" + std::string(line) + "\nport = A");
            ADD_FAILURE() << line;
        } catch (const sample::DeviceFileError& error) {
            EXPECT_EQ(std::string(error.what()).substr(0, 8), "line 4: ") << line;
        }
    }
}

}  // namespace jsw
