#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/text/Text.h"
#include "jsw/settings/RegistryKey.h"
#include "tests/printer/ClientTest.h"
#include "tests/support/HeldUpThread.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <winnetwk.h>

namespace jsw {

class ServerNameTest : public test::ClientTest {};

TEST_F(ServerNameTest, AcceptsThisComputerAsItsServer) {
    // The private registry has no computer name yet.
    RegistryKey("SYSTEM\\CurrentControlSet\\Control\\ComputerName\\ActiveComputerName", true)
        .setValue("ComputerName", "INKHOST");
    char buffer[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD size = sizeof buffer;
    ASSERT_TRUE(GetComputerNameA(buffer, &size)) << GetLastError();
    const std::string name(buffer);
    const std::string otherCase = toLower(name);
    ASSERT_NE(otherCase, name);
    for (const auto& server : {std::string(), name, otherCase, "\\\\" + name, "\\\\" + otherCase}) {
        PcsClient client(kClient, server, false);
        EXPECT_EQ(client.checkServerName(), 0U) << server;
        EXPECT_EQ(client.getHostInfo(), 0U) << server;
    }
}

/// Records the network queries.
struct Network {
    static inline std::vector<std::string> questions;

    static DWORD look(NETRESOURCEA* resource, void* /*buffer*/, DWORD* size, char** /*path*/) {
        questions.push_back(concat(resource->lpRemoteName, "|", resource->dwType, "|", *size));
        return questions.size() == 1 ? ERROR_SUCCESS : ERROR_BAD_NET_NAME;
    }
};

TEST_F(ServerNameTest, LooksAnotherServerUpAsAPrintResource) {
    Network::questions.clear();
    const auto find = test::replaceImport<decltype(GetProcAddress)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetProcAddress",
        [](auto original, HMODULE module, const char* name) -> FARPROC {
            return std::string(name) == "WNetGetResourceInformationA"
                       ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Network::look))
                       : original(module, name);
        });
    EXPECT_EQ(PcsClient(kClient, "server", false).checkServerName(), 0U);
    EXPECT_EQ(PcsClient(kClient, "\\server", false).checkServerName(), DWORD{ERROR_BAD_NET_NAME});
    EXPECT_EQ(Network::questions, (std::vector<std::string>{"\\\\server|2|261", "\\server|2|261"}));
}

TEST_F(ServerNameTest, LeavesTheClientIdLockedAfterARefusedServer) {
    for (const char* server : {"no-such-server", "\\no-such-server", "\\\\no-such-server"}) {
        // Never destroyed: its lock stays held.
        auto* const client = new PcsClient(kClient, server, false);
        const PcsStatus refused = client->checkServerName();
        EXPECT_NE(refused, 0U) << server;
        EXPECT_EQ(client->getHostInfo(), refused) << server;
        EXPECT_EQ(client->libraryUsers(), 0);
        EXPECT_EQ(client->getHostInfo(), refused) << "the same thread may go on";
        test::HeldUpThread other([client] { client->clientIdUsers(); });
        EXPECT_TRUE(other.meetsALock());
        other.leaveAlone();
    }
}

TEST_F(ServerNameTest, WithoutASystemFolderNothingIsLoadedFromTheRootOfADrive) {
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    std::vector<std::string> loaded;
    const auto folder = test::replaceImport<decltype(GetSystemDirectoryA)>(
        imports, "GetSystemDirectoryA", [](char*, UINT) { return UINT{0}; });
    const auto load = test::replaceImport<decltype(LoadLibraryA)>(
        imports, "LoadLibraryA", [&](auto original, const char* name) {
            loaded.emplace_back(name);
            return original(name);
        });
    EXPECT_EQ(PcsClient(kClient, "server", false).checkServerName(), 3U);
    EXPECT_THAT(loaded, ::testing::IsEmpty());
}

}  // namespace jsw
