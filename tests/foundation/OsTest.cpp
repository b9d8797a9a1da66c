#include "PublicLib/errors/Exception.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/os/ProductLines.h"
#include "PublicLib/process/CurrentProcess.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <shlobj.h>
#include <winspool.h>

#include <cstring>
#include <gmock/gmock.h>

namespace jsw {

using namespace ::testing;

TEST(OsVersionTest, ClassifiesByPlatformAndVersion) {
    const struct {
        DWORD platformId, major, minor;
        int expected;
    } rows[] = {{1, 4, 0, 1},  {1, 4, 10, 2}, {1, 4, 90, 3}, {2, 4, 0, 4}, {2, 5, 0, 5},
                {2, 5, 1, 6},  {2, 5, 2, 7},  {2, 6, 0, 8},  {2, 6, 1, 9}, {2, 6, 2, 0},
                {2, 10, 0, 0}, {3, 4, 0, 0},  {2, 3, 51, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(static_cast<int>(classifyOs(row.platformId, row.major, row.minor)), row.expected)
            << row.platformId << " " << row.major << "." << row.minor;
    }
}

/// Also versions newer than the one that Windows reports here.
TEST(OsVersionTest, TellsOlderSystemsFromNewerOnes) {
    const struct {
        DWORD platformId, major, minor;
        bool xp, version6;
        const char *folder, *byMajor;
    } rows[] = {{1, 4, 90, false, false, "", "\\2"},   {2, 4, 0, false, false, "\\2", "\\2"},
                {2, 5, 0, false, false, "\\3", "\\3"}, {2, 5, 1, true, false, "\\3", "\\3"},
                {2, 6, 0, true, true, "\\3", "\\3"},   {2, 6, 2, true, true, "", "\\3"},
                {2, 10, 0, true, true, "", "\\3"},     {1, 10, 0, false, false, "", "\\3"},
                {2, 3, 51, false, false, "", ""}};
    for (const auto& row : rows) {
        OSVERSIONINFOEXA record{};
        record.dwPlatformId = row.platformId;
        record.dwMajorVersion = row.major;
        record.dwMinorVersion = row.minor;
        const OsVersion os(record);
        EXPECT_EQ(os.isXpOrLater(), row.xp) << row.major << "." << row.minor;
        EXPECT_EQ(os.isVersion6OrLater(), row.version6) << row.major << "." << row.minor;
        EXPECT_EQ(os.versionedPrinterDriverFolder(), printerDriverDirectory() + row.folder)
            << row.major << "." << row.minor;
        EXPECT_EQ(os.printerDriverFolderByMajorVersion(), printerDriverDirectory() + row.byMajor)
            << row.major << "." << row.minor;
    }
}

TEST(LocalizeTest, NamesComeFromTheHostProgram) {
    EXPECT_EQ(localIdOf("C:\\Program Files\\ABCDefg.exe"), "abcd");
    EXPECT_EQ(localIdOf("C:\\x\\A@Z[.exe"), "a@z[");  // letters from the first to the last
    EXPECT_EQ(localIdOf("C:\\x\\Ab"), "ab");
    EXPECT_EQ(localIdOf("C:\\x\\"), "");
    EXPECT_THROW(Localize::getInstance(), Exception);
    Localize::createInstance(nullptr);
    const auto host = Localize::getInstance();
    EXPECT_EQ(host->localId(), "qlte");
    EXPECT_EQ(host->settingsFileName(), "qltejsw.loc");
    EXPECT_EQ(host->getJswRoot(), "Software\\QuillonInkjet\\JSW\\");
    EXPECT_EQ(host->getRegistryPath(StoreKind::local),
              "Software\\QuillonInkjet\\JSW\\Local\\qlte\\");
    EXPECT_EQ(host->getRegistryPath(StoreKind::shared), "Software\\QuillonInkjet\\JSW\\Shared\\");
    EXPECT_EQ(host->getRegistryPath(StoreKind::scratch), "Software\\QuillonTemp\\temp");
    Localize::destroy();

    std::string root;
    const Localize ofNoLine(GetModuleHandleA("kernel32"));
    EXPECT_FALSE(ofNoLine.getProductLineRoot(root));
    EXPECT_EQ(ofNoLine.getRegistryPath(StoreKind::local),
              "Software\\Quillon Tools\\JSW\\Local\\kern\\");
    EXPECT_EQ(root, "Software\\Quillon Tools");
}

TEST(ProductLinesTest, EveryRowCanBeFound) {
    EXPECT_EQ(productLines().size(), 16U);
    for (const ProductLine& line : productLines()) {  // not hidden by another one
        EXPECT_EQ(findProductLine(line.prefix), &line);
    }
    EXPECT_EQ(findProductLine("QLxx")->key, "QuillonInkjet");
    EXPECT_EQ(findProductLine("zz"), nullptr);
    EXPECT_EQ(findProductLine("q"), nullptr);
    EXPECT_TRUE(isNonInkjetLine("olxx"));
    EXPECT_FALSE(isNonInkjetLine("qlxx"));
    EXPECT_FALSE(isNonInkjetLine("OLxx"));  // letter case matters here
}

TEST(CurrentProcessTest, CanBeAskedAgainAfterItsEnd) {
    const std::string path = CurrentProcess::instance()->path();
    EXPECT_EQ(fileNamePart(path), "qltest-foundation.exe");
    CurrentProcess::destroy();
    EXPECT_EQ(CurrentProcess::instance()->folder() + "qltest-foundation.exe", path);
    CurrentProcess::destroy();
}

/// An invented name would use another host's settings.
TEST(CurrentProcessTest, WithoutANameOfTheProgramThereAreNoNames) {
    std::string answer;
    bool isCut = false;
    const auto ask = test::replaceImport<decltype(GetModuleFileNameA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetModuleFileNameA",
        [&](HMODULE, char* name, DWORD size) {
            answer.copy(name, size);
            return isCut ? size : static_cast<DWORD>(answer.size());
        });
    const auto localize = [] { Localize(HMODULE{}); };
    for (const bool cut : {false, true}) {
        isCut = cut;
        EXPECT_THAT([] { CurrentProcess(); },
                    ThrowsMessage<Win32Exception>(StrEq("CurrentProcess::CurrentProcess")));
        EXPECT_THAT(localize, ThrowsMessage<Win32Exception>(
                                  StrEq("Localize::Localize(): GetModuleFileName failed")));
    }
    isCut = false;
    answer = "C:\\hosts\\";
    EXPECT_THAT(localize,
                ThrowsMessage<Exception>(StrEq("Localize::Localize(): GetLocalId failed")));
}

TEST(SystemFoldersTest, TheFolderOfProgramsIsTheUsualOneWhenTheShellDoesNotTell) {
    const auto refuse = test::replaceImport<decltype(SHGetFolderPathA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "SHGetFolderPathA",
        [](HWND, int, HANDLE, DWORD, char*) { return E_FAIL; });
    EXPECT_EQ(specialFolder(CSIDL_COMMON_APPDATA), "");
    EXPECT_EQ(programFilesFolder(), "C:\\Program Files");
}

TEST(SystemFoldersTest, TheDriverFolderIsThisMachinesOwn) {
    const test::ImportTable imports(GetModuleHandleA(nullptr));
    bool succeeds = true;
    const auto ask = test::replaceImport<decltype(GetPrinterDriverDirectoryA)>(
        imports, "GetPrinterDriverDirectoryA",
        [&](char* server, char* environment, DWORD level, BYTE* folder, DWORD size, DWORD*) {
            EXPECT_EQ(server, nullptr);
            EXPECT_EQ(environment, nullptr);
            EXPECT_EQ(level, 1U);
            EXPECT_EQ(size, 260U);
            std::strcpy(reinterpret_cast<char*>(folder), "X:\\drivers");
            return BOOL{succeeds};
        });
    EXPECT_EQ(printerDriverDirectory(), "X:\\drivers");
    EXPECT_EQ(OsVersion::instance().versionedPrinterDriverFolder(), "X:\\drivers\\3");
    succeeds = false;
    EXPECT_EQ(OsVersion::instance().versionedPrinterDriverFolder(), "");
}

TEST(SystemFoldersTest, TheNameOfAModuleIsNeverCut) {
    std::string name;
    const auto tell = test::replaceImport<decltype(GetModuleFileNameA)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "GetModuleFileNameA",
        [&](HMODULE, char* buffer, DWORD size) {
            const std::string fitted = name.substr(0, size - 1);
            std::strcpy(buffer, fitted.c_str());
            return static_cast<DWORD>(name.size() < size ? name.size() : size);
        });
    for (const std::size_t length : {259U, 260U, 261U, 262U, 522U, 30000U}) {
        name.assign(length, 'n');
        EXPECT_EQ(moduleFileName(nullptr), name) << length;
    }
}

}  // namespace jsw
