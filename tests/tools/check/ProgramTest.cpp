// Whole runs of jswctl.exe on hosts with their own names in the real registry of the test's prefix.

#include "PublicLib/logging/LogFile.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "tests/support/TempFolder.h"
#include "tests/tools/check/RunProgram.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sddl.h>
#include <string>
#include <thread>

namespace jsw::ctl {
namespace {

/// A host without product line, whose store is removed with the object.
class ProgramTest : public ::testing::Test {
  protected:
    void SetUp() override {
        removeStore();
        host_ = folder_.write("zyct host.exe", "");
    }
    void TearDown() override { removeStore(); }

    static std::string store() { return "Software\\Quillon Tools\\JSW\\Local\\zyct"; }
    static void removeStore() { RegDeleteTreeA(HKEY_LOCAL_MACHINE, store().c_str()); }

    Outcome onHost(const std::string& command, const std::string& more = {}) {
        return jswctl(concat(command, " \"", host_, "\" ", more), folder_);
    }
    static std::string binFolder() {
        std::array<char, MAX_PATH> folder{};
        GetCurrentDirectoryA(MAX_PATH, folder.data());
        return folder.data();
    }
    void writeSettings(const std::string& root, const std::string& dllPath,
                       const std::string& dataPath) {
        folder_.write("zyctjsw.loc",
                      concat("[", root, "\\Settings]\r\nDllPath=string:", dllPath,
                             "\r\nDataPath=string:", dataPath, "\r\n[", root,
                             "\\Settings\\Controller]\r\nView=string:jswv.dll\r\n"
                             "Catalog=string:bcat.dll\r\nRulesEngine=string:reng.dll\r\n"));
    }
    static bool hasValue(const char* key, const char* name) {
        return RegGetValueA(HKEY_LOCAL_MACHINE, concat(store(), "\\", key).c_str(), name,
                            RRF_RT_ANY, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    }
    /// Restricts a key to administrators.
    static void closeKey(const char* key) {
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        KeyHandle handle;
        ConvertStringSecurityDescriptorToSecurityDescriptorA("D:(A;;KA;;;BA)(A;;KR;;;WD)",
                                                             SDDL_REVISION_1, &descriptor, nullptr);
        RegOpenKeyExA(HKEY_LOCAL_MACHINE, concat(store(), "\\", key).c_str(), 0, WRITE_DAC,
                      handle.put());
        EXPECT_EQ(RegSetKeySecurity(handle.get(), DACL_SECURITY_INFORMATION, descriptor),
                  ERROR_SUCCESS);
        LocalFree(descriptor);
    }
    static void setNumber(const char* key, const char* name, DWORD value) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, concat(store(), "\\", key).c_str(), name, REG_DWORD,
                        &value, sizeof value);
    }
    static void set(const char* key, const char* name, const std::string& value) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, concat(store(), "\\", key).c_str(), name, REG_SZ,
                        value.c_str(), static_cast<DWORD>(value.size() + 1));
    }

    test::TempFolder folder_;
    std::string host_;
};

TEST_F(ProgramTest, BadUseGetsOneLineAndItsExitCode) {
    for (const char* arguments :
         {"", "check", "check .", "check nobody.exe --json", "install nobody.exe",
          "module nothing bcat.dll", "module catalog data"}) {
        const Outcome run = jswctl(arguments, folder_);
        EXPECT_EQ(run.exitCode, 2U) << arguments;
        EXPECT_EQ(run.output, "") << arguments;
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
        EXPECT_TRUE(run.errors.starts_with("jswctl: ")) << run.errors;
    }
    const Outcome unknown = jswctl("frobnicate", folder_);
    EXPECT_EQ(unknown.exitCode, 2U);
    EXPECT_NE(unknown.errors.find("there is no command 'frobnicate'"), std::string::npos)
        << unknown.errors;
    EXPECT_EQ(jswctl("--version", folder_).output, "jswctl " JSWCTL_VERSION "\r\n");
}

