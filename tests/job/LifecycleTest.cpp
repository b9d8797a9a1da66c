#include "PublicLib/text/Text.h"
#include "jsw/settings/OfnSettings.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ProcessState.h"
#include "tests/support/TestLimits.h"

#include <windows.h>

#include <algorithm>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace jsw {

using namespace ::testing;

class LifecycleTest : public test::JobTest {};

TEST_F(LifecycleTest, ConstantFunctionsAndCallsWithoutAJobDoNothing) {
    EXPECT_EQ(api_.getApiVersion(), 1U);
    EXPECT_EQ(api_.filterDllMsg(&script_, nullptr, nullptr), 1U);
    EXPECT_EQ(api_.getWindowHwnd(), nullptr);
    EXPECT_EQ(reinterpret_cast<void*>(api_.getApiVersion),
              reinterpret_cast<void*>(api_.filterDllMsg));
    api_.updateInfo(1, 2, 3, 4, 5, nullptr);
    api_.displayPrompt(1, 1);
    EXPECT_EQ(api_.postDlgMsg(nullptr), 1U);
    api_.terminate();
    EXPECT_THAT(script_.view.calls(), IsEmpty());
    EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(LifecycleTest, TheWindowIsSetUpCompletelyBeforeItIsShown) {
    Settings().setValue(setting::kGuiKey, "WindowX", "17");
    ASSERT_EQ(
        api_.init("SimulatedPrinter", "report.pdf", 12, 11, 13, 5, 6, &inkInfo_, 8, 90, nullptr),
        1);
    ASSERT_TRUE(waitForRules());
    api_.updateInfo(2, 1, 60, 998, 999, &script_);
    endJob();
    const std::string data = concat(reinterpret_cast<std::uintptr_t>(&script_));
    EXPECT_THAT(
        script_.view.calls(),
        ElementsAre("Initialize()", "SetDataPath(" + folder_.path() + ")", "SetJobName(report.pdf)",
                    "SetPrinterFriendlyName(SimulatedPrinter)", "SetJobType(12)",
                    "SetCurrentPage(11)", "SetTotalPages(13)", "SetShowPageInfo(true)",
                    "SetCurrentCopy(5)", "SetTotalCopies(6)", "SetInkInfo()", "SetPortType(8)",
                    "SetJswCallback()", "SetBillboardCallback()",
                    "DisplayBillboard(default.bb,false,false)", "SetShowProcessWindow(1)",
                    "SetJswProgressMinimized(0)", "SetShowSpecialMessages(1)",
                    "SetReserveModeCart1(0)", "SetReserveModeCart2(0)", "SetCompleteAPrintMode(0)",
                    "SetUpdateSoftware(0)", "SetSaveAppearanceCallback()", "SetSaveValueCallback()",
                    "SetUpdateSoftwareCallback()", "SetSavedValue(WindowX,17)", "ShowGui()",
                    "UpdateInfo(2,1,60," + data + ")", "HideGui()", "Uninitialize()"));
    EXPECT_EQ(script_.inkInfo.InkPercent[0], 42);
    EXPECT_TRUE(hasLine("InkPercent1=42"));
    EXPECT_TRUE(hasLine("<<< SingletonMgr::~SingletonMgr: "));
}

TEST_F(LifecycleTest, SingletonsComeAndGoInTheirOrder) {
    const test::RecordedShell shell;
    script_.billboards["DEFAULT"].actions = {"http://shop.example/?ink=_^L1^_"};
    startJob();
    script_.clickBillboard("LAUNCH_URL", 0);  // queries the printer
    endJob();
    auto lines = logLines();
    std::erase_if(lines, [](const std::string& line) {
        return line.find("SingletonMgr") == std::string::npos &&
               line.find("::destroy: destroying ") == std::string::npos;
    });
    EXPECT_THAT(lines,
                ElementsAre(">>> SingletonMgr::SingletonMgr: ",
                            ">>> SingletonMgr::SingletonMgr AppUpdatesController::instance() <<<",
                            ">>> SingletonMgr::SingletonMgr BillboardView::instance() <<<",
                            ">>> SingletonMgr::SingletonMgr Catalog::instance() <<<",
                            ">>> SingletonMgr::SingletonMgr Controller::instance() <<<",
                            ">>> SingletonMgr::SingletonMgr History::instance() <<<",
                            ">>> SingletonMgr::SingletonMgr CurrentProcess::instance() <<<",
                            "<<< SingletonMgr::SingletonMgr", ">>> SingletonMgr::~SingletonMgr: ",
                            "CurrentProcess::destroy: destroying CurrentProcess.",
                            "Printer::destroy: destroying Printer.",
                            "History::destroy: destroying History.",
                            "Controller::destroy: destroying Controller.",
                            "Catalog::destroy: destroying Catalog.",
                            "BillboardView::destroy: destroying BillboardView.",
                            "AppUpdatesController::destroy: destroying AppUpdatesController.",
                            "<<< SingletonMgr::~SingletonMgr: "));
}

TEST_F(LifecycleTest, EveryJobLooksForTheFolderOfItsLogAfresh) {
    const std::string first = logPath();
    runJob();
    const std::string content = test::readFile(first);
    EXPECT_FALSE(content.empty());
    const std::string folder = first.substr(0, first.find_last_of('\\'));
    SetEnvironmentVariableA("ALLUSERSPROFILE", folder_.path().c_str());
    runJob();
    EXPECT_TRUE(hasLine("<<< SingletonMgr::~SingletonMgr: "));
    EXPECT_NE(logPath(), first);
    SetEnvironmentVariableA("ALLUSERSPROFILE", folder.c_str());
    EXPECT_TRUE(test::readFile(first) == content) << "the second job wrote to the first log";
}

TEST_F(LifecycleTest, TheEndOfAJobGivesTheLogsMutexBack) {
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    std::mutex lock;
    std::vector<HANDLE> held;
    const auto create = test::replaceImport<decltype(CreateMutexA)>(
        imports, "CreateMutexA",
        [&](auto original, SECURITY_ATTRIBUTES* security, BOOL owner, const char* name) {
            const HANDLE mutex = original(security, owner, name);
            const std::lock_guard guard(lock);
            if (std::string(name).starts_with("QNLOG_")) held.push_back(mutex);
            return mutex;
        });
    const auto close = test::replaceImport<decltype(CloseHandle)>(
        imports, "CloseHandle", [&](auto original, HANDLE handle) {
            const std::lock_guard guard(lock);
            std::erase(held, handle);
            return original(handle);
        });
    startJob();
    EXPECT_EQ(held.size(), 1U);
    endJob();
    EXPECT_THAT(held, IsEmpty());
    runJob();
    EXPECT_THAT(held, IsEmpty());
}

TEST_F(LifecycleTest, TwoStartsBuildTheSingletonsOnceAndOneEndRemovesThem) {
    EXPECT_EQ(startJob(), 1);
    EXPECT_EQ(startJob({.jobName = "second.pdf"}), 1);
    endJob();
    const auto lines = logLines();
    EXPECT_EQ(
        std::count(lines.begin(), lines.end(), "Controller::instance: instantiating Controller."),
        1);
    api_.updateInfo(9, 9, 9, 0, 0, nullptr);
    EXPECT_THAT(viewCalls("UpdateInfo"), IsEmpty());
    EXPECT_EQ(startJob({.jobName = "third.pdf"}), 1);
    EXPECT_THAT(
        viewCalls("SetJobName"),
        ElementsAre("SetJobName(report.pdf)", "SetJobName(second.pdf)", "SetJobName(third.pdf)"));
}

TEST_F(LifecycleTest, NullStringsAndNoInkInfoCountAsEmptyAndNotKnown) {
    EXPECT_EQ(api_.init(nullptr, nullptr, 0, 0, static_cast<std::uint32_t>(-1), 0, 0, nullptr, 0, 0,
                        nullptr),
              1);
    EXPECT_THAT(viewCalls("SetJobName"), ElementsAre("SetJobName()"));
    EXPECT_EQ(script_.inkInfo.InkPercent[9], -1);
    for (const std::int32_t totalPages : {-2, -3, 0}) {  // -1 above and -2: not known
        startJob({.totalPages = static_cast<std::uint32_t>(totalPages)});
    }
    EXPECT_THAT(viewCalls("SetShowPageInfo"),
                ElementsAre("SetShowPageInfo(false)", "SetShowPageInfo(false)",
                            "SetShowPageInfo(true)", "SetShowPageInfo(true)"));
}

TEST_F(LifecycleTest, UnterminatedDiagnosticTextsAreReadToTheirEndOnly) {
    std::fill_n(inkInfo_.iCart1PrintheadDiag, JSW_PRINTHEAD_DIAG_SIZE, 'A');
    std::fill_n(inkInfo_.iCart2PrintheadDiag, JSW_PRINTHEAD_DIAG_SIZE, 'B');
    runJob();
    EXPECT_TRUE(hasLine("iCart1PrintheadDiag=AAAAAAAAAAAAAAAAAAAA"));
    EXPECT_TRUE(hasLine("iCart2PrintheadDiag=BBBBBBBBBBBBBBBBBBBB"));
}

TEST_F(LifecycleTest, ExportsMayBeCalledFromSeveralThreads) {
    Settings().setValue(setting::kLoggerKey, "startLog", 0);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            for (int round = 0; round < 20; ++round) {
                if (i % 2 == 0) startJob();
                api_.updateInfo(1, 2, 3, 4, 5, nullptr);
                api_.postDlgMsg(nullptr);
                for (const char* action : {"NEXT", "INK_STATUS", "CURRENT", "LAUNCH_URL"}) {
                    if (script_.clickBillboard != nullptr) script_.clickBillboard(action, 99);
                }
                if (i % 2 == 1) api_.terminate();
            }
        });
    }
    for (auto& thread : threads) thread.join();
    script_.view.clear();
    EXPECT_EQ(startJob(), 1);
    endJob();
    EXPECT_THAT(viewCalls("ShowGui"), ElementsAre("ShowGui()"));
}

