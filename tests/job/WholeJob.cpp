#include "tests/job/WholeJob.h"

#include "PublicLib/text/Text.h"

#include <algorithm>
#include <iterator>
#include <thread>

namespace jsw::test {

namespace {

CallRecord driver;

void recordStatus(std::uint32_t status) {
    driver.add(concat("status(", status, ")"));
}

}  // namespace

void WholeJobTest::SetUp() {
    JobTest::SetUp();
    installLegacyModule();
    addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
    addBillboard("SEEN", {.file = "seen.bb", .type = "promotion"});
    addBillboard("INK_STATUS", {.file = "ink.bb", .type = "ink_status"});
    for (auto& [id, billboard] : script_.billboards) {
        billboard.actions = {
            "http://shop.example/?ink=_^L1^_&id=_^PSI^_&os=_^OsCode^_"
            "_^PartnerCode^_"};
    }
    script_.categories["TIPS"] = {"SEEN", "TIP"};
    script_.ruleResults = {"INK_STATUS", "TIPS"};
    script_.onPrompt = [] { api_.postDlgMsg(nullptr); };
    SetEnvironmentVariableA("JSW_DEVICE_FILE", "data\\device.txt");
}

void WholeJobTest::TearDown() {
    JobTest::TearDown();
    SetEnvironmentVariableA("JSW_DEVICE_FILE", nullptr);
}

void WholeJobTest::prepare(std::uint32_t levels) {
    DeleteFileA(logPath().c_str());
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software");
    writeSettings();
    const Settings settings;
    settings.setValue(setting::kLoggerKey, "startLog", levels);
    for (const char* component : {"All", "JSW", "RulesEng", "Catalog", "Updater"}) {
        settings.setValue(setting::kLoggerKey, component, levels);
    }
    settings.write(setting::kPcsClient, "comc.dll");
    settings.write(setting::kCheckForUpdates, 1);
    settings.write(setting::kDateLastChecked, "1/1/2000");
    settings.write(setting::kUpdaterExecutable, "updater.exe");
    setHistory({"SEEN"});
}

bool WholeJobTest::rulesEnd(DWORD patience) const {
    const DWORD start = GetTickCount();
    do {
        const auto calls = script_.rules.calls();
        if (std::find(calls.begin(), calls.end(), "UnInitialize()") != calls.end()) return true;
        Sleep(1);
    } while (GetTickCount() - start < patience);
    return false;
}

/// The user's actions, on a thread of the window.
void WholeJobTest::useWindow() {
    if (script_.clickBillboard == nullptr) return;  // the window is not shown
    for (const char* action :
         {"NEXT", "PREVIOUS", "INK_STATUS", "CURRENT", "LAUNCH_APP", "LAUNCH_URL"}) {
        script_.clickBillboard(action, 0);
    }
    script_.saveAppearance("Show Special Messages", 0);
    script_.saveValue("WindowX", "17");
    script_.saveUpdateSoftware(1);
    script_.reportEvent(3);
}

std::vector<std::string> WholeJobTest::wholeJob(DWORD patience) {
    script_.clickBillboard = nullptr;
    for (CallRecord* record :
         {&script_.view, &script_.rules, &script_.legacy, &driver, &shell_.calls}) {
        record->clear();
    }
    startJob({.friendlyName = "Quillon Sim 2000", .callback = recordStatus});
    rulesEnd(patience);
    api_.updateInfo(2, 1, 60, 0, 0, nullptr);
    std::thread([this] { useWindow(); }).join();
    api_.displayPrompt(1, 3);
    endJob();
    std::vector<std::string> seen;
    for (const CallRecord* record :
         {&script_.view, &script_.rules, &script_.legacy, &driver, &shell_.calls}) {
        std::ranges::copy(record->calls(), std::back_inserter(seen));
    }
    return seen;
}

}  // namespace jsw::test
