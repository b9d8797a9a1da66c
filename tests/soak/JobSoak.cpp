// Job after job with the sample modules and their real window.

#include "tests/job/SampleJobTest.h"
#include "tests/soak/Soak.h"
#include "tests/support/ProcessState.h"
#include "tests/support/TestLimits.h"

namespace jsw {

namespace {

constexpr int kSettled = 100;  // jobs after which all one-time objects exist
constexpr std::size_t kHeapNoise = 16384;

/// Threads of the last window may still be ending.
test::ProcessState takeStock() {
    Sleep(500);
    return test::processState();
}

std::ptrdiff_t change(std::size_t from, std::size_t to) {
    return static_cast<std::ptrdiff_t>(to) - static_cast<std::ptrdiff_t>(from);
}

}  // namespace

using JobSoak = test::SampleJobTest;

TEST_F(JobSoak, HoldsNothingMoreAfterManyJobs) {
    const int jobs = kSettled + test::soakAmount(10000);
    const test::Stopwatch watch;
    test::ProcessState settled;
    for (int job = 1; job <= jobs; ++job) {
        test::allowSeconds(60);
        sampleJob(job);
        if (job == kSettled) settled = takeStock();
    }
    const test::ProcessState end = takeStock();
    test::report(jobs, " jobs with the sample modules in ", watch.seconds(), " s: next handle ",
                 change(settled.nextHandle, end.nextHandle), ", threads ",
                 change(settled.threads, end.threads), ", free TLS indexes ",
                 change(settled.freeTlsIndexes, end.freeTlsIndexes), ", heaps ",
                 change(settled.heapBytes, end.heapBytes), " bytes since job ", kSettled,
                 "; expected: 0, 0, 0 and less than ", kHeapNoise);
    EXPECT_EQ(end.nextHandle, settled.nextHandle);
    EXPECT_EQ(end.threads, settled.threads);
    EXPECT_EQ(end.freeTlsIndexes, settled.freeTlsIndexes);
    EXPECT_LT(end.heapBytes, settled.heapBytes + kHeapNoise);
}

}  // namespace jsw
