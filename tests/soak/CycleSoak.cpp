// Job after job with the sample modules and their real window; and a host that loads the library
// for each job and frees it afterwards.

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/job/JobTest.h"
#include "tests/soak/Soak.h"
#include "tests/support/ProcessState.h"
#include "tests/support/TestLimits.h"

#include <functional>

namespace jsw {

namespace {

constexpr int kSettled = 100;  // cycles after which everything that is created once exists
constexpr std::size_t kHeapNoise = 16384;

/// Threads of the last window may still be leaving.
test::ProcessState takeStock() {
    Sleep(500);
    return test::processState();
}

/// Runs cycles and compares the process's resources after the first ones and after the last one.
void runCycles(const char* what, int cycles, const std::function<void(int)>& cycle) {
    cycles = kSettled + test::soakAmount(cycles);
    const test::Stopwatch watch;
    test::ProcessState first;
    for (int i = 1; i <= cycles; ++i) {
        test::allowSeconds(60);
        cycle(i);
        if (i == kSettled) first = takeStock();
    }
    const test::ProcessState last = takeStock();
    test::report(cycles, " times ", what, " in ", watch.seconds(), " s: next handle ",
                 first.nextHandle, " then ", last.nextHandle, ", threads ", first.threads, " then ",
                 last.threads, ", free TLS indexes ", first.freeTlsIndexes, " then ",
                 last.freeTlsIndexes, ", heaps ", first.heapBytes, " then ", last.heapBytes,
                 " bytes; expected: as they were, heaps within ", kHeapNoise);
    EXPECT_EQ(last.nextHandle, first.nextHandle);
    EXPECT_EQ(last.threads, first.threads);
    EXPECT_EQ(last.freeTlsIndexes, first.freeTlsIndexes);
    EXPECT_LT(last.heapBytes, first.heapBytes + kHeapNoise);
}

}  // namespace

/// Runs jobs with the sample modules of the project, their real window included. The log is off.
class CycleSoak : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        const Settings settings;
        settings.setValue(setting::kLoggerKey, "startLog", 0);
        settings.write(setting::kDataPath,
                       std::string(folderPart(moduleFileName(nullptr))) + "data");
        settings.write(setting::kViewModule, "jswv.dll");
        settings.write(setting::kCatalogModule, "bcat.dll");
        settings.write(setting::kRulesEngineModule, "reng.dll");
        settings.write(setting::kCatalogFilename, "catalog.xml");
        settings.setValue("Settings\\RulesEngine\\", "RulesFilename", "rules.xml");
    }

    /// A job with a few pages and not much ink; its number varies what is printed.
    void sampleJob(int number) {
        inkInfo_.InkPercent[0] = number % 100;
        startJob({.jobName = concat("job ", number).c_str()});
        for (std::uint32_t page = 1; page <= 3; ++page) {
            api_.updateInfo(page, 1, 10, 0, 0, nullptr);
        }
        if (number % 4 == 0) Sleep(5);  // let the rules have their say in some
        endJob();
    }
};

TEST_F(CycleSoak, ManyJobs) {
    runCycles("a job with the sample modules", 10000, [this](int job) { sampleJob(job); });
}

TEST_F(CycleSoak, LoadJobAndFree) {
    FreeLibrary(GetModuleHandleA("jsw.dll"));  // the one that all tests share
    runCycles("load, job and free", 1500, [this](int cycle) {
        const ModuleHandle library(LoadLibraryA("jsw.dll"));
        api_ = test::findExports(library.get());
        sampleJob(cycle);
    });
    api_ = test::findExports(LoadLibraryA("jsw.dll"));
}

}  // namespace jsw
