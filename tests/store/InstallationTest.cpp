#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "jsw/FirstRun.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace jsw {

/// A first run: no store yet, and the settings file beside the test program.
class InstallationTest : public test::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        const auto names = Localize::getInstance();
        file_ = std::string(folderPart(names->modulePath())) + names->settingsFileName();
        store_ = names->getRegistryPath(StoreKind::local);
        RegistryKey::recurseDeleteKey(names->getProductLineRoot(), HKEY_LOCAL_MACHINE);
        BasicLogger::createInstance(15);
        EXPECT_FALSE(isLogEnabled(component::kJsw, kLogError));
    }

    static bool installStoreIfMissing() { return FirstRun().installStoreIfMissing(); }

    void TearDown() override {
        std::filesystem::remove(file_);
        HostTest::TearDown();
    }

    void writeSettings(const std::string& line) const {
        std::ofstream(file_, std::ios::binary) << "[" << store_ << "Settings]\r\n" << line;
    }

    static std::string dataPath() {
        std::string path = "(none)";
        Settings().read(setting::kDataPath, path);
        return path;
    }

    std::string file_;
    std::string store_;
};

TEST_F(InstallationTest, FailureIsAnInternalErrorAndIsLoggedAtOnce) {
    EXPECT_FALSE(installStoreIfMissing());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INTERNAL_ERROR));
    EXPECT_TRUE(logContains("ERROR - unable to install all settings of " + file_));
}

TEST_F(InstallationTest, AHostThatMayNotMakeAStoreSaysSo) {
    writeSettings("DataPath=string:C:\\Data\r\n");
    const auto refuse = test::replaceImport<decltype(RegCreateKeyExA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegCreateKeyExA",
        [](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    EXPECT_FALSE(installStoreIfMissing());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INTERNAL_ERROR));
    EXPECT_TRUE(logContains("ERROR - file:RegistryKey:73: RegistryKey::regCreateKeyEx(): Win32(5"));
}

/// One refusal must not overwrite what a user has changed since.
TEST_F(InstallationTest, AStoreThatCannotBeOpenedIsLeftAsItIs) {
    writeSettings("DataPath=string:C:\\Data\r\n");
    EXPECT_TRUE(installStoreIfMissing());
    Settings().write(setting::kDataPath, "D:\\mine");
    int opens = 0;
    const auto refuseOnce = test::replaceImport<decltype(RegOpenKeyExA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegOpenKeyExA",
        [&](auto original, auto... arguments) {
            return ++opens == 1 ? LSTATUS{ERROR_ACCESS_DENIED} : original(arguments...);
        });
    EXPECT_FALSE(installStoreIfMissing());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INTERNAL_ERROR));
    EXPECT_EQ(dataPath(), "D:\\mine");
    EXPECT_TRUE(logContains("ERROR - unable to open the store " + store_ + ": Win32(5"));
}

/// In any case it does not overwrite what a job stores afterwards.
TEST_F(InstallationTest, AFirstRunThatHasComeToItsEndIsNotDoneAgain) {
    for (const std::string found : {"no file", "an empty file", "a locked file"}) {
        SCOPED_TRACE(found);
        RegistryKey::recurseDeleteKey(store_, HKEY_LOCAL_MACHINE);
        std::filesystem::remove(file_);
        KernelHandle locked;
        if (found == "an empty file") std::ofstream(file_, std::ios::binary);
        if (found == "a locked file") {
            writeSettings("DataPath=string:C:\\Data\r\n");
            locked.reset(CreateFileA(file_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
        }
        EXPECT_FALSE(installStoreIfMissing());
        locked.reset();
        writeSettings("DataPath=string:C:\\Data\r\n");
        EXPECT_TRUE(installStoreIfMissing());
        EXPECT_EQ(dataPath(), "(none)");
    }
}

}  // namespace jsw
