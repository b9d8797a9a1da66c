#include "window/view/Controls.h"

#include "common/Encoding.h"
#include "window/ui/Canvas.h"
#include "window/view/WindowIds.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace jsw::window {
namespace {

struct Control {
    int id;
    const wchar_t* className;
    DWORD style;
};

constexpr const wchar_t* kStatic = L"STATIC";
constexpr const wchar_t* kButton = L"BUTTON";
constexpr const wchar_t* kScrollBar = L"SCROLLBAR";
constexpr DWORD kDrawn = WS_CLIPSIBLINGS | SS_OWNERDRAW;
constexpr DWORD kPush = WS_TABSTOP | BS_PUSHBUTTON;
// Controls that may be scrolled out of sight notify when they get the focus.
constexpr DWORD kPagePush = kPush | BS_NOTIFY;
constexpr DWORD kLink = WS_TABSTOP | BS_OWNERDRAW | BS_NOTIFY;
// Not the automatic kind: the box shows the choice in the state.
constexpr DWORD kCheck = WS_TABSTOP | BS_CHECKBOX;

/** In the order of the Tab key. */
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
    {JSW_VIEW_CONTENT_BUTTON, kButton, kPagePush},
    {JSW_VIEW_CONTENT_BUTTON + 1, kButton, kPagePush},
    {JSW_VIEW_CONTENT_BUTTON + 2, kButton, kPagePush},
    {JSW_VIEW_PAGE_SCROLL, kScrollBar, SBS_VERT},
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

/** The control's box in its window, visible or not. */
Box placeOf(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return boxOf(place);
}

bool isShown(HWND control) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

/**
 * Collects moves and performs them together. Moved controls are redrawn: their old pixels may by
 * then belong to another control.
 */
class Moves {
  public:
    explicit Moves(HWND window)
        : window_(window), moves_(BeginDeferWindowPos(static_cast<int>(std::size(kControls)))) {}
    ~Moves() {
        for (const Control& control : kControls) {
            const bool used =
                std::find(placed_.begin(), placed_.end(), control.id) != placed_.end();
            if (!used) hide(GetDlgItem(window_, control.id));
        }
        if (moves_) EndDeferWindowPos(moves_);
    }
    Moves(const Moves&) = delete;
    Moves& operator=(const Moves&) = delete;

    void place(int id, const Box& box) {
        placed_.push_back(id);
        const HWND control = GetDlgItem(window_, id);
        if (isShown(control) && placeOf(control) == box) return;
        move(control, box, SWP_SHOWWINDOW | SWP_NOCOPYBITS);
    }

  private:
    void hide(HWND control) {
        if (!isShown(control)) return;
        // A control that disappears must not keep the focus.
        if (GetFocus() == control) SetFocus(window_);
        move(control, {}, SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE);
    }
    void move(HWND control, const Box& box, UINT flags) {
        if (!moves_) return;
        moves_ = DeferWindowPos(moves_, control, nullptr, box.left, box.top, box.width(),
                                box.height(), flags | SWP_NOZORDER | SWP_NOACTIVATE);
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

/**
 * Places the page and its controls. The page precedes its links and buttons, in a screen reader's
 * order, and has holes for them.
 */
void placePage(HWND window, Moves& moves, const PageLayout& page) {
    moves.place(JSW_VIEW_BILLBOARD, page.card);
    std::vector<PlacedButton> onPage = page.buttons;
    for (PlacedButton control : page.inText) {
        const Box seen = page.seenOf(control);
        // A link can be drawn in part, a button only as a whole.
        const bool isSeen = isLink(control.id) || seen == control.box;
        control.box = isSeen ? seen : Box{seen.left, seen.top, seen.left, seen.top};
        onPage.push_back(control);
    }
    placeButtons(window, moves, onPage);
    const auto addHole = [&, hole = GdiObject<HRGN>(CreateRectRgn(0, 0, 0, 0))](HRGN region,
                                                                                Box box) {
        box = box.moved(-page.card.left, -page.card.top);
        SetRectRgn(hole.get(), box.left, box.top, box.right, box.bottom);
        CombineRgn(region, region, hole.get(), RGN_DIFF);
    };
    const HRGN region = CreateRectRgn(0, 0, page.card.width(), page.card.height());
    for (const PlacedButton& control : onPage) addHole(region, control.box);
    if (!page.scrollBar.empty()) {
        moves.place(JSW_VIEW_PAGE_SCROLL, page.scrollBar);
        addHole(region, page.scrollBar);
        SCROLLINFO info{sizeof(info),
                        SIF_ALL,
                        0,
                        page.textHeight - 1,
                        static_cast<UINT>(page.textArea.height()),
                        page.scrolled,
                        0};
        SetScrollInfo(GetDlgItem(window, JSW_VIEW_PAGE_SCROLL), SB_CTL, &info, TRUE);
    }
    SetWindowRgn(GetDlgItem(window, JSW_VIEW_BILLBOARD), region, FALSE);
}

}  // namespace

void createControls(HWND window, HINSTANCE instance) {
    for (const Control& control : kControls) {
        CreateWindowExW(0, control.className, L"", WS_CHILD | control.style, 0, 0, 0, 0, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), instance,
                        nullptr);
    }
}

void setControlFont(HWND window, HFONT font) {
    for (const Control& control : kControls) {
        if (isOwn(control.id)) continue;  // its painter has its own fonts
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
    if (!layout.ink.empty()) moves.place(JSW_VIEW_INK, layout.ink);
    placePage(window, moves, layout.page);
    if (!layout.question.empty()) moves.place(JSW_VIEW_QUESTION, layout.question);
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
    const std::wstring wanted = common::wide(text);
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

}  // namespace jsw::window
