#include "PublicLib/printer/PcsClient.h"
#include "tests/printer/ClientTest.h"
#include "tests/support/Raise.h"

#include <windows.h>

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>
#include <utility>

namespace jsw {

using ::testing::ElementsAre;

namespace {

constexpr PcsHandle kHandle = 8193;

std::int32_t ignoreDevice(JswDeviceClientId, JswDeviceHandle) {
    return 1;
}

using Operation = std::function<PcsStatus(PcsClient&)>;

/// A call of each family.
struct Calls {
    Operation perCall = [](PcsClient& client) { return client.getHostInfo(); };
    Operation perCallHid = [](PcsClient& client) {
        return client.enumHids("ALL_TRANSPORT", "", ignoreDevice);
    };
    Operation open = [](PcsClient& client) { return client.openPrinter(kHandle); };
    Operation openHid = [](PcsClient& client) { return client.openHid(kHandle); };
    Operation openScanner = [](PcsClient& client) { return client.openScanner(kHandle); };
    Operation openCardReader = [](PcsClient& client) { return client.openCardReader(kHandle); };
    Operation byHandle = [](PcsClient& client) { return client.writePrinter(kHandle); };
    Operation close = [](PcsClient& client) { return client.closePrinter(kHandle); };
    Operation service = [](PcsClient& client) { return client.addTransport(); };
    Operation install = [](PcsClient& client) { return client.install(); };
};
const Calls calls;

}  // namespace

class PcsClientTest : public test::ClientTest {
  protected:
    /// A client's references: "library users, client id users".
    using Held = std::pair<std::int32_t, std::uint32_t>;
    static Held held(const PcsClient& client) {
        return {client.libraryUsers(), client.clientIdUsers()};
    }
};

TEST_F(PcsClientTest, TellsWhyACallCannotBeMade) {
    struct Row {
        const char* library;
        Operation call;
        PcsStatus status;
        Held heldAfter;
    };
    const std::string noLibrary = folder_.write("nolibrary.dll", "this is no library");
    const Row rows[] = {
        // The library is missing, invalid, or lacks PcsInitialize.
        {"absent.dll", calls.perCall, 126, {0, 0}},
        {"absent.dll", calls.perCallHid, 126, {0, 0}},
        {"absent.dll", calls.open, 126, {0, 0}},
        {"absent.dll", calls.service, 126, {0, 0}},
        {"absent.dll", calls.install, 126, {0, 0}},
        {"absent.dll", calls.byHandle, 1, {0, 0}},
        {"absent.dll", calls.close, 1, {0, 0}},
        {noLibrary.c_str(), calls.perCall, 126, {0, 0}},
        {noLibrary.c_str(), calls.install, ERROR_BAD_EXE_FORMAT, {0, 0}},
        {"winspool.drv", calls.perCall, 126, {0, 0}},
        {"winspool.drv", calls.install, 127, {0, 0}},
        // Without PcsGetClientId; the HID variant keeps the library.
        {"qlclientwithoutid.dll", calls.perCall, 127, {0, 0}},
        {"qlclientwithoutid.dll", calls.open, 127, {0, 0}},
        {"qlclientwithoutid.dll", calls.perCallHid, 127, {1, 0}},
        {"qlclientwithoutid.dll", calls.service, 0, {0, 0}},
        // Without the function itself; the opens of HIDs and scanners keep the client id.
        {"qlbareclient.dll", calls.perCall, 127, {0, 0}},
        {"qlbareclient.dll", calls.perCallHid, 127, {0, 0}},
        {"qlbareclient.dll", calls.open, 127, {0, 0}},
        {"qlbareclient.dll", calls.openCardReader, 127, {0, 0}},
        {"qlbareclient.dll", calls.openHid, 127, {0, 1}},
        {"qlbareclient.dll", calls.openScanner, 127, {0, 1}},
        {"qlbareclient.dll", calls.service, 127, {0, 0}},
        {"qlbareclient.dll", calls.install, 127, {0, 0}},
        // Made.
        {kClient, calls.perCall, 0, {0, 0}},
        {kClient, calls.perCallHid, 0, {0, 0}},
        {kClient, calls.open, 0, {1, 1}},
        {kClient, calls.byHandle, 1, {0, 0}},
        {kClient, calls.close, 1, {0, 0}},
        {kClient, calls.service, 0, {0, 0}},
        {kClient, calls.install, 0, {0, 0}},
    };
    for (const Row& row : rows) {
        const auto line = &row - rows;
        {
            PcsClient client(row.library, "", false);
            EXPECT_EQ(row.call(client), row.status) << line;
            EXPECT_EQ(held(client), row.heldAfter) << line;
            EXPECT_EQ(client.isLoaded(), row.heldAfter.first > 0) << line;
        }
        EXPECT_EQ(script_.initialized, 0) << line;
        EXPECT_EQ(script_.opened, 0) << line;
        EXPECT_FALSE(isLoaded(kClient)) << line;
    }
}

TEST_F(PcsClientTest, PassesTheLibrarysStatusOn) {
    script_.callStatus = 4711;
    script_.openStatus = 4712;
    PcsClient client(kClient, "", false);
    EXPECT_EQ(calls.perCall(client), 4711U);
    EXPECT_EQ(calls.perCallHid(client), 4711U);
    EXPECT_EQ(calls.service(client), 4711U);
    EXPECT_EQ(calls.install(client), 4711U);
    EXPECT_EQ(calls.open(client), 4712U);
    EXPECT_EQ(calls.byHandle(client), 1U);
    EXPECT_EQ(held(client), Held(0, 0));

    script_.openStatus = 0;
    EXPECT_EQ(calls.open(client), 0U);
    EXPECT_EQ(calls.byHandle(client), 4711U);
    EXPECT_EQ(calls.close(client), 4711U);  // closed nevertheless
    EXPECT_EQ(held(client), Held(0, 0));

    script_.clientIdStatus = 4713;
    EXPECT_EQ(calls.perCall(client), 4713U);
    EXPECT_EQ(client.acquire(), 4713U);
    EXPECT_EQ(held(client), Held(0, 0));
    EXPECT_EQ(calls.perCallHid(client), 4713U);
    EXPECT_EQ(held(client), Held(1, 0));
}

TEST_F(PcsClientTest, TriesAgainAfterALibraryThatDidNotInitialise) {
    script_.initializeStatus = 5;
    script_.initializeError = ERROR_ACCESS_DENIED;
    PcsClient client(kClient, "", true);
    EXPECT_EQ(calls.perCall(client), 126U);
    EXPECT_EQ(client.acquire(), static_cast<PcsStatus>(ERROR_ACCESS_DENIED));
    script_.initializeError = 0;
    EXPECT_NE(client.acquire(), 0U);
    EXPECT_FALSE(client.isLoaded());
    EXPECT_FALSE(isLoaded(kClient));
    script_.initializeStatus = 0;
    EXPECT_EQ(calls.perCall(client), 0U);
}

TEST_F(PcsClientTest, HandsArgumentsThroughUnchanged) {
    PcsClient client(kClient, "", false);
    const auto big = static_cast<PcsWord>(0xFEDCBA9876543210);
    client.getHostInfo(big, 2, 3, 4, 5, 6);
    EXPECT_EQ(script_.words, (std::array<std::uintptr_t, 8>{77, big, 2, 3, 4, 5, 6, 0}));
    client.openPrinter(kHandle);
    client.writePrinter(kHandle, big, 9);
    EXPECT_EQ(script_.words, (std::array<std::uintptr_t, 8>{77, kHandle, big, 9}));
    client.addTransport(big, 8);  // no client id
    EXPECT_EQ(script_.words, (std::array<std::uintptr_t, 8>{big, 8}));
}

TEST_F(PcsClientTest, HoldsTheLibraryWhileAHandleIsOpen) {
    {
        PcsClient client(kClient, "", false);
        EXPECT_FALSE(client.isLoaded());
        client.openPrinter(kHandle);
        client.openPrinter(kHandle);
        client.openCardReader(kHandle + 1);
        EXPECT_EQ(held(client), Held(3, 3));
        EXPECT_EQ(script_.clientIdsGiven, 1);
        client.closePrinter(kHandle);
        EXPECT_EQ(calls.byHandle(client), 0U);
        EXPECT_EQ(client.closeAllPrinters(), 0U);
        EXPECT_EQ(calls.byHandle(client), 1U);
        EXPECT_EQ(held(client), Held(1, 1));
        for (int i = 0; i < 2; ++i) {  // the library cannot close these; they stay in the list
            EXPECT_EQ(client.closeCardReader(kHandle + 1), 127U);
            EXPECT_EQ(held(client), Held(0, 0));
        }
        EXPECT_FALSE(isLoaded(kClient));
        script_.opened = 0;
        client.openPrinter(kHandle);
        client.openPrinter(kHandle + 2);
    }
    EXPECT_EQ(script_.opened, 0);  // the destructor closed them
    EXPECT_EQ(script_.initialized, 0);
    EXPECT_FALSE(isLoaded(kClient));
}

TEST_F(PcsClientTest, WhatIsLeftOpenIsClosedAsTheKindOfDeviceItIs) {
    static std::vector<std::string> closed;
    closed.clear();
    script_.onCall = [](const std::string& name) { closed.push_back(name); };
    {
        PcsClient client(kClient, "", false);
        client.openHid(kHandle);
        client.openPrinter(kHandle + 1);
        EXPECT_EQ(client.closeAllHids(), 0U);
        EXPECT_THAT(closed, ElementsAre("PcsCloseHid"));
        EXPECT_EQ(held(client), Held(1, 1));
        client.openHid(kHandle + 2);
        client.openScanner(kHandle + 3);
    }
    EXPECT_THAT(closed, ElementsAre("PcsCloseHid", "PcsClosePrinter", "PcsCloseHid",
                                    "PcsCloseScanner", "PcsUninitialize"));
}

TEST_F(PcsClientTest, TwoClosesOfOneOpenGiveItsReferencesUpOnce) {
    static PcsClient* shared;
    PcsClient client(kClient, "", false);
    shared = &client;
    client.acquire();
    client.openPrinter(kHandle);
    script_.onCall = [](const std::string& /*name*/) {
        if (PcsClient* const other = std::exchange(shared, nullptr)) calls.close(*other);
    };
    calls.close(client);
    EXPECT_EQ(held(client), Held(1, 1));
    EXPECT_EQ(calls.close(client), 1U);
}

TEST_F(PcsClientTest, ThreadsThatComeAtOnceShareOneLibraryAndOneClientId) {
    for (const char* step : {"PcsInitialize", "PcsGetClientId"}) {
        PcsClient client(kClient, "", false);
        script_.clientIdsGiven = 0;
        meetIn(step, [&] { EXPECT_EQ(client.acquire(), 0U); });
        EXPECT_EQ(held(client), Held(2, 2)) << step;
        EXPECT_EQ(script_.initialized, 1) << step;
        EXPECT_EQ(script_.clientIdsGiven, 1) << step;
    }
}

TEST_F(PcsClientTest, AReleaseWaitsForTheThreadThatAcquires) {
    PcsClient client(kClient, "", true);
    meetIn(
        "PcsGetClientId", [&] { client.acquire(); }, [&] { client.release(); });
    EXPECT_EQ(held(client), Held(0, 0));
}

TEST_F(PcsClientTest, KeepsTheLibraryLoadedWhenAsked) {
    for (const bool keepLoaded : {true, false}) {
        {
            PcsClient client(kClient, "", keepLoaded);
            for (int i = 0; i < 2; ++i) {
                calls.perCall(client);
                EXPECT_EQ(held(client), Held(0, 0));
                EXPECT_EQ(script_.initialized, keepLoaded ? 1 : 0);
                EXPECT_EQ(isLoaded(kClient), keepLoaded);
            }
            EXPECT_EQ(client.acquire(), 0U);
            EXPECT_TRUE(client.isLoaded());
            client.release();
            client.release();  // one too many is harmless
            EXPECT_EQ(held(client), Held(0, 0));
        }
        EXPECT_EQ(script_.initialized, 0);
        EXPECT_FALSE(isLoaded(kClient));
    }
}

TEST_F(PcsClientTest, ALibraryThatRaisesHasFailedAndIsLetGo) {
    startLog();
    static void (*raise)() = nullptr;
    for (void (*kind)() :
         {+[] { throw std::runtime_error("client"); }, +[] { test::raiseForeignException(); }}) {
        raise = kind;
        script_.onCall = [](const std::string& /*name*/) { raise(); };
        {
            PcsClient client(kClient, "", true);
            EXPECT_EQ(calls.perCall(client), 574U);
            EXPECT_EQ(held(client), Held(0, 0));
        }
        EXPECT_FALSE(isLoaded(kClient));
    }
    EXPECT_TRUE(hasLine("ERROR - the module raised an exception in PcsGetHostInfo"));
    EXPECT_TRUE(hasLine("ERROR - the module raised an exception in PcsUninitialize"));
}

}  // namespace jsw
