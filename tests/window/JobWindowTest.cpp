#include "tests/window/JobWindowTest.h"

#include <algorithm>
#include <string>
#include <vector>

namespace jsw::test {
namespace {

TEST_F(JobWindowTest, CancelAsksBackAndASecondClickDoesNothing) {
    startJob();
    show();
    press(JSW_VIEW_CANCEL);
    press(JSW_VIEW_CANCEL);
    ASSERT_TRUE(isAsked("2 pages have not been printed. Cancel printing?"));
    EXPECT_FALSE(isShown(JSW_VIEW_CANCEL));
    press(JSW_VIEW_NO);
    ASSERT_TRUE(
        eventually([&] { return isShown(JSW_VIEW_CANCEL) && !isShown(JSW_VIEW_QUESTION); }));
    EXPECT_FALSE(reports.has("event 9"));

    press(JSW_VIEW_CANCEL);
    UpdateInfo(2, 1, 60, nullptr);
    ASSERT_TRUE(isAsked("1 page has not been printed. Cancel printing?"));
    press(JSW_VIEW_YES);
    press(JSW_VIEW_YES);
    press(JSW_VIEW_CANCEL);
    ASSERT_TRUE(eventually([] { return reports.has("event 9"); }));
    settle();
    // The window says so until the job ends, whatever the driver reports.
    UpdateInfo(3, 1, 0, nullptr);
    settle();
    EXPECT_EQ(text(JSW_VIEW_PROGRESS_TEXT), "Cancelling\x85");
    EXPECT_EQ(text(JSW_VIEW_TIME_TEXT), "Waiting for the printer");
    EXPECT_FALSE(IsWindowEnabled(control(JSW_VIEW_CANCEL)));
    EXPECT_EQ(reports.take(), (std::vector<std::string>{"event 9"}));
}

TEST_F(JobWindowTest, CancelDoesNotAskWhenNothingIsLeft) {
    startJob(1);
    show();
    press(JSW_VIEW_CANCEL);
    EXPECT_TRUE(eventually([] { return reports.has("event 9"); }));
    EXPECT_FALSE(isShown(JSW_VIEW_QUESTION));
}

TEST_F(JobWindowTest, ClosingSaysOnceThatItDoesNotCancel) {
    startJob();
    show();
    PostMessageA(window_, WM_CLOSE, 0, 0);
    ASSERT_TRUE(isAsked("Closing this window does not cancel printing."));
    EXPECT_TRUE(eventually([] { return reports.has("ClosingExplained=1"); }));
    EXPECT_FALSE(reports.has("event 2"));
    press(JSW_VIEW_YES);
    EXPECT_TRUE(eventually([] { return reports.has("event 2"); }));
    EXPECT_FALSE(IsWindowVisible(window_));
    EXPECT_FALSE(reports.has("event 9"));
    Uninitialize();

    startJob();
    SetSavedValue("ClosingExplained", "1");
    show();
    reports.take();
    PostMessageA(window_, WM_CLOSE, 0, 0);
    EXPECT_TRUE(eventually([] { return reports.has("event 2"); }));
    EXPECT_FALSE(IsWindowVisible(window_));
}

TEST_F(JobWindowTest, AHostThatTakesItsTimeHoldsNothingUp) {
    const KernelHandle busy(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    hostBusy = busy.get();
    startJob();
    show();
    press(JSW_VIEW_CANCEL);
    ASSERT_TRUE(isAsked("2 pages have not been printed. Cancel printing?"));
    press(JSW_VIEW_YES);
    ASSERT_TRUE(eventually([] { return reports.has("event 9"); }));
    // The host is now in its callback. The window keeps working.
    press(JSW_VIEW_UPDATE_AUTOMATICALLY);
    EXPECT_TRUE(eventually([&] {
        return SendMessageA(control(JSW_VIEW_UPDATE_AUTOMATICALLY), BM_GETCHECK, 0, 0) ==
               BST_CHECKED;
    }));
    EXPECT_FALSE(reports.has("updates 1"));
    SetEvent(hostBusy);
    EXPECT_TRUE(eventually([] { return reports.has("updates 1"); }));
    hostBusy = nullptr;
}

TEST_F(JobWindowTest, TheKeyboardReachesEverythingAndNeverCancelsByItself) {
    startJob();
    show();
    SetForegroundWindow(window_);
    ASSERT_TRUE(eventually([&] { return focus() == JSW_VIEW_CURRENT; }));
    std::vector<int> order;
    for (int i = 0; i < 9; ++i) {
        const int before = focus();
        key(VK_TAB);
        if (!eventually([&] { return focus() != before; })) break;
        order.push_back(focus());
    }
    EXPECT_EQ(order,
              (std::vector<int>{JSW_VIEW_NEXT, JSW_VIEW_INK_STATUS, JSW_VIEW_UPDATE_AUTOMATICALLY,
                                JSW_VIEW_SPECIAL_MESSAGES, JSW_VIEW_CANCEL, JSW_VIEW_CONTENT_LINK,
                                JSW_VIEW_CONTENT_BUTTON, JSW_VIEW_PREVIOUS, JSW_VIEW_CURRENT}));

    // After use of the keyboard the focus is visible: a ring in the accent colour.
    EXPECT_TRUE(eventually([&] { return edgeOf(JSW_VIEW_CURRENT) == RGB(0, 95, 184); }));
    EXPECT_NE(edgeOf(JSW_VIEW_NEXT), RGB(0, 95, 184));
    key(VK_RETURN);
    EXPECT_TRUE(eventually([] { return reports.has("CURRENT 0"); }));
    PostMessageA(control(JSW_VIEW_CURRENT), WM_SYSCHAR, 'c', 1 << 29);
    ASSERT_TRUE(isAsked("2 pages have not been printed. Cancel printing?"));
    EXPECT_EQ(focus(), JSW_VIEW_NO);
    key(VK_RETURN);
    EXPECT_TRUE(eventually([&] { return !isShown(JSW_VIEW_QUESTION); }));
    key(VK_ESCAPE);
    ASSERT_TRUE(isAsked("Closing this window does not cancel printing."));
    key(VK_ESCAPE);
    EXPECT_TRUE(eventually([&] { return !isShown(JSW_VIEW_QUESTION); }));
    EXPECT_TRUE(IsWindowVisible(window_));
    EXPECT_FALSE(reports.has("event 9") || reports.has("event 2"));
}

TEST_F(JobWindowTest, PageButtonsAndLinksReportTheirActions) {
    startJob();
    show();
    press(JSW_VIEW_CONTENT_BUTTON);
    press(JSW_VIEW_CONTENT_LINK);
    press(JSW_VIEW_CONTENT_BUTTON + 1);
    press(JSW_VIEW_CONTENT_LINK + 1);
    press(JSW_VIEW_PREVIOUS);
    EXPECT_TRUE(eventually([] { return reports.has("PREVIOUS 0"); }));
    EXPECT_EQ(reports.take(),
              (std::vector<std::string>{"LAUNCH_URL 3", "LAUNCH_APP 1", "PREVIOUS 0"}));
    DisplayBillboard("none.jbb", 0, 0);
    EXPECT_TRUE(
        eventually([&] { return text(JSW_VIEW_BILLBOARD) == "This page cannot be shown"; }));
    EXPECT_FALSE(isShown(JSW_VIEW_CONTENT_BUTTON) || isShown(JSW_VIEW_CONTENT_LINK));
    EXPECT_FALSE(IsWindowEnabled(control(JSW_VIEW_PREVIOUS)));
}

/// All visible controls are inside the window; those that can be pressed cover nothing else.
void expectNothingHidden(HWND window) {
    RECT area;
    GetClientRect(window, &area);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child)) continue;
        RECT place;
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= area.right &&
                    place.bottom <= area.bottom)
            << GetDlgCtrlID(child);
        EXPECT_TRUE(place.right > place.left && place.bottom > place.top) << GetDlgCtrlID(child);
    }
}

