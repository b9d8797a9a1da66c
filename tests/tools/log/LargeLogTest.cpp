/// @file LargeLogTest.cpp
/// A separate program, because it counts all memory in use.
#include "tests/tools/log/LogText.h"
#include "tools/jswctl/log/HtmlReport.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/TextReport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <streambuf>
#include <string>
#include <utility>

namespace {

// The watchdog thread of the tests allocates, too.
std::atomic<std::size_t> inUse = 0;
std::atomic<std::size_t> mostInUse = 0;

constexpr std::size_t kHead = alignof(std::max_align_t);

}  // namespace

void* operator new(std::size_t size) {
    auto* const memory = static_cast<std::size_t*>(std::malloc(size + kHead));
    if (memory == nullptr) throw std::bad_alloc();
    *memory = size;
    const std::size_t now = inUse += size;
    if (now > mostInUse) mostInUse = now;
    return reinterpret_cast<char*>(memory) + kHead;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) return;
    auto* const start = reinterpret_cast<std::size_t*>(static_cast<char*>(memory) - kHead);
    inUse -= *start;
    std::free(start);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

namespace jsw::ctl::log {

namespace {

using test::LogText;

/// A log that is generated while it is read: the same block repeatedly.
class EndlessLog : public std::streambuf {
  public:
    EndlessLog(std::string block, std::size_t times) : block_(std::move(block)), times_(times) {}

  protected:
    int_type underflow() override {
        if (times_-- == 0) return traits_type::eof();
        setg(block_.data(), block_.data(), block_.data() + block_.size());
        return traits_type::to_int_type(block_.front());
    }

  private:
    std::string block_;
    std::size_t times_;
};

struct Everything : JobListener {
    void onCall(const Call& call, const Job& job) override { statistics.add(call, job); }
    void onJob(const Job& job) override {
        statistics.add(job);
        page.add(job);
        told += jobAsText(job).size();
    }
    Statistics statistics;
    HtmlReport page;
    std::size_t told = 0;
};

Totals readAll(const std::string& block, std::size_t megabytes, Everything& everything) {
    EndlessLog source(block, megabytes * 1024 * 1024 / block.size() + 1);
    std::istream input(&source);
    mostInUse = inUse.load();
    return readLog(input, everything);
}

constexpr std::size_t kMegabytes = 16;
constexpr std::size_t kMostMemory = 8 * 1024 * 1024;  // half of it

}  // namespace

TEST(LargeLog, ManyJobsAreReadInBoundedMemory) {
    LogText log;
    log.beginJob("report.pdf");
    for (unsigned i = 0; i < 40; ++i) {
        log.at(36'000'000 + i * 20).line(0, "+Catalog::getBillboardType: ");
        log.at(36'000'010 + i * 20).line(0, "-Catalog::getBillboardType:  rc=ink");
    }
    log.line(0, "ERROR - bbId is empty string.").endJob();
    const std::size_t before = inUse;
    Everything everything;
    const Totals totals = readAll(log.text(), kMegabytes, everything);
    EXPECT_GT(totals.jobs, 2000U);
    EXPECT_EQ(everything.statistics.troubles().at(0).jobs, totals.jobs);
    EXPECT_GT(everything.told, 100'000U);
    EXPECT_LT(mostInUse - before, kMostMemory);
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
    const std::size_t before = inUse;
    Everything everything;
    const Totals totals = readAll(log.text(), kMegabytes, everything);
    EXPECT_GT(totals.foreign, 1000U);
    EXPECT_LT(mostInUse - before, kMostMemory);
}

/// Lines of more processes than are kept at the same time.
TEST(LargeLog, ManyProcessesAreReadInBoundedMemory) {
    LogText log;
    for (std::uint32_t i = 1; i <= 1000; ++i) log.process(i * 4).beginJob("job");
    const std::size_t before = inUse;
    Everything everything;
    readAll(log.text(), kMegabytes / 4, everything);
    EXPECT_LT(mostInUse - before, kMostMemory);
}

}  // namespace jsw::ctl::log