TEST_F(ProgramTest, AHostWithoutAnythingIsToldWhatItLacks) {
    const Outcome run = onHost("check");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_TRUE(run.output.starts_with("         host: ")) << run.output;
    EXPECT_TRUE(run.says("settings in HKLM\\" + store())) << run.output;
    EXPECT_TRUE(run.says("jsw.dll: file ")) << run.output;
    EXPECT_TRUE(run.says("there is no settings file")) << run.output;
    EXPECT_TRUE(run.says("zyctjswv.dll; JSWInit returns 0")) << run.output;
    EXPECT_FALSE(hasValue("Settings", "DllPath"));
    // An empty store would prevent the installation of the file.
    const Outcome install = onHost("install");
    EXPECT_EQ(install.exitCode, 1U);
    EXPECT_NE(install.errors.find("nothing was changed"), std::string::npos) << install.errors;
    EXPECT_TRUE(onHost("remove").says("nothing was removed"));
}

TEST_F(ProgramTest, AFileForAnotherRootAndAStoreMadeTooEarlyAreNamed) {
    writeSettings("Software\\QuillonInkjet\\JSW\\Local\\zyct", ".", ".\\data");
    EXPECT_TRUE(onHost("check").says("error    settings file: no section of"));
    EXPECT_NE(onHost("install").errors.find("below this host's key"), std::string::npos);

    writeSettings(store(), ".", ".\\data");
    set("Logger", "startLog", "1");
    const Outcome run = onHost("check");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_TRUE(run.says("error    first run: did not happen")) << run.output;
    EXPECT_TRUE(run.says("Logger startLog is not stored as a number")) << run.output;
}

TEST_F(ProgramTest, AnInstalledHostIsWellAndStaysAsItWas) {
    writeSettings(store(), binFolder(), binFolder() + "\\data");
    const Outcome before = onHost("check");
    EXPECT_EQ(before.exitCode, 0U) << before.output;
    EXPECT_TRUE(before.says("the first job will install 5 values")) << before.output;
    EXPECT_TRUE(before.says("billboard DEFAULT: page ")) << before.output;
    EXPECT_TRUE(before.says("View = jswv.dll (in the settings file)")) << before.output;
    EXPECT_TRUE(before.says(" KB") || before.says("not there yet")) << before.output;

    EXPECT_TRUE(onHost("install", "--dry-run").says("Would install 5 values"));
    EXPECT_FALSE(hasValue("Settings", "DllPath"));
    EXPECT_EQ(onHost("install").exitCode, 0U);
    // As an administrator's first job may leave one: everyone can open all others.
    closeKey("Settings\\Controller");
    const Outcome after = onHost("check", "--json");
    EXPECT_TRUE(after.says("jobs of ordinary users cannot open 1 key")) << after.output;
    const auto report = nlohmann::json::parse(after.output, nullptr, false);
    ASSERT_TRUE(report.is_object()) << after.output;
    EXPECT_EQ(report["errors"], 0) << after.output;
    const auto& settings = report["settings"];
    const auto source = [&](const char* name) {
        const auto row = std::find_if(settings.begin(), settings.end(),
                                      [&](const auto& each) { return each["name"] == name; });
        return row == settings.end() ? std::string() : (*row)["source"].get<std::string>();
    };
    EXPECT_EQ(source("View"), "stored");
    EXPECT_EQ(source("CheckForUpdates"), "default");
    EXPECT_EQ(source("DefaultBillboard"), "default");
    EXPECT_EQ(source("DriverName"), "missing");
    // A job would write these.
    EXPECT_FALSE(hasValue("Settings\\Updater", "CheckForUpdates"));
    EXPECT_FALSE(hasValue("Settings\\Controller\\DefaultBillboard", "FileName"));
}

