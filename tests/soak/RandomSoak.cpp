// Sixteen threads of a driver make random calls, while the window, the rules engine and the
// driver's status callback call back all the time.

#include "tests/job/WholeJob.h"
#include "tests/soak/Soak.h"
#include "tests/support/TestLimits.h"

#include <array>
#include <atomic>
#include <random>
#include <thread>

namespace jsw {

namespace {

constexpr int kThreads = 16;
constexpr unsigned kHangSeconds = 60;

std::array<std::atomic<std::uint64_t>, kThreads> calls;
std::atomic<std::uint64_t> callbacks{0};
std::atomic<bool> over{false};

unsigned pick(unsigned below) {
    thread_local std::mt19937 random(GetCurrentThreadId());
    return static_cast<unsigned>(random() % below);
}

}  // namespace

class RandomSoak : public test::WholeJobTest {
  protected:
    static void onStatus(std::uint32_t /*status*/) {
        ++callbacks;
        const unsigned wish = pick(40);
        if (wish == 0) api_.terminate();
        if (wish == 1) api_.updateInfo(1, 2, 3, 4, 5, nullptr);
        if (wish == 2) api_.postDlgMsg(nullptr);
    }

    void SetUp() override {
        WholeJobTest::SetUp();
        prepare(0);
        startJob({.callback = onStatus});
        event_ = script_.reportEvent;
        click_ = script_.clickBillboard;
        script_.onViewCall = [this](const std::string&) { callBack(); };
        script_.onEvaluateRule = [this] { callBack(); };
        script_.onPrompt = [this] { callExport(); };
    }

    void TearDown() override {
        script_.onEvaluateRule = nullptr;
        WholeJobTest::TearDown();
    }

    /// Random actions of a window; rare, or the callbacks would call each other for ever.
    void callBack() {
        const unsigned wish = pick(8);
        if (wish < 2) ++callbacks;
        if (wish == 0) event_(static_cast<std::int32_t>(pick(10)));
        if (wish == 1) click_(pick(2) == 0 ? "LAUNCH_URL" : "NOTHING", 0);
    }

    void callExport() {
        const unsigned wish = pick(10);
        if (wish == 0) startJob({.callback = onStatus});
        if (wish == 1) api_.terminate();
        if (wish == 2) api_.displayPrompt(1, 2);
        if (wish == 3) event_(static_cast<std::int32_t>(pick(10)));
        if (wish == 4) click_(pick(2) == 0 ? "NEXT" : "INK_STATUS", 0);
        if (wish == 5) api_.postDlgMsg(nullptr);
        if (wish > 5) api_.updateInfo(pick(9), 1, 60, 0, 0, nullptr);
    }

    JswViewEventCallback event_ = nullptr;
    JswViewBillboardCallback click_ = nullptr;
};

TEST_F(RandomSoak, SixteenThreadsCallEverythingAtRandom) {
    const test::Stopwatch watch;
    std::vector<std::thread> threads;
    for (auto& count : calls) {
        threads.emplace_back([this, &count] {
            for (; !over; ++count) callExport();
        });
    }
    const auto seconds = static_cast<std::uint64_t>(test::soakAmount(60));
    std::array<std::uint64_t, kThreads> seen{};
    bool allMoved = true;
    while (watch.seconds() < seconds) {
        if (allMoved) test::allowSeconds(kHangSeconds);
        Sleep(200);
        for (auto* record : {&script_.view, &script_.rules, &script_.catalog, &script_.legacy,
                             &shell_.calls, &shell_.details}) {
            record->clear();
        }
        allMoved = true;
        for (std::size_t i = 0; i < calls.size(); ++i) {
            allMoved = seen[i] != calls[i] && allMoved;
        }
        if (allMoved) std::copy(calls.begin(), calls.end(), seen.begin());
    }
    over = true;
    for (auto& thread : threads) thread.join();
    api_.terminate();
    script_.onViewCall = nullptr;
    script_.onEvaluateRule = nullptr;
    prepare(0);
    const auto after = wholeJob(10000);
    std::uint64_t total = 0;
    for (const auto& count : calls) total += count;
    test::report(kThreads, " threads for ", watch.seconds(), " s: ", total, " calls, ",
                 callbacks.load(), " callbacks; expected: no thread hangs for ", kHangSeconds,
                 " s, and the next job is served");
    EXPECT_THAT(after, ::testing::IsSupersetOf({"ShowGui()", "Uninitialize()", "status(3)"}));
}

}  // namespace jsw
