#include "PublicLib/logging/BasicLogger.h"
#include "jsw/updates/AppUpdatesController.h"
#include "jsw/updates/InstalledFile.h"
#include "jsw/updates/UpdateSchedule.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <gmock/gmock.h>
#include <optional>
#include <utility>

namespace jsw {

namespace {

constexpr std::time_t kHour = 3600;
constexpr std::time_t kDay = 24 * kHour;

/// Calendar time of a day's midnight in a zone with UTC all year.
std::time_t utcMidnight(int month, int day, int year) {
    std::tm time{};
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_year = year - 1900;
    return _mkgmtime(&time);
}

/// Local time in a zone five hours west of Greenwich, with the given daylight-saving flag.
std::time_t makeEasternTime(std::tm* time) {
    const std::time_t hoursBehind = time->tm_isdst > 0 ? 4 : 5;
    const std::time_t utc = _mkgmtime(time);
    return utc == -1 ? -1 : utc + hoursBehind * kHour;
}

std::tm localAt(bool daylightSaving) {
    std::tm local{};
    local.tm_isdst = daylightSaving ? 1 : 0;
    return local;
}

}  // namespace

TEST(UpdateScheduleTest, DatesAreWrittenWithoutLeadingZeros) {
    std::tm time{};
    time.tm_mon = 6;
    time.tm_mday = 4;
    time.tm_year = 108;
    EXPECT_EQ(formatDate(time), "7/4/2008");
    time.tm_mon = 11;
    time.tm_mday = 31;
    EXPECT_EQ(formatDate(time), "12/31/2008");
}

TEST(UpdateScheduleTest, DatesAreReadLikeThreeNumbers) {
    constexpr struct {
        const char* text;
        CalendarDate date;
    } rows[] = {
        {"7/4/2008", {7, 4, 2008}},
        {"07/04/2008", {7, 4, 2008}},
        {" 7/ 4/\t2008 and more", {7, 4, 2008}},
        {"+7/-4/2008", {7, -4, 2008}},
        {"13/99/99999999", {13, 99, 99999999}},
        {"0/0/0", {0, 0, 0}},
    };
    for (const auto& row : rows) {
        const auto date = parseDate(row.text);
        ASSERT_TRUE(date) << row.text;
        EXPECT_EQ(date->month, row.date.month) << row.text;
        EXPECT_EQ(date->day, row.date.day) << row.text;
        EXPECT_EQ(date->year, row.date.year) << row.text;
    }
    for (const char* text : {"7 /4/2008", "7/4", "7/4/", "7/4/x", "7//2008", "+-7/4/2008",
                             "7/4/99999999999", "9999999999/4/2008", "2008-07-04", "", "/"}) {
        EXPECT_FALSE(parseDate(text)) << text;
    }
}

TEST(UpdateScheduleTest, IsDueFromTheMidnightThatEndsTheInterval) {
    const struct {
        const char* lastCheck;
        std::uint32_t interval;
        std::time_t now;
        bool daylightSaving;
        bool due;
    } rows[] = {
        {"7/1/2008", 30, utcMidnight(7, 31, 2008) + 5 * kHour, false, true},
        {"7/1/2008", 30, utcMidnight(7, 31, 2008) + 5 * kHour - 1, false, false},
        {"7/1/2008", 1, utcMidnight(7, 1, 2008) + 5 * kHour + kDay, false, true},
        {"7/1/2008", 1, utcMidnight(7, 1, 2008) + 5 * kHour + kDay - 1, false, false},
        // Across the change to daylight saving time: it also applies to the stored day.
        {"3/1/2024", 30, utcMidnight(3, 31, 2024) + 4 * kHour, true, true},
        {"3/1/2024", 30, utcMidnight(3, 31, 2024) + 4 * kHour - 1, true, false},
        // And back.
        {"10/20/2024", 30, utcMidnight(11, 19, 2024) + 5 * kHour, false, true},
        {"10/20/2024", 30, utcMidnight(11, 19, 2024) + 5 * kHour - 1, false, false},
        {"2/29/2024", 365, utcMidnight(2, 28, 2025) + 5 * kHour, false, true},
        // A day in the future.
        {"1/1/2030", 30, utcMidnight(1, 1, 2025), false, false},
        {"1/1/2030", 0, utcMidnight(1, 1, 2025), false, true},
        {"7/1/2008", UINT32_MAX, utcMidnight(1, 1, 2025), false, false},
        // A thirteenth month is January.
        {"13/1/2007", 30, utcMidnight(1, 31, 2008) + 5 * kHour, false, true},
        {"13/1/2007", 30, utcMidnight(1, 31, 2008) + 5 * kHour - 1, false, false},
        // Invalid dates, or dates that calendar time does not have.
        {"", 30, utcMidnight(1, 1, 2025), false, true},
        {"yesterday", 30, utcMidnight(1, 1, 2025), false, true},
        {"1/1/99999999", 30, utcMidnight(1, 1, 2025), false, true},
        {"1/1/1601", 30, utcMidnight(1, 1, 2025), false, true},
        {"-2147483648/-2147483648/-2147483648", 30, utcMidnight(1, 1, 2025), false, true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isCheckDue(row.lastCheck, row.interval, row.now, localAt(row.daylightSaving),
                             makeEasternTime),
                  row.due)
            << row.lastCheck << " " << row.interval << " " << row.now;
    }
}

TEST(UpdateScheduleTest, TheSystemsCalendarIsSafeFromAnyNumbers) {
    // It has none of these days, so the check is due.
    for (const char* text : {"2147483647/2147483647/2147483647", "-2147483648/1/1", "1/1/99999999",
                             "1/1/-2147483648"}) {
        EXPECT_TRUE(isCheckDue(text, 30, 1700000000, localAt(false))) << text;
    }
}

TEST(InstalledFileTest, OnlyPlainNamesOfFilesCount) {
    const test::TempFolder folder;
    folder.write("module.dll", "x");
    folder.write("sub\\module.dll", "x");
    EXPECT_TRUE(isFileIn(folder.path(), "module.dll"));
    EXPECT_TRUE(isFileIn(folder.path() + "\\", "MODULE.DLL"));
    const std::string full = folder.file("module.dll");
    for (const char* name : {"", ".", "..", "sub", "sub\\module.dll", "sub/module.dll", "none.dll",
                             "\\module.dll", "module.dll:stream", full.c_str()}) {
        EXPECT_FALSE(isFileIn(folder.path(), name)) << name;
    }
}

class UpdateCheckTest : public test::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        now = utcMidnight(8, 15, 2024) + 12 * kHour;
        settings_.emplace();
        startLog();
    }

    static std::time_t clock() { return now; }

    static std::string today() {
        std::tm local{};
        localtime_s(&local, &now);
        return formatDate(local);
    }

    std::string storedDate() const {
        std::string date = "(none)";
        settings_->read(setting::kDateLastChecked, date);
        return date;
    }

    static inline std::time_t now = 0;
    std::optional<Settings> settings_;
    AppUpdatesController controller_{clock};
};

