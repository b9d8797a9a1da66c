// What jsw.dll shows to the outside, read from its own file.

#include "PublicLib/win/Handles.h"
#include "jsw/version.h"

#include <windows.h>

#include <cctype>
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

TEST_F(LibraryTest, NeedsLibrariesOfTheSystemOnly) {
    const auto* import = directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
    for (; import->Name != 0; ++import) {
        std::string name = at<char>(import->Name);
        for (char& letter : name) letter = static_cast<char>(std::tolower(letter));
        EXPECT_THAT(name,
                    ::testing::AnyOf("advapi32.dll", "kernel32.dll", "msvcrt.dll", "shell32.dll",
                                     "shlwapi.dll", "user32.dll", "version.dll", "winspool.drv"));
    }
}

TEST_F(LibraryTest, CarriesTheVersionOfItsHeader) {
    std::vector<char> info(GetFileVersionInfoSizeA("jsw.dll", nullptr));
    ASSERT_NE(GetFileVersionInfoA("jsw.dll", 0, static_cast<DWORD>(info.size()), info.data()),
              FALSE);
    void* value = nullptr;
    UINT size = 0;
    ASSERT_NE(VerQueryValueA(info.data(), "\\", &value, &size), FALSE);
    const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(numbers->dwFileVersionMS,
              static_cast<DWORD>(MAKELONG(JSW_VERSION_MINOR, JSW_VERSION_MAJOR)));
    EXPECT_EQ(numbers->dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, JSW_VERSION_PATCH)));
    ASSERT_NE(VerQueryValueA(info.data(), "\\StringFileInfo\\040904E4\\FileVersion", &value, &size),
              FALSE);
    EXPECT_STREQ(static_cast<const char*>(value), JSW_VERSION_STRING);
}

}  // namespace jsw
