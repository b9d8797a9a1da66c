#include "window/view/Controls.h"

#include "window/ui/Text.h"
#include "window/view/ControlIds.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace jsw::view {
namespace {

struct Control {
    int id;
    const wchar_t* className;
    DWORD style;
};

constexpr const wchar_t* kStatic = L"STATIC";
constexpr const wchar_t* kButton = L"BUTTON";
constexpr DWORD kDrawn = WS_CLIPSIBLINGS | SS_OWNERDRAW;
constexpr DWORD kPush = WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kLink = WS_TABSTOP | BS_OWNERDRAW;
// Not the automatic kind: the box follows the choice that the state holds.
constexpr DWORD kCheck = WS_TABSTOP | BS_CHECKBOX;

/** In the order in which the Tab key goes through them. */
constexpr Control kControls[] = {
    {JSW_VIEW_PRINTER_NAME, kStatic, kDrawn},
    {JSW_VIEW_SIMULATED, kStatic, kDrawn},
    {JSW_VIEW_JOB_NAME, kStatic, kDrawn},
    {JSW_VIEW_PROGRESS_TEXT, kStatic, kDrawn},
    {JSW_VIEW_TIME_TEXT, kStatic, kDrawn},
    {JSW_VIEW_PROGRESS_BAR, kStatic, kDrawn},
    {JSW_VIEW_INK, kStatic, kDrawn},
    {JSW_VIEW_BILLBOARD, kStatic, kDrawn},
    {JSW_VIEW_CONTENT_LINK, kButton, kLink},
    {JSW_VIEW_CONTENT_LINK + 1, kButton, kLink},
    {JSW_VIEW_CONTENT_LINK + 2, kButton, kLink},
    {JSW_VIEW_CONTENT_LINK + 3, kButton, kLink},
    {JSW_VIEW_CONTENT_LINK + 4, kButton, kLink},
    {JSW_VIEW_CONTENT_LINK + 5, kButton, kLink},
    {JSW_VIEW_CONTENT_BUTTON, kButton, kPush},
    {JSW_VIEW_CONTENT_BUTTON + 1, kButton, kPush},
    {JSW_VIEW_CONTENT_BUTTON + 2, kButton, kPush},
    {JSW_VIEW_PREVIOUS, kButton, kPush},
    {JSW_VIEW_CURRENT, kButton, kPush},
    {JSW_VIEW_NEXT, kButton, kPush},
    {JSW_VIEW_INK_STATUS, kButton, kPush},
    {JSW_VIEW_QUESTION, kStatic, kDrawn},
    {JSW_VIEW_YES, kButton, kPush},
    {JSW_VIEW_NO, kButton, WS_TABSTOP | BS_DEFPUSHBUTTON},
    {JSW_VIEW_UPDATE_AUTOMATICALLY, kButton, kCheck},
    {JSW_VIEW_SPECIAL_MESSAGES, kButton, kCheck},
    {JSW_VIEW_CANCEL, kButton, kPush},
};
static_assert(kMaxButtons == 3 && kMaxLinks == 6, "one control per button and link of a page");

constexpr int kOwn[] = {
    JSW_VIEW_PRINTER_NAME,
    JSW_VIEW_SIMULATED,
    JSW_VIEW_JOB_NAME,
    JSW_VIEW_PROGRESS_TEXT,
    JSW_VIEW_TIME_TEXT,
    JSW_VIEW_PROGRESS_BAR,
    JSW_VIEW_INK,
    JSW_VIEW_BILLBOARD,
    JSW_VIEW_QUESTION,
    JSW_VIEW_CONTENT_LINK,
    JSW_VIEW_CONTENT_LINK + 1,
    JSW_VIEW_CONTENT_LINK + 2,
    JSW_VIEW_CONTENT_LINK + 3,
    JSW_VIEW_CONTENT_LINK + 4,
    JSW_VIEW_CONTENT_LINK + 5,
};

bool isOwn(int id) {
    return std::find(std::begin(kOwn), std::end(kOwn), id) != std::end(kOwn);
}

/** Collects moves and carries them out at once, so that nothing is seen half done. */
class Moves {
  public:
    explicit Moves(HWND window)
        : window_(window), moves_(BeginDeferWindowPos(static_cast<int>(std::size(kControls)))) {}
    ~Moves() {
        for (const Control& control : kControls) {
            const bool used =
                std::find(placed_.begin(), placed_.end(), control.id) != placed_.end();
            if (!used) move(control.id, {}, SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE);
        }
        if (moves_) EndDeferWindowPos(moves_);
    }
    Moves(const Moves&) = delete;
    Moves& operator=(const Moves&) = delete;

