// System failures in the middle of a job.

#include "PublicLib/win/Handles.h"
#include "tests/job/JobTest.h"
#include "tests/support/ImportTable.h"

#include <atomic>

namespace jsw {

class ShortageTest : public test::JobTest {
  protected:
    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
    const test::ImportTable imports_{library_.get()};
};

TEST_F(ShortageTest, ALockThatCannotBeGivenBackDoesNotEndTheHost) {
    std::atomic<int> refused{0};
    const auto release = test::replaceImport<decltype(ReleaseMutex)>(
        imports_, "ReleaseMutex", [&](HANDLE mutex) -> BOOL {
            ReleaseMutex(mutex);
            ++refused;
            SetLastError(ERROR_NOT_OWNER);
            return FALSE;
        });
    expectNextJobWorks();
    EXPECT_TRUE(hasLine("<<< SingletonMgr::~SingletonMgr: "));
    EXPECT_GT(refused, 100);
}

}  // namespace jsw
