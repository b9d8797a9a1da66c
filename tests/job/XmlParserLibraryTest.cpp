#include "jsw/XmlParserLibrary.h"
#include "tests/support/HostTest.h"

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

}  // namespace jsw
