// What the library hands to the system, recorded in the place of the system's own functions.

#include "PublicLib/win/Handles.h"
#include "tests/job/JobTest.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <shellapi.h>

namespace jsw {

using ::testing::ElementsAre;

class HandedOverTest : public test::JobTest {
  protected:
    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
    const test::ImportTable imports_{library_.get()};
};

TEST_F(HandedOverTest, TheShellIsAskedWithoutDialogsAndExpandsVariables) {
    script_.billboards["DEFAULT"].actions = {"%windir%\\notepad.exe"};
    std::vector<SHELLEXECUTEINFOA> asked;
    std::vector<std::string> texts;
    const auto shell = test::replaceImport<decltype(ShellExecuteExA)>(
        imports_, "ShellExecuteExA", [&](SHELLEXECUTEINFOA* info) -> BOOL {
            asked.push_back(*info);
            texts.push_back(std::string(info->lpVerb) + "|" + info->lpFile + "|" +
                            (info->lpDirectory != nullptr ? info->lpDirectory : "null"));
            return TRUE;
        });
    startJob();
    script_.clickBillboard("LAUNCH_APP", 0);
    script_.clickBillboard("LAUNCH_URL", 0);
    EXPECT_THAT(texts, ElementsAre("open|%windir%\\notepad.exe|null",
                                   "open|%windir%\\notepad.exe|%HOMEDRIVE%%HOMEPATH%"));
    for (const auto& info : asked) {
        EXPECT_EQ(info.cbSize, sizeof(info));
        EXPECT_EQ(info.fMask, 0x8600U);
        EXPECT_EQ(info.nShow, SW_SHOWNORMAL);
        EXPECT_EQ(info.lpParameters, nullptr);
        EXPECT_EQ(info.hwnd, nullptr);
    }
}

}  // namespace jsw
