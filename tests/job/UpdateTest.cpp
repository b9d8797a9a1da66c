#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/job/JobTest.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <shellapi.h>

#include <filesystem>

namespace jsw {

namespace {

constexpr char kStartedEvent[] = "jsw test updater started";
constexpr char kEndEvent[] = "jsw test updater may end";
constexpr DWORD kUpdateTime = 60000;  // milliseconds, when nobody ends it
constexpr DWORD kBound = 10000;       // milliseconds: far more than a job's end takes

const test::ChildRole slowUpdater("update slowly", [](const std::string&) {
    const KernelHandle started(CreateEventA(nullptr, TRUE, FALSE, kStartedEvent));
    const KernelHandle end(CreateEventA(nullptr, TRUE, FALSE, kEndEvent));
    SetEvent(started.get());
    WaitForSingleObject(end.get(), kUpdateTime);
    return 0;
});

/// A host in another folder than the library, which has no folder of modules any more when the job
/// ends: 0 when its updater is looked for beside it.
const test::ChildRole elsewhere("host elsewhere", [](const std::string& registry) {
    test::PrivateRegistry::join(registry);
    test::Script script;
    const std::string address = std::to_string(reinterpret_cast<std::uintptr_t>(&script));
    SetEnvironmentVariableA(test::kScriptVariable, address.c_str());
    Localize::createInstance(nullptr);
    const HMODULE library = LoadLibraryA("jsw.dll");
    const test::Exports api = test::findExports(library);
    std::string asked;
    const auto shell = test::replaceImport<decltype(ShellExecuteA)>(
        test::ImportTable(library), "ShellExecuteA",
        [&](HWND, const char*, const char* file, const char*, const char*, INT) -> HINSTANCE {
            asked = file;
            return nullptr;
        });
    api.init("SimulatedPrinter", "report.pdf", 0, 1, 1, 1, 1, nullptr, 0, 0, nullptr);
    Settings().deleteValue(setting::kDllPath.key, setting::kDllPath.name);
    api.terminate();
    return asked == std::string(folderPart(moduleFileName(nullptr))) + "updater.exe" ? 0 : 1;
});

}  // namespace

class UpdateTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        updater_ = folder_.file("slowupdater.exe");
        std::filesystem::copy_file(moduleFileName(nullptr), updater_);
        // The shell hands its environment to the program.
        SetEnvironmentVariableA("JSW_TEST_ROLE", "update slowly");
    }

    void TearDown() override {
        SetEnvironmentVariableA("JSW_TEST_ROLE", nullptr);
        SetEvent(end_.get());
        EXPECT_TRUE(test::eventually([&] { return DeleteFileA(updater_.c_str()) != FALSE; }))
            << "the updater does not end";
        JobTest::TearDown();
    }

    bool hasStarted() const { return WaitForSingleObject(started_.get(), kBound) == WAIT_OBJECT_0; }

    std::string updater_;
    const KernelHandle started_{CreateEventA(nullptr, TRUE, FALSE, kStartedEvent)};
    const KernelHandle end_{CreateEventA(nullptr, TRUE, FALSE, kEndEvent)};
};

TEST_F(UpdateTest, TheEndOfAJobStartsTheUpdaterAndDoesNotWaitForIt) {
    const Settings settings;
    settings.write(setting::kCheckForUpdates, 1);
    settings.write(setting::kDateLastChecked, "1/1/2000");
    settings.write(setting::kUpdaterExecutable, "slowupdater.exe");
    startJob();
    ASSERT_TRUE(waitForRules());
    EXPECT_EQ(WaitForSingleObject(started_.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    settings.write(setting::kDllPath, folder_.path());  // the modules have been loaded

    const DWORD start = GetTickCount();
    endJob();
    EXPECT_LT(GetTickCount() - start, kBound);
    EXPECT_TRUE(hasStarted());
    std::string date;
    EXPECT_EQ(settings.read(setting::kDateLastChecked, date), Read::found);
    EXPECT_NE(date, "1/1/2000");
    EXPECT_TRUE(
        hasLine("AppUpdatesController::checkForUpdatesVista: Updater launched successfully."));
}

using UpdateOfHostTest = test::JobTest;

TEST_F(UpdateOfHostTest, WithoutAFolderOfModulesTheUpdaterLiesBesideTheHost) {
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
