#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/InterProcessLock.h"
#include "PublicLib/locks/Mutex.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "tests/support/ImportGate.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <aclapi.h>

#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <optional>
#include <thread>
#include <vector>

namespace jsw {

using namespace ::testing;

TEST(ExceptionTest, TextNamesPlaceMessageAndMeaning) {
    EXPECT_EQ(Exception("it failed", 0, {"Mutex", 90}).text(), "file:Mutex:90: it failed");
    EXPECT_EQ(Exception("it failed", 5).text(), "it failed");
    EXPECT_EQ(Win32Exception("it failed", 0, {"Mutex", 90}).text(), "file:Mutex:90: it failed");
    EXPECT_THAT(Win32Exception("it failed", ERROR_FILE_NOT_FOUND, {"A", 1}).text(),
                MatchesRegex("file:A:1: it failed: Win32\\(2\\w.+"));
    for (const std::uint32_t code : {2U, 5U, 87U, 1155U}) {
        EXPECT_EQ(Win32Exception("", code).text().find_first_of("\r\n"), std::string::npos);
    }
    // A text with the system's placeholders stays unchanged.
    EXPECT_THAT(Win32Exception("", ERROR_BAD_EXE_FORMAT).text(), HasSubstr("%1"));
    EXPECT_EQ(Win32Exception("", 0xE0001234).text(),
              concat(": Win32(-536866252Error getting message:", ERROR_MR_MID_NOT_FOUND));
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

TEST(InterProcessLockTest, IsWaitedForWithoutALimit) {
    std::vector<DWORD> limits;
    const DWORD thisThread = GetCurrentThreadId();
    const auto wait = test::replaceImport<decltype(WaitForSingleObject)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "WaitForSingleObject",
        [&](auto original, HANDLE object, DWORD limit) {
            if (GetCurrentThreadId() == thisThread) limits.push_back(limit);
            return original(object, limit);
        });
    InterProcessLock lock("JswTestLimit");
    lock.lock();
    lock.unlock();
    EXPECT_THAT(limits, ElementsAre(INFINITE));
}

TEST(MutexTest, AnOwnerKeepsOthersOutUntilItGoes) {
    constexpr char kName[] = "JswTestOwned";
    const auto isFree = [&] {
        bool acquired = false;
        std::thread([&] { acquired = Mutex(false, kName, false).acquire(0); }).join();
        return acquired;
    };
    std::optional<Mutex> owner(std::in_place, true, kName, false);
    const Mutex other(true, kName, false);  // not its owner: it already exists
    EXPECT_FALSE(isFree());
    owner.reset();
    EXPECT_TRUE(isFree());
    owner.emplace(false, kName, false);
    EXPECT_TRUE(owner->acquire(0));
    EXPECT_FALSE(isFree());
    owner->release();
    EXPECT_TRUE(isFree());
    EXPECT_TRUE(owner->acquire(0));
    owner.reset();
    EXPECT_TRUE(isFree());
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

/// A handler has only the text.
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
        const char *function, *place;
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
        gate.fail(row.function, 1, {.answer = row.answer}, true);
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
    EXPECT_EQ(fileNamePart("C:\\a/b.exe"), "a/b.exe");
    EXPECT_EQ(folderPart("C:\\a/b.exe"), "C:\\");
    EXPECT_EQ(folderPart("C:\\a\\b.exe"), "C:\\a\\");
    EXPECT_EQ(folderPart("b.exe"), "");
}

}  // namespace jsw
