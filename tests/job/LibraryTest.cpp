// jsw.dll's exports and resources, and its reading of other files' versions.

#include "PublicLib/win/Handles.h"
#include "jsw/XmlParserLibrary.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"
#include <jsw/version.h>

#include <windows.h>

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace jsw {

using ::testing::UnorderedElementsAre;

class LibraryTest : public ::testing::Test {
  protected:
    template <class Record>
    const Record* at(DWORD offset) const {
        return reinterpret_cast<const Record*>(reinterpret_cast<const char*>(library_.get()) +
                                               offset);
    }

    template <class Directory>
    const Directory* directory(unsigned index) const {
        const auto* dos = at<IMAGE_DOS_HEADER>(0);
        const auto* nt = at<IMAGE_NT_HEADERS64>(static_cast<DWORD>(dos->e_lfanew));
        return at<Directory>(nt->OptionalHeader.DataDirectory[index].VirtualAddress);
    }

    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
};

TEST_F(LibraryTest, ExportsItsEightFunctionsAndNothingElse) {
    const auto* exports = directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
    std::vector<std::string> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        names.emplace_back(at<char>(at<DWORD>(exports->AddressOfNames)[i]));
    }
    EXPECT_THAT(names, UnorderedElementsAre("JSWInit", "JSWTerminate", "JSWUpdateInfo",
                                            "JSWDisplayPrompt", "JSWPostDlgMsg", "JSWFilterDllMsg",
                                            "JSWGetAPIVersion", "JSWGetWindowHwnd"));
}

TEST_F(LibraryTest, CarriesTheVersionOfItsHeader) {
    std::vector<char> info(GetFileVersionInfoSizeA("jsw.dll", nullptr));
    ASSERT_NE(GetFileVersionInfoA("jsw.dll", 0, static_cast<DWORD>(info.size()), info.data()),
              FALSE);
    void* value = nullptr;
    UINT size = 0;
    ASSERT_NE(VerQueryValueA(info.data(), "\\", &value, &size), FALSE);
    const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(concat(JSW_VERSION_MAJOR, ".", JSW_VERSION_MINOR, ".", JSW_VERSION_PATCH),
              JSW_VERSION_STRING);
    EXPECT_EQ(numbers->dwFileVersionMS,
              static_cast<DWORD>(MAKELONG(JSW_VERSION_MINOR, JSW_VERSION_MAJOR)));
    EXPECT_EQ(numbers->dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, JSW_VERSION_PATCH)));
    ASSERT_NE(VerQueryValueA(info.data(), "\\StringFileInfo\\040904E4\\FileVersion", &value, &size),
              FALSE);
    EXPECT_STREQ(static_cast<const char*>(value), JSW_VERSION_STRING);
}

/// Whether a file is supported, and the log's text if not.
class XmlParserLibraryTest : public test::HostTest {
  protected:
    static bool check(const std::string& path) {
        MethodTrace trace(component::kJsw, "");
        return isSupportedParserLibrary(path, trace);
    }
};

TEST_F(XmlParserLibraryTest, ComparesTheMostSignificantHalfOfTheVersion) {
    startLog();
    EXPECT_TRUE(check("version_8_30.dll"));
    EXPECT_FALSE(check("version_8_29.dll"));
    EXPECT_TRUE(hasLine("MSXML3 version=524317"));
    EXPECT_TRUE(hasLine("The min required version=524318"));
}

TEST_F(XmlParserLibraryTest, AFileWithoutAVersionOrNoneAtAllIsNotGoodEnough) {
    startLog();
    EXPECT_FALSE(check("scripted_view.dll"));
    EXPECT_FALSE(check(folder_.file("absent.dll")));
    EXPECT_FALSE(check(folder_.write("text.dll", "no code")));
    EXPECT_TRUE(hasLine("Unable to determine the size needed for the version info"));
}

TEST_F(XmlParserLibraryTest, AVersionRecordOfAnotherSizeIsNotLookedAt) {
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    int change = 0;
    const auto query = test::replaceImport<decltype(VerQueryValueA)>(
        imports, "VerQueryValueA",
        [&](auto original, const void* block, const char* path, void** value, UINT* length) {
            const BOOL found = original(block, path, value, length);
            *length += static_cast<UINT>(change);
            return found;
        });
    for (const int by : {-1, 1, 0}) {
        change = by;
        EXPECT_EQ(check("version_8_30.dll"), by == 0) << by;
    }
}

}  // namespace jsw
