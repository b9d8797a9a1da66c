// The small view as the library uses it: a job, a user who closes the window, the next job.
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "tests/support/Eventually.h"
#include "tests/support/OwnWindow.h"
#include <jsw/view.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>

namespace {

std::atomic<int> reported = 0;

HWND jobWindow() {
    return jsw::test::ownWindow("JswSmallView");
}

std::string lineOf(HWND window) {
    char line[100] = "";
    SendMessageA(GetDlgItem(window, 1), WM_GETTEXT, sizeof line, reinterpret_cast<LPARAM>(line));
    return line;
}

TEST(SmallView, ShowsTheProgressAndOutlivesNoJob) {
    const jsw::ModuleHandle module(LoadLibraryA("smallview.dll"));
    ASSERT_TRUE(module);
    const auto find = [&]<class Function>(Function*& function, const char* name) {
        function = jsw::findEntryPoint<Function>(module.get(), name);
        ASSERT_TRUE(function) << name;
    };
    JswViewPlain *begin, *end, *show;
    JswViewText* setName;
    JswViewNumber* setPages;
    JswViewUpdateInfo* update;
    JswViewSetEventCallback* setCallback;
    find(begin, "Initialize");
    find(end, "Uninitialize");
    find(show, "ShowGui");
    find(setName, "SetJobName");
    find(setPages, "SetTotalPages");
    find(update, "UpdateInfo");
    find(setCallback, "SetJswCallback");
    for (int i = 0; i < 2; ++i) {
        reported = 0;
        begin();
        setName("report.pdf");
        setPages(3);
        setCallback([](int32_t event) { reported = event; });
        EXPECT_FALSE(IsWindowVisible(jobWindow()));
        show();
        update(2, 1, 60, nullptr);
        EXPECT_TRUE(
            jsw::test::eventually([] { return lineOf(jobWindow()) == "Page 2 of 3, 60 s left"; }));
        EXPECT_TRUE(IsWindowVisible(jobWindow()));
        PostMessageA(jobWindow(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(jsw::test::eventually([] { return reported == JSW_STATUS_GUI_CLOSED; }));
        EXPECT_TRUE(jsw::test::eventually([] { return !IsWindowVisible(jobWindow()); }));
        end();
        EXPECT_EQ(jobWindow(), nullptr);
    }
}

}  // namespace
