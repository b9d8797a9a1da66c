// Logs that several processes or threads write.

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/CriticalLog.h"
#include "PublicLib/logging/LogLine.h"
#include "PublicLib/logging/Logger.h"
#include "PublicLib/logging/MethodTrace.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HeldUpThread.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <map>
#include <sstream>
#include <vector>

namespace jsw {

using namespace ::testing;

constexpr int kWriters = 8;
constexpr int kLinesPerWriter = 200;

const test::ChildRole writer("writer", [](const std::string& argument) {
    Logger logger(argument, 25);
    for (int line = 0; line < kLinesPerWriter; ++line) {
        logger.log(component::kJsw, kLogError,
                   concat("writer ", GetCurrentProcessId(), " line ", line, " end"));
    }
    return 0;
});

const test::ChildRole holder("holder", [](const std::string& argument) {
    InterProcessLock lock("QNLOG_" + argument);
    lock.lock();
    SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, "JswTestHolding"));
    Sleep(INFINITE);
    return 0;
});

const test::ChildRole namedByModule("critical log, named by its module", [](const std::string&) {
    const auto write = [] { CriticalLog("", "DebugData", "by a module", nullptr); };
    {
        const auto noName = test::replaceImport<decltype(GetModuleFileNameA)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "GetModuleFileNameA",
            [](HMODULE, char*, DWORD) { return DWORD{0}; });
        EXPECT_THAT(
            write, ThrowsMessage<Win32Exception>(StrEq("CriticalLog(): GetModuleFileName failed")));
    }
    write();
    return Test::HasFailure() ? 1 : 0;
});

TEST(SharedLogTest, EightProcessesLoseAndTearNoLine) {
    const test::TempFolder folder;
    const std::string path = folder.file("shared.log");
    std::vector<std::unique_ptr<test::ChildProcess>> writers;
    for (int i = 0; i < kWriters; ++i) {
        writers.push_back(std::make_unique<test::ChildProcess>("writer", path));
    }
    for (auto& child : writers) ASSERT_EQ(child->wait(60000), 0U);

    std::istringstream content(test::readFile(path));
    std::map<std::string, int> nextLine;
    int count = 0;
    for (std::string line; std::getline(content, line); ++count) {
        std::istringstream words(line.substr(line.find("writer")));
        std::string word, process, end;
        int number = -1;
        words >> word >> process >> word >> number >> end;
        EXPECT_EQ(end, "end") << line;
        EXPECT_EQ(number, nextLine[process]++) << line;
    }
    EXPECT_EQ(count, kWriters * kLinesPerWriter);
}

TEST(SharedLogTest, AWriterKilledWhileItHoldsTheLockDoesNotStopTheOthers) {
    const test::TempFolder folder;
    const KernelHandle holding(CreateEventA(nullptr, FALSE, FALSE, "JswTestHolding"));
    test::ChildProcess child("holder", "killed.log");
    ASSERT_EQ(WaitForSingleObject(holding.get(), 20000), WAIT_OBJECT_0);
    Mutex mutex(false, "QNLOG_killed.log", true);
    EXPECT_FALSE(mutex.acquire(50));
    child.kill();
    Logger logger(folder.file("killed.log"), 3);
    logger.log(component::kJsw, kLogError, "after");
    EXPECT_THAT(test::readFile(folder.file("killed.log")), EndsWith("JSW after\r\n"));
    EXPECT_TRUE(mutex.acquire(0));
    mutex.release();
    EXPECT_THROW(mutex.release(), Win32Exception);
}

/// As on a disk that becomes full: a part of the line is written.
TEST(SharedLogTest, OfALineForWhichThereIsNoRoomNothingIsLeft) {
    const test::TempFolder folder;
    const std::string path = folder.file("full.log");
    Logger logger(path, 3);
    logger.log(component::kJsw, kLogError, "whole");
    const std::string before = test::readFile(path);
    for (const BOOL answer : {TRUE, FALSE}) {
        const auto fullDisk = test::replaceImport<decltype(WriteFile)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "WriteFile",
            [&](auto original, HANDLE file, const void* data, DWORD size, DWORD* written,
                OVERLAPPED* place) {
                original(file, data, size / 2, written, place);
                SetLastError(ERROR_DISK_FULL);
                return answer;
            });
        logger.log(component::kJsw, kLogError, "torn");
        EXPECT_EQ(test::readFile(path), before) << answer;
    }
    logger.log(component::kJsw, kLogError, "room again");
    EXPECT_THAT(test::readFile(path), EndsWith("JSW room again\r\n"));
}

TEST(SharedLogTest, BaseLoggerKnowsOnlyWhetherItsFileCanBeRead) {
    const test::TempFolder folder;
    const std::string path = folder.file("plain.log");
    Logger logger(path, 25);
    std::uint32_t value = 7;
    logger.readSwitch("startLog", value, 7);
    EXPECT_EQ(value, 0U);
    logger.log(component::kJsw, kLogError, static_cast<const char*>(nullptr));
    logger.readSwitch("startLog", value, 7);
    EXPECT_EQ(value, 0xFFFFFFFFU);
    logger.readSwitch("JSW", value, 9);
    EXPECT_EQ(value, 9U);
    {
        MethodTrace any(&logger, component::kUpdater, "Any::log: ", kLogRules, true);
        MethodTrace quiet(&logger, component::kUpdater, "Quiet::log: ", kLogRules, false);
        quiet.add("never");
    }
    EXPECT_THAT(test::readFile(path), EndsWith("-Any::log: \r\n"));
    logger.deleteLog();
    EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(CriticalLogTest, WritesToOneFileInTheRootOfTheDrive) {
    EXPECT_EQ(criticalLogFileName("", "C:\\Drivers\\JSW.dll"), "jsw..log");
    EXPECT_EQ(criticalLogFileName("dkab", "ignored"), "dkab.log");
    DeleteFileA("C:\\qlcrit.log");
    {
        test::HeldUpThread other([] { CriticalLog("other", "Other", "second", nullptr); });
        const auto write = test::replaceImport<decltype(WriteFile)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "WriteFile",
            [&](auto original, auto... arguments) {
                EXPECT_TRUE(other.meetsALock());  // there is one log for all threads
                return original(arguments...);
            });
        CriticalLog("qlcrit", "DebugData", "first", nullptr);
        other.join();
    }
    EXPECT_THAT(test::readFile("C:\\qlcrit.log"),
                MatchesRegex(".*DebugData                 first\r\n"
                             ".*DebugData                 second\r\n"));
    DeleteFileA("C:\\qlcrit.log");
    DeleteFileA("C:\\qlte.log");
    EXPECT_EQ(test::ChildProcess("critical log, named by its module", "").wait(30000), 0U);
    EXPECT_THAT(test::readFile("C:\\qlte.log"),
                MatchesRegex(".*DebugData                 by a module\r\n"));
    DeleteFileA("C:\\qlte.log");
}

}  // namespace jsw
