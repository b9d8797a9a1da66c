// Whole runs of jswctl.exe on hosts with their own names in the real registry of the test's prefix.

#include "PublicLib/logging/LogFile.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "tests/support/Eventually.h"
#include "tests/support/TempFolder.h"
#include <jsw/view.h>

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
#include <utility>

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

#define JSWCTL_TEST_NAME(name, type) #name,

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
    EXPECT_TRUE(text.says("it is not a Windows program or library")) << text.output;
}

TEST_F(ProgramTest, AModuleIsTriedInAProcessOfItsOwn) {
    const Outcome good = jswctl("module catalog bcat.dll", folder_);
    EXPECT_EQ(good.exitCode, 0U) << good.output;
    EXPECT_TRUE(good.says("GetBillboardFileName(DEFAULT): ")) << good.output;
    EXPECT_TRUE(good.says("returned welcome.jbb")) << good.output;
    const std::pair<std::string, const char*> rows[] = {
        {"crash", "it crashes in GetBillboardFileName(DEFAULT) (0xC0000005)"},
        {"literal", "GetBillboardFileName(DEFAULT) returns memory that was not allocated"},
        {"leak", "2 of the texts and lists that it allocated"},
        {"loop", "it does not return from GetBillboardFileName(DEFAULT)"},
    };
    for (const auto& [fault, finding] : rows) {
        SetEnvironmentVariableA("JSWCTL_FAULT", fault.c_str());
        const std::string patience = fault == "loop" ? " --seconds 4" : "";
        const Outcome run = jswctl("module catalog faulty_catalog.dll" + patience, folder_);
        EXPECT_EQ(run.exitCode, 1U) << fault;
        EXPECT_TRUE(run.says(finding)) << fault << run.output << run.errors;
    }
}

TEST_F(ProgramTest, ATrialEndsWithTheToolThatIsEnded) {
    const auto loops = [] {
        return static_cast<bool>(KernelHandle(OpenMutexA(SYNCHRONIZE, FALSE, "jswctl-test-loop")));
    };
    SetEnvironmentVariableA("JSWCTL_FAULT", "loop");
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    char command[] = "jswctl.exe module catalog faulty_catalog.dll --seconds 300";
    PROCESS_INFORMATION info{};
    ASSERT_TRUE(CreateProcessA(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &info));
    const KernelHandle process(info.hProcess);
    const KernelHandle thread(info.hThread);
    EXPECT_TRUE(test::eventually(loops));
    TerminateProcess(process.get(), 1);
    EXPECT_TRUE(test::eventually([&] { return !loops(); }));
}

/// The user chooses the trial job, and the sample engine uses it.
TEST_F(ProgramTest, AnEngineIsToldTheTrialJobAndAViewGoesThroughAllItsCalls) {
    const Outcome rules =
        jswctl("module rules reng.dll --pages 3 --copies 2 --ink 90,10 --job report.pdf", folder_);
    EXPECT_TRUE(rules.says("the job 'report.pdf' on 'jswctl', pages 3, copies 2, ink 90,10"))
        << rules.output;
    EXPECT_TRUE(rules.says("EvaluateRule: ")) << rules.output;
    const Outcome view = jswctl("module view jswv.dll", folder_);
    EXPECT_EQ(view.exitCode, 0U) << view.output;
    for (const char* name : {JSW_VIEW_ENTRY_POINTS(JSWCTL_TEST_NAME)}) {
        EXPECT_TRUE(view.says(concat(" ", name, ": "))) << name;
    }
}

TEST_F(ProgramTest, TheSampleContentIsWithoutFaultAndIsShown) {
    const Outcome run = jswctl("content data --show welcome.jbb --seconds 1", folder_);
    EXPECT_EQ(run.exitCode, 0U) << run.output;
    EXPECT_FALSE(run.says(".jbb: the access key")) << run.output;
    EXPECT_TRUE(run.says("welcome.jbb: shown in de")) << run.output;
}

}  // namespace
}  // namespace jsw::ctl
