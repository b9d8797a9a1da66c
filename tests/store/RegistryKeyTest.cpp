#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "jsw/settings/RegistryKey.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <gmock/gmock.h>

namespace jsw {

using namespace ::testing;

namespace {

/// The message of the action's Win32Exception; "(none)" without one.
template <class Action>
std::string failureOf(const Action& action, std::int32_t* code = nullptr) {
    try {
        action();
    } catch (const Win32Exception& error) {
        if (code != nullptr) *code = error.code();
        EXPECT_THAT(error.text(), ::testing::StartsWith("file:RegistryKey:"));
        return error.message();
    }
    return "(none)";
}

void setRaw(const std::string& path, const std::string& name, DWORD type, const std::string& data) {
    ASSERT_EQ(RegSetKeyValueA(HKEY_LOCAL_MACHINE, path.c_str(), name.c_str(), type, data.data(),
                              static_cast<DWORD>(data.size())),
              ERROR_SUCCESS);
}

/// The system's name of a key of HKEY_LOCAL_MACHINE, as in a link.
std::wstring kernelPath(const std::string& path) {
    using NtQueryKey = LONG NTAPI(HKEY key, int what, void* buffer, ULONG size, ULONG* length);
    constexpr int kNameInformation = 3;
    struct {
        ULONG size;  // in bytes
        wchar_t text[512];
    } name{};
    KeyHandle software;
    EXPECT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software", 0, KEY_READ, software.put()),
              ERROR_SUCCESS);
    ULONG length = 0;
    EXPECT_EQ(findEntryPoint<NtQueryKey>(GetModuleHandleA("ntdll"), "NtQueryKey")(
                  software.get(), kNameInformation, &name, sizeof(name), &length),
              0);
    const std::wstring found(name.text, name.size / sizeof(wchar_t));
    return found.substr(0, found.rfind(L'\\') + 1) + std::wstring(path.begin(), path.end());
}

/// Creates a link to another key, which need not exist. It is volatile.
void makeLink(const std::string& path, const std::string& target) {
    KeyHandle link;
    ASSERT_EQ(RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr,
                              REG_OPTION_VOLATILE | REG_OPTION_CREATE_LINK, KEY_ALL_ACCESS, nullptr,
                              link.put(), nullptr),
              ERROR_SUCCESS);
    const std::wstring name = kernelPath(target);
    ASSERT_EQ(RegSetValueExW(link.get(), L"SymbolicLinkValue", 0, REG_LINK,
                             reinterpret_cast<const BYTE*>(name.data()),
                             static_cast<DWORD>(name.size() * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

bool linkExists(const std::string& path) {
    KeyHandle key;
    return RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), REG_OPTION_OPEN_LINK, KEY_READ,
                         key.put()) == ERROR_SUCCESS;
}

constexpr char kPath[] = "Software\\Test\\Key";

}  // namespace

using test::exists;
using RegistryKeyTest = test::HostTest;

TEST_F(RegistryKeyTest, KeepsNumbersTextsAndBytes) {
    std::vector<std::string> given;
    const auto set = test::replaceImport<decltype(RegSetValueExA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegSetValueExA",
        [&](auto original, HKEY key, const char* name, DWORD reserved, DWORD type, const BYTE* data,
            DWORD size) {
            given.push_back(concat(name, " ", type, " ", size));
            return original(key, name, reserved, type, data, size);
        });
    RegistryKey key(kPath, true);
    key.setValue("number", std::uint32_t{0xFFFFFFFF});
    key.setValue("text", std::string("some text"));
    key.setValue("empty", std::string());
    key.setValue("bytes", std::vector<std::uint8_t>{0, 255, 0});
    key.setValue("no bytes", std::vector<std::uint8_t>{});
    // A text includes its terminator, whether or not the system adds a missing one.
    EXPECT_THAT(given,
                ElementsAre("number 4 4", "text 1 10", "empty 1 1", "bytes 3 3", "no bytes 3 0"));

    const RegistryKey again(kPath, false);
    std::uint32_t number = 0;
    std::string text = "old";
    std::vector<std::uint8_t> bytes{1};
    EXPECT_TRUE(again.getValue("number", number));
    EXPECT_EQ(number, 0xFFFFFFFF);
    EXPECT_TRUE(again.getValue("text", text));
    EXPECT_EQ(text, "some text");
    EXPECT_TRUE(again.getValue("empty", text));
    EXPECT_EQ(text, "");
    EXPECT_TRUE(again.getValue("bytes", bytes));
    EXPECT_THAT(bytes, ElementsAre(0, 255, 0));
    EXPECT_TRUE(again.getValue("no bytes", bytes));
    EXPECT_THAT(bytes, IsEmpty());

    key.deleteValue("number");
    EXPECT_FALSE(again.getValue("number", number));
    EXPECT_EQ(number, 0xFFFFFFFF) << "an output must stay when there is no value";
    EXPECT_EQ(failureOf([&] { key.deleteValue("number"); }), "RegistryKey::deleteValue()");
}

TEST_F(RegistryKeyTest, MismatchesSaySo) {
    RegistryKey key(kPath, true);
    setRaw(kPath, "sz", REG_SZ, std::string("5\0", 2));
    setRaw(kPath, "expand", REG_EXPAND_SZ, std::string("%PATH%\0", 7));
    setRaw(kPath, "dword", REG_DWORD, std::string(4, '\1'));
    setRaw(kPath, "short dword", REG_DWORD, std::string(2, '\1'));
    setRaw(kPath, "multi", REG_MULTI_SZ, std::string("a\0b\0\0", 5));

    std::uint32_t number = 77;
    std::string text = "old";
    std::vector<std::uint8_t> bytes{9};
    std::int32_t code = 0;
    EXPECT_EQ(failureOf([&] { key.getValue("sz", number); }, &code),
              "RegistryKey::getValue(ulong)sz : incorrect value type");
    EXPECT_NE(code, 0);
    EXPECT_EQ(failureOf([&] { key.getValue("short dword", number); }),
              "RegistryKey::getValue(ulong)short dword");
    for (const char* name : {"dword", "multi"}) {
        EXPECT_EQ(failureOf([&] { key.getValue(name, text); }),
                  std::string("RegistryKey::getValue(string) ") + name + " : incorrect value type");
    }
    EXPECT_EQ(failureOf([&] { key.getValue("sz", bytes); }),
              "RegistryKey::getValue(binary)sz : incorrect value type");
    EXPECT_EQ(number, 77u);
    EXPECT_EQ(text, "old");
    EXPECT_THAT(bytes, ElementsAre(9));

    EXPECT_TRUE(key.getValue("expand", text));
    EXPECT_EQ(text, "%PATH%");
}

TEST_F(RegistryKeyTest, TextsEndWhereTheyEnd) {
    const RegistryKey key(kPath, true);
    const std::pair<std::string, std::string> rows[] = {
        {std::string("unterminated"), "unterminated"},
        {std::string("two\0\0", 5), "two"},
        {std::string("first\0second\0", 13), "first"},
        {std::string(), ""},
        {std::string("\0", 1), ""},
        {std::string(100000, 'x'), std::string(100000, 'x')},
    };
    for (const auto& [stored, expected] : rows) {
        setRaw(kPath, "v", REG_SZ, stored);
        std::string text = "old";
        EXPECT_TRUE(key.getValue("v", text));
        EXPECT_EQ(text, expected);
    }
}

TEST_F(RegistryKeyTest, OpeningNeverCreatesUnlessAsked) {
    std::int32_t code = 0;
    EXPECT_EQ(failureOf([] { RegistryKey(kPath, false); }, &code), "RegistryKey::regOpenKeyEx()");
    EXPECT_EQ(code, ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(exists("Software\\Test"));
    EXPECT_EQ(failureOf([] { RegistryKey("Bad\\" + std::string(300, 'k'), true); }),
              "RegistryKey::regCreateKeyEx()");
    Security security;
    RegistryKey::createByComponents(HKEY_LOCAL_MACHINE, "A\\B\\C\\", security);
    EXPECT_TRUE(exists("A\\B\\C"));
}

TEST_F(RegistryKeyTest, ListsUpToTheMaximum) {
    RegistryKey key(kPath, true);
    for (const char* name : {"a", "b", "c"}) {
        RegistryKey(std::string(kPath) + "\\" + name, true);
        key.setValue(name, std::uint32_t{1});
    }
    std::vector<std::string> names{"before"};
    key.getChildrenNames(names, 2);
    EXPECT_EQ(names.size(), 3u);
    names.clear();
    key.getChildrenNames(names, 100);
    EXPECT_THAT(names, UnorderedElementsAre("a", "b", "c"));
    names.clear();
    key.getValueNames(names, 100);
    EXPECT_THAT(names, UnorderedElementsAre("a", "b", "c"));
    key.getValueNames(names, 0);
    EXPECT_EQ(names.size(), 3u);

    const std::string longChild(230, 'k');
    const std::string longValue(16383, 'v');  // no name of a value is longer
    RegistryKey longNames(kPath + std::string("2"), true);
    RegistryKey(kPath + ("2\\" + longChild), true);
    longNames.setValue(longValue, std::uint32_t{1});
    names.clear();
    longNames.getChildrenNames(names, 100);
    longNames.getValueNames(names, 100);
    EXPECT_THAT(names, ElementsAre(longChild, longValue));
}

TEST_F(RegistryKeyTest, RecursiveDeleteTakesEverythingButSoftware) {
    for (const char* path : {"Software\\A\\B\\C", "Software\\A\\D", "Other\\SoftWare\\X", "Keep"}) {
        RegistryKey(path, true).setValue("v", std::uint32_t{1});
    }
    RegistryKey::recurseDeleteKey("Software\\A\\", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(exists("Software\\A"));
    RegistryKey("Software\\A\\B", true);
    RegistryKey::recurseDeleteKey("SOFTWARE", HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(exists("Software"));
    EXPECT_FALSE(exists("Software\\A"));

    EXPECT_EQ(failureOf([] { RegistryKey::recurseDeleteKey("Other", HKEY_LOCAL_MACHINE); }),
              "RegistryKey::recurseDeleteKey() RegDeleteKey()");
    EXPECT_FALSE(exists("Other\\Software\\X"));
    for (const char* path : {"Other\\Software", "Other\\SOFTWARE\\", "Software\\"}) {
        RegistryKey::recurseDeleteKey(path, HKEY_LOCAL_MACHINE);
        EXPECT_TRUE(exists(path));
    }
    EXPECT_TRUE(exists("Keep"));
    EXPECT_EQ(failureOf([] { RegistryKey::recurseDeleteKey("None\\At all", HKEY_LOCAL_MACHINE); }),
              "(none)");
}

TEST_F(RegistryKeyTest, RecursiveDeleteTakesLinksButNotWhatTheyLeadTo) {
    RegistryKey("Target\\Below", true).setValue("v", std::uint32_t{1});
    RegistryKey("Tree\\Plain", true);
    makeLink("Tree\\ALink", "Target");
    makeLink("Tree\\Dead", "Missing");
    makeLink("Tree\\Plain\\Round", "Tree");
    RegistryKey::recurseDeleteKey("Tree", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(exists("Tree"));

    makeLink("Alone", "Target");
    RegistryKey::recurseDeleteKey("Alone", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(linkExists("Alone"));
    EXPECT_TRUE(exists("Target\\Below"));
}

TEST_F(RegistryKeyTest, RecursiveDeleteEndsAtAChildThatStays) {
    RegistryKey("Tree\\child", true);
    const auto refuse = test::replaceImport<decltype(RegOpenKeyExA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "RegOpenKeyExA",
        [](auto original, HKEY parent, const char* path, auto... rest) {
            const bool isChild = std::string_view(path).ends_with("child");
            return isChild ? LSTATUS{ERROR_ACCESS_DENIED} : original(parent, path, rest...);
        });
    EXPECT_EQ(failureOf([] { RegistryKey::recurseDeleteKey("Tree", HKEY_LOCAL_MACHINE); }),
              "RegistryKey::recurseDeleteKey() RegOpenKey()");
}

}  // namespace jsw
