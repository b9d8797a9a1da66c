#include "PublicLib/text/Text.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <winspool.h>

#include <atomic>
#include <thread>

namespace jsw {

using namespace ::testing;

class ActionsTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        for (const char* id : {"A", "B", "C"}) {
            addBillboard(id, {.file = concat(id, ".bb"), .type = "promotion", .navigate = true});
        }
        addBillboard("INK_STATUS", {.file = "ink.bb", .type = "ink_status", .restore = true});
    }

    /// Clicks in a running job whose history contains A, B and C; returns what was shown.
    std::vector<std::string> shownFor(const std::vector<std::string>& actions) {
        setHistory({"A", "B", "C"});
        startJob();
        EXPECT_TRUE(waitForRules());
        script_.view.clear();
        for (const auto& action : actions) script_.clickBillboard(action.c_str(), 0);
        return viewCalls("DisplayBillboard");
    }
};

TEST_F(ActionsTest, NextAndPreviousWalkTheHistoryAroundItsEnds) {
    EXPECT_THAT(
        shownFor({"NEXT", "next", "Previous", "PREVIOUS", "previous"}),
        ElementsAre("DisplayBillboard(A.bb,true,false)", "DisplayBillboard(B.bb,true,false)",
                    "DisplayBillboard(A.bb,true,false)", "DisplayBillboard(C.bb,true,false)",
                    "DisplayBillboard(B.bb,true,false)"));
}

TEST_F(ActionsTest, CurrentComesBackFromInkStatusAndIsTheDefaultAtFirst) {
    EXPECT_THAT(
        shownFor(
            {"CURRENT", "NEXT", "INK_STATUS", "Current", "NONSENSE", "LAUNCH_PLAYGROUND_PROJECT"}),
        ElementsAre("DisplayBillboard(default.bb,false,false)", "DisplayBillboard(A.bb,true,false)",
                    "DisplayBillboard(ink.bb,false,true)", "DisplayBillboard(A.bb,true,false)"));
}

TEST_F(ActionsTest, AnEmptyHistoryHasNoNeighbours) {
    startJob();
    waitForRules();
    script_.view.clear();
    script_.clickBillboard("NEXT", 0);
    script_.clickBillboard("PREVIOUS", 0);
    EXPECT_THAT(viewCalls("DisplayBillboard"), IsEmpty());
    const auto lines = logLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(),
                         "Controller::doBillboardCallback: No billboard id for NEXT"),
              2);
}

TEST_F(ActionsTest, ABillboardWithoutAnIdIsNotShown) {
    Settings().write(setting::kDefaultBillboard, "");
    EXPECT_THAT(shownFor({"CURRENT"}), IsEmpty());
    EXPECT_TRUE(hasLine("ERROR - bbId is empty string."));
}

TEST_F(ActionsTest, AClickThatOutlivesItsJobShowsNothing) {
    script_.onCatalogCall = [](const std::string& name) {
        if (name == "GetBillboardRestoreWindow") std::thread([] { api_.terminate(); }).join();
    };
    EXPECT_THAT(shownFor({"CURRENT"}), IsEmpty());
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
}

TEST_F(ActionsTest, ABillboardWhoseFileIsMissingIsNotShown) {
    script_.billboards["C"].file = "gone.bb";
    script_.billboards["B"].file = "";
    EXPECT_THAT(shownFor({"PREVIOUS", "PREVIOUS"}),
                ElementsAre("DisplayBillboard(A.bb,true,false)"));
    EXPECT_TRUE(logContains("Catalog has no filename for bbId='B'"));
    shownFor({"NEXT", "NEXT", "NEXT"});
    EXPECT_TRUE(logContains("WARNING: No such file or directory, pathBillboardFile='" +
                            folder_.path() + "\\Scripts\\gone.bb'"));
}

TEST_F(ActionsTest, TheDefaultBillboardIsLookedUpOnceAndThenRemembered) {
    script_.billboards["DEFAULT"].navigate = true;
    script_.billboards["DEFAULT"].restore = true;
    Settings().setValue(setting::kHistoryIdsKey, "Id0", "A");
    runJob();  // the first run: it clears the history
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre("DisplayBillboard(default.bb,false,true)"));
    EXPECT_THAT(historyIds(), IsEmpty());
    std::uint32_t navigate = 0;
    EXPECT_EQ(Settings().read(setting::kDefaultBillboardNavigate, navigate), Read::found);
    EXPECT_EQ(navigate, 1U);

    setHistory({"A"});
    script_.billboards.clear();
    script_.view.clear();
    runJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre("DisplayBillboard(default.bb,true,true)"));
}

TEST_F(ActionsTest, ADefaultBillboardThatCannotBeRememberedIsAnError) {
    Settings().setValue(setting::kLoggerKey, "startLog", 0);
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    const auto readOnly = test::replaceImport<decltype(RegSetValueExA)>(
        imports, "RegSetValueExA", [](HKEY, const char*, DWORD, DWORD, const BYTE*, DWORD) {
            return LSTATUS{ERROR_ACCESS_DENIED};
        });
    startJob();
    for (const char* name : {"FileName", "RestoreGui", "Navigate"}) {
        EXPECT_TRUE(
            hasLine(concat("ERROR - Unable to write the registry for "
                           "key='Settings\\Controller\\DefaultBillboard' and value name='",
                           name, "', error=5.")))
            << name;
    }
}

