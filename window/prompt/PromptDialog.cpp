#include "window/prompt/PromptDialog.h"

#include "common/Encoding.h"
#include "common/Files.h"
#include "common/Language.h"
#include "window/prompt/PromptIds.h"
#include "window/prompt/PromptText.h"
#include "window/ui/ButtonPainter.h"
#include "window/ui/Dpi.h"
#include "window/ui/Look.h"

#include <windows.h>

#include <algorithm>
#include <atomic>

namespace jsw::window {
namespace {

constexpr UINT kDriverMessage = WM_APP;  // wParam: a JswLegacyMessage

constexpr DWORD kStyle =
    DS_MODALFRAME | DS_SETFOREGROUND | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_TOPMOST | WS_EX_CONTROLPARENT;

/** The open dialog, or null. */
std::atomic<HWND> currentDialog{nullptr};

constexpr struct {
    int id;
    const wchar_t* className;
    DWORD style;
} kControls[] = {
    {JSW_LEGACY_PRINTER, L"STATIC", SS_OWNERDRAW},
    {JSW_LEGACY_TEXT, L"STATIC", SS_OWNERDRAW},
    {JSW_LEGACY_NOTE, L"STATIC", SS_OWNERDRAW},
    {JSW_LEGACY_CONTINUE, L"BUTTON", WS_TABSTOP | BS_DEFPUSHBUTTON},
    {JSW_LEGACY_CANCEL, L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON},
};

/** A dialog without controls: their positions are computed when the scale is known. */
struct EmptyTemplate {
    DLGTEMPLATE head;
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

}  // namespace

PromptDialog::PromptDialog(const std::string& printer, int32_t type, int32_t totalPages)
    : texts_(common::translated<PromptTexts>(common::userLanguages())),
      printer_(common::utf8FromAnsi(printer)),
      text_(promptText(type, totalPages, texts_)),
      palette_(lightPalette()) {
}

void PromptDialog::run() {
    const SharpWindows sharp;
    const VisualStyles styles(common::thisModule());
    EmptyTemplate empty{};
    empty.head.style = kStyle;
    empty.head.dwExtendedStyle = kExtendedStyle;
    DialogBoxIndirectParamW(common::thisModule(), &empty.head, nullptr, procedure,
                            reinterpret_cast<LPARAM>(this));
}

void PromptDialog::post(uintptr_t message) {
    // Posted, not sent: the dialog's thread may be waiting for this one.
    if (const HWND dialog = currentDialog) PostMessageW(dialog, kDriverMessage, message, 0);
}

INT_PTR CALLBACK PromptDialog::procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        if (message == WM_INITDIALOG) {
            // NOLINTNEXTLINE(performance-no-int-to-ptr): how a dialog gets its object
            auto* const created = reinterpret_cast<PromptDialog*>(lParam);
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
            created->dialog_ = dialog;
            created->createControls();
            currentDialog = dialog;
            SetFocus(GetDlgItem(dialog, JSW_LEGACY_CONTINUE));
            return FALSE;  // the focus is already set
        }
        // NOLINTNEXTLINE(performance-no-int-to-ptr): as above
        auto* const self = reinterpret_cast<PromptDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
        return self ? self->handle(message, wParam, lParam) : FALSE;
    } catch (...) {
        // Out of memory; the dialog stays unchanged.
        return FALSE;
    }
}

INT_PTR PromptDialog::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) != JSW_LEGACY_CONTINUE && LOWORD(wParam) != JSW_LEGACY_CANCEL) {
                return FALSE;
            }
            EndDialog(dialog_, LOWORD(wParam));
            return TRUE;
        case kDriverMessage:
            onDriverMessage(wParam);
            return TRUE;
        case kMessageDpiChanged:
            changeScale(HIWORD(wParam));
            return TRUE;
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
            changeLook();
            return TRUE;
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT:
            paintGround(reinterpret_cast<HDC>(wParam));
            SetWindowLongPtrW(dialog_, DWLP_MSGRESULT, 1);
            return TRUE;
        case WM_DRAWITEM:
            drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_NOTIFY: {
            const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
            if (notice.code != NM_CUSTOMDRAW) return FALSE;
            const ButtonLook look{
                {palette_, *fonts_, scale_}, palette_.footer, notice.idFrom == JSW_LEGACY_CONTINUE};
            SetWindowLongPtrW(
                dialog_, DWLP_MSGRESULT,
                customDrawButton(*reinterpret_cast<const NMCUSTOMDRAW*>(lParam), look));
            return TRUE;
        }
        case WM_DESTROY:
            currentDialog = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
}

