#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/updates/AppUpdatesController.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/ProcessState.h"
#include "tests/support/WindowsVersion.h"
#include "tests/support/Words.h"

#include <windows.h>

#include <shellapi.h>

#include <cstring>
#include <filesystem>
#include <gmock/gmock.h>
#include <tuple>

namespace jsw {

using namespace ::testing;

namespace {

constexpr char kHostVariable[] = "JSW_UPDATER_HOST";

/// Creates the key from which Windows takes every user's environment.
void addMachineEnvironment() {
    RegistryKey("System\\CurrentControlSet\\Control\\Session Manager\\Environment", true);
}

/// Runs an update check that is due; false if the date does not change.
bool checkWhenDue() {
    const Settings settings;
    settings.write(setting::kDateLastChecked, "1/1/2000");
    AppUpdatesController().checkForUpdates();
    std::string date;
    settings.read(setting::kDateLastChecked, date);
    return date != "1/1/2000";
}

/// A host program whose update check is due; argument is its module folder. On a system without
/// updates it checks with many names and fails if anything is started.
const test::ChildRole checkingHost("check for updates", [](const std::string& folder) {
    const test::PrivateRegistry registry;
    addMachineEnvironment();
    Localize::createInstance(nullptr);
    const Settings settings;
    settings.write(setting::kDllPath, folder);
    test::HostTest::switchLogOn();
    BasicLogger::createInstance(15);
    if (OsVersion::instance().isXpOrLater()) {
        settings.write(setting::kUpdaterExecutable, "qlupdater.exe");
        return checkWhenDue() ? 0 : 1;
    }
    bool started = false;
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    const auto shell =
        test::replaceImport<decltype(ShellExecuteA)>(imports, "ShellExecuteA", [&](auto...) {
            started = true;
            return HINSTANCE{};
        });
    const auto create = test::replaceImport<decltype(CreateProcessAsUserA)>(
        imports, "CreateProcessAsUserA", [&](auto...) {
            started = true;
            return FALSE;
        });
    bool checked = checkWhenDue();  // without a name
    for (const char* name : {"", ".", "..\\qlupdater.exe", "qlupdater.exe"}) {
        settings.write(setting::kUpdaterExecutable, name);
        checked = checkWhenDue() && checked;
    }
    return checked && !started ? 0 : 1;
});

/// The record of this number of updaters, when all of them have ended.
std::string finishedRecord(const std::string& file, std::size_t updaters) {
    std::string record;
    EXPECT_TRUE(test::eventually([&] {
        record = test::readFile(file);
        std::erase(record, '\r');
        return test::countOf("ended\n", record) == updaters;
    }));
    return record;
}

/// Resources that a launch takes temporarily.
auto borrowedThings() {
    return std::make_tuple(test::processState().nextHandle, GetModuleHandleA("userenv.dll"),
                           GetModuleHandleA("wtsapi32.dll"));
}

struct Outcome {
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
        // Visible to an updater that inherits this process's environment.
        SetEnvironmentVariableA(kHostVariable, "qlzz");
    }

    void TearDown() override {
        SetEnvironmentVariableA(kHostVariable, nullptr);
        HostTest::TearDown();
    }

    /// Lets a copy of this program with a host's name check for updates on a version of Windows.
    /// The updater is in a separate folder.
    Outcome checkOn(const std::string& version, std::size_t updaters = 1) {
        const std::string name = "ql" + version.substr(version.size() - 2) + "check.exe";
        const std::string host = folder_.file(name);
        const std::string programs = folder_.file("Pro gram");
        std::filesystem::create_directories(programs);
        std::filesystem::copy_file(moduleFileName(nullptr), host);
        std::filesystem::copy_file(updater_, programs + "\\qlupdater.exe");
        // What a command line without quotes would start.
        std::filesystem::copy_file(updater_, folder_.file("Pro.exe"));
        const test::WindowsVersion chosen(name, version);
        const std::string log = std::string(folderPart(logPath())) + localIdOf(host) + "JSW.log";
        Outcome run;
        EXPECT_EQ(test::ChildProcess("check for updates", programs, host).wait(60000), 0U);
        run.record = finishedRecord(programs + "\\qlupdater.log", updaters);
        run.log = test::readFile(log);
        std::filesystem::remove(log);
        return run;
    }

