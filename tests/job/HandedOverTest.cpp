// The library's arguments for system functions, recorded by replacements, and the state of the job
// at that time.

#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ImportTable.h"
#include "tests/support/SecurityText.h"

#include <windows.h>

#include <process.h>

#include <io.h>

namespace jsw {

using namespace ::testing;

class HandedOverTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
        script_.ruleResults = {"TIP"};
    }

    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
    const test::ImportTable imports_{library_.get()};
};

TEST_F(HandedOverTest, TheShellIsAskedWithoutDialogsAndExpandsVariables) {
    const std::string longest = "http:" + std::string(994, 'x');
    script_.billboards["DEFAULT"].actions = {"%windir%\\notepad.exe", longest + "yy"};
    const test::RecordedShell shell;
    script_.ruleResults.clear();
    startJob();
    waitForRules();
    script_.clickBillboard("launch_app", 0);
    script_.clickBillboard("LAUNCH_URL", 0);
    script_.clickBillboard("Launch_Url", 1);
    const std::string rest = concat("|true|", 0x8600, "|", SW_SHOWNORMAL, "|true");
    const std::string home = "|null|%HOMEDRIVE%%HOMEPATH%" + rest;
    EXPECT_THAT(shell.details.calls(),
                ElementsAre("open|%windir%\\notepad.exe|null|null" + rest,
                            "open|%windir%\\notepad.exe" + home, "open|" + longest + home));
}

TEST_F(HandedOverTest, AFailureOfTheShellIsAnErrorAndGoesNoFurther) {
    script_.billboards["DEFAULT"].actions = {"tool.exe"};
    script_.ruleResults.clear();
    test::RecordedShell shell;
    shell.error = 1155;
    Settings().setValue(setting::kLoggerKey, "startLog", 0);
    startJob();
    script_.clickBillboard("LAUNCH_APP", 0);
    script_.clickBillboard("LAUNCH_URL", 0);
    EXPECT_THAT(logLines(), ElementsAre("Unable to launch application, error=1155",
                                        "Unable to launch url, error=1155"));
}

TEST_F(HandedOverTest, TheUpdaterIsAskedForWhenTheJobIsGone) {
    const Settings settings;
    settings.write(setting::kUpdaterExecutable, "updater.exe");
    std::vector<std::string> view, history;
    bool modulesAreFree = false;
    test::RecordedShell shell;
    shell.onCall = [&] {
        script_.clickBillboard("CURRENT", 0);  // too late
        view = viewCalls("DisplayBillboard");
        for (const auto& call : viewCalls("Uninitialize")) view.push_back(call);
        history = historyIds();
        modulesAreFree = GetModuleHandleA("scripted_catalog.dll") == nullptr &&
                         GetModuleHandleA("scripted_rules.dll") == nullptr;
    };
    const auto isLaunched = [&](DWORD error) {
        shell.error = error;
        settings.write(setting::kCheckForUpdates, 1);
        settings.write(setting::kDateLastChecked, "1/1/2000");
        script_.view.clear();
        DeleteFileA(logPath().c_str());
        runJob();
        return logContains("Updater launched successfully.");
    };
    EXPECT_TRUE(isLaunched(0));
    EXPECT_THAT(shell.details.calls(),
                ElementsAre(concat("RunAs|.\\updater.exe|-UAC|null|", SW_SHOWNORMAL, "|true")));
    EXPECT_THAT(view, ElementsAre("DisplayBillboard(default.bb,false,false)",
                                  "DisplayBillboard(tip.bb,false,false)", "Uninitialize()"));
    EXPECT_THAT(history, ElementsAre("TIP"));
    EXPECT_TRUE(modulesAreFree);
    settings.write(setting::kDllPath, ".\\.");  // where the modules and the updater are now
    EXPECT_FALSE(isLaunched(ERROR_CANCELLED));
    EXPECT_EQ(shell.calls.calls().back(), "elevate(.\\.\\updater.exe)");
}

TEST_F(HandedOverTest, AnUpdateIsTakenIntoUseBeforeTheModulesAreLoaded) {
    const Settings settings;
    const char* const names[][2] = {
        {"View", "view"}, {"Catalog", "catalog"}, {"RulesEngine", "rules"}};
    for (const auto& [value, module] : names) {
        const std::string file = concat("new", module, ".dll");
        CopyFileA(concat("scripted_", module, ".dll").c_str(), folder_.file(file).c_str(), FALSE);
        settings.setValue(setting::kUpdatedFilesKey, value, file);
    }
    folder_.write("version.txt", "2");
    settings.setValue(setting::kUpdatedFilesKey, setting::kBillBoardVersionFile.name,
                      "version.txt");
    settings.write(setting::kDllPath, folder_.path());
    settings.write(setting::kCheckForUpdates, 1);
    settings.write(setting::kCompleteSoftwareUpdated, 1);
    startJob();
    EXPECT_TRUE(waitForRules());
    EXPECT_NE(GetModuleHandleA("newview.dll"), nullptr);
    EXPECT_NE(GetModuleHandleA("newcatalog.dll"), nullptr);
    // The rules engine is freed with its thread, shortly after its last call.
    EXPECT_TRUE(test::eventually([] { return GetModuleHandleA("newrules.dll") == nullptr; }));
    EXPECT_THAT(viewCalls("ShowGui"), ElementsAre("ShowGui()"));
    settings.write(setting::kCheckForUpdates, 0);
}

