#include "PublicLib/logging/MethodTrace.h"
#include "jsw/settings/Settings.h"
#include "tests/support/HostTest.h"

#include <gmock/gmock.h>

namespace jsw {

using ::testing::ElementsAre;

class MethodTraceTest : public test::HostTest {};

TEST_F(MethodTraceTest, IndentsAddedLinesAndReportsTheResult) {
    startLog();
    {
        MethodTrace trace(component::kJsw, "History::add: ");
        trace.add("bbId=", "X1");
        trace.setResult(1);
    }
    EXPECT_THAT(logLines(),
                ElementsAre("+History::add: ", "History::add: bbId=X1", "-History::add:  rc=1"));
}

}  // namespace jsw
