// Modules that are missing, broken or do not start.

#include "PublicLib/text/Text.h"
#include "jsw/modules/Catalog.h"
#include "tests/job/JobTest.h"
#include "tests/support/HeldUpThread.h"

#include <windows.h>

namespace jsw {

using namespace ::testing;

class ModulesTest : public test::JobTest {};

TEST_F(ModulesTest, WithoutAViewTheJobFailsButEndsInOrder) {
    const std::string notADll = folder_.write("broken.dll", "no code here");
    for (const char* module : {"absent.dll", "broken.dll", "..\\..\\no\\such\\folder\\x.dll"}) {
        Settings().write(setting::kDllPath, folder_.path());
        Settings().write(setting::kViewModule, module);
        EXPECT_EQ(startJob(), 0) << module;
        api_.updateInfo(1, 1, 1, 0, 0, nullptr);
        endJob();
        EXPECT_TRUE(hasLine("ERROR - BasicDll<Handler>::init() Unable to load DLL=" +
                            folder_.path() + "\\" + module));
    }
    EXPECT_TRUE(hasLine("BillboardView::jswInit: ERROR - The GUI DLL is not loaded"));
    EXPECT_TRUE(hasLine("BillboardView::jswTerminate: ERROR - The GUI DLL is not loaded."));
    EXPECT_THAT(script_.view.calls(), IsEmpty());
    EXPECT_THAT(script_.rules.calls(), IsEmpty());
}

TEST_F(ModulesTest, EmptyNamesOfModulesCountAsMissing) {
    const Settings settings;
    settings.write(setting::kCatalogModule, "");
    settings.write(setting::kRulesEngineModule, "");
    EXPECT_EQ(startJob(), 1);
    endJob();
    settings.write(setting::kViewModule, "");
    EXPECT_EQ(startJob(), 0);
    for (const char* module : {"jswv.dll", "bcat.dll", "reng.dll"}) {
        EXPECT_TRUE(
            hasLine(concat("ERROR - BasicDll<Handler>::init() Unable to load DLL=.\\qlte", module)))
            << module;
    }
}

TEST_F(ModulesTest, ACatalogThatDoesNotStartIsNotAskedUntilItDoes) {
    script_.catalogRaises = true;
    startJob();
    ASSERT_TRUE(waitForRules());
    EXPECT_THAT(viewCalls("DisplayBillboard"), ElementsAre("DisplayBillboard(,false,false)"));
    EXPECT_TRUE(hasLine("Catalog::initialize: ERROR - Catalog is not loaded."));
    script_.catalogRaises = false;
    script_.view.clear();
    script_.clickBillboard("CURRENT", 0);
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre("DisplayBillboard(default.bb,false,false)"));
}

TEST_F(ModulesTest, ACatalogThatIsTakenDownStaysLoaded) {
    startLog();
    Catalog catalog;
    catalog.uninitialize();
    EXPECT_TRUE(hasLine("Catalog::uninitialize: ERROR - Catalog is not loaded."));
    EXPECT_EQ(catalog.getBillboardFileName("DEFAULT"), "default.bb");
    catalog.uninitialize();
    EXPECT_EQ(catalog.getBillboardFileName("DEFAULT"), "default.bb");
    EXPECT_THAT(script_.catalog.calls(), ElementsAre("Initialize()", "UnInitialize()"));
}

TEST_F(ModulesTest, ThreadsThatAskTheCatalogAtOnceStartItOnce) {
    Catalog catalog;
    const auto ask = [&] { EXPECT_EQ(catalog.getBillboardFileName("DEFAULT"), "default.bb"); };
    test::HeldUpThread other(ask);
    script_.onCatalogCall = [&](const std::string& name) {
        EXPECT_TRUE(name != "Initialize" || other.meetsALock());
    };
    ask();
    other.join();
    EXPECT_THAT(script_.catalog.calls(), ElementsAre("Initialize()"));
}

/// A few at a time, so that it is quick; neighbours in the list are never missing together.
TEST_F(ModulesTest, EntryPointsThatAreMissingAreSkippedAndNamed) {
    const std::vector<std::string> names = {
#define NAME(name, type) #name,
        JSW_VIEW_ENTRY_POINTS(NAME)
#undef NAME
    };
    const std::string original = test::readFile("scripted_view.dll");
    ASSERT_FALSE(original.empty());
    Settings().write(setting::kDllPath, folder_.path());
    constexpr std::size_t kViews = 6;
    for (std::size_t view = 0; view < kViews; ++view) {
        // The exports' names in a copy of the module, with a wrong last letter.
        std::string module = original;
        std::vector<std::string> missing;
        for (std::size_t i = view; i < names.size(); i += kViews) {
            missing.push_back(names[i]);
            std::size_t position = 0;
            while ((position = module.find('\0' + names[i] + '\0', position)) !=
                   std::string::npos) {
                module[position + names[i].size()] = '_';
            }
        }
        const std::string file = concat("view", view, ".dll");
        folder_.write(file, module);
        Settings().write(setting::kViewModule, file);
        script_.view.clear();
        DeleteFileA(logPath().c_str());
        EXPECT_EQ(startJob(), 1) << file;
        api_.updateInfo(1, 2, 3, 4, 5, nullptr);
        endJob();
        for (const std::string& name : missing) {
            EXPECT_THAT(viewCalls(name), IsEmpty()) << name;
            EXPECT_EQ(logContains("Could not get proc address for " + name), name != "UpdateInfo")
                << name;
        }
        EXPECT_GE(script_.view.calls().size() + missing.size(), 28U) << file;
    }
}

}  // namespace jsw
