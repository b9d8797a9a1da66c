#include "PublicLib/logging/BasicLogger.h"
#include "jsw/updates/AppUpdatesController.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <shlobj.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <optional>

namespace jsw {

using ::testing::ElementsAre;

namespace {

constexpr std::size_t kFiles = 4;
constexpr std::array<const setting::Text*, kFiles> kInUse = {
    &setting::kCatalogModule, &setting::kRulesEngineModule, &setting::kViewModule,
    &setting::kBillBoardVersionFile};
constexpr std::array<const char*, kFiles> kNewNames = {"new-cat.dll", "new-rules.dll",
                                                       "new-view.dll", "new-version.txt"};
constexpr char kTag[] = "AppUpdatesController::performPostUpdateChangesIfRequired() ";

}  // namespace

/// A store after an update: old modules in use, new names announced, in separate folders.
class PostUpdateTest : public test::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        settings_.emplace();
        settings_->write(setting::kDriverName, "Driver");
        settings_->write(setting::kDataUpdatesDirectory,
                         "JswTest" + folder_.path().substr(folder_.path().size() - 12));
        updates_ = settings_->dataUpdatesFolder();
        std::filesystem::create_directories(updates_);
        restore();
    }

    void TearDown() override {
        std::filesystem::remove_all(std::filesystem::path(updates_).parent_path());
        HostTest::TearDown();
    }

    void restore() {
        settings_->write(setting::kDataPath, "old data");
        settings_->write(setting::kDllPath, folder_.path());
        settings_->write(setting::kCatalogFilename, "catalog.xml");
        settings_->write(setting::kDefaultBillboardFile, "cached.jbb");
        for (std::size_t i = 0; i < kFiles; ++i) {
            settings_->write(*kInUse[i], "old");
            settings_->setValue(setting::kUpdatedFilesKey, kInUse[i]->name, kNewNames[i]);
        }
    }

    static void put(const std::string& path, bool present) {
        std::filesystem::remove(path);
        if (present) std::ofstream(path) << "x";
    }

    std::string text(const setting::Text& setting) const {
        std::string value = "(none)";
        settings_->read(setting, value);
        return value;
    }

    std::uint32_t flag(const setting::Number& setting) const {
        std::uint32_t value = 4711;
        settings_->read(setting, value);
        return value;
    }

    /// The log lines of performPostUpdateChangesIfRequired() itself.
    static std::vector<std::string> ownLines() {
        std::vector<std::string> own;
        for (const std::string& line : logLines()) {
            if (line.starts_with(kTag)) own.push_back(line.substr(sizeof(kTag) - 1));
        }
        return own;
    }

    std::optional<Settings> settings_;
    std::string updates_;
    AppUpdatesController controller_;
};

/// The two flags: 1 is a request, 2 is final, new software implies new data.
TEST_F(PostUpdateTest, EveryStateOfFlagsAndFiles) {
    for (unsigned state = 0; state < 9u << (kFiles + 1); ++state) {
        const unsigned flags = state % 9, mask = state / 9;
        const std::uint32_t software = flags % 3, data = flags / 3;
        const auto hasFile = [&](std::size_t i) { return (mask >> i & 1) != 0; };
        const bool hasCatalog = hasFile(kFiles);
        restore();
        for (std::size_t i = 0; flags == 0 && i < kFiles; ++i) {
            put(folder_.file(kNewNames[i]), hasFile(i));
        }
        if (flags == 0) put(updates_ + "\\catalog.xml", hasCatalog);
        settings_->write(setting::kCompleteSoftwareUpdated, software);
        settings_->write(setting::kDataUpdated, data);

        controller_.performPostUpdateChangesIfRequired();

        SCOPED_TRACE(concat("software ", software, " data ", data, " files ", mask));
        const bool wanted = software == 1;
        const bool switched = (data == 1 || (wanted && data == 0)) && hasCatalog;
        for (std::size_t i = 0; i < kFiles; ++i) {
            EXPECT_EQ(text(*kInUse[i]), wanted && hasFile(i) ? kNewNames[i] : "old");
        }
        const bool allFiles = (mask & 15) == 15;
        EXPECT_EQ(flag(setting::kCompleteSoftwareUpdated), wanted ? allFiles * 2u : software);
        EXPECT_EQ(flag(setting::kDataUpdated), data == 2 || switched ? 2u : 0u);
        EXPECT_EQ(text(setting::kDataPath), switched ? updates_ : "old data");
        const bool cleared = switched || (wanted && data == 2);
        EXPECT_EQ(text(setting::kDefaultBillboardFile), cleared ? "" : "cached.jbb");
    }
}

