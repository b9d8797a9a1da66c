#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/LogLine.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/Localize.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/SecurityText.h"

#include <windows.h>

#include <atomic>
#include <gmock/gmock.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace jsw {

using namespace ::testing;

TEST(LogLineTest, HeadersAreShownAsSwitched) {
    const LogTime time{2008, 7, 4, 9, 5, 3, 42};
    LogHeader header;
    header.component = "JSW";
    header.componentWidth = 6;
    EXPECT_EQ(formatLogLine(header, "text"), "JSW    text");
    header.time = time;
    header.depth = 2;
    EXPECT_EQ(formatLogLine(header, "text"), "2008/07/04-09:05:03.042 JSW      text");
    header.processId = 0x2a;
    header.threadId = 0xabcdef;
    EXPECT_EQ(formatLogLine(header, ""), "2008/07/04-09:05:03.042 pid=002a tid=abcdef JSW      ");
    header = {};
    header.component = "LongerThanItsColumn";
    header.componentWidth = 6;
    EXPECT_EQ(formatLogLine(header, "text"), "LongerThanItsColumn text");
}

TEST(CachedSwitchTest, HoldsFromTheNextTickForLessThanFiveSeconds) {
    struct {
        std::uint32_t readAt, askedAt;
        bool holds;
    } const rows[] = {
        {1000, 1000, false}, {1000, 1001, true},        {1000, 5999, true},
        {1000, 6000, false}, {0xFFFFFFF0, 0x100, true}, {0xFFFFFFF0, 0x1400, false},
        {1000, 999, false},  {0xFFFFFFFF, 0x10, true},
    };
    for (const auto& row : rows) {
        CachedSwitch entry;
        EXPECT_FALSE(entry.value(row.askedAt));
        entry.store(5, row.readAt);
        EXPECT_EQ(entry.value(row.askedAt).has_value(), row.holds) << row.readAt << row.askedAt;
    }
}

class LoggingTest : public test::HostTest {
  protected:
    static void setSwitch(const char* name, std::uint32_t value) {
        Settings().setValue(setting::kLoggerKey, name, value);
    }
    /// A log that has not read any switch yet.
    static void restartLog() {
        BasicLogger::destroyInstance();
        BasicLogger::createInstance(15);
    }
};

TEST_F(LoggingTest, TracesIndentAndReportResults) {
    startLog();
    {
        MethodTrace outer(component::kJsw, "Outer::run: ");
        {
            MethodTrace inner(component::kJsw, "Inner::run: bbId=", 7, ".");
            inner.add("flag=", true, " text=", std::string("x"));
            inner.setResult(-1);
        }
        std::thread([] { logLine(component::kJsw, kLogDetail, "another thread"); }).join();
        outer.setResult("");
    }
    MethodTrace silent;
    silent.add("never");
    EXPECT_EQ(test::readFile(logPath()),
              "JSW                       +Outer::run: \r\n"
              "JSW                        +Inner::run: bbId=7.\r\n"
              "JSW                         Inner::run: bbId=7.flag=true text=x\r\n"
              "JSW                        -Inner::run: bbId=7. rc=-1\r\n"
              "JSW                       another thread\r\n"
              "JSW                       -Outer::run: \r\n");
}

/// Destructors are traced, too: an exception of a trace would end the host.
TEST_F(LoggingTest, ATraceWithoutMemoryLosesLinesAndRaisesNothing) {
    startLog();
    int left = -1;  // allocations until one fails; below 0 none does
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    const auto memory = test::replaceImport<void*(std::size_t)>(
        imports, "malloc", [&](auto original, std::size_t size) -> void* {
            return left >= 0 && left-- == 0 ? nullptr : original(size);
        });
    const std::string text(50, 'x');
    for (int first = 0; left < 0; ++first) {
        left = first;
        EXPECT_NO_THROW({
            MethodTrace trace(component::kJsw, text);
            trace.add(text);
            trace.setResult(text);
            logLine(component::kJsw, kLogError, text);
        }) << first;
    }
    left = -1;
    logLine(component::kJsw, kLogError, "memory again");
    EXPECT_TRUE(hasLine("memory again"));
}