constexpr char kTimeTag[] = "AppUpdatesController::isItTimeToCheckForUpdates: ";
constexpr char kCheckTag[] = "AppUpdatesController::checkForUpdates() ";

TEST_F(UpdateCheckTest, FreshStoreGetsItsDefaultsAndIsNotDue) {
    controller_.checkForUpdates();
    EXPECT_TRUE(hasLine(std::string(kTimeTag) + "Interval between checks is : 30"));
    EXPECT_TRUE(hasLine(std::string(kTimeTag) +
                        "The last check for updates was performed on : " + today()));
    EXPECT_TRUE(hasLine(std::string(kTimeTag) + "It is still not time to check for updates"));
    EXPECT_TRUE(hasLine(std::string(kCheckTag) + "It is not time to check for updates yet."));
    EXPECT_EQ(storedDate(), today());
    std::uint32_t number = 0;
    EXPECT_EQ(settings_->read(setting::kCheckForUpdates, number), Read::found);
    EXPECT_EQ(number, 1u);
    EXPECT_EQ(settings_->read(setting::kUpdatesCheckFrequency, number), Read::found);
    EXPECT_EQ(number, 30u);
}

TEST_F(UpdateCheckTest, TurnedOffReadsAndWritesNoDate) {
    settings_->write(setting::kCheckForUpdates, 0);
    controller_.checkForUpdates();
    EXPECT_TRUE(hasLine(std::string(kCheckTag) + "The check for updates has been TURNED OFF!"));
    EXPECT_EQ(storedDate(), "(none)");
    EXPECT_FALSE(logContains("isItTime"));
}

TEST_F(UpdateCheckTest, TheClockOfTheSystemDecides) {
    std::tm local{};
    local.tm_year = 108;
    local.tm_mon = 6;
    local.tm_mday = 31;
    local.tm_isdst = -1;
    settings_->write(setting::kDateLastChecked, "7/1/2008");
    now = std::mktime(&local);
    EXPECT_TRUE(controller_.isItTimeToCheckForUpdates());
    --now;
    EXPECT_FALSE(controller_.isItTimeToCheckForUpdates());

    settings_->write(setting::kUpdatesCheckFrequency, 0);
    EXPECT_TRUE(controller_.isItTimeToCheckForUpdates());
}

TEST_F(UpdateCheckTest, ClockThatIsNotValidIsNeverDueAndWritesNothing) {
    now = -1;
    EXPECT_FALSE(controller_.isItTimeToCheckForUpdates());
    controller_.resetLastUpdatesCheckTime();
    EXPECT_TRUE(hasLine("ERROR:  timeNow not valid"));
    EXPECT_EQ(storedDate(), "(none)");
}