TEST_F(LifecycleTest, WithoutTheXmlParserNothingIsShown) {
    EXPECT_EQ(startJobWithoutParser(), 0);
    EXPECT_TRUE(
        hasLine("Controller::isMsXmlValid: MSXML 3.0 registry key not found, MSXML 3.0 "
                "not installed."));
    EXPECT_THAT(script_.view.calls(), IsEmpty());
    endJob();
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
}

TEST_F(LifecycleTest, ALongDataPathAndWrongTypesInTheRegistryDoNoHarm) {
    const std::string longPath = folder_.path() + "\\" + std::string(400, 'x') + "\\";
    Settings settings;
    settings.write(setting::kDataPath, longPath);
    settings.setValue(setting::kControllerKey, "Catalog", 5);
    settings.setValue(setting::kHistoryKey, "MaxSize", "text");
    settings.setValue(setting::kHistoryIdsKey, "Id0", 1);
    settings.setValue(setting::kLoggerKey, "All", "text");
    settings.setValue(setting::kUpdaterKey, "CheckForUpdates", "text");
    for (const auto* number : {&setting::kShowProcessWindow, &setting::kJobProgressMinimized,
                               &setting::kShowSpecialMessages, &setting::kCompleteToPrint}) {
        OfnSettings("").setValue(number->key, number->name, "text");
    }
    EXPECT_EQ(startJob(), 1);
    endJob();
    EXPECT_THAT(script_.view.calls(),
                ::testing::IsSupersetOf({"SetShowProcessWindow(1)", "SetJswProgressMinimized(0)",
                                         "SetShowSpecialMessages(1)", "SetCompleteAPrintMode(0)",
                                         "SetUpdateSoftware(0)", "ShowGui()"}));
    EXPECT_TRUE(
        hasLine("BillboardView::setUpdateSoftware: Unable to read the registry for "
                "key='Settings\\Updater' and value name='CheckForUpdates'."));
    EXPECT_THAT(viewCalls("SetDataPath"),
                ElementsAre("SetDataPath(" + longPath.substr(0, longPath.size() - 1) + ")"));
    EXPECT_TRUE(hasLine("History::read: Unable to read bbId for key=Id0"));
    EXPECT_TRUE(logContains("RegistryKey::getValue(ulong)MaxSize : incorrect value type"));
}

