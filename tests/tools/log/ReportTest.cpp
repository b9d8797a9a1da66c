#include "tests/support/Words.h"
#include "tests/tools/log/LogText.h"
#include "tools/jswctl/log/HtmlReport.h"
#include "tools/jswctl/log/JsonReport.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/TextReport.h"
#include "tools/jswctl/log/TimeAxis.h"
#include "tools/jswctl/log/Timeline.h"
#include "tools/jswctl/log/Words.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

namespace jsw::ctl::log {

namespace {

using jsw::test::countOf;
using test::LogText;
using namespace ::testing;

/// All reports of one log.
struct Reports : JobListener {
    explicit Reports(const std::string& text) {
        std::istringstream input(text);
        const Totals totals = readLog(input, *this);
        text_ += summaryAsText(totals, statistics_);
        page_ = html_.page("C:\\<logs>\\a&b.log", totals, statistics_);
        json_ += jsonReport_.end(totals, statistics_);
    }
    void onCall(const Call& call, const LoggedJob& job) override { statistics_.add(call, job); }
    void onJob(const LoggedJob& job) override {
        statistics_.add(job);
        html_.add(job);
        text_ += jobAsText(job);
        json_ += jsonReport_.job(job);
    }

    Statistics statistics_;
    HtmlReport html_;
    JsonReport jsonReport_{[](std::string_view text) { return std::string(text); }};
    std::string text_, page_, json_;
};

std::string twoJobs() {
    LogText log;
    log.thread(0x2A).beginJob("first").line(0, "ERROR - bbId is empty string.");
    log.line(0, "+Catalog::initialize: ").at(36'000'250).line(0, "-Catalog::initialize:  rc=1");
    log.endJob().beginJob("second").line(1, "History::save: Save not needed.").endJob();
    return log.text();
}

}  // namespace

TEST(TimeAxis, KeepsTheOrderOfTimesAndFoldsWhatIsIdle) {
    const TimeAxis axis({1000, 11'000},
                        {{1000, 1100}, {1050, 1080}, {6000, 6200}, {10'900, 20'000}}, 1000);
    ASSERT_EQ(axis.folds().size(), 2U);
    EXPECT_EQ(axis.folds()[0].duration, 4900);
    EXPECT_EQ(axis.folds()[1].duration, 4700);
    double before = -1;
    for (Milliseconds time = 1000; time <= 11'000; time += 10) {
        EXPECT_GE(axis.x(time), before) << time;
        before = axis.x(time);
    }
    EXPECT_DOUBLE_EQ(axis.x(1000), 0);
    EXPECT_NEAR(axis.x(11'000), 1000, 0.001);
    EXPECT_DOUBLE_EQ(axis.x(0), 0);
    // A busy time keeps its share: 400 of 400 milliseconds of what the folds leave.
    EXPECT_NEAR(axis.x(6200) - axis.x(6000), (1000 - 2 * axis.folds()[0].width) / 2, 0.001);
    for (const TimeAxis::Tick& tick : axis.ticks()) {
        for (const TimeAxis::Fold& fold : axis.folds()) {
            EXPECT_TRUE(tick.x < fold.x || tick.x >= fold.x + fold.width) << tick.label;
        }
    }
}

TEST(TimeAxis, ALabelBeforeAFoldHasTheRoomItNeeds) {
    const TimeAxis axis({0, 10'000}, {{0, 1}, {600, 2000}, {9000, 10'000}}, 1000);
    ASSERT_FALSE(axis.folds().empty());
    for (const TimeAxis::Tick& tick : axis.ticks()) {
        for (const TimeAxis::Fold& fold : axis.folds()) {
            EXPECT_TRUE(tick.x + 40 <= fold.x || tick.x >= fold.x + fold.width) << tick.label;
        }
    }
}

TEST(TimeAxis, TakesAJobWithoutDuration) {
    const TimeAxis axis({5, 5}, {}, 100);
    EXPECT_DOUBLE_EQ(axis.x(5), 0);
    EXPECT_FALSE(axis.ticks().empty());
}

TEST(Reports, TellTroubleWithCauseAndRemedy) {
    const Reports reports(twoJobs());
    for (const char* part : {"Job 1: \"first\" on \"Office printer\"",
                             "hinders  line 4: ERROR - bbId is empty string.",
                             "remedy: Check the catalog's default page", "2 jobs in",
                             "0.250       1     0.250  Catalog::initialize"}) {
        EXPECT_THAT(reports.text_, HasSubstr(part));
    }
    EXPECT_THAT(Reports(LogText().beginJob("a").endJob().text()).text_, HasSubstr("No trouble"));
}

TEST(Reports, PictureHasALaneForEachThreadAndAMarkForEachTrouble) {
    const std::string page = Reports(twoJobs()).page_;
    EXPECT_EQ(countOf("<svg ", page), 2U);
    EXPECT_EQ(countOf("class=\"lane\"", page), 2U);
    EXPECT_EQ(countOf("class=\"mark hinders\" d=", page), 1U);
    EXPECT_THAT(page, HasSubstr("driver thread"));
    EXPECT_THAT(page, HasSubstr("tid 002a"));
    EXPECT_THAT(page, HasSubstr("<title>Catalog::initialize, 0.250 s, line 5, result 1</title>"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_THAT(page, Not(HasSubstr("http")));
}

/// A view that calls back on new threads must not fill the picture with lanes.
TEST(Reports, PictureHasOneLaneForThreadsThatTakeTurns) {
    LogText log;
    log.thread(1).beginJob("a");
    for (unsigned click = 0; click < 5; ++click) {
        log.thread(10 + click)
            .at(36'001'000 + click * 100)
            .line(0, "+BillboardView::jswCallback: ");
        log.at(36'001'050 + click * 100).line(0, "-BillboardView::jswCallback: ");
    }
    log.thread(20).at(36'001'440).line(0, "+BillboardView::saveValueCallback: ");
    log.at(36'001'460).line(0, "-BillboardView::saveValueCallback: ");
    const std::string page = Reports(log.thread(1).at(36'002'000).endJob().text()).page_;
    EXPECT_EQ(countOf("class=\"lane\"", page), 3U);  // the last one came while another was busy
    EXPECT_THAT(page, HasSubstr("view threads"));
    EXPECT_THAT(page, HasSubstr("5 in turn"));
    EXPECT_EQ(countOf("<title>BillboardView::jswCallback", page), 5U);
}

/// Names come from users and may be anything.
TEST(Reports, LetNoTextOfTheLogBecomeMarkup) {
    const std::string hostile = "</title><script>alert('x')</script>\" onload=\"\x01&lt;";
    LogText log;
    log.beginJob(hostile).line(0, "+A::b<script>: ").at(37'000'000).line(0, "ERROR - " + hostile);
    log.line(0, "-A::b<script>: ").endJob();
    const Reports reports(log.text());
    EXPECT_THAT(reports.page_, Not(HasSubstr("<script")));
    EXPECT_THAT(reports.page_, Not(HasSubstr("\" onload")));
    EXPECT_THAT(reports.page_, Not(HasSubstr("\x01")));
    EXPECT_THAT(reports.text_, Not(HasSubstr("\x01")));
    EXPECT_THAT(reports.page_, HasSubstr("&amp;lt;"));
    const auto json = nlohmann::json::parse(reports.json_);
    EXPECT_EQ(json["jobs"][0]["name"], hostile);
    EXPECT_EQ(json["trouble"][0]["severity"], "stops");
}

TEST(Reports, SayNothingOfTimesWhenTheLinesHaveNone) {
    const Reports reports(
        LogText().withoutTimes().beginJob("a").line(0, "+Catalog::initialize: ").endJob().text());
    EXPECT_THAT(reports.text_, HasSubstr("the lines have no times"));
    for (const std::string& report : {reports.text_, reports.page_}) {
        EXPECT_THAT(report, Not(HasSubstr("Time in modules")));
        EXPECT_THAT(report, Not(HasSubstr("<svg")));
    }
}

TEST(Reports, JsonIsWholeWithoutAnyJob) {
    const auto json = nlohmann::json::parse(Reports("").json_);
    EXPECT_TRUE(json["jobs"].empty());
    EXPECT_EQ(json["log"]["lines"], 0);
}

TEST(Reports, SayThatAPageHasOnlyTheLastJobs) {
    LogText log;
    for (std::size_t i = 0; i < HtmlReport::kMaxJobs + 5; ++i) log.beginJob("a").endJob();
    const std::string page = Reports(log.text()).page_;
    EXPECT_EQ(countOf("<section class=\"job\"", page), HtmlReport::kMaxJobs);
    EXPECT_THAT(page, HasSubstr("Only the last 100 are on this page"));
}

}  // namespace jsw::ctl::log
