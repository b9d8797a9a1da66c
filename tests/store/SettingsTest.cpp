#include "PublicLib/os/Localize.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportGate.h"
#include "tests/support/SpoolerPrinter.h"

#include <windows.h>

#include <shlobj.h>

#include <functional>
#include <gmock/gmock.h>
#include <map>

namespace jsw {

using namespace ::testing;

namespace {

/// The registry's value: a number, a quoted text or "(none)".
std::string stored(const Settings& settings, const char* key, const char* name) {
    std::uint32_t number = 0;
    std::string text;
    if (settings.getValue(key, name, number)) return std::to_string(number);
    return settings.getValue(key, name, text) ? "'" + text + "'" : "(none)";
}

}  // namespace

using test::exists;
using SettingsTest = test::HostTest;

TEST_F(SettingsTest, FreshStoreGetsTheUpdaterDefaultsWhenTheyAreRead) {
    const Settings settings;
    ASSERT_TRUE(settings.isValid());
    const std::pair<const setting::Number*, std::uint32_t> numbers[] = {
        {&setting::kCheckForUpdates, 1},
        {&setting::kUpdatesCheckFrequency, 30},
        {&setting::kDataUpdated, 0},
        {&setting::kCompleteSoftwareUpdated, 0},
    };
    for (const auto& [number, expected] : numbers) {
        std::uint32_t value = 4711;
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(settings.read(*number, value), Read::missing) << number->name;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND)) << number->name;
        EXPECT_EQ(stored(settings, number->key, number->name), "(none)");
        EXPECT_EQ(settings.readOrWriteDefault(*number, value), Read::found);
        EXPECT_EQ(value, expected) << number->name;
        EXPECT_EQ(stored(settings, number->key, number->name), std::to_string(expected));
    }
    std::string text = "old";
    EXPECT_EQ(settings.readOrWriteDefault(setting::kUpdaterExecutable, text), Read::found);
    EXPECT_EQ(text, "");
    EXPECT_EQ(stored(settings, "Settings\\Updater", "BillBoardUpdaterExecutableName"), "''");
}

TEST_F(SettingsTest, ReadingNeverMakesAStore) {
    const auto root = Localize::getInstance()->getProductLineRoot();
    RegistryKey::recurseDeleteKey(root, HKEY_LOCAL_MACHINE);
    const Settings settings;
    EXPECT_FALSE(settings.isValid());
    std::uint32_t number = 4711;
    std::string text = "old";
    EXPECT_EQ(settings.readOrWriteDefault(setting::kCheckForUpdates, number), Read::missing);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(settings.readOrWriteDefault(setting::kUpdaterExecutable, text), Read::missing);
    EXPECT_FALSE(settings.isUpdated(setting::kDataUpdated));
    EXPECT_EQ(number, 4711u);
    EXPECT_EQ(text, "old");
    EXPECT_FALSE(exists(root));
}

