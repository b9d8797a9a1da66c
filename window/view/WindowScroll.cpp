/**
 * Scrolls a page that does not fit: by scroll bar, wheel and page keys, and to a link or button
 * that gets the focus.
 */
#include "window/view/Window.h"
#include "window/view/WindowIds.h"

#include <windows.h>

#include <algorithm>

namespace jsw::window {

void Window::scrollTo(int position) {
    scrolled_ = position;
    refreshLayout();
}

void Window::scrollBarMoved(int request) {
    const int line = FontMeasure(*fonts_).lineHeight(Font::normal);
    const int page = std::max(layout_.page.textArea.height() - line, line);
    SCROLLINFO info{sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
    switch (request) {
        case SB_LINEUP:
            return scrollTo(scrolled_ - line);
        case SB_LINEDOWN:
            return scrollTo(scrolled_ + line);
        case SB_PAGEUP:
            return scrollTo(scrolled_ - page);
        case SB_PAGEDOWN:
            return scrollTo(scrolled_ + page);
        case SB_TOP:
            return scrollTo(0);
        case SB_BOTTOM:
            return scrollTo(layout_.page.textHeight);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            GetScrollInfo(GetDlgItem(window_, JSW_VIEW_PAGE_SCROLL), SB_CTL, &info);
            return scrollTo(info.nTrackPos);
        default:
            return;
    }
}

void Window::wheelTurned(int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) return scrollBarMoved(delta > 0 ? SB_PAGEUP : SB_PAGEDOWN);
    // A fine wheel turns by less than a notch.
    wheelTurns_ += delta * FontMeasure(*fonts_).lineHeight(Font::normal) *
                   static_cast<int>(std::min(lines, 100U));
    const int pixels = wheelTurns_ / WHEEL_DELTA;
    wheelTurns_ -= pixels * WHEEL_DELTA;
    scrollTo(scrolled_ - pixels);
}

bool Window::scrollsByKey(WPARAM key) {
    if (layout_.page.scrollBar.empty()) return false;
    switch (key) {
        case VK_PRIOR:
            scrollBarMoved(SB_PAGEUP);
            return true;
        case VK_NEXT:
            scrollBarMoved(SB_PAGEDOWN);
            return true;
        case VK_HOME:
            scrollBarMoved(SB_TOP);
            return true;
        case VK_END:
            scrollBarMoved(SB_BOTTOM);
            return true;
        default:
            return false;
    }
}

void Window::showFocused(int id) {
    // A pressed control must not move away from the mouse.
    if (GetKeyState(VK_LBUTTON) < 0) return;
    for (const PlacedButton& control : layout_.page.inText) {
        if (control.id == id) return scrollTo(layout_.page.scrolledTo(control));
    }
}

}  // namespace jsw::window