    std::string updater_;
};

TEST_F(LaunchTest, Version6StartsItElevatedThroughTheShell) {
    const Outcome run = checkOn("vista");
    EXPECT_THAT(run.log, HasSubstr("checkForUpdatesVista: Updater launched successfully."));
    EXPECT_THAT(run.record, HasSubstr("elevation asked for: yes"));
    EXPECT_THAT(run.record, HasSubstr("qlupdater.exe\" -UAC"));
}

TEST_F(LaunchTest, Version5StartsItAsTheConsoleUserWithHisEnvironment) {
    const Outcome run = checkOn("winxp");
    EXPECT_THAT(run.log, HasSubstr("checkForUpdatesXp: Launching="));
    EXPECT_THAT(run.log, HasSubstr("API CreateProcessAsUser success, retCode=1."));
    EXPECT_THAT(run.log, HasSubstr("-AppUpdatesController::getSessionUserToken:  rc=true"));
    EXPECT_THAT(run.record, HasSubstr("elevation asked for: no"));
    EXPECT_THAT(run.record, HasSubstr("session: 1\n"));
    EXPECT_THAT(run.record, HasSubstr("host: qlde (default)"));
}

TEST_F(LaunchTest, OlderVersionsRefuseAfterTheDateWasReset) {
    const Outcome run = checkOn("win2k", 0);
    EXPECT_EQ(
        test::countOf("checkForUpdates() OS is not XP or greater. NO Updates available.", run.log),
        5u);
    EXPECT_THAT(run.log, Not(HasSubstr("FAILED")));
}

TEST_F(LaunchTest, TheConsoleUserGetsAConsoleAnEnvironmentAndNothingInherited) {
    addMachineEnvironment();
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    std::string token, process;
    const auto duplicate = test::replaceImport<decltype(DuplicateTokenEx)>(
        imports, "DuplicateTokenEx",
        [&](auto original, HANDLE user, DWORD access, SECURITY_ATTRIBUTES* security,
            SECURITY_IMPERSONATION_LEVEL level, TOKEN_TYPE type, HANDLE* result) {
            token = concat(access, " ", int{level}, " ", int{type});
            return original(user, access, security, level, type, result);
        });
    const auto create = test::replaceImport<decltype(CreateProcessAsUserA)>(
        imports, "CreateProcessAsUserA",
        [&](HANDLE user, const char* application, char* commandLine,
            SECURITY_ATTRIBUTES* processSecurity, SECURITY_ATTRIBUTES* threadSecurity, BOOL inherit,
            DWORD flags, void* environment, const char* directory, STARTUPINFOA* startup,
            PROCESS_INFORMATION*) {
            STARTUPINFOA empty{};
            empty.cb = sizeof(empty);
            process = concat(commandLine, " ", flags);
            EXPECT_TRUE(user != nullptr && environment != nullptr && inherit == FALSE);
            EXPECT_TRUE(application == nullptr && directory == nullptr);
            EXPECT_TRUE(processSecurity == nullptr && threadSecurity == nullptr);
            EXPECT_EQ(std::memcmp(startup, &empty, sizeof(empty)), 0);
            return FALSE;
        });
    AppUpdatesController().checkForUpdatesXp("C:\\Pro gram\\qlupdater.exe");
    EXPECT_EQ(token,
              concat(MAXIMUM_ALLOWED, " ", int{SecurityIdentification}, " ", int{TokenPrimary}));
    EXPECT_EQ(process,
              concat("\"C:\\Pro gram\\qlupdater.exe\" ",
                     CREATE_NEW_CONSOLE | NORMAL_PRIORITY_CLASS | CREATE_UNICODE_ENVIRONMENT));
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
        const char *function, *line;
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

/// Records the library's calls of userenv.dll.
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
    constexpr std::size_t kLaunches = 2;  // of each kind
    addMachineEnvironment();
    const std::string updater = folder_.file("qlupdater.exe");
    std::filesystem::copy_file(updater_, updater);
    AppUpdatesController controller;
    std::size_t updaters = 0;
    const auto launchEachWay = [&] {
        controller.checkForUpdatesXp(folder_.file("none.exe"));
        controller.checkForUpdatesXp(updater);
        finishedRecord(folder_.file("qlupdater.log"), ++updaters);
        controller.checkForUpdatesVista(folder_.file("none.exe"));
        controller.checkForUpdatesVista(updater);
        finishedRecord(folder_.file("qlupdater.log"), ++updaters);
    };
    launchEachWay();  // objects that the shell creates once and keeps
    const auto before = borrowedThings();
    for (std::size_t i = 0; i < kLaunches; ++i) launchEachWay();
    EXPECT_EQ(borrowedThings(), before);
}

}  // namespace jsw
