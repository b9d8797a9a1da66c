#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/window/JobWindowTest.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace jsw::test {

CallRecord reports;
HANDLE hostBusy = nullptr;

namespace {

void onEvent(std::int32_t event) {
    reports.add("event " + std::to_string(event));
    if (hostBusy) WaitForSingleObject(hostBusy, 10000);
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

}  // namespace

void JobWindowTest::SetUp() {
    const std::string path = std::string(folderPart(moduleFileName(nullptr))) + "jswv.dll";
    module_.reset(LoadLibraryA(path.c_str()));
    ASSERT_TRUE(module_);
#define JSW_FIND(name, type)                           \
    name = findEntryPoint<type>(module_.get(), #name); \
    ASSERT_TRUE(name) << #name;
    JSW_VIEW_ENTRY_POINTS(JSW_FIND)
#undef JSW_FIND
    folder_.write("Scripts\\page.jbb",
                  "title = A page\nbutton = &Order | LAUNCH_URL | 3\n\nText with [a link | "
                  "LAUNCH_APP | 1].\n");
    reports.take();
}

void JobWindowTest::TearDown() {
    if (Uninitialize) Uninitialize();
    eventually([] { return ownWindow(JSW_SAMPLE_VIEW_CLASS) == nullptr; });
}

void JobWindowTest::startJob(int totalPages) {
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

void JobWindowTest::show() {
    ShowGui();
    UpdateInfo(1, 1, 60, nullptr);
    ASSERT_TRUE(eventually([&] {
        window_ = ownWindow(JSW_SAMPLE_VIEW_CLASS);
        return window_ && IsWindowVisible(window_) && text(JSW_VIEW_PROGRESS_TEXT) != "";
    }));
}

std::string JobWindowTest::text(int id) const {
    std::array<char, 512> letters{};
    SendMessageA(control(id), WM_GETTEXT, letters.size(), reinterpret_cast<LPARAM>(letters.data()));
    return letters.data();
}

int JobWindowTest::focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
    return info.hwndFocus ? GetDlgCtrlID(info.hwndFocus) : 0;
}

void JobWindowTest::key(WPARAM key) const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
    PostMessageA(info.hwndFocus ? info.hwndFocus : window_, WM_KEYDOWN, key, 1);
}

COLORREF JobWindowTest::edgeOf(int id) const {
    RECT area;
    GetClientRect(control(id), &area);
    const HDC dc = GetDC(control(id));
    const COLORREF colour = GetPixel(dc, 1, area.bottom / 2);
    ReleaseDC(control(id), dc);
    return colour;
}

}  // namespace jsw::test
