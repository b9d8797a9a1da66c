#include "tests/job/JobTest.h"

#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/RegistryKey.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

namespace jsw::test {

Exports findExports(HMODULE library) {
    if (library == nullptr) throw std::runtime_error("jsw.dll cannot be loaded");
    Exports exports{};
    const auto resolve = [&]<class Function>(const char* name, Function*& function) {
        function = findEntryPoint<Function>(library, name);
        if (function == nullptr) throw std::runtime_error(name);
    };
    resolve("JSWInit", exports.init);
    resolve("JSWTerminate", exports.terminate);
    resolve("JSWUpdateInfo", exports.updateInfo);
    resolve("JSWDisplayPrompt", exports.displayPrompt);
    resolve("JSWPostDlgMsg", exports.postDlgMsg);
    resolve("JSWFilterDllMsg", exports.filterDllMsg);
    resolve("JSWGetAPIVersion", exports.getApiVersion);
    resolve("JSWGetWindowHwnd", exports.getWindowHwnd);
    return exports;
}

Exports JobTest::api_{};

void JobTest::SetUp() {
    HostTest::SetUp();
    if (api_.init == nullptr) api_ = findExports(LoadLibraryA("jsw.dll"));
    script_.offer();
    writeSettings();
    inkInfo_.InkPercent[0] = 42;
    addBillboard("DEFAULT", {.file = "default.bb"});
}

void JobTest::writeSettings() const {
    RegistryKey(Localize::getInstance()->getRegistryPath(StoreKind::local), true);
    switchLogOn();
    const Settings settings;
    settings.write(setting::kDataPath, folder_.path());
    settings.write(setting::kDllPath, ".");
    settings.write(setting::kViewModule, "scripted_view.dll");
    settings.write(setting::kCatalogModule, "scripted_catalog.dll");
    settings.write(setting::kRulesEngineModule, "scripted_rules.dll");
    settings.write(setting::kCheckForUpdates, 0);
}

void JobTest::TearDown() {
    script_.onViewCall = nullptr;
    script_.onPrompt = nullptr;
    api_.terminate();
    if (!legacyModule_.empty()) DeleteFileA(legacyModule_.c_str());
    HostTest::TearDown();
}

std::uint8_t JobTest::startJob(const TestJob& job) {
    return api_.init(job.friendlyName, job.jobName, 7, 1, job.totalPages, 1, 2, &inkInfo_, 4, 90,
                     job.callback);
}

std::uint8_t JobTest::startJobWithoutParser(const TestJob& job) {
    KeyHandle noClasses;
    RegCreateKeyA(HKEY_CURRENT_USER, "Software\\JswTests\\NoClasses", noClasses.put());
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, noClasses.get()), ERROR_SUCCESS);
    const std::uint8_t started = startJob(job);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    return started;
}

void JobTest::installLegacyModule() {
    const std::string folder = printerDriverDirectory() + "\\3";
    CreateDirectoryA(folder.c_str(), nullptr);
    legacyModule_ = folder + "\\" + Localize::getInstance()->localId() + "jswo.dll";
    ASSERT_NE(CopyFileA("scripted_legacy.dll", legacyModule_.c_str(), FALSE), FALSE);
}

bool JobTest::anotherThreadGetsThrough() {
    const auto through = std::make_shared<std::atomic<bool>>(false);
    std::thread thread([through] {
        api_.updateInfo(5, 5, 5, 0, 0, nullptr);
        *through = true;
    });
    const bool gotThrough = eventually([&] { return through->load(); });
    gotThrough ? thread.join() : thread.detach();
    return gotThrough;
}

void JobTest::expectNextJobWorks() {
    script_.behave();
    addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
    script_.ruleResults = {"TIP"};
    script_.checkHistory = false;
    script_.view.clear();
    script_.rules.clear();
    ASSERT_EQ(startJob(), 1);
    ASSERT_TRUE(waitForRules());
    ASSERT_TRUE(anotherThreadGetsThrough());
    endJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ::testing::Contains("DisplayBillboard(tip.bb,false,false)"));
    EXPECT_THAT(viewCalls("UpdateInfo"), ::testing::ElementsAre("UpdateInfo(5,5,5,0)"));
    EXPECT_THAT(viewCalls("Uninitialize"), ::testing::ElementsAre("Uninitialize()"));
}

bool JobTest::waitForRules() {
    return eventually([&] { return script_.rules.has("UnInitialize()"); });
}

void JobTest::runJob() {
    script_.rules.clear();
    startJob();
    EXPECT_TRUE(waitForRules());
    endJob();
}

void JobTest::addBillboard(const std::string& id, Script::Billboard billboard) {
    folder_.write("Scripts\\" + billboard.file, "");
    script_.billboards[id] = std::move(billboard);
}

std::vector<std::string> JobTest::viewCalls(const std::string& name) const {
    auto calls = script_.view.calls();
    std::erase_if(calls, [&](const std::string& call) { return !call.starts_with(name + "("); });
    return calls;
}

std::vector<std::string> JobTest::historyIds() const {
    std::vector<std::string> ids;
    std::string id;
    while (Settings().getValue(setting::kHistoryIdsKey, concat("Id", ids.size()), id)) {
        ids.push_back(id);
    }
    return ids;
}

void JobTest::setHistory(const std::vector<std::string>& ids) const {
    for (std::size_t i = 0; i < ids.size(); ++i) {
        Settings().setValue(setting::kHistoryIdsKey, concat("Id", i), ids[i]);
    }
    // Without a stored default billboard the job would count as a first run.
    Settings().write(setting::kDefaultBillboardFile, "default.bb");
}

}  // namespace jsw::test