TEST_F(LifecycleTest, ManyJobsLeaveTheProcessAsItWas) {
    Settings().setValue(setting::kLoggerKey, "startLog", 0);
    const std::string tip(200, 'T');  // a lost text shows
    addBillboard(tip, {.file = "tip.bb", .type = "special"});
    script_.ruleResults = {tip};
    bool raises = false;
    script_.onEvaluateRule = [&] {  // on a new thread of each job: that takes memory, too
        raises = !raises;
        if (raises) throw std::runtime_error("first rule");
    };
    const auto jobs = [&](int count) {
        for (int i = 0; i < count; ++i) {
            if (i % 50 == 0) test::allowSeconds(30);
            runJob();
            // The records must not grow with the number of jobs.
            script_.view.clear();
            script_.catalog.clear();
            script_.rules.clear();
        }
        return test::processState();
    };
    jobs(100);  // objects that are created once and kept
    for (int round = 1;; ++round) {
        const test::ProcessState before = test::processState();
        const test::ProcessState after = jobs(100);
        EXPECT_EQ(after.nextHandle, before.nextHandle);
        EXPECT_EQ(after.threads, before.threads);
        EXPECT_EQ(after.freeTlsIndexes, before.freeTlsIndexes);
        if (after.heapBytes < before.heapBytes + 800) break;  // eight bytes a job
        // What the system itself makes now and then shows in one round only.
        ASSERT_LT(round, 3) << after.heapBytes - before.heapBytes << " bytes lost";
    }
}

}  // namespace jsw
