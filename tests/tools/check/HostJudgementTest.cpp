#include "tests/tools/check/GoodModule.h"
#include "tests/tools/check/ReportMatchers.h"
#include "tools/jswctl/check/Judgement.h"

#include <gtest/gtest.h>

namespace jsw::ctl {
namespace {

constexpr char kStore[] = "Software\\QuillonInkjet\\JSW\\Local\\qlab";

StoredValue text(const std::string& value) {
    return {Source::stored, value};
}
StoredValue number(std::uint32_t value) {
    return {Source::stored, {}, value};
}

/// A correct host, after its first run.
HostFacts goodHost() {
    HostFacts facts;
    facts.hostPath = "C:\\h\\qlabhost.exe";
    facts.localId = "qlab";
    facts.productLine = "QuillonInkjet";
    facts.productRoot = "Software\\QuillonInkjet";
    facts.storePath = kStore;
    facts.currentFolder = "C:\\c";
    facts.driverFolder = "C:\\spool\\3";
    facts.initialPath = "C:\\Program Files\\JSW";
    facts.firstRun.storeOpens = true;
    facts.library = goodModule(libraryKind());
    facts.library.fullPath = "C:\\h\\jsw.dll";
    facts.libraryVersion = facts.toolVersion = "1.1.0";
    const std::string section = std::string(kStore) + "\\Settings";
    facts.firstRun.file = {"C:\\h\\qlabjsw.loc",
                           true,
                           true,
                           {section},
                           {{section, "DllPath", "string:C:\\m", "string:C:\\m"},
                            {section, "DataPath", "string:C:\\d", "string:C:\\d"}}};
    facts.image.put("Settings", "DllPath", text("C:\\m"));
    facts.image.put("Settings", "DataPath", text("C:\\d\\"));
    facts.parserRegistered = true;
    facts.parserVersion = 0x8006E;
    facts.log.path = "C:\\all\\qlabJSW.log";
    facts.now = 1'000'000'000;
    facts.localNow = {};
    facts.dataFolder = {"C:\\d", true, true};
    facts.pages = {{"DEFAULT", true, "a.jbb", {"C:\\d\\Scripts\\a.jbb", true, false}},
                   {"INK_STATUS", true, "b.jbb", {"C:\\d\\Scripts\\b.jbb", true, false}}};
    return facts;
}

Report judged(const HostFacts& facts) {
    Report report;
    judgeHost(facts, report);
    return report;
}

TEST(HostJudgementTest, AGoodHostHasNoFindings) {
    const Report report = judged(goodHost());
    EXPECT_EQ(report.count(Severity::error) + report.count(Severity::warning), 0U)
        << asText(report);
    EXPECT_TRUE(has(report, Severity::note, "product line QuillonInkjet"));
    EXPECT_TRUE(has(report, Severity::note, "first run: done"));
}

struct BadHostRow {
    const char* name;
    void (*spoil)(HostFacts& facts);
    Severity severity;
    const char* finding;
};

TEST(HostJudgementTest, EachMistakeIsNamedWithItsRemedy) {
    const BadHostRow rows[] = {
        {"unknown prefix", [](HostFacts& facts) { facts.productLine.clear(); }, Severity::note,
         "no product line"},
        {"no library", [](HostFacts& facts) { facts.library.exists = false; }, Severity::warning,
         "there is no file C:\\h\\jsw.dll"},
        {"another version", [](HostFacts& facts) { facts.libraryVersion = "1.0.0"; },
         Severity::warning, "its version is 1.0.0, jswctl's is 1.1.0"},
        {"closed keys",
         [](HostFacts& facts) { facts.firstRun.closedKeys = {std::string(kStore) + "\\Settings"}; },
         Severity::warning, "cannot open 1 key of the settings with all rights"},
        {"large log",
         [](HostFacts& facts) {
             facts.log.exists = true;
             facts.logSize = 200 << 20;
         },
         Severity::warning, "jswctl log --rotate"},
        {"store closed",
         [](HostFacts& facts) {
             facts.firstRun.storeOpens = false;
             facts.firstRun.storeError = 5;
         },
         Severity::error, "cannot be opened with all rights, error 5"},
        {"no file at all",
         [](HostFacts& facts) {
             facts.firstRun = {};
             facts.firstRun.storeError = 2;
             facts.firstRun.file.path = "C:\\h\\qlabjsw.loc";
         },
         Severity::error, "there is no settings file C:\\h\\qlabjsw.loc"},
        {"empty file",
         [](HostFacts& facts) {
             facts.firstRun.file.parsed = false;
             facts.firstRun.file.sections.clear();
             facts.firstRun.file.entries.clear();
         },
         Severity::error, "has no sections to install"},
        {"another root",
         [](HostFacts& facts) {
             facts.firstRun.file.sections = {"Software\\Else\\JSW\\Local\\qlab"};
         },
         Severity::error, "no section of C:\\h\\qlabjsw.loc is below this host's key"},
        {"one foreign section",
         [](HostFacts& facts) { facts.firstRun.file.sections.emplace_back("Software\\Else"); },
         Severity::warning, "the section [Software\\Else] does not belong to this host"},
        {"like-named neighbour",
         [](HostFacts& facts) {
             facts.firstRun.file.sections = {std::string(kStore) + "x\\Settings"};
         },
         Severity::error, "no section of"},
        {"missed",
         [](HostFacts& facts) {
             for (FileEntry& entry : facts.firstRun.file.entries) entry.stored.reset();
         },
         Severity::error, "first run: did not happen"},
        {"cut off",
         [](HostFacts& facts) {
             facts.firstRun.isPending = true;
             facts.firstRun.file.entries[0].stored.reset();
         },
         Severity::warning, "first run: is incomplete"},
        {"file changed later",
         [](HostFacts& facts) { facts.firstRun.file.entries[0].stored.reset(); }, Severity::warning,
         "1 of 2 values of C:\\h\\qlabjsw.loc are not in the registry: DllPath"},
        {"value changed later",
         [](HostFacts& facts) { facts.firstRun.file.entries[0].stored = "x"; }, Severity::note,
         "DllPath is x, string:C:\\m in the settings file"},
        {"no type", [](HostFacts& facts) { facts.firstRun.file.entries[0].value = "C:\\m"; },
         Severity::warning, "Write string: or dword: before the value"},
        {"wrong type",
         [](HostFacts& facts) {
             facts.image.put("Settings\\Controller\\", "VIEW", {Source::wrongType});
         },
         Severity::error, "Settings\\Controller View is not stored as a text"},
        {"relative", [](HostFacts& facts) { facts.image.put("Settings", "DllPath", text(".\\m")); },
         Severity::warning, "DllPath '.\\m' is relative to the current folder"},
        {"drive only",
         [](HostFacts& facts) { facts.image.put("Settings", "DataPath", text("\\d")); },
         Severity::warning, "DataPath '\\d' is relative"},
        {"misspelt value",
         [](HostFacts& facts) {
             facts.unknownValues = {{"Settings", "DataPaht"}};
         },
         Severity::warning, "Did you mean DataPath?"},
        {"no parser", [](HostFacts& facts) { facts.parserRegistered = false; }, Severity::error,
         "MSXML 3.0 is not registered"},
        {"no parser file", [](HostFacts& facts) { facts.parserVersion = 0; }, Severity::error,
         "msxml3.dll is missing in the system folder"},
        {"old parser", [](HostFacts& facts) { facts.parserVersion = 0x8001D; }, Severity::error,
         "has version 8.29; version 8.30 or later is needed"},
        {"no data folder",
         [](HostFacts& facts) {
             facts.dataFolder = {"C:\\d", false, false};
         },
         Severity::error, "there is no folder C:\\d"},
        {"no default page", [](HostFacts& facts) { facts.pages[0].fileName.clear(); },
         Severity::error, "billboard DEFAULT: the catalog names no file"},
        {"page gone", [](HostFacts& facts) { facts.pages[1].file.exists = false; },
         Severity::warning, "there is no file C:\\d\\Scripts\\b.jbb: the ink status action"},
        {"kept page gone",
         [](HostFacts& facts) {
             facts.cachedDefault = {"", false, "old.jbb", {"C:\\d\\old.jbb"}};
         },
         Severity::error, "the page stored by an earlier job is missing"},
        {"kept page is another",
         [](HostFacts& facts) {
             facts.cachedDefault = {"", false, "old.jbb", {"C:\\d\\old.jbb", true, false}};
         },
         Severity::warning, "jobs start with old.jbb"},
        {"log", [](HostFacts& facts) { facts.logError = 5; }, Severity::warning,
         "C:\\all\\qlabJSW.log cannot be written, error 5"},
        {"updater with a path",
         [](HostFacts& facts) {
             facts.image.put("Settings\\Updater", "BillBoardUpdaterExecutableName",
                             text("..\\u.exe"));
         },
         Severity::error, "is not a plain file name"},
        {"no updater",
         [](HostFacts& facts) {
             facts.image.put("Settings\\Updater", "BillBoardUpdaterExecutableName", text("u.exe"));
             facts.updater.path = "C:\\m\\u.exe";
         },
         Severity::error, "there is no updater C:\\m\\u.exe"},
    };
    for (const BadHostRow& row : rows) {
        HostFacts facts = goodHost();
        row.spoil(facts);
        const Report report = judged(facts);
        EXPECT_TRUE(has(report, row.severity, row.finding)) << row.name << ":\n" << asText(report);
    }
}

TEST(HostJudgementTest, UpdatesAreToldAsTheyStand) {
    const auto told = [](void (*change)(StoreImage & image), const char* what) {
        HostFacts facts = goodHost();
        change(facts.image);
        EXPECT_TRUE(has(judged(facts), Severity::note, what)) << asText(judged(facts));
    };
    told([](StoreImage&) {}, "never checked; the first check is due 30 days after");
    told(
        [](StoreImage& image) {
            image.put("Settings\\Updater", "DateLastCheckedForUpdates", text("9/1/2001"));
        },
        "not due yet");
    told(
        [](StoreImage& image) {
            image.put("Settings\\Updater", "DateLastCheckedForUpdates", text("7/4/1999"));
        },
        "due when the next job ends");
    told([](StoreImage& image) { image.put("Settings\\Updater", "CheckForUpdates", number(0)); },
         "switched off");
    told(
        [](StoreImage& image) {
            image.put("Settings\\Updater", "CompleteSoftwareUpdated", number(1));
        },
        "modules of an update come into use");
}

TEST(HostJudgementTest, SettingsAreToldAsAJobGoesByThem) {
    HostFacts facts = goodHost();
    facts.image.put("Settings\\Controller", "Catalog", text(""));
    facts.image.put("Settings\\Updater", "UpdatesCheckFrequency", {Source::wrongType});
    facts.image.put("GUI\\JSW\\", "Show Process Window", number(0));
    const std::string told = asText(judged(facts));
    for (const char* line :
         {"Settings DllPath = C:\\m (stored)\n",
          "Settings\\Controller View = qlabjswv.dll (default)\n",
          "Settings\\Controller Catalog = qlabbcat.dll (default)\n",
          "Settings PcsClient = qlabComc.dll (default)\n", "Settings DriverName =  (missing)\n",
          "Settings\\Updater UpdatesCheckFrequency = 30 (wrong type)\n",
          "IjPrtSettings\\GUI\\JSW Show Process Window = 0 (stored)\n",
          "IjPrtSettings RetailerID =  (missing)\n"}) {
        EXPECT_NE(told.find(line), std::string::npos) << line << told;
    }
    facts.image = {};
    EXPECT_NE(asText(judged(facts)).find("DataPath = C:\\Program Files\\JSW (default)\n"),
              std::string::npos);
}

TEST(HostPathsTest, MissingSettingsLeadWhereAJobWouldLook) {
    HostFacts facts = goodHost();
    facts.image.put("Settings\\Controller", "View", text("myview.dll"));
    facts.image.put("Settings\\Controller", "Catalog", text(""));
    facts.image.put("Settings\\Updater", "BillBoardUpdaterExecutableName", text("u.exe"));
    HostPaths paths = hostPaths(facts);
    EXPECT_EQ(paths.dataPath, "C:\\d");
    EXPECT_EQ(paths.view, "C:\\m\\myview.dll");
    EXPECT_EQ(paths.catalog, "C:\\m\\qlabbcat.dll");
    EXPECT_EQ(paths.rules, "C:\\m\\qlabreng.dll");
    EXPECT_EQ(paths.legacy, "C:\\spool\\3\\qlabjswo.dll");
    EXPECT_EQ(paths.device, "qlabComc.dll");
    EXPECT_EQ(paths.updater, "C:\\m\\u.exe");

    facts.image = {};
    paths = hostPaths(facts);
    EXPECT_EQ(paths.dataPath, facts.initialPath);
    EXPECT_EQ(paths.view, "C:\\Program Files\\JSW\\qlabjswv.dll");
    EXPECT_EQ(paths.updater, "");
}

}  // namespace
}  // namespace jsw::ctl