TEST_F(JobWindowTest, FollowsTheScreensScaleAndKeepsItsPlaceAndSize) {
    startJob();
    SetSavedValue("WindowX", "40");
    SetSavedValue("WindowY", "30");
    SetSavedValue("WindowWidth", "600");
    SetSavedValue("WindowHeight", "450");
    show();
    RECT frame;
    RECT area;
    GetClientRect(window_, &area);
    GetWindowRect(window_, &frame);
    EXPECT_EQ(frame.left, 40);
    EXPECT_EQ(frame.top, 30);
    EXPECT_EQ(area.right, 600);
    EXPECT_EQ(area.bottom, 450);
    expectNothingHidden(window_);

    const auto heightOf = [&](int id) {
        RECT place;
        GetWindowRect(control(id), &place);
        return place.bottom - place.top;
    };
    const LONG before = heightOf(JSW_VIEW_PROGRESS_BAR);
    const RECT larger{10, 10, 10 + (frame.right - frame.left) * 3 / 2,
                      10 + (frame.bottom - frame.top) * 3 / 2};
    constexpr UINT kDpiChanged = 0x02E0;
    SendMessageA(window_, kDpiChanged, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&larger));
    EXPECT_EQ(heightOf(JSW_VIEW_PROGRESS_BAR), before * 3 / 2);
    expectNothingHidden(window_);
    HideGui();
    EXPECT_TRUE(reports.has("WindowX=10"));
    const std::vector<std::string> all = reports.take();
    const auto saved = std::find_if(all.begin(), all.end(), [](const std::string& report) {
        return report.starts_with("WindowWidth=");
    });
    ASSERT_NE(saved, all.end());
    EXPECT_NEAR(std::stoi(saved->substr(12)), 600, 10);
}

TEST_F(JobWindowTest, ManyJobsLeaveNothingBehind) {
    const auto job = [&] {
        startJob();
        show();
        press(JSW_VIEW_NEXT);
        HideGui();
        Uninitialize();
        eventually([] { return ownWindow(JSW_SAMPLE_VIEW_CLASS) == nullptr; });
    };
    job();
    const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 5; ++i) job();
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user);
}

}  // namespace
}  // namespace jsw::test
