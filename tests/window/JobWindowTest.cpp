#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/view.h"
#include "tests/support/TempFolder.h"
#include "window/view/ControlIds.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <mutex>
#include <oleacc.h>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPatience = 15000;  // milliseconds

template <class Condition>
bool within(DWORD milliseconds, const Condition& condition) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > milliseconds) return false;
        Sleep(5);
    }
    return true;
}

/// What the window has told its host, in order.
class Reports {
  public:
    void add(const std::string& report) {
        const std::lock_guard lock(mutex_);
        reports_.push_back(report);
    }
    std::vector<std::string> take() {
        const std::lock_guard lock(mutex_);
        return std::exchange(reports_, {});
    }
    bool has(const std::string& report) {
        const std::lock_guard lock(mutex_);
        return std::find(reports_.begin(), reports_.end(), report) != reports_.end();
    }

  private:
    std::mutex mutex_;
    std::vector<std::string> reports_;
};

Reports reports;
HANDLE hostBusy = nullptr;  ///< while set, the host waits for it in its status callback

void onEvent(std::int32_t event) {
    reports.add("event " + std::to_string(event));
    if (hostBusy) WaitForSingleObject(hostBusy, kPatience);
}
void onBillboard(const char* action, std::int32_t id) {
    reports.add(std::string(action) + " " + std::to_string(id));
}
void onValue(const char* key, const char* value) {
    reports.add(std::string(key) + "=" + value);
}
void onAppearance(const char* key, std::int32_t value) {
    reports.add(std::string(key) + "=" + std::to_string(value));
}
void onUpdateSoftware(std::int32_t value) {
    reports.add("updates " + std::to_string(value));
}

/// The view module as the library calls it, with a real window.
class JobWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const std::string path =
            std::string(jsw::folderPart(jsw::moduleFileName(nullptr))) + "jswv.dll";
        module_.reset(LoadLibraryA(path.c_str()));
        ASSERT_TRUE(module_);
#define JSW_FIND(name, type)                                \
    name = jsw::findEntryPoint<type>(module_.get(), #name); \
    ASSERT_TRUE(name) << #name;
        JSW_VIEW_ENTRY_POINTS(JSW_FIND)
#undef JSW_FIND
        folder_.write("Scripts\\page.jbb",
                      "title = A page\nbutton = &Order | LAUNCH_URL | 3\n\nText with [a link | "
                      "LAUNCH_APP | 1].\n");
        reports.take();
    }

    void TearDown() override {
        if (Uninitialize) Uninitialize();
        within(kPatience, [] { return FindWindowA(JSW_SAMPLE_VIEW_CLASS, nullptr) == nullptr; });
    }

    void startJob(int totalPages = 3) {
        Initialize();
        SetDataPath(folder_.path().c_str());
        SetJobName("report.pdf");
        SetPrinterFriendlyName("SimulatedPrinter");
        SetTotalPages(totalPages);
        SetShowPageInfo(totalPages >= 0);
        SetTotalCopies(1);
        InkInfo ink{};
        std::fill(std::begin(ink.InkPercent), std::end(ink.InkPercent), -1);
        ink.InkPercent[0] = 90;
        ink.InkPercent[1] = 10;
        SetInkInfo(&ink);
        SetJswCallback(onEvent);
        SetBillboardCallback(onBillboard);
        DisplayBillboard("page.jbb", 1, 0);
        SetSaveAppearanceCallback(onAppearance);
        SetSaveValueCallback(onValue);
        SetUpdateSoftwareCallback(onUpdateSoftware);
    }

    void show() {
        ShowGui();
        UpdateInfo(1, 1, 60, nullptr);
        ASSERT_TRUE(within(kPatience, [&] {
            window_ = FindWindowA(JSW_SAMPLE_VIEW_CLASS, nullptr);
            return window_ && IsWindowVisible(window_) && text(JSW_VIEW_PROGRESS_TEXT) != "";
        }));
    }

    [[nodiscard]] HWND control(int id) const {
        return GetDlgItem(window_, id);
    }
    [[nodiscard]] bool isShown(int id) const {
        return IsWindowVisible(control(id)) != FALSE;
    }
    [[nodiscard]] std::string text(int id) const {
        std::array<char, 512> letters{};
        SendMessageA(control(id), WM_GETTEXT, letters.size(),
                     reinterpret_cast<LPARAM>(letters.data()));
        return letters.data();
    }
    void press(int id) const {
        PostMessageA(window_, WM_COMMAND, static_cast<WPARAM>(id),
                     reinterpret_cast<LPARAM>(control(id)));
    }
    /// Everything posted so far has been dealt with.
    void settle() const {
        SendMessageA(window_, WM_NULL, 0, 0);
    }
    [[nodiscard]] bool isAsked(const std::string& question) const {
        return within(kPatience, [&] {
            return isShown(JSW_VIEW_QUESTION) && text(JSW_VIEW_QUESTION) == question;
        });
    }
    [[nodiscard]] int focus() const {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
        return info.hwndFocus ? GetDlgCtrlID(info.hwndFocus) : 0;
    }
    void key(WPARAM key) const {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
        PostMessageA(info.hwndFocus ? info.hwndFocus : window_, WM_KEYDOWN, key, 1);
    }

    /// The colour just inside the left edge of a button.
    [[nodiscard]] COLORREF edgeOf(int id) const {
        RECT area;
        GetClientRect(control(id), &area);
        const HDC dc = GetDC(control(id));
        const COLORREF colour = GetPixel(dc, 1, area.bottom / 2);
        ReleaseDC(control(id), dc);
        return colour;
    }