TEST_F(LoggingTest, SwitchesDecideWhatIsWritten) {
    const auto writeAll = [] {
        restartLog();
        DeleteFileA(logPath().c_str());
        MethodTrace trace(component::kJsw, "A::b: ");
        trace.add("line");
        logLine(component::kUpdater, kLogRules, "rules");
        logLine(component::kJsw, kLogError, "error");
    };
    startLog();
    setSwitch("startLog", 0);
    writeAll();
    EXPECT_THAT(logLines(), ElementsAre("error"));

    setSwitch("startLog", 1);
    setSwitch("All", 0);
    setSwitch("JSW", kLogTrace);
    setSwitch("Updater", 0);
    writeAll();
    EXPECT_THAT(logLines(), ElementsAre("+A::b: ", "error", "-A::b: "));

    setSwitch("All", kLogRules);
    setSwitch("JSW", 0);
    writeAll();
    EXPECT_THAT(logLines(), ElementsAre("rules", "error"));

    // Reading never writes a switch, and what is no number counts as missing.
    std::vector<std::string> names;
    Settings().getValueNames(setting::kLoggerKey, names);
    EXPECT_THAT(names, ::testing::UnorderedElementsAre("startLog", "Clocktime_In_Header", "All",
                                                       "JSW", "Updater"));
}

TEST_F(LoggingTest, WhatAnEdgeCatchesIsToldInFull) {
    startLog();
    const auto& jsw = component::kJsw;
    EXPECT_TRUE(runGuarded(jsw, "fine", [] {}));
    EXPECT_FALSE(runGuarded(jsw, "own", [] { throw Exception("it failed", 0, {"Place", 7}); }));
    EXPECT_FALSE(runGuarded(jsw, "other", [] { throw std::runtime_error("it broke"); }));
    EXPECT_FALSE(runGuarded(jsw, "unknown", [] { throw 5; }));
    EXPECT_THAT(logLines(),
                ElementsAre("ERROR - own: file:Place:7: it failed", "ERROR - other: it broke",
                            "ERROR - unknown: unknown exception"));
}

TEST_F(LoggingTest, HeadersFollowTheirSwitches) {
    startLog();
    setSwitch("Clocktime_In_Header", 1);
    setSwitch("Proc_Id_In_Header", 1);
    setSwitch("Thread_Id_In_Header", 1);
    restartLog();
    logLine(component::kCatalog, kLogError, "x");
    EXPECT_THAT(test::readFile(logPath()),
                MatchesRegex("\\d+/\\d+/\\d+-\\d+:\\d+:\\d+\\.\\d+ pid=\\w+ tid=\\w+ "
                             "Catalog                   x\r\n"));
}

TEST_F(LoggingTest, ASwitchChangedWhileRunningTakesEffectWithinFiveSeconds) {
    DWORD tick = 1000;
    const auto clock = test::replaceImport<decltype(GetTickCount)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetTickCount", [&] { return tick; });
    startLog();
    setSwitch("startLog", 0);
    EXPECT_FALSE(isLogEnabled(component::kJsw, kLogTrace));
    setSwitch("startLog", 1);
    tick += 4999;
    EXPECT_FALSE(isLogEnabled(component::kJsw, kLogTrace));
    ++tick;
    EXPECT_TRUE(isLogEnabled(component::kJsw, kLogTrace));
}

