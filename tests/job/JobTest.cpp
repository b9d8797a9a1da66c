#include "tests/job/JobTest.h"

#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "jsw/settings/RegistryKey.h"

#include <algorithm>
#include <stdexcept>

namespace jsw::test {

namespace {

template <class Function>
void resolve(HMODULE library, const char* name, Function*& function) {
    function = findEntryPoint<Function>(library, name);
    if (function == nullptr) throw std::runtime_error(name);
}

}  // namespace

Exports findExports(HMODULE library) {
    if (library == nullptr) throw std::runtime_error("jsw.dll cannot be loaded");
    Exports exports{};
    resolve(library, "JSWInit", exports.init);
    resolve(library, "JSWTerminate", exports.terminate);
    resolve(library, "JSWUpdateInfo", exports.updateInfo);
    resolve(library, "JSWDisplayPrompt", exports.displayPrompt);
    resolve(library, "JSWPostDlgMsg", exports.postDlgMsg);
    resolve(library, "JSWFilterDllMsg", exports.filterDllMsg);
    resolve(library, "JSWGetAPIVersion", exports.getApiVersion);
    resolve(library, "JSWGetWindowHwnd", exports.getWindowHwnd);
    return exports;
}

Exports JobTest::api_{};

void JobTest::SetUp() {
    HostTest::SetUp();
    if (api_.init == nullptr) api_ = findExports(LoadLibraryA("jsw.dll"));
    const std::string address = std::to_string(reinterpret_cast<std::uintptr_t>(&script_));
    SetEnvironmentVariableA(kScriptVariable, address.c_str());
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
    HostTest::TearDown();
}

std::uint8_t JobTest::startJob(const TestJob& job) {
    return api_.init(job.friendlyName, job.jobName, 7, 1, job.totalPages, 1, 2, &inkInfo_, 4, 90,
                     job.callback);
}

bool JobTest::waitForRules() {
    return eventually([&] {
        const auto calls = script_.rules.calls();
        return std::find(calls.begin(), calls.end(), "UnInitialize()") != calls.end();
    });
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
    // Without a default billboard looked up before, the job would count as a first run.
    Settings().write(setting::kDefaultBillboardFile, "default.bb");
}

}  // namespace jsw::test
