// The sample catalog and rules engine as the library uses them: loaded from their files, with XML
// files in a data folder from the registry.
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/SystemFolders.h"
#include "samples/common/HostStore.h"
#include "tests/support/PrivateRegistry.h"
#include "tests/support/ProcessState.h"
#include "tests/support/TempFolder.h"
#include <jsw/catalog.h>
#include <jsw/rules.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using jsw::findEntryPoint;
using jsw::ModuleHandle;

/** Blocks allocated and not freed yet. */
std::atomic<int> liveBlocks = 0;

void* countedAllocate(int32_t size) {
    ++liveBlocks;
    return std::malloc(static_cast<size_t>(size));
}

void countedFree(void* block) {
    --liveBlocks;
    std::free(block);
}

/** The text, "(null)" for none; frees what the module returned. */
std::string take(char* returned) {
    if (returned == nullptr) return "(null)";
    const std::string text = returned;
    countedFree(returned);
    return text;
}

std::vector<std::string> take(char** returned) {
    std::vector<std::string> texts;
    if (returned != nullptr) {
        for (char** next = returned; *next != nullptr; ++next) texts.push_back(take(*next));
        countedFree(returned);
    }
    return texts;
}

std::string localId() {
    return jsw::localIdOf(jsw::moduleFileName(nullptr));
}

/** A data folder and a store of this program in a private registry. */
class RulesModulesTest : public testing::Test {
  protected:
    void SetUp() override {
        setText("Settings", "DataPath", folder_.path());
        liveBlocks = 0;
    }
    void TearDown() override { EXPECT_EQ(liveBlocks, 0); }

    static std::string store(const std::string& subKey) {
        return "Software\\QuillonInkjet\\JSW\\Local\\" + localId() + "\\" + subKey;
    }
    static void setText(const std::string& subKey, const char* name, const std::string& text) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, store(subKey).c_str(), name, REG_SZ, text.c_str(),
                        static_cast<DWORD>(text.size() + 1));
    }
    static DWORD storedNumber(const std::string& subKey, const char* name) {
        DWORD value = 0;
        DWORD size = sizeof value;
        RegGetValueA(HKEY_LOCAL_MACHINE, store(subKey).c_str(), name, RRF_RT_REG_DWORD, nullptr,
                     &value, &size);
        return value;
    }

    const jsw::test::PrivateRegistry registry_;
    const jsw::test::TempFolder folder_;
};

constexpr const char* kCatalog = R"(<?xml version="1.0"?>
<catalog>
  <billboard id="A" file="a.jbb" type="promotion" navigation="true" restore="1" carts="1,2">
    <action> http://example.com/?a=1&amp;b=_^L1^_ </action><action>tool.exe</action>
  </billboard>
  <billboard id="B" file="b.jbb"><action>one</action><action/><action>three</action></billboard>
  <billboard file="noid.jbb"/>
  <category id="C"><project id="A"/><project id=""/><project/><project id="B"/></category>
  <category id="EMPTY"/>
</catalog>)";

ModuleHandle load(const char* fileName) {
    ModuleHandle module(LoadLibraryA(fileName));
    EXPECT_TRUE(module) << fileName << ": " << GetLastError();
    return module;
}

#define ENTRY_POINT(name, type) type* name = findEntryPoint<type>(module.get(), #name);

struct Catalog {
    const ModuleHandle module = load("bcat.dll");
    JSW_CATALOG_ENTRY_POINTS(ENTRY_POINT)
    Catalog() { Initialize(countedAllocate); }
};