#define JSW_DECLARE(name, type) type* name = nullptr;
    JSW_VIEW_ENTRY_POINTS(JSW_DECLARE)
#undef JSW_DECLARE
    jsw::ModuleHandle module_;
    jsw::test::TempFolder folder_;
    HWND window_ = nullptr;
};

TEST_F(JobWindowTest, CancelAsksBackAndASecondClickDoesNothing) {
    startJob();
    show();
    press(JSW_VIEW_CANCEL);
    press(JSW_VIEW_CANCEL);
    ASSERT_TRUE(isAsked("2 pages have not been printed. Cancel printing?"));
    EXPECT_FALSE(isShown(JSW_VIEW_CANCEL));
    press(JSW_VIEW_NO);
    ASSERT_TRUE(
        within(kPatience, [&] { return isShown(JSW_VIEW_CANCEL) && !isShown(JSW_VIEW_QUESTION); }));
    EXPECT_FALSE(reports.has("event 9"));

    press(JSW_VIEW_CANCEL);
    UpdateInfo(2, 1, 60, nullptr);
    ASSERT_TRUE(isAsked("1 page has not been printed. Cancel printing?"));
    press(JSW_VIEW_YES);
    press(JSW_VIEW_YES);
    press(JSW_VIEW_CANCEL);
    ASSERT_TRUE(within(kPatience, [] { return reports.has("event 9"); }));
    settle();
    // The window says so until the job ends, whatever the driver goes on to tell.
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
    EXPECT_TRUE(within(kPatience, [] { return reports.has("event 9"); }));
    EXPECT_FALSE(isShown(JSW_VIEW_QUESTION));
}

TEST_F(JobWindowTest, ClosingSaysOnceThatItDoesNotCancel) {
    startJob();
    show();
    PostMessageA(window_, WM_CLOSE, 0, 0);
    ASSERT_TRUE(isAsked("Closing this window does not cancel printing."));
    EXPECT_TRUE(within(kPatience, [] { return reports.has("ClosingExplained=1"); }));
    EXPECT_FALSE(reports.has("event 2"));
    press(JSW_VIEW_YES);
    EXPECT_TRUE(within(kPatience, [] { return reports.has("event 2"); }));
    EXPECT_FALSE(IsWindowVisible(window_));
    EXPECT_FALSE(reports.has("event 9"));
    Uninitialize();

    startJob();
    SetSavedValue("ClosingExplained", "1");
    show();
    reports.take();
    PostMessageA(window_, WM_CLOSE, 0, 0);
    EXPECT_TRUE(within(kPatience, [] { return reports.has("event 2"); }));
    EXPECT_FALSE(IsWindowVisible(window_));
}

