#include "window/view/Tooltips.h"

#include "common/Encoding.h"
#include "window/ui/Canvas.h"

#include <commctrl.h>

#include <string>

namespace jsw::window {
namespace {

/** Tips are short. */
constexpr std::size_t kLongestTip = 1000;  // bytes
constexpr int kTipWidth = 600;             // pixels, before it is wrapped

/** The size that all versions of the common controls accept. */
const UINT kToolSize = TTTOOLINFOW_V1_SIZE;

}  // namespace

void Tooltips::create(HWND window, HINSTANCE instance) {
    window_ = window;
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                            WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, CW_USEDEFAULT, window, nullptr, instance, nullptr);
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, kTipWidth);
}

void Tooltips::update(const WindowLayout& layout) {
    TOOLINFOW tool{};
    tool.cbSize = kToolSize;
    tool.hwnd = window_;
    while (SendMessageW(tips_, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool))) {
        SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    for (const auto& [id, text] : layout.texts) add(text.box, nullptr, text.full);
    for (const PlacedText& line : layout.questionLines) add(line.box, nullptr, line.full);
    for (const InkCell& cell : layout.inkLayout.cells) {
        add(cell.label.box, nullptr, cell.label.full);
        add(cell.level.box, nullptr, cell.level.full);
    }
    for (const auto* buttons :
         {&layout.page.inText, &layout.page.buttons, &layout.buttons, &layout.checkBoxes}) {
        for (const PlacedButton& button : *buttons) {
            add(button.box, GetDlgItem(window_, button.id), button.full);
        }
    }
}

void Tooltips::add(const Box& box, HWND control, const std::string& text) {
    if (text.empty()) return;
    std::wstring words =
        common::wide(std::string_view(text).substr(0, characterStart(text, kLongestTip)));
    TOOLINFOW tool{};
    tool.cbSize = kToolSize;
    tool.hwnd = window_;
    tool.uFlags = TTF_SUBCLASS;
    tool.uId = ++count_;
    tool.rect = rect(box);
    if (control) {
        tool.uFlags |= TTF_IDISHWND;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
    }
    tool.lpszText = words.data();
    SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace jsw::window
