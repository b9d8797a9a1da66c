#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/Settings.h"
#include "jsw/settings/macros/PageDirectUtilities.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HostTest.h"
#include "tests/support/WindowsVersion.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace jsw {

namespace {

/// Answers the code as its exit code.
const test::ChildRole askingHost("ask for the OS code", [](const std::string&) {
    const test::PrivateRegistry registry;
    Localize::createInstance(nullptr);
    const Settings settings;
    settings.setValue(setting::kLoggerKey, "startLog", 1);
    settings.setValue(setting::kLoggerKey, "Clocktime_In_Header", 0);
    BasicLogger::createInstance(15);
    return std::stoi(PageDirectUtilities::getOsCode());
});

}  // namespace

class OsCodeTest : public test::HostTest {
  protected:
    struct Outcome {
        std::uint32_t code;
        std::string log;
    };

    /// Asks a copy of this program, named like a host, on a version of Windows.
    Outcome askOn(const std::string& version) const {
        const std::string name = "ql" + version.substr(version.size() - 2) + "code.exe";
        const std::string host = folder_.file(name);
        std::filesystem::copy_file(moduleFileName(nullptr), host);
        const test::WindowsVersion chosen(name, version);
        test::ChildProcess child("ask for the OS code", "", host);
        Outcome run{child.wait(60000), ""};
        const std::string log = std::string(folderPart(logPath())) + localIdOf(host) + "JSW.log";
        run.log = test::readFile(log);
        std::filesystem::remove(log);
        return run;
    }
};

TEST_F(OsCodeTest, IsThatOfTheWindowsThatRuns) {
    constexpr struct {
        const char* version;
        std::uint32_t code;
        const char* note;
    } rows[] = {
        {"winxp", 5, ""},
        {"winxp64", 9, "getOsCode()is 64 bit XP"},
        {"vista", 11, "getOsCode()is 64 bit Vista"},
        {"win7", 3, ""},
        {"win2k", 3, ""},
    };
    for (const auto& row : rows) {
        const Outcome run = askOn(row.version);
        EXPECT_EQ(run.code, row.code) << row.version;
        EXPECT_THAT(run.log, ::testing::HasSubstr(row.note)) << row.version;
        EXPECT_THAT(run.log, ::testing::HasSubstr("-PageDirectUtilities::getOsCode() rc=" +
                                                  std::to_string(row.code)))
            << row.version;
        if (*row.note == '\0') {
            EXPECT_THAT(run.log, ::testing::Not(::testing::HasSubstr("64 bit"))) << row.version;
        }
    }
}

}  // namespace jsw