TEST_F(LoggingTest, ThereIsNoLogBeforeItIsMadeOrWithoutAStore) {
    EXPECT_FALSE(isLogEnabled(component::kJsw, kLogError));
    EXPECT_THROW(BasicLogger::getInstance(), Win32Exception);
    logLine(component::kJsw, kLogError, "lost");
    RegistryKey::recurseDeleteKey(Localize::getInstance()->getProductLineRoot(),
                                  HKEY_LOCAL_MACHINE);
    BasicLogger::createInstance(15);
    EXPECT_FALSE(isLogEnabled(component::kJsw, kLogError));
    RegistryKey(Localize::getInstance()->getRegistryPath(StoreKind::local), true);
    Sleep(2);  // the negative answer is cached from the next tick on
    BasicLogger::getInstance()->recheckStore();
    EXPECT_TRUE(isLogEnabled(component::kJsw, kLogError));
    EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(LoggingTest, AFileThatCannotBeOpenedDropsTheLineOnly) {
    startLog();
    logLine(component::kJsw, kLogError, "one");
    {
        const KernelHandle reader(CreateFileA(logPath().c_str(), GENERIC_READ, 0, nullptr,
                                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(reader);
        logLine(component::kJsw, kLogError, "two");
    }
    logLine(component::kJsw, kLogError, "three");
    const std::string content = test::readFile(logPath());
    EXPECT_EQ(content.find("two"), std::string::npos);
    EXPECT_NE(content.find("three"), std::string::npos);
}

TEST_F(LoggingTest, WhatTheStoreDoesNotSayIsAtItsDefault) {
    setSwitch("startLog", 1);
    setSwitch("JSW", 0);  // all levels stay on
    restartLog();
    logLine(component::kJsw, kLogRules, "x");
    EXPECT_THAT(
        test::readFile(logPath()),
        MatchesRegex("\\d+/\\d+/\\d+-\\d+:\\d+:\\d+\\.\\d+ JSW                       x\r\n"));
    setSwitch("All", 0);
    setSwitch("Clocktime_In_Header", 0);
    for (const auto* component :
         {&component::kRulesEngine, &component::kCatalog, &component::kUpdater}) {
        restartLog();
        EXPECT_TRUE(isLogEnabled(*component, kLogRules)) << component->name();
        EXPECT_FALSE(isLogEnabled(component::kJsw, kLogRules));
    }
    LoggerComponent another("Another", kLogError);
    EXPECT_FALSE(isLogEnabled(another, kLogRules));
    another.setMask(kLogRules);
    restartLog();
    EXPECT_TRUE(isLogEnabled(another, kLogRules));
}

TEST_F(LoggingTest, ALineAfterTheEndOfTheHostsNamesIsLost) {
    BasicLogger::createInstance(15);
    Localize::destroy();
    std::uint32_t value = 7;
    BasicLogger::getInstance()->readSwitch("All", value, 9);
    EXPECT_EQ(value, 9U);
    logLine(component::kJsw, kLogError, "too late");
    Localize::createInstance(nullptr);
    logLine(component::kJsw, kLogError, "in time");
    EXPECT_FALSE(logContains("too late"));
    EXPECT_TRUE(logContains("in time"));
}

TEST_F(LoggingTest, TheLogAndItsLockAreOpenToEveryoneAndSharedWhileWritten) {
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    std::vector<std::string> asked;
    const auto mutex = test::replaceImport<decltype(CreateMutexA)>(
        imports, "CreateMutexA",
        [&](auto original, SECURITY_ATTRIBUTES* security, BOOL owner, const char* name) {
            asked.push_back(concat("mutex ", test::accessOf(security), " ", owner, " ", name));
            return original(security, owner, name);
        });
    const auto file = test::replaceImport<decltype(CreateFileA)>(
        imports, "CreateFileA",
        [&](auto original, const char* path, DWORD access, DWORD share,
            SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags, HANDLE model) {
            asked.push_back(concat("file ", access == (GENERIC_READ | GENERIC_WRITE), " ",
                                   share == (FILE_SHARE_READ | FILE_SHARE_WRITE), " ",
                                   test::accessOf(security).substr(0, 7), " ", disposition, " ",
                                   flags));
            return original(path, access, share, security, disposition, flags, model);
        });
    Logger logger(folder_.file("open.log"), Logger::kNameWidth);
    logger.log(component::kJsw, kLogError, "x");
    EXPECT_THAT(
        asked,
        ElementsAre("mutex open 0 QNLOG_open.log",
                    concat("file true true 1 entry ", OPEN_EXISTING, " ", FILE_ATTRIBUTE_NORMAL),
                    concat("file true true 1 entry ", OPEN_ALWAYS, " ", FILE_ATTRIBUTE_NORMAL)));
}

TEST_F(LoggingTest, ATraceMayOutliveItsLogAndAnotherLogComesAfterIt) {
    startLog();
    {
        MethodTrace late(component::kJsw, "Late::end: ");
        BasicLogger::destroyInstance();
        EXPECT_FALSE(isLogEnabled(component::kJsw, kLogError));
    }
    EXPECT_THAT(logLines(), ElementsAre("+Late::end: ", "-Late::end: "));

    // Threads keep tracing while logs are created and destroyed.
    std::atomic<bool> over{false};
    std::vector<std::thread> busy;
    for (int i = 0; i < 4; ++i) {
        busy.emplace_back([&over] {
            while (!over) {
                MethodTrace trace(component::kJsw, "Busy::run: ");
                logLine(component::kJsw, kLogError, "line");
            }
        });
    }
    for (int i = 0; i < 100; ++i) restartLog();
    over = true;
    for (auto& thread : busy) thread.join();
    DeleteFileA(logPath().c_str());
    logLine(component::kJsw, kLogTrace, "alone");
    EXPECT_THAT(logLines(), ElementsAre("alone"));
}

}  // namespace jsw
