// A host that loads the library for each job and frees it afterwards.

#include "PublicLib/win/Handles.h"
#include "tests/job/SampleJobTest.h"
#include "tests/soak/Soak.h"
#include "tests/support/ProcessState.h"
#include "tests/support/TestLimits.h"

namespace jsw {

namespace {

constexpr std::size_t kHeapNoise = 16384;

/// Runs cycles and compares the process's resources after the first ones and after the last one.
template <class Cycle>
void runCycles(const char* what, const Cycle& cycle) {
    const int cycles = test::soakAmount(1500);
    const test::Stopwatch watch;
    for (int i = 0; i < 10; ++i) cycle(i);
    const test::ProcessState first = test::processState();
    for (int i = 10; i < cycles; ++i) {
        test::allowSeconds(60);
        cycle(i);
    }
    const test::ProcessState last = test::processState();
    test::report(cycles, " cycles of ", what, " in ", watch.seconds(), " s: free TLS indexes ",
                 first.freeTlsIndexes, " then ", last.freeTlsIndexes, ", heaps ", first.heapBytes,
                 " then ", last.heapBytes, " bytes, next handle ", first.nextHandle, " then ",
                 last.nextHandle, "; expected: as they were, heaps within ", kHeapNoise);
    EXPECT_EQ(last.freeTlsIndexes, first.freeTlsIndexes);
    EXPECT_EQ(last.nextHandle, first.nextHandle);
    EXPECT_LT(last.heapBytes, first.heapBytes + kHeapNoise);
}

}  // namespace

TEST(CycleSoak, LoadAndFreeAlone) {
    runCycles("load and free", [](int) { ASSERT_TRUE(ModuleHandle(LoadLibraryA("jsw.dll"))); });
}

using CycleJobSoak = test::SampleJobTest;

TEST_F(CycleJobSoak, LoadJobAndFree) {
    FreeLibrary(GetModuleHandleA("jsw.dll"));  // the one that all tests share
    runCycles("load, job and free", [this](int cycle) {
        const ModuleHandle library(LoadLibraryA("jsw.dll"));
        api_ = test::findExports(library.get());
        sampleJob(cycle);
    });
    api_ = test::findExports(LoadLibraryA("jsw.dll"));
}

}  // namespace jsw