void PromptDialog::createControls() {
    SetWindowTextW(dialog_, common::wide(texts_.title).c_str());
    for (const auto& control : kControls) {
        CreateWindowExW(0, control.className, L"", WS_CHILD | WS_VISIBLE | control.style, 0, 0, 0,
                        0, dialog_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)),
                        nullptr, nullptr);
    }
    SendMessageW(dialog_, DM_SETDEFID, JSW_LEGACY_CONTINUE, 0);
    changeScale(dotsPerInch(dialog_));
    changeLook();
}

void PromptDialog::changeLook() {
    palette_ = currentPalette();
    matchTitleBar(dialog_, palette_);
    RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void PromptDialog::changeScale(int dotsPerInch) {
    scale_ = Scale(dotsPerInch);
    auto fonts = std::make_unique<Fonts>(dotsPerInch);
    for (const auto& control : kControls) {
        SendDlgItemMessageW(dialog_, control.id, WM_SETFONT,
                            reinterpret_cast<WPARAM>(fonts->get(Font::normal)), FALSE);
    }
    fonts_ = std::move(fonts);
    arrange();
    // Centred on its screen.
    const SIZE size =
        frameSize({layout_.size.width, layout_.size.height}, kStyle, kExtendedStyle, dotsPerInch);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(dialog_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    SetWindowPos(dialog_, nullptr, (work.left + work.right - size.cx) / 2,
                 (work.top + work.bottom - size.cy) / 2, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void PromptDialog::arrange() {
    layout_ = layoutPrompt(printer_, text_, note_, texts_, FontMeasure(*fonts_), scale_);
    const auto place = [this](int id, const Box& box, const std::string& text) {
        const HWND control = GetDlgItem(dialog_, id);
        SetWindowPos(control, nullptr, box.left, box.top, box.width(), box.height(),
                     SWP_NOZORDER | SWP_NOACTIVATE);
        SetWindowTextW(control, common::wide(text).c_str());
    };
    place(JSW_LEGACY_PRINTER, layout_.printer.box, printer_);
    place(JSW_LEGACY_TEXT, layout_.text, text_);
    place(JSW_LEGACY_NOTE, layout_.note.box, note_);
    for (const PlacedButton& button : layout_.buttons) place(button.id, button.box, button.label);
}

void PromptDialog::onDriverMessage(uintptr_t message) {
    switch (message) {
        case JSW_LEGACY_PRESS_CONTINUE:
            EndDialog(dialog_, JSW_LEGACY_CONTINUE);
            return;
        case JSW_LEGACY_PRESS_CANCEL:
        case JSW_LEGACY_CLOSE:
            EndDialog(dialog_, JSW_LEGACY_CANCEL);
            return;
        default:
            if (const std::string* const note = noteText(message, texts_)) {
                note_ = *note;
                arrange();
            }
    }
}

void PromptDialog::paintGround(HDC dc) const {
    paintBuffered(dc, {0, 0, layout_.size.width, layout_.size.height},
                  [&](const Canvas& canvas, const Box& box) {
                      const int thin = std::max(scale_(1), 1);
                      const Box& footer = layout_.footer;
                      canvas.fill(box, palette_.ground);
                      canvas.fill(footer, palette_.footer);
                      canvas.fill({0, footer.top, box.right, footer.top + thin}, palette_.line);
                      // An exclamation mark in a disc.
                      const Box& sign = layout_.sign;
                      canvas.fillRound(sign, sign.width(), palette_.accent);
                      const auto part = [&](int left, int top, int right, int bottom) {
                          const auto at = [&](int units) { return units * sign.width() / 36; };
                          return Box{sign.left + at(left), sign.top + at(top),
                                     sign.left + at(right), sign.top + at(bottom)};
                      };
                      canvas.fillRound(part(16, 8, 20, 21), scale_(2), palette_.ground);
                      canvas.fillRound(part(16, 24, 20, 28), scale_(2), palette_.ground);
                  });
}

void PromptDialog::drawItem(const DRAWITEMSTRUCT& item) const {
    const Look look{palette_, *fonts_, scale_};
    paintBuffered(item.hDC, item.rcItem, [&](const Canvas& canvas, const Box& box) {
        canvas.fill(box, palette_.ground);
        switch (item.CtlID) {
            case JSW_LEGACY_PRINTER:
                return paintText(canvas, onCanvas(layout_.printer, layout_.printer.box), look);
            case JSW_LEGACY_NOTE:
                return paintText(canvas, onCanvas(layout_.note, layout_.note.box), look);
            default:
                for (const PlacedText& line : layout_.textLines) {
                    paintText(canvas, onCanvas(line, layout_.text), look);
                }
        }
    });
}

}  // namespace jsw::window
