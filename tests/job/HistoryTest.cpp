#include "PublicLib/text/Text.h"
#include "jsw/History.h"
#include "tests/support/HeldUpThread.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportGate.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <functional>
#include <gmock/gmock.h>

namespace jsw {

using ::testing::ElementsAre;

class HistoryTest : public test::HostTest {
  protected:
    static std::vector<std::string> storedNames() {
        std::vector<std::string> names;
        Settings().getValueNames(setting::kHistoryIdsKey, names);
        return names;
    }
};

TEST_F(HistoryTest, KeepsTwentyFiveByDefaultAndTheNewestAsCurrent) {
    for (const std::uint32_t maxSize : {0U, 25U}) {
        Settings().write(setting::kHistoryMaxSize, maxSize);
        History history;
        for (int i = 0; i <= 25; ++i) history.add(concat("B", i));
        EXPECT_EQ(history.size(), 25);
        EXPECT_FALSE(history.isPresentInHistory("B0"));
        EXPECT_FALSE(history.isPresentInHistory("b1"));
        EXPECT_TRUE(history.isPresentInHistory("B1"));
        EXPECT_EQ(history.getNext(), "B1");
        EXPECT_EQ(history.getPrevious(), "B25");
        history.clear();
    }
}

TEST_F(HistoryTest, SizesOfOneAndFourBillionWork) {
    Settings().write(setting::kHistoryMaxSize, 1);
    {
        History history;
        history.add("A");
        history.add("B");
        EXPECT_EQ(history.getNext(), "B");
        EXPECT_EQ(history.getPrevious(), "B");
    }
    Settings().write(setting::kHistoryMaxSize, 0xFFFFFFFF);
    History history;
    for (int i = 0; i < 1000; ++i) history.add("X");
    EXPECT_EQ(history.size(), 1001);
}

TEST_F(HistoryTest, EmptyListHasNoNeighbours) {
    History history;
    EXPECT_EQ(history.getPrevious(), "");
    EXPECT_EQ(history.getNext(), "");
    history.add("A");
    EXPECT_EQ(history.getPrevious(), "A");
}

TEST_F(HistoryTest, ComesBackAtTheNextJobOldestFirst) {
    {
        History history;
        history.add("A");
        history.add("B");
    }
    EXPECT_THAT(storedNames(), ElementsAre("Id0", "Id1"));
    History history;
    EXPECT_EQ(history.getNext(), "A");
}

TEST_F(HistoryTest, ALimitAboveAHundredKeepsWhatIsStored) {
    Settings().write(setting::kHistoryMaxSize, 150);
    {
        History history;
        for (int i = 0; i < 150; ++i) history.add(concat("B", i));
    }
    History history;
    EXPECT_EQ(history.size(), 150);
    EXPECT_TRUE(history.isPresentInHistory("B149"));
}

TEST_F(HistoryTest, TheNextJobReadsWhatAThreadOfTheJobBeforeStillHolds) {
    const auto held = History::instance();
    held->add("A");
    History::destroy();
    EXPECT_TRUE(History::instance()->isPresentInHistory("A"));
    History::destroy();
}

TEST_F(HistoryTest, AShorterListRemovesWhatALongerOneLeft) {
    const Settings settings;
    for (int i = 0; i < 300; ++i) {
        settings.setValue(setting::kHistoryIdsKey, concat("Id", i), "old");
    }
    settings.setValue(setting::kHistoryIdsKey, "Identity", "a foreign value");
    for (const std::uint32_t maxSize : {120U, 2U}) {
        settings.write(setting::kHistoryMaxSize, maxSize);
        test::ImportGate gate{test::ImportTable(GetModuleHandleA(nullptr))};
        { History history; }
        // A job waits for this: surplus values are neither read nor opened one by one.
        EXPECT_LE(gate.calls("RegQueryValueExA"), 1 + maxSize + 100);
        EXPECT_LE(gate.calls("RegOpenKeyExA"), 5 + maxSize);
        EXPECT_EQ(storedNames().size(), std::min(maxSize, BasicSettings::kMaxNames));
    }
    EXPECT_THAT(storedNames(), ElementsAre("Id0", "Id1"));
}

TEST_F(HistoryTest, NamesInOtherLetterCaseAreTheSameValues) {
    for (const char* name : {"id0", "ID1", "iD2"}) {
        Settings().setValue(setting::kHistoryIdsKey, name, std::string("B") + name[2]);
    }
    {
        History history;
        history.add("B3");
    }
    History history;
    for (const char* id : {"B0", "B1", "B2", "B3"}) EXPECT_EQ(history.getNext(), id);
    EXPECT_EQ(history.size(), 4);
}

TEST_F(HistoryTest, WhatAnotherProcessAddsMeanwhileSurvives) {
    const Settings settings;
    for (const char* name : {"Id0", "Id1", "Id2"}) {
        settings.setValue(setting::kHistoryIdsKey, name, name);
    }
    settings.write(setting::kHistoryMaxSize, 2);
    {
        History history;
        settings.setValue(setting::kHistoryIdsKey, "Id9", "of the other");
        history.add("B");
    }
    EXPECT_THAT(storedNames(), ElementsAre("Id0", "Id1", "Id9"));
}

TEST_F(HistoryTest, WhatCannotBeRemovedIsToldToTheLog) {
    startLog();
    Settings().setValue(setting::kHistoryIdsKey, "foreign", "A");
    const auto failing = test::replaceImport<decltype(RegDeleteValueA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegDeleteValueA",
        [](HKEY, const char*) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    { History history; }
    EXPECT_TRUE(hasLine(
        "History::save: Unable to remove an entry of an earlier history, name=foreign, error=5"));
    const auto keyStays = test::replaceImport<decltype(RegDeleteKeyA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegDeleteKeyA",
        [](HKEY, const char*) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    History().clear();
    EXPECT_TRUE(hasLine("History::clear: Unable to clear history from the registry"));
    EXPECT_TRUE(logContains("RegistryKey::recurseDeleteKey() RegDeleteKey(): Win32(5"));
}

TEST_F(HistoryTest, AClearThatTheRegistryRefusesIsMadeGoodAtTheEnd) {
    for (const char* name : {"Id0", "Id1", "Id2"}) {
        Settings().setValue(setting::kHistoryIdsKey, name, name);
    }
    const auto keyStays = test::replaceImport<decltype(RegDeleteKeyA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegDeleteKeyA",
        [](HKEY, const char*) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    {
        History history;
        history.clear();
        history.add("B");
    }
    EXPECT_THAT(storedNames(), ElementsAre("Id0"));
}

TEST_F(HistoryTest, ClearDeletesTheKeyForGood) {
    Settings().setValue(setting::kHistoryIdsKey, "Id0", "A");
    {
        History history;
        history.clear();
        EXPECT_EQ(history.size(), 0);
        EXPECT_EQ(history.getNext(), "");
    }
    std::vector<std::string> names;
    EXPECT_FALSE(Settings().getValueNames(setting::kHistoryIdsKey, names)) << "there is a key";
}

TEST_F(HistoryTest, NobodySeesItHalfwayThroughAChange) {
    const std::function<void(History&)> others[] = {
        [](History& history) { history.add("B"); },
        [](History& history) { history.size(); },
        [](History& history) { history.isPresentInHistory("A"); },
        [](History& history) { history.getNext(); },
        [](History& history) { history.getPrevious(); },
        [](History& history) { history.clear(); },
    };
    for (const auto& use : others) {
        Settings().setValue(setting::kHistoryIdsKey, "Id0", "A");
        History history;
        test::HeldUpThread other([&] { use(history); });
        const auto remove = test::replaceImport<decltype(RegDeleteKeyA)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "RegDeleteKeyA",
            [&](auto original, HKEY key, const char* path) {
                EXPECT_TRUE(other.meetsALock());
                return original(key, path);
            });
        history.clear();
        other.join();
    }
}

}  // namespace jsw
