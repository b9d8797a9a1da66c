#include "tests/tools/check/JudgementTest.h"
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
    void (*spoil)(HostFacts& f);
    Severity severity;
    const char* finding;
};

TEST(HostJudgementTest, EachMistakeIsNamedWithItsRemedy) {
    constexpr auto kError = Severity::error, kWarning = Severity::warning, kNote = Severity::note;
    const BadHostRow rows[] = {
        {[](HostFacts& f) { f.productLine.clear(); }, kNote, "no product line"},
        {[](HostFacts& f) { f.library.exists = false; }, kWarning,
         "there is no file C:\\h\\jsw.dll"},
        {[](HostFacts& f) { f.libraryVersion = "1.0.0"; }, kWarning,
         "its version is 1.0.0, jswctl's is 1.1.0"},
        {[](HostFacts& f) { f.firstRun.closedKeys = {std::string(kStore) + "\\Settings"}; },
         kWarning, "cannot open 1 key of the settings with all rights"},
        {[](HostFacts& f) {
             f.log.exists = true;
             f.logSize = 200 << 20;
         },
         kWarning, "jswctl log --rotate"},
        {[](HostFacts& f) {
             f.firstRun.storeOpens = false;
             f.firstRun.storeError = 5;
         },
         kError, "cannot be opened with all rights, error 5"},
        {[](HostFacts& f) {
             f.firstRun = {};
             f.firstRun.storeError = 2;
             f.firstRun.file.path = "C:\\h\\qlabjsw.loc";
         },
         kError, "there is no settings file C:\\h\\qlabjsw.loc"},
        {[](HostFacts& f) {
             f.firstRun.file.parsed = false;
             f.firstRun.file.sections.clear();
             f.firstRun.file.entries.clear();
         },
         kError, "has no sections to install"},
        {[](HostFacts& f) { f.firstRun.file.sections = {"Software\\Else\\JSW\\Local\\qlab"}; },
         kError, "no section of C:\\h\\qlabjsw.loc is below this host's key"},
        {[](HostFacts& f) { f.firstRun.file.sections.emplace_back("Software\\Else"); }, kWarning,
         "the section [Software\\Else] does not belong to this host"},
        {[](HostFacts& f) { f.firstRun.file.sections = {std::string(kStore) + "x\\Settings"}; },
         kError, "no section of"},
        {[](HostFacts& f) {
             for (FileEntry& entry : f.firstRun.file.entries) entry.stored.reset();
         },
         kError, "first run: did not happen"},
        {[](HostFacts& f) { f.firstRun.file.exists = false; }, kWarning,
         "first run: there is no settings file C:\\h\\qlabjsw.loc, and the store names no modules"},
        {[](HostFacts& f) {
             f.firstRun.isPending = true;
             f.firstRun.file.entries[0].stored.reset();
         },
         kWarning, "first run: is incomplete"},
        {[](HostFacts& f) { f.firstRun.file.entries[0].stored.reset(); }, kWarning,
         "1 of 2 values of C:\\h\\qlabjsw.loc are not in the registry: DllPath"},
        {[](HostFacts& f) { f.firstRun.file.entries[0].stored = "x"; }, kNote,
         "DllPath is x, string:C:\\m in the settings file"},
        {[](HostFacts& f) { f.firstRun.file.entries[0].value = "C:\\m"; }, kWarning,
         "Write string: or dword: before the value"},
        {[](HostFacts& f) { f.image.put("Settings\\Controller\\", "VIEW", {Source::wrongType}); },
         kError, "Settings\\Controller View is not stored as a text"},
        {[](HostFacts& f) { f.image.put("Settings", "DllPath", text(".\\m")); }, kWarning,
         "DllPath '.\\m' is relative to the current folder"},
        {[](HostFacts& f) { f.image.put("Settings", "DataPath", text("\\d")); }, kWarning,
         "DataPath '\\d' is relative"},
        {[](HostFacts& f) {
             f.unknownValues = {{"Settings", "DataPaht"}};
         },
         kWarning, "Did you mean DataPath?"},
        {[](HostFacts& f) { f.parserRegistered = false; }, kError, "MSXML 3.0 is not registered"},
        {[](HostFacts& f) { f.parserVersion = 0; }, kError,
         "msxml3.dll is missing in the system folder"},
        {[](HostFacts& f) { f.parserVersion = 0x8001D; }, kError,
         "has version 8.29; version 8.30 or later is needed"},
        {[](HostFacts& f) {
             f.dataFolder = {"C:\\d", false, false};
         },
         kError, "there is no folder C:\\d"},
        {[](HostFacts& f) { f.pages[0].fileName.clear(); }, kError,
         "billboard DEFAULT: the catalog names no file"},
        {[](HostFacts& f) { f.pages[1].file.exists = false; }, kWarning,
         "there is no file C:\\d\\Scripts\\b.jbb: the ink status action"},
        {[](HostFacts& f) {
             f.cachedDefault = {"", false, "old.jbb", {"C:\\d\\old.jbb"}};
         },
         kError, "the page stored by an earlier job is missing"},
        {[](HostFacts& f) {
             f.cachedDefault = {"", false, "old.jbb", {"C:\\d\\old.jbb", true, false}};
         },
         kWarning, "jobs start with old.jbb"},
        {[](HostFacts& f) { f.logError = 5; }, kWarning,
         "C:\\all\\qlabJSW.log cannot be written, error 5"},
        {[](HostFacts& f) {
             f.image.put("Settings\\Updater", "BillBoardUpdaterExecutableName", text("..\\u.exe"));
         },
         kError, "is not a plain file name"},
        {[](HostFacts& f) {
             f.image.put("Settings\\Updater", "BillBoardUpdaterExecutableName", text("u.exe"));
             f.updater.path = "C:\\m\\u.exe";
         },
         kError, "there is no updater C:\\m\\u.exe"},
    };
    for (const BadHostRow& row : rows) {
        HostFacts facts = goodHost();
        row.spoil(facts);
        const Report report = judged(facts);
        EXPECT_TRUE(has(report, row.severity, row.finding)) << row.finding << ":\n"
                                                            << asText(report);
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