TEST_F(ActionsTest, TheDefaultBillboardAndDataPathFollowTheRegistry) {
    Settings().write(setting::kDefaultBillboard, "A");
    Settings().write(setting::kDataPath, folder_.path() + "\\");
    runJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"), ElementsAre("DisplayBillboard(A.bb,false,false)"));
    Settings().write(setting::kDataPath, folder_.path() + "\\\\");
    runJob();  // one trailing backslash is removed, not more
    EXPECT_THAT(viewCalls("SetDataPath"), ElementsAre("SetDataPath(" + folder_.path() + ")",
                                                      "SetDataPath(" + folder_.path() + "\\)"));
    Settings().write(setting::kDefaultBillboard, "B");
    startJob();
    script_.clickBillboard("CURRENT", 0);
    EXPECT_EQ(viewCalls("DisplayBillboard").back(), "DisplayBillboard(B.bb,false,false)");
    const setting::Text& dataPath = setting::kDataPath;
    Settings().deleteValue(dataPath.key, dataPath.name);
    script_.clickBillboard("CURRENT", 0);
    EXPECT_TRUE(
        hasLine("Controller::determineDataPath: DataPath NOT set in registry. Using the "
                "PrinterDriver directory for the data path."));
    EXPECT_TRUE(hasLine("Controller::determineDataPath: " + printerDriverDirectory() + "\\3"));
}

/// Such a path would name the root of the current drive.
TEST_F(ActionsTest, WithoutADriverFolderNothingIsLookedUpOrLoaded) {
    installLegacyModule();
    startJob();
    api_.displayPrompt(1, 1);  // where the module was once is of no account
    const setting::Text& dataPath = setting::kDataPath;
    Settings().deleteValue(dataPath.key, dataPath.name);
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    const auto noFolder = test::replaceImport<decltype(GetPrinterDriverDirectoryA)>(
        imports, "GetPrinterDriverDirectoryA", [](char*, char*, DWORD, BYTE*, DWORD, DWORD*) {
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        });
    script_.view.clear();
    script_.clickBillboard("CURRENT", 0);
    EXPECT_THAT(viewCalls("DisplayBillboard"), IsEmpty());
    EXPECT_TRUE(hasLine("ERROR - The printer driver directory is unknown, error=5"));
    api_.displayPrompt(1, 1);
    EXPECT_TRUE(
        hasLine("ERROR - The printer driver directory is unknown, error=5. The JSW GUI DLL is not "
                "loaded."));
    EXPECT_THAT(script_.legacy.calls(), ElementsAre("JSWInitEx(SimulatedPrinter)",
                                                    "JSWDisplayPrompt(1,1)", "JSWTerminate()"));
    EXPECT_FALSE(logContains("='\\Scripts"));
    EXPECT_FALSE(logContains("Unable to load DLL="));
}

TEST_F(ActionsTest, AnAddressSpeaksOfOnePrinterThoughTheJobEndsMeanwhile) {
    script_.billboards["DEFAULT"].actions = {"jswnone:_^PartnerCode^__^L1^_"};
    const test::RecordedShell shell;
    const auto readCode = test::replaceImport<decltype(GetPrivateProfileStringA)>(
        test::ImportTable(GetModuleHandleA("jsw.dll")), "GetPrivateProfileStringA",
        [&](const char*, const char*, const char*, char*, DWORD, const char*) {
            endJob();
            return DWORD{0};
        });
    startJob();
    ASSERT_TRUE(waitForRules());
    script_.clickBillboard("LAUNCH_URL", 0);
    EXPECT_THAT(shell.calls.calls(), ElementsAre("open(jswnone:90)"));
}

TEST_F(ActionsTest, AClickThatOutlivesItsJobLeavesNoPrinterToTheNextOne) {
    script_.billboards["DEFAULT"].actions = {"jswnone:_^L1^_"};
    const test::RecordedShell shell;
    std::atomic<bool> isAsked{false};
    std::atomic<bool> isOver{false};
    script_.onCatalogCall = [&](const std::string& name) {
        if (name != "GetBillboardActions") return;
        isAsked = true;
        test::eventually([&] { return isOver.load(); });
    };
    startJob();
    ASSERT_TRUE(waitForRules());
    std::thread click([&] { script_.clickBillboard("LAUNCH_URL", 0); });
    ASSERT_TRUE(test::eventually([&] { return isAsked.load(); }));
    endJob();
    isOver = true;
    click.join();
    startJob({.friendlyName = "No such printer"});
    script_.clickBillboard("LAUNCH_URL", 0);
    EXPECT_THAT(shell.calls.calls(), ElementsAre("open(jswnone:90)", "open(jswnone:0)"));
}

TEST_F(ActionsTest, ANumberThatNoActionHasStartsNothing) {
    const test::RecordedShell shell;
    script_.billboards["DEFAULT"].actions = {"jswnone:order"};
    startJob();
    for (const int number : {1, -1}) script_.clickBillboard("LAUNCH_URL", number);
    EXPECT_THAT(shell.calls.calls(), IsEmpty());
    EXPECT_TRUE(logContains("ERROR - actionId > number of actions. Number of actions=1"));
    EXPECT_TRUE(logContains("ERROR - actionId < 0"));
}

}  // namespace jsw
