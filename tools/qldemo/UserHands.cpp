#include "tools/qldemo/UserHands.h"

#include "window/view/WindowIds.h"

#include <windows.h>

#include <iterator>

namespace jsw::qldemo {
namespace {

constexpr const char* kDialogClass = "#32770";

/** How long a window may take to return its text. */
constexpr UINT kPatience = 1000;  // milliseconds

/** How often, and at which interval, to look for a window that is about to appear. */
constexpr int kTriesForWindow = 100;
constexpr DWORD kWindowTick = 50;  // milliseconds

struct Search {
    const char* className;
    HWND found;
};

BOOL CALLBACK takeOurWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    char className[64] = {};
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameA(window, className, static_cast<int>(std::size(className)));
    if (process != GetCurrentProcessId() || lstrcmpA(className, search.className) != 0) return TRUE;
    search.found = window;
    return FALSE;
}

/** This process's top-level window of a class, or null. */
HWND ourWindow(const char* className) {
    Search search{className, nullptr};
    EnumWindows(takeOurWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/** The job window if it is visible, or null. */
HWND visibleJobWindow() {
    const HWND window = ourWindow(JSW_SAMPLE_VIEW_CLASS);
    return IsWindowVisible(window) != FALSE ? window : nullptr;
}

enum class Way { kButton, kCheckBox, kSystemMenu, kWindow };

struct Control {
    Target target;
    Way way;
    int id;
};

constexpr Control kControls[] = {
    {Target::kPrevious, Way::kButton, JSW_VIEW_PREVIOUS},
    {Target::kCurrent, Way::kButton, JSW_VIEW_CURRENT},
    {Target::kNext, Way::kButton, JSW_VIEW_NEXT},
    {Target::kInk, Way::kButton, JSW_VIEW_INK_STATUS},
    {Target::kCancel, Way::kButton, JSW_VIEW_CANCEL},
    {Target::kPageButton, Way::kButton, JSW_VIEW_CONTENT_BUTTON},
    {Target::kUpdates, Way::kCheckBox, JSW_VIEW_UPDATE_AUTOMATICALLY},
    {Target::kSpecial, Way::kCheckBox, JSW_VIEW_SPECIAL_MESSAGES},
    {Target::kMinimise, Way::kSystemMenu, SC_MINIMIZE},
    {Target::kRestore, Way::kSystemMenu, SC_RESTORE},
    {Target::kClose, Way::kSystemMenu, SC_CLOSE},
    {Target::kCloseJob, Way::kSystemMenu, JSW_VIEW_CLOSE_JOB},
    {Target::kYes, Way::kButton, JSW_VIEW_YES},
    {Target::kNo, Way::kButton, JSW_VIEW_NO},
    {Target::kActivate, Way::kWindow, 0},
};

std::string textOf(HWND control) {
    char text[1024] = {};
    DWORD_PTR length = 0;
    if (control == nullptr || IsWindowVisible(control) == FALSE ||
        SendMessageTimeoutA(control, WM_GETTEXT, std::size(text),
                            reinterpret_cast<LPARAM>(&text[0]), SMTO_ABORTIFHUNG, kPatience,
                            &length) == 0) {
        return {};
    }
    return text;
}

/** A button's label, without the access key's mark. */
std::string labelOf(HWND control) {
    std::string label = textOf(control);
    std::erase(label, '&');
    return label;
}

Press posted(const std::string& label, BOOL taken) {
    return {label, taken == FALSE ? "the window takes no messages" : ""};
}

Press pressControl(HWND window, int id, bool checkBox) {
    const HWND control = GetDlgItem(window, id);
    if (control == nullptr) {
        return {{}, "the window has no such button"};
    }
    const std::string label = labelOf(control);
    if (IsWindowVisible(control) == FALSE || IsWindowEnabled(control) == FALSE) {
        return {label, "the button cannot be pressed now"};
    }
    // A check box changes only by a real click.
    return posted(label, checkBox ? PostMessageA(control, BM_CLICK, 0, 0)
                                  : PostMessageA(window, WM_COMMAND,
                                                 MAKEWPARAM(static_cast<WORD>(id),
                                                            static_cast<WORD>(BN_CLICKED)),
                                                 reinterpret_cast<LPARAM>(control)));
}

}  // namespace

Press press(Target target, uint32_t pageButton) {
    HWND window = visibleJobWindow();
    // Bringing the window to the front waits until it appears.
    for (int tries = target == Target::kActivate ? kTriesForWindow : 0;
         tries > 0 && window == nullptr; --tries) {
        Sleep(kWindowTick);
        window = visibleJobWindow();
    }
    if (window == nullptr) {
        return {{}, "there is no job window"};
    }
    for (const Control& control : kControls) {
        if (control.target != target) continue;
        if (control.way == Way::kSystemMenu) {
            return posted({},
                          PostMessageA(window, WM_SYSCOMMAND, static_cast<WPARAM>(control.id), 0));
        }
        if (control.way == Way::kWindow) {
            if (SetForegroundWindow(window) == FALSE) {
                return {{}, "the window does not come to the front"};
            }
            return {};
        }
        const int offset = target == Target::kPageButton ? static_cast<int>(pageButton) - 1 : 0;
        return pressControl(window, control.id + offset, control.way == Way::kCheckBox);
    }
    return {{}, "nothing to press"};
}

Press answerDialog(uint32_t buttonId) {
    const HWND dialog = ourWindow(kDialogClass);
    return dialog == nullptr ? Press{{}, "there is no dialog"}
                             : pressControl(dialog, static_cast<int>(buttonId), false);
}

std::vector<std::string> readJobWindow() {
    constexpr struct {
        int id;
        const char* what;
    } kTexts[] = {{JSW_VIEW_BILLBOARD, "billboard"}, {JSW_VIEW_PROGRESS_TEXT, "progress"},
                  {JSW_VIEW_TIME_TEXT, "time"},      {JSW_VIEW_INK, "ink"},
                  {JSW_VIEW_SIMULATED, "note"},      {JSW_VIEW_CANCEL, "button"},
                  {JSW_VIEW_QUESTION, "question"}};
    std::vector<std::string> lines;
    const HWND window = visibleJobWindow();
    if (window == nullptr) return lines;
    for (const auto& entry : kTexts) {
        const std::string text = textOf(GetDlgItem(window, entry.id));
        if (!text.empty()) lines.push_back(std::string(entry.what) + ": " + text);
    }
    return lines;
}

}  // namespace jsw::qldemo