TEST_F(HandedOverTest, TheRulesEndBeforeTheWindowGoes) {
    script_.ruleResults = {"", "", "TIP"};
    script_.onEvaluateRule = [] {  // is asked when the job ends
        EXPECT_TRUE(test::eventually([] { return logContains("<<< Controller::jswTerminate: "); }));
    };
    std::vector<std::string> rules;
    script_.onViewCall = [&](const std::string& call) {
        if (call == "HideGui()") rules = script_.rules.calls();
    };
    startJob();
    endJob();
    EXPECT_THAT(rules, Contains("UnInitialize()"));
}

TEST_F(HandedOverTest, KeysAreOpenToEveryoneAndSoIsWhatLiesBelow) {
    std::vector<std::string> created;
    const auto create = test::replaceImport<decltype(RegCreateKeyExA)>(
        imports_, "RegCreateKeyExA",
        [&](auto original, HKEY hive, const char* path, DWORD reserved, char* keyClass,
            DWORD options, REGSAM rights, SECURITY_ATTRIBUTES* security, HKEY* key,
            DWORD* disposition) -> LSTATUS {
            created.push_back(concat(hive == HKEY_LOCAL_MACHINE, "|", options, "|", rights, "|",
                                     test::accessOf(security)));
            return original(hive, path, reserved, keyClass, options, rights, security, key,
                            disposition);
        });
    startJob();
    script_.saveValue("WindowX", "17");
    endJob();
    EXPECT_THAT(
        created,
        AllOf(Not(IsEmpty()),
              Each(concat("true|0|", KEY_ALL_ACCESS, "|1 entry, type 0, inherited ",
                          CONTAINER_INHERIT_ACE | OBJECT_INHERIT_ACE, ", rights ", GENERIC_ALL))));
}

TEST_F(HandedOverTest, ThreadsFilesAndModulesAreAskedForAsEver) {
    std::vector<std::string> asked;
    const auto thread = test::replaceImport<decltype(_beginthreadex)>(
        imports_, "_beginthreadex",
        [&](auto original, void* security, unsigned stackSize, auto* start, void* argument,
            unsigned flags, unsigned* id) {
            asked.push_back(concat("thread ", security == nullptr, " ", stackSize, " ", flags));
            return original(security, stackSize, start, argument, flags, id);
        });
    const auto access = test::replaceImport<decltype(_access)>(
        imports_, "_access", [&](auto original, const char* path, int mode) {
            asked.push_back(concat("access ", path, " ", mode));
            return original(path, mode);
        });
    const auto load = test::replaceImport<decltype(LoadLibraryA)>(
        imports_, "LoadLibraryA", [&](auto original, const char* path) {
            if (std::string(path).find("scripted") != std::string::npos) {
                asked.push_back(concat("load ", path));
            }
            return original(path);
        });
    runJob();
    std::erase(asked, "load .\\scripted_view.dll");  // stays loaded from the first job on
    const std::string folder = folder_.path();
    EXPECT_THAT(
        asked, ElementsAre("load .\\scripted_catalog.dll",
                           "access " + folder + "\\Scripts\\default.bb 4", "thread true 4096 0",
                           "load .\\scripted_rules.dll", "access " + folder + "\\Scripts\\tip.bb 4",
                           "access " + folder + "\\Scripts\\tip.bb 4"));
}

TEST_F(HandedOverTest, NoModuleIsLoadedWithMessageBoxesOfTheSystem) {
    using ErrorMode = DWORD WINAPI();
    auto* const errorMode =
        findEntryPoint<ErrorMode>(GetModuleHandleA("kernel32.dll"), "GetThreadErrorMode");
    std::vector<DWORD> modes;
    const auto load = test::replaceImport<decltype(LoadLibraryA)>(imports_, "LoadLibraryA",
                                                                  [&](const char* name) {
                                                                      modes.push_back(errorMode());
                                                                      return LoadLibraryA(name);
                                                                  });
    const DWORD before = errorMode();
    runJob();
    EXPECT_EQ(errorMode(), before);
    EXPECT_FALSE(modes.empty());
    for (const DWORD mode : modes) {
        EXPECT_EQ(mode & ~before, SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    }
}

}  // namespace jsw
