#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/updates/AppUpdatesController.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/WindowsVersion.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <tuple>

namespace jsw {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

constexpr char kHostVariable[] = "JSW_UPDATER_HOST";

/// Makes the key that Windows takes every user's environment from.
void addMachineEnvironment() {
    RegistryKey("System\\CurrentControlSet\\Control\\Session Manager\\Environment", true);
}

constexpr char kNoFolder[] = "(none)";

/// Runs an update check that is due; false when the date stays as it is.
bool checkWhenDue() {
    const Settings settings;
    settings.write(setting::kDateLastChecked, "1/1/2000");
    AppUpdatesController().checkForUpdates();
    std::string date;
    settings.read(setting::kDateLastChecked, date);
    return date != "1/1/2000";
}

/// A host program whose update check is due: argument is its module folder, or kNoFolder for a
/// store without one. On systems without updates whatever is configured is the same, so there it
/// checks under many names.
const test::ChildRole checkingHost("check for updates", [](const std::string& folder) {
    const test::PrivateRegistry registry;
    addMachineEnvironment();
    Localize::createInstance(nullptr);
    const Settings settings;
    if (folder != kNoFolder) settings.write(setting::kDllPath, folder);
    settings.setValue(setting::kLoggerKey, "startLog", 1);
    settings.setValue(setting::kLoggerKey, "Clocktime_In_Header", 0);
    BasicLogger::createInstance(15);
    bool checked = true;
    if (!OsVersion::instance().isXpOrLater()) {
        checked = checkWhenDue();  // without a name
        for (const char* name : {"", ".", "..\\qlupdater.exe"}) {
            settings.write(setting::kUpdaterExecutable, name);
            checked = checkWhenDue() && checked;
        }
    }
    settings.write(setting::kUpdaterExecutable, "qlupdater.exe");
    checked = checkWhenDue() && checked;
    return checked ? 0 : 1;
});

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/// The record of so many updaters that may still be running; empty when none was started.
std::string finishedRecord(const std::string& file, DWORD patienceMilliseconds,
                           std::size_t updaters = 1) {
    const DWORD start = GetTickCount();
    std::string record;
    while (GetTickCount() - start < patienceMilliseconds) {
        record = test::readFile(file);
        std::erase(record, '\r');
        if (countOf(record, "ended\n") == updaters) break;
        Sleep(50);
    }
    return record;
}

/// Windows gives out the lowest free handle, so a leak moves the next one up.
std::uintptr_t nextHandle() {
    const KernelHandle event(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    return reinterpret_cast<std::uintptr_t>(event.get());
}

/// What a launch takes for a while and gives back.
auto borrowedThings() {
    return std::make_tuple(nextHandle(), GetModuleHandleA("userenv.dll"),
                           GetModuleHandleA("wtsapi32.dll"));
}

struct Outcome {
    std::uint32_t exitCode;
    std::string log;
    std::string record;
};

}  // namespace

class LaunchTest : public test::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        updater_ = std::string(folderPart(moduleFileName(nullptr))) + "qlupdater.exe";
        ASSERT_NE(GetFileAttributesA(updater_.c_str()), INVALID_FILE_ATTRIBUTES);
        // Seen by an updater that inherits this process's environment.
        SetEnvironmentVariableA(kHostVariable, "qlzz");
    }

    void TearDown() override {
        SetEnvironmentVariableA(kHostVariable, nullptr);
        HostTest::TearDown();
    }

    /// Lets a copy of this program, named like a host, check for updates on a version of Windows.
    /// The updater lies in a folder of its own.
    Outcome checkOn(const std::string& version, DWORD patienceMilliseconds) {
        const test::TempFolder folder;
        const std::string programs = folder.file("Pro gram");
        return checkOn(version, patienceMilliseconds, folder, programs, programs);
    }

    /// @param programs      folder of the updater
    /// @param moduleFolder  what the host is told
    Outcome checkOn(const std::string& version, DWORD patienceMilliseconds,
                    const test::TempFolder& folder, const std::string& programs,
                    const std::string& moduleFolder) {
        const std::string name = "ql" + version.substr(version.size() - 2) + "check.exe";
        const std::string host = folder.file(name);
        std::filesystem::create_directories(programs);
        std::filesystem::copy_file(moduleFileName(nullptr), host);
        std::filesystem::copy_file(updater_, programs + "\\qlupdater.exe");
        // What a command line without quotes would start.
        if (programs.ends_with(" gram")) {
            std::filesystem::copy_file(updater_, folder.file("Pro.exe"));
        }
        const test::WindowsVersion chosen(name, version);
        const std::string log = std::string(folderPart(logPath())) + localIdOf(host) + "JSW.log";
        Outcome run;
        test::ChildProcess child("check for updates", moduleFolder, host);
        run.exitCode = child.wait(60000);
        run.record = finishedRecord(programs + "\\qlupdater.log", patienceMilliseconds);
        run.log = test::readFile(log);
        std::filesystem::remove(log);
        return run;
    }

    std::string updater_;
};

