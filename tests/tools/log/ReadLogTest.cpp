#include "tests/tools/log/LogText.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/Words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>
#include <string>
#include <vector>

namespace jsw::ctl::log {

namespace {

using test::LogText;
using namespace ::testing;

struct Reading : JobListener {
    explicit Reading(const std::string& text) {
        std::istringstream input(text);
        totals = readLog(input, *this);
    }
    void onCall(const Call& call, const LoggedJob& job) override { statistics.add(call, job); }
    void onJob(const LoggedJob& job) override {
        statistics.add(job);
        jobs.push_back(job);
    }
    Totals totals;
    std::vector<LoggedJob> jobs;
    Statistics statistics;
};

Reading read(const std::string& text) {
    return Reading(text);
}

std::vector<std::string> sentences(const LoggedJob& job) {
    std::vector<std::string> result;
    for (const Event& event : job.story) result.push_back(event.sentence);
    return result;
}

/// "rules/Catalog::getCarts", "driver/…!" for one that did not return.
std::vector<std::string> calls(const LoggedJob& job) {
    std::vector<std::string> result;
    for (const Call& call : job.calls) {
        result.push_back(job.threads[call.thread].name + "/" + call.name +
                         (call.returned ? "" : "!"));
    }
    return result;
}

}  // namespace

TEST(ReadLog, TellsAJobInWords) {
    LogText log;
    log.line(0, ">>> SingletonMgr::SingletonMgr: ")
        .line(0, "BillboardView::BillboardView: Loading view DLL, filename=.\\jswv.dll.")
        .line(1, "History::read: bbId=tip1")
        .beginJob("report.pdf")
        .line(0, "+Controller::jswUpdateInfo: ")
        .line(0, "-Controller::jswUpdateInfo: ")
        .at(36'002'500)
        .line(1, "Controller::doBillboardCallback: theAction ='NEXT' actionId = '0'")
        .endJob();
    const Reading reading = read(log.text());
    ASSERT_EQ(reading.jobs.size(), 1U);
    const LoggedJob& job = reading.jobs[0];
    EXPECT_EQ(jobInWords(job), "\"report.pdf\" on \"Office printer\", 3 pages, 1 copy");
    EXPECT_EQ(placeInWords(job), "2026/11/21 10:00:00.000, 2.500 s, lines 1 to 12");
    EXPECT_THAT(job.problems, IsEmpty());
    EXPECT_THAT(job.history, ElementsAre("tip1"));
    EXPECT_EQ(job.progressReports, 1U);
    EXPECT_THAT(sentences(job),
                ElementsAre("loads the view .\\jswv.dll", "the user clicks: NEXT, number 0",
                            "the driver ends the job"));
}

/// Two hosts print at the same time; the lines have process ids.
TEST(ReadLog, KeepsProcessesApart) {
    LogText log;
    log.process(0x10).thread(1).beginJob("one");
    log.process(0x20).thread(1).beginJob("two");
    log.process(0x10).endJob();
    log.process(0x20).line(0, "ERROR - bbId is empty string.").endJob();
    const Reading reading = read(log.text());
    ASSERT_EQ(reading.jobs.size(), 2U);
    EXPECT_EQ(reading.totals.processes, 2U);
    EXPECT_EQ(reading.jobs[0].name, "one");
    EXPECT_THAT(reading.jobs[0].problems, IsEmpty());
    EXPECT_EQ(reading.jobs[1].name, "two");
    EXPECT_EQ(reading.jobs[1].problems.size(), 1U);
    EXPECT_EQ(reading.jobs[1].number, 2U);
    EXPECT_TRUE(reading.jobs[0].tornDown && reading.jobs[1].tornDown);
}

/// The rules thread works while the driver reports pages and the user clicks: the same lines with
/// and without ids give the same calls on the same threads.
TEST(ReadLog, TellsThreadsApartWithAndWithoutIds) {
    const auto write = [](bool ids) {
        LogText log;
        const auto on = [&](std::uint32_t id) -> LogText& { return ids ? log.thread(id) : log; };
        on(1).beginJob("report.pdf");
        on(2).line(0, "+Controller::ProcessRules: ");
        on(1).line(0, "+Controller::jswUpdateInfo: ");
        on(2).line(1, "+RulesEngine::RulesEngine: ");
        on(3).line(0, "+BillboardView::jswCallback: ");
        on(3).line(1, "+Subject::notify: ");
        on(2).line(1, "-RulesEngine::RulesEngine: ");
        on(1).line(0, "-Controller::jswUpdateInfo: ");
        on(3).line(1, "-Subject::notify: ");
        on(2).line(0, "-Controller::ProcessRules: ");
        on(3).line(0, "-BillboardView::jswCallback: ");
        on(1).endJob();
        return log.text();
    };
    const auto expected =
        ElementsAre("driver/Controller::jswInit", "rules/RulesEngine::RulesEngine",
                    "driver/Controller::jswUpdateInfo", "view/Subject::notify",
                    "rules/Controller::ProcessRules", "view/BillboardView::jswCallback",
                    "driver/Controller::jswTerminate");
    for (const bool ids : {true, false}) {
        const Reading reading = read(write(ids));
        ASSERT_EQ(reading.jobs.size(), 1U);
        EXPECT_THAT(calls(reading.jobs[0]), expected) << ids;
    }
}

TEST(ReadLog, SaysWhichBillboardWasChosenAndWhy) {
    const std::string tag = "Controller::ProcessRules: ";
    const auto choice = [&](const std::vector<std::string>& lines) {
        LogText log;
        log.beginJob("a").line(0, "+" + tag);
        unsigned depth = 1;
        for (const std::string& text : lines) {
            log.line(depth, text);
            if (text.starts_with('+')) ++depth;
        }
        log.line(0, "-" + tag).endJob();
        return read(log.text()).jobs.at(0).choice;
    };
    const std::string show = "+Controller::changeBillboard: ";
    EXPECT_EQ(choice({tag + "Rule result is CategoryId=offers, checkHistory=true",
                      tag + "ProjectId=tip1", tag + "ProjectId=tip2", tag + "ProjectId=tip3",
                      tag + "ProjectId=tip1 was in History (failed history check).",
                      tag + "WARNING:  Billboard id='tip2' not valid. Billboard is being bypassed.",
                      tag + "Should show the billboard, showSpecial=true "
                            "isInkType=trueisStandardType=false",
                      show, "Controller::changeBillboard: bbId ='tip3'",
                      "BillboardView::displayBillboard: billboard= 'tip3.jbb' "
                      "enableBillboardNavigation=true restoreWindow=false"}),
              "\"tip3\" (page tip3.jbb), an ink billboard: the rules named the category "
              "\"offers\"; skipped: \"tip1\" (shown before), \"tip2\" (its page cannot be shown)");
    EXPECT_EQ(choice({tag + "Rule result is ProjectId=tip1, checkHistory=true",
                      tag + "ProjectId=tip1 was in History (failed history check)."}),
              "none: the rules named \"tip1\"; skipped: \"tip1\" (shown before); the default "
              "page stays");
    EXPECT_EQ(
        choice({tag + "Rule result is ProjectId=news, checkHistory=false"}),
        "none: the rules named \"news\"; it is a special billboard, and the user has switched "
        "these off");
    EXPECT_EQ(choice({"-RulesEngine::evaluateRule:  rc=ink_page",
                      "-Catalog::getBillboardType:  rc=Ink_Status"}),
              "none: no rule applies to this job; the default page stays");
    EXPECT_EQ(
        choice({tag + "ERROR - Unable to initialize the rules engine. NOT processing rules!!!"}),
        "none: the rules engine did not start; the default page stays");
}

/// The host is ended in the middle of a call; the next process is recognised even without ids.
TEST(ReadLog, TellsWhereAJobWasWhenItsLinesEnd) {
    LogText log;
    log.beginJob("dead in the view")
        .line(0, "+BillboardView::showGui: ")
        .line(1, ">>> BillboardView::showGui: ");
    log.line(0, ">>> SingletonMgr::SingletonMgr: ").beginJob("killed");
    log.beginJob("ended in a prompt").line(0, "+Controller::jswTerminate: ");
    log.line(0, "-Controller::jswTerminate: ").beginJob("next").endJob();
    const Reading reading = read(log.text());
    ASSERT_EQ(reading.jobs.size(), 4U);
    const auto end = [&](std::size_t job) { return reading.jobs[job].problems.at(0); };
    EXPECT_EQ(end(0).known->impact, Impact::stops);
    EXPECT_THAT(end(0).line,
                HasSubstr("still running: BillboardView::showGui of the view (line 4)"));
    EXPECT_EQ(end(1).known->impact, Impact::hinders);
    EXPECT_EQ(end(2).known->impact, Impact::note);
    EXPECT_THAT(reading.jobs[3].problems, IsEmpty());
    EXPECT_TRUE(reading.statistics.isAnythingStopped());
}

TEST(ReadLog, PassesOverForeignLinesAndMendsTornOnes) {
    LogText log;
    log.raw("half a line\r\n").beginJob("report\r\nwith a line break");
    log.raw("2026/11/21-10:00:00.000 JSW                       +Controller::jswUp");
    log.raw(std::string("\0\x01\xFF\r\n", 5));
    log.raw("2026/11/21-10:00:00.000 JSW           ");  // killed in the header
    log.line(0, "+Controller::jswUpdateInfo: ").line(0, "-Controller::jswUpdateInfo: ").endJob();
    log.raw("2026/11/21-10:00:00.000 JSW                       the last, without an end");
    const Reading reading = read(log.text());
    ASSERT_EQ(reading.totals.jobs, 1U);
    EXPECT_EQ(reading.totals.foreign, 3U);
    EXPECT_EQ(reading.totals.torn, 1U);
    EXPECT_TRUE(reading.totals.endsInLine);
    EXPECT_THAT(reading.totals.examples.at(1).text, StartsWith("with a line break jobType=0"));
    const auto called = calls(reading.jobs.at(0));
    EXPECT_EQ(std::count(called.begin(), called.end(), "driver/Controller::jswUpdateInfo"), 1);
}

TEST(ReadLog, KeepsTroubleOnceWithTheLineThatTellsMost) {
    LogText log;
    log.line(0, "ERROR - BasicDll<Handler>::init() Unable to load DLL=.\\jswv.dll")
        .line(
            1,
            "BillboardView::BillboardView: file:../PublicLib\\BasicDll:332: "
            "BasicDll<Handler>::init() Unable to load DLL=.\\jswv.dll: Win32(126Module not found.")
        .beginJob("WARNING: a name like a warning, ERROR - too")
        .line(0, "BillboardView::jswInit: ERROR - The GUI DLL is not loaded")
        .line(0, "Controller::determineDataPath: DataPath NOT set in registry. Using")
        .line(0, "BillboardView::setGuiSetting: ERROR - The GUI DLL is not loaded")
        .endJob();
    const Reading reading = read(log.text());
    const auto& problems = reading.jobs.at(0).problems;
    ASSERT_EQ(problems.size(), 3U);
    EXPECT_THAT(problems[0].line, HasSubstr("Win32(126"));
    EXPECT_EQ(problems[0].count, 1U);
    EXPECT_EQ(problems[1].count, 2U);
    EXPECT_TRUE(reading.statistics.isAnythingStopped());
    EXPECT_EQ(reading.statistics.troubles().back().problem.known->impact, Impact::note);
}

TEST(ReadLog, TellsTroubleOfDifferentModulesApart) {
    LogText log;
    for (const char* dll : {"C:\\m\\nojswv.dll", "C:\\m\\nobcat.dll"}) {
        const std::string text = std::string("BasicDll<Handler>::init() Unable to load DLL=") + dll;
        log.line(0, "ERROR - " + text).line(1, text + ": Win32(126Module not found.");
    }
    log.line(0, "ERROR - the module raised exception 0xc0000005 at jswv.dll+0x12 in UpdateInfo");
    const auto troubles = read(log.text()).statistics.troubles();
    ASSERT_EQ(troubles.size(), 3U);
    EXPECT_THAT(troubles[1].problem.line, HasSubstr("nobcat.dll: Win32(126"));
    EXPECT_EQ(troubles[1].problem.count, 1U);
    EXPECT_THAT(troubles[2].problem.known->remedy, HasSubstr("offset"));
    EXPECT_TRUE(troubles[2].problem.known->impact == Impact::stops);
}

/// With errors only, like a log that is switched off.
TEST(ReadLog, TakesALogOfErrorsAlone) {
    LogText log;
    log.line(0, "ERROR - the module raised an exception in ShowGui");
    const Reading reading = read(log.text());
    EXPECT_EQ(reading.totals.jobs, 0U);
    EXPECT_EQ(reading.statistics.linesOutside(), 1U);
    EXPECT_EQ(placeInWords(reading.jobs.at(0)), "2026/11/21 10:00:00.000, 0.000 s, line 1");
    EXPECT_THAT(fileInWords(reading.totals, 1), Contains(HasSubstr("startLog")));
    EXPECT_TRUE(reading.statistics.isAnythingStopped());
    const Totals midJob = read(log.line(0, "-Controller::jswUpdateInfo: ").text()).totals;
    EXPECT_THAT(fileInWords(midJob, 2), Contains(HasSubstr("switched on during a job")));
}

TEST(ReadLog, CountsTheTimeOfACallWithoutThoseInside) {
    LogText log;
    log.beginJob("a").at(1000).line(0, "+Catalog::getBillboardType: ");
    log.at(1010).line(1, "+Catalog::initialize: ").at(1250).line(1, "-Catalog::initialize:  rc=1");
    log.at(1300).line(0, "-Catalog::getBillboardType:  rc=ink").endJob();
    const auto totals = read(log.text()).statistics.moduleCalls();
    ASSERT_EQ(totals.size(), 2U);
    EXPECT_EQ(totals[0].name, "Catalog::initialize");
    EXPECT_EQ(totals[0].total, 240);
    EXPECT_EQ(totals[1].total, 60);
    EXPECT_EQ(totals[1].longestLine, 4U);
}

TEST(ReadLog, GivesUpOnWhatIsNoLog) {
    const Reading reading = read(std::string(3'000'000, '\0'));
    EXPECT_FALSE(reading.totals.isLog());
    EXPECT_TRUE(reading.totals.gaveUp);
    EXPECT_LT(reading.totals.bytes, 2'000'000U);
    EXPECT_FALSE(read("").totals.isLog());
}

}  // namespace jsw::ctl::log