TEST_F(RulesModulesTest, CatalogAnswersFromItsFileToSeveralThreads) {
    folder_.write("other.xml", kCatalog);
    setText("Settings\\Catalog", "CatalogFilename", "other.xml");
    const Catalog catalog;
    auto* const ids = catalog.GetBillboardIds;
    auto* const actions = catalog.GetBillboardActions;
    auto* const file = catalog.GetBillboardFileName;
    auto* const type = catalog.GetBillboardType;
    auto* const carts = catalog.GetBillboardCarts;
    auto* const navigation = catalog.GetBillboardEnableNavigation;
    auto* const restore = catalog.GetBillboardRestoreWindow;
    using Texts = std::vector<std::string>;
    const auto ask = [&] {
        EXPECT_EQ(take(ids("C")), (Texts{"A", "B"}));
        EXPECT_EQ(ids("A"), nullptr);
        EXPECT_EQ(ids("EMPTY"), nullptr);
        EXPECT_EQ(take(actions("A")), (Texts{"http://example.com/?a=1&b=_^L1^_", "tool.exe"}));
        EXPECT_EQ(take(actions("B")), (Texts{"one"}));
        EXPECT_EQ(take(file("A")) + take(type("A")) + take(carts("A")), "a.jbbpromotion1,2");
        EXPECT_EQ(take(file("B")) + take(type("B")) + take(carts("B")), "b.jbbstandard(null)");
        EXPECT_EQ(take(file("a")) + take(file("")) + take(file(nullptr)), "(null)(null)(null)");
        EXPECT_EQ(navigation("A") + restore("A") + navigation("B") + restore("?"), 2);
    };
    std::vector<std::jthread> askers;
    for (int asker = 0; asker < 4; ++asker) {
        askers.emplace_back([&] {
            for (int round = 0; round < 200; ++round) ask();
        });
    }
    askers.clear();
    catalog.UnInitialize();
    EXPECT_EQ(take(file("A")), "(null)");
}

TEST_F(RulesModulesTest, ABrokenOrMissingCatalogGivesEmptyAnswers) {
    std::string nested;
    for (int depth = 0; depth < 40; ++depth) nested += "<x>";
    for (int depth = 0; depth < 40; ++depth) nested += "</x>";
    for (const std::string& text : {std::string("<catalog><billboard"), std::string(), nested}) {
        folder_.write("catalog.xml", text);
        const Catalog catalog;
        EXPECT_EQ(take(catalog.GetBillboardType("A")), "(null)");
        EXPECT_EQ(catalog.GetBillboardIds("C"), nullptr);
    }
    setText("Settings", "DataPath", "Q:\\nowhere");
    EXPECT_EQ(Catalog().GetBillboardRestoreWindow("A"), 0);
}

/** The module's problem report; empty without one. */
std::string problemOf(const std::string& dataFile) {
    return jsw::test::readFile(std::string(std::getenv("ALLUSERSPROFILE")) + "\\" + localId() +
                               dataFile + "-problem.txt");
}

TEST_F(RulesModulesTest, TheStoreOfAHostIsFoundByTheLibrarysRule) {
    const std::pair<const char*, const char*> rows[] = {{"qlab", "QuillonInkjet"},
                                                        {"bzab", "BrennickLaser"},
                                                        {"prin", "Quillon Tools"},
                                                        {"q", "Quillon Tools"}};
    for (const auto& [id, key] : rows) {
        const std::string store = std::string("Software\\") + key + "\\JSW\\Local\\" + id;
        EXPECT_FALSE(jsw::sample::HostStore(id).exists()) << id;
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, (store + "\\Settings").c_str(), "DllPath", REG_SZ, key,
                        static_cast<DWORD>(std::strlen(key) + 1));
        EXPECT_EQ(jsw::sample::HostStore(id).text("Settings\\", "DllPath", ""), key);
    }
}

struct Engine {
    const ModuleHandle module = load("reng.dll");
    JSW_RULES_ENTRY_POINTS(ENTRY_POINT)

    /** "result" of every rule, with "+" where the history is checked, in the engine's order. */
    [[nodiscard]] std::string results() const {
        std::string all;
        while (IsMoreRules() != 0) {
            all += take(EvaluateRule());
            all += IsHistoryChecked() != 0 ? "+ " : " ";
        }
        return all;
    }
};