    void place(int id, const Box& box) {
        placed_.push_back(id);
        move(id, box, SWP_SHOWWINDOW);
    }

  private:
    void move(int id, const Box& box, UINT flags) {
        const HWND control = GetDlgItem(window_, id);
        // Pages and buttons come and go; what has the keyboard must not go with it unnoticed.
        if ((flags & SWP_HIDEWINDOW) != 0 && GetFocus() == control) SetFocus(window_);
        if (moves_) {
            moves_ = DeferWindowPos(moves_, control, nullptr, box.left, box.top, box.width(),
                                    box.height(), flags | SWP_NOZORDER | SWP_NOACTIVATE);
        }
    }

    HWND window_;
    HDWP moves_;
    std::vector<int> placed_;
};

const std::string& meant(const std::string& full, const std::string& shown) {
    return full.empty() ? shown : full;
}

void placeButtons(HWND window, Moves& moves, const std::vector<PlacedButton>& buttons) {
    for (const PlacedButton& button : buttons) {
        moves.place(button.id, button.box);
        setControlText(window, button.id, button.label);
    }
}

}  // namespace

void createControls(HWND window, HINSTANCE instance) {
    for (const Control& control : kControls) {
        CreateWindowExW(0, control.className, L"", WS_CHILD | control.style, 0, 0, 0, 0, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), instance,
                        nullptr);
    }
    // The page's buttons lie on the billboard.
    SetWindowPos(GetDlgItem(window, JSW_VIEW_BILLBOARD), HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE);
}

void setControlFont(HWND window, HFONT font) {
    for (const Control& control : kControls) {
        if (isOwn(control.id)) continue;  // its painter has fonts of its own
        SendDlgItemMessageW(window, control.id, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
}

void applyLayout(HWND window, const WindowLayout& layout) {
    Moves moves(window);
    for (const auto& [id, text] : layout.texts) {
        moves.place(id, id == JSW_VIEW_SIMULATED ? layout.badge : text.box);
        setControlText(window, id, meant(text.full, text.text));
    }
    moves.place(JSW_VIEW_PROGRESS_BAR, layout.progressBar);
    moves.place(JSW_VIEW_INK, layout.ink);
    if (layout.hasPage) moves.place(JSW_VIEW_BILLBOARD, layout.page.card);
    if (!layout.question.empty()) moves.place(JSW_VIEW_QUESTION, layout.question);
    if (layout.hasPage) {
        placeButtons(window, moves, layout.page.links);
        placeButtons(window, moves, layout.page.buttons);
    }
    placeButtons(window, moves, layout.buttons);
    placeButtons(window, moves, layout.checkBoxes);
}

std::span<const int> ownControls() {
    return kOwn;
}

bool isLink(int id) {
    return id >= JSW_VIEW_CONTENT_LINK && id < JSW_VIEW_CONTENT_LINK + static_cast<int>(kMaxLinks);
}

bool isOnPage(int id) {
    return isLink(id) || (id >= JSW_VIEW_CONTENT_BUTTON &&
                          id < JSW_VIEW_CONTENT_BUTTON + static_cast<int>(kMaxButtons));
}

bool isInFooter(int id) {
    constexpr std::array kFooter{JSW_VIEW_QUESTION,
                                 JSW_VIEW_YES,
                                 JSW_VIEW_NO,
                                 JSW_VIEW_CANCEL,
                                 JSW_VIEW_UPDATE_AUTOMATICALLY,
                                 JSW_VIEW_SPECIAL_MESSAGES};
    return std::find(kFooter.begin(), kFooter.end(), id) != kFooter.end();
}

void setControlText(HWND window, int id, const std::string& text) {
    const HWND control = id ? GetDlgItem(window, id) : window;
    const std::wstring wanted = ui::wide(text);
    std::wstring present(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    present.resize(static_cast<std::size_t>(
        GetWindowTextW(control, present.data(), static_cast<int>(present.size()))));
    if (present != wanted) SetWindowTextW(control, wanted.c_str());
}

void enableControl(HWND window, int id, bool enabled) {
    const HWND control = GetDlgItem(window, id);
    if ((IsWindowEnabled(control) != FALSE) == enabled) return;
    if (!enabled && GetFocus() == control) SetFocus(GetNextDlgTabItem(window, control, FALSE));
    EnableWindow(control, enabled);
}

}  // namespace jsw::view
