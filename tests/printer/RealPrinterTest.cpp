#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/printer/RealPrinter.h"
#include "tests/printer/ClientTest.h"

namespace jsw {

class RealPrinterTest : public test::ClientTest {
  protected:
    void SetUp() override {
        ClientTest::SetUp();
        script_.printers = {{11, "Other", "USB002"}, {12, "Ink", "USB001"}, {13, "INK", "USB009"}};
        startLog();
    }

    RealPrinter printer_{"Ink"};
};

TEST_F(RealPrinterTest, IsFoundByItsExactName) {
    EXPECT_TRUE(printer_.init());
    EXPECT_EQ(printer_.getPrtHandle(), 12);
    EXPECT_EQ(printer_.getPort(), "USB001");
    EXPECT_EQ(printer_.getPcsClientDllName(), kClient);
    EXPECT_EQ(printer_.getHidHandle(), 0);
    EXPECT_EQ(printer_.getScannerHandle(), 0);
    EXPECT_EQ(printer_.print("file"), 0U);
    for (const char* text : {"(clientId=77, handle=12, friendlyName = Ink, port = USB001): ",
                             "Empty HidHandles List. Matching Hid handle not found.",
                             "Empty ScannerHandles List. Matching scanner handle not found.",
                             "PCS hid enumeration failed.", "PCS scanner enumeration failed."}) {
        EXPECT_TRUE(logContains(text)) << text;
    }
    EXPECT_EQ(script_.initialized, 0);
    EXPECT_FALSE(isLoaded(kClient));

    RealPrinter unknown("ink");
    EXPECT_FALSE(unknown.init());
    EXPECT_EQ(unknown.getPort(), "");
    EXPECT_TRUE(logContains("PCS printer enumeration failed."));
}

TEST_F(RealPrinterTest, TakesItsInterfacesByTheExactPort) {
    struct Row {
        std::vector<test::ScriptedDevice> interfaces;
        std::int32_t chosen;
    };
    std::string longPort(1024, 'p');  // fills the buffer without a terminator
    const Row rows[] = {
        {{{21, "", "usb001"}, {22, "", "USB0011"}, {23, "", "USB001"}, {24, "", "USB001"}}, 23},
        {{{21, "", "USB001", 5}, {22, "", "USB001"}}, 22},  // a failed query is skipped
        {{{21, "", "USB00"}, {22, "", longPort.c_str()}}, 0},
    };
    for (const auto& row : rows) {
        script_.hids = row.interfaces;
        script_.scanners = row.interfaces;
        EXPECT_TRUE(printer_.init());
        EXPECT_EQ(printer_.getHidHandle(), row.chosen);
        EXPECT_EQ(printer_.getScannerHandle(), row.chosen);
    }
    for (const char* text :
         {"Found matching port name =USB001", "getPcsClient()->getStringScanner rc=5",
          "Matching hid handle not found.", "Matching scanner handle not found."}) {
        EXPECT_TRUE(logContains(text)) << text;
    }
}

TEST_F(RealPrinterTest, TellsLocalFromNetworkByTheTransport) {
    for (const char* transport : {"USB1", "PAR1", "usb1", "USB", "USB11", "USB1 ", "", "TCP"}) {
        RealPrinter printer("Ink");
        script_.transport = transport;
        EXPECT_TRUE(printer.init());
        const bool isLocal = transport == std::string("USB1") || transport == std::string("PAR1");
        EXPECT_EQ(logContains("Connection Type - LOCAL_TRANSPORT"), isLocal) << transport;
        EXPECT_EQ(logContains("Connection Type - NETWORK_TRANSPORT"), !isLocal) << transport;
        BasicLogger::existing()->deleteLog();
    }
    script_.transportStatus = 5;
    EXPECT_TRUE(printer_.init());
    EXPECT_FALSE(logContains("Connection Type"));
}

TEST_F(RealPrinterTest, SurvivesOddNames) {
    const std::string longName(100000, 'n');
    script_.printers = {{11, nullptr, "USB001"},
                        {12, longName.c_str(), longName.c_str()},
                        {13, "\x80\xFF\x01", nullptr},
                        {14, "", ""}};
    struct Row {
        std::string name, port;
        std::int32_t handle;
    };
    for (const Row& row : {Row{longName, longName, 12}, Row{"\x80\xFF\x01", "", 13}}) {
        RealPrinter printer(row.name);
        EXPECT_TRUE(printer.init());
        EXPECT_EQ(printer.getPrtHandle(), row.handle);
        EXPECT_EQ(printer.getPort(), row.port);
    }
}

TEST_F(RealPrinterTest, GivesUpWithoutAClient) {
    const std::string noLibrary = folder_.write("nolibrary.dll", "this is no library");
    for (const std::string& client :
         {std::string("absent.dll"), noLibrary, std::string(), std::string("qlbareclient.dll"),
          std::string("qlclientwithoutid.dll")}) {
        useClient(client);
        EXPECT_FALSE(printer_.init()) << client;
    }
    Settings().deleteValue(setting::kPcsClient.key, setting::kPcsClient.name);
    EXPECT_FALSE(printer_.init());
    EXPECT_EQ(printer_.getPcsClientDllName(), "qlteComc.dll");
    EXPECT_TRUE(
        hasLine("Error - settings.getStringValue(keyName=Settings\\, "
                "valueName=PcsClient, rc=false."));
}

TEST_F(RealPrinterTest, AsksTheDeviceOnceForAllThreads) {
    script_.cache = {0, 0, 0x01, 0x10, 1, '0'};
    script_.cacheLength = 6;
    ASSERT_TRUE(printer_.init());
    std::atomic<IPrinterCache*> cache{nullptr};
    meetIn("PcsGetCachePrinter", [&] {
        IPrinterCache* const mine = &printer_.getCache();
        IPrinterCache* const before = cache.exchange(mine);
        EXPECT_TRUE(before == nullptr || before == mine);
    });
    EXPECT_EQ(script_.cacheReads, 1);
    EXPECT_EQ(cache.load()->getInkCartridge1Type(), CartridgeType::black);

    script_.response = {0xA5, 0, 10, 0x50, 0xE0, 0x8F, 0x20, 3, 0, 200, 1, 2, 3};
    meetIn("PcsExchangeBidiPrinter", [&] { EXPECT_EQ(printer_.getPrintHeadType(), 200); });
    EXPECT_EQ(script_.exchanges, 1);
}

TEST_F(RealPrinterTest, TakesPropertiesAndCacheToTheLastByteThatFits) {
    // A type record at the very end of 4096 bytes, after records of 255 unknown bytes.
    script_.cache.assign(2, 0);
    while (script_.cache.size() + 258 + 4 <= 4096) {
        script_.cache.insert(script_.cache.end(), {0xFF, 0xFF, 0xFF});
        script_.cache.resize(script_.cache.size() + 255);
    }
    const std::size_t rest = 4096 - script_.cache.size() - 4 - 3;
    script_.cache.insert(script_.cache.end(), {0xFF, 0xFF, static_cast<std::uint8_t>(rest)});
    script_.cache.resize(script_.cache.size() + rest);
    script_.cache.insert(script_.cache.end(), {0x01, 0x10, 1, '0'});
    script_.cacheLength = 4096;
    const std::string port(1023, 'p');
    script_.printers = {{12, "Ink", port.c_str()}};
    script_.hids = {{22, "", port.c_str()}};
    ASSERT_TRUE(printer_.init());
    EXPECT_EQ(printer_.getHidHandle(), 22);
    EXPECT_EQ(printer_.getCache().getInkCartridge1Type(), CartridgeType::black);
}

TEST_F(RealPrinterTest, LoadsTheClientOnceForItsSearch) {
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    int loads = 0;
    const auto load = test::replaceImport<decltype(LoadLibraryA)>(
        imports, "LoadLibraryA", [&](auto original, const char* name) {
            loads += std::string(name) == kClient ? 1 : 0;
            return original(name);
        });
    ASSERT_TRUE(printer_.init());
    EXPECT_EQ(loads, 1);
}

TEST_F(RealPrinterTest, TakesNoMoreOfTheCacheThanTheBufferHolds) {
    script_.cache.assign(4096, 0xFF);
    script_.cacheLength = 0xFFFFFFFF;
    ASSERT_TRUE(printer_.init());
    EXPECT_EQ(printer_.getCache().getCartridgeCount(), 0U);
}

TEST_F(RealPrinterTest, KeepsTheNullCacheOfAFailedRead) {
    script_.cacheStatus = 5;
    ASSERT_TRUE(printer_.init());
    EXPECT_EQ(printer_.getCache().getDeviceSerialNumber(), "0000000");
    EXPECT_TRUE(logContains("pcsClient->getCachePrinter rc=5"));
    EXPECT_TRUE(logContains("Using NullPrinterCache"));
    script_.cacheStatus = 0;
    EXPECT_EQ(printer_.getCache().getInkCartridge1Type(), CartridgeType::invalid);
    EXPECT_EQ(script_.cacheReads, 1);
}

TEST_F(RealPrinterTest, PingsWithALoopback) {
    using Answer = std::vector<std::uint8_t>;
    const struct {
        Answer response;
        std::uint32_t result;
        const char* logged;
    } rows[] = {
        {{0xA5, 0, 5, 0x10, 3, 4, 0x31, 0x32}, 0, "NPA response flagbyte = 16"},
        {{9, 9, 9, 9, 3, 4, 0x31, 0x32, 0, 0}, 0, "NPA response flagbyte = 9"},  // longer
        {{0xA5, 0, 5, 0x50, 3, 4, 0x31},
         13,
         "NPA loopback cmd response's size ret (8 bytes sent )is less than expected =.7"},
        {{0xA5, 0, 5, 0x50, 1, 4, 0x31, 0x32},
         13,
         "NPA response - cmd byte does not match expected resp. byte=1"},
        {{0xA5, 0, 5, 0x50, 3, 2, 0x31, 0x32},
         13,
         "NPA response - sub cmd byte does not match expected resp. byte=2"},
        {{0xA5, 0, 5, 0x50, 3, 4, 0x32, 0x32}, 13, "NPA rsp - data byte1 does not match source=50"},
        {{0xA5, 0, 5, 0x50, 3, 4, 0x31, 0x31}, 13, "NPA rsp - data byte2 does not match source=49"},
    };
    EXPECT_EQ(printer_.ping(), 6U);
    EXPECT_TRUE(logContains("Invalid Printer Handle."));
    ASSERT_TRUE(printer_.init());
    for (const auto& row : rows) {
        script_.response = row.response;
        EXPECT_EQ(printer_.ping(), row.result) << row.logged;
        EXPECT_TRUE(logContains(row.logged)) << row.logged;
        EXPECT_EQ(script_.opened, 0);
        EXPECT_FALSE(isLoaded(kClient));
    }
    EXPECT_EQ(script_.requestLength, 8U);
    EXPECT_EQ(script_.request, (std::array<std::uint8_t, 16>{0xA5, 0, 5, 0x50, 3, 4, 0x31, 0x32}));
    script_.exchangeStatus = 31;
    EXPECT_EQ(printer_.ping(), 31U);
    EXPECT_TRUE(logContains("pcsClient->exchangeBidiPrinter failed with rc =31"));
    script_.openStatus = 32;
    EXPECT_EQ(printer_.ping(), 32U);
    EXPECT_TRUE(logContains("OpenPrinter failed with rc =32"));
    EXPECT_FALSE(isLoaded(kClient));
}

TEST_F(RealPrinterTest, AsksForThePrintHeadClassUntilItKnows) {
    using Answer = std::vector<std::uint8_t>;
    const Answer right{0xA5, 0, 10, 0x50, 0xE0, 0x8F, 0x20, 3, 0, 200, 1, 2, 3};
    const struct {
        std::size_t offset;
        std::uint8_t byte;
        const char* logged;
    } rows[] = {
        {4, 0xE1, "NPA response - cmd does not match expected, = 225"},
        {5, 0x8E, "NPA response - sub cmd does not match expected, = 142"},
        {6, 0x14, "NPA rsp - Function does not match source= 20"},
        {7, 0x04, "NPA rsp - Sub Function does not match source= 4"},
        {8, 0x01, "NPA rsp - Sub Function query does not match source= 1"},
    };
    EXPECT_EQ(printer_.getPrintHeadType(), -1);
    EXPECT_EQ(script_.exchanges, 0);
    ASSERT_TRUE(printer_.init());
    for (const auto& row : rows) {
        script_.response = right;
        script_.response[row.offset] = row.byte;
        EXPECT_EQ(printer_.getPrintHeadType(), -1) << row.logged;
        EXPECT_TRUE(logContains(row.logged)) << row.logged;
    }
    for (const std::size_t length : {0U, 12U, 14U}) {
        script_.response = right;
        script_.response.resize(length);
        EXPECT_EQ(printer_.getPrintHeadType(), -1);
        EXPECT_TRUE(logContains("loopback response size returned =" + std::to_string(length) +
                                " is wrong."));
    }
    script_.response = right;
    script_.exchangeStatus = 31;
    EXPECT_EQ(printer_.getPrintHeadType(), -1);
    script_.exchangeStatus = 0;

    const int exchanges = script_.exchanges;
    EXPECT_EQ(printer_.getPrintHeadType(), 200);
    EXPECT_EQ(script_.requestLength, 13U);
    EXPECT_EQ(script_.request,
              (std::array<std::uint8_t, 16>{0xA5, 0, 6, 0x50, 0xE0, 0x8F, 0x14, 3}));
    useClient("absent.dll");
    EXPECT_EQ(printer_.getPrintHeadType(), 200);
    EXPECT_EQ(script_.exchanges, exchanges + 1);
    EXPECT_TRUE(logContains("Retriving the cached value of the print head class =200"));
}

}  // namespace jsw