TEST_F(RulesModulesTest, EngineWalksItsRulesAndRemembersWhatWasShown) {
    folder_.write("rules.xml", R"(<rules>
        <rule result="STATUS"/>
        <rule result="LOW" history="true"><ink below="15"/></rule>
        <rule result="ONCE"><shown carts="1,2" below="1"/><shown below="1"/></rule>
        <rule result="SIM"><printer contains="sim"/><job equals="a.pdf"/></rule>
    </rules>)");
    const Engine engine;
    InkInfo ink = {};
    ink.InkPercent[0] = 14;
    std::fill(std::begin(ink.InkPercent) + 1, std::end(ink.InkPercent), -1);

    ASSERT_EQ(engine.InitializeEngine(countedAllocate, &ink, "A Simulator", "A.PDF", 3, 1), 1);
    EXPECT_EQ(engine.results(), "STATUS LOW+ ONCE SIM ");
    EXPECT_EQ(take(engine.EvaluateRule()), "(null)");
    engine.UpdateSettings("", 1, 0);  // an ink status page was found, nothing was shown
    engine.UnInitialize();
    EXPECT_EQ(engine.IsMoreRules(), 0);

    ASSERT_EQ(engine.InitializeEngine(countedAllocate, nullptr, nullptr, nullptr, -1, 1), 1);
    EXPECT_EQ(engine.results(), "STATUS (null)+ ONCE (null) ");
    engine.UpdateSettings("1,2", 1, 1);
    engine.UnInitialize();

    ASSERT_EQ(engine.InitializeEngine(countedAllocate, &ink, "", "", 1, 1), 1);
    EXPECT_EQ(engine.results(), "STATUS LOW+ (null) (null) ");
    engine.UnInitialize();
    EXPECT_EQ(storedNumber("Settings\\RulesEngine", "SpecialShown"), 1U);
    EXPECT_EQ(storedNumber("Settings\\RulesEngine", "InkShown"), 1U);
    EXPECT_EQ(storedNumber("Settings\\RulesEngine\\Carts", "1,2"), 1U);
}

TEST_F(RulesModulesTest, EngineDoesNotStartOnAFileItCannotRead) {
    const Engine engine;
    EXPECT_EQ(engine.InitializeEngine(countedAllocate, nullptr, "", "", 1, 1), 0) << "missing";
    for (const char* text : {"", "<rules>", "<rules><rule result='A'><inc/></rule></rules>"}) {
        folder_.write("rules.xml", text);
        EXPECT_EQ(engine.InitializeEngine(countedAllocate, nullptr, "", "", 1, 1), 0) << text;
        EXPECT_EQ(engine.IsMoreRules(), 0) << text;
    }
    EXPECT_NE(problemOf("rules.xml").find("unknown condition <inc>"), std::string::npos)
        << problemOf("rules.xml");
    folder_.write("rules.xml", "<rules/>");
    EXPECT_EQ(engine.InitializeEngine(countedAllocate, nullptr, "", "", 1, 1), 1);
    EXPECT_EQ(engine.IsMoreRules(), 0);
    EXPECT_EQ(problemOf("rules.xml"), "");
}

/** The parser raises an exception internally; every job of a host with such a file loads it again.
 */
TEST_F(RulesModulesTest, AFileItCannotReadCostsTheHostNothing) {
    folder_.write("rules.xml", "<rules><rule result='A'><inc/></rule></rules>");
    const auto useAndFree = [&](int times) {
        for (int i = 0; i < times; ++i) {
            EXPECT_EQ(Engine().InitializeEngine(countedAllocate, nullptr, "", "", 1, 1), 0);
        }
        EXPECT_EQ(GetModuleHandleA("reng.dll"), nullptr);
        return jsw::test::processState();
    };
    const auto before = useAndFree(2);
    const auto after = useAndFree(20);
    EXPECT_EQ(after.freeTlsIndexes, before.freeTlsIndexes);
    EXPECT_LT(after.heapBytes, before.heapBytes + 400);
}

}  // namespace
