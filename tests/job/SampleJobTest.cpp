#include "tests/job/SampleJobTest.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"

namespace jsw::test {

void SampleJobTest::SetUp() {
    JobTest::SetUp();
    const Settings settings;
    settings.setValue(setting::kLoggerKey, "startLog", 0);
    settings.write(setting::kDataPath, std::string(folderPart(moduleFileName(nullptr))) + "data");
    settings.write(setting::kViewModule, "jswv.dll");
    settings.write(setting::kCatalogModule, "bcat.dll");
    settings.write(setting::kRulesEngineModule, "reng.dll");
    settings.write(setting::kCatalogFilename, "catalog.xml");
    settings.setValue("Settings\\RulesEngine\\", "RulesFilename", "rules.xml");
}

void SampleJobTest::sampleJob(int number) {
    constexpr std::uint32_t kPages = 3;
    inkInfo_.InkPercent[0] = number % 100;
    const std::string name = concat("job ", number);
    startJob({.jobName = name.c_str(), .totalPages = kPages});
    for (std::uint32_t page = 1; page <= kPages; ++page) {
        api_.updateInfo(page, 1, 10, 0, 0, nullptr);
    }
    if (number % 4 == 0) Sleep(5);  // gives the rules time in some jobs
    endJob();
}

}  // namespace jsw::test
