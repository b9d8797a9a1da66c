#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/InterProcessLock.h"
#include "PublicLib/locks/Mutex.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "tests/support/ImportGate.h"

#include <windows.h>

#include <aclapi.h>

#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <memory>
#include <thread>

namespace jsw {

using ::testing::MatchesRegex;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

TEST(ExceptionTest, TextNamesPlaceMessageAndMeaning) {
    EXPECT_EQ(Exception("it failed", 0, "Mutex", 90).text(), "file:Mutex:90: it failed");
    EXPECT_EQ(Exception("it failed", 5, "", 90).text(), "it failed");
    EXPECT_EQ(Win32Exception("it failed", 0, "Mutex", 90).text(), "file:Mutex:90: it failed");
    EXPECT_THAT(Win32Exception("it failed", ERROR_FILE_NOT_FOUND, "A", 1).text(),
                MatchesRegex("file:A:1: it failed: Win32\\(2\\w.+"));
    for (const int code : {2, 5, 87, 1155}) {
        EXPECT_EQ(Win32Exception("", code, "", 0).text().find_first_of("\r\n"), std::string::npos);
    }
    EXPECT_THAT(Win32Exception("", 0xE0001234, "", 0).text(),
                MatchesRegex(": Win32\\(-\\d+Error getting message:\\d+"));
}

TEST(InterProcessLockTest, NeedsAName) {
    InterProcessLock lock("");
    try {
        lock.lock();
        FAIL();
    } catch (const Exception& error) {
        EXPECT_EQ(error.text(), "file:InterProcessLock:16: InterProcessLock has no name");
    }
}

TEST(MutexTest, AnOwnerKeepsOthersOutUntilItGoes) {
    auto owner = std::make_unique<Mutex>(true, "jsw test mutex", false);
    const auto othersGetIn = [] {
        bool acquired = false;
        std::thread([&] {
            Mutex mutex(true, "jsw test mutex", false);  // exists: asks for ownership in vain
            acquired = mutex.acquire(0);
        }).join();
        return acquired;
    };
    EXPECT_FALSE(othersGetIn());
    owner.reset();
    EXPECT_TRUE(othersGetIn());
}

TEST(UniqueHandleTest, GivingBackKeepsTheLastError) {
    KernelHandle event(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    SetLastError(4711);
    event.reset();
    EXPECT_EQ(GetLastError(), 4711U);
    EXPECT_FALSE(KernelHandle(INVALID_HANDLE_VALUE));
}

TEST(SecurityTest, LetsEveryoneIn) {
    Security security;
    const KernelHandle event(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    EXPECT_NO_THROW(security.doApply(event.get(), SE_KERNEL_OBJECT));
    EXPECT_THROW(security.doApply(nullptr, SE_KERNEL_OBJECT), Win32Exception);
    EXPECT_THROW(security.doApply(nullptr, SE_REGISTRY_KEY), Win32Exception);

    KeyHandle key;
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, "Software\\JswTests\\Security", key.put()),
              ERROR_SUCCESS);
    EXPECT_NO_THROW(security.doApply(key.get(), SE_REGISTRY_KEY));
    ACL* list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_EQ(GetSecurityInfo(key.get(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, &list, nullptr, &descriptor),
              ERROR_SUCCESS);
    void* entry = nullptr;
    ASSERT_NE(GetAce(list, 0, &entry), FALSE);
    EXPECT_NE(IsWellKnownSid(&static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart, WinWorldSid),
              FALSE);
    LocalFree(descriptor);
    key.reset();
    RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\JswTests\\Security");
}

/// Whoever catches it has nothing but the text to go by.
TEST(LocksTest, ARefusedStepIsNamed) {
    KeyHandle key;
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, "Software\\JswTests", key.put()), ERROR_SUCCESS);
    const auto secure = [&] {
        Security security;
        security.doApply(GetCurrentProcess(), SE_KERNEL_OBJECT);
        security.doApply(key.get(), SE_REGISTRY_KEY);
    };
    const auto exclude = [] {
        Mutex mutex(false, "", true);
        mutex.acquire(0);
        mutex.release();
    };
    const struct {
        const char* function;
        const char* place;
        std::function<void()> work;
        std::uint64_t answer = FALSE;
    } rows[] = {
        {"InitializeSecurityDescriptor", "SecurityEveryone::SecurityEveryone()", secure},
        {"AllocateAndInitializeSid", "SecurityEveryone::setSecurityIdEveryone()", secure},
        {"IsValidSid", "SecurityEveryone::SecurityEveryone()", secure},
        {"SetKernelObjectSecurity", "Security::doApply()", secure},
        {"GetSecurityDescriptorDacl", "Security::doApply()", secure},
        {"SetSecurityInfo", "Security::doApply()", secure, ERROR_ACCESS_DENIED},
        {"InitializeSecurityDescriptor", "Mutex::Mutex()", exclude},
        {"SetSecurityDescriptorDacl", "Mutex::Mutex()", exclude},
        {"WaitForSingleObject", "Mutex::acquire()", exclude, WAIT_FAILED},
        {"ReleaseMutex", "Mutex::release()", exclude},
    };
    test::ImportGate gate{test::ImportTable(GetModuleHandleA(nullptr))};
    for (const auto& row : rows) {
        gate.reset();
        gate.failFrom(row.function, 1, {.answer = row.answer});
        EXPECT_THAT(row.work, ThrowsMessage<Win32Exception>(
                                  StrEq(concat(row.place, " ", row.function, " failed"))));
    }
}

TEST(TextTest, JoinsPartsOfEveryKind) {
    EXPECT_EQ(concat("a", 1, std::string("b"), true, static_cast<const char*>(nullptr), -2L),
              "a1btrue-2");
    EXPECT_EQ(concat(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    EXPECT_TRUE(equalsIgnoringCase("NeXT", "next"));
    EXPECT_FALSE(equalsIgnoringCase("next", "nex"));
}

TEST(PathsTest, JoinsWithExactlyOneBackslash) {
    const struct {
        const char *folder, *name, *path;
    } rows[] = {{"C:\\a", "b", "C:\\a\\b"},
                {"C:\\a\\", "b", "C:\\a\\b"},
                {"C:\\a\\", "\\b", "C:\\a\\b"},
                {"", "b", "\\b"},
                {".", "", ".\\"},
                {"a", "\\\\b", "a\\\\b"}};
    for (const auto& row : rows) EXPECT_EQ(joinPath(row.folder, row.name), row.path);
    EXPECT_EQ(fileNamePart("C:\\a\\b.exe"), "b.exe");
    EXPECT_EQ(fileNamePart("b.exe"), "b.exe");
    EXPECT_EQ(folderPart("C:\\a\\b.exe"), "C:\\a\\");
    EXPECT_EQ(folderPart("b.exe"), "");
}

}  // namespace jsw