TEST_F(JobWindowTest, AHostThatTakesItsTimeHoldsNothingUp) {
    const jsw::KernelHandle busy(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    hostBusy = busy.get();
    startJob();
    show();
    press(JSW_VIEW_CANCEL);
    ASSERT_TRUE(isAsked("2 pages have not been printed. Cancel printing?"));
    press(JSW_VIEW_YES);
    ASSERT_TRUE(within(kPatience, [] { return reports.has("event 9"); }));
    // The host is in its callback now. The window goes on all the same.
    press(JSW_VIEW_UPDATE_AUTOMATICALLY);
    EXPECT_TRUE(within(kPatience, [&] {
        return SendMessageA(control(JSW_VIEW_UPDATE_AUTOMATICALLY), BM_GETCHECK, 0, 0) ==
               BST_CHECKED;
    }));
    EXPECT_FALSE(reports.has("updates 1"));
    SetEvent(hostBusy);
    EXPECT_TRUE(within(kPatience, [] { return reports.has("updates 1"); }));
    hostBusy = nullptr;
}

TEST_F(JobWindowTest, TheKeyboardReachesEverythingAndNeverCancelsByItself) {
    startJob();
    show();
    SetForegroundWindow(window_);
    ASSERT_TRUE(within(kPatience, [&] { return focus() == JSW_VIEW_CURRENT; }));
    std::vector<int> order;
    for (int i = 0; i < 9; ++i) {
        const int before = focus();
        key(VK_TAB);
        if (!within(kPatience, [&] { return focus() != before; })) break;
        order.push_back(focus());
    }
    EXPECT_EQ(order,
              (std::vector<int>{JSW_VIEW_NEXT, JSW_VIEW_INK_STATUS, JSW_VIEW_UPDATE_AUTOMATICALLY,
                                JSW_VIEW_SPECIAL_MESSAGES, JSW_VIEW_CANCEL, JSW_VIEW_CONTENT_LINK,
                                JSW_VIEW_CONTENT_BUTTON, JSW_VIEW_PREVIOUS, JSW_VIEW_CURRENT}));

    // Who has come here by keyboard sees where it is: a ring in the accent colour.
    EXPECT_TRUE(within(kPatience, [&] { return edgeOf(JSW_VIEW_CURRENT) == RGB(0, 95, 184); }));
    EXPECT_NE(edgeOf(JSW_VIEW_NEXT), RGB(0, 95, 184));
    key(VK_RETURN);
    EXPECT_TRUE(within(kPatience, [] { return reports.has("CURRENT 0"); }));
    PostMessageA(control(JSW_VIEW_CURRENT), WM_SYSCHAR, 'c', 1 << 29);
    ASSERT_TRUE(isAsked("2 pages have not been printed. Cancel printing?"));
    EXPECT_EQ(focus(), JSW_VIEW_NO);
    key(VK_RETURN);
    EXPECT_TRUE(within(kPatience, [&] { return !isShown(JSW_VIEW_QUESTION); }));
    key(VK_ESCAPE);
    ASSERT_TRUE(isAsked("Closing this window does not cancel printing."));
    key(VK_ESCAPE);
    EXPECT_TRUE(within(kPatience, [&] { return !isShown(JSW_VIEW_QUESTION); }));
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
    EXPECT_TRUE(within(kPatience, [] { return reports.has("PREVIOUS 0"); }));
    EXPECT_EQ(reports.take(),
              (std::vector<std::string>{"LAUNCH_URL 3", "LAUNCH_APP 1", "PREVIOUS 0"}));
    DisplayBillboard("none.jbb", 0, 0);
    EXPECT_TRUE(
        within(kPatience, [&] { return text(JSW_VIEW_BILLBOARD) == "This page cannot be shown"; }));
    EXPECT_FALSE(isShown(JSW_VIEW_CONTENT_BUTTON) || isShown(JSW_VIEW_CONTENT_LINK));
    EXPECT_FALSE(IsWindowEnabled(control(JSW_VIEW_PREVIOUS)));
}

/// All visible controls lie within the window, those that can be pressed on nothing else.
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

/// What a screen reader is told of a control or, from 1, of a part of it.
struct Spoken {
    std::string name;
    std::string value;
    std::string description;
    long role = 0;
    long parts = 0;
};

std::string taken(BSTR text) {
    std::string letters;
    for (const wchar_t* letter = text; letter && *letter; ++letter) {
        letters += *letter < 128 ? static_cast<char>(*letter) : '?';
    }
    SysFreeString(text);
    return letters;
}

Spoken speak(HWND control, long part = CHILDID_SELF) {
    Spoken spoken;
    IAccessible* object = nullptr;
    if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT),
                                          __uuidof(IAccessible),
                                          reinterpret_cast<void**>(&object)))) {
        return spoken;
    }
    VARIANT which{};
    which.vt = VT_I4;
    which.lVal = part;
    BSTR text = nullptr;
    if (object->get_accName(which, &text) == S_OK) spoken.name = taken(text);
    if (object->get_accValue(which, &text) == S_OK) spoken.value = taken(text);
    if (object->get_accDescription(which, &text) == S_OK) spoken.description = taken(text);
    VARIANT role{};
    if (object->get_accRole(which, &role) == S_OK) spoken.role = role.lVal;
    object->get_accChildCount(&spoken.parts);
    object->Release();
    return spoken;
}

