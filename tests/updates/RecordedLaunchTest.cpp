// With what the updater is started as the console user, recorded in the place of the system.

#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/updates/AppUpdatesController.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/WindowsVersion.h"

#include <windows.h>

#include <cstring>
#include <filesystem>
#include <fstream>

namespace jsw {

namespace {

constexpr char kUpdater[] = "C:\\Pro gram\\qlupdater.exe";

/// A host whose check is due and whose updater must not really start; argument is the record.
const test::ChildRole recordedHost("check for updates, recorded", [](const std::string& file) {
    const test::PrivateRegistry registry;
    RegistryKey("System\\CurrentControlSet\\Control\\Session Manager\\Environment", true);
    Localize::createInstance(nullptr);
    const Settings settings;
    settings.write(setting::kUpdaterExecutable, "qlupdater.exe");
    settings.write(setting::kDllPath, "C:\\Pro gram");
    settings.write(setting::kDateLastChecked, "1/1/2000");
    std::ofstream record(file);
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    const auto duplicate = test::replaceImport<decltype(DuplicateTokenEx)>(
        imports, "DuplicateTokenEx",
        [&](auto original, HANDLE token, DWORD access, SECURITY_ATTRIBUTES* security,
            SECURITY_IMPERSONATION_LEVEL level, TOKEN_TYPE type, HANDLE* result) -> BOOL {
            record << "token " << access << ' ' << level << ' ' << type << '\n';
            return original(token, access, security, level, type, result);
        });
    const auto create = test::replaceImport<decltype(CreateProcessAsUserA)>(
        imports, "CreateProcessAsUserA",
        [&](HANDLE token, const char* application, char* commandLine,
            SECURITY_ATTRIBUTES* processSecurity, SECURITY_ATTRIBUTES* threadSecurity, BOOL inherit,
            DWORD flags, void* environment, const char* directory, STARTUPINFOA* startup,
            PROCESS_INFORMATION*) -> BOOL {
            STARTUPINFOA empty{};
            empty.cb = sizeof(empty);
            record << "process " << (token != nullptr) << (application == nullptr) << ' '
                   << commandLine << ' ' << (processSecurity == nullptr)
                   << (threadSecurity == nullptr) << inherit << ' ' << flags << ' '
                   << (environment != nullptr) << (directory == nullptr)
                   << (std::memcmp(startup, &empty, sizeof(empty)) == 0) << '\n';
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        });
    AppUpdatesController().checkForUpdates();
    return 0;
});

}  // namespace

using RecordedLaunchTest = test::HostTest;

TEST_F(RecordedLaunchTest, TheConsoleUserGetsAConsoleAnEnvironmentAndNothingInherited) {
    const std::string name = "qlxprecord.exe";
    std::filesystem::copy_file(moduleFileName(nullptr), folder_.file(name));
    const test::WindowsVersion chosen(name, "winxp64");
    const std::string record = folder_.file("record.txt");
    test::ChildProcess child("check for updates, recorded", record, folder_.file(name));
    EXPECT_EQ(child.wait(60000), 0U);
    std::string lines = test::readFile(record);
    std::erase(lines, '\r');
    const DWORD flags = CREATE_NEW_CONSOLE | NORMAL_PRIORITY_CLASS | CREATE_UNICODE_ENVIRONMENT;
    EXPECT_EQ(lines,
              concat("token ", MAXIMUM_ALLOWED, " ", int{SecurityIdentification}, " ",
                     int{TokenPrimary}, "\nprocess 11 \"", kUpdater, "\" 110 ", flags, " 111\n"));
}

}  // namespace jsw