TEST_F(ProgramTest, ANewerSettingsFileIsBroughtInAndARemovedStoreCanBeBroughtBack) {
    writeSettings(store(), "C:\\old", "C:\\data");
    EXPECT_EQ(onHost("install").exitCode, 0U);
    set("Settings\\Controller", "View", "updated.dll");
    setNumber("Settings\\Updater", "CompleteSoftwareUpdated", 2);
    RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, (store() + "\\Settings").c_str(), "DataPath");
    writeSettings(store(), "C:\\new", "C:\\data");
    const Outcome check = onHost("check");
    EXPECT_TRUE(check.says("DllPath is string:C:\\old, string:C:\\new in the settings file"))
        << check.output;
    EXPECT_TRUE(check.says("1 of 5 values of ")) << check.output;
    for (const char* how : {"--update --dry-run", "--update"}) {
        const Outcome run = onHost("install", how);
        EXPECT_EQ(run.exitCode, 0U);
        EXPECT_TRUE(run.says("Settings DllPath: string:C:\\old -> string:C:\\new")) << run.output;
        EXPECT_TRUE(run.says("Settings DataPath: (none) -> string:C:\\data")) << run.output;
        EXPECT_TRUE(run.says("View: string:updated.dll, not string:jswv.dll")) << run.output;
    }
    EXPECT_TRUE(onHost("install", "--update").says("0 values changed"));
    folder_.write("zyctjsw.loc", concat("[", store(), "\\New]\r\nA=string:b\r\nC=untyped\r\n"));
    EXPECT_TRUE(onHost("install", "--update").says("1 values changed"));
    EXPECT_FALSE(onHost("check").says("the first is HKLM\\" + store() + "\\New"));

    EXPECT_TRUE(onHost("remove", "--dry-run").says("Would remove HKLM\\" + store()));
    EXPECT_TRUE(hasValue("Settings", "DllPath"));
    EXPECT_EQ(onHost("remove", "--backup C:\\nowhere\\at\\all.reg").exitCode, 1U);
    EXPECT_TRUE(hasValue("Settings", "DllPath"));
    const std::string backup = folder_.file("backup.reg");
    EXPECT_TRUE(onHost("remove", "--backup \"" + backup + "\"").says("Removed HKLM\\" + store()));
    EXPECT_FALSE(hasValue("Settings", "DllPath"));
    std::system(("reg import \"" + backup + "\"").c_str());
    EXPECT_TRUE(hasValue("Settings", "DllPath"));
}

TEST_F(ProgramTest, ALogIsRotatedWithoutLosingALine) {
    const std::string base = std::string(std::getenv("ALLUSERSPROFILE")) + "\\zyctJSW";
    const std::string log = base + ".log";
    const std::string old = base + ".old.log";
    std::size_t lines = 0;
    const auto count = [&](const std::string& file) {
        const std::string text = test::readFile(file);
        lines += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
        DeleteFileA(file.c_str());
    };
    count(log);
    count(old);
    lines = 0;
    std::atomic<bool> rotated{false};
    std::size_t written = 0;
    std::thread writer([&] {
        LogFile file(log);
        for (; !rotated || written < 50; ++written) file.append("a line\r\n", [] {});
    });
    while (GetFileAttributesA(log.c_str()) == INVALID_FILE_ATTRIBUTES) Sleep(1);
    EXPECT_EQ(jswctl("log --rotate \"" + host_ + "\"", folder_).exitCode, 0U);
    rotated = true;
    writer.join();
    LogFile(log).append("a line\r\n", [] {});
    count(old);
    EXPECT_GT(lines, 0U);
    count(log);
    EXPECT_EQ(lines, written + 1);
}

TEST_F(ProgramTest, MisspeltValuesAbsentPagesAndRelativeFoldersAreNamed) {
    writeSettings(store(), ".", folder_.path());
    EXPECT_EQ(onHost("install").exitCode, 0U);
    set("Settings", "DefaultBilboard", "X");
    const Outcome run = onHost("check");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_TRUE(run.says("Did you mean DefaultBillboard?")) << run.output;
    EXPECT_TRUE(run.says("DllPath '.' is relative")) << run.output;
    EXPECT_TRUE(run.says("error    billboard DEFAULT: ")) << run.output;
}

TEST_F(ProgramTest, TheSampleContentIsWithoutFaultAndIsShown) {
    const Outcome run = jswctl("content data --show welcome.jbb --seconds 1", folder_);
    EXPECT_EQ(run.exitCode, 0U) << run.output;
    EXPECT_FALSE(run.says(".jbb: the access key")) << run.output;
    EXPECT_TRUE(run.says("welcome.jbb: shown in de")) << run.output;
}

}  // namespace
}  // namespace jsw::ctl