TEST_F(JobWindowTest, TellsScreenReadersWhatItShows) {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
    startJob();
    show();
    const Spoken progress = speak(control(JSW_VIEW_PROGRESS_BAR));
    EXPECT_EQ(progress.role, ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(progress.name, "Progress");
    EXPECT_EQ(progress.value, "33%");
    UpdateInfo(3, 1, 5, nullptr);
    settle();
    EXPECT_EQ(speak(control(JSW_VIEW_PROGRESS_BAR)).value, "100%");

    const Spoken ink = speak(control(JSW_VIEW_INK));
    EXPECT_EQ(ink.name, "Ink levels");
    ASSERT_EQ(ink.parts, 2);
    const Spoken second = speak(control(JSW_VIEW_INK), 2);
    EXPECT_EQ(second.name, "Cartridge 2");
    EXPECT_EQ(second.value, "10% low");
    EXPECT_EQ(second.role, ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(speak(control(JSW_VIEW_INK), 3).name, "");

    const Spoken page = speak(control(JSW_VIEW_BILLBOARD));
    EXPECT_EQ(page.name, "A page");
    EXPECT_EQ(page.description, "Text with a link.");
    EXPECT_EQ(speak(control(JSW_VIEW_BILLBOARD), 1).name, "Text with a link.");
    const Spoken link = speak(control(JSW_VIEW_CONTENT_LINK));
    EXPECT_EQ(link.role, ROLE_SYSTEM_LINK);
    EXPECT_EQ(link.name, "a link");

    EXPECT_EQ(speak(control(JSW_VIEW_PROGRESS_TEXT)).name, "Page 3 of 3");
    EXPECT_NE(speak(control(JSW_VIEW_CANCEL)).name, "");
    for (int id = JSW_VIEW_PREVIOUS; id <= JSW_VIEW_INK_STATUS; ++id) {
        EXPECT_NE(speak(control(id)).name, "") << id;
    }
    Uninitialize();
    CoUninitialize();
}

TEST_F(JobWindowTest, ManyJobsLeaveNothingBehind) {
    const auto job = [&] {
        startJob();
        show();
        press(JSW_VIEW_NEXT);
        HideGui();
        Uninitialize();
        within(kPatience, [] { return FindWindowA(JSW_SAMPLE_VIEW_CLASS, nullptr) == nullptr; });
    };
    job();
    const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 5; ++i) job();
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user);
}

}  // namespace