TEST_F(LaunchTest, Version6StartsItElevatedThroughTheShell) {
    for (const char* version : {"vista", "win7", "win10"}) {
        const Outcome run = checkOn(version, 20000);
        EXPECT_EQ(run.exitCode, 0u) << version;
        EXPECT_THAT(run.log, HasSubstr("checkForUpdatesVista: Updater launched successfully."))
            << version;
        EXPECT_THAT(run.record, HasSubstr("elevation asked for: yes")) << version;
        EXPECT_THAT(run.record, HasSubstr("qlupdater.exe\" -UAC")) << version;
        EXPECT_THAT(run.record, HasSubstr("ended")) << version;
    }
}

TEST_F(LaunchTest, WithoutAModuleFolderTheUpdaterLiesBesideTheHost) {
    for (const char* moduleFolder : {"", kNoFolder}) {
        const test::TempFolder folder;
        const Outcome run = checkOn("win7", 20000, folder, folder.path(), moduleFolder);
        EXPECT_THAT(run.record, HasSubstr("ended")) << moduleFolder;
    }
}

TEST_F(LaunchTest, Version5StartsItAsTheConsoleUserWithHisEnvironment) {
    for (const char* version : {"winxp", "winxp64", "win2003"}) {
        const Outcome run = checkOn(version, 20000);
        EXPECT_EQ(run.exitCode, 0u) << version;
        EXPECT_THAT(run.log, HasSubstr("checkForUpdatesXp: Launching="));
        EXPECT_THAT(run.log, HasSubstr("API CreateProcessAsUser success, retCode=1.")) << version;
        EXPECT_THAT(run.log, HasSubstr("-AppUpdatesController::getSessionUserToken:  rc=true"));
        EXPECT_THAT(run.record, HasSubstr("elevation asked for: no")) << version;
        EXPECT_THAT(run.record, HasSubstr("session: 1\n")) << version;
        EXPECT_THAT(run.record, HasSubstr("host: qlde (default)")) << version;
        EXPECT_THAT(run.record, HasSubstr("ended")) << version;
    }
}

TEST_F(LaunchTest, OlderVersionsRefuseAfterTheDateWasReset) {
    for (const char* version : {"win2k", "nt40"}) {
        const Outcome run = checkOn(version, 1500);
        EXPECT_EQ(run.exitCode, 0u) << version;
        EXPECT_EQ(countOf(run.log,
                          "checkForUpdates() OS is not XP or greater. NO Updates "
                          "available."),
                  5u)
            << version;
        EXPECT_THAT(run.log, Not(HasSubstr("FAILED"))) << version;
        EXPECT_EQ(run.record, "") << version;
    }
}

TEST_F(LaunchTest, ConsoleUserLaunchReportsWhatFailed) {
    startLog();
    addMachineEnvironment();
    AppUpdatesController controller;
    controller.checkForUpdatesXp(folder_.file("none.exe"));
    EXPECT_TRUE(logContains("API CreateProcessAsUser failed, lastErr=2."));
    controller.checkForUpdatesXp("C:\\" + std::string(257, 'u'));  // the longest path
    EXPECT_FALSE(logContains("API CreateProcessAsUser failed, lastErr=206."));
    controller.checkForUpdatesXp("C:\\" + std::string(258, 'u'));
    EXPECT_TRUE(logContains("API CreateProcessAsUser failed, lastErr=206."));
    controller.checkForUpdatesXp(updater_ + "\" -UAC");
    EXPECT_TRUE(logContains("API CreateProcessAsUser failed, lastErr=123."));

    KernelHandle token;
    DWORD error = 0;
    EXPECT_FALSE(controller.getSessionUserToken(nullptr, &error));
    EXPECT_FALSE(controller.getSessionUserToken(&token, nullptr));
    EXPECT_TRUE(controller.getSessionUserToken(&token, &error));
    EXPECT_TRUE(token);

    UserEnvironment environment;
    const auto noToken = reinterpret_cast<HANDLE>(std::uintptr_t{0xDEAD0});
    EXPECT_FALSE(controller.createEnvironment(environment, noToken));
    EXPECT_EQ(environment.block(), nullptr);
    EXPECT_TRUE(logContains("API CreateEnvironmentBlock failed, LastErr="));
    UserEnvironment ofUser;
    EXPECT_TRUE(controller.createEnvironment(ofUser, token.get()));
    EXPECT_NE(ofUser.block(), nullptr);
}

