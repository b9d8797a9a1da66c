#include "window/view/Window.h"

#include "common/Encoding.h"
#include "common/Files.h"
#include "common/Language.h"
#include "window/ui/Dpi.h"
#include "window/view/Controls.h"
#include "window/view/WindowClass.h"
#include "window/view/WindowIds.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace jsw::window {
namespace {

constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT;

/** Whether access keys and the focus are visible before the keyboard is used. */
bool keyboardCuesWanted() {
    BOOL wanted = FALSE;
    SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &wanted, 0);
    return wanted != FALSE;
}

Box workArea(const RECT& place) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
    return boxOf(monitor.rcWork);
}

}  // namespace

Window::Window(std::shared_ptr<ViewState> state)
    : state_(std::move(state)),
      instance_(common::thisModule()),
      languages_(common::userLanguages()),
      texts_(common::translated<WindowTexts>(languages_)),
      palette_(lightPalette()) {
}

void Window::run() {
    const SharpWindows sharp;
    const VisualStyles styles(instance_);
    const WindowClass windowClass(instance_, procedure);
    if (!create()) return;
    if (state_->attachWindow(window_)) {
        refresh();
        MSG message;
        while (window_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (pressedKey(message) || IsDialogMessageW(window_, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (window_) DestroyWindow(window_);
}

bool Window::create() {
    data_ = state_->takeData();
    setScale(dotsPerInch(nullptr));
    RECT frame = initialFrame();
    window_ = CreateWindowExW(kExtendedStyle, JSW_SAMPLE_VIEW_CLASS_W, L"", kStyle, frame.left,
                              frame.top, frame.right - frame.left, frame.bottom - frame.top,
                              nullptr, nullptr, instance_, nullptr);
    if (!window_) return false;
    // Its screen may have another scale.
    const int dots = dotsPerInch(window_);
    if (dots != scale_.dotsPerInch()) {
        setScale(dots);
        frame = initialFrame();
        SetWindowPos(window_, nullptr, frame.left, frame.top, frame.right - frame.left,
                     frame.bottom - frame.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    createContent();
    return true;
}

void Window::createContent() {
    setIcons();
    createControls(window_, instance_);
    setControlFont(window_, fonts_->get(Font::normal));
    tooltips_.create(window_, instance_);
    speech_.attach(window_);
    changeLook();
    AppendMenuW(GetSystemMenu(window_, FALSE), MF_STRING, JSW_VIEW_CLOSE_JOB,
                common::wide(texts_.closeJob).c_str());
    showsFocus_ = showsKeys_ = keyboardCuesWanted();
    if (!showsKeys_) {
        SendMessageW(window_, WM_CHANGEUISTATE,
                     MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void Window::setScale(int dotsPerInch) {
    scale_ = Scale(dotsPerInch);
    fonts_ = std::make_unique<Fonts>(dotsPerInch);
}

void Window::setIcons() {
    largeIcon_.reset(makeIcon(scale_(32)));
    smallIcon_.reset(makeIcon(scale_(16)));
    SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon_.get()));
    SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_.get()));
}

SIZE Window::savedFrame() const {
    const SavedPlace& saved = data_.savedPlace;
    const SIZE wanted{scale_(saved.width.value_or(kUsualSize.width)),
                      scale_(saved.height.value_or(kUsualSize.height))};
    const SIZE frame = frameSize(wanted, kStyle, kExtendedStyle, scale_.dotsPerInch());
    const SIZE least = leastFrame();
    return {std::max(frame.cx, least.cx), std::max(frame.cy, least.cy)};
}

SIZE Window::leastFrame() const {
    const Size least =
        leastSize(describeJob(data_, question_, texts_), texts_, FontMeasure(*fonts_), scale_);
    const SIZE frame =
        frameSize({least.width, least.height}, kStyle, kExtendedStyle, scale_.dotsPerInch());
    // A screen may be even smaller.
    RECT place{};
    GetWindowRect(window_, &place);
    const Box desktop = workArea(place);
    return {std::min<LONG>(frame.cx, desktop.width()), std::min<LONG>(frame.cy, desktop.height())};
}

RECT Window::initialFrame() const {
    const SavedPlace& saved = data_.savedPlace;
    const SIZE size = savedFrame();
    const RECT wanted{saved.x.value_or(0), saved.y.value_or(0), saved.x.value_or(0) + 1,
                      saved.y.value_or(0) + 1};
    const Box desktop = workArea(wanted);
    const Size window{std::min(static_cast<int>(size.cx), desktop.width()),
                      std::min(static_cast<int>(size.cy), desktop.height())};
    const Place place = saved.x && saved.y ? clampToDesktop({*saved.x, *saved.y}, window, desktop)
                                           : centred(window, desktop);
    return {place.x, place.y, place.x + window.width, place.y + window.height};
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        if (self) return self->handle(message, wParam, lParam);
    } catch (...) {
        // Out of memory; the window stays unchanged.
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
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
            if (HIWORD(wParam) == BN_CLICKED || HIWORD(wParam) == BN_DOUBLECLICKED) {
                pressed(LOWORD(wParam));
            } else if (HIWORD(wParam) == BN_SETFOCUS) {
                showFocused(LOWORD(wParam));
            }
            return 0;
        case WM_VSCROLL:
            scrollBarMoved(LOWORD(wParam));
            return 0;
        case WM_MOUSEWHEEL:
            wheelTurned(static_cast<short>(HIWORD(wParam)));
            return 0;
        case WM_SYSCOMMAND:
            return systemCommand(wParam, lParam);
        case WM_CLOSE:
            closePressed();
            return 0;
        case WM_MOVE:
            notePlace();
            return 0;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) refreshLayout();
            notePlace();
            return 0;
        case WM_EXITSIZEMOVE:
            state_->savePlaceLater();
            return 0;
        case WM_GETMINMAXINFO: {
            const SIZE least = leastFrame();
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
            return 0;
        }
        case kMessageDpiChanged:
            changeScale(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
            changeLook();
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) lastFocus_ = GetFocus();
            return DefWindowProcW(window_, message, wParam, lParam);
        case WM_SETFOCUS:
            focusFirst();
            return 0;
        case DM_GETDEFID:
            return question_ == Question::none ? 0 : MAKELRESULT(JSW_VIEW_NO, DC_HASDEFID);
        case WM_DESTROY:
            state_->detachWindow();
            PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
            return DefWindowProcW(std::exchange(window_, nullptr), message, wParam, lParam);
        default:
            return handlePainting(message, wParam, lParam);
    }
}

LRESULT Window::handlePainting(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT:
            paintGround(reinterpret_cast<HDC>(wParam));
            return 1;
        case WM_TIMER:
            ++runningStep_;
            InvalidateRect(GetDlgItem(window_, JSW_VIEW_PROGRESS_BAR), nullptr, FALSE);
            return 0;
        case WM_DRAWITEM:
            drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_NOTIFY: {
            const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
            if (notice.code != NM_CUSTOMDRAW) break;
            return customDrawButton(*reinterpret_cast<const NMCUSTOMDRAW*>(lParam),
                                    buttonLook(static_cast<int>(notice.idFrom)));
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return controlBrush(reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam));
        case WM_SETCURSOR:
            if (isLink(GetDlgCtrlID(reinterpret_cast<HWND>(wParam)))) {
                SetCursor(LoadCursorA(nullptr, IDC_HAND));
                return TRUE;
            }
            break;
        default:
            break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

void Window::changeScale(int dotsPerInch, const RECT& frame) {
    const auto fontsInUse = std::move(fonts_);
    setScale(dotsPerInch);
    setControlFont(window_, fonts_->get(Font::normal));
    setIcons();
    SetWindowPos(window_, nullptr, frame.left, frame.top, frame.right - frame.left,
                 frame.bottom - frame.top, SWP_NOZORDER | SWP_NOACTIVATE);
    refreshLayout();
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Window::changeLook() {
    palette_ = currentPalette();
    groundBrush_ = GdiObject<HBRUSH>(CreateSolidBrush(rgb(palette_.ground)));
    cardBrush_ = GdiObject<HBRUSH>(CreateSolidBrush(rgb(palette_.card)));
    footerBrush_ = GdiObject<HBRUSH>(CreateSolidBrush(rgb(palette_.footer)));
    matchTitleBar(window_, palette_);
    matchScrollBar(GetDlgItem(window_, JSW_VIEW_PAGE_SCROLL), palette_);
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Window::notePlace() {
    RECT frame;
    RECT content;
    if (!shown_ || IsIconic(window_) || IsZoomed(window_) || !GetWindowRect(window_, &frame) ||
        !GetClientRect(window_, &content)) {
        return;
    }
    state_->moved(
        {frame.left, frame.top, scale_.unscaled(content.right), scale_.unscaled(content.bottom)});
}

}  // namespace jsw::window
