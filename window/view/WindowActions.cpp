/**
 * The user's actions in the window.
 */
#include "window/view/Controls.h"
#include "window/view/Window.h"
#include "window/view/WindowIds.h"

#include <windows.h>

#include <string>
#include <utility>

namespace jsw::window {
namespace {

constexpr const char* kMinimizedKey = "Job Progress Minimized";
constexpr const char* kSpecialMessagesKey = "Show Special Messages";
constexpr const char* kClosingExplainedValue = "ClosingExplained";

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

bool isPushButton(HWND control) {
    const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    const bool isCheckBox = (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_CHECKBOX;
    return (code & DLGC_BUTTON) != 0 && !isCheckBox;
}

}  // namespace

/** Shows the focus as soon as the keyboard is used. */
void Window::showKeyboardCues(const MSG& message) {
    const bool moves =
        message.message == WM_KEYDOWN &&
        (message.wParam == VK_TAB || (message.wParam >= VK_LEFT && message.wParam <= VK_DOWN));
    const bool isAlt = message.message == WM_SYSKEYDOWN && message.wParam == VK_MENU;
    bool& shows = moves ? showsFocus_ : showsKeys_;
    if ((!moves && !isAlt) || std::exchange(shows, true)) return;
    SendMessageW(window_, WM_CHANGEUISTATE,
                 MAKEWPARAM(UIS_CLEAR, moves ? UISF_HIDEFOCUS : UISF_HIDEACCEL), 0);
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

/**
 * Enter presses the focused button, or answers a question with no; it never cancels by itself.
 * Escape answers a question with no; otherwise it closes the window.
 */
bool Window::pressedKey(const MSG& message) {
    showKeyboardCues(message);
    if (message.message != WM_KEYDOWN ||
        !(message.hwnd == window_ || IsChild(window_, message.hwnd))) {
        return false;
    }
    if (scrollsByKey(message.wParam)) return true;
    const bool isAsking = question_ != Question::none;
    if (message.wParam == VK_RETURN) {
        const HWND focus = GetFocus();
        if (focus && focus != window_ && isPushButton(focus)) {
            PostMessageW(focus, BM_CLICK, 0, 0);
        } else if (isAsking) {
            pressed(JSW_VIEW_NO);
        }
        return true;
    }
    if (message.wParam == VK_ESCAPE) {
        if (isAsking) {
            pressed(JSW_VIEW_NO);
        } else {
            closePressed();
        }
        return true;
    }
    return false;
}

void Window::pressed(int id) {
    // A posted command arrives even if the control is disabled or hidden.
    const HWND control = GetDlgItem(window_, id);
    const bool isThere = control && (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
    if (!isThere || !IsWindowEnabled(control)) return;
    for (const Navigation& entry : kNavigation) {
        if (entry.id != id) continue;
        state_->callHostLater(&HostCallbacks::billboard, std::string(entry.action),
                              std::int32_t{0});
        return;
    }
    switch (id) {
        case JSW_VIEW_CANCEL:
            return cancelPressed();
        case JSW_VIEW_YES:
            return answerYes();
        case JSW_VIEW_NO:
            return ask(Question::none);
        case JSW_VIEW_UPDATE_AUTOMATICALLY:
            return toggleUpdateSoftware();
        case JSW_VIEW_SPECIAL_MESSAGES:
            return toggleSpecialMessages();
        default:
            break;
    }
    if (isLink(id)) {
        pressPageButton(billboard_.page.links, id - JSW_VIEW_CONTENT_LINK);
    } else if (isOnPage(id)) {
        pressPageButton(billboard_.page.buttons, id - JSW_VIEW_CONTENT_BUTTON);
    }
}

void Window::pressPageButton(const std::vector<ContentButton>& buttons, int index) {
    if (static_cast<std::size_t>(index) >= buttons.size()) return;
    const ContentButton& button = buttons[static_cast<std::size_t>(index)];
    state_->callHostLater(&HostCallbacks::billboard, button.action, std::int32_t{button.actionId});
}

void Window::ask(Question question) {
    const bool hadKeyboard = IsChild(window_, GetFocus()) || GetFocus() == window_;
    question_ = question;
    refresh();
    if (!hadKeyboard) return;
    SetFocus(GetDlgItem(window_, question == Question::none ? JSW_VIEW_CURRENT : JSW_VIEW_NO));
}

void Window::answerYes() {
    const Question question = question_;
    ask(Question::none);
    if (question == Question::cancel) cancelJob();
    if (question == Question::close) hideAndReport(JSW_STATUS_GUI_CLOSED);
}

void Window::cancelPressed() {
    if (cancellingNeedsAsking(data_)) {
        ask(Question::cancel);
    } else {
        cancelJob();
    }
}

void Window::cancelJob() {
    state_->change([](JobData& data) { data.cancelling = true; });
    refresh();
    state_->callHostLater(&HostCallbacks::event, std::int32_t{JSW_STATUS_JOB_CANCELLED});
}

void Window::closePressed() {
    // A minimised window cannot show the question; and a second close means yes.
    const bool canAsk = !IsIconic(window_) && question_ != Question::close;
    if (!canAsk || !closingNeedsExplaining(data_)) return hideAndReport(JSW_STATUS_GUI_CLOSED);
    state_->change([](JobData& data) { data.closingExplained = true; });
    state_->callHostLater(&HostCallbacks::saveValue, std::string(kClosingExplainedValue),
                          std::string("1"));
    ask(Question::close);
}

void Window::toggleUpdateSoftware() {
    const bool on = !data_.updateSoftware;
    state_->change([on](JobData& data) { data.updateSoftware = on; });
    refresh();
    state_->callHostLater(&HostCallbacks::updateSoftware, std::int32_t{on});
}

void Window::toggleSpecialMessages() {
    const bool on = !data_.showSpecialMessages;
    state_->change([on](JobData& data) { data.showSpecialMessages = on; });
    refresh();
    state_->callHostLater(&HostCallbacks::saveAppearance, std::string(kSpecialMessagesKey),
                          std::int32_t{on});
}

void Window::hideAndReport(std::int32_t event) {
    question_ = Question::none;
    state_->change([](JobData& data) { data.visible = false; });
    refresh();
    state_->savePlaceLater();
    state_->callHostLater(&HostCallbacks::event, event);
}

void Window::focusFirst() {
    const HWND wanted =
        lastFocus_ && IsChild(window_, lastFocus_) && IsWindowVisible(lastFocus_) &&
                IsWindowEnabled(lastFocus_)
            ? lastFocus_
            : GetDlgItem(window_, question_ == Question::none ? JSW_VIEW_CURRENT : JSW_VIEW_NO);
    SetFocus(IsWindowVisible(wanted) ? wanted : GetNextDlgTabItem(window_, nullptr, FALSE));
}

LRESULT Window::systemCommand(WPARAM wParam, LPARAM lParam) {
    // The system uses the four low bits.
    const WPARAM command = wParam & 0xFFF0;
    if (command == JSW_VIEW_CLOSE_JOB) {
        hideAndReport(JSW_STATUS_JOB_CLOSED);
        return 0;
    }
    const LRESULT result = DefWindowProcW(window_, WM_SYSCOMMAND, wParam, lParam);
    if (command == SC_MINIMIZE || command == SC_RESTORE) {
        state_->callHostLater(&HostCallbacks::saveAppearance, std::string(kMinimizedKey),
                              std::int32_t{command == SC_MINIMIZE});
    }
    return result;
}

}  // namespace jsw::window
