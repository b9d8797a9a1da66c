#include "jsw/XmlParserLibrary.h"
#include "tests/support/HostTest.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

namespace jsw {

/// Whether a file is good enough, and what the log says if it is not.
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