TEST_F(LaunchTest, AStepThatTheSystemRefusesIsNamedAndAnEnvironmentIsNotVital) {
    const struct {
        const char* function;
        const char* line;
        bool launches;
    } rows[] = {
        {"WTSQueryUserToken", "API WTSQueryUserToken failed, lastErr=5.", false},
        {"DuplicateTokenEx", "API DuplicateTokenEx failed, lastErr=5.", false},
        {"CreateEnvironmentBlock", "API GetProcAddr(CreateEnvironmentBlock) failed, lastErr=5",
         true},
    };
    startLog();
    std::string refused;
    const auto refuse = [&](const char* name) {
        SetLastError(ERROR_ACCESS_DENIED);
        return refused == name;
    };
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    const auto find = test::replaceImport<decltype(GetProcAddress)>(
        imports, "GetProcAddress", [&](auto original, HMODULE library, const char* name) {
            return refuse(name) ? nullptr : original(library, name);
        });
    const auto duplicate = test::replaceImport<decltype(DuplicateTokenEx)>(
        imports, "DuplicateTokenEx", [&](auto original, auto... arguments) {
            return refuse("DuplicateTokenEx") ? FALSE : original(arguments...);
        });
    for (const auto& row : rows) {
        refused = row.function;
        DeleteFileA(logPath().c_str());
        AppUpdatesController().checkForUpdatesXp(folder_.file("none.exe"));
        EXPECT_TRUE(logContains(row.line)) << row.function;
        EXPECT_EQ(logContains("Launching="), row.launches) << row.function;
    }
}

/// What the library takes of userenv.dll, recorded.
struct Environments {
    static inline std::vector<std::string> calls;
    static inline wchar_t empty[2] = {};

    static BOOL create(void** block, HANDLE /*token*/, BOOL inherit) {
        *block = empty;
        calls.push_back(inherit == FALSE ? "create" : "create and inherit");
        return TRUE;
    }
    static BOOL destroy(void* block) {
        calls.emplace_back(block == empty ? "destroy" : "destroy another");
        return TRUE;
    }
};

TEST_F(LaunchTest, TheUsersEnvironmentIsHisOwnAndGivenBack) {
    Environments::calls.clear();
    const auto find = test::replaceImport<decltype(GetProcAddress)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetProcAddress",
        [](auto original, HMODULE module, const char* name) -> FARPROC {
            const std::string_view wanted = name;
            if (wanted == "CreateEnvironmentBlock") {
                return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Environments::create));
            }
            if (wanted == "DestroyEnvironmentBlock") {
                return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Environments::destroy));
            }
            return original(module, name);
        });
    AppUpdatesController().checkForUpdatesXp(folder_.file("none.exe"));
    EXPECT_THAT(Environments::calls, ElementsAre("create", "destroy"));
}

TEST_F(LaunchTest, LaunchesGiveBackAllTheyTake) {
    constexpr std::size_t kLaunches = 5;  // of each kind
    addMachineEnvironment();
    const std::string updater = folder_.file("qlupdater.exe");
    std::filesystem::copy_file(updater_, updater);
    AppUpdatesController controller;
    std::size_t updaters = 0;
    const auto hasRun = [&] {
        const auto record = finishedRecord(folder_.file("qlupdater.log"), 20000, ++updaters);
        return countOf(record, "ended\n") == updaters;
    };
    const auto launchEachWay = [&] {
        controller.checkForUpdatesXp(folder_.file("none.exe"));
        controller.checkForUpdatesXp(updater);
        EXPECT_TRUE(hasRun());
        controller.checkForUpdatesVista(folder_.file("none.exe"));
        controller.checkForUpdatesVista(updater);
        EXPECT_TRUE(hasRun());
    };
    launchEachWay();  // what the shell makes once and keeps
    const auto before = borrowedThings();
    for (std::size_t i = 0; i < kLaunches; ++i) launchEachWay();
    EXPECT_EQ(borrowedThings(), before);
}

}  // namespace jsw
