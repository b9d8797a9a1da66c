// Whole runs of jswctl.exe on hosts of their own names in the real registry of the test's prefix.

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

namespace jsw::ctl {
namespace {

struct Outcome {
    DWORD exitCode;
    std::string output;
    std::string errors;

    bool says(const std::string& text) const { return output.find(text) != std::string::npos; }
};

/// A file that a child process writes its stream to.
KernelHandle streamFile(const std::string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return KernelHandle(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

Outcome jswctl(const std::string& arguments, const test::TempFolder& folder) {
    static int count = 0;
    const std::string output = folder.file(concat("output", ++count, ".txt"));
    const std::string errors = folder.file(concat("errors", count, ".txt"));
    KernelHandle outputFile = streamFile(output);
    KernelHandle errorFile = streamFile(errors);
    EXPECT_TRUE(outputFile && errorFile);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = outputFile.get();
    startup.hStdError = errorFile.get();
    std::string command = "jswctl.exe " + arguments;
    PROCESS_INFORMATION info{};
    EXPECT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &startup, &info));
    const KernelHandle process(info.hProcess);
    const KernelHandle thread(info.hThread);
    WaitForSingleObject(process.get(), INFINITE);
    Outcome run{};
    GetExitCodeProcess(process.get(), &run.exitCode);
    outputFile.reset();
    errorFile.reset();
    run.output = test::readFile(output);
    run.errors = test::readFile(errors);
    return run;
}

/// A host whose name begins with no product line's letters, with a store that goes with it.
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
    EXPECT_TRUE(
        run.says("warning  names: id zyct begins with no known product line's letters, so "
                 "its settings lie in HKLM\\" +
                 store()))
        << run.output;
    EXPECT_TRUE(run.says("there is no settings file")) << run.output;
    EXPECT_TRUE(run.says("zyctjswv.dll; JSWInit answers 0")) << run.output;
    EXPECT_FALSE(hasValue("Settings", "DllPath"));
    // An empty store would keep the file from being installed.
    const Outcome install = onHost("install");
    EXPECT_EQ(install.exitCode, 1U);
    EXPECT_NE(install.errors.find("nothing was changed"), std::string::npos) << install.errors;
    EXPECT_TRUE(onHost("remove").says("nothing was removed"));
}

TEST_F(ProgramTest, AFileForAnotherRootAndAStoreMadeTooEarlyAreNamed) {
    writeSettings("Software\\QuillonInkjet\\JSW\\Local\\zyct", ".", ".\\data");
    EXPECT_TRUE(onHost("check").says("error    settings file: no section of"));

    writeSettings(store(), ".", ".\\data");
    set("Logger", "startLog", "1");
    const Outcome run = onHost("check");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_TRUE(run.says("error    first run: was missed")) << run.output;
    EXPECT_TRUE(run.says("Logger startLog is stored with another type than number")) << run.output;
}

TEST_F(ProgramTest, AnInstalledHostIsWellAndStaysAsItWas) {
    writeSettings(store(), binFolder(), binFolder() + "\\data");
    const Outcome before = onHost("check");
    EXPECT_EQ(before.exitCode, 0U) << before.output;
    EXPECT_TRUE(before.says("the first job will install 5 values")) << before.output;
    EXPECT_TRUE(before.says("billboard DEFAULT: page ")) << before.output;

    EXPECT_EQ(onHost("install").exitCode, 0U);
    const Outcome after = onHost("check", "--json");
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
    // A job would have written these.
    EXPECT_FALSE(hasValue("Settings\\Updater", "CheckForUpdates"));
    EXPECT_FALSE(hasValue("Settings\\Controller\\DefaultBillboard", "FileName"));

    EXPECT_TRUE(onHost("remove").says("Removed HKLM\\" + store()));
    EXPECT_FALSE(hasValue("Settings", "DllPath"));
}

TEST_F(ProgramTest, MisspeltValuesAbsentPagesAndRelativeFoldersAreNamed) {
    writeSettings(store(), ".", folder_.path());
    EXPECT_EQ(onHost("install").exitCode, 0U);
    set("Settings", "DefaultBilboard", "X");
    const Outcome run = onHost("check");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_TRUE(run.says("Was DefaultBillboard meant?")) << run.output;
    EXPECT_TRUE(run.says("DllPath '.' is relative")) << run.output;
    EXPECT_TRUE(run.says("error    billboard DEFAULT: ")) << run.output;
}

/// A real module with one of its bytes, or names, changed.
std::string spoilt(const test::TempFolder& folder, const std::string& name, const std::string& from,
                   const std::string& to) {
    std::string bytes = test::readFile("scripted_catalog.dll");
    for (std::size_t at = 0; (at = bytes.find(from, at)) != std::string::npos; at += to.size()) {
        bytes.replace(at, to.size(), to);
    }
    return folder.write(name, bytes);
}

TEST_F(ProgramTest, FaultsOfAModuleAreFoundInItsFile) {
    const auto check = [&](const std::string& file) {
        return jswctl("module catalog \"" + file + "\"", folder_);
    };
    const std::string headers("PE\0\0\x64\x86", 6);
    const std::string thirtyTwo("PE\0\0\x4C\x01", 6);
    EXPECT_TRUE(check(spoilt(folder_, "a.dll", headers, thirtyTwo)).says("is a 32-bit library"));
    EXPECT_TRUE(check(spoilt(folder_, "b.dll", "KERNEL32.dll", "KERNEL99.dll"))
                    .says("b.dll needs KERNEL99.dll, which is not found"));
    const Outcome misspelt =
        check(spoilt(folder_, "c.dll", "GetBillboardFileName", "GetBillboardFilename"));
    EXPECT_EQ(misspelt.exitCode, 1U);
    EXPECT_TRUE(
        misspelt.says("GetBillboardFileName is missing; the module has "
                      "GetBillboardFilename"))
        << misspelt.output;
    const Outcome text = check(folder_.write("d.dll", "no module"));
    EXPECT_EQ(text.exitCode, 1U);
    EXPECT_TRUE(text.says("it is no Windows program or library")) << text.output;
}

TEST_F(ProgramTest, AModuleIsCalledInAProcessOfItsOwn) {
    const Outcome good = jswctl("module catalog bcat.dll", folder_);
    EXPECT_EQ(good.exitCode, 0U) << good.output;
    EXPECT_TRUE(good.says("GetBillboardFileName(DEFAULT): ")) << good.output;
    EXPECT_TRUE(good.says("answer welcome.jbb")) << good.output;
    const Outcome crash = jswctl("module catalog crashing_catalog.dll", folder_);
    EXPECT_EQ(crash.exitCode, 1U);
    EXPECT_TRUE(crash.says("it crashes in GetBillboardFileName(DEFAULT) (0xC0000005)"))
        << crash.output << crash.errors;
}

}  // namespace
}  // namespace jsw::ctl
