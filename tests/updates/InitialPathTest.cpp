#include "PublicLib/logging/BasicLogger.h"
#include "jsw/updates/AppUpdatesController.h"
#include "tests/support/HostTest.h"

#include <gmock/gmock.h>

namespace jsw {

class InitialPathTest : public test::HostTest {
  protected:
    AppUpdatesController controller_;
};

TEST_F(InitialPathTest, InitialPathsAreWrittenOnceAndReportedOneSidedly) {
    const Settings settings;
    settings.write(setting::kInitialPath, "Maker\\JSW");
    const std::string initial = controller_.getInitialPath();
    EXPECT_THAT(initial, ::testing::EndsWith("\\Maker\\JSW"));
    EXPECT_THAT(initial, ::testing::Not(::testing::HasSubstr("\\\\")));
    const struct {
        const char* data;  // null: no value
        const char* dll;
        bool result;
        std::string dataAfter;
        std::string dllAfter;
    } rows[] = {
        {nullptr, nullptr, true, initial, initial},  {"", "", true, initial, initial},
        {nullptr, "here", true, initial, "here"},    {"", "here", true, initial, "here"},
        {"there", nullptr, false, "there", initial}, {"there", "", false, "there", initial},
        {"there", "here", false, "there", "here"},
    };
    const auto set = [&](const setting::Text& setting, const char* value) {
        settings.deleteValue(setting.key, setting.name);
        if (value != nullptr) settings.write(setting, value);
    };
    startLog();
    const auto says = [](const std::string& text) {
        return hasLine("AppUpdatesController::setInitialPaths() " + text);
    };
    for (const auto& row : rows) {
        set(setting::kDataPath, row.data);
        set(setting::kDllPath, row.dll);
        BasicLogger::existing()->deleteLog();
        EXPECT_EQ(controller_.setInitialPaths(), row.result);
        EXPECT_EQ(says("Setting initial data path=" + initial + "."), row.dataAfter == initial);
        EXPECT_EQ(says("DataPath was already set."), row.dataAfter != initial);
        EXPECT_EQ(says("Setting initial dll path=" + initial + "."), row.dllAfter == initial);
        EXPECT_EQ(says("DllPath was already set."), row.dllAfter != initial);
        EXPECT_EQ(settings.textOf(setting::kDataPath), row.dataAfter);
        EXPECT_EQ(settings.textOf(setting::kDllPath), row.dllAfter);
        EXPECT_FALSE(controller_.setInitialPaths()) << "everything is there now";
    }
}

TEST_F(InitialPathTest, InitialPathMayBeMissing) {
    EXPECT_THAT(controller_.getInitialPath(), ::testing::EndsWith("\\"));
    Settings().setValue("Settings\\Updater", "InitialPath", 1);
    EXPECT_THAT(controller_.getInitialPath(), ::testing::EndsWith("\\"));
}

}  // namespace jsw