TEST_F(PostUpdateTest, SaysWhatItDoesWithAModuleMissing) {
    startLog();
    for (const char* name : {"new-cat.dll", "new-rules.dll", "new-version.txt"}) {
        folder_.write(name, "x");
    }
    settings_->write(setting::kCompleteSoftwareUpdated, 1);
    controller_.performPostUpdateChangesIfRequired();
    EXPECT_THAT(
        ownLines(),
        ElementsAre(
            "Catalog Dll file was updated, updating file name in setting to : new-cat.dll",
            "Rules Engine Dll file was updated, updating file name in setting to : new-rules.dll",
            "View Dll file was NOT updated. File does not exist : " + folder_.file("new-view.dll"),
            "BillBoard Version file was updated, updating file name in setting to : "
            "new-version.txt",
            "All the binaries have NOT been updated atleast once, resetting the "
            "CompleteUpdateFlag",
            "The data updated flags was set. A data update was performed for the first time",
            "Catalog file does NOT exist : catalog.xml",
            "Data update was not installed successfully, resetting Data Update flag"));
}

TEST_F(PostUpdateTest, SaysWhatItDoesWhenAllIsThere) {
    startLog();
    for (const char* name : kNewNames) folder_.write(name, "x");
    std::ofstream(updates_ + "\\catalog.xml") << "x";
    settings_->write(setting::kDllPath, folder_.path() + "\\");
    settings_->write(setting::kCompleteSoftwareUpdated, 1);
    controller_.performPostUpdateChangesIfRequired();
    controller_.performPostUpdateChangesIfRequired();
    auto lines = ownLines();
    ASSERT_EQ(lines.size(), 10u);
    lines.erase(lines.begin(), lines.begin() + 4);
    EXPECT_THAT(
        lines,
        ElementsAre(
            "All the binaries have been updated at least once, setting the CompleteUpdateFlag to "
            "DO NOT CHANGE",
            "The data updated flags was set. A data update was performed for the first time",
            "Data was updated successfully, file exists : catalog.xml",
            "Updating the data path to : " + updates_,
            "Updating the Data Updated flag to DO NOT CHANGE",
            "The updated flags are either turned off or are set to do not change."));
}

TEST_F(PostUpdateTest, SaysWhyItChangesNothing) {
    startLog();
    for (const char* name : kNewNames) folder_.write(name, "x");
    settings_->write(setting::kInitialPath, "Maker");
    settings_->write(setting::kCompleteSoftwareUpdated, 1);
    settings_->write(setting::kDataPath, "");
    controller_.performPostUpdateChangesIfRequired();
    settings_->write(setting::kCheckForUpdates, 0);
    controller_.performPostUpdateChangesIfRequired();
    EXPECT_THAT(ownLines(),
                ElementsAre("Initial run of the JSW. An update could not have been performed yet.",
                            "The check for updates has been TURNED OFF. No updates could be "
                            "performed"));
    EXPECT_TRUE(hasLine("-AppUpdatesController::setInitialPaths()  rc=true"));
    EXPECT_EQ(flag(setting::kCompleteSoftwareUpdated), 1u);
    EXPECT_EQ(text(setting::kViewModule), "old");
}

TEST_F(PostUpdateTest, FrozenDataIsOnlyLookedUpAfresh) {
    startLog();
    settings_->write(setting::kCompleteSoftwareUpdated, 1);
    settings_->write(setting::kDataUpdated, 2);
    controller_.performPostUpdateChangesIfRequired();
    EXPECT_EQ(ownLines().back(), "The data updated flags already set to DO NOT CHANGE");
}

/// A final flag without a switch would keep the old files for ever.
TEST_F(PostUpdateTest, WhatCannotBeStoredIsAFailedSwitch) {
    const struct {
        const char* value;
        std::uint32_t softwareAfter, dataAfter;
        const char* reset;
    } rows[] = {
        {"Catalog", 0, 2, "resetting the CompleteUpdateFlag"},
        {"RulesEngine", 0, 2, "resetting the CompleteUpdateFlag"},
        {"View", 0, 2, "resetting the CompleteUpdateFlag"},
        {"BillBoardVersionInfoFileName", 0, 2, "resetting the CompleteUpdateFlag"},
        {"DataPath", 2, 0, "resetting Data Update flag"},
        {"CompleteSoftwareUpdated", 1, 2, "All the binaries have been updated at least once"},
    };
    startLog();
    for (const char* name : kNewNames) folder_.write(name, "x");
    put(updates_ + "\\catalog.xml", true);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        restore();
        settings_->write(setting::kCompleteSoftwareUpdated, 1);
        settings_->write(setting::kDataUpdated, 0);
        BasicLogger::existing()->deleteLog();
        {
            const auto refuse = test::replaceImport<decltype(RegSetValueExA)>(
                test::ImportTable(GetModuleHandleA(nullptr)), "RegSetValueExA",
                [&](auto original, HKEY key, const char* name, auto... rest) {
                    return std::string(name) == row.value ? LSTATUS{ERROR_ACCESS_DENIED}
                                                          : original(key, name, rest...);
                });
            controller_.performPostUpdateChangesIfRequired();
        }
        EXPECT_EQ(flag(setting::kCompleteSoftwareUpdated), row.softwareAfter);
        EXPECT_EQ(flag(setting::kDataUpdated), row.dataAfter);
        EXPECT_TRUE(
            hasLine(concat("ERROR - unable to write the setting ", row.value, ", error=5")));
        EXPECT_TRUE(logContains(row.reset));
    }
}

