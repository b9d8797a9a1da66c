#include "tests/support/HostTest.h"

#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "tests/support/ChildProcess.h"

#include <windows.h>

#include <algorithm>
#include <sstream>

namespace jsw::test {

namespace {

constexpr std::size_t kComponentColumns = 26;  // 25 and a blank

/// The folder of all users for this process, with the log.
class LogFolder : public ::testing::Environment {
  public:
    void SetUp() override {
        provideSettings();
        ChildRole::runIfAsked();
        SetEnvironmentVariableA("ALLUSERSPROFILE", folder_.path().c_str());
    }

  private:
    TempFolder folder_;
};

const auto* const logFolder = ::testing::AddGlobalTestEnvironment(new LogFolder);

}  // namespace

void HostTest::SetUp() {
    registry_ = std::make_unique<PrivateRegistry>();
    Localize::createInstance(nullptr);
    RegistryKey(Localize::getInstance()->getRegistryPath(StoreKind::local), true);
}

void HostTest::TearDown() {
    DeleteFileA(logPath().c_str());
    BasicLogger::destroyInstance();
    Localize::destroy();
    registry_.reset();
}

void HostTest::switchLogOn() {
    const Settings settings;
    settings.setValue(setting::kLoggerKey, "startLog", 1);
    settings.setValue(setting::kLoggerKey, "Clocktime_In_Header", 0);
}

void HostTest::startLog() {
    switchLogOn();
    BasicLogger::createInstance(15);
}

std::string HostTest::logPath() {
    std::string folder(MAX_PATH, '\0');
    folder.resize(GetEnvironmentVariableA("ALLUSERSPROFILE", folder.data(), MAX_PATH));
    return folder + "\\" + Localize::getInstance()->localId() + "JSW.log";
}

std::vector<std::string> HostTest::logLines() {
    std::istringstream content(readFile(logPath()));
    std::vector<std::string> lines;
    for (std::string line; std::getline(content, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        line.erase(0, std::min(kComponentColumns, line.size()));
        lines.push_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
    }
    return lines;
}

bool HostTest::hasLine(const std::string& line) {
    const auto lines = logLines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

bool HostTest::logContains(const std::string& text) {
    const auto lines = logLines();
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
        return line.find(text) != std::string::npos;
    });
}

}  // namespace jsw::test