TEST_F(UpdateCheckTest, ValuesOfTheWrongTypeAreDueAndPutRight) {
    settings_->setValue("Settings\\Updater", "DateLastCheckedForUpdates", 5);
    settings_->setValue("Settings\\Updater", "UpdatesCheckFrequency", "0");
    settings_->setValue("Settings\\Updater", "CheckForUpdates", "0");
    controller_.checkForUpdates();
    EXPECT_EQ(storedDate(), today());
    EXPECT_TRUE(hasLine(std::string(kTimeTag) + "Interval between checks is : 30"));
    EXPECT_TRUE(hasLine(std::string(kTimeTag) + "Time interval has expired, check for updates"));
    EXPECT_TRUE(hasLine(std::string(kCheckTag) +
                        "It it time to check for updates. Attempting to initiate the update "
                        "process"));
}

/// The user may have switched updates off.
TEST_F(UpdateCheckTest, AValueThatCannotBeReadStartsNoCheck) {
    for (const char* value :
         {"CheckForUpdates", "DateLastCheckedForUpdates", "UpdatesCheckFrequency"}) {
        SCOPED_TRACE(value);
        settings_->write(setting::kDateLastChecked, "1/1/2000");
        const auto refuse = test::replaceImport<decltype(RegQueryValueExA)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "RegQueryValueExA",
            [&](auto original, HKEY key, const char* name, auto... rest) {
                return std::string(name) == value ? LSTATUS{ERROR_ACCESS_DENIED}
                                                  : original(key, name, rest...);
            });
        controller_.checkForUpdates();
        EXPECT_FALSE(logContains("It it time"));
        EXPECT_TRUE(hasLine(concat("ERROR - unable to read the setting ", value, ", error=5")));
        BasicLogger::existing()->deleteLog();
        controller_.performPostUpdateChangesIfRequired();
        EXPECT_FALSE(logContains("TURNED OFF"));
    }
    EXPECT_EQ(storedDate(), "1/1/2000");
}

TEST_F(UpdateCheckTest, ADefaultThatCannotBeStoredCountsAllTheSame) {
    settings_->write(setting::kDateLastChecked, "1/1/2000");
    const auto refuse = test::replaceImport<decltype(RegSetValueExA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegSetValueExA",
        [](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    controller_.checkForUpdates();
    EXPECT_TRUE(hasLine(std::string(kTimeTag) + "Interval between checks is : 30"));
    EXPECT_TRUE(logContains("It it time"));
    EXPECT_FALSE(logContains("unable to read the setting"));
}

TEST_F(UpdateCheckTest, WithoutAStoreNothingIsDueAndNoneIsMade) {
    Settings store;
    store.write(setting::kDeleteStoreOnUninstall, 1);
    EXPECT_TRUE(store.removeStore());
    controller_.checkForUpdates();
    EXPECT_FALSE(Settings().isValid());
}

/// None of these may start anything; each except the last one logs why.
TEST_F(UpdateCheckTest, NamesThatAreNoUpdaterAreRefusedAfterTheDateIsReset) {
    folder_.write("folder.exe\\inside", "x");
    folder_.write("updater.exe", "x");
    const std::pair<const char*, const char*> rows[] = {
        {"", "ERROR: Updater FAILED to Launch: the updater has no name"},
        {"folder.exe", "ERROR: Updater FAILED to Launch: the updater is a folder: "},
        {"..\\updater.exe", "ERROR: Updater FAILED to Launch: the updater's name is no plain file"},
        {"C:updater.exe", "ERROR: Updater FAILED to Launch: the updater's name is no plain file"},
        {"sub/updater.exe", "ERROR: Updater FAILED to Launch: the updater's name is no plain file"},
        {".", "ERROR: Updater FAILED to Launch: the updater's name is no plain file name: ."},
        {"none.exe", "+AppUpdatesController::checkForUpdatesVista: "},
    };
    settings_->write(setting::kDllPath, folder_.path());
    for (const auto& [updater, logged] : rows) {
        settings_->write(setting::kDateLastChecked, "1/1/2000");
        settings_->write(setting::kUpdaterExecutable, updater);
        controller_.checkForUpdates();
        EXPECT_TRUE(logContains(logged)) << updater;
        EXPECT_EQ(storedDate(), today()) << updater;
        EXPECT_FALSE(logContains("launched successfully")) << updater;
        EXPECT_FALSE(logContains("FAILED to retrieve")) << updater;
        BasicLogger::existing()->deleteLog();
    }
    settings_->write(setting::kDateLastChecked, "1/1/2000");
    const setting::Text& name = setting::kUpdaterExecutable;
    settings_->setValue(name.key, name.name, 1);
    controller_.checkForUpdates();
    EXPECT_TRUE(hasLine(std::string(kCheckTag) +
                        "FAILED to retrieve the BillBoard updater executable name!"));
    EXPECT_EQ(storedDate(), today());
}

TEST_F(UpdateCheckTest, SingletonComesAndGoes) {
    const auto first = AppUpdatesController::instance();
    EXPECT_EQ(AppUpdatesController::instance(), first);
    AppUpdatesController::destroy();
    AppUpdatesController::destroy();
    EXPECT_TRUE(logContains("instantiating AppUpdatesController."));
    EXPECT_TRUE(logContains("destroying AppUpdatesController."));
    EXPECT_NE(AppUpdatesController::instance(), first);
    AppUpdatesController::destroy();
}

}  // namespace jsw