TEST_F(PostUpdateTest, AnUpdateWhoseFolderIsUnknownIsLeftForLaterWithALine) {
    startLog();
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    {
        const auto refuse = test::replaceImport<decltype(RegSetValueExA)>(
            imports, "RegSetValueExA", [](auto original, HKEY key, const char* name, auto... rest) {
                return std::string(name) == "DllPath" ? LSTATUS{ERROR_ACCESS_DENIED}
                                                      : original(key, name, rest...);
            });
        settings_->deleteValue(setting::kDllPath.key, setting::kDllPath.name);
        settings_->write(setting::kCompleteSoftwareUpdated, 1);
        settings_->write(setting::kDataUpdated, 2);
        controller_.performPostUpdateChangesIfRequired();
        EXPECT_TRUE(hasLine("ERROR - the folder of the updated modules is unknown"));
        EXPECT_EQ(flag(setting::kCompleteSoftwareUpdated), 1u);
    }
    restore();
    settings_->write(setting::kCompleteSoftwareUpdated, 0);
    settings_->write(setting::kDataUpdated, 1);
    const auto refuse = test::replaceImport<decltype(SHGetFolderPathA)>(
        imports, "SHGetFolderPathA", [](auto...) { return E_FAIL; });
    controller_.performPostUpdateChangesIfRequired();
    EXPECT_TRUE(hasLine("ERROR - the folder of the updated data is unknown"));
    EXPECT_EQ(flag(setting::kDataUpdated), 1u);
    EXPECT_EQ(text(setting::kDataPath), "old data");
}

/// An empty name joined with a folder names the folder, which exists; a folder is no module.
TEST_F(PostUpdateTest, NamesThatAreNoFilesAreNotTakenIntoUse) {
    folder_.write("folder.dll\\inside.dll", "x");
    const std::string outside =
        "..\\" + folder_.path().substr(folder_.path().rfind('\\') + 1) + "\\folder.dll\\inside.dll";
    for (const std::string& name :
         {std::string(), std::string("folder.dll"), std::string("folder.dll\\inside.dll"), outside,
          std::string(".")}) {
        settings_->write(setting::kCompleteSoftwareUpdated, 1);
        settings_->write(setting::kDataUpdated, 1);
        settings_->write(setting::kCatalogFilename, name);
        for (const auto* file : kInUse) {
            settings_->setValue(setting::kUpdatedFilesKey, file->name, name);
        }
        controller_.performPostUpdateChangesIfRequired();
        for (const auto* file : kInUse) EXPECT_EQ(text(*file), "old") << name;
        EXPECT_EQ(flag(setting::kCompleteSoftwareUpdated), 0u) << name;
        EXPECT_EQ(flag(setting::kDataUpdated), 0u) << name;
        EXPECT_EQ(text(setting::kDataPath), "old data") << name;
    }
}

TEST_F(PostUpdateTest, FlagsOfOtherValuesAndTypesRequestNothing) {
    for (const char* name : kNewNames) folder_.write(name, "x");
    for (const std::uint32_t value : {3u, 0xFFFFFFFFu}) {
        settings_->write(setting::kCompleteSoftwareUpdated, value);
        settings_->write(setting::kDataUpdated, value);
        controller_.performPostUpdateChangesIfRequired();
        EXPECT_EQ(flag(setting::kCompleteSoftwareUpdated), value);
        EXPECT_EQ(flag(setting::kDataUpdated), value);
    }
    settings_->setValue("Settings\\Updater", "CompleteSoftwareUpdated", "1");
    settings_->setValue("Settings\\Updater", "DataUpdated", "1");
    controller_.performPostUpdateChangesIfRequired();
    EXPECT_EQ(text(setting::kViewModule), "old");
    EXPECT_EQ(text(setting::kDataPath), "old data");
}

}  // namespace jsw