TEST_F(SettingsTest, ValuesOfTheWrongTypeReadAsFalseWithTheOutputUntouched) {
    const Settings settings;
    settings.setValue("Settings\\Updater", "CheckForUpdates", "1");
    settings.setValue("Settings\\", "DataPath", 5);
    std::uint32_t number = 4711;
    std::string text = "old";
    EXPECT_EQ(settings.readOrWriteDefault(setting::kCheckForUpdates, number), Read::wrongType);
    EXPECT_NE(GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(settings.read(setting::kDataPath, text), Read::wrongType);
    std::vector<std::uint8_t> bytes{9};
    EXPECT_FALSE(settings.getValue("Settings\\", "DataPath", bytes));
    EXPECT_EQ(number, 4711u);
    EXPECT_EQ(text, "old");
    EXPECT_THAT(bytes, ElementsAre(9));
    EXPECT_EQ(stored(settings, "Settings\\Updater", "CheckForUpdates"), "'1'");
}

TEST_F(SettingsTest, FlagsThatSayDoNotChangeAreKept) {
    const Settings settings;
    constexpr struct {
        std::uint32_t before;
        UpdateFlag set;
        std::uint32_t after;
    } rows[] = {
        {0, UpdateFlag::updated, 1},     {1, UpdateFlag::none, 0},
        {1, UpdateFlag::doNotChange, 2}, {2, UpdateFlag::updated, 2},
        {2, UpdateFlag::none, 2},        {7, UpdateFlag::none, 0},
        {0, UpdateFlag::none, 0},        {2, UpdateFlag::doNotChange, 2},
    };
    for (const auto* flag : {&setting::kDataUpdated, &setting::kCompleteSoftwareUpdated}) {
        for (const auto& row : rows) {
            settings.write(*flag, row.before);
            EXPECT_TRUE(settings.setFlag(*flag, row.set));
            EXPECT_EQ(stored(settings, flag->key, flag->name), std::to_string(row.after))
                << flag->name << " " << row.before;
        }
    }
    for (std::uint32_t state = 0; state < 4; ++state) {
        settings.write(setting::kDataUpdated, state);
        settings.write(setting::kCompleteSoftwareUpdated, 3 - state);
        EXPECT_EQ(settings.isUpdated(setting::kDataUpdated), state == 1);
        EXPECT_EQ(settings.isUpdated(setting::kCompleteSoftwareUpdated), 3 - state == 1);
    }
}

TEST_F(SettingsTest, AFlagThatCannotBeReadIsNotWritten) {
    const Settings settings;
    settings.write(setting::kDataUpdated, 2);
    {
        const auto refuse = test::replaceImport<decltype(RegQueryValueExA)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "RegQueryValueExA",
            [](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
        EXPECT_FALSE(settings.setFlag(setting::kDataUpdated, UpdateFlag::updated));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    }
    EXPECT_EQ(stored(settings, setting::kUpdaterKey, "DataUpdated"), "2");
    settings.setValue(setting::kUpdaterKey, "DataUpdated", "2");
    EXPECT_TRUE(settings.setFlag(setting::kDataUpdated, UpdateFlag::updated));
    EXPECT_EQ(stored(settings, setting::kUpdaterKey, "DataUpdated"), "1");
}

TEST_F(SettingsTest, SharedAndRootlessStoresLieWhereTheyShould) {
    const Settings settings;
    EXPECT_EQ(settings.getKeyPath(false), "Software\\QuillonInkjet\\JSW\\Local\\qlte\\");
    EXPECT_EQ(settings.getKeyPath(true), "Software\\QuillonInkjet\\JSW\\Shared\\");
    EXPECT_TRUE(settings.setValue("Settings\\", "x", 5, true));
    EXPECT_TRUE(exists("Software\\QuillonInkjet\\JSW\\Shared\\Settings"));

    const BasicSettings plain("Software\\Root", "");
    EXPECT_EQ(plain.getKeyPath(true), "Software\\Root\\");
    EXPECT_FALSE(plain.rootExists());
    EXPECT_TRUE(plain.setValue("Sub", "a", "1"));
    EXPECT_TRUE(plain.setValue("Sub", "b", "2"));
    std::vector<std::string> names;
    EXPECT_TRUE(plain.getValueNames("Sub", names));
    EXPECT_THAT(names, UnorderedElementsAre("a", "b"));
    EXPECT_TRUE(plain.deleteValue("Sub", "a"));
    EXPECT_FALSE(plain.deleteValue("Sub", "a"));
    EXPECT_TRUE(plain.deleteKey("Sub"));
    EXPECT_FALSE(plain.getValueNames("Sub", names));
}

TEST_F(SettingsTest, ListsTextsAndPassesOverWhatIsNone) {
    const Settings settings;
    std::vector<NamedText> texts;
    EXPECT_FALSE(settings.getStringValues(setting::kGuiKey, texts));
    settings.setValue(setting::kGuiKey, "a", "1");
    settings.setValue(setting::kGuiKey, "b", 2);
    settings.setValue(setting::kGuiKey, "c", "");
    EXPECT_TRUE(settings.getStringValues(setting::kGuiKey, texts));
    std::map<std::string, std::string> found;
    for (const auto& [name, text] : texts) found[name] = text.value_or("(none)");
    EXPECT_THAT(found, ElementsAre(Pair("a", "1"), Pair("b", "(none)"), Pair("c", "")));
}

TEST_F(SettingsTest, AListThatBreaksOffLeavesTheOutputsAsTheyWere) {
    const Settings settings;
    for (const char* name : {"a", "b", "c"}) settings.setValue(setting::kGuiKey, name, "1");
    const auto breakOff = test::replaceImport<decltype(RegEnumValueA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegEnumValueA",
        [](auto original, HKEY key, DWORD index, auto... rest) {
            return index == 2 ? LSTATUS{ERROR_ACCESS_DENIED} : original(key, index, rest...);
        });
    std::vector<std::string> names{"before"};
    std::vector<NamedText> texts;
    EXPECT_FALSE(settings.getValueNames(setting::kGuiKey, names));
    EXPECT_FALSE(settings.getStringValues(setting::kGuiKey, texts));
    EXPECT_THAT(names, ElementsAre("before"));
    EXPECT_TRUE(texts.empty());
}

/// Each access to the registry is a system call for which a job waits.
TEST_F(SettingsTest, OpensOneKeyForWhatIsAskedFor) {
    const Settings settings;
    settings.write(setting::kDataPath, "D:\\data");
    settings.write(setting::kDriverName, std::string(2000, 'x'));
    settings.write(setting::kCheckForUpdates, 1);
    std::string text;
    std::uint32_t number = 0;
    std::vector<NamedText> texts;
    const struct {
        const char* what;
        std::function<void()> ask;
        std::uint32_t opens, queries;
    } rows[] = {
        {"making an object", [] { Settings(); }, 0, 0},
        {"text", [&] { settings.read(setting::kDataPath, text); }, 1, 1},
        {"long text", [&] { settings.read(setting::kDriverName, text); }, 1, 2},
        {"number", [&] { settings.read(setting::kCheckForUpdates, number); }, 1, 1},
        {"default", [&] { settings.readOrWriteDefault(setting::kCheckForUpdates, number); }, 1, 1},
        {"a key's texts", [&] { settings.getStringValues(setting::kSettingsKey, texts); }, 1, 3},
        {"writing", [&] { settings.write(setting::kCheckForUpdates, 1); }, 1, 0},
        {"whether there is a store", [&] { settings.isValid(); }, 1, 0},
    };
    test::ImportGate gate{test::ImportTable(GetModuleHandleA(nullptr))};
    for (const auto& row : rows) {
        gate.reset();
        row.ask();
        EXPECT_EQ(gate.calls("RegOpenKeyExA"), row.opens) << row.what;
        EXPECT_EQ(gate.calls("RegQueryValueExA"), row.queries) << row.what;
        EXPECT_EQ(gate.calls("RegCreateKeyExA"), 0U) << row.what;
        EXPECT_EQ(gate.calls("AllocateAndInitializeSid"), 0U) << row.what;
    }
}

TEST_F(SettingsTest, DataUpdatesFolderIsNamedAfterTheDriver) {
    const Settings settings;
    char common[MAX_PATH] = {};
    ASSERT_EQ(SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, 0, common), S_OK);
    settings.write(setting::kDriverName, "Drv 5");
    EXPECT_EQ(settings.dataUpdatesFolder(), std::string(common) + "\\Job Status\\Drv 5");
    EXPECT_EQ(stored(settings, "Settings\\Updater", "DataUpdatesDirectoryName"), "'Job Status'");
    settings.write(setting::kDataUpdatesDirectory, "Else");
    EXPECT_EQ(settings.dataUpdatesFolder(), std::string(common) + "\\Else\\Drv 5");
    settings.write(setting::kDataUpdatesDirectory, "\\Else\\");
    EXPECT_EQ(settings.dataUpdatesFolder(), std::string(common) + "\\Else\\Drv 5");
    const auto refuse = test::replaceImport<decltype(SHGetFolderPathA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "SHGetFolderPathA",
        [](auto...) { return E_FAIL; });
    EXPECT_EQ(settings.dataUpdatesFolder(), "") << "a path in the root of some drive";
}

TEST_F(SettingsTest, RemovalTakesTheProductLineOnlyWithTheLastStore) {
    const std::string root = "Software\\QuillonInkjet";
    constexpr struct {
        bool otherHost;
        std::uint32_t deleteAll;
        bool rootStays;
    } rows[] = {{true, 1, true}, {false, 0, true}, {false, 1, false}};
    for (const auto& row : rows) {
        RegistryKey(root + "\\JSW\\Local\\qlte", true);
        RegistryKey(root + "\\Something else", true);
        if (row.otherHost) RegistryKey(root + "\\JSW\\Local\\qlxx", true);
        Settings settings;
        settings.write(setting::kDeleteStoreOnUninstall, row.deleteAll);
        EXPECT_TRUE(settings.removeStore());
        EXPECT_FALSE(settings.isValid());
        EXPECT_FALSE(exists(root + "\\JSW\\Local\\qlte"));
        EXPECT_EQ(exists(root + "\\Something else"), row.rootStays);
        RegistryKey::recurseDeleteKey(root, HKEY_LOCAL_MACHINE);
    }
    Settings gone;
    EXPECT_FALSE(gone.removeStore());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

constexpr char kRoot[] = "Software\\QuillonInkjet\\IjPrtSettings\\";

class PrinterStoreTest : public test::HostTest {};

TEST_F(PrinterStoreTest, StoreIsNamedAfterTheNameAtInstallation) {
    test::SpoolerPrinter printer("JSW renamed");
    printer.setOriginalName("JSW original");
    RegistryKey(std::string(kRoot) + "JSW original\\GUI\\JSW", true)
        .setValue("Job Progress Minimized", std::uint32_t{5});

    EXPECT_EQ(OfnSettings::printerStorePath("JSW renamed"), std::string(kRoot) + "JSW original");
    std::uint32_t value = 0;
    EXPECT_EQ(OfnSettings("JSW renamed").read(setting::kJobProgressMinimized, value), Read::found);
    EXPECT_EQ(value, 5u);

    printer.setOriginalName("changed");
    EXPECT_EQ(originalFriendlyName("JSW renamed"), "JSW original") << "the last name is remembered";
    EXPECT_EQ(originalFriendlyName(""), "");
    EXPECT_EQ(originalFriendlyName("JSW renamed"), "changed");
}

TEST_F(PrinterStoreTest, PrintersWithoutAnOriginalNameHaveANamelessStore) {
    EXPECT_EQ(OfnSettings::printerStorePath(""), kRoot);
    EXPECT_EQ(OfnSettings::printerStorePath("No such printer"), kRoot);
    test::SpoolerPrinter printer("JSW plain");
    EXPECT_EQ(OfnSettings::printerStorePath("JSW plain"), kRoot);
    originalFriendlyName("");
    printer.setOriginalName(REG_DWORD, "1234");
    EXPECT_EQ(OfnSettings::printerStorePath("JSW plain"), kRoot);
}

TEST_F(PrinterStoreTest, ReadingNeverMakesAPrinterStore) {
    const OfnSettings settings("No such printer");
    std::uint32_t value = 7;
    std::string text = "old";
    EXPECT_EQ(settings.read(setting::kShowProcessWindow, value), Read::missing);
    EXPECT_EQ(settings.readOrWriteDefault(setting::kCompleteToPrint, value), Read::missing);
    EXPECT_EQ(settings.read(setting::kRetailerId, text), Read::missing);
    EXPECT_EQ(value, 7u);
    EXPECT_EQ(text, "old");
    EXPECT_FALSE(settings.rootExists());
}

}  // namespace jsw
