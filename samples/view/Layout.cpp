#include "samples/view/Layout.h"

#include "samples/view/BillboardPainter.h"
#include "samples/view/ControlIds.h"

#include <commctrl.h>

namespace sampleview {
namespace {

/** A control: its place is in pixels at 96 dots per inch. */
struct Control {
    int id;
    const char* className;
    const char* text;
    DWORD style;
    int x;
    int y;
    int width;
    int height;
    GdiObject<HFONT> Fonts::*font;
};

constexpr const char* kStatic = "STATIC";
constexpr const char* kButton = "BUTTON";
constexpr DWORD kText = WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS;
constexpr DWORD kDrawn = WS_VISIBLE | WS_CLIPSIBLINGS | SS_OWNERDRAW;
constexpr DWORD kPush = WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
// Not the automatic kind: the box follows the choice that the state holds.
constexpr DWORD kCheck = WS_VISIBLE | WS_TABSTOP | BS_CHECKBOX;

constexpr int kBillboardLeft = 20;
constexpr int kBillboardTop = 208;
constexpr int kBillboardWidth = 600;
constexpr int kBillboardHeight = 210;

/** In the order in which the Tab key goes through them. */
const Control kControls[] = {
    {JSW_VIEW_PRINTER_NAME, kStatic, "", kText, 20, 11, 430, 24, &Fonts::heading},
    {JSW_VIEW_SIMULATED, kStatic, "Simulated data", SS_CENTER | SS_CENTERIMAGE | SS_NOPREFIX, 500,
     13, 120, 22, &Fonts::bold},
    {JSW_VIEW_JOB_NAME, kStatic, "", kText, 20, 38, 600, 18, &Fonts::normal},

    {JSW_VIEW_PROGRESS_TEXT, kStatic, "", kText, 20, 78, 330, 18, &Fonts::bold},
    {JSW_VIEW_TIME_TEXT, kStatic, "", WS_VISIBLE | SS_RIGHT | SS_NOPREFIX, 360, 78, 260, 18,
     &Fonts::normal},
    {JSW_VIEW_PROGRESS_BAR, PROGRESS_CLASSA, "", WS_VISIBLE | PBS_SMOOTH, 20, 100, 600, 16,
     &Fonts::normal},
    {JSW_VIEW_INK, kStatic, "", kDrawn, 20, 128, 600, 70, &Fonts::normal},

    {JSW_VIEW_BILLBOARD, kStatic, "", kDrawn, kBillboardLeft, kBillboardTop, kBillboardWidth,
     kBillboardHeight, &Fonts::normal},
    {JSW_VIEW_CONTENT_BUTTON, kButton, "", WS_TABSTOP, 0, 0, 0, 0, &Fonts::normal},
    {JSW_VIEW_CONTENT_BUTTON + 1, kButton, "", WS_TABSTOP, 0, 0, 0, 0, &Fonts::normal},
    {JSW_VIEW_CONTENT_BUTTON + 2, kButton, "", WS_TABSTOP, 0, 0, 0, 0, &Fonts::normal},
    {JSW_VIEW_PREVIOUS, kButton, "< &Previous", kPush, 20, 426, 96, 28, &Fonts::normal},
    {JSW_VIEW_CURRENT, kButton, "C&urrent", kPush, 124, 426, 96, 28, &Fonts::normal},
    {JSW_VIEW_NEXT, kButton, "&Next >", kPush, 228, 426, 96, 28, &Fonts::normal},
    {JSW_VIEW_INK_STATUS, kButton, "&Ink status", kPush, 524, 426, 96, 28, &Fonts::normal},

    {JSW_VIEW_UPDATE_AUTOMATICALLY, kButton, "Update &automatically", kCheck, 20, 480, 170, 20,
     &Fonts::normal},
    {JSW_VIEW_SPECIAL_MESSAGES, kButton, "&Show special messages", kCheck, 204, 480, 190, 20,
     &Fonts::normal},
    {JSW_VIEW_CANCEL, kButton, "&Cancel printing", kPush, 484, 474, 136, 30, &Fonts::normal},
};
static_assert(kMaxButtons == 3, "one control per button of a page");

}  // namespace

void createControls(HWND window, HINSTANCE instance, const Fonts& fonts, int unit) {
    const auto pixels = [unit](int value) { return MulDiv(value, unit, 96); };
    for (const Control& control : kControls) {
        const HWND created = CreateWindowExA(
            0, control.className, control.text, WS_CHILD | control.style, pixels(control.x),
            pixels(control.y), pixels(control.width), pixels(control.height), window,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), instance, nullptr);
        SendMessageA(created, WM_SETFONT, reinterpret_cast<WPARAM>((fonts.*control.font).get()), 0);
    }
    // The page's buttons lie on the billboard.
    SetWindowPos(GetDlgItem(window, JSW_VIEW_BILLBOARD), HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE);
    SendDlgItemMessageA(window, JSW_VIEW_PROGRESS_BAR, PBM_SETRANGE32, 0, 1000);
}

void arrangePageButtons(HWND window, const Page& page, HFONT font, int unit) {
    const auto pixels = [unit](int value) { return MulDiv(value, unit, 96); };
    constexpr int kTop = kBillboardTop + kBillboardHeight - kPageButtonHeight - kPageMargin;
    int left = pixels(kBillboardLeft + kPanelWidth + kPageMargin);
    const HDC dc = GetDC(window);
    for (std::size_t i = 0; i < kMaxButtons; ++i) {
        const int id = JSW_VIEW_CONTENT_BUTTON + static_cast<int>(i);
        const HWND button = GetDlgItem(window, id);
        const bool used = i < page.buttons.size();
        if (used) {
            const std::string& label = page.buttons[i].label;
            const int width = Canvas(dc).width(label, font) + pixels(28);
            setControlText(window, id, label);
            SetWindowPos(button, nullptr, left, pixels(kTop), width, pixels(kPageButtonHeight),
                         SWP_NOZORDER | SWP_NOACTIVATE);
            left += width + pixels(8);
        }
        ShowWindow(button, used ? SW_SHOWNA : SW_HIDE);
    }
    ReleaseDC(window, dc);
}

void setControlText(HWND window, int id, const std::string& text) {
    const HWND control = id ? GetDlgItem(window, id) : window;
    std::string present(static_cast<std::size_t>(GetWindowTextLengthA(control)) + 1, '\0');
    present.resize(static_cast<std::size_t>(
        GetWindowTextA(control, present.data(), static_cast<int>(present.size()))));
    if (present != text) SetWindowTextA(control, text.c_str());
}

void enableControl(HWND window, int id, bool enabled) {
    const HWND control = GetDlgItem(window, id);
    if ((IsWindowEnabled(control) != FALSE) == enabled) return;
    if (!enabled && GetFocus() == control) SetFocus(GetNextDlgTabItem(window, control, FALSE));
    EnableWindow(control, enabled);
}

}  // namespace sampleview
