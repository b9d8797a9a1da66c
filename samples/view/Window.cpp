#include "samples/view/Window.h"

#include "samples/view/BillboardFile.h"
#include "samples/view/ControlIds.h"
#include "samples/view/Layout.h"
#include "samples/view/Pictures.h"
#include "samples/view/WindowClass.h"

#include <commctrl.h>

#include <string>
#include <utility>

namespace sampleview {
namespace {

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;

constexpr const char* kMinimizedKey = "Job Progress Minimized";
constexpr const char* kSpecialMessagesKey = "Show Special Messages";

/** The navigation buttons and the actions that they report. */
struct Navigation {
    int id;
    const char* action;
};
constexpr Navigation kNavigation[] = {
    {JSW_VIEW_PREVIOUS, "PREVIOUS"},
    {JSW_VIEW_CURRENT, "CURRENT"},
    {JSW_VIEW_NEXT, "NEXT"},
    {JSW_VIEW_INK_STATUS, "INK_STATUS"},
};

int screenDotsPerInch() {
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dotsPerInch;
}

}  // namespace

Window::Window(std::shared_ptr<ViewState> state, HINSTANCE instance)
    : state_(std::move(state)),
      instance_(instance),
      unit_(screenDotsPerInch()),
      fonts_(makeFonts(unit_)),
      headerBrush_(CreateSolidBrush(colours::kHeader)),
      bodyBrush_(CreateSolidBrush(colours::kBody)),
      simulatedBrush_(CreateSolidBrush(colours::kSimulated)) {
}

void Window::run() {
    const WindowClass windowClass(instance_, procedure);
    if (!create()) return;
    if (state_->attachWindow(window_)) {
        refresh();
        MSG message;
        // A dialog of the host's that runs inside a callback may have eaten the quit message.
        while (window_ && GetMessageA(&message, nullptr, 0, 0) > 0) {
            if (IsDialogMessageA(window_, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    if (window_) DestroyWindow(window_);
}

bool Window::create() {
    data_ = state_->takeData();
    RECT frame{0, 0, MulDiv(kClientSize.cx, unit_, 96), MulDiv(kClientSize.cy, unit_, 96)};
    AdjustWindowRectEx(&frame, kStyle, FALSE, 0);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const Place place = initialPlace(width, height);
    window_ = CreateWindowExA(0, JSW_SAMPLE_VIEW_CLASS, "", kStyle, place.x, place.y, width, height,
                              nullptr, nullptr, instance_, nullptr);
    if (!window_) return false;
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    createControls(window_, instance_, fonts_, unit_);
    AppendMenuA(GetSystemMenu(window_, FALSE), MF_STRING, JSW_VIEW_CLOSE_JOB, "Close &job");
    return true;
}

Place Window::initialPlace(int width, int height) const {
    const Place wanted{data_.savedX.value_or(0), data_.savedY.value_or(0)};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoA(MonitorFromPoint({wanted.x, wanted.y}, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    const Area desktop{{work.left, work.top}, work.right - work.left, work.bottom - work.top};
    return data_.savedX && data_.savedY ? clampToDesktop(wanted, width, height, desktop)
                                        : centred(width, height, desktop);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    try {
        if (self) return self->handle(message, wParam, lParam);
    } catch (...) {
        // Out of memory, or an exception of the host's; the window stays as it is.
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT Window::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kMessageRefresh:
            refresh();
            return 0;
        case kMessageClose:
            DestroyWindow(window_);
            return 0;
        case WM_COMMAND:
            pressed(LOWORD(wParam));
            return 0;
        case WM_SYSCOMMAND:
            return systemCommand(wParam, lParam);
        case WM_CLOSE:
            hideAndReport(JSW_STATUS_GUI_CLOSED);
            return 0;
        case WM_MOVE:
            notePlace();
            return 0;
        case WM_EXITSIZEMOVE:
            state_->savePlace();
            return 0;
        case WM_PAINT:
            paintHeader();
            return 0;
        case WM_DRAWITEM:
            drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return controlBrush(reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam));
        case WM_DESTROY:
            state_->detachWindow();
            PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY:
            SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
            return DefWindowProcA(std::exchange(window_, nullptr), message, wParam, lParam);
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void Window::refresh() {
    data_ = state_->takeData();
    refreshTexts();
    refreshProgress();
    refreshInk();
    refreshBillboard();
    refreshControls();
    refreshVisibility();
}

void Window::refreshTexts() {
    const std::string job = data_.jobName.empty() ? "Untitled document" : data_.jobName;
    setControlText(window_, 0, "Printing " + job);
    setControlText(window_, JSW_VIEW_PRINTER_NAME,
                   data_.printerName.empty() ? "Printer" : data_.printerName);
    setControlText(window_, JSW_VIEW_JOB_NAME, job);
    ShowWindow(GetDlgItem(window_, JSW_VIEW_SIMULATED),
               isSimulatedPrinter(data_.printerName) ? SW_SHOWNA : SW_HIDE);
}

void Window::refreshProgress() {
    setControlText(window_, JSW_VIEW_PROGRESS_TEXT,
                   data_.cancelling ? "Cancelling..." : progressText(data_.progress));
    setControlText(window_, JSW_VIEW_TIME_TEXT, data_.cancelling ? "" : timeText(data_.progress));
    const auto permille = progressPermille(data_.progress);
    SendDlgItemMessageA(window_, JSW_VIEW_PROGRESS_BAR, PBM_SETPOS,
                        static_cast<WPARAM>(permille.value_or(0)), 0);
    // An empty bar would say that nothing has been printed yet.
    ShowWindow(GetDlgItem(window_, JSW_VIEW_PROGRESS_BAR), permille ? SW_SHOWNA : SW_HIDE);
}

void Window::refreshInk() {
    InkDisplay ink{shownInkSlots(data_.inkPercents), data_.reserveMode};
    if (ink == ink_ && billboardSerial_) return;
    ink_ = std::move(ink);
    setControlText(window_, JSW_VIEW_INK, inkSummary(ink_.slots));
    InvalidateRect(GetDlgItem(window_, JSW_VIEW_INK), nullptr, FALSE);
    InvalidateRect(GetDlgItem(window_, JSW_VIEW_BILLBOARD), nullptr, FALSE);
}

void Window::refreshBillboard() {
    if (billboardSerial_ == data_.billboardSerial) return;
    billboardSerial_ = data_.billboardSerial;
    billboard_.page = loadBillboard(data_.dataPath, data_.billboard);
    billboard_.bitmap = billboard_.page.picture == Picture::file
                            ? loadPicture(scriptPath(data_.dataPath, billboard_.page.pictureFile))
                            : GdiObject<HBITMAP>();
    setControlText(window_, JSW_VIEW_BILLBOARD, billboard_.page.title);
    arrangePageButtons(window_, billboard_.page, fonts_.normal.get(), unit_);
    InvalidateRect(GetDlgItem(window_, JSW_VIEW_BILLBOARD), nullptr, FALSE);
}

void Window::refreshControls() {
    enableControl(window_, JSW_VIEW_PREVIOUS, data_.navigation);
    enableControl(window_, JSW_VIEW_NEXT, data_.navigation);
    enableControl(window_, JSW_VIEW_CANCEL, !data_.cancelling);
    setControlText(window_, JSW_VIEW_CANCEL,
                   data_.cancelling ? "Cancelling..." : "&Cancel printing");
    const auto check = [&](int id, bool on) {
        CheckDlgButton(window_, id, on ? BST_CHECKED : BST_UNCHECKED);
    };
    check(JSW_VIEW_UPDATE_AUTOMATICALLY, data_.updateSoftware);
    check(JSW_VIEW_SPECIAL_MESSAGES, data_.showSpecialMessages);
}

void Window::refreshVisibility() {
    if (data_.visible != shown_) {
        shown_ = data_.visible;
        // The job must not take the keyboard from what the user is doing.
        const int appear = data_.startMinimized ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE;
        ShowWindow(window_, shown_ ? appear : SW_HIDE);
        notePlace();
    }
    if (shown_ && data_.restoreWanted && IsIconic(window_)) {
        ShowWindow(window_, SW_SHOWNOACTIVATE);
    }
}

void Window::notePlace() {
    RECT frame;
    if (!shown_ || IsIconic(window_) || !GetWindowRect(window_, &frame)) return;
    state_->moved({frame.left, frame.top});
}

void Window::paintHeader() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    RECT area;
    GetClientRect(window_, &area);
    area.bottom = MulDiv(kHeaderHeight, unit_, 96);
    const Canvas canvas(dc);
    canvas.fill(area, colours::kHeader);
    canvas.fill({area.left, area.bottom - 1, area.right, area.bottom}, colours::kLine);
    EndPaint(window_, &paint);
}

void Window::drawItem(const DRAWITEMSTRUCT& item) {
    paintBuffered(item.hDC, item.rcItem, [&](const Canvas& canvas, const RECT& area) {
        if (item.CtlID == JSW_VIEW_BILLBOARD) {
            paintBillboard(canvas, area, billboard_, ink_, fonts_, unit_);
        } else {
            canvas.fill(area, colours::kBody);
            paintInk(canvas, area, ink_, fonts_);
        }
    });
}

LRESULT Window::controlBrush(HWND control, HDC dc) {
    const auto colour = [dc](COLORREF text, COLORREF ground, const GdiObject<HBRUSH>& brush) {
        SetTextColor(dc, text);
        SetBkColor(dc, ground);
        return reinterpret_cast<LRESULT>(brush.get());
    };
    switch (GetDlgCtrlID(control)) {
        case JSW_VIEW_PRINTER_NAME:
            return colour(colours::kText, colours::kHeader, headerBrush_);
        case JSW_VIEW_JOB_NAME:
            return colour(colours::kFaintText, colours::kHeader, headerBrush_);
        case JSW_VIEW_SIMULATED:
            return colour(colours::kText, colours::kSimulated, simulatedBrush_);
        default:
            return colour(colours::kText, colours::kBody, bodyBrush_);
    }
}

void Window::pressed(int id) {
    // A posted command arrives even when the control is disabled or hidden.
    const HWND control = GetDlgItem(window_, id);
    if (!control || !IsWindowEnabled(control)) return;
    for (const Navigation& entry : kNavigation) {
        if (entry.id == id) return navigate(entry.action);
    }
    switch (id) {
        case JSW_VIEW_CANCEL:
            return cancelJob();
        case JSW_VIEW_UPDATE_AUTOMATICALLY:
            return toggleUpdateSoftware();
        case JSW_VIEW_SPECIAL_MESSAGES:
            return toggleSpecialMessages();
        default:
            if (id >= JSW_VIEW_CONTENT_BUTTON) {
                pressPageButton(static_cast<std::size_t>(id - JSW_VIEW_CONTENT_BUTTON));
            }
    }
}

void Window::navigate(const char* action) {
    state_->callHost(&HostCallbacks::billboard, action, std::int32_t{0});
}

void Window::pressPageButton(std::size_t index) {
    if (index >= billboard_.page.buttons.size()) return;
    // A copy: the host may have another page displayed before it returns.
    const ContentButton button = billboard_.page.buttons[index];
    state_->callHost(&HostCallbacks::billboard, button.action.c_str(), button.actionId);
}

void Window::cancelJob() {
    state_->change([](JobData& data) { data.cancelling = true; });
    // Shown now, not when the host has come back.
    refresh();
    UpdateWindow(window_);
    state_->callHost(&HostCallbacks::event, std::int32_t{JSW_STATUS_JOB_CANCELLED});
}

void Window::toggleUpdateSoftware() {
    const bool on = !data_.updateSoftware;
    state_->change([on](JobData& data) { data.updateSoftware = on; });
    refresh();
    state_->callHost(&HostCallbacks::updateSoftware, std::int32_t{on});
}

void Window::toggleSpecialMessages() {
    const bool on = !data_.showSpecialMessages;
    state_->change([on](JobData& data) { data.showSpecialMessages = on; });
    refresh();
    state_->callHost(&HostCallbacks::saveAppearance, kSpecialMessagesKey, std::int32_t{on});
}

void Window::hideAndReport(std::int32_t event) {
    const auto state = state_;
    state->hide();
    if (!window_) return;
    refresh();
    state->callHost(&HostCallbacks::event, event);
}

LRESULT Window::systemCommand(WPARAM wParam, LPARAM lParam) {
    // The system uses the four low bits itself.
    const WPARAM command = wParam & 0xFFF0;
    if (command == JSW_VIEW_CLOSE_JOB) {
        hideAndReport(JSW_STATUS_JOB_CLOSED);
        return 0;
    }
    const LRESULT result = DefWindowProcA(window_, WM_SYSCOMMAND, wParam, lParam);
    if (command == SC_MINIMIZE || command == SC_RESTORE) {
        state_->callHost(&HostCallbacks::saveAppearance, kMinimizedKey,
                         std::int32_t{command == SC_MINIMIZE});
    }
    return result;
}

}  // namespace sampleview
