#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ChildProcess.h"

#include <filesystem>

namespace jsw {

namespace {

/// A host in another folder than the library, whose module folder is gone at the end of the job: 0
/// if the library looks for its updater beside the host.
const test::ChildRole elsewhere("host elsewhere", [](const std::string& registry) {
    test::PrivateRegistry::join(registry);
    test::Script script;
    script.offer();
    Localize::createInstance(nullptr);
    const HMODULE library = LoadLibraryA("jsw.dll");
    const test::Exports api = test::findExports(library);
    const test::RecordedShell shell;
    api.init("SimulatedPrinter", "report.pdf", 0, 1, 1, 1, 1, nullptr, 0, 0, nullptr);
    Settings().deleteValue(setting::kDllPath.key, setting::kDllPath.name);
    api.terminate();
    const std::string updater = std::string(folderPart(moduleFileName(nullptr))) + "updater.exe";
    return shell.calls.calls() == std::vector{concat("elevate(", updater, ")")} ? 0 : 1;
});

}  // namespace

using UpdateTest = test::JobTest;

TEST_F(UpdateTest, WithoutAFolderOfModulesTheUpdaterLiesBesideTheHost) {
    const Settings settings;
    settings.write(setting::kCheckForUpdates, 1);
    settings.write(setting::kDateLastChecked, "1/1/2000");
    settings.write(setting::kUpdaterExecutable, "updater.exe");
    const std::string host = folder_.file("qltehost.exe");
    std::filesystem::copy_file(moduleFileName(nullptr), host);
    EXPECT_EQ(test::ChildProcess("host elsewhere", registryPath(), host).wait(60000), 0U);
    settings.write(setting::kCheckForUpdates, 0);
}

}  // namespace jsw
