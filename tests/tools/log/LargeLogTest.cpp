#include "tests/support/ProcessState.h"
#include "tests/tools/log/LogText.h"
#include "tools/jswctl/log/HtmlReport.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/TextReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <streambuf>
#include <string>
#include <utility>

namespace jsw::ctl::log {

namespace {

using test::LogText;

constexpr std::size_t kMegabyte = 1024 * 1024;

/// A log that is generated while it is read: the same block repeatedly. It also samples how much
/// memory is in use.
class EndlessLog : public std::streambuf {
  public:
    EndlessLog(std::string block, std::size_t megabytes)
        : block_(std::move(block)), left_(megabytes * kMegabyte / block_.size() + 1) {}

    std::size_t mostMemory = 0;  ///< bytes more than at the beginning

  protected:
    int_type underflow() override {
        if (left_-- == 0) return traits_type::eof();
        if (left_ % (4 * kMegabyte / block_.size() + 1) == 0) {
            mostMemory = std::max(mostMemory, jsw::test::processState().heapBytes - before_);
        }
        setg(block_.data(), block_.data(), block_.data() + block_.size());
        return traits_type::to_int_type(block_.front());
    }

  private:
    std::string block_;
    std::size_t left_;
    const std::size_t before_ = jsw::test::processState().heapBytes;
};

struct Everything : JobListener {
    void onCall(const Call& call, const LoggedJob& job) override { statistics.add(call, job); }
    void onJob(const LoggedJob& job) override {
        statistics.add(job);
        page.add(job);
        told += jobAsText(job).size();
    }
    Statistics statistics;
    HtmlReport page;
    std::size_t told = 0;
};

Totals readAll(const std::string& block, std::size_t megabytes, Everything& everything) {
    EndlessLog source(block, megabytes);
    std::istream input(&source);
    const Totals totals = readLog(input, everything);
    EXPECT_GT(source.mostMemory, 0U);
    EXPECT_LT(source.mostMemory, 8 * kMegabyte);  // half of the whole
    return totals;
}

}  // namespace

TEST(LargeLog, ManyJobsAreReadInBoundedMemory) {
    LogText log;
    log.beginJob("report.pdf");
    for (unsigned i = 0; i < 40; ++i) {
        log.at(36'000'000 + i * 20).line(0, "+Catalog::getBillboardType: ");
        log.at(36'000'010 + i * 20).line(0, "-Catalog::getBillboardType:  rc=ink");
    }
    log.line(0, "ERROR - bbId is empty string.").endJob();
    Everything everything;
    const Totals totals = readAll(log.text(), 16, everything);
    EXPECT_GT(totals.jobs, 2000U);
    EXPECT_EQ(everything.statistics.troubles().at(0).jobs, totals.jobs);
    EXPECT_GT(everything.told, 100'000U);
}

/// One job that never ends, with endless calls, events, threads and problems.
TEST(LargeLog, AnEndlessJobIsReadInBoundedMemory) {
    LogText log;
    for (std::uint32_t i = 0; i < 200; ++i) {
        log.thread(i).at(36'000'000 + i);
        log.line(i % 300, "+Some::method" + std::to_string(i) + ": " + std::string(1000, 'x'));
        log.line(0, "Controller::doBillboardCallback: theAction ='NEXT' actionId = '0'");
        log.line(0, "ERROR - bbId is empty string.").raw(std::string(500, '?') + "\n");
    }
    Everything everything;
    const Totals totals = readAll(log.text(), 16, everything);
    EXPECT_GT(totals.foreign, 1000U);
}

/// Lines of more processes than are kept at the same time.
TEST(LargeLog, ManyProcessesAreReadInBoundedMemory) {
    LogText log;
    for (std::uint32_t i = 1; i <= 1000; ++i) log.process(i * 4).beginJob("job");
    Everything everything;
    readAll(log.text(), 4, everything);
}

}  // namespace jsw::ctl::log
